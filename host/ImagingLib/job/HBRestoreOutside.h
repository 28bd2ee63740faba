// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "HBImagingLibExport.h"

#include <QRect>

/// Gives tile `index` of `image` the source's bytes back wherever it lies outside `keep`. The images have the same
/// size; a tile that is wholly outside is shared with the source again. Different tiles may be restored at once on
/// different threads. \throws std::bad_alloc
HB_IMAGINGLIB_EXPORT void HBRestoreOutside(HBImage<>& image, const HBImage<>& source, int index,
                                           const QRect& keep);

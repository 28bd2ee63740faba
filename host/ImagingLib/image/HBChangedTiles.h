// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "HBImagingLibExport.h"

#include <QRegion>

/// Where two images differ, in whole tiles cut to the image, told without looking at a pixel: tiles that both
/// share are the same. So what an adjustment has left alone costs nothing to show again. All of `after` if the
/// sizes differ. Any thread.
///
///     for (const QRect& rect : HBChangedTiles(before, after))
///         ...                         // a row of tiles that hang together
HB_IMAGINGLIB_EXPORT QRegion HBChangedTiles(const HBImage<>& before, const HBImage<>& after);

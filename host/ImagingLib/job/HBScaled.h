// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

#include <QImage>

/// As QImage::scaled with Qt::SmoothTransformation. A large image is scaled on a thread of the global pool, which
/// the caller waits for: Qt would share it with several, and wait for ever for one that the system does not
/// start. Any thread.
/// \throws std::bad_alloc, and std::system_error where the system starts no more threads
HB_IMAGINGLIB_EXPORT QImage HBScaled(const QImage& image, const QSize& size,
                                     Qt::AspectRatioMode mode = Qt::IgnoreAspectRatio);

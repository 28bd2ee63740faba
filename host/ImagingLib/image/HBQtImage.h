// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "imaginglib_export.h"

#include <QImage>

// Qt shares the work on a large image with the threads of its global pool, and waits for ever for one that the
// system does not start, for want of memory or processes. These do the same without that trap. Any thread.

/// As QImage::convertToFormat; on the calling thread alone. Large images lose what is beside their pixels
/// (resolution, texts).
/// \throws std::bad_alloc
IMAGINGLIB_EXPORT QImage HBConverted(const QImage& image, QImage::Format format);
/// Where the image is, if both formats have 32 bits and nobody else has it; it must own its pixels.
IMAGINGLIB_EXPORT QImage HBConverted(QImage&& image, QImage::Format format);

/// As QImage::scaled with Qt::SmoothTransformation. A large image is scaled on a thread of the global pool, which
/// the caller waits for.
/// \throws std::bad_alloc, and std::system_error where the system starts no more threads
IMAGINGLIB_EXPORT QImage HBScaled(const QImage& image, const QSize& size,
                                  Qt::AspectRatioMode mode = Qt::IgnoreAspectRatio);

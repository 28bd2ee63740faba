// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

#include <QImage>

// What Qt does with images without its traps. Any thread.

/// Qt's readers of images, its fonts and its painter keep locks, or end the process, where they get no memory:
/// this comes before them.
/// \throws std::bad_alloc if there is less than 1 MiB
HB_IMAGINGLIB_EXPORT void HBCheckMemory();

/// As QImage::convertToFormat; on the calling thread alone. Qt shares a large image with the threads of its global
/// pool, and waits for ever for one that the system does not start. Large images lose what is beside their pixels
/// (resolution, texts).
/// \throws std::bad_alloc
HB_IMAGINGLIB_EXPORT QImage HBConverted(const QImage& image, QImage::Format format);
/// Where the image is, if both formats have 32 bits and nobody else has it; it must own its pixels.
HB_IMAGINGLIB_EXPORT QImage HBConverted(QImage&& image, QImage::Format format);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSign.h"
#include "HBWatermark.h"

// For hosts of the panels of sign and watermark, which only describe what is drawn: the meaning of their records,
// as HBAdjust has it.

/// Lays a stamp over the picture. Works tile by tile, so that any size of picture goes; tiles that the stamp does
/// not touch stay shared with the source, and pixels that it does not cover keep their bytes. Values out of range
/// count as the nearest one in range. Any thread; needs no application object.
/// \param error empty if all went well; else names the file and the reason, and the picture comes back as it was.
///        May be null.
HB_ADJUSTMENTS_EXPORT HBImage<> HBDrawSign(const HBImage<>& image, const HBSignParams& params, QString* error);

/// Lays a text over the picture, otherwise as HBDrawSign; the error names the font. Needs a QGuiApplication.
HB_ADJUSTMENTS_EXPORT HBImage<> HBDrawWatermark(const HBImage<>& image, const HBWatermarkParams& params,
                                                QString* error);

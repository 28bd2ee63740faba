// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "overlay_export.h"

#include <HBImage.h>
#include <HBSignWidget.h>
#include <HBWatermarkWidget.h>

#include <QString>

/// Lays a stamp over the picture. All lengths of the record, the stamp's own pixels too, count in thousandths of the
/// picture's shorter side, so that one record looks the same on a thumbnail and on the full photo. The stamp is
/// aligned between the margins and made smaller, never larger, to fit between them.
///
/// Works tile by tile, so that any size of picture goes; tiles that the stamp does not touch stay shared with the
/// source, and pixels that it does not cover keep their bytes. Values out of range count as the nearest one in range,
/// an unknown blending mode as source over.
///
/// Any thread; needs a QGuiApplication.
///
/// \param error empty if all went well; else names the file and the reason, and the picture comes back as it was. May
///        be null.
OVERLAY_EXPORT HBImage<> HBDrawSign(const HBImage<>& image, const HBSignWidget::Params& params, QString* error);

/// Lays a text over the picture, in as many copies as the record says: the picture between the margins is divided
/// into equal cells, and each holds one copy in its middle, turned counter-clockwise by the angle (any: it goes
/// round). A font's pixel is a thousandth of the picture's shorter side, a point 4/3 of that; a text that its cell does
/// not hold becomes smaller.
///
/// Otherwise as HBDrawSign; the error names the font.
OVERLAY_EXPORT HBImage<> HBDrawWatermark(const HBImage<>& image, const HBWatermarkWidget::Params& params,
                                         QString* error);

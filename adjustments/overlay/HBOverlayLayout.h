// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QRectF>
#include <QSize>
#include <QTransform>
#include <QVector>

/// Where an overlay lies on a picture: plain arithmetic, in pixels of the picture. Values out of range, which come
/// from records that anybody may have written, count as the nearest one in range; an angle goes round.
namespace HBOverlayLayout
{

/// Lengths of the records count in thousandths of the picture's shorter side.
constexpr int UnitsPerSide = 1000;

/// Pixels of the picture in one unit.
double Unit(const QSize& picture);

/// The picture between the margins (HBMarginRange), which are the four corner values of `margins`; empty if they
/// leave less than a unit.
QRectF Between(const QSize& picture, const QRect& margins);

/// The pixels of the picture that a stamp covers: a pixel of the stamp is a unit, or less if `between` does not
/// hold it so; at least one pixel each way. Of several flags one way left, then centre, and top, then centre, win.
QRect StampRect(const QSize& picture, const QRectF& between, const QSize& stamp, Qt::Alignment alignment);

/// Where the copies of a shape lie: `between` is divided into equal cells, and each holds one copy, turned
/// counter-clockwise by `degrees`, in its middle. Each entry maps the shape to the picture.
/// \param outline polygon around the shape, which decides how large its turned form is
/// \param scale of the shape, made smaller if a cell does not hold it so
/// \param across, down how many, at least 1
QVector<QTransform> Copies(const QRectF& between, const QPolygonF& outline, double scale, int degrees, int across,
                           int down);

} // namespace HBOverlayLayout

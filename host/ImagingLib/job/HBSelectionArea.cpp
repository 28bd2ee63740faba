// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionArea.h"

#include <algorithm>

namespace
{

/// A rectangle with inclusive corners that translating and cutting cannot overflow.
struct WideRect
{
    qint64 left, top, right, bottom;

    WideRect(const QRect& rect, const QPoint& offset)
        : left(qint64(rect.left()) + offset.x())
        , top(qint64(rect.top()) + offset.y())
        , right(qint64(rect.right()) + offset.x())
        , bottom(qint64(rect.bottom()) + offset.y())
    {
    }
    bool IsValid() const { return left <= right && top <= bottom; }
    /// Tested before it cuts: QRect would turn an inverted rectangle round.
    QRect CutTo(const QRect& frame) const
    {
        const qint64 l = std::max<qint64>(left, frame.left());
        const qint64 t = std::max<qint64>(top, frame.top());
        const qint64 r = std::min<qint64>(right, frame.right());
        const qint64 b = std::min<qint64>(bottom, frame.bottom());
        if (!IsValid() || !frame.isValid() || l > r || t > b)
            return {};
        return {QPoint(int(l), int(t)), QPoint(int(r), int(b))};
    }
};

QRect Extent(const HBImage<>& image)
{
    return image.IsEmpty() ? QRect() : QRect(0, 0, image.Width(), image.Height());
}

} // namespace

HBSelectionArea::HBSelectionArea(const HBImage<>& image, const HBImage<>& selection, const QPoint& offset,
                                 const QRect& bounds)
    : effective(WideRect(bounds, offset).CutTo(Extent(image)))
{
    if (!effective.isValid())
        return;
    constexpr int TileSide = HBImage<>::TileSide;
    // Inside the image, so every corner is 0 or more and plain division rounds down.
    tiles = QRect(QPoint(effective.left() / TileSide, effective.top() / TileSide),
                  QPoint(effective.right() / TileSide, effective.bottom() / TileSide));
    blended = WideRect(Extent(selection), offset).CutTo(effective);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionGesture.h"

#include <QCoreApplication>
#include <QLineF>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace
{

using Tool = HBSelectionToolKind;
using Kind = HBShape::Kind;

constexpr double CloseReach = 6;         // pixels of the screen from the first corner of a lasso
const QRectF Farthest(-20, -20, 41, 41); // shares; recipes take shapes up to 100 photos away

struct GestureText
{
    Q_DECLARE_TR_FUNCTIONS(HBSelectionGesture)
};

QSize SizeOf(const HBImage<>& photo)
{
    return {photo.Width(), photo.Height()};
}

QPointF Shares(const QPointF& point, const HBImage<>& photo)
{
    return {point.x() / photo.Width(), point.y() / photo.Height()};
}

QString SizeText(const QSize& size)
{
    return GestureText::tr("%1 × %2 px").arg(size.width()).arg(size.height());
}

/// Draws a shape, which is combined with those that are there.
class Drawing : public HBSelectionGesture
{
public:
    explicit Drawing(const HBSelectionStart& start) : m_Start(start) {}

    HBSelectionShape Selection() const final
    {
        using Mode = HBSelectionMode;
        std::optional<HBShape> shape = Shape();
        if (!shape)
            return m_Start.before;
        shape->SetPixelFeather(m_Start.feather, SizeOf(m_Start.photo));
        // Without a selection all of the photo is worked on.
        if (m_Start.before.IsNone() || m_Start.mode == Mode::New) {
            shape->inverted = m_Start.before.IsNone() && m_Start.mode == Mode::Subtract;
            return {{*shape}};
        }
        shape->combination = m_Start.mode == Mode::Add        ? HBShape::Combination::Add
                             : m_Start.mode == Mode::Subtract ? HBShape::Combination::Subtract
                                                              : HBShape::Combination::Intersect;
        HBSelectionShape all = m_Start.before;
        all.shapes.append(*shape);
        return all;
    }

protected:
    /// Without combination and feather.
    virtual std::optional<HBShape> Shape() const = 0;

    const HBSelectionStart m_Start;
};

/// A rectangle or an ellipse between two corners.
class Box : public Drawing
{
public:
    Box(Kind kind, const HBSelectionStart& start, const QPointF& at) : Drawing(start), m_Kind(kind), m_From(at) {}

    void MoveTo(const QPointF& at, bool, bool regular) override
    {
        QPointF span = at - m_From;
        if (regular) {
            const double side = std::max(std::abs(span.x()), std::abs(span.y()));
            span = QPointF(std::copysign(side, span.x()), std::copysign(side, span.y()));
        }
        const QRectF area = QRectF(m_From, m_From + span).normalized();
        const QRect pixels(QPoint(qRound(area.left()), qRound(area.top())),
                           QPoint(qRound(area.right()) - 1, qRound(area.bottom()) - 1));
        const QRect frame(QPoint(0, 0), SizeOf(m_Start.photo));
        // Tested before it is cut: QRect turns an empty rectangle round.
        m_Rect = pixels.isEmpty() || !pixels.intersects(frame) ? QRect() : pixels;
        // A rectangle ends at the photo's edge; an ellipse cut off there would be another ellipse.
        if (m_Kind == Kind::Rectangle && !m_Rect.isEmpty())
            m_Rect &= frame;
    }
    bool Set(const QPointF&, bool) override { return true; }
    QString Measure() const override { return m_Rect.isEmpty() ? QString() : SizeText(m_Rect.size()); }

protected:
    std::optional<HBShape> Shape() const override
    {
        if (m_Rect.isEmpty())
            return std::nullopt;
        return HBShape::OfPixels(m_Kind, m_Rect, 0, SizeOf(m_Start.photo));
    }

private:
    const Kind m_Kind;
    const QPointF m_From;
    QRect m_Rect;
};

/// From where it is full to where there is nothing.
class Gradient : public Drawing
{
public:
    Gradient(const HBSelectionStart& start, const QPointF& at) : Drawing(start), m_Way(at, at) {}

    void MoveTo(const QPointF& at, bool, bool regular) override
    {
        m_Way.setP2(at);
        if (regular)
            m_Way.setAngle(std::round(m_Way.angle() / 45) * 45);
    }
    bool Set(const QPointF&, bool) override { return true; }
    QPolygonF Line() const override { return QPolygonF(QVector<QPointF>{m_Way.p1(), m_Way.p2()}); }
    QString Measure() const override { return GestureText::tr("%1 px").arg(qRound(m_Way.length())); }

protected:
    std::optional<HBShape> Shape() const override
    {
        if (m_Way.length() < 1)
            return std::nullopt;
        HBShape shape;
        shape.kind = Kind::Gradient;
        shape.points = {Shares(m_Way.p1(), m_Start.photo), Shares(m_Way.p2(), m_Start.photo)};
        return shape;
    }

private:
    QLineF m_Way;
};

/// Free hand while the button is held, straight between clicks.
class Lasso : public Drawing
{
public:
    Lasso(const HBSelectionStart& start, const QPointF& at)
        : Drawing(start)
        , m_Points(QVector<QPointF>{at})
        , m_At(at)
    {
        if (start.mode != HBSelectionMode::New)
            m_Most -= HBPointCount(start.before);
    }

    bool TakesClicks() const override { return true; }
    void MoveTo(const QPointF& at, bool held, bool) override
    {
        m_At = at;
        if (held)
            Append(at);
    }
    bool Set(const QPointF& at, bool last) override
    {
        m_At = at;
        const bool closes =
            m_Points.size() > 2 && QLineF(at, m_Points.first()).length() <= CloseReach * m_Start.pixel;
        if (closes)
            m_At = m_Points.last();
        else
            Append(at);
        const bool isOver = closes || (last && m_Points.size() > 2);
        if (isOver)
            m_Points = HBSimplified(m_Points, m_Start.pixel / 2, m_Most);
        return isOver;
    }
    void TakeBack() override
    {
        if (m_Points.size() > 1)
            m_Points.removeLast();
    }
    QPolygonF Line() const override
    {
        QPolygonF line = m_Points;
        line.append(m_At);
        return line;
    }
    QString Measure() const override
    {
        const QRect rect = Line().boundingRect().toRect();
        return rect.isEmpty() ? QString() : SizeText(rect.size());
    }

protected:
    std::optional<HBShape> Shape() const override
    {
        QPolygonF points = m_Points;
        if (QLineF(m_At, points.last()).length() >= m_Start.pixel / 2)
            points.append(m_At);
        const QRectF seen(QPointF(0, 0), SizeOf(m_Start.photo));
        if (points.size() < 3 || m_Most < 3 || !points.boundingRect().intersects(seen))
            return std::nullopt;
        HBShape shape;
        shape.kind = Kind::Polygon;
        for (const QPointF& point : points)
            shape.points.append(Shares(point, m_Start.photo));
        return shape;
    }

private:
    void Append(const QPointF& at)
    {
        if (QLineF(at, m_Points.last()).length() < m_Start.pixel / 2)
            return;
        m_Points.append(at);
        // A hand may go on for as long as it likes, and there is room for one that is not set yet.
        if (m_Points.size() >= m_Most)
            m_Points = HBSimplified(m_Points, m_Start.pixel / 2, m_Most * 3 / 4);
    }

    QPolygonF m_Points;
    QPointF m_At;
    int m_Most = HBSelectionShape::MaximumPoints;
};

/// What is like the colour there.
class Likeness : public Drawing
{
public:
    Likeness(const HBSelectionStart& start, const QPointF& at) : Drawing(start) { Pick(at); }

    bool TakesClicks() const override { return true; }
    void MoveTo(const QPointF& at, bool, bool) override { Pick(at); }
    bool Set(const QPointF&, bool) override { return true; }
    QString Measure() const override
    {
        return GestureText::tr("Color %1, %2, %3")
            .arg(qRed(m_Shape.color))
            .arg(qGreen(m_Shape.color))
            .arg(qBlue(m_Shape.color));
    }

protected:
    std::optional<HBShape> Shape() const override { return m_Shape; }

private:
    void Pick(const QPointF& at)
    {
        const QPoint pixel(int(std::floor(at.x())), int(std::floor(at.y())));
        const HBRGBA32i color = m_Start.photo.PixelAt(std::clamp(pixel.x(), 0, m_Start.photo.Width() - 1),
                                                      std::clamp(pixel.y(), 0, m_Start.photo.Height() - 1));
        m_Shape.kind = Kind::Color;
        m_Shape.color = qRgb(color.red, color.green, color.blue);
        m_Shape.tolerance = m_Start.tolerance;
    }

    HBShape m_Shape;
};

bool IsSomewhere(const HBShape& shape)
{
    return shape.kind != Kind::Color;
}

/// Moves all shapes that lie somewhere; a part of them stays on the photo.
class Move : public HBSelectionGesture
{
public:
    Move(const HBSelectionStart& start, const QPointF& at) : m_Start(start), m_From(at) {}

    void MoveTo(const QPointF& at, bool, bool regular) override
    {
        QPointF by = at - m_From;
        if (regular)
            (std::abs(by.x()) < std::abs(by.y()) ? by.rx() : by.ry()) = 0;
        m_By = QPoint(qRound(by.x()), qRound(by.y()));
    }
    bool Set(const QPointF&, bool) override { return true; }
    HBSelectionShape Selection() const override
    {
        const QPointF by = Shares(m_By, m_Start.photo);
        HBSelectionShape moved = m_Start.before;
        bool isSeen = false;
        for (HBShape& shape : moved.shapes) {
            if (!IsSomewhere(shape))
                continue;
            shape.rect.translate(by);
            for (QPointF& point : shape.points)
                point += by;
            const QRectF place = shape.points.isEmpty() ? shape.rect : QPolygonF(shape.points).boundingRect();
            const bool isEverywhere = shape.kind == Kind::Gradient || shape.inverted;
            // A straight gradient has no width, and would meet nothing.
            isSeen |= (isEverywhere ? Farthest : QRectF(0, 0, 1, 1))
                          .intersects(place.adjusted(-1e-9, -1e-9, 1e-9, 1e-9));
        }
        return isSeen ? moved : m_Start.before;
    }
    QString Measure() const override { return GestureText::tr("Moved by %1, %2 px").arg(m_By.x()).arg(m_By.y()); }

private:
    const HBSelectionStart m_Start;
    const QPointF m_From;
    QPoint m_By;
};

} // namespace

std::unique_ptr<HBSelectionGesture> HBSelectionGesture::Begin(Tool tool, const HBSelectionStart& start,
                                                              const QPointF& at)
{
    if (start.photo.IsEmpty())
        return nullptr;
    switch (tool) {
    case Tool::None:
        break;
    case Tool::Rectangle:
        return std::make_unique<Box>(Kind::Rectangle, start, at);
    case Tool::Ellipse:
        return std::make_unique<Box>(Kind::Ellipse, start, at);
    case Tool::Lasso:
        return std::make_unique<Lasso>(start, at);
    case Tool::Gradient:
        return std::make_unique<Gradient>(start, at);
    case Tool::Color:
        return std::make_unique<Likeness>(start, at);
    case Tool::Move:
        if (std::any_of(start.before.shapes.begin(), start.before.shapes.end(), IsSomewhere))
            return std::make_unique<Move>(start, at);
        break;
    }
    return nullptr;
}

int HBPointCount(const HBSelectionShape& selection)
{
    int count = 0;
    for (const HBShape& shape : selection.shapes)
        count += int(shape.points.size());
    return count;
}

/// Keeps, again and again, the point of a stretch that is furthest from the line between its ends.
QPolygonF HBSimplified(const QPolygonF& points, double tolerance, int most)
{
    struct Stretch
    {
        int first, last, middle;
        double distance;
        bool operator<(const Stretch& other) const { return distance < other.distance; }
    };
    const auto stretch = [&](int first, int last) {
        const QPointF along = points.at(last) - points.at(first);
        const double square = QPointF::dotProduct(along, along);
        Stretch found{first, last, first, -1};
        for (int i = first + 1; i < last; ++i) {
            const QPointF from = points.at(i) - points.at(first);
            const double t = square > 0 ? std::clamp(QPointF::dotProduct(from, along) / square, 0.0, 1.0) : 0.0;
            const QPointF off = from - along * t;
            const double distance = std::hypot(off.x(), off.y());
            if (distance > found.distance)
                found = {first, last, i, distance};
        }
        return found;
    };
    const int last = int(points.size()) - 1;
    std::vector<bool> kept(std::size_t(last) + 1);
    kept.front() = kept.back() = true;
    // The furthest of all next, so that the bound leaves out what is seen least.
    std::vector<Stretch> open{stretch(0, last)};
    for (int count = 2; count < most && !open.empty() && open.front().distance > tolerance; ++count) {
        std::pop_heap(open.begin(), open.end());
        const Stretch widest = open.back();
        open.pop_back();
        kept[std::size_t(widest.middle)] = true;
        for (const Stretch& part : {stretch(widest.first, widest.middle), stretch(widest.middle, widest.last)}) {
            open.push_back(part);
            std::push_heap(open.begin(), open.end());
        }
    }
    QPolygonF simple;
    for (int i = 0; i <= last; ++i) {
        if (kept[std::size_t(i)])
            simple.append(points.at(i));
    }
    return simple;
}

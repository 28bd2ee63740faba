// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSelectionShape.h"

#include <QCoreApplication>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace
{

constexpr const char* KindNames[] = {"rectangle", "ellipse", "polygon", "gradient", "color"};
constexpr const char* CombinationNames[] = {"add", "subtract", "intersect"};
// Shapes may reach beyond the photo, but not so far that pixels could not be counted.
constexpr double MaximumShare = 100;

struct ShapeText
{
    Q_DECLARE_TR_FUNCTIONS(HBSelectionShape)
};

/// Takes the members of a shape out of its JSON, and keeps the first thing that is wrong.
class Reader
{
public:
    Reader(const QJsonObject& object, QString* reason) : m_Left(object), m_pReason(reason) {}

    bool Fail(const QString& reason)
    {
        if (m_Good)
            *m_pReason = reason;
        return m_Good = false;
    }
    /// \param must be there
    QJsonValue Take(const char* key, bool must)
    {
        const QJsonValue value = m_Left.take(QLatin1String(key));
        if (value.isUndefined() && must)
            Fail(ShapeText::tr("its selection has a shape without \"%1\"").arg(key));
        return value;
    }
    bool Wrong(const char* key) { return Fail(ShapeText::tr("its selection has a wrong \"%1\"").arg(key)); }

    template <std::size_t Count>
    int Name(const char* key, const char* const (&names)[Count], bool must)
    {
        const QJsonValue value = Take(key, must);
        for (std::size_t i = 0; i < Count; ++i) {
            if (value.toString() == QLatin1String(names[i]))
                return int(i);
        }
        if (!value.isUndefined())
            Wrong(key);
        return 0;
    }
    double Number(const char* key, bool must, double minimum, double maximum)
    {
        const QJsonValue value = Take(key, must);
        if (!value.isUndefined() &&
            !(value.isDouble() && value.toDouble() >= minimum && value.toDouble() <= maximum))
            Wrong(key);
        return value.toDouble();
    }
    bool Truth(const char* key)
    {
        const QJsonValue value = Take(key, false);
        if (!value.isUndefined() && !value.isBool())
            Wrong(key);
        return value.toBool();
    }
    /// So many shares.
    QVector<double> Shares(const char* key, int count) { return SharesOf(key, Take(key, true), count); }
    QPointF Point(const char* key)
    {
        const QVector<double> shares = Shares(key, 2);
        return {shares[0], shares[1]};
    }
    QVector<QPointF> Points(const char* key)
    {
        const QJsonArray array = Take(key, true).toArray();
        if (array.size() < 3)
            Wrong(key);
        if (array.size() > HBSelectionShape::MaximumPoints)
            Fail(ShapeText::tr("its selection has too many points"));
        QVector<QPointF> points;
        for (int i = 0; i < array.size() && m_Good; ++i) {
            const QVector<double> shares = SharesOf(key, array.at(i), 2);
            points.append({shares[0], shares[1]});
        }
        return points;
    }
    QRgb Color(const char* key)
    {
        const QString text = Take(key, true).toString();
        bool good = false;
        const uint color = text.mid(1).toUInt(&good, 16);
        if (!good || text.size() != 7 || text.at(0) != '#' || text.at(1) == '+')
            Wrong(key);
        return 0xff000000u | color;
    }
    bool End()
    {
        // Whatever it means would be left out in silence.
        if (!m_Left.isEmpty())
            Fail(ShapeText::tr("its selection has an unknown \"%1\"").arg(m_Left.keys().first().left(40)));
        return m_Good;
    }

private:
    QVector<double> SharesOf(const char* key, const QJsonValue& value, int count)
    {
        const QJsonArray array = value.toArray();
        QVector<double> shares;
        for (const QJsonValue& number : array) {
            if (shares.size() < count && number.isDouble() && std::abs(number.toDouble()) <= MaximumShare)
                shares.append(number.toDouble());
        }
        if (shares.size() != count || array.size() != count)
            Wrong(key);
        shares.resize(count);
        return shares;
    }

    QJsonObject m_Left;
    QString* m_pReason;
    bool m_Good = true;
};

bool ReadShape(const QJsonValue& value, HBShape* shape, QString* reason)
{
    using Kind = HBShape::Kind;
    Reader reader(value.toObject(), reason);
    shape->kind = Kind(reader.Name("kind", KindNames, true));
    shape->combination = HBShape::Combination(reader.Name("combine", CombinationNames, false));
    shape->inverted = reader.Truth("inverted");
    if (shape->HasFeather())
        shape->feather = reader.Number("feather", false, 0, 1);
    switch (shape->kind) {
    case Kind::Rectangle:
    case Kind::Ellipse: {
        const QVector<double> rect = reader.Shares("rect", 4);
        shape->rect = QRectF(rect[0], rect[1], rect[2], rect[3]);
        if (rect[2] <= 0 || rect[3] <= 0)
            reader.Wrong("rect");
        break;
    }
    case Kind::Polygon:
        shape->points = reader.Points("points");
        break;
    case Kind::Gradient:
        shape->points = {reader.Point("from"), reader.Point("to")};
        break;
    case Kind::Color:
        shape->color = reader.Color("color");
        shape->tolerance = qRound(reader.Number("tolerance", true, 0, 255));
        break;
    }
    return reader.End();
}

QJsonArray JsonOf(const QPointF& point)
{
    return {point.x(), point.y()};
}

QJsonObject JsonOf(const HBShape& shape)
{
    using Kind = HBShape::Kind;
    QJsonObject object{{"kind", KindNames[int(shape.kind)]}};
    if (shape.combination != HBShape::Combination::Add)
        object.insert("combine", CombinationNames[int(shape.combination)]);
    if (shape.inverted)
        object.insert("inverted", true);
    if (shape.HasFeather() && shape.feather > 0)
        object.insert("feather", shape.feather);
    switch (shape.kind) {
    case Kind::Rectangle:
    case Kind::Ellipse:
        object.insert("rect", QJsonArray{shape.rect.x(), shape.rect.y(), shape.rect.width(), shape.rect.height()});
        break;
    case Kind::Polygon: {
        QJsonArray points;
        for (const QPointF& point : shape.points)
            points.append(JsonOf(point));
        object.insert("points", points);
        break;
    }
    case Kind::Gradient:
        object.insert("from", JsonOf(shape.points.value(0)));
        object.insert("to", JsonOf(shape.points.value(1)));
        break;
    case Kind::Color:
        object.insert("color", QString("#%1").arg(shape.color & 0xffffff, 6, 16, QChar('0')));
        object.insert("tolerance", shape.tolerance);
        break;
    }
    return object;
}

} // namespace

// ---- One shape ----

HBShape HBShape::OfPixels(Kind kind, const QRect& rect, int feather, const QSize& photo)
{
    HBShape shape;
    shape.kind = kind;
    if (photo.isEmpty())
        return shape;
    const double width = photo.width();
    const double height = photo.height();
    shape.rect = QRectF(rect.left() / width, rect.top() / height, rect.width() / width, rect.height() / height);
    shape.SetPixelFeather(feather, photo);
    return shape;
}

QRect HBShape::PixelRect(const QSize& photo) const
{
    const double width = photo.width();
    const double height = photo.height();
    // The edges, not the extent: neighbours stay neighbours on a photo of any size.
    const QPoint first(int(std::lround(rect.left() * width)), int(std::lround(rect.top() * height)));
    const QPoint end(int(std::lround(rect.right() * width)), int(std::lround(rect.bottom() * height)));
    return {first, end - QPoint(1, 1)};
}

int HBShape::PixelFeather(const QSize& photo) const
{
    return HasFeather() ? int(std::lround(feather * std::min(photo.width(), photo.height()))) : 0;
}

void HBShape::SetPixelFeather(int pixels, const QSize& photo)
{
    if (HasFeather() && !photo.isEmpty())
        feather = std::clamp(double(pixels) / std::min(photo.width(), photo.height()), 0.0, 1.0);
}

bool HBShape::operator==(const HBShape& other) const
{
    return kind == other.kind && combination == other.combination && inverted == other.inverted &&
           rect == other.rect && points == other.points && color == other.color && tolerance == other.tolerance &&
           feather == other.feather;
}

// ---- All of them ----

bool HBSelectionShape::LooksAtPhoto() const
{
    return std::any_of(shapes.begin(), shapes.end(),
                       [](const HBShape& shape) { return shape.kind == HBShape::Kind::Color; });
}

/// By De Morgan's laws, so that shapes can be combined with what was inverted before.
HBSelectionShape HBSelectionShape::Inverted() const
{
    using Combination = HBShape::Combination;
    HBSelectionShape all = *this;
    for (int i = 0; i < all.shapes.size(); ++i) {
        HBShape& shape = all.shapes[i];
        if (i > 0 && shape.combination == Combination::Subtract) {
            shape.combination = Combination::Add;
            continue;
        }
        shape.inverted = !shape.inverted;
        if (i > 0)
            shape.combination = shape.combination == Combination::Add ? Combination::Intersect : Combination::Add;
    }
    return all;
}

void HBSelectionShape::SetPixelFeather(int feather, const QSize& photo)
{
    for (HBShape& shape : shapes)
        shape.SetPixelFeather(feather, photo);
}

QJsonArray HBSelectionShape::ToJson() const
{
    QJsonArray array;
    for (const HBShape& shape : shapes)
        array.append(JsonOf(shape));
    return array;
}

bool HBSelectionShape::FromJson(const QJsonValue& value, HBSelectionShape* selection, QString* reason)
{
    auto fail = [&](const QString& text) {
        *reason = text;
        return false;
    };
    const QJsonArray array = value.toArray();
    if (array.isEmpty())
        return fail(ShapeText::tr("its selection is not a list of shapes"));
    if (array.size() > MaximumShapes)
        return fail(ShapeText::tr("its selection has too many shapes"));
    HBSelectionShape read;
    int points = 0;
    for (const QJsonValue& entry : array) {
        HBShape shape;
        if (!ReadShape(entry, &shape, reason))
            return false;
        if (read.IsNone() && shape.combination != HBShape::Combination::Add)
            return fail(ShapeText::tr("its selection begins with a shape that is to be combined with others"));
        if ((points += shape.points.size()) > MaximumPoints)
            return fail(ShapeText::tr("its selection has too many points"));
        read.shapes.append(shape);
    }
    *selection = read;
    return true;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeText.h"

#include "HBReplayWords.h"

#include <QColor>
#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace
{

QString UnitWord(HBUnit unit)
{
    switch (unit) {
    case HBUnit::Levels:
        return ' ' + HBReplayWords::tr("levels");
    case HBUnit::Copies:
        return ' ' + HBReplayWords::tr("copies");
    case HBUnit::Thousandths:
        return ' ' + HBReplayWords::tr("thousandths of the shorter side");
    case HBUnit::Percent:
        return " %";
    case HBUnit::Degrees:
        return HBUnitSymbol(unit);
    default:
        return HBUnitSymbol(unit).isEmpty() ? QString() : ' ' + HBUnitSymbol(unit);
    }
}

/// The name of a choice; null: none has that number.
QString NameOf(const HBFieldInfo& field, int number)
{
    return number >= 0 && number < int(field.values.size()) ? field.values[std::size_t(number)] : QString();
}

QJsonValue JsonOf(const HBFieldInfo& field, const QVariant& value)
{
    if (field.type == HBFieldInfo::Choice) {
        const QString name = NameOf(field, value.toInt());
        return name.isNull() ? QJsonValue(value.toInt()) : QJsonValue(name);
    }
    if (field.type == HBFieldInfo::Number) { // as its form shows it; NaN has no place in JSON
        const double number = value.toDouble();
        return std::isfinite(number) ? QJsonValue(HBRounded(number, qMax(field.range.decimals, 4))) : QJsonValue();
    }
    switch (value.userType()) {
    case QMetaType::QColor:
        return value.value<QColor>().name(QColor::HexArgb);
    case QMetaType::QFont:
        return value.value<QFont>().toString();
    default:
        return QJsonValue::fromVariant(value);
    }
}

QString NumberText(const HBFieldInfo& field, double value)
{
    const auto shown = [&](double number) {
        return QString::number(number, 'g', 10) + UnitWord(field.range.unit);
    };
    const double counts = HBClampTo(field.range, value, value);
    return counts == value || std::isnan(value)
               ? shown(value)
               : HBReplayWords::tr("%1 (counts as %2)").arg(shown(value), shown(counts));
}

QString ValueText(const HBFieldInfo& field, const QVariant& value)
{
    if (field.type == HBFieldInfo::Number)
        return NumberText(field, value.userType() == QMetaType::Float ? HBRounded(value.toDouble(), 6)
                                                                      : value.toDouble());
    const QJsonValue json = JsonOf(field, value);
    if (field.type == HBFieldInfo::Choice)
        return json.isString() ? HBWordsOf(json.toString()) : QString::number(value.toInt());
    if (json.isBool())
        return json.toBool() ? HBReplayWords::tr("yes") : HBReplayWords::tr("no");
    if (value.userType() == QMetaType::QString)
        return '"' + json.toString() + '"';
    if (value.userType() == QMetaType::QFont)
        return value.value<QFont>().family();
    if (json.isString())
        return json.toString();
    const QJsonDocument document =
        json.isObject() ? QJsonDocument(json.toObject()) : QJsonDocument(json.toArray());
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

QString ShapeText(const HBShape& shape)
{
    using Kind = HBShape::Kind;
    const auto place = [](const QPointF& point) {
        const auto percent = [](double share) { return QString::number(share * 100, 'g', 4); };
        return QString("%1 %, %2 %").arg(percent(point.x()), percent(point.y()));
    };
    QString text;
    switch (shape.kind) {
    case Kind::Rectangle:
        text = HBReplayWords::tr("rectangle from %1 to %2")
                   .arg(place(shape.rect.topLeft()), place(shape.rect.bottomRight()));
        break;
    case Kind::Ellipse:
        text = HBReplayWords::tr("ellipse from %1 to %2")
                   .arg(place(shape.rect.topLeft()), place(shape.rect.bottomRight()));
        break;
    case Kind::Polygon:
        text = HBReplayWords::tr("polygon of %1 corners").arg(shape.points.size());
        break;
    case Kind::Gradient:
        text = HBReplayWords::tr("gradient from %1 to %2")
                   .arg(place(shape.points.value(0)), place(shape.points.value(1)));
        break;
    case Kind::Color:
        text = HBReplayWords::tr("color %1, tolerance %2").arg(QColor(shape.color).name()).arg(shape.tolerance);
        break;
    }
    if (shape.inverted)
        text = HBReplayWords::tr("all but the %1").arg(text);
    if (shape.feather > 0)
        text += HBReplayWords::tr(", feather %1 % of the shorter side").arg(shape.feather * 100, 0, 'g', 4);
    if (shape.combination == HBShape::Combination::Subtract)
        text = HBReplayWords::tr("without the %1").arg(text);
    else if (shape.combination == HBShape::Combination::Intersect)
        text = HBReplayWords::tr("only in the %1").arg(text);
    return text;
}

QStringList MannerText(const HBRecipeStep& step)
{
    QStringList lines;
    if (!step.on)
        lines.append(HBReplayWords::tr("switched off"));
    if (step.amount != HBRecipeStep::MaximumAmount)
        lines.append(HBReplayWords::tr("amount: %1 %").arg(step.amount));
    QStringList shapes;
    for (const HBShape& shape : step.selection.shapes)
        shapes.append(ShapeText(shape));
    if (!shapes.isEmpty())
        lines.append(HBReplayWords::tr("selection: %1").arg(shapes.join("; ")));
    return lines;
}

HBStepText Describe(const HBRecipeStep& step)
{
    HBStepText text{HBFindAdjustment(step.panel), {}, {}, MannerText(step), step.Manner()};
    std::any record;
    QString reason;
    if (!text.adjustment || !text.adjustment->restore(step.values, &record, &reason))
        qFatal("the step was read before");
    const void* data = text.adjustment->data(record);
    for (const HBFieldInfo& field : text.adjustment->fields) {
        const QVariant value = field.get(data);
        text.json.insert(field.key, JsonOf(field, value));
        text.values.append(HBWordsOf(field.key) + ": " + ValueText(field, value));
    }
    return text;
}

QString Head(const HBStepText& step, int index)
{
    return QString("%1. %2").arg(index + 1).arg(step.adjustment->Title());
}

/// How many steps from each pair on go to the same panels, in order.
std::vector<std::vector<int>> CommonTails(const QVector<HBStepText>& a, const QVector<HBStepText>& b)
{
    std::vector<std::vector<int>> tails(std::size_t(a.size()) + 1, std::vector<int>(std::size_t(b.size()) + 1, 0));
    for (int i = a.size() - 1; i >= 0; --i) {
        for (int j = b.size() - 1; j >= 0; --j) {
            auto& row = tails[std::size_t(i)];
            const auto& next = tails[std::size_t(i) + 1];
            row[std::size_t(j)] = a[i].adjustment == b[j].adjustment
                                      ? next[std::size_t(j) + 1] + 1
                                      : std::max(next[std::size_t(j)], row[std::size_t(j) + 1]);
        }
    }
    return tails;
}

void AppendStep(const char* mark, const HBStepText& step, int index, QStringList* lines)
{
    lines->append(mark + Head(step, index));
    for (const QString& value : step.values + step.manner)
        lines->append(QString(mark) + "   " + value);
}

void AppendChanges(const HBStepText& a, const HBStepText& b, int index, QStringList* lines)
{
    if (a.json == b.json && a.mannerJson == b.mannerJson)
        return;
    lines->append(' ' + Head(a, index));
    for (int i = 0; i < a.values.size(); ++i) {
        const QString& key = a.adjustment->fields[std::size_t(i)].key;
        if (a.json.value(key) == b.json.value(key))
            continue;
        lines->append("-   " + a.values[i]);
        lines->append("+   " + b.values[i]);
    }
    if (a.mannerJson == b.mannerJson)
        return;
    for (const QString& line : a.manner)
        lines->append("-   " + line);
    for (const QString& line : b.manner)
        lines->append("+   " + line);
}

// ---- Schema ----

QJsonObject FieldSchema(const HBFieldInfo& field, const QVariant& example)
{
    const QString described = HBWordsOf(field.key);
    if (field.type == HBFieldInfo::Number) {
        const bool whole = example.type() == QVariant::Int || example.type() == QVariant::UInt;
        return {{"type", whole ? "integer" : "number"},
                {"minimum", field.range.minimum},
                {"maximum", field.range.maximum},
                {"default", JsonOf(field, example)},
                {"description", described + UnitWord(field.range.unit)}};
    }
    if (field.type == HBFieldInfo::Choice) {
        QJsonArray names;
        for (const QString& name : field.values) {
            if (!name.isNull())
                names.append(name);
        }
        return {{"enum", names}, {"default", JsonOf(field, example)}, {"description", described}};
    }
    const QJsonValue json = JsonOf(field, example);
    const char* type = json.isBool()     ? "boolean"
                       : json.isObject() ? "object"
                       : json.isArray()  ? "array"
                       : json.isDouble() ? "number"
                                         : "string";
    return {{"type", type}, {"description", described}};
}

QJsonObject ValuesSchema(const HBAdjustment& adjustment)
{
    QJsonObject properties;
    QJsonArray keys;
    for (const HBFieldInfo& field : adjustment.fields) {
        properties.insert(field.key, FieldSchema(field, field.get(adjustment.data(adjustment.defaults()))));
        keys.append(field.key);
    }
    return {{"title", adjustment.Title()}, {"type", "object"}, {"properties", properties}, {"required", keys}};
}

/// A list of so many, at least and at most.
QJsonObject ListSchema(const QJsonObject& items, int least, int most)
{
    return {{"type", "array"}, {"minItems", least}, {"maxItems", most}, {"items", items}};
}

QJsonObject ShapeSchema(const char* kind, QJsonObject properties, bool hasFeather)
{
    QJsonArray required{"kind"};
    for (const QString& key : properties.keys())
        required.append(key);
    properties.insert("kind", QJsonObject{{"const", kind}});
    properties.insert("combine",
                      QJsonObject{{"enum", QJsonArray{"add", "subtract", "intersect"}}, {"default", "add"}});
    properties.insert("inverted", QJsonObject{{"type", "boolean"}, {"default", false}});
    if (hasFeather) {
        properties.insert("feather", QJsonObject{{"type", "number"},
                                                 {"minimum", 0},
                                                 {"maximum", 1},
                                                 {"default", 0},
                                                 {"description", "share of the photo's shorter side"}});
    }
    return {
        {"type", "object"}, {"properties", properties}, {"required", required}, {"additionalProperties", false}};
}

QJsonObject SelectionSchema()
{
    const QJsonObject share{{"type", "number"}, {"minimum", -100}, {"maximum", 100}};
    const QJsonObject point = ListSchema(share, 2, 2);
    const QJsonObject rect{{"rect", ListSchema(share, 4, 4)}};
    const QJsonObject color{{"color", QJsonObject{{"type", "string"}, {"pattern", "^#[0-9A-Fa-f]{6}$"}}},
                            {"tolerance", QJsonObject{{"type", "integer"}, {"minimum", 0}, {"maximum", 255}}}};
    const QJsonArray shapes{
        ShapeSchema("rectangle", rect, true), ShapeSchema("ellipse", rect, true),
        ShapeSchema("polygon", {{"points", ListSchema(point, 3, HBSelectionShape::MaximumPoints)}}, true),
        ShapeSchema("gradient", {{"from", point}, {"to", point}}, false), ShapeSchema("color", color, false)};
    QJsonObject schema = ListSchema({{"oneOf", shapes}}, 1, HBSelectionShape::MaximumShapes);
    schema.insert("description", "shares of the photo's width and height");
    return schema;
}

QJsonObject StepSchema(const HBAdjustment& adjustment)
{
    const QString reference = QString("#/$defs/") + adjustment.className;
    QJsonObject properties{
        {"panel", QJsonObject{{"const", adjustment.className}}},
        {"on", QJsonObject{{"type", "boolean"}, {"default", true}}},
        {"amount", QJsonObject{{"type", "integer"}, {"minimum", 0}, {"maximum", 100}, {"default", 100}}},
        {"selection", adjustment.IgnoresSelection() ? QJsonValue(false) // none is good
                                                    : QJsonObject{{"$ref", "#/$defs/selection"}}}};
    if (adjustment.tag) {
        properties.insert("record", QJsonObject{{"type", "string"},
                                                {"contentEncoding", "base64"},
                                                {"pattern", "^[A-Za-z0-9+/]+={0,2}$"},
                                                {"$comment", "holds the values of " + reference}});
    } else {
        properties.insert("values", QJsonObject{{"$ref", reference}});
    }
    return {{"title", adjustment.Title()},
            {"type", "object"},
            {"properties", properties},
            {"required", QJsonArray{"panel", adjustment.tag ? "record" : "values"}}};
}

} // namespace

QString HBWordsOf(const QString& key)
{
    QString words;
    for (const QChar character : key) {
        if (character == '.')
            words += ' ';
        else if (character.isUpper())
            words += QString(' ') + character.toLower();
        else
            words += character;
    }
    return words;
}

QVector<HBStepText> HBDescribeRecipe(const HBRecipe& recipe)
{
    QVector<HBStepText> texts;
    for (const HBRecipeStep& step : recipe.steps)
        texts.append(Describe(step));
    return texts;
}

QStringList HBDiffRecipes(const HBRecipe& first, const HBRecipe& second)
{
    const QVector<HBStepText> a = HBDescribeRecipe(first);
    const QVector<HBStepText> b = HBDescribeRecipe(second);
    const std::vector<std::vector<int>> tails = CommonTails(a, b);
    QStringList lines;
    int i = 0;
    int j = 0;
    while (i < a.size() || j < b.size()) {
        if (i < a.size() && j < b.size() && a[i].adjustment == b[j].adjustment) {
            AppendChanges(a[i], b[j], i, &lines);
            ++i;
            ++j;
        } else if (j == b.size() || (i < a.size() && tails[std::size_t(i) + 1][std::size_t(j)] >=
                                                         tails[std::size_t(i)][std::size_t(j) + 1])) {
            AppendStep("-", a[i], i, &lines);
            ++i;
        } else {
            AppendStep("+", b[j], j, &lines);
            ++j;
        }
    }
    return lines;
}

QJsonObject HBRecipeSchema()
{
    QJsonObject definitions;
    QJsonArray steps;
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        definitions.insert(adjustment.className, ValuesSchema(adjustment));
        steps.append(StepSchema(adjustment));
    }
    definitions.insert("selection", SelectionSchema());
    const QJsonObject list = ListSchema({{"oneOf", steps}}, 1, 1000);
    return {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
            {"title", "adjustment-recipe"},
            {"type", "object"},
            {"properties", QJsonObject{{"format", QJsonObject{{"const", "adjustment-recipe"}}},
                                       {"version", QJsonObject{{"enum", QJsonArray{1, 2}}}},
                                       {"steps", list}}},
            {"required", QJsonArray{"format", "version", "steps"}},
            {"$defs", definitions}};
}

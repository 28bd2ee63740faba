// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpArguments.h"

#include "HBGimpText.h"

#include <HBReadJson.h>

#include <QColor>
#include <QFont>
#include <QJsonArray>
#include <QRegularExpression>

#include <algorithm>

namespace
{

bool Fail(QString* reason, const QString& text)
{
    *reason = text;
    return false;
}

/// \param text begins as an object
bool ReadObject(const QString& text, QJsonObject* object, QString* reason)
{
    const QJsonDocument document = HBReadJson(text.toUtf8(), reason);
    *object = document.object();
    return !document.isNull();
}

bool ReadNumber(const HBFieldInfo& field, const QVariant& present, const QJsonValue& value, QVariant* result,
                QString* reason)
{
    const double number = value.toDouble();
    if (!value.isDouble())
        return Fail(reason, HBGimpText::tr("\"%1\" must be a number").arg(field.key));
    if (number < field.range.minimum || number > field.range.maximum) {
        return Fail(reason, HBGimpText::tr("\"%1\" is %2, but goes from %3 to %4")
                                .arg(field.key)
                                .arg(number)
                                .arg(field.range.minimum)
                                .arg(field.range.maximum));
    }
    const bool whole = present.type() == QVariant::Int || present.type() == QVariant::UInt;
    if (whole && number != double(int(number)))
        return Fail(reason, HBGimpText::tr("\"%1\" must be a whole number").arg(field.key));
    *result = whole ? QVariant(int(number)) : QVariant(number);
    return true;
}

bool ReadChoice(const HBFieldInfo& field, const QJsonValue& value, QVariant* result, QString* reason)
{
    QStringList names;
    for (std::size_t i = 0; i < field.values.size(); ++i) {
        if (field.values[i].isNull())
            continue;
        if (value.toString() == field.values[i]) {
            *result = int(i);
            return true;
        }
        names.append(field.values[i]);
    }
    return Fail(reason, HBGimpText::tr("\"%1\" must be one of: %2").arg(field.key, names.join(", ")));
}

bool ReadOther(const HBFieldInfo& field, const QVariant& present, const QJsonValue& value, QVariant* result,
               QString* reason)
{
    const QString text = value.toString();
    QFont font;
    switch (present.userType()) {
    case QMetaType::Bool:
        *result = value.toBool();
        return value.isBool() || Fail(reason, HBGimpText::tr("\"%1\" must be true or false").arg(field.key));
    case QMetaType::QColor:
        *result = QColor(text);
        return QColor::isValidColor(text) || Fail(reason, HBGimpText::tr("\"%1\" must be a color").arg(field.key));
    case QMetaType::QString:
        *result = text;
        return value.isString() || Fail(reason, HBGimpText::tr("\"%1\" must be a text").arg(field.key));
    case QMetaType::QFont:
        *result = font.fromString(text) ? QVariant(font) : QVariant();
        return !result->isNull() || Fail(reason, HBGimpText::tr("\"%1\" must be a font").arg(field.key));
    default:
        return Fail(reason, HBGimpText::tr("\"%1\" can be given in a record only").arg(field.key));
    }
}

bool ReadField(const HBFieldInfo& field, void* record, const QJsonValue& value, QString* reason)
{
    const QVariant present = field.get(record);
    QVariant result;
    const bool read = field.type == HBFieldInfo::Number   ? ReadNumber(field, present, value, &result, reason)
                      : field.type == HBFieldInfo::Choice ? ReadChoice(field, value, &result, reason)
                                                          : ReadOther(field, present, value, &result, reason);
    if (!read)
        return false;
    field.set(record, result);
    // A text may stand for something else, as an alignment does; what it cannot mean is ignored.
    if (result.userType() == QMetaType::QString && field.get(record) != result)
        return Fail(reason, HBGimpText::tr("\"%1\" cannot be \"%2\"").arg(field.key, result.toString()));
    return true;
}

bool ReadFields(const HBAdjustment& adjustment, const QJsonObject& values, QJsonObject* stored, QString* reason)
{
    std::any record = adjustment.defaults();
    for (auto value = values.begin(); value != values.end(); ++value) {
        const auto field = std::find_if(adjustment.fields.begin(), adjustment.fields.end(),
                                        [&](const HBFieldInfo& info) { return info.key == value.key(); });
        if (field == adjustment.fields.end()) {
            QStringList keys;
            for (const HBFieldInfo& info : adjustment.fields)
                keys.append(info.key);
            return Fail(reason,
                        HBGimpText::tr("there is no \"%1\"; there are: %2").arg(value.key(), keys.join(", ")));
        }
        if (!ReadField(*field, adjustment.mutableData(record), value.value(), reason))
            return false;
    }
    *stored = adjustment.save(record);
    return true;
}

/// The bytes of a record as a recipe stores them.
bool ReadBytes(const HBAdjustment& adjustment, const QString& text, QJsonObject* stored, QString* reason)
{
    static const QRegularExpression digits("^([0-9A-Fa-f]{2}|\\s)+$");
    if (!adjustment.tag)
        return Fail(reason, HBGimpText::tr("this adjustment has no record; its values are JSON"));
    if (!digits.match(text).hasMatch())
        return Fail(reason, HBGimpText::tr("this is neither JSON nor a record in hexadecimal digits"));
    *stored = {{"record", QString::fromLatin1(QByteArray::fromHex(text.toLatin1()).toBase64())}};
    return true;
}

} // namespace

bool HBReadStepArgument(const HBAdjustment& adjustment, const QString& text, HBRecipeStep* step, QString* reason)
{
    const QString trimmed = text.trimmed();
    QJsonObject stored = adjustment.save(adjustment.defaults());
    if (trimmed.startsWith('{')) {
        QJsonObject given;
        if (!ReadObject(trimmed, &given, reason))
            return false;
        const QJsonValue panel = given.take("panel");
        if (!panel.isUndefined() && panel.toString() != QLatin1String(adjustment.className))
            return Fail(reason, HBGimpText::tr("this is a step of %1").arg(panel.toString()));
        if (given.contains("record") || given.contains("values"))
            stored = given;
        else if (!ReadFields(adjustment, given, &stored, reason))
            return false;
    } else if (!trimmed.isEmpty() && !ReadBytes(adjustment, trimmed, &stored, reason)) {
        return false;
    }
    std::any record;
    if (!adjustment.restore(stored, &record, reason))
        return false;
    *step = {QString::fromLatin1(adjustment.className), stored};
    return true;
}

bool HBReadRecipeArgument(const QString& text, HBRecipe* recipe, QString* reason)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return Fail(reason, HBGimpText::tr("A recipe is wanted: its JSON, or the name of its file."));
    if (!trimmed.startsWith('{'))
        return HBRecipe::Load(trimmed, recipe, reason);
    QJsonObject object;
    if (!ReadObject(trimmed, &object, reason))
        return false;
    if (!object.contains("panel"))
        return HBRecipe::FromJson(trimmed.toUtf8(), recipe, reason);
    const HBAdjustment* adjustment = HBFindAdjustment(object.value("panel").toString());
    if (!adjustment)
        return Fail(reason, HBGimpText::tr("There is no panel %1.").arg(object.value("panel").toString()));
    HBRecipeStep step;
    if (!HBReadStepArgument(*adjustment, trimmed, &step, reason))
        return false;
    recipe->steps = {step};
    return true;
}

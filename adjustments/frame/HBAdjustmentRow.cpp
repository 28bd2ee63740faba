// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentRow.h"

#include "HBAdjustmentReason.h"

namespace
{

constexpr char RecordKey[] = "record";
constexpr char ValuesKey[] = "values";

} // namespace

bool HBDecodeRecord(const QJsonObject& values, QByteArray* record, QString* reason)
{
    const QJsonValue text = values.value(QLatin1String(RecordKey));
    if (!text.isString()) {
        *reason = HBAdjustmentReason::tr("it has no record");
        return false;
    }
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toString().toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        *reason = HBAdjustmentReason::tr("its record is not base64");
        return false;
    }
    *record = decoded.decoded;
    return true;
}

QJsonObject HBEncodeRecord(const QByteArray& record)
{
    return {{RecordKey, QString::fromLatin1(record.toBase64())}};
}

QString HBRecordProblem(const QDataStream& stream, bool read)
{
    if (read)
        return HBAdjustmentReason::tr("its record is too long");
    switch (stream.status()) {
    case QDataStream::Ok: // a foreign tag leaves it alone
        return HBAdjustmentReason::tr("its record is not one of this panel");
    case QDataStream::ReadPastEnd:
        return HBAdjustmentReason::tr("its record is cut short");
    default:
        return HBAdjustmentReason::tr("its record is broken");
    }
}

bool HBRestoreValues(const QJsonObject& values, const HBFieldInfos& fields, void* record, QString* reason)
{
    const QJsonObject numbers = values.value(QLatin1String(ValuesKey)).toObject();
    for (const HBFieldInfo& field : fields) {
        const QJsonValue number = numbers.value(field.key);
        if (!number.isDouble()) {
            *reason = HBAdjustmentReason::tr("it has no number \"%1\"").arg(field.key);
            return false;
        }
        // All ranges lie far inside this one, and so does every int.
        const double value = qBound(-1e9, number.toDouble(), 1e9);
        field.set(record, field.get(record).type() == QVariant::Int ? QVariant(int(value)) : QVariant(value));
    }
    return true;
}

QJsonObject HBSaveValues(const HBFieldInfos& fields, const void* record)
{
    QJsonObject numbers;
    for (const HBFieldInfo& field : fields)
        numbers.insert(field.key, QJsonValue::fromVariant(field.get(record)));
    return {{ValuesKey, numbers}};
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <QString>
#include <QtGlobal>
#include <QVariant>

#include <array>
#include <functional>
#include <limits>
#include <tuple>
#include <type_traits>
#include <vector>

// The fields of a record as data, in a constexpr table beside them:
//
//     struct HBBrightnessContrastParams
//     {
//         qint32 brightness = 0;
//         qint32 contrast = 0;
//
//         static constexpr auto Fields()
//         {
//             using P = HBBrightnessContrastParams;
//             return std::make_tuple(HBNumber("brightness", &P::brightness, {-127, 127, 0, HBUnit::Levels}),
//                                    HBNumber("contrast", &P::contrast, {-127, 127, 0, HBUnit::Levels}));
//         }
//     };
//
// From it come the clamping where a value is consumed (HBClamped), the check of forms against ranges, the readable
// form of a recipe step, the schema for other tools and the fuzzer's dictionary (HBDescribeFields).

/// What a number counts.
enum class HBUnit : quint8 { None, Levels, Percent, Degrees, Kelvin, Stops, Light, Exponent, Thousandths, Copies };

/// The name of a unit after a number, "%" for example; empty for None.
HB_ADJUSTMENTS_EXPORT QString HBUnitSymbol(HBUnit unit);

/// No value of the field does nothing.
constexpr double HBNoNeutral = std::numeric_limits<double>::quiet_NaN();

/// What a number may be; both ends are allowed. A value out of range counts as the nearest end where it is
/// consumed, NaN as the default.
struct HBRange
{
    double minimum;
    double maximum;
    double neutral = HBNoNeutral; ///< does nothing, whatever the other fields are or while they are neutral too
    HBUnit unit = HBUnit::None;
    int decimals = 0; ///< of a real number in its form
};

/// A number (qint32, float or double).
template <class Record, class Value>
struct HBNumberField
{
    const char* key; ///< in readable recipes: never translated, never changed
    Value Record::*member;
    HBRange range;
};
/// For the table of fields, as HBNumbers, HBChoice, HBPlain and HBFile.
template <class Record, class Value>
constexpr HBNumberField<Record, Value> HBNumber(const char* key, Value Record::*member, HBRange range)
{
    return {key, member, range};
}

/// An array of numbers of one range; `names` are the keys of its entries, row by row for an array of arrays.
template <class Record, class Array, std::size_t Count>
struct HBNumbersField
{
    const char* key;
    Array Record::*member;
    HBRange range;
    std::array<const char*, Count> names;
};
/// See HBNumbersField.
template <class Record, class Array, std::size_t Count>
constexpr HBNumbersField<Record, Array, Count> HBNumbers(const char* key, Array Record::*member, HBRange range,
                                                         const char* const (&names)[Count])
{
    HBNumbersField<Record, Array, Count> field{key, member, range, {}};
    for (std::size_t i = 0; i < Count; ++i)
        field.names[i] = names[i];
    return field;
}

/// An enumeration or a number that means one of several things; `names` are the keys of the values 0, 1, 2, …; any
/// other value, also one whose name is null, means what the adjustment says of it.
template <class Record, class Value, std::size_t Count>
struct HBChoiceField
{
    const char* key;
    Value Record::*member;
    std::array<const char*, Count> names;
};
/// See HBChoiceField.
template <class Record, class Value, std::size_t Count>
constexpr HBChoiceField<Record, Value, Count> HBChoice(const char* key, Value Record::*member,
                                                       const char* const (&names)[Count])
{
    HBChoiceField<Record, Value, Count> field{key, member, {}};
    for (std::size_t i = 0; i < Count; ++i)
        field.names[i] = names[i];
    return field;
}

/// What QVariant carries as it is: a truth value, a colour, a text, a font, a rectangle; or anything else with an
/// entry in HBToVariant.
template <class Record, class Value>
struct HBPlainField
{
    const char* key;
    Value Record::*member;
};
/// See HBPlainField.
template <class Record, class Value>
constexpr HBPlainField<Record, Value> HBPlain(const char* key, Value Record::*member)
{
    return {key, member};
}

/// A text that names a file; empty: none. Recipes keep names of files that lie with them as seen from there.
template <class Record>
struct HBFileField
{
    const char* key;
    QString Record::*member;
};
/// See HBFileField.
template <class Record>
constexpr HBFileField<Record> HBFile(const char* key, QString Record::*member)
{
    return {key, member};
}

// ---- Consuming ----

/// The nearest value of the range; `fallback` for NaN.
template <class Value>
Value HBClampTo(const HBRange& range, Value value, Value fallback)
{
    if constexpr (std::is_floating_point_v<Value>) {
        if (qIsNaN(value))
            return fallback;
    }
    return qBound(Value(range.minimum), value, Value(range.maximum));
}

/// A number of the record, inside its range.
template <class Record, class Value>
Value HBClamped(const Record& record, Value Record::*member)
{
    Value result = record.*member;
    const auto clamp = [&](const auto& field) {
        using Field = std::decay_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, HBNumberField<Record, Value>>) {
            if (field.member == member)
                result = HBClampTo(field.range, record.*member, Record().*member);
        }
    };
    std::apply([&](const auto&... fields) { (clamp(fields), ...); }, Record::Fields());
    return result;
}

/// The range of a number, or of the entries of an array of numbers.
template <class Record, class Value>
constexpr HBRange HBRangeOf(Value Record::*member)
{
    HBRange result{0, 0};
    const auto find = [&](const auto& field) {
        if constexpr (std::is_same_v<decltype(field.member), Value Record::*>) {
            if (field.member == member)
                result = field.range;
        }
    };
    std::apply([&](const auto&... fields) { (find(fields), ...); }, Record::Fields());
    return result;
}

/// As a spin box rounds it: the nearest number with so many decimals.
HB_ADJUSTMENTS_EXPORT double HBRounded(double value, int decimals);

/// A real number of the record as its form would take it: rounded to the range's decimals, and inside it.
template <class Record>
double HBInForm(const Record& record, double Record::*member)
{
    Record rounded = record;
    rounded.*member = HBRounded(record.*member, HBRangeOf(member).decimals);
    return HBClamped(rounded, member);
}

// ---- Describing ----

/// One field, as everything that works with all records knows it.
struct HBFieldInfo
{
    enum Type { Number, Choice, Other };

    QString key;
    Type type = Other;
    HBRange range{0, 0};         ///< of a number
    std::vector<QString> values; ///< keys of the values 0, 1, 2, … of a choice; null for one that is none
    bool isFile = false;         ///< it names a file
    /// The value in a record, and back; what `set` cannot convert it ignores.
    std::function<QVariant(const void* record)> get;
    std::function<void(void* record, const QVariant& value)> set;
};
/// All fields of a record, in their order.
using HBFieldInfos = std::vector<HBFieldInfo>;

template <class Value>
QVariant HBToVariant(const Value& value)
{
    if constexpr (std::is_enum_v<Value>)
        return int(value);
    else
        return QVariant::fromValue(value);
}

template <class Value>
void HBFromVariant(const QVariant& variant, Value& value)
{
    // canConvert() only knows types: any text could be a number.
    QVariant converted = variant;
    if constexpr (std::is_enum_v<Value>) {
        if (converted.convert(QMetaType::Int))
            value = Value(converted.toInt());
    } else if (converted.convert(qMetaTypeId<Value>())) {
        value = converted.value<Value>();
    }
}

/// \param access Value&(Record&)
template <class Record, class Access>
HBFieldInfo HBDescribeValue(const QString& key, HBFieldInfo::Type type, Access access)
{
    HBFieldInfo info;
    info.key = key;
    info.type = type;
    info.get = [access](const void* record) {
        return HBToVariant(access(*static_cast<Record*>(const_cast<void*>(record))));
    };
    info.set = [access](void* record, const QVariant& value) {
        HBFromVariant(value, access(*static_cast<Record*>(record)));
    };
    return info;
}

template <class Record, class Value>
void HBDescribe(const HBNumberField<Record, Value>& field, HBFieldInfos& infos)
{
    infos.push_back(HBDescribeValue<Record>(field.key, HBFieldInfo::Number,
                                            [field](Record& r) -> Value& { return r.*field.member; }));
    infos.back().range = field.range;
}

template <class Record, class Array, std::size_t Count>
void HBDescribe(const HBNumbersField<Record, Array, Count>& field, HBFieldInfos& infos)
{
    using Value = std::remove_all_extents_t<Array>;
    static_assert(sizeof(Array) == Count * sizeof(Value), "a name for each entry");
    for (std::size_t i = 0; i < Count; ++i) {
        infos.push_back(HBDescribeValue<Record>(
            QLatin1String(field.key) + '.' + QLatin1String(field.names[i]), HBFieldInfo::Number,
            [field, i](Record& r) -> Value& {
                if constexpr (std::rank_v<Array> == 2)
                    return (r.*field.member)[i / std::extent_v<Array, 1>][i % std::extent_v<Array, 1>];
                else
                    return (r.*field.member)[i];
            }));
        infos.back().range = field.range;
    }
}

template <class Record, class Value, std::size_t Count>
void HBDescribe(const HBChoiceField<Record, Value, Count>& field, HBFieldInfos& infos)
{
    infos.push_back(HBDescribeValue<Record>(field.key, HBFieldInfo::Choice,
                                            [field](Record& r) -> Value& { return r.*field.member; }));
    infos.back().values.assign(field.names.begin(), field.names.end());
}

template <class Record, class Value>
void HBDescribe(const HBPlainField<Record, Value>& field, HBFieldInfos& infos)
{
    infos.push_back(HBDescribeValue<Record>(field.key, HBFieldInfo::Other,
                                            [field](Record& r) -> Value& { return r.*field.member; }));
}

template <class Record>
void HBDescribe(const HBFileField<Record>& field, HBFieldInfos& infos)
{
    infos.push_back(HBDescribeValue<Record>(field.key, HBFieldInfo::Other,
                                            [field](Record& r) -> QString& { return r.*field.member; }));
    infos.back().isFile = true;
}

/// All fields of a record, in their order.
template <class Record>
HBFieldInfos HBDescribeFields()
{
    HBFieldInfos infos;
    std::apply([&](const auto&... fields) { (HBDescribe(fields, infos), ...); }, Record::Fields());
    return infos;
}

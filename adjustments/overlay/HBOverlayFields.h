// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"

#include <QRect>

// What the fields of the overlays' records share.

/// What a margin of an overlay may be.
constexpr HBRange HBMarginRange{0, 999, HBNoNeutral, HBUnit::Thousandths};

/// The keys of the blending modes by their numbers, which are those of QPainter::CompositionMode; null for the
/// numbers that are none and, like any other, count as the first.
constexpr const char* HBBlendingKeys[] = {
    "normal", nullptr,   nullptr,      nullptr,     nullptr,     nullptr,     nullptr,      nullptr,
    nullptr,  nullptr,   nullptr,      nullptr,     "addition",  "multiply",  "screen",     "overlay",
    "darken", "lighten", "colorDodge", "colorBurn", "hardLight", "softLight", "difference", "exclusion"};

/// Four margins in the four corner values of a QRect; never take its width.
template <class Record>
struct HBMarginsField
{
    const char* key;
    QRect Record::*member;
};
/// See HBMarginsField.
template <class Record>
constexpr HBMarginsField<Record> HBMarginCross(const char* key, QRect Record::*member)
{
    return {key, member};
}

/// As four numbers.
template <class Record>
void HBDescribe(const HBMarginsField<Record>& field, HBFieldInfos& infos)
{
    using Sides = std::array<int, 4>;
    const auto sides = [](const QRect& margins) {
        return Sides{margins.left(), margins.top(), margins.right(), margins.bottom()};
    };
    constexpr const char* names[] = {"left", "top", "right", "bottom"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        HBFieldInfo info;
        info.key = QLatin1String(field.key) + '.' + QLatin1String(names[i]);
        info.type = HBFieldInfo::Number;
        info.range = HBMarginRange;
        info.get = [=](const void* record) {
            return QVariant(sides(static_cast<const Record*>(record)->*field.member)[i]);
        };
        info.set = [=](void* record, const QVariant& value) {
            QRect& margins = static_cast<Record*>(record)->*field.member;
            Sides changed = sides(margins);
            HBFromVariant(value, changed[i]);
            margins.setCoords(changed[0], changed[1], changed[2], changed[3]);
        };
        infos.push_back(info);
    }
}

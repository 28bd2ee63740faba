// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBlendingModes.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QPainter>

namespace
{

struct Row
{
    const char* name;
    QPainter::CompositionMode mode;
};

// Lighten before darken, on purpose, although their numbers run the other way.
constexpr Row rows[] = {
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Normal"), QPainter::CompositionMode_SourceOver},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Multiply"), QPainter::CompositionMode_Multiply},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Screen"), QPainter::CompositionMode_Screen},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Overlay"), QPainter::CompositionMode_Overlay},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Difference"), QPainter::CompositionMode_Difference},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Exclusion"), QPainter::CompositionMode_Exclusion},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Lighten colors"), QPainter::CompositionMode_Lighten},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Darken colors"), QPainter::CompositionMode_Darken},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Soft light"), QPainter::CompositionMode_SoftLight},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Hard light"), QPainter::CompositionMode_HardLight},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Color dodge"), QPainter::CompositionMode_ColorDodge},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Color burn"), QPainter::CompositionMode_ColorBurn},
    {QT_TRANSLATE_NOOP("HBBlendingModes", "Addition"), QPainter::CompositionMode_Plus},
};
constexpr int RowCount = int(sizeof rows / sizeof rows[0]);

} // namespace

unsigned HBBlendingIndexToMode(int index)
{
    return index >= 0 && index < RowCount ? unsigned(rows[index].mode) : 0u;
}

int HBBlendingModeToIndex(unsigned mode)
{
    for (int index = 0; index < RowCount; ++index) {
        if (unsigned(rows[index].mode) == mode)
            return index;
    }
    return 0;
}

void HBFillBlendingModes(QComboBox* combo)
{
    combo->clear();
    for (const Row& row : rows)
        combo->addItem(QCoreApplication::translate("HBBlendingModes", row.name));
}

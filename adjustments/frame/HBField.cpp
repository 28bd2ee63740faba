// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBField.h"

QString HBUnitSymbol(HBUnit unit)
{
    switch (unit) {
    case HBUnit::Percent:
        return QStringLiteral("%");
    case HBUnit::Degrees:
        return QStringLiteral("°");
    case HBUnit::Kelvin:
        return QStringLiteral("K");
    case HBUnit::Stops:
        return QStringLiteral("EV");
    case HBUnit::Thousandths:
        return QStringLiteral("‰");
    case HBUnit::None:
    case HBUnit::Levels:
    case HBUnit::Light:
    case HBUnit::Exponent:
    case HBUnit::Copies:
        break;
    }
    return {};
}

double HBRounded(double value, int decimals)
{
    return QString::number(value, 'f', decimals).toDouble();
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustment.h"

#include <QCoreApplication>

const HBAdjustment* HBFindAdjustment(const QString& className)
{
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (className == QLatin1String(adjustment.className))
            return &adjustment;
    }
    return nullptr;
}

QString HBAdjustment::Group() const
{
    return QCoreApplication::translate("HBAdjustment", group);
}

QString HBAdjustment::Title() const
{
    return QCoreApplication::translate("HBAdjustment", title);
}

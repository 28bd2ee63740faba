// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeSteps.h"

#include "HBRecipeReason.h"

namespace
{

/// The title of a panel; what else a file calls so, short and on one line.
QString Shown(const QString& panel)
{
    if (const HBAdjustment* adjustment = HBFindAdjustment(panel))
        return adjustment->Title();
    const QString line = panel.simplified();
    return line.size() > 60 ? line.left(60) + QChar(0x2026) : line;
}

} // namespace

bool HBFailStep(QString* error, int index, const QString& panel, const QString& reason)
{
    *error = panel.isEmpty()
                 ? HBRecipeReason::tr("Step %1: %2").arg(index + 1).arg(reason)
                 : HBRecipeReason::tr("Step %1 (%2): %3").arg(QString::number(index + 1), Shown(panel), reason);
    return false;
}

const HBAdjustment* HBReadStep(const HBRecipeStep& step, int index, std::any* record, QString* error)
{
    const HBAdjustment* adjustment = HBFindAdjustment(step.panel);
    QString reason;
    if (!adjustment)
        reason = HBRecipeReason::tr("there is no such panel");
    else if (adjustment->restore(step.values, record, &reason))
        return adjustment;
    HBFailStep(error, index, step.panel, reason);
    return nullptr;
}

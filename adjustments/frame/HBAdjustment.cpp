// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustment.h"

#include <QReadWriteLock>

namespace
{

/// What programs have registered.
struct OwnAdjustments
{
    QReadWriteLock lock;
    QVector<const HBAdjustment*> all;

    static OwnAdjustments& Instance()
    {
        static OwnAdjustments own;
        return own;
    }
    const HBAdjustment* Find(const QString& className) const
    {
        for (const HBAdjustment* adjustment : all) {
            if (className == QLatin1String(adjustment->className))
                return adjustment;
        }
        return nullptr;
    }
};

const HBAdjustment* FindOurs(const QString& className)
{
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (className == QLatin1String(adjustment.className))
            return &adjustment;
    }
    return nullptr;
}

} // namespace

bool HBRegisterAdjustment(const HBAdjustment& adjustment)
{
    const QString className = QString::fromLatin1(adjustment.className);
    OwnAdjustments& own = OwnAdjustments::Instance();
    const QWriteLocker locker(&own.lock);
    if (FindOurs(className) || own.Find(className))
        return false;
    own.all.append(&adjustment);
    return true;
}

const HBAdjustment* HBFindAdjustment(const QString& className)
{
    if (const HBAdjustment* ours = FindOurs(className))
        return ours;
    OwnAdjustments& own = OwnAdjustments::Instance();
    const QReadLocker locker(&own.lock);
    return own.Find(className);
}

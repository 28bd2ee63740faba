// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMStringHelper.h"

#include "KMPixelRatioRound.h"

#include <QFile>

QString KMStringHelper::DPIAdjustImageName(const QString& name)
{
    if (KMPixelRatioRound::GetPixelRatio() < 1.5)
        return name;
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    if (dot <= name.lastIndexOf(QLatin1Char('/')))
        return name; // a dot in a folder's name ends no file name
    QString adjusted = name;
    adjusted.insert(dot, QLatin1String("@2x"));
    return QFile::exists(adjusted) ? adjusted : name;
}

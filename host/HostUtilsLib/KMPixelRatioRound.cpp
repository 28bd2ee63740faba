// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMPixelRatioRound.h"

#include <QGuiApplication>
#include <QScreen>

double KMPixelRatioRound::GetPixelRatio()
{
    // A bare QCoreApplication has no screens to ask for.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return 1.0;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->devicePixelRatio() : 1.0;
}

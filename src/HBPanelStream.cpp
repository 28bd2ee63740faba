// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelStream.h"

#include <QDebug>
#include <QMessageLogger>

void HBLogStreamError(const char* date, const char* time, int line, const char* source, const char* message)
{
    const QString text = QString("Build date=%1, time=%2. Line=%3, file=\"%4\". %5")
                             .arg(QLatin1String(date))
                             .arg(QLatin1String(time))
                             .arg(line)
                             .arg(QLatin1String(source))
                             .arg(QLatin1String(message));
    // As one QString without context: qDebug() would add file and line in debug builds.
    QMessageLogger().debug() << text;
}

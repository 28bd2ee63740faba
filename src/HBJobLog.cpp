// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJobLog.h"

#include <QDebug>
#include <QMessageLogger>

namespace
{

// Where the pixels of all jobs are transformed, as the log has always named it: fixed, on purpose.
constexpr int Line = 851;
constexpr char Header[] = "ImagingLib\\HBTransformImageColors.h";

QString Text(const char* date, const char* time, const std::exception_ptr& exception)
{
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& known) {
        return QString(
                   "Build date=%1, time=%2. Unexpected exception: line=%3, file=\"%4\". Exception content:\"%5\"")
            .arg(QLatin1String(date))
            .arg(QLatin1String(time))
            .arg(Line)
            .arg(QLatin1String(Header))
            .arg(QString::fromLocal8Bit(known.what()));
    } catch (...) {
        return QString("Build date=%1, time=%2. Unexpected unknown exception: line=%3, file=\"%4\"")
            .arg(QLatin1String(date))
            .arg(QLatin1String(time))
            .arg(Line)
            .arg(QLatin1String(Header));
    }
}

} // namespace

void HBLogJobException(const char* date, const char* time, const std::exception_ptr& exception)
{
    if (exception)
        QMessageLogger().debug() << Text(date, time, exception);
}

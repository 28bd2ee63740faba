// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTileWarnings.h"

#include "HBMessageBar.h"

#include <KMTileManager64.h>

#include <QCoreApplication>
#include <QPointer>

namespace
{

struct WarningText
{
    Q_DECLARE_TR_FUNCTIONS(HBTileWarnings)
};

} // namespace

void HBShowTileWarnings(HBMessageBar* bar)
{
    const QPointer<HBMessageBar> shownIn(bar);
    auto show = [shownIn] { // GUI thread
        if (shownIn)
            shownIn->ShowError(
                WarningText::tr("The disk for temporary files is full or cannot be written: the photo needs "
                                "more memory than allowed. Save your work."));
    };
    KMTileManager64::Instance().SetTroubleHandler([show] { // any thread
        if (QCoreApplication* application = QCoreApplication::instance())
            QMetaObject::invokeMethod(application, show, Qt::QueuedConnection);
    });
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTileWarnings.h"

#include "HBMessageBar.h"

#include <QCoreApplication>
#include <QPointer>

namespace
{

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(HBEditorWindow)
};

QtMessageHandler before = nullptr;
QPointer<HBMessageBar> shownIn; // GUI thread only

/// On any thread, the tile manager's too.
void Handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    before(type, context, text);
    if (type != QtWarningMsg || !text.startsWith(QLatin1String("Image data cannot be moved to the scratch file")))
        return;
    auto show = [] {
        if (shownIn)
            shownIn->ShowError(
                Text::tr("The disk for temporary files is full or cannot be written: the photo needs "
                         "more memory than allowed. Save your work."));
    };
    QMetaObject::invokeMethod(qApp, show, Qt::QueuedConnection);
}

} // namespace

void HBShowTileWarnings(HBMessageBar* bar)
{
    shownIn = bar;
    const QtMessageHandler present = qInstallMessageHandler(Handle);
    if (present != Handle)
        before = present;
}

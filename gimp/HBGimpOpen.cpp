// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpOpen.h"

#include "HBGimpApply.h"
#include "HBGimpColors.h"
#include "HBGimpDialog.h"
#include "HBGimpLayer.h"
#include "HBGimpText.h"

#include <HBAppearance.h>
#include <HBEditorStyle.h>
#include <KMApplication.h>

#include <QApplication>
#include <QFileDialog>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QWindow>

#include <poll.h>

#include <memory>
#include <new>

namespace
{

constexpr int ReadPipeArgument = 2; // of GIMP's command line for plug-ins
using Owned = std::unique_ptr<gchar, decltype(&g_free)>;

/// In front of GIMP's window. Only X11 knows windows of other programs.
void PutBefore(QWidget* dialog)
{
    const gint32 display = gimp_default_display();
    const gint handle = display > 0 ? gimp_display_get_window_handle(display) : 0;
    if (handle == 0 || QGuiApplication::platformName() != "xcb")
        return;
    dialog->winId();
    dialog->windowHandle()->setTransientParent(QWindow::fromWinId(WId(handle)));
}

/// If GIMP ends meanwhile, the dialog has nobody to give its picture to.
void EndWithGimp(QDialog* dialog)
{
    const int pipe = QCoreApplication::arguments().value(ReadPipeArgument).toInt();
    auto* timer = new QTimer(dialog);
    QObject::connect(timer, &QTimer::timeout, dialog, [pipe, dialog] {
        pollfd state{pipe, 0, 0};
        if (poll(&state, 1, 0) == 1 && (state.revents & (POLLHUP | POLLERR)))
            dialog->reject();
    });
    timer->start(500);
}

} // namespace

HBGimpAnswer HBOpenAdjustment(const HBGimpCall& call, const HBAdjustment& adjustment, QStringList* notes,
                              QString* reason)
{
    const HBGimpLayer layer(call.drawable);
    if (!layer.Check(reason))
        return HBGimpAnswer::Failed;
    if (layer.IsSelectionElsewhere() && !adjustment.IgnoresSelection()) {
        *reason = HBGimpText::tr("Nothing of the layer is selected.");
        return HBGimpAnswer::Failed;
    }
    const Owned name(gimp_item_get_name(call.drawable), &g_free);
    HBTarget target;
    const QByteArray title = adjustment.Title().toUtf8();
    const auto tell = [](double share) { gimp_progress_update(share); };
    gimp_progress_init(title.constData());
    layer.Read(&target, tell);
    gimp_progress_end();
    HBPresets presets(HBGimpFolder(), adjustment);
    HBGimpDialog dialog(*HBFindPanel(QString::fromLatin1(adjustment.className)), target,
                        QString::fromUtf8(name.get()), layer.Warning(), &presets);
    dialog.SetLook(HBGimpLook(call.drawable, dialog.screen()));
    QSettings windows(HBGimpFolder() + "/windows.ini", QSettings::IniFormat);
    if (!dialog.restoreGeometry(windows.value(adjustment.className).toByteArray()))
        dialog.resize(dialog.sizeHint().expandedTo({1000, 600}));
    // As on a small screen, or on one that is scaled: with its frame, and its buttons in sight.
    dialog.resize(dialog.size().boundedTo(dialog.screen()->availableSize() * 0.95));
    PutBefore(&dialog);
    EndWithGimp(&dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    windows.setValue(adjustment.className, dialog.saveGeometry());
    if (!accepted)
        return HBGimpAnswer::Cancelled;

    HBGimpLayer::Written written;
    gimp_progress_init(title.constData());
    if (!layer.Write(target.source, dialog.Adjusted(), &written, reason, tell))
        return HBGimpAnswer::Failed;
    gimp_progress_end();
    *notes = written.notes;
    try {
        QString problem;
        if (!presets.SetLast(dialog.Step().values, &problem))
            notes->append(problem);
    } catch (const std::bad_alloc&) { // the layer counts, not that the values are remembered
    }
    return HBGimpAnswer::Done;
}

QString HBAskForRecipe()
{
    QFileDialog dialog(nullptr, HBGimpText::tr("Apply Recipe"), KMApplication::GetPathOpen(),
                       HBGimpText::tr("Recipes (*.json);;All files (*)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.resize(800, 500); // its columns are cut off by default
    PutBefore(&dialog);
    EndWithGimp(&dialog);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    const QString path = dialog.selectedFiles().value(0);
    KMApplication::SetPathOpen(QFileInfo(path).path());
    return path;
}

void HBUseGimpColors()
{
    QApplication::setStyle(new HBEditorStyle);
    const Owned theme(gimp_gimprc_query("theme"), &g_free);
    HBUseDarkColors(theme && QByteArray(theme.get()).contains("Dark"));
}

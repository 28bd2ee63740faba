// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMFileDialog.h"

#include <KMApplication.h>

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

namespace
{

KMFileDialog::Chooser& TheChooser()
{
    static KMFileDialog::Chooser chooser;
    return chooser;
}

QString RunDialog(const QString& title, const QString& folder, const QString& filter)
{
    // On the heap: as a child it dies with the window below it, and then must not die here once more.
    const QPointer<QFileDialog> dialog(new QFileDialog(QApplication::activeWindow(), title, folder, filter));
    dialog->setFileMode(QFileDialog::ExistingFile);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return {};
    const QStringList files = accepted ? dialog->selectedFiles() : QStringList();
    delete dialog;
    return files.value(0);
}

} // namespace

QString KMFileDialog::GetOpenFileName(const QString& title, const QString& folder, const QString& filter)
{
    const QString file = TheChooser() ? TheChooser()(title, folder, filter) : RunDialog(title, folder, filter);
    if (!file.isEmpty())
        KMApplication::SetPathOpen(QFileInfo(file).absolutePath());
    return file;
}

void KMFileDialog::SetChooser(const Chooser& chooser)
{
    TheChooser() = chooser;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFiles.h"

#include "HBBusyDialog.h"
#include "HBDocument.h"
#include "HBExportDialog.h"
#include "HBFilmStrip.h"
#include "HBFolders.h"
#include "HBMessageBar.h"
#include "HBPanelController.h"
#include "HBWaitForSteps.h"

#include <KMDocumentView.h>
#include <KMImageFileManager.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSettings>

namespace
{

constexpr char QualityKey[] = "files/quality";

/// A format that is chosen from the dialog's list becomes that of the name.
void FollowChosenFormat(QFileDialog* dialog)
{
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog](const QString& filter) {
        const QStringList suffixes = filter.section('(', -1).remove(')').remove("*.").split(' ');
        if (suffixes.size() > 2 || suffixes.first() == "*")
            return; // all formats, all files
        const QFileInfo chosen(dialog->selectedFiles().value(0));
        if (suffixes.contains(chosen.suffix().toLower()))
            return;
        dialog->setDefaultSuffix(suffixes.first());
        const QString name = HBCanWritePhoto(chosen.filePath()) ? chosen.completeBaseName() : chosen.fileName();
        dialog->selectFile(name + '.' + suffixes.first());
    });
}

} // namespace

HBPhotoFiles::HBPhotoFiles(const HBEditorContext& editor, HBPanelController* panels, HBFilmStrip* strip,
                           QMenu* recent)
    : m_Editor(editor)
    , m_pPanels(panels)
    , m_pStrip(strip)
    , m_Recent(editor.remember, recent)
{
    connect(&m_Recent, &HBRecentFiles::Chosen, this, &HBPhotoFiles::Open);
}

void HBPhotoFiles::ReadSettings(const QSettings& settings)
{
    m_Quality = qBound(0, settings.value(QualityKey, m_Quality).toInt(), 100);
}

void HBPhotoFiles::WriteSettings(QSettings* settings) const
{
    settings->setValue(QualityKey, m_Quality);
}

void HBPhotoFiles::ShowWarnings(const QString& path, const QStringList& warnings)
{
    m_Editor.messages->hide();
    if (!warnings.isEmpty())
        m_Editor.messages->ShowNote(QFileInfo(path).fileName() + ": " + warnings.join("; "));
}

// ---- Open ----

void HBPhotoFiles::Choose()
{
    const QString path = QFileDialog::getOpenFileName(
        m_Editor.window, tr("Open Photo"), m_Editor.folders->Folder(HBFolders::Photos, m_Editor.document->Path()),
        KMImageFileManager::GetFilterForRead());
    if (path.isEmpty())
        return;
    m_Editor.folders->SetUsed(HBFolders::Photos, path);
    Open(path);
}

bool HBPhotoFiles::Open(const QString& path)
{
    if (m_Busy || !MayLeave())
        return false;
    const QScopedValueRollback<bool> busy(m_Busy, true); // a file may be dropped meanwhile
    HBPhoto photo;
    QString error;
    bool read = false;
    const bool wanted = HBBusyDialog::RunCancellable(
        tr("Opening %1").arg(QFileInfo(path).fileName()), m_Editor.window,
        [&](const HBJobControl* control) {
            const auto isWanted = [control] { return !control->IsCancelled(); };
            read = HBReadPhoto(path, &photo, &error, isWanted, HBCutShort::Read);
        },
        HBBusyDialog::Patience);
    if (!wanted)
        return false;
    if (!read) {
        m_Editor.messages->ShowError(error);
        return false;
    }
    ShowWarnings(path, photo.warnings);
    const QString full = QFileInfo(path).absoluteFilePath();
    m_pStrip->SetOpen(full);
    m_Recent.Add(full);
    m_Editor.document->SetPhoto(full, photo);
    m_Editor.view->setFocus();
    return true;
}

/// One question at most, about the open panel and the photo at once.
bool HBPhotoFiles::MayLeave()
{
    const HBDocument& document = *m_Editor.document;
    const bool panel = m_pPanels->HasWork();
    if (!panel && !document.IsModified()) {
        m_pPanels->Drop();
        return true;
    }
    const QString text =
        panel ? tr("“%1” has changes that are not saved, those of the open panel “%2” among them. Save them all?")
                    .arg(document.FileName(), m_pPanels->Session()->Entry().Title())
              : tr("“%1” has changes that are not saved. Save them?").arg(document.FileName());
    const auto answer =
        QMessageBox::question(m_Editor.window, tr("Panel Editor"), text,
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Cancel)
        return false;
    if (answer == QMessageBox::Save)
        return (!panel || m_pPanels->Accept()) && Save();
    m_pPanels->Drop();
    return true;
}

// ---- Save ----

bool HBPhotoFiles::Save()
{
    return m_pPanels->MayLeave() && (!m_Editor.document->IsModified() || SaveOver());
}

/// Keeps what the file is. Where that cannot be, asks first; then the file that was written has nothing more to
/// lose.
bool HBPhotoFiles::SaveOver()
{
    const HBDocument& document = *m_Editor.document;
    const QString path = document.Path();
    if (!HBCanWritePhoto(path)) {
        m_Editor.messages->ShowNote(
            tr("Files like “%1” can be read only. Save the photo as another.").arg(document.FileName()));
        return SaveAs();
    }
    const QStringList losses = HBLossesOfSave(document.Encoding(), path);
    if (!losses.isEmpty()) {
        QMessageBox question(QMessageBox::Warning, tr("Save"),
                             tr("Saving over “%1” would lose for good:").arg(document.FileName()),
                             QMessageBox::Cancel, m_Editor.window);
        question.setInformativeText("• " + losses.join("\n• "));
        QPushButton* other = question.addButton(tr("Save &As…"), QMessageBox::AcceptRole);
        const QPushButton* over = question.addButton(tr("Save &Over It"), QMessageBox::DestructiveRole);
        question.setDefaultButton(other);
        question.exec();
        if (question.clickedButton() == other)
            return SaveAs();
        if (question.clickedButton() != over)
            return false;
    }
    HBPhotoOptions options;
    options.encoding = document.Encoding();
    return SaveTo(path, options);
}

bool HBPhotoFiles::SaveAs()
{
    if (!m_pPanels->MayLeave())
        return false;
    const QFileInfo present(m_Editor.document->Path());
    QFileDialog dialog(m_Editor.window, tr("Save Photo As"), present.filePath(),
                       KMImageFileManager::GetFilterForWrite());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    FollowChosenFormat(&dialog);
    const QString suffix = HBCanWritePhoto(present.filePath()) ? present.suffix() : QString("png");
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(present.completeBaseName() + '.' + suffix);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QString path = dialog.selectedFiles().value(0);
    HBPhotoOptions options;
    if (HBTakesQuality(path)) {
        bool ok = false;
        const int quality =
            QInputDialog::getInt(m_Editor.window, tr("Save Photo As"), tr("&Quality (0 smallest, 100 best):"),
                                 m_Quality, 0, 100, 1, &ok);
        if (!ok)
            return false;
        options.quality = m_Quality = quality;
    }
    return SaveTo(path, options);
}

/// If it is cancelled or fails, the file is as it was.
bool HBPhotoFiles::Write(const QString& text, const QString& path, const HBImage<>& image,
                         const HBPhotoOptions& options, QStringList* warnings, HBPhotoEncoding* encoding)
{
    QString error;
    bool written = false;
    const bool wanted = HBBusyDialog::RunCancellable(
        text.arg(QFileInfo(path).fileName()), m_Editor.window,
        [&](const HBJobControl* control) {
            HBPhotoOptions asking = options;
            asking.isWanted = [control] { return !control->IsCancelled(); };
            written = HBWritePhoto(path, image, asking, &error, warnings, encoding);
        },
        HBBusyDialog::Patience);
    if (!written && wanted)
        m_Editor.messages->ShowError(error);
    return written;
}

bool HBPhotoFiles::SaveTo(const QString& path, const HBPhotoOptions& options)
{
    if (!HBWaitForDocument(m_Editor))
        return false;
    const QScopedValueRollback<bool> busy(m_Busy, true);
    const HBImage<> image = m_Editor.document->Image();
    QStringList warnings;
    HBPhotoEncoding encoding;
    if (!Write(tr("Saving %1"), path, image, options, &warnings, &encoding))
        return false;
    m_pStrip->SetOpen(path);
    m_pStrip->Refresh(path);
    m_Recent.Add(path);
    m_Editor.document->SetSaved(path, encoding);
    ShowWarnings(path, warnings);
    m_Editor.ShowDone(tr("Saved %1").arg(path));
    return true;
}

bool HBPhotoFiles::Export()
{
    if (!m_pPanels->MayLeave() || !HBWaitForDocument(m_Editor))
        return false;
    const HBImage<> image = m_Editor.document->Image();
    HBExportDialog dialog(image, m_Editor.document->Path(), m_Editor.folders, m_Editor.remember, m_Editor.window);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QScopedValueRollback<bool> busy(m_Busy, true);
    const QString path = dialog.Path();
    QStringList warnings;
    if (!Write(tr("Exporting %1"), path, image, dialog.Options(), &warnings))
        return false;
    ShowWarnings(path, warnings);
    m_Editor.ShowDone(tr("Exported %1").arg(path));
    return true;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// What the editor does with files.

#include "HBBusyDialog.h"
#include "HBEditorActions.h"
#include "HBEditorWindow.h"
#include "HBExportDialog.h"
#include "HBFilmStrip.h"
#include "HBMessageBar.h"
#include "HBSelectionTool.h"

#include <KMDocumentView.h>
#include <KMImageFileManager.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStatusBar>

namespace
{

QString RecipeFilter()
{
    return HBEditorWindow::tr("Recipes") + " (*.json);;" + HBEditorWindow::tr("All files") + " (*)";
}

bool CanBeWritten(const QString& path)
{
    return KMImageFileManager::SuffixesForWrite().contains(QFileInfo(path).suffix().toLower());
}

bool HasQuality(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "jpg" || suffix == "jpeg" || suffix == "webp";
}

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
        const QString name = CanBeWritten(chosen.filePath()) ? chosen.completeBaseName() : chosen.fileName();
        dialog->selectFile(name + '.' + suffixes.first());
    });
}

} // namespace

// ---- Open ----

void HBEditorWindow::ChooseFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Photo"),
                                                      m_Folders.Folder(HBFolders::Photos, m_Document.Path()),
                                                      KMImageFileManager::GetFilterForRead());
    if (path.isEmpty())
        return;
    m_Folders.SetUsed(HBFolders::Photos, path);
    Open(path);
}

bool HBEditorWindow::Open(const QString& path)
{
    if (m_Busy || !MayLeavePhoto())
        return false;
    const QScopedValueRollback<bool> busy(m_Busy, true); // a file may be dropped meanwhile
    HBPhoto photo;
    QString error;
    bool read = false;
    const bool wanted = HBBusyDialog::RunCancellable(
        tr("Opening %1").arg(QFileInfo(path).fileName()), this,
        [&](const HBJobControl* control) {
            const auto isWanted = [control] { return !control->IsCancelled(); };
            read = HBReadPhoto(path, &photo, &error, isWanted, HBCutShort::Read);
        },
        HBBusyDialog::Patience);
    if (!wanted)
        return false;
    if (!read) {
        m_pMessages->ShowError(error);
        return false;
    }
    m_pMessages->hide();
    if (!photo.warnings.isEmpty())
        m_pMessages->ShowNote(QFileInfo(path).fileName() + ": " + photo.warnings.join("; "));
    const QString full = QFileInfo(path).absoluteFilePath();
    m_pStrip->SetOpen(full);
    m_Recent.Add(full);
    m_Document.SetPhoto(full, photo);
    m_pView->setFocus();
    return true;
}

// ---- Save ----

bool HBEditorWindow::Save()
{
    return MayLeavePanel() && (!m_Document.IsModified() || SaveOver());
}

/// Keeps what the file is. Where that cannot be, asks first; then the file that was written has nothing more to
/// lose.
bool HBEditorWindow::SaveOver()
{
    const QString path = m_Document.Path();
    if (!CanBeWritten(path)) {
        m_pMessages->ShowNote(
            tr("Files like “%1” can be read only. Save the photo as another.").arg(m_Document.FileName()));
        return SaveAs();
    }
    const QStringList losses = HBLossesOfSave(m_Document.Encoding(), path);
    if (!losses.isEmpty()) {
        QMessageBox question(QMessageBox::Warning, tr("Save"),
                             tr("Saving over “%1” would lose for good:").arg(m_Document.FileName()),
                             QMessageBox::Cancel, this);
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
    options.encoding = m_Document.Encoding();
    return SaveTo(path, options);
}

bool HBEditorWindow::SaveAs()
{
    if (!MayLeavePanel())
        return false;
    QFileDialog dialog(this, tr("Save Photo As"), m_Document.Path(), KMImageFileManager::GetFilterForWrite());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    FollowChosenFormat(&dialog);
    const QFileInfo present(m_Document.Path());
    const QString suffix = CanBeWritten(m_Document.Path()) ? present.suffix() : QString("png");
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(present.completeBaseName() + '.' + suffix);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QString path = dialog.selectedFiles().value(0);
    HBPhotoOptions options;
    if (HasQuality(path)) {
        bool ok = false;
        const int quality = QInputDialog::getInt(this, tr("Save Photo As"), tr("&Quality (0 smallest, 100 best):"),
                                                 m_Quality, 0, 100, 1, &ok);
        if (!ok)
            return false;
        options.quality = m_Quality = quality;
    }
    return SaveTo(path, options);
}

/// False if that fails, which is said, or was cancelled: then the file is as it was.
bool HBEditorWindow::Write(const QString& text, const QString& path, const HBImage<>& image,
                           const HBPhotoOptions& options, QStringList* warnings, HBPhotoEncoding* encoding)
{
    QString error;
    bool written = false;
    const bool wanted = HBBusyDialog::RunCancellable(
        text.arg(QFileInfo(path).fileName()), this,
        [&](const HBJobControl* control) {
            HBPhotoOptions asking = options;
            asking.isWanted = [control] { return !control->IsCancelled(); };
            written = HBWritePhoto(path, image, asking, &error, warnings, encoding);
        },
        HBBusyDialog::Patience);
    if (!written && wanted)
        m_pMessages->ShowError(error);
    return written;
}

bool HBEditorWindow::SaveTo(const QString& path, const HBPhotoOptions& options)
{
    if (!Settle())
        return false;
    const QScopedValueRollback<bool> busy(m_Busy, true);
    const HBImage<> image = m_Document.Image();
    QStringList warnings;
    HBPhotoEncoding encoding;
    if (!Write(tr("Saving %1"), path, image, options, &warnings, &encoding))
        return false;
    m_pStrip->SetOpen(path);
    m_pStrip->Refresh(path);
    m_Recent.Add(path);
    m_Document.SetSaved(path, encoding);
    m_pMessages->hide();
    if (!warnings.isEmpty())
        m_pMessages->ShowNote(QFileInfo(path).fileName() + ": " + warnings.join("; "));
    statusBar()->showMessage(tr("Saved %1").arg(path), StatusMilliseconds);
    return true;
}

/// The document stays what it is: neither saved nor under another name.
bool HBEditorWindow::Export()
{
    if (!MayLeavePanel() || !Settle())
        return false;
    const HBImage<> image = m_Document.Image();
    HBExportDialog dialog(image, m_Document.Path(), &m_Folders, m_Remember, this);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    const QScopedValueRollback<bool> busy(m_Busy, true);
    const QString path = dialog.Path();
    QStringList warnings;
    if (!Write(tr("Exporting %1"), path, image, dialog.Options(), &warnings))
        return false;
    m_pMessages->hide();
    if (!warnings.isEmpty())
        m_pMessages->ShowNote(QFileInfo(path).fileName() + ": " + warnings.join("; "));
    statusBar()->showMessage(tr("Exported %1").arg(path), StatusMilliseconds);
    return true;
}

// ---- Recipes ----

void HBEditorWindow::SaveRecipe()
{
    if (!MayLeavePanel())
        return;
    const HBRecipe recipe = m_Document.Recipe();
    if (recipe.steps.isEmpty()) {
        m_pMessages->ShowNote(tr("There are no steps to save as a recipe yet."));
        return;
    }
    QFileDialog dialog(this, tr("Save Recipe"), m_Folders.Folder(HBFolders::Recipes, m_Document.Path()),
                       RecipeFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("json");
    if (dialog.exec() != QDialog::Accepted)
        return;
    QString error;
    // A recipe under the name of a photo would take the photo's place.
    QString path = dialog.selectedFiles().value(0);
    if (QFileInfo(path).suffix().compare("json", Qt::CaseInsensitive) != 0) {
        path += ".json";
        if (QFileInfo::exists(path)) {
            m_pMessages->ShowError(tr("%1 exists already.").arg(path));
            return;
        }
    }
    m_Folders.SetUsed(HBFolders::Recipes, path);
    if (recipe.Save(path, &error))
        statusBar()->showMessage(tr("Recipe saved. Steps: %1").arg(recipe.steps.size()), StatusMilliseconds);
    else
        m_pMessages->ShowError(error);
}

void HBEditorWindow::ChooseRecipe()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Apply Recipe"), m_Folders.Folder(HBFolders::Recipes, m_Document.Path()), RecipeFilter());
    if (path.isEmpty())
        return;
    m_Folders.SetUsed(HBFolders::Recipes, path);
    ApplyRecipe(path);
}

bool HBEditorWindow::ApplyRecipe(const QString& path)
{
    HBRecipe recipe;
    QString error;
    if (HBRecipe::Load(path, &recipe, &error))
        return ApplyRecipe(QFileInfo(path).completeBaseName(), recipe);
    m_pMessages->ShowError(error);
    return false;
}

bool HBEditorWindow::ApplyRecipe(const QString& title, const HBRecipe& recipe)
{
    if (!m_Document.IsOpen() || !MayLeavePanel())
        return false;
    HBImage<> image;
    if (!Compute(m_Document.AllSteps() + recipe.steps, &image))
        return false;
    m_Document.Append(recipe.steps, title, image);
    return true;
}

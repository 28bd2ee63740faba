// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOfferLostSteps.h"

#include "HBMessageBar.h"
#include "HBPhotoFiles.h"
#include "HBRecovery.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>

namespace
{

struct LostText
{
    Q_DECLARE_TR_FUNCTIONS(HBOfferLostSteps)
};

void Restore(const HBEditorContext& editor, HBRecovery* recovery, HBPhotoFiles* files, const HBLostStack& lost)
{
    if (!files->Open(lost.photo))
        return; // it is said why, and the steps are kept
    HBDocument* const document = editor.document;
    const bool isSame = lost.IsSamePhoto();
    const HBDocument::Steps steps = lost.StepsForFile();
    document->SetSteps(steps, LostText::tr("Restored Steps"));
    if (lost.HasPanel()) // undone by itself, as an OK is
        document->SetSteps(lost.StepsWithPanel(), HBDocument::TitleOf(lost.panel));
    if (recovery->Keep()) // this editor's own file has them now
        HBRecovery::Forget(lost);
    const bool isOff = steps.size() == lost.steps.size() && !lost.saved.isEmpty();
    if (isOff)
        editor.messages->ShowNote(
            LostText::tr("The photo was saved with other steps. Those that were restored are switched off."));
    else if (!isSame)
        editor.messages->ShowNote(
            LostText::tr("“%1” has changed since the steps were made.").arg(document->FileName()));
    else if (lost.HasPanel())
        editor.messages->ShowNote(
            LostText::tr("“%1” had not been applied yet. It is restored as if it had been; Undo takes it back.")
                .arg(HBDocument::TitleOf(lost.panel)));
}

} // namespace

void HBOfferLostSteps(const HBEditorContext& editor, HBRecovery* recovery, HBPhotoFiles* files)
{
    for (const HBLostStack& lost : recovery->FindLost()) {
        QMessageBox question(QMessageBox::Question, LostText::tr("Panel Editor"),
                             LostText::tr("The editor did not come to its end while “%1” had steps that were not "
                                          "saved (%2). Restore them?")
                                 .arg(QFileInfo(lost.photo).fileName())
                                 .arg(lost.steps.size() + (lost.HasPanel() && lost.opened < 0 ? 1 : 0)),
                             QMessageBox::NoButton, editor.window);
        question.setInformativeText(lost.photo);
        QPushButton* restore = question.addButton(LostText::tr("&Restore"), QMessageBox::AcceptRole);
        const QPushButton* discard = question.addButton(LostText::tr("&Discard"), QMessageBox::DestructiveRole);
        question.addButton(LostText::tr("&Later"), QMessageBox::RejectRole);
        question.setDefaultButton(restore);
        question.exec();
        if (question.clickedButton() == discard)
            HBRecovery::Forget(lost);
        if (question.clickedButton() == restore) {
            Restore(editor, recovery, files, lost);
            return; // any others next time: there is one photo
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWaitForSteps.h"

#include "HBBusyDialog.h"
#include "HBDocument.h"
#include "HBMessageBar.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QScopeGuard>

namespace
{

struct WaitText
{
    Q_DECLARE_TR_FUNCTIONS(HBWaitForSteps)
};

// Less than a second on any machine: no need for a dialog with a button.
constexpr qint64 QuickPixels = 20000000;

} // namespace

bool HBWaitForSteps(const HBEditorContext& editor, const QVector<HBRecipeStep>& steps, HBImage<>* image)
{
    // What is made behind would take half of the processor, and as much memory.
    HBStackResult& result = editor.document->Result();
    result.SetHeld(true);
    const auto release = qScopeGuard([&result] { result.SetHeld(false); });
    HBStackWork work = result.WorkFor(steps);
    HBStackWork::Done done;
    const auto run = [&](HBJobControl* control) { done = work.Run(control); };
    const qint64 pixels = qint64(work.photo.Width()) * work.photo.Height() * work.rest.steps.size();
    const QString text = WaitText::tr("Applying the steps");
    if (pixels <= QuickPixels)
        HBBusyDialog::Run(text, editor.window, [&] { run(nullptr); });
    else if (!HBBusyDialog::RunCancellable(text, editor.window, run))
        return false;
    if (done.image.IsEmpty()) {
        editor.messages->ShowError(done.error);
        return false;
    }
    result.Know(steps, done.image);
    *image = done.image;
    return true;
}

bool HBWaitForDocument(const HBEditorContext& editor)
{
    HBImage<> image;
    return editor.document->Result().IsUpToDate() || HBWaitForSteps(editor, editor.document->AllSteps(), &image);
}

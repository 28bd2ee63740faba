// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBScreenshot.h"

#include "HBEditorRecipes.h"
#include "HBEditorWindow.h"
#include "HBFilmStrip.h"
#include "HBMessageBar.h"
#include "HBPanelController.h"
#include "HBPresetStrip.h"
#include "HBSelectionTool.h"

#include <HBAdjustmentWidget.h>
#include <HBTileImageItem.h>
#include <KMDocumentView.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>

#include <cstdio>
#include <limits>

namespace
{

struct ScreenshotText
{
    Q_DECLARE_TR_FUNCTIONS(HBScreenshot)
};

constexpr int PatienceMilliseconds = 60000;

bool Fail(const QString& text)
{
    std::fprintf(stderr, "panel-editor: %s\n", qPrintable(text));
    return false;
}

/// Of the values that the panel has now; also if they cannot be drawn, which the message bar says then.
bool WaitForPreview(const HBPanelSession* session)
{
    QEventLoop loop;
    bool ready = session->IsUpToDate();
    const auto end = [&] {
        ready = true;
        loop.quit();
    };
    QObject::connect(session, &HBPanelSession::PreviewReady, &loop, [&] {
        if (session->IsUpToDate())
            end();
    });
    QObject::connect(session, &HBPanelSession::Troubled, &loop, end);
    if (ready)
        return true;
    QTimer::singleShot(PatienceMilliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    return ready;
}

bool ShowPanel(HBEditorWindow* window, const HBScreenshotOptions& options)
{
    QString name = options.panel;
    HBRecipe recipe;
    QString error;
    if (!options.recipe.isEmpty() && !HBRecipe::Load(options.recipe, &recipe, &error))
        return Fail(error);
    if (name.isEmpty() && !recipe.steps.isEmpty())
        name = recipe.steps.first().panel;
    if (name.isEmpty())
        return true;
    const HBPanelEntry* entry = HBFindPanel(name);
    if (!entry)
        return Fail(ScreenshotText::tr("There is no panel %1.").arg(name));
    if (!window->OpenPanel(*entry))
        return Fail(ScreenshotText::tr("A panel needs a photo."));
    for (const QString& preset : options.presets) {
        if (!window->Panels()->Presets()->Import(preset))
            return Fail(window->MessageBar()->Text());
    }
    HBPanelSession* session = window->Session();
    for (const HBRecipeStep& step : qAsConst(recipe.steps)) {
        if (step.panel != name)
            continue;
        if (!session->SetStep(step, &error))
            return Fail(options.recipe + ": " + error);
        window->SelectionTool()->SetShape(step.selection);
        break;
    }
    return WaitForPreview(session) || Fail(ScreenshotText::tr("The panel gives no result."));
}

} // namespace

bool HBTakeScreenshot(HBEditorWindow* window, const HBScreenshotOptions& options)
{
    window->View()->PictureItem()->SetPatience(std::numeric_limits<int>::max());
    window->resize(options.size);
    window->show();
    if (!window->Document().IsOpen())
        return Fail(window->MessageBar()->Text());
    if (!options.applied.isEmpty() && !window->Recipes()->Apply(options.applied))
        return Fail(window->MessageBar()->Text());
    if (!ShowPanel(window, options))
        return false;
    const auto isComplete = [window] {
        return window->FilmStrip()->IsComplete() &&
               (!window->Panels()->Presets() || window->Panels()->Presets()->IsComplete());
    };
    QElapsedTimer since;
    since.start();
    do
        QApplication::processEvents(QEventLoop::AllEvents, 20); // also the layout
    while (!isComplete() && since.elapsed() < PatienceMilliseconds);
    QApplication::processEvents();
    if (!window->grab().save(options.file, "PNG"))
        return Fail(ScreenshotText::tr("%1 cannot be written.").arg(options.file));
    return true;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// What the editor does with more than one photo, and with steps that go from one to another.

#include "HBBatchDialog.h"
#include "HBEditorActions.h"
#include "HBEditorWindow.h"
#include "HBFilmStrip.h"
#include "HBMessageBar.h"
#include "HBRecipeDialog.h"
#include "HBRecipeMenu.h"

#include <KMDocumentView.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QStandardPaths>
#include <QStatusBar>

namespace
{

constexpr char RecipeType[] = "application/x-adjustment-recipe+json";

} // namespace

void HBEditorWindow::ConnectPhotos()
{
    const HBEditorActions& a = *m_pActions;
    addDockWidget(Qt::BottomDockWidgetArea, m_pStrip);
    m_pStrip->hide();
    m_pStrip->toggleViewAction()->setVisible(false); // the View menu has one with a key
    connect(a.filmStrip, &QAction::toggled, m_pStrip, &QWidget::setVisible);
    connect(m_pStrip, &QDockWidget::visibilityChanged, this, [this] {
        // Not while the window itself is minimised.
        if (!isMinimized() && isVisible())
            m_pActions->filmStrip->setChecked(!m_pStrip->isHidden());
    });
    // Later: the list that was clicked is made anew.
    connect(
        m_pStrip, &HBFilmStrip::Chosen, this, [this](const QString& photo) { Open(photo); }, Qt::QueuedConnection);
    connect(&m_Recent, &HBRecentFiles::Chosen, this, [this](const QString& photo) { Open(photo); });
    connect(a.nextPhoto, &QAction::triggered, this, [this] { OpenNeighbour(1); });
    connect(a.previousPhoto, &QAction::triggered, this, [this] { OpenNeighbour(-1); });
    connect(a.copySteps, &QAction::triggered, this, &HBEditorWindow::CopySteps);
    connect(a.pasteSteps, &QAction::triggered, this, &HBEditorWindow::PasteSteps);
    connect(a.applyToMarked, &QAction::triggered, this, &HBEditorWindow::ApplyToMarked);

    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/recipes";
    auto* recipes = new HBRecipeMenu(own, a.recipes, this);
    recipes->photo = [this] { return m_Document.Image(); };
    connect(recipes, &HBRecipeMenu::Chosen, this, [this](const QString& path) { ApplyRecipe(path); });
    connect(recipes, &HBRecipeMenu::KeepWanted, this, [this, recipes] { KeepRecipe(recipes); });
}

bool HBEditorWindow::OpenAll(const QStringList& paths)
{
    if (paths.size() > 1) {
        m_pStrip->SetPhotos(paths);
        m_pActions->filmStrip->setChecked(true);
    }
    return Open(paths.value(0));
}

void HBEditorWindow::OpenNeighbour(int step)
{
    const QString photo = m_pStrip->Neighbour(step);
    if (!photo.isEmpty())
        Open(photo);
}

// ---- Steps from one photo to others ----

bool HBEditorWindow::TakeRecipe(HBRecipe* recipe)
{
    if (!MayLeavePanel())
        return false;
    *recipe = m_Document.Recipe();
    if (recipe->steps.isEmpty())
        m_pMessages->ShowNote(tr("There are no steps yet that could be applied to other photos."));
    return !recipe->steps.isEmpty();
}

void HBEditorWindow::CopySteps()
{
    HBRecipe recipe;
    if (!TakeRecipe(&recipe))
        return;
    auto* copied = new QMimeData;
    const QByteArray json = recipe.ToJson();
    copied->setData(RecipeType, json);
    copied->setText(QString::fromUtf8(json));
    QApplication::clipboard()->setMimeData(copied);
    statusBar()->showMessage(tr("Steps copied: %1").arg(recipe.steps.size()), StatusMilliseconds);
}

void HBEditorWindow::PasteSteps()
{
    const QMimeData* copied = QApplication::clipboard()->mimeData();
    const QByteArray json = copied && copied->hasFormat(RecipeType) ? copied->data(RecipeType)
                            : copied                                ? copied->text().toUtf8()
                                                                    : QByteArray();
    HBRecipe recipe;
    QString error;
    if (json.isEmpty() || !HBRecipe::FromJson(json, &recipe, &error))
        m_pMessages->ShowNote(tr("No steps have been copied."));
    else
        ApplyRecipe(tr("Pasted Steps"), recipe);
}

void HBEditorWindow::ApplyToMarked()
{
    HBRecipe recipe;
    if (!TakeRecipe(&recipe))
        return;
    HBBatchDialog(recipe, m_pStrip->Marked(), this).exec();
}

void HBEditorWindow::KeepRecipe(const HBRecipeMenu* recipes)
{
    HBRecipe recipe;
    if (!TakeRecipe(&recipe))
        return;
    bool given = false;
    const QString name =
        QInputDialog::getText(this, tr("Keep Recipe"), tr("&Name:"), QLineEdit::Normal, {}, &given).trimmed();
    if (!given || name.isEmpty())
        return;
    const QString path = recipes->PathOf(QString(name).replace('/', '-'));
    if (QFileInfo::exists(path) &&
        QMessageBox::question(this, tr("Keep Recipe"), tr("Replace the recipe “%1”?").arg(name)) !=
            QMessageBox::Yes)
        return;
    QDir().mkpath(recipes->Folder());
    QString error;
    if (!recipe.Save(path, &error))
        m_pMessages->ShowError(error);
}

void HBEditorWindow::PreviewRecipe(const QString& path)
{
    HBRecipe recipe;
    QString error;
    if (!HBRecipe::Load(path, &recipe, &error)) {
        m_pMessages->ShowError(error);
        return;
    }
    if (!m_Document.IsOpen()) {
        m_pMessages->ShowNote(tr("Open a photo first, which the recipe is to be applied to."));
        return;
    }
    const QString name = QFileInfo(path).fileName().section('.', 0, 0);
    HBRecipeDialog dialog(m_Document.Image(), name, recipe, this);
    if (dialog.exec() == QDialog::Accepted)
        ApplyRecipe(name, recipe);
}

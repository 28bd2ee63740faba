// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBEditorRecipes.h"

#include "HBBatchDialog.h"
#include "HBDocument.h"
#include "HBFilmStrip.h"
#include "HBFolders.h"
#include "HBMessageBar.h"
#include "HBPanelController.h"
#include "HBRecipeDialog.h"
#include "HBRecipeMenu.h"
#include "HBWaitForSteps.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QStandardPaths>

namespace
{

constexpr char RecipeType[] = "application/x-adjustment-recipe+json";

QString RecipeFilter()
{
    return HBEditorRecipes::tr("Recipes") + " (*.json);;" + HBEditorRecipes::tr("All files") + " (*)";
}

} // namespace

HBEditorRecipes::HBEditorRecipes(const HBEditorContext& editor, HBPanelController* panels, HBFilmStrip* strip,
                                 QMenu* menu)
    : m_Editor(editor)
    , m_pPanels(panels)
    , m_pStrip(strip)
    , m_pOwn(new HBRecipeMenu(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/recipes", menu,
                              this))
{
    m_pOwn->photo = [this] { return m_Editor.document->Image(); };
    connect(m_pOwn, &HBRecipeMenu::Chosen, this, [this](const QString& path) { Apply(path); });
    connect(m_pOwn, &HBRecipeMenu::KeepWanted, this, &HBEditorRecipes::Keep);
}

// ---- Files ----

void HBEditorRecipes::SaveAs()
{
    if (!m_pPanels->MayLeave())
        return;
    const HBRecipe recipe = m_Editor.document->Recipe();
    if (recipe.steps.isEmpty()) {
        m_Editor.messages->ShowNote(tr("There are no steps to save as a recipe yet."));
        return;
    }
    QFileDialog dialog(m_Editor.window, tr("Save Recipe"),
                       m_Editor.folders->Folder(HBFolders::Recipes, m_Editor.document->Path()), RecipeFilter());
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
            m_Editor.messages->ShowError(tr("%1 exists already.").arg(path));
            return;
        }
    }
    m_Editor.folders->SetUsed(HBFolders::Recipes, path);
    if (recipe.Save(path, &error))
        m_Editor.ShowDone(tr("Recipe saved. Steps: %1").arg(recipe.steps.size()));
    else
        m_Editor.messages->ShowError(error);
}

void HBEditorRecipes::ChooseFile()
{
    const QString path = QFileDialog::getOpenFileName(
        m_Editor.window, tr("Apply Recipe"),
        m_Editor.folders->Folder(HBFolders::Recipes, m_Editor.document->Path()), RecipeFilter());
    if (path.isEmpty())
        return;
    m_Editor.folders->SetUsed(HBFolders::Recipes, path);
    Apply(path);
}

bool HBEditorRecipes::Apply(const QString& path)
{
    HBRecipe recipe;
    QString error;
    if (HBRecipe::Load(path, &recipe, &error))
        return Apply(QFileInfo(path).completeBaseName(), recipe);
    m_Editor.messages->ShowError(error);
    return false;
}

bool HBEditorRecipes::Apply(const QString& title, const HBRecipe& recipe)
{
    HBDocument* const document = m_Editor.document;
    if (!document->IsOpen() || !m_pPanels->MayLeave())
        return false;
    HBImage<> image;
    if (!HBWaitForSteps(m_Editor, document->AllSteps() + recipe.steps, &image))
        return false;
    document->Append(recipe.steps, title, image);
    return true;
}

void HBEditorRecipes::Preview(const QString& path)
{
    HBRecipe recipe;
    QString error;
    if (!HBRecipe::Load(path, &recipe, &error)) {
        m_Editor.messages->ShowError(error);
        return;
    }
    if (!m_Editor.document->IsOpen()) {
        m_Editor.messages->ShowNote(tr("Open a photo first, which the recipe is to be applied to."));
        return;
    }
    const QString name = QFileInfo(path).fileName().section('.', 0, 0);
    HBRecipeDialog dialog(m_Editor.document->Image(), name, recipe, m_Editor.window);
    if (dialog.exec() == QDialog::Accepted)
        Apply(name, recipe);
}

// ---- Steps from one photo to others ----

/// The document's, after the open panel is left. False if there are none, which is said.
bool HBEditorRecipes::Take(HBRecipe* recipe)
{
    if (!m_pPanels->MayLeave())
        return false;
    *recipe = m_Editor.document->Recipe();
    if (recipe->steps.isEmpty())
        m_Editor.messages->ShowNote(tr("There are no steps yet that could be applied to other photos."));
    return !recipe->steps.isEmpty();
}

void HBEditorRecipes::Copy()
{
    HBRecipe recipe;
    if (!Take(&recipe))
        return;
    auto* copied = new QMimeData;
    const QByteArray json = recipe.ToJson();
    copied->setData(RecipeType, json);
    copied->setText(QString::fromUtf8(json));
    QApplication::clipboard()->setMimeData(copied);
    m_Editor.ShowDone(tr("Steps copied: %1").arg(recipe.steps.size()));
}

void HBEditorRecipes::Paste()
{
    const QMimeData* copied = QApplication::clipboard()->mimeData();
    const QByteArray json = copied && copied->hasFormat(RecipeType) ? copied->data(RecipeType)
                            : copied                                ? copied->text().toUtf8()
                                                                    : QByteArray();
    HBRecipe recipe;
    QString error;
    if (json.isEmpty() || !HBRecipe::FromJson(json, &recipe, &error))
        m_Editor.messages->ShowNote(tr("No steps have been copied."));
    else
        Apply(tr("Pasted Steps"), recipe);
}

void HBEditorRecipes::ApplyToMarked()
{
    HBRecipe recipe;
    if (!Take(&recipe))
        return;
    HBBatchDialog(recipe, m_pStrip->Marked(), m_Editor.window).exec();
}

/// Among the user's own, under a name that is asked for.
void HBEditorRecipes::Keep()
{
    HBRecipe recipe;
    if (!Take(&recipe))
        return;
    bool given = false;
    const QString name =
        QInputDialog::getText(m_Editor.window, tr("Keep Recipe"), tr("&Name:"), QLineEdit::Normal, {}, &given)
            .trimmed();
    if (!given || name.isEmpty())
        return;
    const QString path = m_pOwn->PathOf(QString(name).replace('/', '-'));
    if (QFileInfo::exists(path) &&
        QMessageBox::question(m_Editor.window, tr("Keep Recipe"), tr("Replace the recipe “%1”?").arg(name)) !=
            QMessageBox::Yes)
        return;
    QDir().mkpath(m_pOwn->Folder());
    QString error;
    if (!recipe.Save(path, &error))
        m_Editor.messages->ShowError(error);
}

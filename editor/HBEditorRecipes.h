// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEditorContext.h"

#include <HBRecipe.h>

#include <QObject>

class HBFilmStrip;
class HBPanelController;
class HBRecipeMenu;
class QMenu;

/// Takes the document's steps away as a recipe, to a file, the user's own ones, the clipboard or other photos, and
/// applies those that come from there, after the steps that it has. What fails is said. GUI thread.
class HBEditorRecipes : public QObject
{
    Q_OBJECT
public:
    /// \param strip whose marked photos are the other ones
    /// \param menu of the user's own recipes
    HBEditorRecipes(const HBEditorContext& editor, HBPanelController* panels, HBFilmStrip* strip, QMenu* menu);

    /// To a file that is asked for, as what ChooseFile applies.
    void SaveAs();
    void ChooseFile();
    bool Apply(const QString& path);
    /// \param title of the one entry of undo that this is
    bool Apply(const QString& title, const HBRecipe& recipe);
    /// Shows what it makes of the photo, and applies it if that is wanted.
    void Preview(const QString& path);

    void Copy();
    void Paste();
    void ApplyToMarked();

private:
    bool Take(HBRecipe* recipe);
    void Keep();

    const HBEditorContext m_Editor;
    HBPanelController* const m_pPanels;
    HBFilmStrip* const m_pStrip;
    HBRecipeMenu* const m_pOwn;
};

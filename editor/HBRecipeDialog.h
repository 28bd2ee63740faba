// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSmallPreviews.h"

#include <QDialog>

class QLabel;

/// Shows what a recipe makes of the photo, before and after beside each other, with its steps, before it is
/// applied. GUI thread.
class HBRecipeDialog : public QDialog
{
    Q_OBJECT
public:
    HBRecipeDialog(const HBImage<>& photo, const QString& name, const HBRecipe& recipe, QWidget* parent = nullptr);

private:
    HBSmallPreviews m_Previews;
    QLabel* m_pBefore;
    QLabel* m_pAfter;
};

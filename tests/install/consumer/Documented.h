// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "OwnPanel.h"

#include <HBColorTransform.h>
#include <HBPanelRow.h>
#include <HBPanelSession.h>
#include <HBPanelSetup.h>
#include <HBPickSurface.h>
#include <HBRecipe.h>
#include <HBSelectionImage.h>
#include <HBTilePainter.h>
#include <HBWheelPolicy.h>
#include <KMDocumentView.h>

#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QPixmap>

// What the code in the documents takes for granted: a piece of it is a function of a class derived from this one.

using VibranceParams = DarkenParams;
using VibranceWidget = DarkenPanel;

class MyEditor : public QMainWindow {
public:
    void Apply(const HBImage<>&) {}
    void Drop() {}

    QMainWindow* window = this;
    QLayout* layout = nullptr;
    QLabel* label = nullptr;
    QWidget* myWidget = nullptr;
    KMDocumentView* view = nullptr;
    HBPanelSession* session = nullptr;
    HBTilePainter m_Painter;
    HBImage<> picture;
    HBRecipe recipe;
    HBRecipeStep step;
    QImage mask;
    QRect rectangle;
    QRect visiblePart;
    QByteArray monitorProfile;
    QString error;
    double scale = 1;
    double zoom = 1;
};

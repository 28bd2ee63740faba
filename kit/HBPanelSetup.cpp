// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelSetup.h"

#include "HBPanelSetupOnce.h"

#include <HBMdiArea.h>
#include <HBParallel.h>
#include <HBTranslation.h>
#include <KMPixelRatioRound.h>
#include <KMTheme.h>

namespace
{

bool isSetUp = false;

}

void HBSetUpPanels(QWidget* mainWindow, QThreadPool* pool)
{
    isSetUp = true;
    KMTheme::Install();
    KMPixelRatioRound::SetPixelRatio(1.0);
    HBMdiArea::SetMainWindow(mainWindow);
    HBSetThreadPool(pool);
}

void HBSetUpPanelsOnce()
{
    if (!isSetUp)
        HBSetUpPanels();
}

bool HBSetPanelLanguage(const QLocale& language)
{
    return HBTranslatePanels(language);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBCurvesWidget.h"

#include <QFutureWatcher>
#include <QToolButton>

/// One of the three pickers: its button, the rectangle last picked, and the job that averages it.
struct HBCurvesWidget::Picker
{
    QToolButton* button;
    HBRGBA32i fallback;
    QRect rect; ///< in pixels of the photo
    QFutureWatcher<HBRGBA32i>* watcher;
    bool running = false;
    bool pending = false; ///< a rectangle was picked while the job ran
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBLatchPanel.h"
#include "HBSignalRecorder.h"
#include "HBTestImages.h"

#include <HBMdiArea.h>
#include <HBOperationProgressDlg.h>
#include <HBParallel.h>
#include <KMApplication.h>

#include <QProgressBar>
#include <QtTest>

// What the tests of the panels' common part share.

using Lines = QStringList;

/// 3 × 2 tiles.
inline const HBImage<>& Photo() {
    static const HBImage<> photo = HBTestRamp(300, 200);
    return photo;
}

inline void SetPhoto(HBAdjustmentWidget& panel) { panel.SetImage(Photo(), {}, {}, {}); }

inline QProgressBar* Bar(const QWidget& panel) { return panel.findChild<QProgressBar*>(); }

/// After each test: whatever it has started is over, and nothing of it is left on the screen.
inline void HBEndLatchTest() {
    HBThreadPool().waitForDone();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    HBMdiArea::SetMainWindow(nullptr);
    QVERIFY(!QApplication::overrideCursor());
    for (const QWidget* widget : QApplication::topLevelWidgets())
        QVERIFY(!qobject_cast<const HBOperationProgressDlg*>(widget));
}

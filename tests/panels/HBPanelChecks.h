// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelFixture.h"
#include "HBTestControl.h"

#include <HBAdjustment.h>
#include <HBParallel.h>

#include <QSlider>
#include <QSpinBox>

#include <limits>

// Checks that the tests of several panels share.

constexpr int LeastInt = std::numeric_limits<int>::min();
constexpr int MostInt = std::numeric_limits<int>::max();

/// Whether one sees where a slider stands, whatever style sheet the host gives the panel: a sheet that colours its
/// groove takes the handle away, unless it brings one. The value that it is moved to must not change the groove.
inline bool HBShowsItsValue(QSlider* slider) {
    for (const QWidget* parent = slider->parentWidget(); parent; parent = parent->parentWidget())
        if (!parent->styleSheet().isEmpty()) return false;
    const QImage before = slider->grab().toImage();
    slider->setValue(slider->maximum() - slider->maximum() / 4);
    return slider->grab().toImage() != before;
}

/// An adjustment that looks at the whole picture first stops while it looks: each lane before its next tile.
template <class Record>
void HBVerifyCancelledLook(const Record& record) {
    const HBImage<> photo = HBTestRamp(200 * 128, 1);
    for (const QRect& bounds : {QRect(), QRect(0, 0, 20, 1)}) {
        HBTestControl control;
        control.allowedQuestions = 5;
        const HBOutcome outcome = HBAdjust(record, {photo, HBTestMask(20, 1), {}, bounds}, &control);
        QCOMPARE(outcome.status, HBOutcome::Cancelled);
        QVERIFY(outcome.image.IsSameAs(photo));
        QVERIFY2(control.asked <= 6 + HBLaneCount(200), qPrintable(QString::number(control.asked)));
        QCOMPARE(control.ranges, 0); // no pixel was to be changed yet
    }
}

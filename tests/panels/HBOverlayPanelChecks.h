// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayPanel.h"
#include "HBPanelChecks.h"
#include "HBTestModes.h"

#include <QComboBox>

// What the tests of the two overlay panels share.

/// Every mode there and back, and what is not in the list.
template <class Panel>
void HBVerifyModes() {
    HBPanelFixture<Panel> f;
    auto* combo = f.template Find<QComboBox>("m_pBlendCombo");
    QCOMPARE(combo->count(), int(std::size(HBTestModes)));
    QCOMPARE(combo->maxVisibleItems(), 30);
    const auto load = [&f](int mode) {
        typename Panel::Params params;
        params.blendingMode = mode;
        f.panel.SetValue(params);
    };
    for (int row = combo->count() - 1; row >= 0; --row) {
        QCOMPARE(combo->itemText(row), QString(HBTestModes[row].text));
        combo->setCurrentIndex(row);
        QCOMPARE(int(f.panel.GetValue().blendingMode), HBTestModes[row].mode);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        load(0);
        load(HBTestModes[row].mode);
        QCOMPARE(combo->currentIndex(), row);
    }
    for (const int mode : {1, 11, 24, -1, LeastInt, MostInt}) {
        load(13);
        load(mode);
        QCOMPARE(combo->currentIndex(), 0);
        combo->setCurrentIndex(0); // shown already
        QCOMPARE(int(f.panel.GetValue().blendingMode), mode);
        QCOMPARE(f.recorder.Take(), QStringList());
        combo->setCurrentIndex(-1);
        QCOMPARE(int(f.panel.GetValue().blendingMode), 0);
        f.recorder.Take();
    }
}

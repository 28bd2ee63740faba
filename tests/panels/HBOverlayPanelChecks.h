// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayPanel.h"
#include "HBPanelChecks.h"

#include <QComboBox>

// What the tests of the two overlay panels share.

/// The modes of the list, in its order: lighten before darken.
struct HBModeRow {
    const char* text;
    int mode;
};
inline const HBModeRow HBModeRows[] = {
    {"Normal", 0},       {"Multiply", 13},       {"Screen", 14},        {"Overlay", 15},    {"Difference", 22},
    {"Exclusion", 23},   {"Lighten colors", 17}, {"Darken colors", 16}, {"Soft light", 21}, {"Hard light", 20},
    {"Color dodge", 18}, {"Color burn", 19},     {"Addition", 12}};

/// Every mode there and back, and what is not in the list.
template <class Panel>
void HBVerifyModes() {
    HBPanelFixture<Panel> f;
    auto* combo = f.template Find<QComboBox>("m_pBlendCombo");
    QCOMPARE(combo->count(), int(std::size(HBModeRows)));
    QCOMPARE(combo->maxVisibleItems(), 30);
    const auto load = [&f](int mode) {
        typename Panel::Params params;
        params.blendingMode = mode;
        f.panel.SetValue(params);
    };
    for (int row = combo->count() - 1; row >= 0; --row) {
        QCOMPARE(combo->itemText(row), QString(HBModeRows[row].text));
        combo->setCurrentIndex(row);
        QCOMPARE(int(f.panel.GetValue().blendingMode), HBModeRows[row].mode);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        load(0);
        load(HBModeRows[row].mode);
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

/// Each of the boxes stores what it shows in its own margin.
template <class Panel>
void HBVerifyMargins() {
    HBPanelFixture<Panel> f;
    const char* names[] = {"m_pLeftMargin", "m_pTopMargin", "m_pRightMargin", "m_pBottomMargin"};
    const auto margins = [&f] {
        const QRect m = f.panel.GetValue().margins;
        return QVector<int>{m.left(), m.top(), m.right(), m.bottom()};
    };
    QVector<int> expected = {5, 5, 5, 5};
    QCOMPARE(margins(), expected);
    for (int i = 0; i < 4; ++i) {
        auto* spin = f.template Find<QSpinBox>(names[i]);
        spin->setValue(100 + i);
        expected[i] = 100 + i;
        QCOMPARE(margins(), expected);
        spin->setValue(5000);
        expected[i] = 999;
        QCOMPARE(margins(), expected);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
    }
    // Kept as they are; the boxes show what they can.
    typename Panel::Params params;
    params.margins = QRect(QPoint(LeastInt, MostInt), QPoint(-1, 1000));
    f.panel.SetValue(params);
    QVERIFY(f.panel.GetValue().margins == params.margins); // a comparison that prints takes the width
    const int shown[] = {0, 999, 0, 999};
    for (int i = 0; i < 4; ++i) QCOMPARE(f.template Find<QSpinBox>(names[i])->value(), shown[i]);
    QCOMPARE(f.recorder.Take(), QStringList());
}

/// The slider and the box of the opacity.
template <class Panel>
void HBVerifyOpacity() {
    HBPanelFixture<Panel> f;
    auto* slider = f.template Find<QSlider>("m_pOpacitySlider");
    auto* spin = f.template Find<QSpinBox>("m_pOpacitySpn");
    slider->setValue(40);
    QCOMPARE(spin->value(), 40);
    spin->setValue(-5);
    QCOMPARE(slider->value(), 0);
    QCOMPARE(f.panel.GetValue().opacity, 0);
    QCOMPARE(f.recorder.Take(), HBClosingCalls(2));
    for (const int opacity : {101, -1, LeastInt, MostInt}) {
        typename Panel::Params params;
        params.opacity = opacity;
        f.panel.SetValue(params);
        QCOMPARE(f.panel.GetValue().opacity, opacity);
        QCOMPARE(slider->value(), opacity > 0 ? 100 : 0);
        QCOMPARE(spin->value(), slider->value());
    }
    QCOMPARE(f.recorder.Take(), QStringList());
}

/// There is no job: nothing to wait for, no image, and no change of a value starts anything.
template <class Panel>
void HBVerifyNoJob() {
    HBPanelFixture<Panel> f;
    f.panel.SetImage(HBTestRamp(300, 200), {}, {}, {});
    QVERIFY(HBIsIdle(f.panel));
    QVERIFY(!f.panel.IsProcessing());
    QVERIFY(f.panel.WaitForProcessingFinished(false));
    QVERIFY(f.panel.WaitForProcessingFinished(true));
    f.template Find<QSpinBox>("m_pLeftMargin")->setValue(77);
    f.panel.OnReset();
    f.panel.OnReset(); // also when nothing changes
    HBSettle();
    QVERIFY(HBIsIdle(f.panel));
    QCOMPARE(f.recorder.Take(), QStringList("SourceChanged()") + HBClosingCalls(3));
    QVERIFY(f.panel.AdjustedImage().IsEmpty());
    QCOMPARE(f.panel.SourceImage().Width(), 300);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSignalRecorder.h"
#include "HBTestImages.h"

#include <QtTest>

/// A panel with its signals recorded.
template <class Panel>
struct HBPanelFixture {
    explicit HBPanelFixture(bool dialog = true) : panel(dialog, nullptr, {}) {}

    template <class Control>
    Control* Find(const char* name) const {
        return panel.template findChild<Control*>(name);
    }
    /// Waits for the jobs that run and for a debounced one.
    bool Finish() {
        HBSettle();
        return QTest::qWaitFor([this] { return HBIsIdle(panel); }, 10000);
    }

    Panel panel;
    HBSignalRecorder recorder{&panel};
};

/// What every slot that changes a parameter emits, in this order.
inline QStringList HBClosingCalls(int times = 1, const char* valueSignal = "ValueChanged()") {
    QStringList lines;
    for (int i = 0; i < times; ++i) lines += {"AboutUserParamsChanged()", valueSignal, "DataChanged()"};
    return lines;
}

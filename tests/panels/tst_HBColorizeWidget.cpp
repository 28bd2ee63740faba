// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBColorizeWidget.h>

class tst_HBColorizeWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dialog() {
        HBPanelFixture<HBColorizeWidget> f;
        HBCheckColorVisits(
            f, f.Find<QPushButton>("m_pColor"), "Select a color", HBComparingVisits(),
            [&] { return f.panel.GetValue().color; },
            [&](const QColor& color) {
                f.panel.SetValue({color, 50});
            });
        HBCheckLostDialog<HBColorizeWidget>("m_pColor");
    }
};

HB_TEST_MAIN(tst_HBColorizeWidget)
#include "tst_HBColorizeWidget.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBTintWidget.h>

namespace {

using Params = HBTintWidget::Params;

struct Fixture : HBPanelFixture<HBTintWidget> {
    using HBPanelFixture::HBPanelFixture;
    Params Value() const { return panel.GetValue(); }

    QPushButton* black = Find<QPushButton>("m_pBlackTone");
    QPushButton* white = Find<QPushButton>("m_pWhiteTone");
};

} // namespace

class tst_HBTintWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dialogs() {
        Fixture f;
        HBCheckColorVisits(
            f, f.black, "Select a black tone", HBComparingVisits(), [&] { return f.Value().blackTone; },
            [&](const QColor& color) {
                f.panel.SetValue({color, Qt::white, 75, HBTintWidget::Average});
            });
        QCOMPARE(f.Value().whiteTone, QColor(Qt::white));
        HBCheckColorVisits(
            f, f.white, "Select a white tone", HBComparingVisits(), [&] { return f.Value().whiteTone; },
            [&](const QColor& color) {
                f.panel.SetValue({Qt::black, color, 75, HBTintWidget::Average});
            });
        QCOMPARE(f.Value().blackTone, QColor(Qt::black));
    }

    void lostDialogs() {
        HBCheckLostDialog<HBTintWidget>("m_pBlackTone");
        HBCheckLostDialog<HBTintWidget>("m_pWhiteTone");
    }
};

HB_TEST_MAIN(tst_HBTintWidget)
#include "tst_HBTintWidget.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBOverlayPanelChecks.h"
#include "HBTestMain.h"

#include <HBFontDialog.h>
#include <HBWatermarkWidget.h>

namespace {

using Panel = HBOverlayPanel<HBWatermarkWidget>;

struct Fixture : HBPanelFixture<Panel> {
    QLineEdit* text = Find<QLineEdit>("m_pText");
    QPushButton* color = Find<QPushButton>("m_pColor");
    QPushButton* font = Find<QPushButton>("m_pSelectFont");

    HBWatermarkWidget::Params Value() const { return panel.GetValue(); }
};

/// Clicks the font button; `visit` ends the dialog.
void VisitFontDialog(QPushButton* button, const std::function<void(HBFontDialog&)>& visit) {
    const HBShowsWindows silence;
    bool found = false;
    QTimer::singleShot(0, qApp, [&] {
        if (auto* dialog = qobject_cast<HBFontDialog*>(QApplication::activeModalWidget())) {
            found = true;
            visit(*dialog);
        }
    });
    button->click();
    QVERIFY(found);
}

} // namespace

class tst_HBWatermarkWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void modes() { HBVerifyModes<Panel>(); }
    /// No preview; an accepted dialog is always told, a cancelled one never.
    void colors() {
        const QColor hsv = QColor::fromHsv(120, 255, 255);
        const struct {
            QColor before;
            QColor pick;
            bool accepted;
            QColor after;
        } visits[] = {{Qt::red, Qt::blue, true, Qt::blue},
                      {Qt::red, Qt::blue, false, Qt::red},
                      {Qt::red, QColor(), true, Qt::red},
                      {hsv, QColor(), true, hsv},
                      {hsv, QColor(), false, hsv}};
        Fixture f;
        for (const auto& visit : visits) {
            HBWatermarkWidget::Params params;
            params.color = visit.before;
            f.panel.SetValue(params);
            QVERIFY(HBColorDialogUser::Open(f.color, [&](KMColorDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QString("Select text color"));
                HBColorDialogUser user(dialog);
                if (visit.pick.isValid()) user.Pick(visit.pick);
                QCOMPARE(f.Value().color, visit.before);
                user.Press(visit.accepted ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
            }));
            QCOMPARE(f.recorder.Take(), HBClosingCalls(visit.accepted ? 1 : 0));
            QCOMPARE(f.Value().color, visit.after);
            QCOMPARE(HBShownColor(f.color).rgba(), visit.after.rgba());
        }
    }

    void fonts() {
        Fixture f;
        HBWatermarkWidget::Params params;
        params.font.setPointSizeF(1e9);
        f.panel.SetValue(params);
        for (const bool accepted : {false, true}) {
            VisitFontDialog(f.font, [&](HBFontDialog& dialog) {
                QCOMPARE(dialog.windowTitle(), QString("Font parameters"));
                if (accepted)
                    dialog.accept();
                else
                    dialog.reject();
            });
            QCOMPARE(f.Value().font, params.font);
            QCOMPARE(f.recorder.Take(), HBClosingCalls(accepted ? 1 : 0));
        }
        VisitFontDialog(f.font, [&](HBFontDialog& dialog) {
            QFont other = dialog.currentFont();
            other.setPointSize(33);
            dialog.setCurrentFont(other);
            dialog.accept();
        });
        QCOMPARE(f.Value().font.pointSize(), 33);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
    }

    void destroyedInTheDialog() {
        for (const bool panelDies : {true, false}) {
            auto panel = std::make_unique<HBWatermarkWidget>(nullptr, Qt::WindowFlags());
            HBSignalRecorder recorder(panel.get());
            const auto end = [&](QDialog& dialog) {
                if (panelDies)
                    panel.reset();
                else
                    delete &dialog;
            };
            VisitFontDialog(panel->findChild<QPushButton*>("m_pSelectFont"), end);
            if (panelDies) panel = std::make_unique<HBWatermarkWidget>(nullptr, Qt::WindowFlags());
            QVERIFY(HBColorDialogUser::Open(panel->findChild<QPushButton*>("m_pColor"), end));
            QCOMPARE(!panel, panelDies);
            QCOMPARE(recorder.Take(), QStringList());
        }
    }
};

HB_TEST_MAIN(tst_HBWatermarkWidget)
#include "tst_HBWatermarkWidget.moc"

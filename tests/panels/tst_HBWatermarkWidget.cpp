// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBOverlayPanelChecks.h"
#include "HBTestMain.h"

#include <HBAngleSlider.h>
#include <HBFontDialog.h>
#include <HBWatermarkWidget.h>

#include <limits>

namespace {

using Panel = HBOverlayPanel<HBWatermarkWidget>;

struct Fixture : HBPanelFixture<Panel> {
    QLineEdit* text = Find<QLineEdit>("m_pText");
    QPushButton* color = Find<QPushButton>("m_pColor");
    QPushButton* font = Find<QPushButton>("m_pSelectFont");
    QSpinBox* across = Find<QSpinBox>("m_pHrzTiles");
    QSpinBox* down = Find<QSpinBox>("m_pVrtTiles");
    QSpinBox* angle = Find<QSpinBox>("m_pAngleSpn");
    HBAngleSlider* dial = Find<HBAngleSlider>("m_pAngleSldr");

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
private slots:
    void form();
    void controls();
    void setValue();
    void modes() { HBVerifyModes<Panel>(); }
    void margins() { HBVerifyMargins<Panel>(); }
    void opacity() { HBVerifyOpacity<Panel>(); }
    void noJob() { HBVerifyNoJob<Panel>(); }
    void texts();
    void colors();
    void fonts();
    void destroyedInTheDialog();
};

void tst_HBWatermarkWidget::form() {
    Fixture f;
    QCOMPARE(f.panel.objectName(), QString("WatermarkWidget"));
    QCOMPARE(f.panel.windowTitle(), QString("Watermark"));
    QCOMPARE(f.panel.size(), QSize(276, 353));
    QCOMPARE(HBFormLines(&f.panel),
             QStringList({
                 "gridLayout_5 0,0: QLabel label \"Text:\" right width 52",
                 "gridLayout_5 0,1 1x3: QLineEdit m_pText \"\"",
                 "gridLayout_5 0,4: QPushButton m_pColor \"\" width 22 height 22",
                 "gridLayout_5 0,5: QPushButton m_pSelectFont \"...\" width 22 height 22",
                 "gridLayout_5 1,0: QLabel label_8 \"H. count:\" right width from 52",
                 "gridLayout_5 1,1: QSpinBox m_pHrzTiles 1 9 1 width 40",
                 "gridLayout_5 1,2: QLabel label_9 \"V. count:\" right width from 52",
                 "gridLayout_5 1,3: QSpinBox m_pVrtTiles 1 9 1 width 40",
                 "gridLayout_5 2,0 1x6: QGroupBox groupBox \"Alignment\"",
                 "gridLayout_4 0,0: QLabel label_7 \"Angle:\" right width from 45",
                 "gridLayout_3 0,0: spacer 20x20 expanding",
                 "gridLayout_3 0,1: HBAngleSlider m_pAngleSldr -179 180 0 width 36 height 36",
                 "gridLayout_3 0,2: spacer 20x20 expanding",
                 "gridLayout_3 0,3: QSpinBox m_pAngleSpn -179 180 0 ° width 50 tip \"Set Angle\"",
                 "gridLayout_4 1,0: QLabel label_4 \"Margins:\" right width from 45",
                 "gridLayout 0,1: QSpinBox m_pTopMargin 0 999 5 width 50 tip \"Set Top Margin\"",
                 "gridLayout 1,0: QSpinBox m_pLeftMargin 0 999 5 width 50 tip \"Set Left Margin\"",
                 "gridLayout 1,2: QSpinBox m_pRightMargin 0 999 5 width 50 tip \"Set Right Margin\"",
                 "gridLayout 2,1: QSpinBox m_pBottomMargin 0 999 5 width 50 tip \"Set Bottom Margin\"",
                 "gridLayout_5 3,0 1x6: QGroupBox groupBox_2 \"Blending\"",
                 "gridLayout_2 0,0: QLabel label_5 \"Mode:\" right width from 45",
                 "gridLayout_2 0,1 1x3: HBCommonComboBox m_pBlendCombo at 0 of 13",
                 "gridLayout_2 1,0: QLabel label_6 \"Opacity:\" right width from 45",
                 "gridLayout_2 1,1: QSlider m_pOpacitySlider 0 100 100 width from 100",
                 "gridLayout_2 1,2: spacer 10x20",
                 "gridLayout_2 1,3: QSpinBox m_pOpacitySpn 0 100 100 %",
                 "gridLayout_5 4,0 1x6: spacer 20x20 expanding",
             }));
    QCOMPARE(
        HBMethodText(HBWatermarkWidget::staticMetaObject),
        QStringList({"ValueChanged()", "OnAnglechanged(int)", "OnTextChanged(QString)", "OnLeftMarginChanged(int)",
                     "OnRightMarginChanged(int)", "OnTopMarginChanged(int)", "OnBottomMarginChanged(int)",
                     "OnSelectFont()", "OnOpacityChanged(int)", "OnBlendingModeChanged(int)",
                     "OnHrzTilesChanged(int)", "OnVrtTilesChanged(int)", "OnSelectColor()"}));
    QCOMPARE(f.Value().text, QString("Watermark"));
    QCOMPARE(f.text->text(), QString("Watermark"));
    QCOMPARE(f.Value().color, QColor(Qt::white));
    QCOMPARE(HBShownColor(f.color), QColor(Qt::white));
    QCOMPARE(f.Value().font, QFont());
    QCOMPARE(qMakePair(f.Value().horizontalTiles, f.Value().verticalTiles), qMakePair(1, 1));
    QCOMPARE(f.Value().angle, 0);
    QCOMPARE(f.Value().opacity, 100);
    QCOMPARE(f.Value().blendingMode, 0);
}

void tst_HBWatermarkWidget::controls() {
    Fixture f;
    const struct {
        QWidget* control;
        int value;
        int angle;
        int across;
        int down;
        int changes;
    } moves[] = {{f.angle, -90, -90, 1, 1, 1},   {f.dial, 45, 45, 1, 1, 1},   {f.angle, 45, 45, 1, 1, 0},
                 {f.angle, -180, -179, 1, 1, 1}, {f.dial, 180, 180, 1, 1, 1}, {f.angle, 999, 180, 1, 1, 0},
                 {f.across, 4, 180, 4, 1, 1},    {f.down, 99, 180, 4, 9, 1},  {f.across, 0, 180, 1, 9, 1},
                 {f.across, -1, 180, 1, 9, 0}};
    for (const auto& move : moves) {
        QVERIFY(move.control->setProperty("value", move.value));
        QCOMPARE(qMakePair(f.angle->value(), f.dial->value()), qMakePair(move.angle, move.angle));
        QCOMPARE(f.Value().angle, move.angle);
        QCOMPARE(QPoint(f.across->value(), f.down->value()), QPoint(move.across, move.down));
        QCOMPARE(QPoint(f.Value().horizontalTiles, f.Value().verticalTiles), QPoint(move.across, move.down));
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
    }
}

/// The record is kept as it is; the controls show what they can.
void tst_HBWatermarkWidget::setValue() {
    const struct {
        int angle;
        int shownAngle;
        int tiles;
        int shownTiles;
    } rows[] = {{-45, -45, 3, 3},
                {-180, -179, 10, 9},
                {181, 180, 0, 1},
                {LeastInt, -179, LeastInt, 1},
                {MostInt, 180, MostInt, 9}};
    Fixture f;
    for (const auto& row : rows) {
        HBWatermarkWidget::Params params;
        params.angle = row.angle;
        params.horizontalTiles = params.verticalTiles = row.tiles;
        params.color = QColor();
        params.font.setPointSizeF(std::numeric_limits<double>::infinity());
        f.panel.SetValue(params);
        QCOMPARE(f.Value().angle, row.angle);
        QCOMPARE(QPoint(f.Value().horizontalTiles, f.Value().verticalTiles), QPoint(row.tiles, row.tiles));
        QCOMPARE(f.Value().color, QColor());
        QCOMPARE(f.Value().font, params.font);
        QCOMPARE(QPoint(f.angle->value(), f.dial->value()), QPoint(row.shownAngle, row.shownAngle));
        QCOMPARE(QPoint(f.across->value(), f.down->value()), QPoint(row.shownTiles, row.shownTiles));
        QCOMPARE(f.recorder.Take(), QStringList());
    }
}

void tst_HBWatermarkWidget::texts() {
    Fixture f;
    f.text->selectAll();
    QTest::keyClicks(f.text, "abc");
    QCOMPARE(f.Value().text, QString("abc"));
    QCOMPARE(f.recorder.Take(), HBClosingCalls(3)); // at each key
    for (const QString& text : {QString(40000, 'x'), QString("two\nlines"), QString(), QString("")}) {
        HBWatermarkWidget::Params params;
        params.text = text;
        f.panel.SetValue(params);
        QCOMPARE(f.Value().text, text); // the line may show less
        QCOMPARE(f.Value().text.isNull(), text.isNull());
        QCOMPARE(f.recorder.Take(), QStringList());
    }
}

/// No preview; an accepted dialog is always told, a cancelled one never.
void tst_HBWatermarkWidget::colors() {
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

void tst_HBWatermarkWidget::fonts() {
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

void tst_HBWatermarkWidget::destroyedInTheDialog() {
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

HB_TEST_MAIN(tst_HBWatermarkWidget)
#include "tst_HBWatermarkWidget.moc"

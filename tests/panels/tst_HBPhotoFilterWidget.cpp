// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBPhotoFilterWidget.h>

#include <QComboBox>

namespace {

struct Fixture : HBPanelFixture<HBPhotoFilterWidget> {
    using HBPanelFixture::HBPanelFixture;
    HBPhotoFilterWidget::Params Value() const { return panel.GetValue(); }

    QPushButton* color = Find<QPushButton>("m_pColor");
    QComboBox* presets = Find<QComboBox>("m_pPresetList");
};

/// The list from its second entry on; the first, "Custom", has no colour.
const char* const Presets[] = {nullptr,   "#EC8A00", "#FA9600", "#EBB113", "#006DFF", "#005DFF", "#00B5FF",
                               "#EA1A1A", "#F38417", "#F9E31C", "#19C919", "#1DCBEA", "#1D35EA", "#9B1DEA",
                               "#E318E3", "#AC7A33", "#FF0000", "#0022CD", "#008C00", "#FFD500", "#00C1B1"};
constexpr int PresetCount = int(std::size(Presets));

} // namespace

class tst_HBPhotoFilterWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void presets() {
        Fixture f;
        for (int i = 1; i < PresetCount; ++i) {
            const QColor color(Presets[i]);
            f.panel.SetValue({QColor("#123456"), 50});
            QCOMPARE(f.presets->currentIndex(), 0);
            f.presets->setCurrentIndex(i);
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
            QCOMPARE(f.Value().color, color);
            QCOMPARE(HBShownColor(f.color), color);
            // "Custom" changes nothing, nor does the preset that is current already.
            f.presets->setCurrentIndex(0);
            QCOMPARE(f.Value().color, color);
            f.presets->setCurrentIndex(i);
            f.presets->setCurrentIndex(-1);
            QCOMPARE(f.Value().color, color);
            QCOMPARE(f.recorder.Take(), QStringList());

            f.panel.SetValue({color, 50});
            QCOMPARE(f.presets->currentIndex(), i);
            f.panel.SetValue({color.toHsv(), 50}); // the same colour, otherwise written
            QCOMPARE(f.presets->currentIndex(), 0);
            QCOMPARE(f.recorder.Take(), QStringList());
        }
        // An item of the host's: what is no colour is applied as it is.
        f.presets->addItem("host", QVariant("zzz"));
        f.presets->addItem("host", QVariant("#00ff00"));
        f.presets->setCurrentIndex(PresetCount);
        QVERIFY(!f.Value().color.isValid());
        f.presets->setCurrentIndex(PresetCount + 1);
        QCOMPARE(f.Value().color, QColor("#00ff00"));
    }

    void dialog() {
        const QColor warm("#EBB113"), ones("#111111"), twos("#222222"), mixed("#123456"), red("#FF0000"), none;
        const QColor hsv = QColor::fromHsv(0, 255, 255);
        const struct {
            HBColorVisit visit;
            int preset;
        } rows[] = {
            // The list goes back to the preset from before the dialog, also when another colour is accepted, on
            // purpose.
            {{"accept what was not tried: stale preset", warm, {}, mixed, true, mixed, 1}, 3},
            {{"accept another than was tried: the preset wins", warm, {ones}, twos, true, warm, 3}, 3},
            {{"accept what was tried", warm, {ones}, none, true, ones, 1}, 0},
            {{"own colour, preset tried, another accepted", mixed, {red}, twos, true, twos, 2}, 0},
            {{"accept at once", warm, {}, none, true, warm, 0}, 3},
            {{"cancel at once", warm, {}, none, false, warm, 0}, 3},
            {{"a preset tried and accepted", warm, {red}, none, true, red, 1}, 16},
            {{"cancel", warm, {ones, red, twos}, none, false, warm, 4}, 3},
            {{"cancel, back to an own colour", mixed, {red}, none, false, mixed, 2}, 0},
            {{"back by hand, then cancel", warm, {red, warm}, none, false, warm, 2}, 3},
            {{"another colour model", hsv, {}, none, true, hsv, 0}, 0},
            {{"cancel another colour model", hsv, {ones}, none, false, hsv, 2}, 0},
        };
        Fixture f;
        for (const auto& row : rows) {
            HBCheckColorVisits(
                f, f.color, "Select a filter color", {row.visit}, [&] { return f.Value().color; },
                [&](const QColor& color) {
                    f.panel.SetValue({color, 50});
                });
            QCOMPARE(f.presets->currentIndex(), row.preset);
        }
    }

    void lostDialog() { HBCheckLostDialog<HBPhotoFilterWidget>("m_pColor"); }
};

HB_TEST_MAIN(tst_HBPhotoFilterWidget)
#include "tst_HBPhotoFilterWidget.moc"

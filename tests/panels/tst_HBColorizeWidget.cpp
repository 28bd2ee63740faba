// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
// Colorize and fill colour: a colour and a percentage, the same controls and the same rules of the dialog.
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBColorizeWidget.h>
#include <HBIterativeColorizeTransformation.h>
#include <KMFillColorWidget.h>

#include <QSlider>
#include <QSpinBox>

#include <limits>

using Run = void (*)();
Q_DECLARE_METATYPE(Run)

namespace {

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

template <class Panel>
struct Facts;

template <>
struct Facts<HBColorizeWidget> {
    static constexpr const char* spin = "m_pAmount";
    static constexpr int percent = 25; // not the form's 50
    static QColor Color() { return QColor(255, 210, 255); }
    static int Percent(const HBColorizeWidget::Params& params) { return params.amount; }
    static HBImage<> Expected(const HBImage<>& photo, const QColor& color, int percent, const HBImage<>& mask,
                              const QPoint& offset, const QRect& bounds) {
        const HBIterativeColorizeTransformation transformation(HBRGBA32i::FromRgba(color.rgba()),
                                                               qBound(0, percent, 100));
        return HBTransformed(photo, transformation, mask, offset, bounds);
    }
};

template <>
struct Facts<KMFillColorWidget> {
    static constexpr const char* spin = "m_pOpacity";
    static constexpr int percent = 100;
    static QColor Color() { return Qt::black; }
    static int Percent(const KMFillColorWidget::Params& params) { return params.opacity; }
    /// Source-over with the opacity's alpha alone, over an opaque picture.
    static HBImage<> Expected(const HBImage<>& photo, const QColor& color, int percent, const HBImage<>& mask,
                              const QPoint& offset, const QRect& bounds) {
        const int alpha = qBound(0, percent, 100) * 255 / 100;
        const auto operation = [&](HBRGBA32i pixel) {
            const auto mixed = [&](int below, int above) {
                return std::uint8_t((above * alpha + below * (255 - alpha) + 127) / 255);
            };
            return HBRGBA32i(mixed(pixel.red, color.red()), mixed(pixel.green, color.green()),
                             mixed(pixel.blue, color.blue()), 255);
        };
        return HBPlainLoop(photo, operation, mask, offset, bounds);
    }
};

template <class Panel>
struct Fixture : HBPanelFixture<Panel> {
    explicit Fixture(bool dialog = true) : HBPanelFixture<Panel>(dialog) {}
    QColor Color() const { return this->panel.GetValue().color; }
    int Percent() const { return Facts<Panel>::Percent(this->panel.GetValue()); }
    QVector<int> Shown() const { return {slider->value(), spin->value()}; }

    QPushButton* color = this->template Find<QPushButton>("m_pColor");
    QSlider* slider = this->template Find<QSlider>("horizontalSlider");
    QSpinBox* spin = this->template Find<QSpinBox>(Facts<Panel>::spin);
};

template <class Panel>
struct Checks {
    using Fact = Facts<Panel>;

    static void Controls() {
        Fixture<Panel> f;
        const struct {
            QWidget* control;
            int value;
            int percent;
            int changes;
        } moves[] = {{f.slider, 70, 70, 1}, {f.spin, 70, 70, 0}, {f.spin, -5, 0, 1}, {f.slider, 999, 100, 1}};
        for (const auto& move : moves) {
            QVERIFY(move.control->setProperty("value", move.value));
            QCOMPARE(f.Percent(), move.percent);
            QCOMPARE(f.Shown(), QVector<int>(2, move.percent));
            QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
        }
        f.panel.OnReset();
        f.panel.OnReset();
        QCOMPARE(f.recorder.Take(), HBClosingCalls(2)); // also when nothing changes
        QCOMPARE(f.Shown(), QVector<int>(2, Fact::percent));
    }

    static void Dialog() {
        Fixture<Panel> f;
        HBCheckColorVisits(
            f, f.color, "Select a color", HBComparingVisits(), [&] { return f.Color(); },
            [&](const QColor& color) {
                f.panel.SetValue({color, 50});
            });
        HBCheckLostDialog<Panel>("m_pColor");
    }

    /// Takes the record as it is, through no control.
    static void Result() {
        const QColor colors[] = {Fact::Color(),   QColor(200, 100, 50, 10),        QColor(),
                                 Qt::transparent, QColor::fromCmyk(1, 200, 30, 9), QColor::fromRgbF(7.5, -3, 0.5)};
        const HBImage<> mask = HBTestMask(80, 60);
        Fixture<Panel> f;
        for (const QColor& color : colors) {
            for (const int percent : {0, 1, 50, 100, 101, -1, Most, Least}) {
                f.panel.SetValue({color, percent});
                for (const HBImage<>& photo : {HBTestColourCube(25), HBImage<>()}) {
                    const QRect bounds = percent == 50 ? QRect(3, 4, 70, 50) : QRect();
                    f.panel.SetImage(photo, mask, QPoint(5, 6), bounds);
                    QVERIFY(f.Finish());
                    QCOMPARE(f.recorder.Count("ImageReady"), 1);
                    QCOMPARE(f.panel.AdjustedImage().ToQImage(),
                             Fact::Expected(photo, color, percent, mask, QPoint(5, 6), bounds).ToQImage());
                    if (percent <= 0) QCOMPARE(f.panel.AdjustedImage().ToQImage(), photo.ToQImage());
                    f.recorder.Take();
                }
            }
        }
    }
};

} // namespace

class tst_HBColorizeWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void check_data();
    void check();
    void fillAlpha();
};

void tst_HBColorizeWidget::check_data() {
    QTest::addColumn<Run>("run");
    const auto add = [](auto checks, const char* panel) {
        using C = decltype(checks);
        QTest::addRow("%s, controls", panel) << &C::Controls;
        QTest::addRow("%s, dialog", panel) << &C::Dialog;
        QTest::addRow("%s, result", panel) << &C::Result;
    };
    add(Checks<HBColorizeWidget>(), "colorize");
    add(Checks<KMFillColorWidget>(), "fill");
}

void tst_HBColorizeWidget::check() {
    QFETCH(Run, run);
    run();
}

/// Over nothing, the fill's own alpha is left: the opacity alone, whatever that of the colour.
void tst_HBColorizeWidget::fillAlpha() {
    for (const int colorAlpha : {255, 10, 0}) {
        for (const auto& [opacity, alpha] :
             {std::pair{100, 255}, {50, 127}, {1, 2}, {0, 0}, {999, 255}, {-9, 0}}) {
            Fixture<KMFillColorWidget> f;
            f.panel.SetValue({QColor(200, 100, 50, colorAlpha), opacity});
            f.panel.SetImage(HBImage<>(1, 1), {}, {}, {});
            QVERIFY(f.Finish());
            const HBRGBA32i filled = f.panel.AdjustedImage().PixelAt(0, 0);
            QCOMPARE(filled, alpha ? HBRGBA32i(200, 100, 50, std::uint8_t(alpha)) : HBRGBA32i(0, 0, 0, 0));
        }
    }
}

HB_TEST_MAIN(tst_HBColorizeWidget)
#include "tst_HBColorizeWidget.moc"

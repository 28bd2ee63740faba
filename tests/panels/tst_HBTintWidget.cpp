// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorDialogUser.h"
#include "HBTestMain.h"

#include <HBTintRGB32.h>
#include <HBTintWidget.h>

#include <QComboBox>
#include <QDataStream>
#include <QSlider>
#include <QSpinBox>

#include <limits>

namespace {

using Params = HBTintWidget::Params;
constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

struct Fixture : HBPanelFixture<HBTintWidget> {
    using HBPanelFixture::HBPanelFixture;
    Params Value() const { return panel.GetValue(); }

    QPushButton* black = Find<QPushButton>("m_pBlackTone");
    QPushButton* white = Find<QPushButton>("m_pWhiteTone");
    QSlider* slider = Find<QSlider>("horizontalSlider");
    QSpinBox* amount = Find<QSpinBox>("m_pAmount");
    QComboBox* type = Find<QComboBox>("m_pType");
};

/// The weighted types, in thousandths.
constexpr int Weights[][3] = {{333, 334, 333}, {300, 590, 110}, {212, 715, 73}};

/// The job's meaning, in whole numbers that are truncated twice.
HBRGBA32i Tinted(HBRGBA32i pixel, const Params& params) {
    const HBRGBA32i black = HBRGBA32i::FromRgba(params.blackTone.rgba());
    const HBRGBA32i white = HBRGBA32i::FromRgba(params.whiteTone.rgba());
    const int amount = qBound(0, params.amount, 100);
    if (params.type == HBTintWidget::RGB) HBTintRGB32(black, white, amount)(pixel);
    if (params.type < 0 || params.type > 2) return pixel;
    const int* w = Weights[params.type];
    const int y = pixel.red * w[0] + pixel.green * w[1] + pixel.blue * w[2];
    const auto mixed = [&](int level, int dark, int light) {
        const int tone = (dark * (255000 - y) + light * y) / 255000;
        return std::uint8_t((level * (255000 - amount * 2550) + tone * amount * 2550) / 255000);
    };
    return {mixed(pixel.red, black.red, white.red), mixed(pixel.green, black.green, white.green),
            mixed(pixel.blue, black.blue, white.blue), pixel.alpha};
}

} // namespace

class tst_HBTintWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void controls();
    void dialogs();
    void lostDialogs();
    void publishedLevels();
    void result_data();
    void result();
    void truncatedRecord();
};

void tst_HBTintWidget::controls() {
    Fixture f;
    const struct {
        QWidget* control;
        const char* property;
        int value;
        int amount;
        int type;
        int changes;
    } moves[] = {
        {f.slider, "value", 40, 40, 0, 1},    {f.amount, "value", 40, 40, 0, 0},
        {f.amount, "value", 999, 100, 0, 1},  {f.slider, "value", -1, 0, 0, 1},
        {f.type, "currentIndex", 2, 0, 2, 1}, {f.type, "currentIndex", 2, 0, 2, 0},
        {f.type, "currentIndex", 3, 0, 3, 1}, {f.type, "currentIndex", -1, 0, -1, 1},
        {f.type, "currentIndex", 0, 0, 0, 1},
    };
    for (const auto& move : moves) {
        QVERIFY(move.control->setProperty(move.property, move.value));
        QCOMPARE(f.Value().amount, move.amount);
        QCOMPARE(int(f.Value().type), move.type);
        QCOMPARE(qMakePair(f.slider->value(), f.amount->value()), qMakePair(move.amount, move.amount));
        QCOMPARE(f.recorder.Take(), HBClosingCalls(move.changes));
    }
}

void tst_HBTintWidget::dialogs() {
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

void tst_HBTintWidget::lostDialogs() {
    HBCheckLostDialog<HBTintWidget>("m_pBlackTone");
    HBCheckLostDialog<HBTintWidget>("m_pWhiteTone");
}

void tst_HBTintWidget::publishedLevels() {
    const Params standard;
    const auto whole = [](HBTintWidget::Type type, int amount) {
        return Params{Qt::black, Qt::white, amount, type};
    };
    const auto luma = [&] {
        Params params = standard;
        params.type = HBTintWidget::LUMA;
        return params;
    }();
    const struct {
        Params params;
        QColor pixel;
        QColor expected;
    } rows[] = {
        {whole(HBTintWidget::Average, 100), {255, 0, 0, 9}, {84, 84, 84, 9}},
        {whole(HBTintWidget::NTSC, 100), {255, 0, 0}, {76, 76, 76}},
        {whole(HBTintWidget::LUMA, 100), {255, 0, 0}, {54, 54, 54}},
        {whole(HBTintWidget::Average, 50), {255, 0, 0}, {169, 42, 42}},
        {whole(HBTintWidget::NTSC, 0), {12, 34, 56, 78}, {12, 34, 56, 78}},
        {standard, Qt::white, {191, 220, 255}},
        {standard, Qt::black, {3, 4, 6}},
        {luma, {100, 150, 200}, {97, 126, 159}},
    };
    Fixture f;
    for (const auto& row : rows) {
        HBImage<> pixel(1, 1);
        pixel.SetPixel(0, 0, HBRGBA32i::FromRgba(row.pixel.rgba()));
        f.panel.SetValue(row.params);
        f.panel.SetImage(pixel, {}, {}, {});
        QVERIFY(f.Finish());
        QCOMPARE(QColor::fromRgba(f.panel.AdjustedImage().PixelAt(0, 0).ToRgba()), row.expected);
    }
}

void tst_HBTintWidget::result_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("amount");
    for (const int type : {0, 1, 2, 3, 7, Least}) {
        for (const int amount : {0, 37, 100, Most, Least})
            QTest::addRow("type %d, %d %%", type, amount) << type << amount;
    }
}

/// Takes the record as it is, through no control.
void tst_HBTintWidget::result() {
    QFETCH(int, type);
    QFETCH(int, amount);
    const Params params{QColor::fromHsv(200, 180, 60, 0), QColor(250, 240, 180), amount, HBTintWidget::Type(type)};
    Fixture f;
    f.panel.SetValue(params);
    const HBImage<> photo = HBTestRamp(200, 131);
    const HBImage<> mask = HBTestMask(150, 90);
    const auto operation = [&](HBRGBA32i pixel) { return Tinted(pixel, params); };
    for (const QRect& bounds : {QRect(), QRect(20, 10, 120, 70)}) {
        f.panel.SetImage(photo, bounds.isValid() ? mask : HBImage<>(), QPoint(30, 40), bounds);
        QVERIFY(f.Finish());
        QCOMPARE(f.panel.AdjustedImage().ToQImage(),
                 HBPlainLoop(photo, operation, mask, QPoint(30, 40), bounds).ToQImage());
    }
    QCOMPARE(f.panel.SourceImage().ToQImage(), HBTestRamp(200, 131).ToQImage());
}

/// What was read stays; the rest is what the stream makes of nothing, not the defaults and not the old values.
void tst_HBTintWidget::truncatedRecord() {
    QByteArray bytes;
    QDataStream writer(&bytes, QIODevice::WriteOnly);
    QVERIFY(Params().Write(writer));
    const HBLogCapture log;
    QDataStream reader(bytes.left(14 + 11 + 5)); // inside the white tone
    Params params{Qt::red, Qt::green, 12, HBTintWidget::LUMA};
    reader >> params;
    QCOMPARE(params.blackTone, QColor(5, 6, 8));
    QVERIFY(params.whiteTone != QColor(Qt::green));
    QCOMPARE(params.amount, 0);
    QCOMPARE(params.type, HBTintWidget::Average);
}

HB_TEST_MAIN(tst_HBTintWidget)
#include "tst_HBTintWidget.moc"

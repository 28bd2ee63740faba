// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <HBLevelsWidget.h>
#include <HistogramWidget.h>
#include <MavuCustomSlider.h>

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>

#include <limits>

namespace {

using Params = HBLevelsWidget::Params;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

using Numbers = QVector<int>;

struct Fixture : HBPanelFixture<HBLevelsWidget> {
    using HBPanelFixture::HBPanelFixture;

    /// Of the shown channel: input points and middle, output points.
    Numbers Record() const {
        const Params p = panel.GetValue();
        const int c = p.channel;
        return {p.input[c][0], p.middle[c], p.input[c][1], p.output[c][0], p.output[c][1]};
    }
    /// What the handles show of the same.
    Numbers Handles() const {
        return {input->Value(0), input->Value(1), input->Value(2), output->Value(0), output->Value(1)};
    }
    Numbers Spins() const { return {low->value(), high->value(), lowOutput->value(), highOutput->value()}; }
    double ShownGamma() const { return panel.GetValue().gamma[panel.GetValue().channel]; }

    QComboBox* channel = Find<QComboBox>("m_pChannel");
    QPushButton* automatic = Find<QPushButton>("m_pAutoBtn");
    HistogramWidget* histogram = Find<HistogramWidget>("m_pHistogramm");
    MavuCustomSlider* input = Find<MavuCustomSlider>("m_pInputSlider");
    MavuCustomSlider* output = Find<MavuCustomSlider>("m_pOutputSlider");
    QSpinBox* low = Find<QSpinBox>("m_pLowInput");
    QDoubleSpinBox* middle = Find<QDoubleSpinBox>("m_pMiddleInput");
    QSpinBox* high = Find<QSpinBox>("m_pHighInput");
    QSpinBox* lowOutput = Find<QSpinBox>("m_pLowOutput");
    QSpinBox* highOutput = Find<QSpinBox>("m_pHighOutput");
};

} // namespace

class tst_HBLevelsWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void middleValue() {
        const struct {
            int low, high;
            double gamma;
            int middle;
        } rows[] = {
            {0, 255, 1.0, 127},       {0, 255, 9.99, 0},    {0, 255, 0.01, 255},
            {0, 255, 2.0, 113},                           // truncated toward zero: 112 if rounded down
            {0, 255, 0.5, 192},       {0, 196, 2.01, 88}, // 2.01 is 2009 thousandths: 87 if rounded
            {40, 41, 1.0, 40},        {200, 100, 1.0, 150}, {255, 0, 0.01, 0},
            {0, 255, NaN, 127},       {10, 10, 5, 10},      {Least, Least, 1, Least},
            {Most, Most, 9.99, Most},
        };
        for (const auto& row : rows)
            QCOMPARE(HBLevelsWidget::MiddleValue(row.low, row.high, row.gamma), row.middle);
        // No overflow, whatever comes.
        for (const int low : {Least, 0, Most}) {
            for (const int high : {Least, 255, Most}) {
                for (const double gamma : {-1e300, 1e300, Infinity, -Infinity, 0.0, NaN})
                    HBLevelsWidget::MiddleValue(low, high, gamma);
            }
        }
    }

    void toneValue() {
        const struct {
            int low, high, position;
            double gamma;
        } rows[] = {
            {0, 255, 0, 9.99},    {0, 255, 64, 5.46},   {0, 255, 127, 1.0},      {0, 255, 128, 0.993},
            {0, 255, 200, 0.436}, {0, 255, 255, 0.01},  {10, 12, 11, 1.0},       {10, 12, 12, 0.01},
            {10, 12, 10, 9.99},   {10, 10, 10, 1.0}, // no room for a handle
            {10, 11, 9, 1.0},     {Most, Most, 0, 1.0}, {Most, Most, Most, 1.0},
        };
        for (const auto& row : rows)
            QCOMPARE(HBLevelsWidget::ToneValue(row.low, row.high, row.position), row.gamma);
        for (const int low : {Least, 0, Most}) {
            for (const int high : {Least, 0, Most}) {
                for (const int position : {Least, 0, Most}) HBLevelsWidget::ToneValue(low, high, position);
            }
        }
        QVector<int> masks;
        for (const int channel : {0, 1, 2, 3, 4, -1}) masks += HBLevelsWidget::IndexToHistogrammChannel(channel);
        QCOMPARE(masks, QVector<int>({7, 1, 2, 4, 7, 7}));
    }

    /// The box keeps two decimals, and the handle goes where the rounded gamma is.
    void middleSettles() {
        const struct {
            int dragged;
            double gamma;
            int settled;
            int changes;
        } rows[] = {
            {129, 0.98, 130, 1}, {127, 1.0, 127, 0}, {64, 5.46, 64, 1}, {200, 0.44, 200, 1}, {0, 9.99, 0, 1}};
        for (const auto& row : rows) {
            Fixture f;
            f.input->SetValue(1, row.dragged);
            QCOMPARE(f.middle->value(), row.gamma);
            QCOMPARE(f.ShownGamma(), row.gamma);
            QCOMPARE(f.input->Value(1), row.settled);
            QCOMPARE(f.recorder.Take(), HBClosingCalls(row.changes));
        }
        Fixture f;
        f.input->SetValue(1, 0);
        f.input->SetValue(1, 128); // gamma 0.993
        QCOMPARE(f.middle->value(), 0.99);
        QCOMPARE(f.Record()[1], 129);
        QCOMPARE(f.input->Value(1), 129);
    }

    /// The slider's limits follow every change, the boxes' ranges only a change of the channel.
    void staleSpinRanges() {
        Fixture f;
        f.high->setValue(10);
        QCOMPARE(f.low->maximum(), 253);
        QCOMPARE(f.input->Maximum(0), 8);
        f.low->setValue(200);
        QCOMPARE(f.Record()[0], 200);
        QCOMPARE(f.input->Value(0), 8);
        QCOMPARE(f.input->Minimum(2), 202);
        // A handle that does not exist.
        f.recorder.Take();
        Q_EMIT f.input->ValueChanged(3, 50);
        Q_EMIT f.output->ValueChanged(2, 50);
        QCOMPARE(f.recorder.Take(), QStringList());
        f.low->setValue(10); // both points on one level: a drag of the middle must not divide by their distance
        f.recorder.Take();
        Q_EMIT f.input->ValueChanged(1, 10);
        QCOMPARE(f.middle->value(), 1.0);

        // And the other way round: the slider may go where the box cannot.
        f.panel.SetValue([] {
            Params p;
            p.input[0][1] = 100;
            return p;
        }());
        QCOMPARE(f.low->maximum(), 98);
        f.high->setValue(200);
        f.input->SetValue(0, 150);
        QCOMPARE(f.Record()[0], 98);
        f.channel->setCurrentIndex(1);
        f.channel->setCurrentIndex(0);
        QCOMPARE(f.low->maximum(), 198);
        QCOMPARE(f.input->Value(0), 98);
    }

    void channels() {
        Fixture f;
        f.panel.SetImage(HBTestRamp(9, 9), {}, {}, {});
        QVERIFY(f.Finish());
        Params params;
        for (int c = 0; c < 4; ++c) {
            params.input[c][0] = 60 * c;
            params.input[c][1] = 60 * c + 30;
            params.output[c][0] = c;
            params.output[c][1] = 200 + c;
            params.gamma[c] = 1.0 + c;
            params.middle[c] = HBLevelsWidget::MiddleValue(60 * c, 60 * c + 30, params.gamma[c]);
        }
        f.panel.SetValue(params);
        f.recorder.Take();
        // Back and forth: limits of the channel shown before must clamp nothing.
        for (const int c : {3, 0, 2, 1, 3}) {
            f.channel->setCurrentIndex(c);
            QCOMPARE(f.panel.GetValue().channel, c);
            QCOMPARE(f.histogram->Channel(), HBLevelsWidget::IndexToHistogrammChannel(c));
            QCOMPARE(f.Handles(), f.Record());
            QCOMPARE(f.Spins(), Numbers({60 * c, 60 * c + 30, c, 200 + c}));
            QCOMPARE(f.middle->value(), 1.0 + c);
            QCOMPARE(qMakePair(f.low->minimum(), f.low->maximum()), qMakePair(0, 60 * c + 28));
            QCOMPARE(qMakePair(f.high->minimum(), f.high->maximum()), qMakePair(60 * c + 2, 255));
            QCOMPARE(f.input->Maximum(0), 60 * c + 28);
            QCOMPARE(f.input->Minimum(2), 60 * c + 2);
            QCOMPARE(qMakePair(f.input->Minimum(1), f.input->Maximum(1)), qMakePair(60 * c, 60 * c + 30));
            // The image stays as it is.
            QCOMPARE(f.recorder.Take(), QStringList({"AboutUserParamsChanged()", "ValueChanged()"}));
        }
        QVERIFY(HBIsIdle(f.panel));
        params.channel = 3;
        QCOMPARE(HBStore(f.panel.GetValue()), HBStore(params));
        f.low->setValue(181);
        QCOMPARE(f.panel.GetValue().input[3][0], 181);
        QCOMPARE(f.panel.GetValue().input[0][0], 0);
        f.recorder.Take();
        f.channel->setCurrentIndex(-1);
        QCOMPARE(f.panel.GetValue().channel, 3);
        QCOMPARE(f.recorder.Take(), QStringList());
    }

    /// A record is kept as it is, but for a channel that there is not.
    void hostileRecords() {
        for (const int channel : {0, 3, 4, -1, Most, Least}) {
            Params params;
            params.channel = channel;
            for (int c = 0; c < 4; ++c) {
                params.input[c][0] = params.output[c][1] = Most;
                params.input[c][1] = params.output[c][0] = params.middle[c] = Least;
                params.gamma[c] = NaN;
            }
            Fixture f(channel == 0);
            f.panel.SetValue(params);
            if (channel < 0 || channel > 3) params.channel = 0;
            QCOMPARE(HBStore(f.panel.GetValue()), HBStore(params));
            QCOMPARE(f.middle->value(), 1.0);
        }
    }

    void hostSetsMeanwhile() {
        Fixture f;
        Params other;
        other.channel = 1;
        other.input[1][0] = 50;
        other.input[1][1] = 60;
        other.middle[1] = 55;
        for (const auto& move : {std::function<void()>([&] { f.input->SetValue(0, 40); }),
                                 {[&] { f.high->setValue(90); }},
                                 {[&] { f.output->SetValue(1, 9); }},
                                 {[&] { f.channel->setCurrentIndex(3); }}}) {
            f.panel.SetValue(Params());
            f.recorder.Take();
            f.recorder.Once("ValueChanged()", [&] { f.panel.SetValue(other); });
            move();
            QCOMPARE(f.recorder.Count("ValueChanged"), 1);
            QCOMPARE(HBStore(f.panel.GetValue()), HBStore(other));
            QCOMPARE(f.Handles(), f.Record());
        }
    }

    void autoKeepsTheChannelOnly() {
        Fixture f;
        const auto halves = [](int x, int) { return x < 50 ? qRgb(20, 20, 20) : qRgb(200, 200, 200); };
        f.panel.SetImage(HBTestPicture(100, 1, halves), {}, {}, {});
        QVERIFY(f.Finish());
        Params params;
        for (int c = 0; c < 4; ++c) {
            params.input[c][0] = params.output[c][0] = 33;
            params.gamma[c] = 2;
        }
        params.channel = 2;
        f.panel.SetValue(params);
        QVERIFY(f.automatic->isEnabled()); // as soon as there are counts, and from then on
        f.recorder.Take();
        f.automatic->click();
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        Params expected;
        expected.channel = 2;
        for (int c = 1; c < 4; ++c) {
            expected.input[c][0] = 20;
            expected.input[c][1] = 200;
            expected.middle[c] = 110;
        }
        QCOMPARE(HBStore(f.panel.GetValue()), HBStore(expected));
        QCOMPARE(f.Handles(), Numbers({20, 110, 200, 0, 255}));
        f.panel.ClearData();
        QVERIFY(f.Finish());
        QVERIFY(f.automatic->isEnabled());
    }

    /// Where two ints of the stored form stand for one field, the later one counts, and the last of the twelve for
    /// none.
    void overlappingStream() {
        QByteArray bytes("KMLevels 1.00000");
        QDataStream writer(&bytes, QIODevice::Append);
        writer << 1;
        for (int i = 1; i <= 12; ++i) writer << i;
        for (int i = 0; i < 8; ++i) writer << 20 + i;
        for (const double gamma : {1.0, 9.99, 0.01, 1.0}) writer << gamma;
        Params p;
        QDataStream reader(bytes);
        QVERIFY(p.Read(reader));
        QCOMPARE(p.channel, 1);
        QVector<int> inputs;
        QVector<int> middles;
        for (int c = 0; c < 4; ++c) {
            inputs += {p.input[c][0], p.input[c][1]};
            middles += p.middle[c];
        }
        QCOMPARE(inputs, QVector<int>({1, 2, 4, 5, 7, 8, 10, 11}));
        QCOMPARE(middles, QVector<int>({1, 4, 8, 10}));
        QCOMPARE(p.output[3][1], 27);

        // From the defaults 128 is written, which is not what the gamma of 1 gives.
        QCOMPARE(HBStore(Params()).mid(16 + 4 + 44, 4).toHex(), QByteArray("00000080"));
    }
};

HB_TEST_MAIN(tst_HBLevelsWidget)
#include "tst_HBLevelsWidget.moc"

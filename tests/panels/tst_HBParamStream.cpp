// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFailingDevice.h"
#include "HBLogCapture.h"
#include "HBPanelChecks.h"
#include "HBRecordCases.h"
#include "HBSignalRecorder.h"
#include "HBTestImages.h"
#include "HBTestMain.h"

#include <HBAdjustment.h>
#include <HBExposureWidget.h>
#include <HBGammaCorrectionWidget.h>
#include <HBPosterizeWidget.h>
#include <HistogramWidget.h>

#include <QBuffer>
#include <QDataStream>
#include <QRadioButton>
#include <QRegularExpression>

namespace {

/// The tags of all records, also of those that another version of the library wrote.
QVector<QByteArray> AllTags() {
    QVector<QByteArray> tags = {"KMDesaturate 1.00000"};
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (adjustment.tag) tags += adjustment.tag;
    }
    return tags;
}

/// The checks that every record passes, written once for all panels.
template <class Panel>
struct Checks {
    using Case = RecordCase<Panel>;
    using Params = typename Panel::Params;

    static QByteArray Fields() { return QByteArray::fromHex(Case::fields); }
    static QByteArray Stored() { return Params::Tag + Fields(); }
    static int TagSize() { return int(qstrlen(Params::Tag)); }

    static QByteArray Bytes(const Params& params) {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_5_15);
        params.Write(stream);
        return bytes;
    }
    /// What the operator leaves of a record when the tag is wrong.
    static Params AfterForeignTag() { return Case::defaultsAfterFailedRead ? Params() : Case::Sample(); }

    /// Exactly one line since the last call, in the form that log readers know.
    static void VerifyLogged(HBLogCapture& log, const char* message, int fixedLine) {
        const QVector<HBLogCapture::Line> lines = log.Take();
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines[0].context.isEmpty() || lines[0].context == "default", qPrintable(lines[0].context));
        const QString number = fixedLine > 0 ? QString::number(fixedLine) : QString("[1-9]\\d*");
        const QString source = QRegularExpression::escape(QString(Case::source).replace('\\', "\\\\"));
        const QRegularExpression form(
            QString("^\"Build date=[A-Z][a-z]{2} [ 1-3]\\d 20\\d\\d, time=\\d\\d:\\d\\d:\\d\\d\\. Line=%1, "
                    "file=\\\\\"%2\\\\\"\\. %3\"$")
                .arg(number, source, QRegularExpression::escape(message)));
        QVERIFY2(form.match(lines[0].text).hasMatch(), qPrintable(lines[0].text));
    }

    static void RoundTrip() {
        HBLogCapture log;
        QByteArray bytes;
        QDataStream writer(&bytes, QIODevice::WriteOnly);
        writer.setVersion(QDataStream::Qt_5_15);
        writer << Case::Sample() << Params() << Case::Sample();
        QCOMPARE(bytes.left(Stored().size()).toHex(' '), Stored().toHex(' '));

        QDataStream reader(bytes);
        reader.setVersion(QDataStream::Qt_5_15);
        Params first, second = Case::Sample(), third;
        reader >> first >> second >> third;
        QCOMPARE(reader.status(), QDataStream::Ok);
        QVERIFY(reader.atEnd());
        QCOMPARE(Bytes(first), Stored());
        QCOMPARE(Bytes(second), Bytes(Case::ReadBack(Params())));
        QCOMPARE(Bytes(third), Stored());
        QVERIFY(log.Take().isEmpty());
    }

    static void CallersFormat() {
        QByteArray bytes;
        QDataStream writer(&bytes, QIODevice::WriteOnly);
        writer.setVersion(QDataStream::Qt_5_0);
        writer.setByteOrder(QDataStream::LittleEndian);
        QVERIFY(Case::Sample().Write(writer));
        QDataStream reader(bytes);
        reader.setVersion(QDataStream::Qt_5_0);
        reader.setByteOrder(QDataStream::LittleEndian);
        Params params;
        QVERIFY(params.Read(reader));
        QCOMPARE(Bytes(params), Stored());
        for (const QDataStream* stream : {&writer, &reader}) {
            QCOMPARE(stream->version(), int(QDataStream::Qt_5_0));
            QCOMPARE(stream->byteOrder(), QDataStream::LittleEndian);
        }
    }

    /// Reads `bytes`, by the operator and by Read(), and expects a failure.
    static void FailToRead(const std::function<void(QDataStream&)>& attach, QDataStream::Status status,
                           bool recordKept, int consumed) {
        HBLogCapture log;
        for (const bool byOperator : {true, false}) {
            QDataStream stream;
            attach(stream);
            stream.setVersion(QDataStream::Qt_5_15);
            Params params = Case::Sample();
            if (byOperator) {
                QCOMPARE(&(stream >> params), &stream);
                VerifyLogged(log, Case::readMessage, Case::readLine);
            } else {
                QVERIFY(!params.Read(stream));
                QVERIFY(log.Take().isEmpty());
            }
            if (QTest::currentTestFailed()) return;
            if (status == QDataStream::Ok)
                QCOMPARE(stream.status(), status);
            else
                QVERIFY(stream.status() != QDataStream::Ok);
            if (recordKept)
                QCOMPARE(Bytes(params), Bytes(byOperator ? AfterForeignTag() : Case::Sample()));
            else if (byOperator && Case::defaultsAfterFailedRead)
                QCOMPARE(Bytes(params), Bytes(Params()));
            if (consumed >= 0) QCOMPARE(int(stream.device()->pos()), consumed);
        }
    }

    static void Truncation() {
        for (int size = 0; size < Stored().size(); ++size) {
            QBuffer buffer;
            buffer.setData(Stored().left(size));
            const bool inTag = size < TagSize();
            auto attach = [&](QDataStream& stream) {
                buffer.close();
                buffer.open(QIODevice::ReadOnly);
                stream.setDevice(&buffer);
            };
            FailToRead(attach, inTag ? QDataStream::Ok : QDataStream::ReadPastEnd, inTag, size);
            if (QTest::currentTestFailed()) return qWarning("with %d bytes", size);
        }
    }

    static void ForeignTag() {
        QVector<QByteArray> heads;
        for (const QByteArray& tag : AllTags()) {
            if (tag != Params::Tag && tag != Case::otherTag) heads += tag;
        }
        QCOMPARE(heads.size(), AllTags().size() - (Case::otherTag ? 2 : 1));
        for (int i = 0; i < TagSize(); ++i) {
            heads += Params::Tag;
            heads.last()[i] = heads.last().at(i) ^ 1;
        }
        heads += QByteArray(TagSize(), '\0');
        heads += QByteArray(Params::Tag).replace(' ', '\0');
        for (const QByteArray& head : heads) {
            QBuffer buffer;
            buffer.setData(head + Fields() + Fields() + QByteArray(32, '\1'));
            auto attach = [&](QDataStream& stream) {
                buffer.close();
                buffer.open(QIODevice::ReadOnly);
                stream.setDevice(&buffer);
            };
            FailToRead(attach, QDataStream::Ok, true, TagSize());
            if (QTest::currentTestFailed()) return qWarning("with the tag %s", head.constData());
        }
    }

    static void FailingDevice() {
        HBLogCapture log;
        for (int limit = 0; limit < Stored().size(); ++limit) {
            HBFailingDevice source(limit, Stored());
            QDataStream reader(&source);
            reader.setVersion(QDataStream::Qt_5_15);
            Params params = Case::Sample();
            reader >> params;
            VerifyLogged(log, Case::readMessage, Case::readLine);
            QCOMPARE(reader.status() == QDataStream::Ok, limit < TagSize());

            HBFailingDevice target(limit);
            QDataStream writer(&target);
            writer.setVersion(QDataStream::Qt_5_15);
            QCOMPARE(&(writer << Case::Sample()), &writer);
            VerifyLogged(log, Case::writeMessage, Case::writeLine);
            QCOMPARE(target.Bytes(), Stored().left(limit));
            if (QTest::currentTestFailed()) return qWarning("at byte %d", limit);
        }
        HBFailingDevice target(Stored().size());
        QDataStream writer(&target);
        writer.setVersion(QDataStream::Qt_5_15);
        QVERIFY(Case::Sample().Write(writer));
    }

    static void NoDevice() {
        FailToRead([](QDataStream&) {}, QDataStream::Ok, true, -1);
        HBLogCapture log;
        QDataStream stream;
        QVERIFY(!Case::Sample().Write(stream));
        stream << Case::Sample();
        VerifyLogged(log, Case::writeMessage, Case::writeLine);
    }

    static void BrokenStream() {
        HBLogCapture log;
        for (const auto status :
             {QDataStream::ReadPastEnd, QDataStream::ReadCorruptData, QDataStream::WriteFailed}) {
            QByteArray bytes;
            QDataStream writer(&bytes, QIODevice::WriteOnly);
            writer.setStatus(status);
            writer << Case::Sample();
            VerifyLogged(log, Case::writeMessage, Case::writeLine);
            QVERIFY(bytes.isEmpty());
            QCOMPARE(writer.status(), status);

            QDataStream reader(Stored());
            reader.setStatus(status);
            Params params;
            QVERIFY(!params.Read(reader));
            QCOMPARE(reader.status(), status);
        }
    }

    /// Fields of any content: a record is kept as it was read, and whoever consumes its values guards them.
    static void HostileFields() {
        const HBImage<> photo = HBTestRamp(20, 20);
        for (const char* pattern : {"00", "01", "7f", "80", "ff", "7fffffff", "80000000", "0fffffff"}) {
            const QByteArray unit = QByteArray::fromHex(pattern);
            for (const int kept : {0, 4, 8, Fields().size() / 2}) {
                QByteArray fields = Fields().left(kept);
                while (fields.size() < Fields().size() + 64) fields += unit;
                HBLogCapture log;
                QDataStream reader(Params::Tag + fields);
                reader.setVersion(QDataStream::Qt_5_15);
                Params params;
                if (!params.Read(reader)) continue;
                Panel panel(true, nullptr, {});
                HBSignalRecorder recorder(&panel);
                panel.SetValue(params);
                QVERIFY(recorder.Lines().isEmpty());
                if (Case::keepsAnyRecord) QCOMPARE(Bytes(panel.GetValue()), Bytes(params));
                panel.SetImage(photo, {}, {}, {});
                HBSettle();
                QCOMPARE(recorder.Count("ImageReady"), Case::hasJob ? 1 : 0);
                QVERIFY(log.Take().isEmpty());
            }
        }
    }

    static void InThePanel() {
        for (const bool dialog : {true, false}) {
            Panel panel(dialog, nullptr, {});
            QCOMPARE(Bytes(panel.GetValue()), Bytes(Params()));
            HBSignalRecorder recorder(&panel);
            panel.SetImage(HBTestRamp(20, 20), {}, {}, {});
            HBSettle();
            recorder.Take();

            // Loading is silent and starts nothing, not even later.
            panel.SetValue(Case::Sample());
            QCOMPARE(Bytes(panel.GetValue()), Stored());
            QCOMPARE(recorder.Take(), QStringList());
            QVERIFY(HBIsIdle(panel));

            // Resetting takes the user's road.
            for (const int changes : {Case::resetsFromSample, Case::resetsFromDefaults}) {
                panel.OnReset();
                QStringList expected;
                for (int i = 0; i < changes; ++i)
                    expected += {"AboutUserParamsChanged()", "ValueChanged()", "DataChanged()"};
                QCOMPARE(recorder.Take(), expected);
                QCOMPARE(Bytes(panel.GetValue()), Bytes(Params()));
                QCOMPARE(HBIsIdle(panel), changes == 0 || !dialog || !Case::hasJob);
                if (!HBIsIdle(panel)) {
                    QVERIFY(recorder.WaitFor("ProgressValueChanged(100)") || !Case::hasJob);
                    QVERIFY(QTest::qWaitFor([&] { return HBIsIdle(panel); }));
                    recorder.Take();
                }
            }
        }
    }

    /// What each box shows is what it stores: the user changes it and changes it back.
    static void Boxes() {
        HBPanelFixture<Panel> f;
        f.panel.SetValue(Case::Sample());
        for (auto* box : f.panel.template findChildren<QAbstractSpinBox*>()) {
            if (Case::hiddenBox == box->objectName()) continue;
            const QVariant value = box->property("value");
            box->stepUp();
            if (box->property("value") == value) box->stepDown();
            QVERIFY(box->property("value") != value || !box->isEnabled());
            QVERIFY(box->setProperty("value", value));
            QCOMPARE(Bytes(f.panel.GetValue()).toHex(' '), Stored().toHex(' '));
        }
    }

    /// Sources with nothing to measure or to transform. Each comes back with its size and, if not painted, its alpha.
    static void OddSources() {
        const auto plain = [](int width, int height, QRgb colour) {
            QImage image(width, height, QImage::Format_ARGB32);
            image.fill(colour);
            return HBImage<>::FromQImage(image);
        };
        HBPanelFixture<Panel> f;
        f.panel.SetValue(Case::Sample());
        for (const HBImage<>& source :
             {HBImage<>(), plain(1, 1, qRgba(200, 100, 0, 255)), plain(1, 1, 0), plain(130, 3, qRgb(0, 0, 0)),
              plain(130, 3, qRgb(255, 255, 255)), plain(130, 3, qRgba(0, 0, 255, 128))}) {
            f.recorder.Take();
            f.panel.SetImage(source, {}, {}, {});
            QVERIFY(f.Finish());
            QCOMPARE(f.recorder.Count("ImageReady"), Case::hasJob ? 1 : 0);
            if (!Case::hasJob) continue;
            const HBImage<> result = f.panel.AdjustedImage();
            QCOMPARE(QSize(result.Width(), result.Height()), QSize(source.Width(), source.Height()));
            if (!source.IsEmpty() && Case::keepsAlpha)
                QCOMPARE(qAlpha(result.ToQImage().pixel(0, 0)), qAlpha(source.ToQImage().pixel(0, 0)));
            QVERIFY(!f.panel.HasJobFailed());
        }
        f.panel.ClearData();
        QVERIFY(f.Finish());
    }

    /// Panels whose job has just been started, and ones in the midst of it.
    static void Destruction() {
        const HBImage<> photo = HBTestRamp(1500, 1500);
        for (const bool running : {false, true, false, true}) {
            HBPanelFixture<Panel> f;
            f.panel.SetValue(Case::Sample());
            f.panel.SetImage(photo, {}, {}, {});
            if (running && Case::hasJob) QVERIFY(f.recorder.WaitFor("Progress"));
        }
    }

    /// Buttons of the host beside an embedded panel are left alone, and leave the panel's alone.
    static void HostsRadios() {
        QWidget host;
        Panel panel(false, &host, {}); // first: Qt asks the buttons below a parent in their order
        QRadioButton first(&host), second(&host);
        first.setChecked(true);
        panel.SetValue(Case::Sample());
        QVERIFY(first.isChecked());
        second.setChecked(true);
        QVERIFY(!first.isChecked());
        const auto own = panel.template findChildren<QRadioButton*>();
        QVERIFY(own.isEmpty() || std::any_of(own.begin(), own.end(), [](auto* b) { return b->isChecked(); }));
    }
};

template <class Panel>
void VerifyHistogram() {
    HBPanelFixture<Panel> f;
    auto* histogram = f.template Find<HistogramWidget>("m_pHistogramm");
    QVERIFY(histogram);
    f.panel.SetImage(HBTestRamp(30, 20), {}, {}, {});
    QVERIFY(f.Finish());
    QCOMPARE(histogram->GetPixelsCount(), 600.0);
    HBSharedImage<QImage> picture;
    picture.image = QImage(7, 3, QImage::Format_RGB32);
    picture.image.fill(Qt::red);
    f.panel.AttachQImage(&picture);
    HBSettle();
    QCOMPARE(histogram->GetCount(0, 255), 21u);
    picture.Set(QImage());
    f.panel.UpdateHistogramm();
    HBSettle();
    QCOMPARE(histogram->GetPixelsCount(), 0.0);
    HBSharedImage<HBImage<>> tiled;
    tiled.image = HBTestRamp(10, 10);
    f.panel.AttachRGB32iImage(&tiled);
    HBSettle();
    QCOMPARE(histogram->GetPixelsCount(), 100.0);
    f.panel.ClearData();
    HBSettle();
    QCOMPARE(histogram->GetPixelsCount(), 0.0);
}

struct Check {
    const char* panel;
    const char* name;
    void (*run)();
};

template <class... Panels>
QVector<Check> AllChecks(PanelList<Panels...>) {
    QVector<Check> all;
    auto add = [&](auto checks, const char* panel) {
        using C = decltype(checks);
        all += {{panel, "round trip", &C::RoundTrip},
                {panel, "caller's format", &C::CallersFormat},
                {panel, "truncation", &C::Truncation},
                {panel, "foreign tag", &C::ForeignTag},
                {panel, "failing device", &C::FailingDevice},
                {panel, "no device", &C::NoDevice},
                {panel, "broken stream", &C::BrokenStream},
                {panel, "hostile fields", &C::HostileFields},
                {panel, "panel", &C::InThePanel},
                {panel, "boxes", &C::Boxes},
                {panel, "odd sources", &C::OddSources},
                {panel, "destruction", &C::Destruction},
                {panel, "host's radios", &C::HostsRadios}};
    };
    (add(Checks<Panels>(), Panels::staticMetaObject.className()), ...);
    return all;
}

} // namespace

class tst_HBParamStream : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void record_data();
    void record();
    void forms();
    void histograms() {
        VerifyHistogram<HBLevelsWidget>();
        VerifyHistogram<HBCurvesWidget>();
        VerifyHistogram<HBThresholdWidget>();
    }

private:
    const QVector<Check> m_Checks = AllChecks(RecordPanels());
};

void tst_HBParamStream::record_data() {
    QTest::addColumn<int>("check");
    for (int i = 0; i < m_Checks.size(); ++i) QTest::addRow("%s, %s", m_Checks[i].panel, m_Checks[i].name) << i;
}

void tst_HBParamStream::record() {
    QFETCH(int, check);
    m_Checks[check].run();
}

/// Titles and names as hosts know them, and what looks like a slip but is not.
void tst_HBParamStream::forms() {
    HBVerifyForm<HBBrightnessContrastWidget>("BrightnessContrastParamWidget", "Brightness and Contrast",
                                             {208, 103}, {});
    HBVerifyForm<HBGammaCorrectionWidget>(nullptr, "Gamma correction", {208, 105}, {});
    HBVerifyForm<HBExposureWidget>(nullptr, "Exposure correction", {212, 93}, {});
    HBVerifyForm<HBPosterizeWidget>(nullptr, "Posterize", {267, 63}, {});
    HBVerifyForm<HBLevelsWidget>(nullptr, "Levels", {}, {});
    HBVerifyForm<HBCurvesWidget>(nullptr, "Curves", {}, {});
    HBVerifyForm<HBThresholdWidget>(nullptr, "Threshold", {}, {});
    HBVerifyForm<HBHueSaturationWidget>("HueSaturationParamWidget", "Hue and Saturation", {223, 165},
                                        {"gridLayout 0,1: QSlider m_pHueSlider 0 360 0",
                                         "gridLayout 0,2: QSpinBox m_pHueSpin 0 359 0 width from 50"});
    HBVerifyForm<HBColorBalanceWidget>("ColorBalanceParamWidget", "Color Balance", {254, 341}, {});
    HBVerifyForm<HBWBWidget>("WBWidget", "Picture corection", {438, 288}, // spelled so on purpose
                             {"horizontalLayout 1: QCheckBox m_pEnchanced \"Advanced correction\"",
                              "gridLayout_3 1,0: QGroupBox m_pTemperatureContent \"Advanced\"",
                              "gridLayout 2,1 1x2: QSlider slider_2 0 100 0"});
    HBVerifyForm<HBTemperatureWidget>("TemperatureWidget", "Temperature correction", {310, 96},
                                      {"gridLayout 2,0: QLabel labelContrast \"Tint:\" right"});
    HBVerifyForm<HBColorEnhancerWidget>("ColorEnhancer", "Color enhancer", {390, 109}, {});
    HBVerifyForm<HBTintWidget>("TintWidget", "Tint", {276, 228}, {});
    HBVerifyForm<HBBlackAndWhiteWidget>(nullptr, "Black & White...", {}, {});
    HBVerifyForm<HBPhotoFilterWidget>("PhotoFilterWidget", "Photo filter", {276, 172}, {});
    HBVerifyForm<HBColorizeWidget>("ColorizeWidget", "Colorize", {229, 101}, {});
    HBVerifyForm<KMFillColorWidget>("FillColor", "Fill color", {522, 116}, {});
    HBVerifyForm<HBReplaceColorWidget>("ReplaceColor", "Color Replacement", {300, 246}, {});
    HBVerifyForm<HBOverlayPanel<HBSignWidget>>(
        "SignWidget", "Sign", {261, 311},
        {"gridLayout 2,1: QSpinBox m_pBottomMargin 0 999 5 tip \"Set Bottom Margin\""});
    HBVerifyForm<HBOverlayPanel<HBWatermarkWidget>>(
        "WatermarkWidget", "Watermark", {276, 353},
        {"gridLayout_3 0,1: HBAngleSlider m_pAngleSldr -179 180 0 width 36 height 36",
         "gridLayout_5 1,1: QSpinBox m_pHrzTiles 1 9 1 width 40"});
    // Misspelt on purpose; hosts connect by name.
    QVERIFY(HBWatermarkWidget::staticMetaObject.indexOfSlot("OnAnglechanged(int)") >= 0);
    QVERIFY(HBWBWidget::staticMetaObject.indexOfSlot("OnEnchanced(bool)") >= 0);
}

HB_TEST_MAIN(tst_HBParamStream)
#include "tst_HBParamStream.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFailingDevice.h"
#include "HBLogCapture.h"
#include "HBRecordPanels.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

namespace {

/// Read after this record by the operator, a stream that fails leaves the defaults, not what was there before.
const QSet<QString> DefaultsAfterFailure = {"HBHueSaturationWidget", "HBPhotoFilterWidget",  "HBColorizeWidget",
                                            "KMFillColorWidget",     "HBReplaceColorWidget", "HBSignWidget",
                                            "HBWatermarkWidget"};

/// What the streams of a record pass, whatever its fields. Its bytes and the words of its log lines are recorded
/// for tst_PanelContract.
template <class Params>
struct Streams {
    const HBAdjustment& adjustment;
    const Params sample = std::any_cast<Params>(HBDemonstration(adjustment));
    const QByteArray stored = HBStore(sample);
    const int tagSize = int(qstrlen(Params::Tag));
    HBLogCapture log{};

    /// Exactly one line since the last call, in the form that log readers know.
    void Logged(const char* verb) {
        const QVector<HBLogCapture::Line> lines = log.Take();
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines[0].context.isEmpty() || lines[0].context == "default", qPrintable(lines[0].context));
        const QRegularExpression form(
            QString("^\"Build date=[A-Z][a-z]{2} [ 1-3]\\d 20\\d\\d, time=\\d\\d:\\d\\d:\\d\\d\\. Line=[1-9]\\d*, "
                    "file=\\\\\"src\\\\\\\\%1\\\\\"\\. %2 [A-Za-z ]+ data error\\.\"$")
                .arg(adjustment.className, verb));
        QVERIFY2(form.match(lines[0].text).hasMatch(), qPrintable(lines[0].text));
    }

    /// Expects a failure, of the operator and of Read().
    /// \param consumed how many bytes it may have taken; fewer than the tag has: nothing was changed
    void FailsToRead(QIODevice* device, int consumed) {
        for (const bool byOperator : {true, false}) {
            if (device) device->reset();
            QDataStream stream;
            if (device) stream.setDevice(device);
            Params params = sample;
            if (byOperator) {
                QCOMPARE(&(stream >> params), &stream);
                Logged("Read");
            } else {
                QVERIFY(!params.Read(stream));
                QVERIFY(log.Take().isEmpty());
            }
            if (device) QCOMPARE(int(device->pos()), consumed);
            const bool foreign = consumed < tagSize || stream.status() == QDataStream::Ok;
            QCOMPARE(stream.status(), foreign ? QDataStream::Ok : QDataStream::ReadPastEnd);
            if (byOperator && DefaultsAfterFailure.contains(adjustment.className))
                QCOMPARE(HBStore(params), HBStore(Params()));
            else if (foreign)
                QCOMPARE(HBStore(params), stored);
        }
    }

    void FailsToRead(QByteArray bytes, int consumed) {
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        FailsToRead(&buffer, consumed);
        if (QTest::currentTestFailed()) qWarning("with %s", bytes.toHex().constData());
    }

    /// One record behind the other, in the caller's version and byte order, which stay.
    void ThereAndBack() {
        for (const bool own : {false, true}) {
            const auto setUp = [own](QDataStream& stream) {
                if (own) stream.setVersion(QDataStream::Qt_5_0);
                if (own) stream.setByteOrder(QDataStream::LittleEndian);
            };
            QByteArray bytes;
            QDataStream writer(&bytes, QIODevice::WriteOnly);
            setUp(writer);
            writer << sample << Params() << sample;
            if (!own) QVERIFY(bytes.startsWith(stored));
            QDataStream reader(bytes);
            setUp(reader);
            Params first, second = sample, third;
            reader >> first >> second >> third;
            QCOMPARE(reader.status(), QDataStream::Ok);
            QVERIFY(reader.atEnd());
            QCOMPARE(HBStore(first), stored);
            QCOMPARE(HBStore(second), HBStore(HBLoad<Params>(HBStore(Params()))));
            QCOMPARE(HBStore(third), stored);
            for (const QDataStream* stream : {&writer, &reader}) {
                QCOMPARE(stream->version(), own ? int(QDataStream::Qt_5_0) : QDataStream().version());
                QCOMPARE(stream->byteOrder(), own ? QDataStream::LittleEndian : QDataStream::BigEndian);
            }
        }
        QVERIFY(log.Take().isEmpty());
    }

    void ForeignTags() {
        QVector<QByteArray> heads = {QByteArray(tagSize, '\0'), QByteArray(Params::Tag).replace(' ', '\0')};
        for (const HBAdjustment& other : HBAdjustments()) {
            if (other.tag && qstrcmp(other.tag, Params::Tag) != 0) heads += other.tag;
        }
        for (int i = 0; i < tagSize; ++i) {
            heads += Params::Tag;
            heads.last()[i] = heads.last().at(i) ^ 1;
        }
        for (const QByteArray& head : heads) FailsToRead(head + stored + stored, tagSize);
    }

    void Devices() {
        FailsToRead(nullptr, 0);
        QDataStream none;
        none << sample;
        Logged("Write");
        for (int limit = 0; limit < stored.size(); ++limit) {
            FailsToRead(stored.left(limit), limit);
            HBFailingDevice source(limit, stored);
            QDataStream reader(&source);
            Params params = sample;
            reader >> params;
            Logged("Read");
            QCOMPARE(reader.status() == QDataStream::Ok, limit < tagSize);
            HBFailingDevice target(limit);
            QDataStream writer(&target);
            QCOMPARE(&(writer << sample), &writer);
            Logged("Write");
            QCOMPARE(target.Bytes(), stored.left(limit));
        }
        for (const auto status :
             {QDataStream::ReadPastEnd, QDataStream::ReadCorruptData, QDataStream::WriteFailed}) {
            QByteArray bytes;
            QDataStream writer(&bytes, QIODevice::WriteOnly);
            writer.setStatus(status);
            writer << sample;
            Logged("Write");
            QVERIFY(bytes.isEmpty() && writer.status() == status);
            QDataStream reader(stored);
            reader.setStatus(status);
            Params params;
            QVERIFY(!params.Read(reader));
            QCOMPARE(reader.status(), status);
        }
    }
};

} // namespace

class tst_EveryRecord : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void Streams_data() {
        QTest::addColumn<QByteArray>("name");
        for (const HBAdjustment& adjustment : HBAdjustments()) {
            if (adjustment.tag) QTest::newRow(adjustment.className) << QByteArray(adjustment.className);
        }
    }
    void Streams() {
        QFETCH(QByteArray, name);
        QVERIFY(HBRecordPanels::Visit(name, [&](auto* panel) {
            ::Streams<typename std::remove_pointer_t<decltype(panel)>::Params> streams{*HBFindAdjustment(name)};
            streams.ThereAndBack();
            streams.ForeignTags();
            streams.Devices();
        }));
    }
};

HB_TEST_MAIN(tst_EveryRecord)
#include "tst_EveryRecord.moc"

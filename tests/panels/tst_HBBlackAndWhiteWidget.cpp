// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogCapture.h"
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBBlackAndWhiteWidget.h>

#include <QDataStream>
#include <QDoubleSpinBox>
#include <QRadioButton>

namespace {

using Params = HBBlackAndWhiteWidget::Params;

/// Radio button, slot and weights of each type; those of "Custom" are the test's own.
const struct TypeRow {
    const char* button;
    const char* slot;
    float r, g, b;
} Types[] = {
    {"m_pAverage", "OnAverage", 0.333f, 0.333f, 0.333f},
    {"m_pLuminance", "OnLuminance", 0.212671f, 0.71516f, 0.072169f},
    {"m_pD65", "OnD65", 0.212671f, 0.71516f, 0.072169f},
    {"m_pNTSC", "OnNTSC", 0.3f, 0.59f, 0.11f},
    {"m_pCIE", "OnCIE", 0.212671f, 0.71516f, 0.072169f},
    {"m_pCustom", "OnCustom", 0.25f, 0.5f, 0.125f},
};

struct Fixture : HBPanelFixture<HBBlackAndWhiteWidget> {
    using HBPanelFixture::HBPanelFixture;
    Params Value() const { return panel.GetValue(); }
    /// Which radio button is checked; -1 unless exactly one is.
    int Checked() const {
        int checked = -1;
        for (int i = 0; i < 6; ++i) {
            if (Radio(i)->isChecked()) checked = checked < 0 ? i : 99;
        }
        return checked > 5 ? -1 : checked;
    }
    QRadioButton* Radio(int type) const { return Find<QRadioButton>(Types[type].button); }
    QString Spins() const { return QString("%1 %2 %3").arg(red->text(), green->text(), blue->text()); }
    QVector<bool> Enabled() const { return {red->isEnabled(), green->isEnabled(), blue->isEnabled()}; }

    QDoubleSpinBox* red = Find<QDoubleSpinBox>("m_pRed");
    QDoubleSpinBox* green = Find<QDoubleSpinBox>("m_pGreen");
    QDoubleSpinBox* blue = Find<QDoubleSpinBox>("m_pBlue");
};

const QVector<bool> On(3, true);
const QVector<bool> Off(3, false);

QByteArray Fields(int type, float weight) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint32(type) << weight << weight << weight;
    return bytes;
}

} // namespace

class tst_HBBlackAndWhiteWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// From each type to each other one: told once, weights shown, the user's own ones kept.
    void types() {
        const char* shown[] = {"0.333 0.333 0.333", "0.213 0.715 0.072", "0.213 0.715 0.072",
                               "0.300 0.590 0.110", "0.213 0.715 0.072", "0.250 0.500 0.125"};
        Fixture f;
        for (int from = 0; from < 6; ++from) {
            for (int to = 0; to < 6; ++to) {
                f.panel.SetValue({0.25f, 0.5f, 0.125f, from});
                QCOMPARE(f.Spins(), QString(shown[from]));
                f.Radio(to)->click();
                QCOMPARE(f.recorder.Take(), HBClosingCalls(from == to ? 0 : 1));
                QCOMPARE(f.Value().type, to);
                QCOMPARE(f.Checked(), to);
                QCOMPARE(f.Spins(), QString(shown[to]));
                QCOMPARE(f.Enabled(), to == 5 ? On : Off);
                QCOMPARE(f.Value().GetR(), Types[to].r);
                QCOMPARE(f.Value().GetG(), Types[to].g);
                QCOMPARE(f.Value().GetB(), Types[to].b);
                QCOMPARE(f.Value().r, 0.25f);
            }
        }
        for (const TypeRow& row : Types) {
            QVERIFY(QMetaObject::invokeMethod(&f.panel, row.slot, Q_ARG(bool, false)));
            QCOMPARE(f.recorder.Take(), QStringList());
            QVERIFY(QMetaObject::invokeMethod(&f.panel, row.slot, Q_ARG(bool, true)));
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
        }
    }

    void customWeights() {
        Fixture f;
        f.Radio(5)->click();
        QCOMPARE(f.Spins(), QString("0.333 0.333 0.333"));
        f.recorder.Take();
        f.red->setValue(0.7);
        f.green->setValue(1.5);
        f.blue->setValue(-1);
        f.blue->setValue(0);
        QCOMPARE(f.recorder.Take(), HBClosingCalls(3));
        QCOMPARE(f.Value().r, 0.7f);
        QCOMPARE(f.Value().g, 1.0f);
        QCOMPARE(f.Value().b, 0.0f);
        f.Radio(3)->click();
        f.Radio(5)->click();
        QCOMPARE(f.Spins(), QString("0.700 1.000 0.000"));
        f.panel.OnReset();
        QCOMPARE(f.Checked(), 0);
        QCOMPARE(f.Value().r, 0.333f);
        QCOMPARE(f.Enabled(), Off);
        // The boxes of a type that does not exist are live.
        f.recorder.Take();
        f.panel.SetValue({0.1f, 0.2f, 0.3f, 77});
        f.red->setValue(0.5);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
        QCOMPARE(f.Value().r, 0.5f);
        QCOMPARE(f.Value().type, 77);
    }

    /// The older tag is three bytes shorter; what stands behind either record must still be found.
    void eitherTag() {
        HBLogCapture log;
        const QByteArray tags[] = {"KMDesaturate 1.00000", "KMBlackAndWhite 1.00000"};
        for (const QByteArray& first : tags) {
            for (const QByteArray& second : tags) {
                QDataStream stream(first + Fields(3, 0.5f) + second + Fields(4, 0.25f) + "end");
                Params a, b;
                stream >> a >> b;
                QCOMPARE(a.type, 3);
                QCOMPARE(a.g, 0.5f);
                QCOMPARE(b.type, 4);
                QCOMPARE(b.b, 0.25f);
                QCOMPARE(stream.device()->readAll(), QByteArray("end"));
                QCOMPARE(stream.status(), QDataStream::Ok);
            }
        }
        QVERIFY(log.Take().isEmpty());

        // A foreign tag costs 23 bytes, one that merely looks like the older one too; a truncated older record
        // fails.
        const struct {
            QByteArray bytes;
            int consumed;
            QDataStream::Status status;
        } rows[] = {
            {"KMDesaturate 1.00001" + Fields(3, 0.5f), 23, QDataStream::Ok},
            {"KMDesaturate 1.0000" + QByteArray("0 ") + Fields(3, 0.5f), 20 + 28, QDataStream::Ok},
            {"KMPhotoFilter 1.00000" + QByteArray(40, 'x'), 23, QDataStream::Ok},
            {"KMDesaturate 1.0000", 19, QDataStream::Ok},
            {"KMDesaturate 1.00000", 20, QDataStream::ReadPastEnd},
            {"KMDesaturate 1.00000" + Fields(3, 0.5f).left(27), 47, QDataStream::ReadPastEnd},
            {"KMBlackAndWhite 1.000", 21, QDataStream::Ok},
        };
        for (const auto& row : rows) {
            QDataStream stream(row.bytes);
            Params params{0.1f, 0.2f, 0.3f, 2};
            const bool read = params.Read(stream);
            QCOMPARE(int(stream.device()->pos()), row.consumed);
            QCOMPARE(stream.status(), row.status);
            QCOMPARE(read, row.consumed == 48);
            if (row.consumed < 24 && row.status == QDataStream::Ok) QCOMPARE(params.type, 2);
            if (row.consumed == 47) { // the rest is what the stream makes of nothing
                QCOMPARE(params.type, 3);
                QCOMPARE(params.g, 0.5f);
                QCOMPARE(params.b, 0.0f);
            }
        }
    }

    /// Single precision in the record, whatever the width it is stored in.
    void weightsOfStoredRecords() {
        for (const auto precision : {QDataStream::SinglePrecision, QDataStream::DoublePrecision}) {
            QByteArray bytes;
            QDataStream writer(&bytes, QIODevice::WriteOnly);
            writer.setFloatingPointPrecision(precision);
            QVERIFY(Params().Write(writer));
            QCOMPARE(bytes.size(), precision == QDataStream::SinglePrecision ? 39 : 51);
            if (precision == QDataStream::DoublePrecision)
                QCOMPARE(bytes.mid(27, 8).toHex(), QByteArray("3fd54fdf40000000"));
            QDataStream reader(bytes);
            reader.setFloatingPointPrecision(precision);
            Params params{9, 9, 9, 9};
            QVERIFY(params.Read(reader));
            QCOMPARE(params.r, 0.333f);
            QCOMPARE(params.b, 0.333f);
        }
    }
};

HB_TEST_MAIN(tst_HBBlackAndWhiteWidget)
#include "tst_HBBlackAndWhiteWidget.moc"

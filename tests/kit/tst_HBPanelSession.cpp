// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBBrightnessContrast.h>
#include <HBLatchPanel.h>
#include <HBOperationProgressDlg.h>
#include <HBPanelJob.h>
#include <HBPanelSession.h>
#include <HBSelectionImage.h>
#include <HBSignalRecorder.h>
#include <HBSignWidget.h>
#include <KMApplication.h>

#include <QElapsedTimer>
#include <QSpinBox>

namespace {

/// Paints every pixel in the red of its value, tile by tile through a gate.
class ValuePanel : public HBAdjustmentWidget {
public:
    explicit ValuePanel(bool dialog) : HBAdjustmentWidget(dialog, nullptr, {}) {}
    void SetValue(int value) {
        m_Value = value;
        Q_EMIT AboutUserParamsChanged();
        Q_EMIT DataChanged();
    }
    /// As a host does with a stored value.
    void Load(int value) {
        const Mute mute(this);
        m_Value = value;
    }

private:
    const std::shared_ptr<HBTestGate> m_pGate =
        std::make_shared<HBTestGate>([control = JobData().control] { return control->IsCancelled(); });

public:
    HBTestGate& gate = *m_pGate;
    int starts = 0;
    bool fails = false;

private:
    struct Paint {
        std::shared_ptr<HBTestGate> gate;
        int value;
        HBRGBA32i* pixels = nullptr;

        void SetProcessingBuffer(HBRGBA32i* buffer) { pixels = buffer; }
        void operator()(int first, int count) const {
            if (first == 0) gate->Pass(); // each tile once
            std::fill_n(pixels + first, count, HBRGBA32i(std::uint8_t(value), 0, 0));
        }
    };
    struct Data : HBJobData {
        int value;
        bool fails;
        std::shared_ptr<HBTestGate> gate;
    };

    void Reset() override {}
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override {
        ++starts;
        HBStartJob(watcher, &Process, Data{JobData(), m_Value, fails, m_pGate});
    }
    static HBImage<> Process(Data job) {
        if (job.fails) job.control->failed = true;
        return HBRunTransformation(job, Paint{job.gate, job.value});
    }

    int m_Value = 1;
};

HBAdjustment ValueAdjustment() {
    HBAdjustment adjustment{};
    adjustment.className = "ValuePanel";
    adjustment.group = "Test";
    adjustment.title = "Value";
    adjustment.save = [](const std::any&) { return QJsonObject{{"value", 1}}; };
    adjustment.restore = [](const QJsonObject&, std::any*, QString*) { return true; };
    return adjustment;
}
const HBAdjustment adjustment = ValueAdjustment();

HBPanelEntry ValueEntry() {
    HBPanelEntry row{};
    row.adjustment = &adjustment;
    row.className = adjustment.className;
    row.create = [](bool dialog, QWidget*) -> HBAdjustmentWidget* { return new ValuePanel(dialog); };
    row.get = [](const HBAdjustmentWidget&) { return std::any(); };
    row.set = [](HBAdjustmentWidget&, const std::any&) {};
    return row;
}
const HBPanelEntry entry = ValueEntry();

/// A session on a photo of 3 x 3 tiles, and what it has told.
struct Fixture {
    HBPanelSession* session = new HBPanelSession(entry);
    QPointer<ValuePanel> panel = static_cast<ValuePanel*>(session->Panel());
    QVector<int> previews; ///< the red of each
    QVector<int> accepted;
    int rejected = 0;
    int resumed = 0;
    int failures = 0;

    Fixture() {
        QObject::connect(session, &HBPanelSession::PreviewReady, session,
                         [this](const HBImage<>& image) { previews.append(image.PixelAt(299, 299).red); });
        QObject::connect(session, &HBPanelSession::Accepted, session,
                         [this](const HBImage<>& image) { accepted.append(image.PixelAt(299, 299).red); });
        QObject::connect(session, &HBPanelSession::Rejected, session, [this] { ++rejected; });
        QObject::connect(session, &HBPanelSession::Resumed, session, [this](const QString& reason) {
            ++resumed;
            failures += !reason.isEmpty();
        });
    }
    ~Fixture() { delete session; }

    void SetSource() { session->SetTarget({HBImage<>(300, 300)}); }
    /// Up to the first preview.
    void Open() {
        SetSource();
        QTRY_COMPARE(previews, QVector<int>{1});
    }
    /// The first job is at work, and stays so.
    void HoldFirst() {
        panel->gate.Close();
        SetSource();
        QVERIFY(panel->gate.WaitForHeld());
    }
    /// The second one, for the value 7.
    void OpenAndHold() {
        Open();
        panel->gate.Close();
        panel->SetValue(7);
        QTRY_COMPARE(panel->starts, 2);
        QVERIFY(panel->gate.WaitForHeld());
    }
};

} // namespace

class TestHBPanelSession : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// An overlay is drawn as it is edited; OK takes the last change, and refuses one that cannot be drawn.
    void OverlaysAreDrawn() {
        const HBPanelEntry* watermark = HBFindPanel("HBWatermarkWidget");
        QVERIFY(watermark && watermark->draw);
        HBPanelSession session(*watermark);
        QVector<HBImage<>> previews, accepted;
        QObject::connect(&session, &HBPanelSession::PreviewReady,
                         [&](const HBImage<>& image) { previews << image; });
        QObject::connect(&session, &HBPanelSession::Accepted, [&](const HBImage<>& image) { accepted << image; });
        const HBImage<> photo(300, 200);
        session.SetTarget({photo});
        QTRY_COMPARE(previews.size(), 1);
        QVERIFY(previews.first().ToQImage() != photo.ToQImage());
        session.Panel()->findChild<QSpinBox*>("m_pOpacitySpn")->setValue(0);
        session.Accept(); // within the time in which changes are gathered
        QTRY_COMPARE(accepted.size(), 1);
        QCOMPARE(accepted.first().ToQImage(), photo.ToQImage());

        HBPanelSession sign(*HBFindPanel("HBSignWidget"));
        HBSignWidget::Params params;
        params.fileName = "/no/such/stamp.png";
        qobject_cast<HBSignWidget*>(sign.Panel())->SetValue(params);
        QString reason;
        QObject::connect(&sign, &HBPanelSession::Resumed, [&](const QString& text) { reason = text; });
        sign.SetTarget({photo});
        sign.Accept();
        QTRY_VERIFY(reason.contains("stamp.png"));
        QVERIFY(sign.Widget()->isEnabled());
    }

    void init() { KMApplication::SetProgressTimeout(100); }

    /// At 24 megapixels, right after a change by hand or behind everybody's back: the final image comes with the
    /// end of its job. Whoever waited for the time-out instead would wait for an hour.
    void theFinalImageComesWithItsJob() {
        KMApplication::SetProgressTimeout(3600000);
        QImage grey(6000, 4000, QImage::Format_RGB32);
        grey.fill(qRgb(100, 100, 100));
        const HBImage<> photo = HBImage<>::FromQImage(grey);
        grey = QImage();
        HBBrightnessContrastParams lighter;
        lighter.brightness = 20;
        for (const bool behind : {false, true}) {
            HBPanelSession session(*HBFindPanel("HBBrightnessContrastWidget"));
            HBImage<> final;
            connect(&session, &HBPanelSession::Accepted, this, [&](const HBImage<>& image) { final = image; });
            session.SetTarget({photo});
            QTRY_VERIFY_WITH_TIMEOUT(session.IsUpToDate(), 60000);
            qint64 job = 0; // the slowest, of a machine that has other things to do
            QElapsedTimer time;
            for (int i = 0; i < 3; ++i) {
                time.start();
                QVERIFY(HBAdjust(lighter, {photo}).IsWhole());
                job = qMax(job, time.elapsed());
            }
            if (behind)
                session.Entry().set(*session.Panel(), lighter);
            else
                session.Panel()->findChild<QSpinBox*>("m_pBrightnessSpin")->setValue(20);
            time.start();
            session.Accept();
            QTRY_VERIFY_WITH_TIMEOUT(!final.IsEmpty(), 60000);
            QVERIFY2(time.elapsed() < 20 * job + 2000,
                     qPrintable(QString("%1 ms, the job %2 ms").arg(time.elapsed()).arg(job)));
            QCOMPARE(final.PixelAt(5999, 3999).ToRgba(), qRgb(120, 120, 120));
        }
    }

    /// While a control moves over 24 megapixels, pictures come about as fast as jobs could give them, or faster.
    void aDragIsFollowed() {
        QImage grey(6000, 4000, QImage::Format_RGB32);
        grey.fill(qRgb(100, 100, 100));
        const HBImage<> photo = HBImage<>::FromQImage(grey);
        grey = QImage();
        HBPanelSession session(*HBFindPanel("HBBrightnessContrastWidget"));
        HBImage<> preview;
        int pictures = 0;
        connect(&session, &HBPanelSession::SightReady, this, [&] { ++pictures; });
        connect(&session, &HBPanelSession::PreviewReady, this, [&](const HBImage<>& image) {
            ++pictures;
            preview = image;
        });
        session.SetSight(QRect(0, 0, 6000, 4000), 0.2);
        session.SetTarget({photo});
        QTRY_VERIFY_WITH_TIMEOUT(session.IsUpToDate(), 60000);
        auto* box = session.Panel()->findChild<QSpinBox*>("m_pBrightnessSpin");
        QElapsedTimer time;
        const auto job = [&] {
            time.start();
            return HBAdjust(HBBrightnessContrastParams{50, 0}, {photo}).IsWhole() ? time.elapsed() : 0;
        };
        const qint64 before = job();
        QVERIFY(before > 0);
        pictures = 0;
        time.start();
        for (int moved = 1; time.elapsed() < 20 * before; ++moved) {
            box->setValue(moved % 100);
            QTest::qWait(8);
        }
        const double dragged = double(time.elapsed());
        const double jobs = dragged / qMax(before, job()); // others may use the machine, too
        QVERIFY2(pictures >= jobs / 2, qPrintable(QString("%1 in the time of %2 jobs").arg(pictures).arg(jobs)));
        box->setValue(20);
        QTRY_VERIFY_WITH_TIMEOUT(session.IsUpToDate(), 60000);
        QCOMPARE(preview.PixelAt(5999, 3999).ToRgba(), qRgb(120, 120, 120));
    }

    void previewsEachChange() {
        Fixture f;
        f.Open();
        QVERIFY(!f.session->IsChanged());
        f.panel->SetValue(7);
        QVERIFY(f.session->IsChanged());
        QTRY_COMPARE(f.previews, (QVector<int>{1, 7}));
        f.session->Accept();
        QCOMPARE(f.accepted, QVector<int>{7}); // nothing to wait for
        QVERIFY(!f.session->IsFinishing());
    }

    void okTakesAChangeThatIsStillDebounced() {
        Fixture f;
        f.Open();
        f.panel->SetValue(7);
        Q_EMIT f.panel->Ok();
        QVERIFY(f.session->IsFinishing() && !f.panel->isEnabled() && f.accepted.isEmpty());
        QTRY_COMPARE(f.accepted, QVector<int>{7});
        QCOMPARE(f.panel->starts, 2);
    }

    void okTakesAValueThatWasSetBehindTheImage() {
        for (const bool running : {false, true}) {
            Fixture f;
            if (running)
                f.HoldFirst();
            else
                f.Open();
            f.panel->Load(7);
            f.session->Accept();
            f.panel->gate.Open();
            QTRY_COMPARE(f.accepted, QVector<int>{7});
        }
    }

    /// The wait ends with a job that had become obsolete, and the next one has only begun.
    void okOutlastsAnObsoleteJob() {
        Fixture f;
        f.HoldFirst();
        f.session->Accept();
        f.panel->Load(7);
        const HBProgressDialogWatch watch([&](HBOperationProgressDlg* dialog) {
            f.panel->gate.Open();
            dialog->accept();
        });
        QTRY_COMPARE(f.accepted, QVector<int>{7});
        QVERIFY(watch.Count() >= 1);
    }

    void aFailedJobIsNotAccepted() {
        Fixture f;
        f.Open();
        f.panel->fails = true;
        f.panel->SetValue(7);
        f.session->Accept();
        QTRY_COMPARE(f.failures, 1);
        QVERIFY(f.accepted.isEmpty());
        QVERIFY(f.panel->isEnabled());
        f.panel->fails = false;
        f.session->Accept(); // once more
        QTRY_COMPARE(f.accepted, QVector<int>{7});
    }

    void okTakesAChangeMadeWhileAnotherJobRuns() {
        Fixture f;
        f.OpenAndHold();
        f.panel->SetValue(9);
        f.session->Accept();
        f.panel->gate.OpenWhenObsolete();
        QTRY_COMPARE(f.panel->starts, 3);
        f.panel->gate.Open();
        QTRY_COMPARE(f.accepted, QVector<int>{9});
    }

    /// While a control moves, each job shows what it has, and the next begins with what has changed meanwhile.
    void aMovingControlIsFollowed() {
        Fixture f;
        f.OpenAndHold();
        f.panel->SetValue(8);
        f.panel->SetValue(9);
        f.panel->gate.Open();
        HBSettle(); // no timer fires
        QCOMPARE(f.previews, (QVector<int>{1, 7, 9}));
        f.session->Accept();
        QCOMPARE(f.accepted, QVector<int>{9});
    }

    /// A rest makes the running job give way to the present values; the next rest does not, or a slow hand would
    /// never see anything.
    void aSlowHandIsFollowed() {
        Fixture f;
        f.OpenAndHold();
        f.panel->SetValue(8);
        f.panel->gate.OpenWhenObsolete();
        QTRY_COMPARE(f.panel->starts, 3);
        QVERIFY(f.panel->gate.WaitForHeld());
        f.panel->SetValue(9);
        QTest::qWait(100);
        QCOMPARE(f.panel->starts, 3);
        f.panel->gate.Open();
        QTRY_COMPARE(f.previews, (QVector<int>{1, 8, 9}));
    }

    void cancelledWaitGoesOnAndLosesNothing() {
        Fixture f;
        f.Open();
        f.panel->gate.Close();
        f.panel->SetValue(7);
        QTRY_COMPARE(f.panel->starts, 2);
        {
            const HBProgressDialogWatch watch([&](HBOperationProgressDlg* dialog) {
                f.panel->gate.OpenWhenObsolete();
                dialog->reject();
            });
            f.session->Accept();
            QTRY_COMPARE(f.resumed, 1);
            QCOMPARE(watch.Count(), 1);
        }
        QVERIFY(f.accepted.isEmpty());
        QVERIFY(f.panel->isEnabled());
        QVERIFY(!f.panel->IsCancelProcessing());
        QTest::qWait(20); // stopped it is, until something changes
        QCOMPARE(f.panel->starts, 2);
        f.panel->gate.Open();
        f.session->Accept(); // the image that the panel has is older than its value
        QTRY_COMPARE(f.accepted, QVector<int>{7});
    }

    void cancelEndsWithoutAnImage() {
        Fixture f;
        f.Open();
        f.panel->SetValue(7);
        Q_EMIT f.panel->Cancel();
        Q_EMIT f.panel->Cancel();
        QCOMPARE(f.rejected, 1);
        f.session->Accept();
        QTest::qWait(100); // no job comes any more
        QCOMPARE(f.panel->starts, 1);
        QCOMPARE(f.previews, QVector<int>{1});
        QVERIFY(f.accepted.isEmpty());
    }

    void anotherPhotoMakesTheRunningJobObsolete() {
        Fixture f;
        f.HoldFirst();
        f.SetSource();
        f.panel->gate.Open();
        QTRY_COMPARE(f.panel->starts, 2);
        QTRY_COMPARE(f.previews, QVector<int>{1}); // the new job's only
    }

    void selectionIsHandedOver() {
        Fixture f;
        HBTarget target{HBImage<>(300, 300)};
        QString reason;
        QVERIFY(HBSelectRectangle(QRect(10, 10, 5, 5), &target, &reason));
        HBImage<> preview;
        connect(f.session, &HBPanelSession::PreviewReady, this, [&](const HBImage<>& image) { preview = image; });
        f.session->SetTarget(target);
        QVERIFY(f.session->HasSelection());
        QTRY_VERIFY(!preview.IsEmpty());
        QCOMPARE(int(preview.PixelAt(10, 10).red), 1);
        QCOMPARE(int(preview.PixelAt(14, 14).red), 1);
        QCOMPARE(int(preview.PixelAt(9, 10).red), 0);
        QCOMPARE(int(preview.PixelAt(15, 14).red), 0);
    }

    void destroyedWhileAJobRuns() {
        for (const bool waiting : {false, true}) {
            Fixture f;
            f.HoldFirst();
            if (waiting) f.session->Accept();
            QCOMPARE(QApplication::overrideCursor() != nullptr, waiting);
            f.panel->gate.OpenWhenObsolete();
            delete f.session;
            f.session = nullptr;
            QVERIFY(!f.panel);
            QVERIFY(!QApplication::overrideCursor());
        }
    }

    void destroyedWhileItsProgressDialogIsOpen() {
        Fixture f;
        f.HoldFirst();
        const HBProgressDialogWatch watch([&](HBOperationProgressDlg*) {
            f.panel->gate.OpenWhenObsolete();
            f.session->deleteLater();
            f.session = nullptr;
        });
        f.session->Accept();
        QTRY_VERIFY(!f.panel);
        QCOMPARE(watch.Count(), 1);
        QVERIFY(f.accepted.isEmpty());
    }

    void survivesItsPanel() {
        Fixture f;
        f.Open();
        delete f.panel;
        f.session->Accept();
        f.SetSource();
        f.session->Reject();
        QCOMPARE(f.rejected, 1);
    }
};

HB_TEST_MAIN(TestHBPanelSession)
#include "tst_HBPanelSession.moc"

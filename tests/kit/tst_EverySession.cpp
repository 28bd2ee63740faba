// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLostTiles.h"
#include "HBSignalRecorder.h"
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestPool.h"
#include "HBTestRecords.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelSession.h>
#include <KMApplication.h>

#include <QAbstractSpinBox>
#include <QDeadlineTimer>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace {

/// As QTest::qWaitFor, but looks at each event, not every 50 ms.
template <class Condition>
bool Until(Condition condition) {
    QTimer wakes;
    wakes.start(100);
    const QDeadlineTimer deadline(60000);
    while (!condition() && !deadline.hasExpired()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

/// A session, and what it has told.
struct Fixture {
    const HBPanelEntry& entry;
    QPointer<HBPanelSession> session;
    HBAdjustmentWidget& panel;
    QVector<HBImage<>> previews, accepted;
    QRegion changed; ///< all of it, since it was last emptied
    int rejected = 0;
    QStringList resumed;
    int amount = 100;

    explicit Fixture(const QString& name, HBPanelButtons buttons = HBPanelButtons::Panel)
        : entry(*HBFindPanel(name))
        , session(new HBPanelSession(entry, nullptr, buttons))
        , panel(*session->Panel()) {
        const auto s = session.data();
        QObject::connect(s, &HBPanelSession::PreviewReady, s, [this](const HBImage<>& image, const QRegion& area) {
            previews << image;
            changed += area;
        });
        QObject::connect(s, &HBPanelSession::Accepted, s, [this](const HBImage<>& image) { accepted << image; });
        QObject::connect(s, &HBPanelSession::Rejected, s, [this] { ++rejected; });
        QObject::connect(s, &HBPanelSession::Resumed, s, [this](const QString& reason) { resumed << reason; });
    }
    ~Fixture() { delete session; }

    /// What exactly the controls say, by the core.
    QImage Expected() const {
        if (amount == 100) return HBRun(*entry.adjustment, entry.get(panel), session->Target()).image.ToQImage();
        HBRecipeStep step = HBStepOf(*entry.adjustment, entry.get(panel));
        step.amount = amount;
        QString error;
        return HBApplyRecipe(session->Target(), {{step}}, &error, nullptr).ToQImage();
    }
    void SetAmount(int percent) { session->SetAmount(amount = percent); }
    QImage Final() {
        session->Accept();
        if (!Until([&] { return !accepted.isEmpty(); })) return {};
        return accepted.last().ToQImage();
    }
    /// The user moves the first control that can be moved.
    bool MoveControl() {
        for (auto* box : panel.findChildren<QAbstractSpinBox*>()) {
            const QString before = box->text();
            if (!box->isEnabled() || box->isReadOnly()) continue;
            box->stepUp();
            if (box->text() == before) box->stepDown();
            if (box->text() != before) return true;
        }
        const auto modes = panel.findChildren<QRadioButton*>();
        if (!modes.isEmpty()) modes.last()->click();
        return !modes.isEmpty();
    }
};

} // namespace

/// What holds for the session of every panel there is.
class tst_EverySession : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        KMApplication::SetProgressTimeout(3600000); // whoever waited for it would wait too long
    }

    /// With the pool full: what is in sight comes first and is what the whole will be, but where the whole must be
    /// seen.
    void ShowsFirstWhatIsInSight_data() { Table(); }
    void ShowsFirstWhatIsInSight() {
        QFETCH(QString, name);
        const QStringList waiting{"HBWBWidget", "HBColorEnhancerWidget", "HBReplaceColorWidget", "HBSignWidget",
                                  "HBWatermarkWidget"};
        for (const bool selected : {false, true}) {
            for (const int level : {0, 2}) {
                Fixture f(name);
                QVector<HBImage<>> sights;
                QRect place;
                bool over = false;
                connect(f.session, &HBPanelSession::SightReady, this,
                        [&](const HBImage<>& sight, const QRect& area, int shrunken) {
                            sights << sight;
                            place = area;
                            QCOMPARE(shrunken, level);
                        });
                connect(f.session, &HBPanelSession::SightOver, this, [&] { over = true; });
                QVERIFY(f.session->SetStep(HBStepOf(*f.entry.adjustment, HBDemonstration(*f.entry.adjustment))));
                f.SetAmount(selected == (level == 0) ? 40 : 100);
                HBPoolBlock block;
                f.session->SetSight(QRect(130, 10, 100, 120), 1.0 / (1 << level));
                f.session->SetTarget(HBTestTarget(QSize(257, 140), selected));
                if (!waiting.contains(name)) {
                    QVERIFY(Until([&] { return !sights.isEmpty(); }));
                    QVERIFY(f.previews.isEmpty());
                    QCOMPARE(place, QRect(128, 0, 128, 140));
                    if (level == 0)
                        QCOMPARE(sights.last().ToQImage(), f.Expected().copy(place));
                    else
                        QCOMPARE(sights.last().ToQImage().size(), QSize(32, 35));
                }
                block.Release();
                QVERIFY(Until([&] { return f.session->IsUpToDate(); }));
                QCOMPARE(over, !sights.isEmpty());
                QCOMPARE(sights.isEmpty(), waiting.contains(name));
                QCOMPARE(f.previews.last().ToQImage(), f.Expected());
            }
        }
    }

    /// OK takes exactly what the controls say, wherever that came from and however little time there was.
    void AcceptsWhatTheControlsSay_data() { Table(); }
    void AcceptsWhatTheControlsSay() {
        QFETCH(QString, name);
        const std::any record = HBDemonstration(*HBFindPanel(name)->adjustment);
        for (const bool selected : {false, true}) {
            for (const HBPanelButtons buttons : {HBPanelButtons::Panel, HBPanelButtons::Host}) {
                const HBTarget target = HBTestTarget(QSize(257, 140), selected);
                { // before the picture, as a step
                    Fixture f(name, buttons);
                    QVERIFY(f.session->SetStep(HBStepOf(*f.entry.adjustment, record)));
                    f.session->SetTarget(target);
                    QCOMPARE(f.Final(), f.Expected());
                    QVERIFY(!f.session->IsChanged());
                }
                { // behind it and behind the session's back, while its first job runs
                    Fixture f(name, buttons);
                    f.session->SetTarget(target);
                    f.entry.set(f.panel, record);
                    QCOMPARE(f.Final(), f.Expected());
                }
                { // behind its first preview, as bytes, which come back; shown first
                    Fixture f(name, buttons);
                    f.SetAmount(buttons == HBPanelButtons::Host ? 40 : 100);
                    f.session->SetTarget(target);
                    QVERIFY(Until([&] { return f.session->IsUpToDate(); }));
                    QCOMPARE(f.changed, QRegion(0, 0, 257, 140));
                    Fixture other(name);
                    other.entry.set(other.panel, record);
                    QVERIFY(f.session->RestoreValues(other.session->SaveValues()));
                    QCOMPARE(f.session->SaveValues(), other.session->SaveValues());
                    QVERIFY(!f.session->IsUpToDate());
                    QVERIFY(Until([&] { return f.session->IsUpToDate(); }));
                    QCOMPARE(f.previews.last().ToQImage(), f.Expected());
                    QCOMPARE(f.Final(), f.Expected());
                }
                { // from the user's hand, as the first thing at all, and at once
                    Fixture f(name, buttons);
                    f.SetAmount(buttons == HBPanelButtons::Host ? 40 : 100);
                    f.session->SetTarget(target);
                    QVERIFY(Until([&] { return f.session->IsUpToDate(); }));
                    const bool moved = f.MoveControl();
                    QVERIFY(moved || name == "HBCurvesWidget");
                    QCOMPARE(f.session->IsChanged(), moved);
                    QCOMPARE(f.Final(), f.Expected());
                }
            }
        }
    }

    /// Buttons are the panel's or the host's, and do the same; nothing comes behind Cancel.
    void Buttons_data() { Table(); }
    void Buttons() {
        QFETCH(QString, name);
        for (const HBPanelButtons buttons : {HBPanelButtons::Panel, HBPanelButtons::Host}) {
            Fixture f(name, buttons);
            f.session->SetTarget({HBTestRamp(300, 300)});
            QPushButton *reset = nullptr, *cancel = nullptr;
            for (auto* box : f.session->Widget()->findChildren<QDialogButtonBox*>()) {
                reset = box->button(QDialogButtonBox::Reset);
                cancel = box->button(QDialogButtonBox::Cancel);
            }
            QCOMPARE(reset && cancel, buttons == HBPanelButtons::Panel);
            f.entry.set(f.panel, HBDemonstration(*f.entry.adjustment));
            reset ? reset->click() : f.session->Reset();
            QCOMPARE(f.entry.save(f.panel), f.entry.adjustment->save(f.entry.adjustment->defaults()));
            QVERIFY(Until([&] { return f.session->IsUpToDate(); }));
            QCOMPARE(f.previews.last().ToQImage(), f.Expected());
            f.previews.clear();
            f.entry.set(f.panel, HBDemonstration(*f.entry.adjustment));
            f.session->Refresh();
            cancel ? cancel->click() : f.session->Reject();
            f.session->Accept();
            HBSettle();
            QCOMPARE(f.rejected, 1);
            QVERIFY(f.accepted.isEmpty() && f.previews.isEmpty() && !f.session->IsBusy());
        }
    }

    void DiesAtAnyMoment_data() { Table(); }
    void DiesAtAnyMoment() {
        QFETCH(QString, name);
        static const HBImage<> photo = HBTestRamp(1500, 1500);
        for (int moment = 0; moment < 8; ++moment) {
            Fixture f(name);
            HBPanelSession* s = f.session;
            QCOMPARE(s->SetStep({name, HBDemonstrationStep(*f.entry.adjustment)}), true);
            bool begun = f.entry.draw; // one without a word about its progress
            connect(s, &HBPanelSession::ProgressChanged, s, [&] { begun = true; });
            if (moment == 4 && begun) continue;
            if (moment == 2) connect(s, &HBPanelSession::PreviewReady, s, [s] { s->deleteLater(); });
            if (moment == 3) connect(s, &HBPanelSession::Accepted, s, [s] { s->deleteLater(); });
            if (moment == 4) connect(s, &HBPanelSession::ProgressChanged, s, [s] { s->deleteLater(); });
            s->SetTarget({photo});
            if (moment == 1) QVERIFY(Until([&] { return begun; }));
            if (moment >= 3 && moment != 4) s->Accept();
            if (moment == 6) delete s->Widget(); // with its window, for example
            if (moment == 7) delete s->Panel();
            if (moment >= 2 && moment <= 4) QVERIFY(Until([&] { return !f.session; }));
            if (moment >= 6) {
                s->SetTarget({photo});
                s->Reset();
                s->Refresh();
                s->Reject();
                HBSettle();
                QCOMPARE(f.rejected, 1);
            }
        }
        QVERIFY(!QApplication::overrideCursor());
    }

    /// A picture that cannot be read for want of memory: the panel goes on, and does well with the next one.
    void FailureIsTold_data() { Table(); }
    void FailureIsTold() {
        QFETCH(QString, name);
        Fixture f(name);
        QVERIFY(f.session->SetStep({name, HBDemonstrationStep(*f.entry.adjustment)}));
        const HBImage<> lost = HBTestRamp(300, 300);
        if (name == "HBLevelsWidget")
            QTest::ignoreMessage(QtWarningMsg, "The histogram could not be counted: std::bad_alloc");
        QVERIFY(HBLoseTiles());
        QStringList troubles;
        connect(f.session, &HBPanelSession::Troubled, this, [&](const QString& reason) { troubles << reason; });
        f.session->SetTarget({lost});
        QVERIFY(Until([&] { return !troubles.isEmpty(); }));
        QVERIFY(!troubles.first().isEmpty() && !f.session->IsUpToDate());
        f.session->Accept();
        QVERIFY(Until([&] { return !f.resumed.isEmpty(); }));
        QVERIFY(!f.resumed.first().isEmpty() && f.accepted.isEmpty() && f.session->Widget()->isEnabled());
        HBSettle();
        f.session->SetTarget({HBTestRamp(300, 300)});
        QVERIFY(Until([&] { return f.session->IsUpToDate(); }));
        QCOMPARE(troubles.last(), QString());
        QCOMPARE(f.Final(), f.Expected());
    }

    /// Foreign values, and a session without a picture, which rests.
    void Refusals() {
        Fixture f("HBLevelsWidget"), other("HBTintWidget");
        const QByteArray before = f.session->SaveValues();
        for (const QByteArray& bytes :
             {other.session->SaveValues(), QByteArray("[]"), QByteArray(), HBRecipe().ToJson()}) {
            QString reason;
            QVERIFY(!f.session->RestoreValues(bytes, &reason) && !reason.isEmpty());
        }
        QVERIFY(!f.session->SetStep({"HBLevelsWidget", {}}));
        QCOMPARE(f.session->SaveValues(), before);
        f.session->SetTarget({HBTestRamp(20, 20)});
        f.session->SetTarget({});
        QVERIFY(f.MoveControl());
        HBSettle();
        QVERIFY(f.previews.isEmpty() && !f.session->IsBusy() && !f.session->IsUpToDate());
    }

private:
    static void Table() {
        QTest::addColumn<QString>("name");
        QCOMPARE(HBPanelCatalog().size(), 20);
        for (const HBPanelEntry& entry : HBPanelCatalog())
            QTest::newRow(entry.className) << QString(entry.className);
    }
};

HB_TEST_MAIN(tst_EverySession)
#include "tst_EverySession.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLatchFixture.h"
#include "HBLogCapture.h"
#include "HBTestMain.h"

#include <QElapsedTimer>
#include <QLinearGradient>
#include <QSlider>

#include <stdexcept>

namespace {

HBRGBA32i Invert(HBRGBA32i pixel) { return HBRGBA32i::FromRgba(pixel.ToRgba() ^ 0xFFFFFF); }

QImage Inverted(const HBImage<>& image) { return HBPlainLoop(image, Invert).ToQImage(); }

} // namespace

class tst_HBAdjustmentWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { KMApplication::SetProgressTimeout(500); }
    void cleanup() { HBEndLatchTest(); }

    void frame() {
        HBLatchPanel panel;
        QVERIFY(panel.IsDialog());
        QCOMPARE(panel.size(), QSize(589, 194));

        QProgressBar* bar = Bar(panel);
        QCOMPARE(bar->objectName(), QString("FILTERPROGRESS")); // style sheets of hosts know it by that name
        QVERIFY(!bar->isEnabled() && !bar->isTextVisible());
        QCOMPARE(bar->maximumHeight(), 2);
    }

    void embedded() {
        KMApplication::SetProgressTimeout(0);
        HBLatchPanel panel(false);
        QVERIFY(!panel.IsDialog());
        QCOMPARE(panel.GetUIContent(), &panel);
        QVERIFY(panel.children().isEmpty());

        HBSignalRecorder recorder(&panel);
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        // The progress timeout passes without a bar to show.
        QVERIFY(QTest::qWaitFor([&] { return HBTimerCount(panel) == 0; }, 10000));
        panel.Gate().Open();
        QVERIFY(recorder.WaitFor("ProgressValueChanged(100)"));
        QCOMPARE(panel.AdjustedImage().ToQImage(), Inverted(Photo()));

        recorder.Take();
        panel.Change();
        QCOMPARE(recorder.Take(), Lines({"AboutUserParamsChanged()", "ValueChanged()", "DataChanged()"}));
        QVERIFY(HBIsIdle(panel));
    }

    void grooveGradient() {
        const QString blackToWhite = "stop: 0 rgb(0, 0, 0), stop: 1 rgb(255, 255, 255)";
        const QPair<QGradientStops, QString> rows[] = {{{{0, Qt::black}, {1, Qt::white}}, blackToWhite},
                                                       {{}, blackToWhite}, // Qt's own pair
                                                       {{{0.25, QColor(1, 2, 3)}}, "stop: 0.25 rgb(1, 2, 3)"},
                                                       // Six digits, no alpha.
                                                       {{{1 / 3.0, QColor(9, 8, 7, 6)}, {1, Qt::red}},
                                                        "stop: 0.333333 rgb(9, 8, 7), stop: 1 rgb(255, 0, 0)"}};
        for (const auto& [stops, groove] : rows) {
            QLinearGradient gradient(3, 0, 3, 70); // its direction does not count
            if (!stops.isEmpty()) gradient.setStops(stops);
            QSlider slider(Qt::Horizontal);
            HBLatchPanel::SetGrooveGradient(&slider, gradient);
            QCOMPARE(slider.styleSheet(),
                     "QSlider::groove:horizontal{border: 0px solid;height: 4px;border-radius: 2px;"
                     "background: qlineargradient(x1: 0, y1: 0, x2: 1, y2: 0, " +
                         groove + ");}");
        }
    }

    void job_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRect>("bounds");
        QTest::addColumn<QPoint>("offset");
        QTest::addColumn<int>("steps");
        const QRect none;
        QTest::newRow("no image") << QSize() << none << QPoint() << 0;
        QTest::newRow("two tiles") << QSize(129, 1) << none << QPoint() << 2;
        QTest::newRow("a tile and 30 rows") << QSize(300, 200) << QRect(130, 10, 20, 30) << QPoint() << 31;
        QTest::newRow("selection beside") << QSize(64, 64) << QRect(0, 0, 10, 10) << QPoint(1000, 0) << 0;
        QTest::newRow("selection left above") << QSize(64, 64) << QRect(0, 0, 10, 10) << QPoint(-10, -10) << 0;
        QTest::newRow("inverted rectangle") << QSize(64, 64) << QRect(QPoint(5, 5), QPoint(2, 2)) << QPoint() << 1;
    }

    void job() {
        QFETCH(QSize, size);
        QFETCH(QRect, bounds);
        QFETCH(QPoint, offset);
        QFETCH(int, steps);
        const HBImage<> photo = size.isEmpty() ? HBImage<>() : HBTestRamp(size.width(), size.height());
        const HBImage<> mask = bounds.isValid() ? HBTestMask(300, 200, 255) : HBImage<>();

        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        panel.onStart = [&] { recorder.Note("start"); };
        panel.SetImage(photo, mask, offset, bounds);
        QCOMPARE(panel.GetSelectionBoundingRect(), bounds);
        QCOMPARE(panel.GetSelectionOffset(), offset);
        HBSettle();

        Lines expected = {"start", "SourceChanged()", QString("ProgressRangeChanged(0,%1)").arg(steps)};
        for (int step = 1; step <= steps; ++step) expected += QString("ProgressValueChanged(%1)").arg(step);
        expected += {"ImageReady()", "ProgressRangeChanged(0,100)", "ProgressValueChanged(100)"};
        QCOMPARE(recorder.Take(), expected);
        QVERIFY(HBIsIdle(panel));

        QCOMPARE(panel.SourceImage().ToQImage(), photo.ToQImage());
        QCOMPARE(panel.AdjustedImage().ToQImage(), HBPlainLoop(photo, Invert, mask, offset, bounds).ToQImage());

        // A change of an empty image is nothing to work on.
        panel.Change();
        QCOMPARE(HBIsIdle(panel), size.isEmpty());
    }

    void debounce() {
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        SetPhoto(panel);
        HBSettle();
        QElapsedTimer sinceChange;
        panel.onStart = [&] { recorder.Note(QString::number(sinceChange.elapsed() >= 45)); };
        recorder.Take();
        for (int i = 0; i < 3; ++i) {
            if (i > 0) QThread::msleep(30); // the first change would be due, had the others not begun anew
            panel.Change();
            sinceChange.start();
        }
        QVERIFY(recorder.WaitFor("ImageReady"));
        HBSettle();
        QCOMPARE(panel.starts, 2);
        QCOMPARE(recorder.Count("1"), 1);
        QVERIFY(HBIsIdle(panel));
    }

    void obsoleteJob() {
        for (const bool byChange : {true, false}) {
            const HBPoolSize pool(1);
            KMApplication::SetProgressTimeout(60000);
            HBLatchPanel panel;
            HBSignalRecorder recorder(&panel);
            panel.Gate().Close();
            SetPhoto(panel);
            QVERIFY(panel.Gate().WaitForHeld());
            for (int i = 0; i < 2; ++i) { // the second time changes nothing
                if (byChange)
                    panel.Change();
                else
                    SetPhoto(panel);
                QVERIFY(QTest::qWaitFor([&] { return HBTimerCount(panel) == 1; }, 10000)); // no debounce is left
                QVERIFY(panel.GetNewData());
            }
            panel.Gate().Open();
            QVERIFY(recorder.WaitFor("ImageReady"));
            HBSettle();
            QCOMPARE(panel.starts, 2);
            QCOMPARE(recorder.Count("ImageReady"), 1);
            QCOMPARE(panel.Gate().Passed(), 1 + 6); // the obsolete job did not begin its second tile
            QCOMPARE(panel.AdjustedImage().ToQImage(), Inverted(Photo()));
        }
    }

    void changeInTheLastMoments() {
        // Only the debounce makes a job obsolete: one that ends before is still worth showing.
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        panel.Change();
        panel.Gate().Open();
        HBSettle();
        QCOMPARE(recorder.Count("ImageReady"), 1);
        QVERIFY(recorder.WaitFor("ImageReady", 2));
        QCOMPARE(panel.starts, 2);
    }

    void newImageKeepsDebounce() {
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        SetPhoto(panel);
        HBSettle();
        panel.Change();
        SetPhoto(panel);
        HBSettle();
        QCOMPARE(panel.starts, 2);
        QVERIFY(recorder.WaitFor("ImageReady", 3));
        QCOMPARE(panel.starts, 3);
    }

    void cancelTakenBack() {
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        panel.SetCancelProcessing(true);
        panel.SetCancelProcessing(false);
        panel.Gate().Open();
        HBSettle();
        QCOMPARE(panel.starts, 2);
        QCOMPARE(recorder.Count("ImageReady"), 1);
        QVERIFY(HBIsIdle(panel));
    }

    void progressBar() {
        const HBPoolSize pool(1);
        KMApplication::SetProgressTimeout(1);
        HBLatchPanel panel;
        QProgressBar* bar = Bar(panel);
        HBSignalRecorder recorder(&panel);
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        panel.Gate().Let(3);
        QVERIFY(panel.Gate().WaitForHeld());
        QCoreApplication::sendPostedEvents(); // the progress so far, but no timer
        QCOMPARE(bar->maximum(), 6);
        QCOMPARE(bar->value(), 3);
        QVERIFY(!bar->isEnabled());

        QVERIFY(QTest::qWaitFor([&] { return bar->isEnabled(); }, 10000));
        QCOMPARE(bar->minimum(), 3); // where the job is when the bar appears, on purpose
        QCOMPARE(bar->value(), 3);

        bool off = false;
        recorder.Once("ProgressRangeChanged(0,100)", [&] { off = !bar->isEnabled(); });
        panel.Gate().Open();
        QVERIFY(recorder.WaitFor("ProgressValueChanged(100)"));
        QVERIFY(off);
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 100);
        QCOMPARE(bar->value(), 100);

        // A short job never shows it.
        KMApplication::SetProgressTimeout(60000);
        SetPhoto(panel);
        HBSettle();
        QVERIFY(!bar->isEnabled());
        QVERIFY(HBIsIdle(panel));
    }

    void hostStartsJobAtTheEnd() {
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        for (const char* moment : {"ProgressRangeChanged(0,100)", "ProgressValueChanged(100)"}) {
            panel.starts = 0;
            recorder.Take();
            recorder.Once(moment, [&] { SetPhoto(panel); });
            SetPhoto(panel);
            HBSettle();
            QCOMPARE(panel.starts, 2);
            QCOMPARE(recorder.Count("ImageReady"), 2);
            QVERIFY(HBIsIdle(panel));
        }
    }

    void clearData() {
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        // A running job is left alone: its image still arrives, on purpose.
        SetPhoto(panel);
        panel.ClearData();
        QVERIFY(panel.AdjustedImage().IsEmpty());
        HBSettle();
        QCOMPARE(recorder.Count("ImageReady"), 1);
        QCOMPARE(panel.AdjustedImage().ToQImage(), Inverted(Photo()));
    }

    void throwingTransformation() {
        for (const int kind : {0, 1, 2}) { // a standard exception, out of memory, no exception class
            const HBPoolSize pool(1);
            const HBLogCapture log;
            HBLatchPanel panel;
            HBSignalRecorder recorder(&panel);
            int tile = 0;
            panel.onTile = [&] {
                if (++tile != 3) return;
                if (kind == 0) throw std::runtime_error("third tile");
                if (kind == 1) throw std::bad_alloc();
                throw kind;
            };
            SetPhoto(panel);
            QVERIFY(!panel.WaitForProcessingFinished(false));
            HBSettle();
            QVERIFY(recorder.WaitFor("Finished(1)"));
            QCOMPARE(recorder.Count("ImageReady"), 1);
            QCOMPARE(tile, 3);

            // What was done before it.
            const QImage before = Photo().ToQImage();
            const QImage inverted = Inverted(Photo());
            const QImage result = panel.AdjustedImage().ToQImage();
            const QRect done(0, 0, 256, 128);
            QCOMPARE(result.copy(done), inverted.copy(done));
            QCOMPARE(result.copy(0, 128, 300, 72), before.copy(0, 128, 300, 72));
        }
    }

    void pendingChange() {
        KMApplication::SetProgressTimeout(60000);
        HBLatchPanel panel;
        panel.Change();
        panel.ProcessNow();
        QVERIFY(!panel.HasPendingChange() && panel.starts == 0); // no image yet

        // Until the image of a job that knows the change.
        HBSignalRecorder recorder(&panel);
        bool pending = true;
        recorder.Once("ImageReady()", [&] { pending = panel.HasPendingChange(); });
        SetPhoto(panel);
        QVERIFY(panel.HasPendingChange());
        panel.ProcessNow(); // the job knows it already
        HBSettle();
        QVERIFY(!pending && !panel.HasPendingChange());
        panel.ProcessNow();
        QCOMPARE(panel.starts, 1);

        // A job that is given up, or fails, has worked nothing in.
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        panel.SetCancelProcessing(true);
        panel.Gate().Open();
        HBSettle();
        QVERIFY(panel.HasPendingChange());
        panel.ProcessNow();
        QCOMPARE(panel.starts, 2);
        panel.SetCancelProcessing(false);
        panel.onTile = [] { throw std::bad_alloc(); };
        panel.ProcessNow();
        HBSettle();
        QVERIFY(panel.HasJobFailed() && panel.HasPendingChange());
        panel.onTile = nullptr;
        panel.ProcessNow();
        HBSettle();
        QVERIFY(!panel.HasPendingChange());
        QCOMPARE(panel.starts, 4);
        panel.Load(true);
        QVERIFY(!panel.HasPendingChange()); // other values are shown: nothing to work in
    }

    void processNow_data() {
        QTest::addColumn<bool>("dialog");
        QTest::addColumn<bool>("silent");
        QTest::addColumn<bool>("running"); // a job of the old value
        for (const bool running : {false, true}) {
            const char* const when = running ? "during a job" : "when idle";
            QTest::addRow("the user's, %s", when) << true << false << running;
            QTest::addRow("set by code, %s", when) << true << true << running;
            QTest::addRow("without a dialog, %s", when) << false << false << running;
        }
    }

    void processNow() {
        QFETCH(bool, dialog);
        QFETCH(bool, silent);
        QFETCH(bool, running);
        const HBPoolSize pool(1);
        KMApplication::SetProgressTimeout(60000);
        HBLatchPanel panel(dialog);
        HBSignalRecorder recorder(&panel);
        if (running) panel.Gate().Close();
        SetPhoto(panel);
        if (running)
            QVERIFY(panel.Gate().WaitForHeld());
        else
            HBSettle();
        if (silent)
            panel.Load();
        else
            panel.Change();
        QVERIFY(panel.HasPendingChange());
        recorder.Take();
        panel.ProcessNow();
        QCOMPARE(panel.GetNewData(), running);
        QCOMPARE(recorder.Take(), Lines());
        QCOMPARE(HBTimerCount(panel), 1); // no debounce is left
        panel.Gate().Open();
        QVERIFY(recorder.WaitFor("ImageReady"));
        QVERIFY(!panel.HasPendingChange());
        HBSettle();
        QCOMPARE(panel.starts, 2);
        QCOMPARE(recorder.Count("ImageReady"), 1); // none of the old value
    }
};

HB_TEST_MAIN(tst_HBAdjustmentWidget)
#include "tst_HBAdjustmentWidget.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLatchFixture.h"
#include "HBTestMain.h"

#include <atomic>
#include <memory>

/// A host that waits for the end of a job, and one that ends the panel.
class tst_HBAdjustmentWidgetWaiting : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { KMApplication::SetProgressTimeout(500); }
    void cleanup() { HBEndLatchTest(); }

    void waitAnswers() {
        KMApplication::SetProgressTimeout(0);
        const HBProgressDialogWatch dialogs([](HBOperationProgressDlg* dialog) { dialog->reject(); });
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        QVERIFY(panel.WaitForProcessingFinished(false));
        SetPhoto(panel);
        HBSettle();
        panel.Change();
        QVERIFY(panel.WaitForProcessingFinished(false)); // although the image is about to change
        QVERIFY(recorder.WaitFor("ImageReady", 2));
        HBSettle();
        recorder.Take();

        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        QVERIFY(!panel.WaitForProcessingFinished(false));
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        QVERIFY(panel.WaitForProcessingFinished(false));
        QCOMPARE(panel.cancels, 0);
        QVERIFY(panel.WaitForProcessingFinished(true));
        QCOMPARE(panel.cancels, 1);
        panel.Gate().Open();
        HBSettle(); // the job ends before the wait timer
        QVERIFY(recorder.WaitFor("Finished"));
        QCOMPARE(recorder.Count("ImageReady"), 0);
        QCOMPARE(recorder.Lines().last(), QString("Finished(1)"));
        QCOMPARE(recorder.Count("Finished"), 1);
        QCOMPARE(dialogs.Count(), 0);
        QVERIFY(panel.IsCancelProcessing());
        QVERIFY(HBIsIdle(panel));

        // The flag is the host's to clear. Cancelling can also be asked with the wait.
        panel.SetCancelProcessing(false);
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        QVERIFY(!panel.WaitForProcessingFinished(true));
        QCOMPARE(panel.cancels, 2);
        panel.Gate().Open();
        HBSettle();
        QVERIFY(recorder.WaitFor("Finished", 2));
        QCOMPARE(recorder.Count("ImageReady"), 0);
    }

    void waitShowsDialog() {
        for (const auto& [dialog, mainWindow] : {std::pair{true, false}, {true, true}, {false, true}}) {
            const HBPoolSize pool(1);
            KMApplication::SetProgressTimeout(0);
            QWidget window;
            HBMdiArea::SetMainWindow(mainWindow ? &window : nullptr);
            HBLatchPanel panel(dialog);
            HBSignalRecorder recorder(&panel);
            const HBProgressDialogWatch dialogs([&, hasWindow = mainWindow](HBOperationProgressDlg* progress) {
                QCOMPARE(progress->Label(), QString("Latch:"));
                QCOMPARE(progress->parentWidget(), hasWindow ? &window : nullptr);
                QCOMPARE(Bar(*progress)->maximum(), 6);
                QCOMPARE(Bar(*progress)->value(), 3);
                QVERIFY(!QApplication::overrideCursor());
                panel.Gate().Open();
            });
            panel.Gate().Close();
            SetPhoto(panel);
            QVERIFY(panel.Gate().WaitForHeld());
            panel.Gate().Let(3);
            QVERIFY(panel.Gate().WaitForHeld());
            QCoreApplication::sendPostedEvents();
            QVERIFY(!panel.WaitForProcessingFinished(false));
            QVERIFY(recorder.WaitFor("Finished"));
            QCOMPARE(dialogs.Count(), 1);
            QCOMPARE(recorder.Take().mid(5),
                     Lines({"ProgressValueChanged(4)", "ProgressValueChanged(5)", "ProgressValueChanged(6)",
                            "ImageReady()", "ProgressRangeChanged(0,100)", "ProgressValueChanged(100)",
                            "Finished(1)"}));
            QVERIFY(!panel.IsCancelProcessing());

            // The wait is over: the next one asks anew.
            QVERIFY(panel.WaitForProcessingFinished(false));
            SetPhoto(panel);
            QVERIFY(!panel.WaitForProcessingFinished(false));
            HBSettle();
            QVERIFY(recorder.WaitFor("Finished(1)"));
            QCOMPARE(dialogs.Count(), 1);
        }
    }

    void waitIsCancelled() {
        const HBPoolSize pool(1);
        KMApplication::SetProgressTimeout(0);
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        const HBProgressDialogWatch dialogs([&](HBOperationProgressDlg* progress) {
            panel.Gate().OpenWhenObsolete();
            progress->reject();
        });
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        QVERIFY(!panel.WaitForProcessingFinished(false));
        QVERIFY(recorder.WaitFor("Finished"));
        QCOMPARE(recorder.Lines().mid(recorder.Lines().size() - 3),
                 Lines({"ProgressRangeChanged(0,100)", "ProgressValueChanged(100)", "Finished(0)"}));
        QCOMPARE(panel.Gate().Passed(), 1);
        QVERIFY(panel.IsCancelProcessing());
        QVERIFY(panel.AdjustedImage().IsEmpty());
        QVERIFY(HBIsIdle(panel));
    }

    void waitForRestartedJob() {
        KMApplication::SetProgressTimeout(0);
        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        const HBProgressDialogWatch dialogs([&](HBOperationProgressDlg*) { panel.Gate().Open(); });
        panel.Gate().Close();
        SetPhoto(panel);
        QVERIFY(panel.Gate().WaitForHeld());
        SetPhoto(panel);
        QVERIFY(!panel.WaitForProcessingFinished(false));
        QVERIFY(recorder.WaitFor("Finished"));
        HBSettle();
        QCOMPARE(panel.starts, 2);
        QCOMPARE(dialogs.Count(), 1);
        QCOMPARE(recorder.Count("Finished"), 1);
        QCOMPARE(recorder.Count("ImageReady"), 1);
        QVERIFY(recorder.Lines().indexOf("ImageReady()") < recorder.Lines().indexOf("Finished(1)"));
        QVERIFY(HBIsIdle(panel));
    }

    void waitDropsChange() {
        for (const int timeout : {0, 200}) { // the dialog, or the debounce, comes first
            KMApplication::SetProgressTimeout(timeout);
            HBLatchPanel panel;
            HBSignalRecorder recorder(&panel);
            const HBProgressDialogWatch dialogs([&](HBOperationProgressDlg*) { panel.Gate().Open(); });
            panel.Gate().Close();
            SetPhoto(panel);
            QVERIFY(panel.Gate().WaitForHeld());
            panel.Change();
            QVERIFY(!panel.WaitForProcessingFinished(false));
            QVERIFY(recorder.WaitFor("Finished(1)"));
            QCOMPARE(recorder.Count("ImageReady"), 1);
            QCOMPARE(panel.starts, 1);
            QVERIFY(HBIsIdle(panel));
        }
    }

    void waitEndsOnce() {
        for (const QString moment :
             {"ImageReady()", "ProgressRangeChanged(0,100)", "ProgressValueChanged(100)", "Finished(1)"}) {
            init();
            // A job that the host starts while a wait ends: its progress timer may get the number of the wait's.
            KMApplication::SetProgressTimeout(0);
            HBLatchPanel panel;
            HBSignalRecorder recorder(&panel);
            const HBProgressDialogWatch dialogs([&](HBOperationProgressDlg*) { panel.Gate().Open(); });
            const bool atTheEnd = moment.startsWith("Finished"); // before, the wait includes the new job
            recorder.Once(moment, [&] {
                if (atTheEnd) panel.Gate().Close();
                SetPhoto(panel);
            });
            panel.Gate().Close();
            SetPhoto(panel);
            QVERIFY(panel.Gate().WaitForHeld());
            QVERIFY(!panel.WaitForProcessingFinished(false));
            QVERIFY(recorder.WaitFor("Finished(1)"));
            if (atTheEnd) QVERIFY(QTest::qWaitFor([&] { return Bar(panel)->isEnabled(); }, 10000));
            QCOMPARE(recorder.Count("Finished"), 1);
            QCOMPARE(dialogs.Count(), 1);
            panel.Gate().Open();
            QVERIFY(recorder.WaitFor("ImageReady", 2));
            HBSettle();
            QCOMPARE(panel.starts, 2);
            QCOMPARE(recorder.Count("Finished"), 1);
        }
    }

    void waitRunsQueuedJob() {
        // A job that has found no thread yet is run by the thread that waits for it, the GUI thread.
        const HBPoolSize pool(1);
        KMApplication::SetProgressTimeout(0);
        HBLatchPanel other;
        other.Gate().Close();
        SetPhoto(other);
        QVERIFY(other.Gate().WaitForHeld());

        HBLatchPanel panel;
        HBSignalRecorder recorder(&panel);
        std::atomic<int> tilesHere{0};
        panel.onTile = [&] { tilesHere += QThread::currentThread() == qApp->thread() ? 1 : 0; };
        const HBProgressDialogWatch dialogs([](HBOperationProgressDlg* progress) { progress->accept(); });
        SetPhoto(panel);
        QVERIFY(!panel.WaitForProcessingFinished(false));
        QVERIFY(recorder.WaitFor("Finished(1)"));
        QCOMPARE(tilesHere, 6);
        QCOMPARE(recorder.Take(),
                 Lines({"SourceChanged()", "ProgressRangeChanged(0,6)", "ProgressValueChanged(1)",
                        "ProgressValueChanged(2)", "ProgressValueChanged(3)", "ProgressValueChanged(4)",
                        "ProgressValueChanged(5)", "ProgressValueChanged(6)", "ImageReady()",
                        "ProgressRangeChanged(0,100)", "ProgressValueChanged(100)", "Finished(1)"}));
        other.Gate().Open();
    }

    void deletedWhileJobRuns() {
        const struct {
            int threads;
            bool waiting, queued;
        } rows[] = {{1, false, false}, {4, false, false}, {2, true, false}, {1, true, true}};
        for (const auto& [threads, waiting, queued] : rows) {
            const HBPoolSize pool(threads);
            HBLatchPanel other;
            if (queued) {
                other.Gate().Close();
                SetPhoto(other);
                QVERIFY(other.Gate().WaitForHeld());
            }
            auto panel = std::make_unique<HBLatchPanel>();
            HBSignalRecorder recorder(panel.get());
            std::atomic<int> tiles{0};
            panel->onTile = [&] { ++tiles; };
            panel->Gate().OpenWhenObsolete();
            SetPhoto(*panel);
            if (!queued) QVERIFY(panel->Gate().WaitForHeld());
            panel->Change();
            if (waiting) QVERIFY(!panel->WaitForProcessingFinished(false));
            panel.reset();
            QVERIFY2(tiles <= (queued ? 0 : threads), "the job went on with another tile");
            QVERIFY(!QApplication::overrideCursor());
            other.Gate().Open();
            HBSettle();
            QCOMPARE(recorder.Count("ImageReady") + recorder.Count("Finished"), 0);
        }
    }

    void deletedByItsSignal_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("later");
        for (const char* line :
             {"SourceChanged()", "ImageReady()", "ProgressRangeChanged(0,6)", "ProgressValueChanged(2)",
              "ProgressRangeChanged(0,100)", "ProgressValueChanged(100)", "Finished(1)"}) {
            QTest::addRow("%s, at once", line) << line << false;
            QTest::addRow("%s, later", line) << line << true;
        }
        // In the midst of a slot that a control has called, "at once" is more than any widget survives.
        QTest::addRow("DataChanged(), later") << "DataChanged()" << true;
        QTest::addRow("AboutUserParamsChanged(), later") << "AboutUserParamsChanged()" << true;
    }

    void deletedByItsSignal() {
        QFETCH(QString, line);
        QFETCH(bool, later);
        KMApplication::SetProgressTimeout(0);
        const QPointer<HBLatchPanel> panel(new HBLatchPanel());
        HBSignalRecorder recorder(panel);
        const HBProgressDialogWatch dialogs([&](HBOperationProgressDlg*) {
            if (panel) panel->Gate().Open();
        });
        recorder.Once(line, [&] {
            panel->Gate().Open();
            if (later)
                panel->deleteLater();
            else
                delete panel;
        });
        panel->Gate().Close();
        panel->Change();
        SetPhoto(*panel);
        if (panel) QVERIFY(!panel->WaitForProcessingFinished(false));
        QVERIFY(QTest::qWaitFor([&] { return !panel; }, 10000));
        QVERIFY(recorder.Lines().contains(line));
    }

    void deletedUnderItsDialog() {
        for (const QString what : {"panel", "panel later", "main window", "main window with the panel"}) {
            KMApplication::SetProgressTimeout(0);
            const QPointer<QWidget> window(new QWidget());
            HBMdiArea::SetMainWindow(window);
            const QPointer<HBLatchPanel> panel(
                new HBLatchPanel(true, what.endsWith("with the panel") ? window : nullptr));
            HBSignalRecorder recorder(panel);
            const HBProgressDialogWatch dialogs([&](HBOperationProgressDlg*) {
                panel->Gate().OpenWhenObsolete();
                if (what == "panel")
                    delete panel;
                else if (what == "panel later")
                    panel->deleteLater();
                else
                    delete window;
                recorder.Note("deleted");
            });
            panel->Gate().Close();
            SetPhoto(*panel);
            QVERIFY(panel->Gate().WaitForHeld());
            QVERIFY(!panel->WaitForProcessingFinished(false));
            if (what == "main window") {
                QVERIFY(recorder.WaitFor("Finished"));
                QCOMPARE(recorder.Lines().last(), QString("Finished(0)"));
                delete panel;
            } else {
                QVERIFY(QTest::qWaitFor([&] { return !panel; }, 10000));
                QCOMPARE(recorder.Count("Finished"), 0);
            }
            QCOMPARE(recorder.Count("deleted"), 1);
            QCOMPARE(dialogs.Count(), 1);
            delete window;
        }
    }
};

HB_TEST_MAIN(tst_HBAdjustmentWidgetWaiting)
#include "tst_HBAdjustmentWidgetWaiting.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBDialog.h>
#include <HBOperationProgressDlg.h>

#include <QLabel>
#include <QProgressBar>
#include <QTimer>

#include <functional>

class TestHBOperationProgressDlg : public QObject {
    Q_OBJECT

    /// Runs the dialog and does something to it meanwhile.
    static int Run(HBOperationProgressDlg* dialog, const std::function<void()>& meanwhile) {
        QTimer::singleShot(0, dialog, meanwhile);
        QTimer::singleShot(10000, dialog, &QDialog::reject);
        return HBDialog::Exec(dialog);
    }

private Q_SLOTS:
    void acceptsAtTheMaximumOnlyWhileItRuns() {
        HBOperationProgressDlg dialog;
        dialog.SetLabel("Levels:");
        QCOMPARE(dialog.Label(), QString("Levels:"));
        // What the last job has left must not close it before it opens, nor as it opens.
        dialog.SetProgressRange(0, 100);
        dialog.SetProgressPos(100);
        dialog.SetProgressRange(0, 6);
        dialog.SetProgressPos(3);
        bool openAfterFive = false;
        const int result = Run(&dialog, [&] {
            dialog.SetProgressPos(5);
            openAfterFive = dialog.isVisible();
            dialog.SetProgressPos(6);
        });
        QVERIFY(openAfterFive);
        QCOMPARE(result, 1);
    }

    void cancels() {
        HBOperationProgressDlg dialog;
        QCOMPARE(Run(&dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); }), 0);
        QCOMPARE(Run(&dialog, [&] { dialog.close(); }), 0);
    }

    void survivesItsOwnDeath() {
        auto* dialog = new HBOperationProgressDlg;
        QCOMPARE(Run(dialog, [=] { delete dialog; }), 0);
    }
};

HB_TEST_MAIN(TestHBOperationProgressDlg)
#include "tst_HBOperationProgressDlg.moc"

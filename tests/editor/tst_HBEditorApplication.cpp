// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRunTest.h"

#include <HBEditorApplication.h>

#include <QDialog>
#include <QTimer>

#include <new>

/// What finds no memory is broken off, also in a dialog, and said once; the rest goes on.
class tst_HBEditorApplication : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void OutOfMemory() {
        auto* application = static_cast<HBEditorApplication*>(qApp);
        int told = 0, after = 0;
        connect(application, &HBEditorApplication::OutOfMemory, this, [&] {
            ++told;
            QEvent event(QEvent::User);
            QCoreApplication::sendEvent(&m_Hungry, &event); // nor is there any to say it
            throw std::bad_alloc();
        });
        QDialog dialog;
        QTimer::singleShot(0, &dialog, [] { throw std::bad_alloc(); });
        QTimer::singleShot(0, &dialog, [&] { ++after; });
        QTimer::singleShot(10, &dialog, &QDialog::accept);
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QCOMPARE(told, 1);
        QCOMPARE(after, 1);
    }

private:
    struct Hungry : QObject {
        bool event(QEvent*) override { throw std::bad_alloc(); }
    } m_Hungry;
};

int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const HBEditorApplication application(argc, argv);
    tst_HBEditorApplication test;
    return HBRunTest(&test, QCoreApplication::arguments());
}
#include "tst_HBEditorApplication.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOffscreenLog.h"
#include "HBTestMain.h"

#include <HBCommonComboBox.h>

#include <QLineEdit>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <memory>

class TestHBCommonComboBox : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { m_pLog = std::make_unique<HBOffscreenLog>(); }
    void cleanupTestCase() { m_pLog.reset(); }

    void wheelChoosesOnlyWithTheFocus() {
        QWidget window;
        QVBoxLayout layout(&window);
        QLineEdit other;
        HBCommonComboBox box;
        box.addItems({"a", "b", "c"});
        layout.addWidget(&other);
        layout.addWidget(&box);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QApplication::setActiveWindow(&window);

        auto turn = [&] {
            QWheelEvent event(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5).toPoint()), {}, {0, -120}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            event.accept();
            QApplication::sendEvent(&box, &event);
            return event.isAccepted();
        };
        other.setFocus();
        QVERIFY(!turn()); // left to the panel, which scrolls
        QCOMPARE(box.currentIndex(), 0);
        QVERIFY(!box.hasFocus());
        box.setFocus();
        QVERIFY(turn());
        QCOMPARE(box.currentIndex(), 1);
    }

private:
    std::unique_ptr<HBOffscreenLog> m_pLog;
};

HB_TEST_MAIN(TestHBCommonComboBox)
#include "tst_HBCommonComboBox.moc"

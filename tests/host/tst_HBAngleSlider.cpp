// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBAngleSlider.h>
#include <HBTestMain.h>

#include <QAccessible>
#include <QSpinBox>
#include <QWheelEvent>

#include <climits>
#include <cmath>
#include <memory>

namespace {

constexpr int Size = 36;

/// A point of the dial in the direction of an angle.
QPoint At(int degrees) {
    const double radians = degrees * 3.14159265358979 / 180;
    return {int(std::lround(17.5 + 14 * std::cos(radians))), int(std::lround(17.5 - 14 * std::sin(radians)))};
}

} // namespace

class tst_HBAngleSlider : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup() { m_pWindow.reset(); }

    void Values_data();
    void Values();
    void TiedToASpinBox();
    void AngleAt_data();
    void AngleAt();
    void Mouse();
    void Keys_data();
    void Keys();
    void Wheel();
    void AssistiveTechnologyReadsIt();
    void PaintsAtAnySize();

private:
    std::unique_ptr<QWidget> m_pWindow;
    HBAngleSlider* m_pDial = nullptr;
    QWidget* m_pOther = nullptr;

    void Drag(const QPointF& to, Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton, modifiers);
        QApplication::sendEvent(m_pDial, &event);
    }
    void Turn(int delta) {
        const QPointF at(18, 18);
        QWheelEvent event(at, m_pDial->mapToGlobal(at.toPoint()), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_pDial, &event);
    }
};

void tst_HBAngleSlider::init() {
    m_pWindow = std::make_unique<QWidget>();
    m_pWindow->resize(120, 60);
    m_pDial = new HBAngleSlider(m_pWindow.get());
    m_pDial->setFixedSize(Size, Size);
    m_pOther = new QSpinBox(m_pWindow.get());
    m_pOther->move(50, 0);
    m_pWindow->show();
    QApplication::setActiveWindow(m_pWindow.get());
    m_pDial->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_pWindow.get()));
}

void tst_HBAngleSlider::Values_data() {
    QTest::addColumn<int>("set");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("changes");
    QTest::newRow("in range") << -90 << -90 << 1;
    QTest::newRow("the same") << 10 << 10 << 0;
    QTest::newRow("the least") << -179 << -179 << 1;
    QTest::newRow("the most") << 180 << 180 << 1;
    QTest::newRow("below") << -180 << -179 << 1;
    QTest::newRow("hostile") << INT_MIN << -179 << 1;
    QTest::newRow("above") << INT_MAX << 180 << 1;
}

void tst_HBAngleSlider::Values() {
    QFETCH(int, set);
    QFETCH(int, value);
    QFETCH(int, changes);
    m_pDial->setValue(10);
    QSignalSpy spy(m_pDial, SIGNAL(valueChanged(int)));
    m_pDial->setValue(set);
    m_pDial->setValue(set);
    QCOMPARE(m_pDial->value(), value);
    QCOMPARE(spy.count(), changes);
}

void tst_HBAngleSlider::TiedToASpinBox() {
    auto* spin = qobject_cast<QSpinBox*>(m_pOther);
    spin->setRange(-179, 180);
    connect(m_pDial, SIGNAL(valueChanged(int)), spin, SLOT(setValue(int)));
    connect(spin, SIGNAL(valueChanged(int)), m_pDial, SLOT(setValue(int)));
    for (int angle = -179; angle <= 180; ++angle) {
        QSignalSpy spy(m_pDial, SIGNAL(valueChanged(int)));
        spin->setValue(angle);
        QCOMPARE(m_pDial->value(), angle);
        QCOMPARE(spin->value(), angle);
        QCOMPARE(spy.count(), 1);
    }
}

void tst_HBAngleSlider::AngleAt_data() {
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("angle");
    QTest::newRow("right") << QPointF(5, 0) << 0;
    QTest::newRow("up") << QPointF(0, -5) << 90;
    QTest::newRow("left") << QPointF(-5, 0) << 180;
    QTest::newRow("left, a hair below") << QPointF(-500, 0.1) << 180;
    QTest::newRow("down") << QPointF(0, 5) << -90;
    QTest::newRow("right, down") << QPointF(3, 3) << -45;
    QTest::newRow("left, down") << QPointF(-3, 3) << -135;
    QTest::newRow("the centre keeps it") << QPointF() << 77;
}

void tst_HBAngleSlider::AngleAt() {
    QFETCH(QPointF, point);
    QFETCH(int, angle);
    QCOMPARE(HBAngleSlider::AngleAt(point, 77), angle);
}

void tst_HBAngleSlider::Mouse() {
    QTest::mousePress(m_pDial, Qt::RightButton, Qt::NoModifier, At(90));
    QCOMPARE(m_pDial->value(), 0);
    QTest::mousePress(m_pDial, Qt::LeftButton, Qt::NoModifier, At(90));
    QVERIFY(qAbs(m_pDial->value() - 90) <= 3);
    // Around, past 180 degrees, and on outside the dial.
    for (const int angle : {135, 170, -170, -90, -45}) {
        Drag(At(angle));
        QVERIFY2(qAbs(m_pDial->value() - angle) <= 3, qPrintable(QString::number(m_pDial->value())));
    }
    Drag({18 + 300, 18 - 320}, Qt::ShiftModifier);
    QCOMPARE(m_pDial->value(), 45); // with Shift, the nearest step
    QTest::mouseRelease(m_pDial, Qt::LeftButton, Qt::NoModifier, At(90));
    Drag(At(180));
    QCOMPARE(m_pDial->value(), 45);
    QVERIFY(!m_pDial->isSliderDown());
}

void tst_HBAngleSlider::Keys_data() {
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("after");
    QTest::newRow("up") << 0 << int(Qt::Key_Up) << 1;
    QTest::newRow("right") << 0 << int(Qt::Key_Right) << 1;
    QTest::newRow("down") << 0 << int(Qt::Key_Down) << -1;
    QTest::newRow("left") << -5 << int(Qt::Key_Left) << -6;
    QTest::newRow("page up") << 10 << int(Qt::Key_PageUp) << 25;
    QTest::newRow("page down") << 10 << int(Qt::Key_PageDown) << -5;
    QTest::newRow("home") << 99 << int(Qt::Key_Home) << 0;
    QTest::newRow("end") << 99 << int(Qt::Key_End) << 180;
    QTest::newRow("past the end") << 180 << int(Qt::Key_Up) << -179;
    QTest::newRow("past the beginning") << -179 << int(Qt::Key_Down) << 180;
    QTest::newRow("a page past the end") << 170 << int(Qt::Key_PageUp) << -175;
    QTest::newRow("another key") << 7 << int(Qt::Key_A) << 7;
}

void tst_HBAngleSlider::Keys() {
    QFETCH(int, before);
    QFETCH(int, key);
    QFETCH(int, after);
    m_pDial->setValue(before);
    QTest::keyClick(m_pDial, Qt::Key(key));
    QCOMPARE(m_pDial->value(), after);
}

void tst_HBAngleSlider::Wheel() {
    Turn(240);
    QCOMPARE(m_pDial->value(), 2);
    Turn(-60);
    QCOMPARE(m_pDial->value(), 2);
    Turn(-60); // the second half of a notch
    QCOMPARE(m_pDial->value(), 1);
    m_pOther->setFocus();
    QVERIFY(!m_pDial->hasFocus());
    Turn(120);
    QCOMPARE(m_pDial->value(), 1);
    QVERIFY(!(m_pDial->focusPolicy() & Qt::WheelFocus & ~Qt::StrongFocus));
}

void tst_HBAngleSlider::AssistiveTechnologyReadsIt() {
    m_pDial->setValue(-33);
    QAccessibleInterface* dial = QAccessible::queryAccessibleInterface(m_pDial);
    QVERIFY(dial && dial->valueInterface());
    QCOMPARE(dial->valueInterface()->currentValue().toInt(), -33);
    QCOMPARE(dial->valueInterface()->minimumValue().toInt(), -179);
    dial->valueInterface()->setCurrentValue(44);
    QCOMPARE(m_pDial->value(), 44);
}

void tst_HBAngleSlider::PaintsAtAnySize() {
    for (const QSize& size : {QSize(36, 36), QSize(1, 1), QSize(3, 90), QSize(200, 40)}) {
        m_pDial->setFixedSize(size);
        for (const bool enabled : {true, false}) {
            m_pDial->setEnabled(enabled);
            QVERIFY(!m_pDial->grab().isNull());
        }
    }
    // The hand shows the angle.
    m_pDial->setFixedSize(Size, Size);
    m_pDial->setEnabled(true);
    m_pDial->setValue(90);
    const QImage up = m_pDial->grab().toImage();
    m_pDial->setValue(-90);
    const QImage down = m_pDial->grab().toImage();
    const QRgb hand = up.pixel(up.width() / 2, up.height() * 2 / 7);
    QVERIFY(hand != down.pixel(up.width() / 2, up.height() * 2 / 7));
    QCOMPARE(down.pixel(up.width() / 2, up.height() * 5 / 7), hand);
}

HB_TEST_MAIN(tst_HBAngleSlider)
#include "tst_HBAngleSlider.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBAngleSlider.h>
#include <HBTestMain.h>

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
private Q_SLOTS:
    void init() {
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
    void cleanup() { m_pWindow.reset(); }

    void Values() {
        const struct {
            int set, value, changes;
        } rows[] = {{-90, -90, 1},   {10, 10, 0},        {-179, -179, 1},  {180, 180, 1},
                    {-180, -179, 1}, {INT_MIN, -179, 1}, {INT_MAX, 180, 1}};
        for (const auto& row : rows) {
            m_pDial->setValue(10);
            QSignalSpy spy(m_pDial, SIGNAL(valueChanged(int)));
            m_pDial->setValue(row.set);
            m_pDial->setValue(row.set);
            QCOMPARE(m_pDial->value(), row.value);
            QCOMPARE(spy.count(), row.changes);
        }
    }

    void TiedToASpinBox() {
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

    void AngleAt() {
        const struct {
            QPointF point;
            int angle;
        } rows[] = {{{5, 0}, 0},   {{0, -5}, 90}, {{-5, 0}, 180},  {{-500, 0.1}, 180},
                    {{0, 5}, -90}, {{3, 3}, -45}, {{-3, 3}, -135}, {{}, 77}}; // the centre keeps it
        for (const auto& row : rows) QCOMPARE(HBAngleSlider::AngleAt(row.point, 77), row.angle);
    }

    void Mouse() {
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

    void Keys() {
        const struct {
            int before;
            Qt::Key key;
            int after;
        } rows[] = {{0, Qt::Key_Up, 1},        {0, Qt::Key_Right, 1},       {0, Qt::Key_Down, -1},
                    {-5, Qt::Key_Left, -6},    {10, Qt::Key_PageUp, 25},    {10, Qt::Key_PageDown, -5},
                    {99, Qt::Key_Home, 0},     {99, Qt::Key_End, 180},      {180, Qt::Key_Up, -179},
                    {-179, Qt::Key_Down, 180}, {170, Qt::Key_PageUp, -175}, {7, Qt::Key_A, 7}};
        for (const auto& row : rows) {
            m_pDial->setValue(row.before);
            QTest::keyClick(m_pDial, row.key);
            QCOMPARE(m_pDial->value(), row.after);
        }
    }

    void Wheel() {
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

    void PaintsAtAnySize() {
        for (const QSize& size : {QSize(1, 1), QSize(3, 90), QSize(200, 40)}) {
            m_pDial->setFixedSize(size);
            QVERIFY(!m_pDial->grab().isNull());
        }
        // The hand shows the angle.
        m_pDial->setFixedSize(Size, Size);
        m_pDial->setValue(90);
        const QImage up = m_pDial->grab().toImage();
        m_pDial->setValue(-90);
        const QImage down = m_pDial->grab().toImage();
        const QRgb hand = up.pixel(up.width() / 2, up.height() * 2 / 7);
        QVERIFY(hand != down.pixel(up.width() / 2, up.height() * 2 / 7));
        QCOMPARE(down.pixel(up.width() / 2, up.height() * 5 / 7), hand);
    }

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

HB_TEST_MAIN(tst_HBAngleSlider)
#include "tst_HBAngleSlider.moc"

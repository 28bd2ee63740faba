// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBTestMain.h>
#include <MavuCustomSlider.h>

#include <QAccessible>
#include <QScrollArea>
#include <QWheelEvent>

#include <limits>
#include <memory>

namespace {

/// What a slot saw, as "handle:value".
QStringList Seen(const QSignalSpy& spy) {
    QStringList seen;
    for (const QList<QVariant>& call : spy)
        seen << QStringLiteral("%1:%2").arg(call.at(0).toUInt()).arg(call.at(1).toInt());
    return seen;
}

/// 255 pixels from level 0 to level 255: level v is at x = v + 2.
constexpr int Width = 259;

} // namespace

class TestMavuCustomSlider : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_pWindow = std::make_unique<QWidget>();
        m_pWindow->resize(400, 100);
        m_pSlider = new MavuCustomSlider(m_pWindow.get());
        m_pSlider->resize(Width, 14);
        m_pSlider->SetRange(0, 255);
        m_pSlider->AddControl(0, 0, 255, QBrush(Qt::black));
        m_pSlider->AddControl(128, 0, 255, QBrush(Qt::gray));
        m_pSlider->AddControl(255, 0, 255, QBrush(Qt::white));
        m_pWindow->show();
        QApplication::setActiveWindow(m_pWindow.get());
        m_pSlider->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(m_pWindow.get()));
    }

    void cleanup() { m_pWindow.reset(); }

    void Limits() {
        constexpr int Min = std::numeric_limits<int>::min();
        constexpr int Max = std::numeric_limits<int>::max();
        const struct {
            int minimum, maximum, value, expected;
        } rows[] = {{10, 20, 15, 15}, {10, 20, Min, 10},  {10, 20, Max, 20},
                    {20, 10, 15, 20}, // contradicting: the minimum wins
                    {0, -2, 5, 0},    {257, 255, 5, 255}, {Min, Max, Max, 255}};
        for (const auto& row : rows) {
            m_pSlider->SetMinimum(1, row.minimum);
            m_pSlider->SetMaximum(1, row.maximum);
            m_pSlider->SetValue(1, row.value);
            QCOMPARE(m_pSlider->Value(1), row.expected);
            QCOMPARE(m_pSlider->Minimum(1), row.minimum);
            QCOMPARE(m_pSlider->Maximum(1), row.maximum);
        }
    }

    void LimitsMoveTheValueOnce() {
        QSignalSpy changed(m_pSlider, SIGNAL(ValueChanged(uint,int)));
        m_pSlider->SetMaximum(1, 100);
        m_pSlider->SetMaximum(1, 110);
        m_pSlider->SetValue(1, 100);
        m_pSlider->SetValue(1, 300);
        m_pSlider->SetValue(1, 400);
        m_pSlider->SetRange(50, 105);
        QCOMPARE(Seen(changed), (QStringList{"1:100", "1:110", "0:50", "1:105", "2:105"}));
    }

    void UnknownHandlesAreIgnored() {
        QSignalSpy changed(m_pSlider, SIGNAL(ValueChanged(uint,int)));
        m_pSlider->SetValue(3, 5);
        m_pSlider->SetMinimum(4000000000u, 5);
        m_pSlider->SetMaximum(3, 5);
        m_pSlider->SetCurrentControl(3);
        QCOMPARE(m_pSlider->Value(3), 0);
        QCOMPARE(m_pSlider->CurrentControl(), 0u);
        QCOMPARE(changed.count(), 0);

        MavuCustomSlider empty;
        empty.resize(100, 14);
        QTest::mouseClick(&empty, Qt::LeftButton);
        QTest::keyClick(&empty, Qt::Key_Right);
        empty.grab();
    }

    void SlotsMaySetValuesAgain() {
        QSignalSpy changed(m_pSlider, SIGNAL(ValueChanged(uint,int)));
        connect(m_pSlider, &MavuCustomSlider::ValueChanged, this, [this](uint control, int value) {
            QCOMPARE(m_pSlider->Value(control), value); // stored before it is told
            if (value == 0) m_pSlider->SetValue(control, 1);
        });
        m_pSlider->SetValue(1, 0);
        QCOMPARE(m_pSlider->Value(1), 1);
        QCOMPARE(Seen(changed), (QStringList{"1:0", "1:1"}));
    }

    void SlotsMayDeleteTheSlider() {
        connect(m_pSlider, &MavuCustomSlider::ValueChanged, this, [this] { delete m_pSlider; });
        m_pSlider->SetRange(60, 70); // would move all three
        QVERIFY(m_pWindow->children().isEmpty());
    }

    void Drag_data() {
        HBColumns<QVector<int>, int, int, QVector<int>>("values", "from", "to", "expected");
        using List = QVector<int>;
        QTest::newRow("a handle") << List{0, 128, 255} << 128 << 140 << List{0, 140, 255};
        QTest::newRow("beyond the end") << List{0, 128, 255} << 255 << 500 << List{0, 128, 255};
        QTest::newRow("past another") << List{0, 128, 255} << 128 << 20 << List{0, 20, 255};
        QTest::newRow("the groove moves the nearest") << List{0, 128, 255} << 40 << 40 << List{40, 128, 255};
        QTest::newRow("one spot, to the right the last") << List{90, 90, 90} << 90 << 120 << List{90, 90, 120};
        QTest::newRow("one spot, to the left the first") << List{90, 90, 90} << 90 << 60 << List{60, 90, 90};
        QTest::newRow("at the end the one that is free")
            << List{255, 255, 255} << 255 << 200 << List{200, 255, 255};
        QTest::newRow("no movement, no choice") << List{90, 90, 90} << 90 << 90 << List{90, 90, 90};
    }

    void Drag() {
        QFETCH(QVector<int>, values);
        QFETCH(int, from);
        QFETCH(int, to);
        for (int i = 0; i < 3; ++i) m_pSlider->SetValue(uint(i), values.at(i));
        Mouse(QEvent::MouseButtonPress, from + 2);
        Mouse(QEvent::MouseMove, (from + to) / 2 + 2);
        Mouse(QEvent::MouseMove, to + 2);
        Mouse(QEvent::MouseButtonRelease, to + 2);
        QTEST((QVector<int>{m_pSlider->Value(0), m_pSlider->Value(1), m_pSlider->Value(2)}), "expected");
    }

    void AGripBesideTheTipDoesNotJump() {
        Mouse(QEvent::MouseButtonPress, 128 + 2 + 4);
        QCOMPARE(m_pSlider->Value(1), 128);
        Mouse(QEvent::MouseMove, 128 + 2 + 4 + 10);
        QCOMPARE(m_pSlider->Value(1), 138);

        // A handle whose limits hold it back takes up where the pointer is when it comes back.
        m_pSlider->SetMaximum(1, 140);
        Mouse(QEvent::MouseMove, 200);
        Mouse(QEvent::MouseMove, 128 + 2 + 4 + 5);
        QCOMPARE(m_pSlider->Value(1), 133);
    }

    void OtherButtonsDoNothing() {
        QTest::mouseClick(m_pSlider, Qt::RightButton, {}, At(60));
        Mouse(QEvent::MouseMove, 60);
        QCOMPARE(m_pSlider->Value(0), 0);
        m_pSlider->setEnabled(false);
        QTest::mouseClick(m_pSlider, Qt::LeftButton, {}, At(60));
        QCOMPARE(m_pSlider->Value(0), 0);
    }

    void ReleaseIsToldOnce() {
        QSignalSpy released(m_pSlider, SIGNAL(NodeReleased()));
        QTest::mouseClick(m_pSlider, Qt::LeftButton, {}, At(60));
        QCOMPARE(released.count(), 1);
        QTest::keyClick(m_pSlider, Qt::Key_Right);
        QCOMPARE(released.count(), 2);
        Mouse(QEvent::MouseButtonPress, 60);
        m_pSlider->hide();
        QCOMPARE(released.count(), 3);
        Mouse(QEvent::MouseButtonRelease, 60);
        QCOMPARE(released.count(), 3);
    }

    void Keys() {
        m_pSlider->SetMinimum(1, 20);
        m_pSlider->SetMaximum(1, 230);
        m_pSlider->SetCurrentControl(1);
        const struct {
            int start;
            Qt::Key key;
            int expected;
        } rows[] = {{100, Qt::Key_Left, 99}, {100, Qt::Key_Down, 99},    {100, Qt::Key_Right, 101},
                    {100, Qt::Key_Up, 101},  {100, Qt::Key_PageUp, 110}, {100, Qt::Key_PageDown, 90},
                    {100, Qt::Key_Home, 20}, {100, Qt::Key_End, 230},    {225, Qt::Key_PageUp, 230},
                    {100, Qt::Key_A, 100}};
        // Mirrored windows do not mirror the histogram above, so neither the slider's keys.
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            m_pSlider->setLayoutDirection(direction);
            for (const auto& row : rows) {
                m_pSlider->SetValue(1, row.start);
                QTest::keyClick(m_pSlider, row.key);
                QCOMPARE(m_pSlider->Value(1), row.expected);
            }
        }
        QCOMPARE(m_pSlider->Value(0), 0);
    }

    void TabVisitsHandlesThenLeaves() {
        auto* next = new QWidget(m_pWindow.get());
        next->setFocusPolicy(Qt::StrongFocus);
        next->show();
        QWidget::setTabOrder(m_pSlider, next);
        m_pSlider->SetCurrentControl(0);
        for (const uint handle : {1u, 2u}) {
            QTest::keyClick(m_pSlider, Qt::Key_Tab);
            QVERIFY(m_pSlider->hasFocus());
            QCOMPARE(m_pSlider->CurrentControl(), handle);
        }
        QTest::keyClick(m_pSlider, Qt::Key_Tab);
        QVERIFY(next->hasFocus());
        m_pSlider->SetCurrentControl(0);
        QTest::keyClick(next, Qt::Key_Backtab);
        QVERIFY(m_pSlider->hasFocus());
        QCOMPARE(m_pSlider->CurrentControl(), 2u);
        QTest::keyClick(m_pSlider, Qt::Key_Backtab);
        QCOMPARE(m_pSlider->CurrentControl(), 1u);
    }

    void Wheel_data() {
        HBColumns<bool, QVector<int>, int, int, bool>("focused", "turns", "modifiers", "expected", "accepted");
        using List = QVector<int>;
        QTest::newRow("a notch") << true << List{120} << 0 << 129 << true;
        QTest::newRow("back") << true << List{-240} << 0 << 126 << true;
        QTest::newRow("fine wheel") << true << List{50, 50, 50} << 0 << 129 << true;
        QTest::newRow("page") << true << List{120} << int(Qt::ShiftModifier) << 138 << true;
        QTest::newRow("not focused: left to the scroll area") << false << List{120} << 0 << 128 << false;
    }

    void Wheel() {
        QFETCH(bool, focused);
        QFETCH(QVector<int>, turns);
        QFETCH(int, modifiers);
        QFETCH(bool, accepted);
        m_pSlider->SetCurrentControl(1);
        if (!focused) m_pSlider->clearFocus();
        for (const int turn : turns) {
            QWheelEvent event(QPointF(50, 5), m_pSlider->mapToGlobal(QPoint(50, 5)), {}, {0, turn}, Qt::NoButton,
                              Qt::KeyboardModifiers(modifiers), Qt::NoScrollPhase, false);
            QApplication::sendEvent(m_pSlider, &event);
            QCOMPARE(event.isAccepted(), accepted);
        }
        QTEST(m_pSlider->Value(1), "expected");
    }

    void AssistiveTechnologyReachesEachHandle() {
        m_pSlider->SetControlName(2, QStringLiteral("White point"));
        m_pSlider->SetMinimum(2, 130);
        QAccessibleInterface* group = QAccessible::queryAccessibleInterface(m_pSlider);
        QVERIFY(group);
        QCOMPARE(group->childCount(), 3);
        QAccessibleInterface* handle = group->child(2);
        QVERIFY(handle && handle->isValid());
        QCOMPARE(group->indexOfChild(handle), 2);
        QCOMPARE(handle->parent(), group);
        QCOMPARE(handle->text(QAccessible::Name), QStringLiteral("White point"));
        QCOMPARE(group->child(0)->text(QAccessible::Name), QStringLiteral("Handle 1"));
        QVERIFY(m_pSlider->rect().contains(handle->rect().translated(-m_pSlider->mapToGlobal(QPoint()))));

        QAccessibleValueInterface* value = handle->valueInterface();
        QVERIFY(value);
        QCOMPARE(value->minimumValue().toInt(), 130);
        value->setCurrentValue(10);
        QCOMPARE(m_pSlider->Value(2), 130);
        handle->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        QCOMPARE(value->currentValue().toInt(), 131);
        handle->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        QCOMPARE(m_pSlider->CurrentControl(), 2u);
        QVERIFY(handle->state().focused);
        QCOMPARE(group->focusChild(), handle);
    }

    void PaintsAtAnySize() {
        for (const QSize size : {QSize(1, 1), QSize(5, 10), QSize(12, 3), QSize(1000, 60)}) {
            m_pSlider->resize(size);
            m_pSlider->grab();
            for (uint i = 0; i < 3; ++i) m_pSlider->ControlRect(i);
        }
        // A black handle must not vanish on a dark window, nor a white one on a light window.
        m_pSlider->resize(Width, 14);
        for (const QColor& window : {QColor(Qt::black), QColor(Qt::white)}) {
            QPalette palette;
            palette.setColor(QPalette::Window, window);
            palette.setColor(QPalette::WindowText, window == Qt::black ? Qt::white : Qt::black);
            m_pWindow->setPalette(palette);
            const QImage image = m_pWindow->grab(m_pSlider->geometry()).toImage();
            for (uint i = 0; i < 3; ++i) {
                int visible = 0;
                const QRect rect = m_pSlider->ControlRect(i) & image.rect();
                for (int x = rect.left(); x <= rect.right(); ++x)
                    visible += qAbs(qGray(image.pixel(x, 9)) - qGray(window.rgb())) > 60;
                QVERIFY2(visible >= 2, qPrintable(QStringLiteral("handle %1").arg(i)));
            }
        }
    }

private:
    std::unique_ptr<QWidget> m_pWindow;
    MavuCustomSlider* m_pSlider = nullptr;

    void Mouse(QEvent::Type type, double x, double y = 8) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, {x, y}, m_pSlider->mapToGlobal(QPoint(int(x), int(y))), button, held,
                          Qt::NoModifier);
        QApplication::sendEvent(m_pSlider, &event);
    }
    static QPoint At(int value) { return {value + 2, 8}; }
};

HB_TEST_MAIN(TestMavuCustomSlider)
#include "tst_MavuCustomSlider.moc"

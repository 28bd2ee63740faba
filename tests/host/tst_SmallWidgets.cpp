// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBColorWidget.h>
#include <HBCommonComboBox.h>
#include <HBTestMain.h>

#include <QLineEdit>
#include <QVBoxLayout>
#include <QWheelEvent>

class TestSmallWidgets : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void GradientsCoverTheWidget() {
        for (const bool vertical : {false, true}) {
            for (const auto mode :
                 {QGradient::StretchToDeviceMode, QGradient::ObjectBoundingMode, QGradient::ObjectMode}) {
                QLinearGradient gradient(0, 0, vertical ? 0 : 1, vertical ? 1 : 0);
                gradient.setColorAt(0, Qt::black);
                gradient.setColorAt(1, Qt::white);
                gradient.setCoordinateMode(mode);
                // Inside a larger window, off its origin: a stretch to the window would show.
                QWidget window;
                window.resize(600, 500);
                HBColorWidget widget(&window);
                widget.setGeometry(150, 100, 256, 256);
                widget.SetBackgroundBrush(gradient);
                widget.setEnabled(vertical); // which changes no colour
                QCOMPARE(widget.BackgroundBrush(), QBrush(gradient));
                const QImage image = window.grab(widget.geometry()).toImage();
                for (int i = 0; i < 256; ++i) {
                    const int level = qGray(vertical ? image.pixel(128, i) : image.pixel(i, 128));
                    QVERIFY2(qAbs(level - i) <= 1, qPrintable(QStringLiteral("%1 at %2").arg(level).arg(i)));
                }
            }
        }
    }

    void TranslucentColorsShowChecks() {
        HBColorWidget widget;
        widget.resize(40, 20);
        const auto colors = [&widget] {
            const QImage image = widget.grab().toImage();
            QSet<QRgb> seen;
            for (int y = 0; y < 20; ++y) // to the edges: there is no frame
                for (int x = 0; x < 40; ++x) seen << image.pixel(x, y);
            return seen.size();
        };
        widget.SetBackgroundBrush(QColor(200, 30, 30));
        QCOMPARE(colors(), 1);
        widget.SetBackgroundBrush(QColor(200, 30, 30, 100));
        QCOMPARE(colors(), 2);
    }

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
};

HB_TEST_MAIN(TestSmallWidgets)
#include "tst_SmallWidgets.moc"

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBColorWidget.h>
#include <HBTestMain.h>

class TestHBColorWidget : public QObject {
    Q_OBJECT
private slots:
    void GradientsCoverTheWidget_data();
    void GradientsCoverTheWidget();
    void TranslucentColoursShowChecks();
};

void TestHBColorWidget::GradientsCoverTheWidget_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("vertical");
    for (const bool vertical : {false, true}) {
        const char* way = vertical ? "vertical" : "horizontal";
        QTest::addRow("%s, device", way) << int(QGradient::StretchToDeviceMode) << vertical;
        QTest::addRow("%s, bounding", way) << int(QGradient::ObjectBoundingMode) << vertical;
        QTest::addRow("%s, object", way) << int(QGradient::ObjectMode) << vertical;
    }
}

void TestHBColorWidget::GradientsCoverTheWidget() {
    QFETCH(int, mode);
    QFETCH(bool, vertical);
    QLinearGradient gradient(0, 0, vertical ? 0 : 1, vertical ? 1 : 0);
    gradient.setColorAt(0, Qt::black);
    gradient.setColorAt(1, Qt::white);
    gradient.setCoordinateMode(QGradient::CoordinateMode(mode));
    // Inside a larger window, off its origin: a stretch to the window would show.
    QWidget window;
    window.resize(600, 500);
    HBColorWidget widget(&window);
    widget.setGeometry(150, 100, 256, 256);
    widget.SetBackgroundBrush(gradient);
    QCOMPARE(widget.BackgroundBrush(), QBrush(gradient));
    const QImage image = window.grab(widget.geometry()).toImage();
    for (int i = 2; i < 254; ++i) {
        const int level = qGray(vertical ? image.pixel(128, i) : image.pixel(i, 128));
        QVERIFY2(qAbs(level - i) <= 1, qPrintable(QStringLiteral("%1 at %2").arg(level).arg(i)));
    }
}

void TestHBColorWidget::TranslucentColoursShowChecks() {
    HBColorWidget widget;
    widget.resize(40, 20);
    const auto colours = [&widget] {
        const QImage image = widget.grab().toImage();
        QSet<QRgb> seen;
        for (int y = 2; y < 18; ++y)
            for (int x = 2; x < 38; ++x) seen << image.pixel(x, y);
        return seen.size();
    };
    widget.SetBackgroundBrush(QColor(200, 30, 30));
    QCOMPARE(colours(), 1);
    widget.SetBackgroundBrush(QColor(200, 30, 30, 100));
    QCOMPARE(colours(), 2);
}

HB_TEST_MAIN(TestHBColorWidget)
#include "tst_HBColorWidget.moc"

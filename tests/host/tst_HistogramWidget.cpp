// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBTestMain.h>
#include <HBTestPool.h>
#include <HistogramWidget.h>

#include <QGridLayout>

#include <memory>

namespace {

QImage Grey(int level, int width = 20, int height = 10) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(level, level, level));
    return image;
}

/// A widget that has counted a picture.
struct Counted {
    HBSharedImage<QImage> shared;
    HistogramWidget widget;
    QSignalSpy complete{&widget, SIGNAL(HistogrammComplete())};

    explicit Counted(const QImage& picture) {
        shared.Set(picture);
        widget.SetImage(&shared);
        [this] { QVERIFY(complete.wait()); }();
    }
};

} // namespace

class TestHistogramWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// While it is counted, it is not said that there is no picture.
    void SaysNothingBeforeItHasCounted() {
        HistogramWidget widget;
        widget.resize(200, 100);
        widget.show();
        const QImage none = widget.grab().toImage();
        HBSharedImage<QImage> shared;
        HBPoolBlock block;
        shared.Set(Grey(30, 300, 200));
        widget.SetImage(&shared);
        const QImage counting = widget.grab().toImage();
        QVERIFY(counting != none);
        block.Release();
        QTRY_VERIFY(widget.grab().toImage() != counting);
        widget.SetImage(static_cast<HBSharedImage<QImage>*>(nullptr));
        QCOMPARE(widget.grab().toImage(), none);
    }

    void CountsEitherKind() {
        QImage picture = Grey(30, 300, 200);
        picture.setPixel(5, 5, qRgb(10, 200, 255));
        HBSharedImage<QImage> plain;
        plain.Set(picture);
        HBSharedImage<HBImage<>> tiled;
        tiled.Set(HBImage<>::FromQImage(picture));

        HistogramWidget widget;
        QSignalSpy complete(&widget, SIGNAL(HistogrammComplete()));
        for (int round = 0; round < 2; ++round) {
            round == 0 ? widget.SetImage(&plain) : widget.SetImage(&tiled);
            QVERIFY(complete.wait());
            QCOMPARE(complete.count(), round + 1);
            QCOMPARE(widget.GetPixelsCount(), 60000.0);
            int low = -1;
            int high = -1;
            widget.GetRange(0, low, high);
            QCOMPARE(qMakePair(low, high), qMakePair(10, 30));
            widget.GetRange(1, low, high);
            QCOMPARE(qMakePair(low, high), qMakePair(30, 200));
            QCOMPARE(widget.GetCount(2, 255), 1u);
            QCOMPARE(widget.GetCount(2, 30), 59999u);
            QCOMPARE(widget.GetCount(3, 30), 59999u);
        }
    }

    void TheNewestRequestWins() {
        HBSharedImage<QImage> first;
        first.Set(Grey(1));
        HBSharedImage<HBImage<>> second;
        second.Set(HBImage<>::FromQImage(Grey(2)));
        HistogramWidget widget;
        QSignalSpy complete(&widget, SIGNAL(HistogrammComplete()));
        {
            const HBPoolBlock block;
            widget.SetImage(&first);
            widget.SetImage(&second);
            first.Set(Grey(3)); // the copy was taken when it was asked for
        }
        QVERIFY(complete.wait());
        QCoreApplication::processEvents();
        QCOMPARE(complete.count(), 1);
        QCOMPARE(widget.GetCount(0, 2), 200u);
        QCOMPARE(widget.GetPixelsCount(), 200.0);
    }

    void RebuildsAfterAChange() {
        Counted c(Grey(1));
        c.shared.Set(Grey(9));
        QCOMPARE(c.widget.GetCount(0, 1), 200u);
        c.widget.RebuildHistogramm();
        QVERIFY(c.complete.wait());
        QCOMPARE(c.widget.GetCount(0, 9), 200u);
    }

    /// What nobody looks at waits: for a look, a listener or a question.
    void CountsForSomebodyOnly() {
        HBSharedImage<QImage> shared;
        shared.Set(Grey(7));
        enum { Shown, Listened, Asked };
        for (const int way : {Shown, Listened, Asked}) {
            HBThreadPool().waitForDone(); // for the thread of a count that has been delivered
            HistogramWidget widget;
            widget.SetImage(&shared);
            QCoreApplication::processEvents();
            QCOMPARE(HBThreadPool().activeThreadCount(), 0);
            if (way == Shown) widget.show();
            QSignalSpy complete(&widget, way == Asked ? SIGNAL(destroyed()) : SIGNAL(HistogrammComplete()));
            if (way != Asked) QVERIFY(complete.wait());
            QCOMPARE(widget.GetCount(0, 7), 200u);
        }
        // A count that runs when the widget is hidden does not outlive the request that then waits.
        Counted c(Grey(1));
        c.widget.show();
        disconnect(&c.widget, nullptr, &c.complete, nullptr);
        {
            const HBPoolBlock block;
            c.widget.RebuildHistogramm();
            c.widget.hide();
            c.shared.Set(Grey(9));
            c.widget.RebuildHistogramm();
        }
        QCoreApplication::processEvents();
        QCOMPARE(c.widget.GetCount(0, 9), 200u);
        QCOMPARE(c.widget.GetCount(0, 1), 0u);
    }

    void ANullPointerClears() {
        Counted c(Grey(1));
        {
            const HBPoolBlock block; // also a count that has not begun must not come back
            c.widget.RebuildHistogramm();
            c.widget.SetImage(static_cast<HBSharedImage<HBImage<>>*>(nullptr));
        }
        QCoreApplication::processEvents();
        QCOMPARE(c.complete.count(), 1);
        QCOMPARE(c.widget.GetPixelsCount(), 0.0);
        int low = 5;
        int high = 5;
        c.widget.GetRange(0, low, high);
        QCOMPARE(qMakePair(low, high), qMakePair(0, 0));
    }

    void MayDieWhileCounting() {
        auto shared = std::make_unique<HBSharedImage<HBImage<>>>();
        shared->Set(HBImage<>::FromQImage(Grey(1, 2000, 2000)));
        {
            const HBPoolBlock block;
            HistogramWidget widget;
            widget.SetImage(shared.get());
            shared.reset();
        }
        QCoreApplication::processEvents();
    }

    void UnknownChannelsAndLevels() {
        Counted c(Grey(0));
        QCOMPARE(c.widget.GetCount(0, 0), 200u);
        for (const int bad : {-1, 4, 256, INT_MIN, INT_MAX}) {
            QCOMPARE(c.widget.GetCount(bad, 0), 0u);
            int low = 7;
            int high = 7;
            c.widget.GetRange(bad, low, high);
            QCOMPARE(qMakePair(low, high), qMakePair(0, 0));
        }
        QCOMPARE(c.widget.GetCount(0, -1), 0u);
        QCOMPARE(c.widget.GetCount(0, 256), 0u);
    }

    void ASpikeLeavesTheRestReadable() {
        QImage picture = Grey(255, 256, 400);
        for (int x = 0; x < 256; ++x)
            picture.setPixel(x, 0, qRgb(x, x, x)); // a flat row of levels under 100 000 white pixels
        HBSharedImage<QImage> shared;
        shared.Set(picture);
        HistogramWidget widget;
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::white);
        widget.setPalette(palette);
        widget.resize(260, 100);
        widget.SetChannel(1);
        QSignalSpy complete(&widget, SIGNAL(HistogrammComplete()));
        widget.SetImage(&shared);
        QVERIFY(complete.wait());
        const QImage image = widget.grab().toImage();
        QVERIFY(image.pixelColor(128, 60) != QColor(Qt::white));
        QCOMPARE(image.pixelColor(128, 10), QColor(Qt::white));
    }

    void ChannelsLookDifferent() {
        QImage picture(256, 64, QImage::Format_RGB32);
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 256; ++x) picture.setPixel(x, y, qRgb(x / 2, x, 255 - x / 3));
        HBSharedImage<QImage> shared;
        shared.Set(picture);
        HistogramWidget widget;
        const QImage empty = widget.grab().toImage();
        QSignalSpy complete(&widget, SIGNAL(HistogrammComplete()));
        widget.SetImage(&shared);
        QVERIFY(complete.wait());
        QList<QImage> looks{empty};
        for (const int mask : {7, 0, 1, 2, 4}) {
            widget.SetChannel(mask);
            const QImage look = widget.grab().toImage();
            QVERIFY(!looks.contains(look));
            looks << look;
        }
        widget.SetChannel(8 + 2); // unknown bits do not count
        QCOMPARE(widget.Channel(), 2);
        for (const QSize size : {QSize(1, 1), QSize(3, 300), QSize(0, 0)}) {
            widget.resize(size);
            widget.grab();
        }
    }
};

HB_TEST_MAIN(TestHistogramWidget)
#include "tst_HistogramWidget.moc"

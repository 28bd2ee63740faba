// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLostTiles.h"
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestPool.h"

#include <HBAdjustmentProcessingTemplate.h>
#include <HBBlend.h>
#include <HBIterativeAdjustmentTransformation.h>

#include <QtConcurrent>
#include <QThreadPool>

#include <sys/resource.h>

#include <functional>
#include <future>
#include <limits>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

constexpr int Most = std::numeric_limits<int>::max();
constexpr int Least = std::numeric_limits<int>::min();
const QRect NoBounds(QPoint(0, 0), QPoint(-1, -1));

struct Invert {
    void operator()(HBRGBA32i& pixel) const {
        pixel = HBRGBA32i(std::uint8_t(255 - pixel.red), std::uint8_t(255 - pixel.green),
                          std::uint8_t(255 - pixel.blue), pixel.alpha);
    }
};
using InvertTransformation = HBIterativeAdjustmentTransformation<Invert>;

/// Inverts, and calls `hook` with the number of the tile (TileNumbers()) before it does.
struct HookedTransformation {
    std::function<void(int tile)> hook;
    HBRGBA32i* pixels = nullptr;

    void SetProcessingBuffer(HBRGBA32i* buffer) {
        pixels = buffer;
        hook(pixels[0].red);
    }
    void operator()(int index) const { Invert()(pixels[index]); }
};

/// An image whose pixels hold the number of their tile.
HBImage<> TileNumbers(int width, int height) {
    HBImage<> image(width, height);
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), true);
        std::fill_n(pin.Pixels(), HBImage<>::TilePixels, HBRGBA32i(std::uint8_t(index), 0, 0));
    }
    return image;
}

/// Coverage in all four bytes, from 0 to 255 and all between.
HBRGBA32i MaskPixel(int x, int y) {
    const auto coverage = std::uint8_t(x % 3 == 0 ? 0 : x % 3 == 1 ? 255 : x * 7 + y * 13);
    return {coverage, coverage, coverage, coverage};
}

HBImage<> Mask(const QSize& size) {
    return HBTestPicture(size.width(), size.height(), [](int x, int y) { return MaskPixel(x, y).ToRgba(); });
}

/// What a job must give, pixel by pixel from the definition.
QImage Expected(QImage image, const QSize& mask, const QPoint& offset, const QRect& bounds) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const HBRGBA32i source = HBRGBA32i::FromRgba(image.pixel(x, y));
            HBRGBA32i pixel = source;
            Invert()(pixel);
            if (bounds.isValid()) {
                const qint64 sx = qint64(x) - offset.x();
                const qint64 sy = qint64(y) - offset.y();
                const bool inside = sx >= 0 && sy >= 0 && sx < mask.width() && sy < mask.height() &&
                                    bounds.contains(int(sx), int(sy));
                if (inside)
                    HBBlend::HBSourceBySelection()(source, pixel, MaskPixel(int(sx), int(sy)));
                else
                    pixel = source;
            }
            image.setPixel(x, y, pixel.ToRgba());
        }
    }
    return image;
}

/// A job and what it reported.
template <class Transformation>
struct Job {
    QReadWriteLock guard;
    bool newData = false;
    HBAdjustmentProcessingTemplate<Transformation> processing;
    int maximum = -1;
    std::vector<int> values;

    explicit Job(const Transformation& transformation) : processing(transformation, &guard, &newData) {
        // Direct, on whichever lane reports: the signals come one at a time.
        QObject::connect(&processing, &HBAdjustmentProcessing::RangeChanged,
                         [this](int minimum, int most) { maximum = minimum == 0 ? most : -2; });
        QObject::connect(&processing, &HBAdjustmentProcessing::ProgressChanged,
                         [this](int value) { values.push_back(value); });
    }
    bool CountedUpTo(int last) const {
        int value = 0;
        return int(values.size()) == last &&
               std::all_of(values.begin(), values.end(), [&](int v) { return v == ++value; });
    }
};

} // namespace

class tst_HBAdjustmentProcessing : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void Result_data() {
        HBColumns<QSize, QSize, QPoint, QRect, int>("size", "mask", "offset", "bounds", "maximum");
        const QSize photo(300, 200); // 3 × 2 tiles
        const QPoint none;
        for (int side : {1, 127, 128, 129, 257}) {
            const int tiles = (side + 127) / 128;
            QTest::addRow("%d, everything", side)
                << QSize(side, side) << QSize() << none << NoBounds << tiles * tiles;
            QTest::addRow("%d, selection", side) << QSize(side, side) << QSize(side, side) << none
                                                 << QRect(0, 0, side, side) << tiles * tiles + side;
            QTest::addRow("%d, strip", side) << QSize(side, 1) << QSize() << none << NoBounds << tiles;
        }
        QTest::newRow("empty image") << QSize(0, 7) << QSize(9, 9) << none << QRect(0, 0, 9, 9) << 0;
        QTest::newRow("empty image, everything") << QSize() << QSize() << none << NoBounds << 0;
        QTest::newRow("one tile") << photo << photo << none << QRect(130, 10, 20, 30) << 31;
        QTest::newRow("tile corner") << photo << photo << none << QRect(100, 100, 60, 60) << 4 + 60;
        QTest::newRow("corner pixel of a tile") << QSize(128, 128) << photo << none << QRect(10, 10, 5, 5) << 6;
        QTest::newRow("offset back") << photo << photo << QPoint(-90, -90) << QRect(100, 100, 60, 60) << 1 + 60;
        QTest::newRow("offset on") << photo << QSize(70, 70) << QPoint(101, 77) << QRect(5, 5, 60, 60) << 4 + 60;
        QTest::newRow("over the border") << photo << photo << QPoint(250, 150) << QRect(0, 0, 90, 90) << 2 + 50;
        QTest::newRow("beside") << QSize(64, 64) << photo << QPoint(1000, 0) << QRect(0, 0, 10, 10) << 0;
        QTest::newRow("before") << QSize(64, 64) << photo << QPoint(-11, 0) << QRect(0, 0, 10, 10) << 0;
        QTest::newRow("larger than the mask") << photo << QSize(50, 40) << none << QRect(0, 0, 300, 200) << 6 + 40;
        QTest::newRow("no mask") << photo << QSize() << none << QRect(1, 1, 5, 5) << 1;
        QTest::newRow("all ints") << photo << photo << none << QRect(QPoint(Least, Least), QPoint(Most, Most))
                                  << 206;
        QTest::newRow("far offset") << photo << photo << QPoint(Most, Most)
                                    << QRect(QPoint(Least, Least), QPoint(Most, Most)) << 6;
        QTest::newRow("far corner") << photo << photo << QPoint(Most, Most)
                                    << QRect(QPoint(5, 5), QPoint(Most, Most)) << 0;
        QTest::newRow("inverted") << QSize(64, 64) << QSize() << none << QRect(QPoint(5, 5), QPoint(2, 2)) << 1;
    }
    void Result() {
        QFETCH(QSize, size);
        QFETCH(QSize, mask);
        QFETCH(QPoint, offset);
        QFETCH(QRect, bounds);
        QFETCH(int, maximum);
        const QImage photo = HBTestRamp(size.width(), size.height()).ToQImage();
        const HBImage<> source = HBImage<>::FromQImage(photo);
        const QImage expected = Expected(photo, mask, offset, bounds);
        for (int threads : {1, 4}) {
            const HBPoolSize pool(threads);
            Job<InvertTransformation> job{InvertTransformation(Invert())};
            const HBImage<> result = job.processing.Process(source, Mask(mask), offset, bounds);
            QCOMPARE(job.maximum, maximum);
            QVERIFY(job.CountedUpTo(maximum));
            QCOMPARE(result.ToQImage(), expected);
            QCOMPARE(source.ToQImage(), photo);
            QVERIFY(!job.processing.Exception());
        }
    }

    void UntouchedTilesStayShared() {
        const HBImage<> source = HBTestRamp(300, 200);
        Job<InvertTransformation> job{InvertTransformation(Invert())};
        const HBImage<> result = job.processing.Process(source, Mask({300, 200}), {}, QRect(130, 10, 20, 30));
        for (int index = 0; index < 6; ++index) QCOMPARE(result.Tile(index) == source.Tile(index), index != 1);
    }

    void TilesBeginInListOrder() {
        const HBPoolSize pool(1);
        std::vector<int> order;
        Job<HookedTransformation> job({[&](int tile) { order.push_back(tile); }});
        job.processing.Process(TileNumbers(400, 400), Mask({400, 400}), {}, QRect(130, 130, 200, 200));
        QCOMPARE(order, (std::vector<int>{5, 6, 9, 10}));
    }

    void ObsoleteFromTheStart() {
        const HBImage<> source = TileNumbers(300, 200);
        Job<InvertTransformation> job{InvertTransformation(Invert())};
        job.newData = true;
        const HBImage<> result = job.processing.Process(source, Mask({300, 200}), {}, QRect(0, 0, 300, 200));
        QVERIFY(result.Tiles() == source.Tiles());
        QCOMPARE(job.maximum, 206);
        QVERIFY(job.values.empty());
    }

    // The flag is set under the write lock from within the job: it would hang if the guard were held meanwhile.
    void ObsoleteAmongTheTiles() {
        const HBPoolSize pool(1);
        const HBImage<> source = TileNumbers(300, 200);
        std::function<void(int)> hook;
        Job<HookedTransformation> job({[&](int tile) { hook(tile); }});
        hook = [&](int tile) {
            const QWriteLocker locker(&job.guard);
            job.newData = tile == 2;
        };
        const HBImage<> result = job.processing.Process(source, {}, {}, NoBounds);
        QVERIFY(job.CountedUpTo(3));
        for (int index = 0; index < 6; ++index) QCOMPARE(result.Tile(index) == source.Tile(index), index > 2);
    }
    void ObsoleteAmongTheRows() {
        const HBPoolSize pool(1);
        Job<InvertTransformation> job{InvertTransformation(Invert())};
        QObject::connect(&job.processing, &HBAdjustmentProcessing::ProgressChanged, [&](int value) {
            const QWriteLocker locker(&job.guard);
            job.newData = value == 11;
        });
        job.processing.Process(TileNumbers(300, 200), Mask({300, 200}), {}, QRect(0, 0, 300, 200));
        QVERIFY(job.CountedUpTo(11));
    }

    void ThrowingTransformation() {
        const HBPoolSize pool(1);
        const HBImage<> source = TileNumbers(300, 200);
        Job<HookedTransformation> job({[](int tile) {
            if (tile == 2) throw std::runtime_error("tile two");
        }});
        const HBImage<> result = job.processing.Process(source, {}, {}, NoBounds);
        QVERIFY(job.CountedUpTo(2));
        QVERIFY(result.PixelAt(0, 0) != source.PixelAt(0, 0));
        QVERIFY(result.PixelAt(0, 199) == source.PixelAt(0, 199));
        QVERIFY(job.processing.Exception() != nullptr);
        try {
            std::rethrow_exception(job.processing.Exception());
        } catch (const std::runtime_error& error) { QCOMPARE(error.what(), "tile two"); }

        // With a selection, what lies outside it must come back even then.
        job.processing.Process(source, Mask({300, 200}), {}, NoBounds);
        const QRect bounds(0, 0, 290, 190);
        const QImage selected = job.processing.Process(source, Mask({300, 200}), {}, bounds).ToQImage();
        const QImage before = source.ToQImage();
        QCOMPARE(selected.copy(290, 0, 10, 200), before.copy(290, 0, 10, 200));
        QCOMPARE(selected.copy(0, 190, 300, 10), before.copy(0, 190, 300, 10));
        QCOMPARE(selected.copy(0, 128, 300, 72), before.copy(0, 128, 300, 72)); // the tiles after the exception
        QVERIFY(selected.copy(0, 0, 128, 128) != before.copy(0, 0, 128, 128));
    }

    void UnrestorableTile() {
        const HBPoolSize pool(1);
        const HBImage<> source = TileNumbers(300, 200);
        bool lost = false;
        Job<HookedTransformation> job({[&](int tile) { lost = tile == 5 && HBLoseTiles(); }});
        const HBImage<> result = job.processing.Process(source, Mask({300, 200}), {},
                                                        QRect(10, 10, 280, 180)); // no tile is wholly inside
        QVERIFY(lost);
        QVERIFY(job.processing.Exception() != nullptr);
        for (int index = 0; index < 6; ++index) QVERIFY(result.Tile(index) == source.Tile(index));
    }

    // Of tiles that are shared, of the picture's own, and of those that nobody has written to.
    void RunsOfATile_data() {
        QTest::addColumn<HBImage<>>("source");
        QTest::addColumn<bool>("shared");
        QTest::newRow("shared") << TileNumbers(300, 200) << true;
        QTest::newRow("own") << TileNumbers(300, 200) << false;
        QTest::newRow("unwritten") << HBImage<>(300, 200) << true;
    }
    void RunsOfATile() {
        QFETCH(const HBImage<>, source);
        QFETCH(const bool, shared);
        HBImage<> image = source;
        image.DetachList();
        if (!shared) image.Detach(4);
        const HBRGBA32i before = source.PixelAt(128, 128);
        QVERIFY_EXCEPTION_THROWN(HBTileAccess(image, 4).ChangeByRuns([](HBRGBA32i*, int first, int) {
            if (first == 0) throw std::runtime_error("at once");
        }),
                                 std::runtime_error);
        QVERIFY(image.PixelAt(128, 128) == before);
        {
            HBTileAccess tile(image, 4);
            for (int time = 1; time <= 2; ++time) { // the second one changes what the first has made
                int next = 0;
                tile.ChangeByRuns([&](HBRGBA32i* pixels, int first, int count) {
                    QCOMPARE(first, next);
                    next += count;
                    for (int i = first; i < next; ++i)
                        pixels[i].green = std::uint8_t(pixels[i].green + time + i % 7);
                });
                QCOMPARE(next, HBImage<>::TilePixels);
            }
        }
        const KMTilePin<HBRGBA32i> pin(image.Tile(4), false);
        for (int i = 0; i < HBImage<>::TilePixels; ++i) {
            HBRGBA32i expected = before;
            expected.green = std::uint8_t(3 + 2 * (i % 7));
            QVERIFY(pin.Pixels()[i] == expected);
        }
        QVERIFY(source.PixelAt(128, 128) == before);
    }

    // A task that the pool cannot find a thread for is lost, and the end of the program waits for it for ever.
    void WhereTheSystemStartsNoThreads() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        QSKIP("Sanitizers need all addresses there are.");
#else
        const QImage photo = HBTestRamp(300, 200).ToQImage();
        const HBImage<> source = HBImage<>::FromQImage(photo);
        QThreadPool& pool = HBThreadPool();
        pool.waitForDone();
        QFile sizes("/proc/self/statm");
        QVERIFY(sizes.open(QIODevice::ReadOnly));
        const rlim_t used = sizes.readAll().split(' ').value(0).toULongLong() * rlim_t(sysconf(_SC_PAGESIZE));
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_AS, &before), 0);
        const rlimit tight{used + (6 << 20), before.rlim_max}; // less than a stack
        QCOMPARE(setrlimit(RLIMIT_AS, &tight), 0);
        std::promise<void> end;
        const std::shared_future<void> ended = end.get_future().share();
        std::vector<std::thread> others; // they take the stacks of threads that have ended
        try {
            for (;;) others.emplace_back([ended] { ended.wait(); });
        } catch (const std::system_error&) {}
        {
            const HBPoolSize threads(4);
            Job<InvertTransformation> job{InvertTransformation(Invert())};
            const HBImage<> result = job.processing.Process(source, {}, {}, NoBounds);
            setrlimit(RLIMIT_AS, &before);
            QCOMPARE(result.ToQImage(), Expected(photo, {}, {}, NoBounds));
        }
        end.set_value();
        for (std::thread& thread : others) thread.join();
        QTRY_COMPARE(pool.activeThreadCount(), 0);
#endif
    }

    // A pool whose threads are all taken by jobs must not keep the jobs waiting for a free one.
    void JobsOnAFullPool() {
        const QImage photo = HBTestRamp(700, 500).ToQImage();
        const HBImage<> source = HBImage<>::FromQImage(photo);
        const HBImage<> mask = Mask({700, 500});
        const QRect bounds(10, 10, 600, 400);
        const QImage expected = Expected(photo, {700, 500}, {}, bounds);
        for (const auto& [threads, jobs] : {std::pair(1, 1), std::pair(2, 2), std::pair(3, 8)}) {
            const HBPoolSize pool(threads);
            QVector<QFuture<HBImage<>>> results;
            for (int i = 0; i < jobs; ++i) {
                results << QtConcurrent::run(&HBThreadPool(), [&] {
                    Job<InvertTransformation> job{InvertTransformation(Invert())};
                    return job.processing.Process(source, mask, {}, bounds);
                });
            }
            for (QFuture<HBImage<>>& result : results) {
                QTRY_VERIFY_WITH_TIMEOUT(result.isFinished(),
                                         60000); // waiting for the future would run the job here
                QCOMPARE(result.result().ToQImage(), expected);
            }
        }
    }
};

HB_TEST_MAIN(tst_HBAdjustmentProcessing)
#include "tst_HBAdjustmentProcessing.moc"

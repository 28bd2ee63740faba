// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLostTiles.h"
#include "HBTestMain.h"

#include <HBUsableMemory.h>
#include <KMTileManager64.h>

#include <QDir>

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <new>
#include <random>
#include <thread>
#include <vector>

namespace {

constexpr int TileBytes = KMTileManager64::TileBytes;
constexpr const char* ScratchWarning =
    "Image data cannot be moved to the scratch file (is the disk full?): it stays in memory";

KMTileManager64& Manager() { return KMTileManager64::Instance(); }

using Pin = KMTilePin<uchar>;

void Fill(const KMTileRef& tile, int value) {
    const Pin pin(tile, true);
    std::fill_n(pin.Pixels(), TileBytes, uchar(value));
}

bool Holds(const KMTileRef& tile, int value) {
    const Pin pin(tile, false);
    return std::all_of(pin.Pixels(), pin.Pixels() + TileBytes, [=](uchar byte) { return byte == uchar(value); });
}

/// Tiles that hold 1, 2, 3 ...
std::vector<KMTileRef> MakeTiles(int count) {
    std::vector<KMTileRef> tiles;
    for (int i = 0; i < count; ++i) {
        tiles.emplace_back(Manager().MakeTile());
        Fill(tiles.back(), i + 1);
    }
    return tiles;
}

bool HoldTheirNumbers(const std::vector<KMTileRef>& tiles) {
    int value = 0;
    return std::all_of(tiles.begin(), tiles.end(), [&](const KMTileRef& tile) { return Holds(tile, ++value); });
}

} // namespace

class tst_KMTileManager64 : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        QVERIFY(m_Folder.isValid());
        Manager().SetScratchFolder(m_Folder.path());
        Manager().SetMemoryBudget(qint64(1) << 30);
        Manager().SetScratchLimit(-1);
    }
    void cleanup() {
        // Whatever a test did, nothing may be left of it.
        const KMTileManager64::Usage usage = Manager().CurrentUsage();
        QCOMPARE(usage.tiles, qint64(0));
        QCOMPARE(usage.resident, qint64(0));
        QCOMPARE(usage.scratch, qint64(0));
    }

    // First, while there is no scratch file yet: a folder that cannot be written is like a full disk.
    void UnwritableFolder() {
        Manager().SetScratchFolder(QStringLiteral("/proc/none"));
        Manager().SetMemoryBudget(4 * TileBytes);
        QTest::ignoreMessage(QtWarningMsg, ScratchWarning);
        int told = 0;
        Manager().SetTroubleHandler([&] {
            ++told;
            Manager().SetTroubleHandler({});
            MakeTiles(1); // under no lock
        });
        const auto tiles = MakeTiles(20);
        QVERIFY(HoldTheirNumbers(tiles));
        QCOMPARE(Manager().CurrentUsage().resident, qint64(20) * TileBytes);
        QCOMPARE(told, 1);
    }

    void FreshTileTakesNoMemoryAndIsZero() {
        KMTileRef used(Manager().MakeTile());
        Fill(used, 0xAB);
        used = KMTileRef(); // so that the next tile gets memory that is not zero by luck

        const KMTileRef tile(Manager().MakeTile());
        const KMTileRef copy(Manager().CopyTile(tile.Get()));
        QCOMPARE(Manager().CurrentUsage().resident, qint64(0));
        QVERIFY(Holds(tile, 0));
        QVERIFY(Holds(copy, 0));
        QCOMPARE(Manager().CurrentUsage().resident, qint64(2) * TileBytes);
        const Pin pin(tile, false);
        QCOMPARE(quintptr(pin.Pixels()) % 64, quintptr(0));
    }

    void UnwrittenTileHasMemoryAtOnce() {
        QVERIFY(!KMTileManager64::IsInMemory(KMTileRef(Manager().MakeTile()).Get()));
        Manager().SetMemoryBudget(4 * TileBytes);
        const auto tiles = MakeTiles(8);
        const KMTileRef tile(Manager().MakeUnwrittenTile());
        QVERIFY(KMTileManager64::IsInMemory(tile.Get()));
        Fill(tile, 9);
        QVERIFY(HoldTheirNumbers(tiles)); // which it had to make room for, and it for them
        QVERIFY(!KMTileManager64::IsInMemory(tile.Get()));
        QVERIFY(Holds(tile, 9));
    }

    void CopiesAreIndependent() {
        const auto tiles = MakeTiles(1);
        const KMTileRef copy(Manager().CopyTile(tiles[0].Get()));
        QVERIFY(!tiles[0].IsShared());
        Fill(tiles[0], 7);
        QVERIFY(Holds(copy, 1));
        const KMTileRef same = copy;
        QVERIFY(copy.IsShared() && same.IsShared());
    }

    void TilesMoveOutAndComeBack() {
        Manager().SetMemoryBudget(8 * TileBytes);
        const auto tiles = MakeTiles(100);
        QVERIFY(Manager().CurrentUsage().resident <= 8 * TileBytes);
        QVERIFY(Manager().CurrentUsage().scratch >= 92 * TileBytes);
        QVERIFY(HoldTheirNumbers(tiles));

        // What came back and is written again must be saved again.
        for (int i = 0; i < 100; ++i) Fill(tiles[std::size_t(i)], 100 - i);
        for (int i = 0; i < 100; ++i) QVERIFY(Holds(tiles[std::size_t(i)], 100 - i));

        std::vector<KMTileRef> copies;
        for (const KMTileRef& tile : tiles) copies.emplace_back(Manager().CopyTile(tile.Get()));
        for (int i = 0; i < 100; ++i) QVERIFY(Holds(copies[std::size_t(i)], 100 - i));
        QVERIFY(Manager().CurrentUsage().resident <= 8 * TileBytes);
    }

    void LeastRecentlyUsedLeaveFirst() {
        const auto tiles = MakeTiles(32);
        Manager().SetMemoryBudget(32 * TileBytes);
        QVERIFY(Holds(tiles[0], 1)); // the oldest becomes the youngest
        Manager().SetScratchLimit(0);
        QTest::ignoreMessage(QtWarningMsg, ScratchWarning);
        const auto more = MakeTiles(1); // evicts, in vain; now nothing is written any more

        Manager().SetScratchLimit(2 * TileBytes);
        const auto last = MakeTiles(1);
        QVERIFY(Manager().CurrentUsage().scratch > 0);
        const qint64 resident = Manager().CurrentUsage().resident;
        QVERIFY(Holds(tiles[0], 1));
        QCOMPARE(Manager().CurrentUsage().resident, resident); // it was still in memory
    }

    void PinnedTilesStay() {
        Manager().SetMemoryBudget(4 * TileBytes);
        const auto tiles = MakeTiles(8);
        std::vector<Pin> pins;
        for (const KMTileRef& tile : tiles) pins.emplace_back(tile, true);
        std::vector<uchar*> before;
        for (const Pin& pin : pins) before.push_back(pin.Pixels());
        const auto others = MakeTiles(16);
        QVERIFY(HoldTheirNumbers(others));
        for (std::size_t i = 0; i < pins.size(); ++i) {
            QCOMPARE(*before[i], uchar(i + 1));
            const Pin again(tiles[i], false); // counted: both pins count
            QCOMPARE(again.Pixels(), before[i]);
        }
    }

    void CleanTilesNeedNoMoreScratchSpace() {
        Manager().SetMemoryBudget(4 * TileBytes);
        const auto tiles = MakeTiles(64);
        QVERIFY(HoldTheirNumbers(tiles)); // by the end, every tile has been saved
        Manager().SetScratchLimit(0);
        for (int round = 0; round < 3; ++round)
            QVERIFY(HoldTheirNumbers(tiles)); // a warning here would fail the test
        QVERIFY(Manager().CurrentUsage().resident <= 4 * TileBytes);
    }

    void FullScratchFileLosesNothing() {
        Manager().SetMemoryBudget(4 * TileBytes);
        Manager().SetScratchLimit(10 * TileBytes);
        QTest::ignoreMessage(QtWarningMsg, ScratchWarning); // once
        auto tiles = MakeTiles(1000);
        QVERIFY(HoldTheirNumbers(tiles));
        QCOMPARE(Manager().CurrentUsage().scratch, qint64(10) * TileBytes);

        Manager().SetScratchLimit(-1);
        QVERIFY(HoldTheirNumbers(tiles));
        tiles.emplace_back(Manager().MakeTile());
        Fill(tiles.back(), 1001);
        QVERIFY(Manager().CurrentUsage().resident <= 4 * TileBytes);
        QVERIFY(HoldTheirNumbers(tiles));
    }

    void UnreadableTileIsAnErrorNotAPin() {
        Manager().SetMemoryBudget(4 * TileBytes);
        const auto tiles = MakeTiles(20);
        Manager().SetMemoryBudget(100 * TileBytes); // no more writing, which would fill the file with zeros
        QVERIFY(HBDestroyScratchFile(m_Folder.path()));
        int failed = 0;
        for (const KMTileRef& tile : tiles) {
            try {
                const Pin pin(tile, false);
            } catch (const std::bad_alloc&) {
                ++failed;
                QVERIFY_EXCEPTION_THROWN(Manager().CopyTile(tile.Get()), std::bad_alloc);
                QVERIFY(!tile.IsShared());
            }
        }
        QVERIFY(failed >= 16);
        QCOMPARE(Manager().CurrentUsage().tiles, qint64(20));
        QCOMPARE(Manager().CurrentUsage().resident, qint64(20 - failed) * TileBytes);
    }

    void FreeSlabsGoBackBeyondAReserve() {
        const qint64 reserve = qint64(64) << 20;
        {
            const auto tiles = MakeTiles(int(reserve / TileBytes) + 100);
            QVERIFY(Manager().CurrentUsage().slabs > reserve);
        }
        QCOMPARE(Manager().CurrentUsage().slabs, reserve);
    }

    void ManyThreadsFewTilesInMemory() {
        constexpr int threadCount = 4;
        constexpr int tileCount = 64;
        Manager().SetMemoryBudget(8 * TileBytes);
        const auto shared = MakeTiles(tileCount);
        std::atomic<int> wrong{0};
        std::vector<std::thread> threads;
        for (int t = 0; t < threadCount; ++t) {
            threads.emplace_back([&, t] {
                std::mt19937 random{unsigned(t)};
                auto own = MakeTiles(4);
                for (int step = 0; step < 600; ++step) {
                    const int number = int(random() % tileCount);
                    const KMTileRef tile = shared[std::size_t(number)];
                    wrong += !Holds(tile, number + 1);
                    KMTileRef& mine = own[random() % own.size()];
                    if (step % 3)
                        mine = KMTileRef(Manager().CopyTile(tile.Get()));
                    else
                        Fill(mine, number + 1);
                    wrong += !Holds(mine, number + 1);
                }
            });
        }
        for (std::thread& thread : threads) thread.join();
        QCOMPARE(wrong.load(), 0);
        QVERIFY(HoldTheirNumbers(shared));
    }

    void UsableMemory_data() {
        HBColumns<QByteArray, QString, int>("groups", "limits", "megabytes");
        // 0: all of the machine's
        QTest::newRow("no groups") << QByteArray() << "memory.max=9" << 0;
        QTest::newRow("version 2") << QByteArray("0::/a/b\n") << "a/b/memory.max=64" << 64;
        QTest::newRow("an outer group's") << QByteArray("0::/a/b\n") << "a/memory.max=32 a/b/memory.max=64" << 32;
        QTest::newRow("none") << QByteArray("0::/a\n") << "a/memory.max=max memory.max=none" << 0;
        QTest::newRow("larger than the machine") << QByteArray("0::/a\n") << "a/memory.max=8000000000" << 0;
        QTest::newRow("version 1") << QByteArray("9:cpu,memory:/a\n2:cpuset:/x\n")
                                   << "memory/x/memory.limit_in_bytes=8 memory/a/memory.limit_in_bytes=48" << 48;
        QTest::newRow("a container that is told an outer path")
            << QByteArray("5:memory:/outer/a\n") << "memory/memory.limit_in_bytes=16" << 16;
    }
    void UsableMemory() {
        QFETCH(QByteArray, groups);
        QFETCH(QString, limits);
        QFETCH(int, megabytes);
        const QTemporaryDir root;
        const auto write = [&root](const QString& path, const QByteArray& bytes) {
            QFile file(root.filePath(path));
            return QDir(root.path()).mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
                   file.write(bytes) == bytes.size();
        };
        QVERIFY(write("proc/self/cgroup", groups));
        for (const QString& limit : limits.split(' ')) {
            bool isNumber = false;
            const qint64 number = limit.section('=', 1).toLongLong(&isNumber) << 20;
            const QByteArray bytes = isNumber ? QByteArray::number(number) : limit.section('=', 1).toLatin1();
            QVERIFY(write("sys/fs/cgroup/" + limit.section('=', 0, 0), bytes + '\n'));
        }
        const qint64 machine = HBUsableMemory(root.filePath("none"));
        QVERIFY(machine > qint64(64) << 20 && HBUsableMemory() <= machine);
        Manager().SetMemoryBudget(0);
        QCOMPARE(Manager().MemoryBudget(), HBUsableMemory() / 2);
        QCOMPARE(HBUsableMemory(root.path()), megabytes ? qint64(megabytes) << 20 : machine);
    }

private:
    QTemporaryDir m_Folder;
};

HB_TEST_MAIN(tst_KMTileManager64)
#include "tst_KMTileManager64.moc"

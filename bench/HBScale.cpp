// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// A picture of a gigapixel, far more than the memory that tiles may have, goes through the brightness and contrast
// job. Prints the times and the peak of the resident memory; fails if a pixel is wrong or the peak too high.

#include <HBAdjustmentProcessingTemplate.h>
#include <HBIterativeBrightnessContrastTransformation.h>
#include <HBParallel.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <atomic>
#include <cstdio>
#include <functional>

namespace
{

constexpr int Side = 32768;
constexpr qint64 Budget = qint64(512) << 20;
constexpr int MostMiB = 900;

/// Every tile differs from its neighbours, in all four bytes.
HBRGBA32i SourcePixel(int tile, int pixel)
{
    return HBRGBA32i::FromRgba((std::uint32_t(tile) * 2654435761u) ^ (std::uint32_t(pixel) * 40503u));
}

void ForEachTile(const HBImage<>& image, const std::function<void(int index)>& function)
{
    std::atomic<int> next{0};
    const int tiles = image.Tiles().size();
    HBRunLanes(HBLaneCount(tiles), [&] {
        for (int index; (index = next.fetch_add(1)) < tiles;)
            function(index);
    });
}

HBImage<> MakePicture()
{
    HBImage<> image(Side, Side);
    ForEachTile(image, [&](int index) {
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), true);
        for (int i = 0; i < HBImage<>::TilePixels; ++i)
            pin.Pixels()[i] = SourcePixel(index, i);
    });
    return image;
}

qint64 CountWrongPixels(const HBImage<>& image, const HBChannelTables& tables)
{
    std::atomic<qint64> wrong{0};
    ForEachTile(image, [&](int index) {
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), false);
        qint64 count = 0;
        for (int i = 0; i < HBImage<>::TilePixels; ++i) {
            HBRGBA32i expected = SourcePixel(index, i);
            tables(expected);
            count += pin.Pixels()[i] != expected;
        }
        wrong += count;
    });
    return wrong;
}

/// The peak of the resident memory, or -1.
int PeakMiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toInt() / 1024;
    }
    return -1;
}

/// Runs `function`, prints how long it took and returns what it returned.
template <class Function>
auto Timed(const char* what, Function function)
{
    QElapsedTimer timer;
    timer.start();
    auto result = function();
    std::printf("%-8s %7.1f s, peak %d MiB\n", what, double(timer.elapsed()) / 1000, PeakMiB());
    std::fflush(stdout);
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    KMTileManager64::Instance().SetMemoryBudget(Budget);
    const HBIterativeBrightnessContrastTransformation transformation(30, 40);
    QReadWriteLock guard;
    const bool newData = false;
    HBAdjustmentProcessingTemplate<HBIterativeBrightnessContrastTransformation> processing(transformation, &guard,
                                                                                           &newData);

    const HBImage<> picture = Timed("make", MakePicture);
    const HBImage<> result = Timed("job", [&] { return processing.Process(picture, {}, {}, QRect()); });
    const qint64 wrong = Timed("check", [&] { return CountWrongPixels(result, transformation.Operation()); });
    const KMTileManager64::Usage usage = KMTileManager64::Instance().CurrentUsage();
    std::printf("tiles: %lld MiB in memory, %lld MiB in the scratch file; wrong pixels: %lld\n",
                usage.resident >> 20, usage.scratch >> 20, wrong);
    const int peak = PeakMiB();
    return wrong == 0 && !processing.Exception() && peak >= 0 && peak < MostMiB ? 0 : 1;
}

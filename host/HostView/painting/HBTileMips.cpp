// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTileMips.h"

#include <HBParallel.h>

#include <QElapsedTimer>
#include <QRunnable>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <functional>
#include <future>
#include <memory>
#include <new>

namespace
{

constexpr int TileSide = HBImage<>::TileSide;
// Shrunken tiles out of sight are given up beyond this.
constexpr qint64 MaximumBytes = 96 << 20;

int Side(int level)
{
    return TileSide >> level;
}

/// Pixels of the levels from `first` up to, not including, `end`.
int PixelsOfLevels(int first, int end)
{
    int pixels = 0;
    for (int level = first; level < end; ++level)
        pixels += Side(level) * Side(level);
    return pixels;
}

QRgb Mean(QRgb a, QRgb b, QRgb c, QRgb d)
{
    constexpr QRgb Mask = 0x00ff00ff;
    const QRgb even = (a & Mask) + (b & Mask) + (c & Mask) + (d & Mask) + 0x00020002;
    const QRgb odd = (a >> 8 & Mask) + (b >> 8 & Mask) + (c >> 8 & Mask) + (d >> 8 & Mask) + 0x00020002;
    return (even >> 2 & Mask) | (odd << 6 & ~Mask);
}

/// `to` may be `from`: what is written has been read before.
void Halve(const QRgb* from, int side, QRgb* to)
{
    const int half = side / 2;
    for (int y = 0; y < half; ++y) {
        const QRgb* upper = from + 2 * y * side;
        const QRgb* lower = upper + side;
        for (int x = 0; x < half; ++x)
            *to++ = Mean(upper[2 * x], upper[2 * x + 1], lower[2 * x], lower[2 * x + 1]);
    }
}

/// Copies the valid pixels of a tile and repeats the last column and row over the padding, so that the padding
/// does not show in the averages. Returns whether all are opaque.
bool CopyPadded(const QRgb* tile, const QSize& valid, QRgb* to)
{
    QRgb all = 0xff000000;
    for (int y = 0; y < TileSide; ++y) {
        const QRgb* row = tile + std::min(y, valid.height() - 1) * TileSide;
        QRgb* out = to + y * TileSide;
        std::memcpy(out, row, std::size_t(valid.width()) * sizeof(QRgb));
        std::fill(out + valid.width(), out + TileSide, row[valid.width() - 1]);
        for (int x = 0; x < TileSide; ++x)
            all &= out[x];
    }
    return all >= 0xff000000;
}

void MarkClipping(QRgb* pixels)
{
    constexpr QRgb Blown = 0xffff0000;
    constexpr QRgb Black = 0xff0000ff;
    for (int i = 0; i < TileSide * TileSide; ++i) {
        const QRgb pixel = pixels[i];
        if (qAlpha(pixel) == 0)
            continue;
        if (qRed(pixel) == 255 || qGreen(pixel) == 255 || qBlue(pixel) == 255)
            pixels[i] = Blown;
        else if ((pixel & 0x00ffffff) == 0)
            pixels[i] = Black;
    }
}

/// On a thread that jobs do not take. Where the system starts none the caller, who waits for it, does the work.
void RunAside(const std::function<void()>& work)
{
    static QThreadPool pool;
    const auto task = std::make_shared<std::packaged_task<void()>>(work);
    if (!HBTryStart(pool, [&] { pool.start(QRunnable::create([task] { (*task)(); })); }))
        (*task)();
    task->get_future().get(); // throws what the work has thrown
}

} // namespace

void HBTileMips::SetLook(const Look& look)
{
    if (look == m_Look)
        return;
    m_Look = look;
    for (Entry& entry : m_Entries)
        entry = Entry();
}

void HBTileMips::SetImage(const HBImage<>& image)
{
    const bool sameSize =
        !image.IsEmpty() && image.Width() == m_Image.Width() && image.Height() == m_Image.Height();
    if (!sameSize) {
        m_Entries.clear();
        m_Entries.resize(image.IsEmpty() ? 0 : std::size_t(image.Tiles().size()));
    } else {
        for (std::size_t i = 0; i < m_Entries.size(); ++i) {
            if (image.Tile(int(i)) != m_Image.Tile(int(i)))
                m_Entries[i].stale = true;
        }
    }
    m_Image = image;
}

bool HBTileMips::Prepare(const QRect& tiles, int level, int milliseconds)
{
    std::vector<int> missing;
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column) {
            const int index = row * m_Image.Columns() + column;
            const Entry& entry = m_Entries[std::size_t(index)];
            if (entry.stale || entry.level < 0 || entry.level > level)
                missing.push_back(index);
        }
    }
    if (missing.empty())
        return true;

    QElapsedTimer time;
    time.start();
    const int count = int(missing.size());
    std::atomic<int> next{0};
    std::atomic<int> made{0};
    const auto work = [&] {
        HBRunLanes(HBLaneCount(count), [&] {
            do {
                const int i = next.fetch_add(1);
                if (i >= count)
                    return;
                Make(missing[std::size_t(i)], level);
                ++made;
            } while (time.elapsed() < milliseconds);
        });
    };
    if (m_Look.IsPlain())
        work();
    else
        RunAside(work);
    m_Made += made;
    Trim(tiles);
    return made == count;
}

/// On any thread, for different tiles at once.
void HBTileMips::Make(int index, int level)
{
    Entry& entry = m_Entries[std::size_t(index)];
    QRgb buffer[TileSide * TileSide];
    try {
        const KMTilePin<HBRGBA32i> pin(m_Image.Tile(index), false);
        const auto* tile = reinterpret_cast<const QRgb*>(pin.Pixels());
        entry.opaque = CopyPadded(tile, m_Image.TileRect(index).size(), buffer);
    } catch (const std::bad_alloc&) {
        std::fill(std::begin(buffer), std::end(buffer), 0); // a tile that cannot be read shows as a hole
        entry.opaque = false;
    }
    if (m_Look.marksClipping)
        MarkClipping(buffer);
    if (!entry.opaque)
        std::transform(std::begin(buffer), std::end(buffer), std::begin(buffer),
                       [](QRgb pixel) { return qPremultiply(pixel); });

    for (int l = 1; l <= level; ++l)
        Halve(buffer, Side(l - 1), buffer);
    // The fewest pixels that are enough; the coarser levels follow from them.
    Convert(buffer, Side(level) * Side(level), entry.opaque);
    if (!entry.pixels || entry.level != level)
        entry.pixels.reset(new QRgb[std::size_t(PixelsOfLevels(level, LastLevel + 1))]);
    QRgb* to = std::copy_n(buffer, Side(level) * Side(level), entry.pixels.get());
    const QRgb* from = entry.pixels.get();
    for (int l = level + 1; l <= LastLevel; ++l) {
        Halve(from, Side(l - 1), to);
        from = to;
        to += Side(l) * Side(l);
    }
    entry.level = level;
    entry.stale = false;
}

/// Premultiplied pixels.
void HBTileMips::Convert(QRgb* pixels, int count, bool opaque) const
{
    if (!m_Look.colors)
        return;
    if (!opaque)
        std::transform(pixels, pixels + count, pixels, [](QRgb pixel) { return qUnpremultiply(pixel); });
    m_Look.colors->Apply(pixels, count);
    if (!opaque)
        std::transform(pixels, pixels + count, pixels, [](QRgb pixel) { return qPremultiply(pixel); });
}

QImage HBTileMips::TileImage(int index) const
{
    const Entry& entry = m_Entries[std::size_t(index)];
    if (entry.level != 0)
        return {};
    const QSize size = m_Image.TileRect(index).size();
    return QImage(reinterpret_cast<const uchar*>(entry.pixels.get()), size.width(), size.height(),
                  TileSide * int(sizeof(QRgb)),
                  entry.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

QImage HBTileMips::Assemble(const QRect& tiles, int level) const
{
    const int side = Side(level);
    QImage image(tiles.width() * side, tiles.height() * side, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    bool opaque = true;
    for (int row = tiles.top(); row <= tiles.bottom(); ++row) {
        for (int column = tiles.left(); column <= tiles.right(); ++column) {
            const Entry& entry = m_Entries[std::size_t(row * m_Image.Columns() + column)];
            const bool made = entry.level >= 0 && entry.level <= level;
            opaque = opaque && made && entry.opaque;
            const QRgb* from = made ? entry.pixels.get() + PixelsOfLevels(entry.level, level) : nullptr;
            for (int y = 0; y < side; ++y) {
                auto* to = reinterpret_cast<QRgb*>(image.scanLine((row - tiles.top()) * side + y)) +
                           (column - tiles.left()) * side;
                if (made)
                    std::copy(from + y * side, from + (y + 1) * side, to);
                else
                    std::fill(to, to + side, 0);
            }
        }
    }
    if (opaque)
        image.reinterpretAsFormat(QImage::Format_RGB32);
    return image;
}

void HBTileMips::Trim(const QRect& wanted)
{
    qint64 bytes = 0;
    for (const Entry& entry : m_Entries) {
        if (entry.level >= 0)
            bytes += PixelsOfLevels(entry.level, LastLevel + 1) * qint64(sizeof(QRgb));
    }
    if (bytes <= MaximumBytes)
        return;
    for (std::size_t i = 0; i < m_Entries.size(); ++i) {
        if (!wanted.contains(int(i) % m_Image.Columns(), int(i) / m_Image.Columns()))
            m_Entries[i] = Entry();
    }
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBHistogrammCalculator.h"

#include "HBParallel.h"
#include "HBQtImage.h"
#include "HBWarn.h"

#include <algorithm>
#include <limits>
#include <mutex>
#include <numeric>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace
{

using Counts = HBHistogrammCalculator::Counts;

constexpr int TileSide = HBImage<>::TileSide;
/// Rows of a QImage that one lane takes at a time; converted to 32 bits they are no more than a few MiB.
constexpr int StripRows = 64;

constexpr int LumaRun = 64;

/// LumaOf for a run of pixels, four at a time: its three multiplications are half of the time of a scalar count.
void LumaOfRun(const HBRGBA32i* pixels, quint32 (&luma)[LumaRun])
{
#ifdef __SSE2__
    const auto* weights = HBHistogrammCalculator::LumaWeights;
    const __m128i low = _mm_set1_epi32(0x00ff00ff);
    const __m128i redBlue = _mm_set1_epi32((weights[0] << 16) | weights[2]);
    const __m128i green = _mm_set1_epi32(weights[1]); // the other half of the lane holds alpha
    const __m128i half = _mm_set1_epi32(1 << 14);
    for (int i = 0; i < LumaRun; i += 4) {
        const __m128i four = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels + i));
        const __m128i sum = _mm_add_epi32(_mm_madd_epi16(_mm_and_si128(four, low), redBlue),
                                          _mm_madd_epi16(_mm_and_si128(_mm_srli_epi32(four, 8), low), green));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(luma + i), _mm_srli_epi32(_mm_add_epi32(sum, half), 15));
    }
#else
    for (int i = 0; i < LumaRun; ++i)
        luma[i] = quint32(HBHistogrammCalculator::LumaOf(pixels[i]));
#endif
}

/// The counters of one lane. Equal neighbours (sky, a white background) would wait for each other's increment in
/// one table, so that pixels go to four tables in turn; 16 bits and a level's channels side by side keep the four
/// in the fastest cache. They are emptied into wide counters before any can overflow.
class Lane
{
public:
    void Add(const HBRGBA32i* pixels, int count)
    {
        for (; count > 0; pixels += Block, count -= Block) {
            const int now = qMin(count, Block);
            if (m_Pending + now > MostPending)
                Flush();
            m_Pending += now;
            AddBlock(pixels, now);
        }
    }

    void FlushInto(Counts& counts)
    {
        Flush();
        for (int level = 0; level < 256; ++level)
            for (int channel = 0; channel < 4; ++channel)
                counts.levels[channel][level] += m_Sums[level][channel];
        counts.pixels += m_Pixels;
    }

private:
    static constexpr int Tables = 4;
    static constexpr int Block = 16384;
    static_assert(LumaRun % Tables == 0, "a run goes to every table alike");
    static constexpr int MostPending = std::numeric_limits<quint16>::max();

    void AddBlock(const HBRGBA32i* pixels, int count)
    {
        int i = 0;
        for (; i + LumaRun <= count; i += LumaRun) {
            quint32 luma[LumaRun];
            LumaOfRun(pixels + i, luma);
            for (int k = 0; k < LumaRun; k += Tables)
                for (int t = 0; t < Tables; ++t)
                    AddPixel(m_Tables[t], pixels[i + k + t], luma[k + t]);
        }
        for (; i < count; ++i)
            AddPixel(m_Tables[0], pixels[i], quint32(HBHistogrammCalculator::LumaOf(pixels[i])));
    }

    static void AddPixel(quint16 (&table)[256][4], HBRGBA32i pixel, quint32 luma)
    {
        const QRgb rgb = pixel.ToRgba(); // one load instead of three
        ++table[qRed(rgb)][HBHistogrammCalculator::Red];
        ++table[qGreen(rgb)][HBHistogrammCalculator::Green];
        ++table[qBlue(rgb)][HBHistogrammCalculator::Blue];
        ++table[luma][HBHistogrammCalculator::Luma];
    }

    void Flush()
    {
        for (auto& table : m_Tables) {
            for (int level = 0; level < 256; ++level) {
                for (int channel = 0; channel < 4; ++channel) {
                    m_Sums[level][channel] += table[level][channel];
                    table[level][channel] = 0;
                }
            }
        }
        m_Pixels += quint64(m_Pending);
        m_Pending = 0;
    }

    quint16 m_Tables[Tables][256][4] = {};
    quint64 m_Sums[256][4] = {};
    quint64 m_Pixels = 0;
    int m_Pending = 0;
};

/// Adds the pixels of `part`, in pixels of the tile.
void AddTile(Lane& lane, const HBRGBA32i* pixels, const QRect& part)
{
    if (part.width() == TileSide) {
        lane.Add(pixels + part.top() * TileSide, part.height() * TileSide);
        return;
    }
    for (int y = part.top(); y <= part.bottom(); ++y)
        lane.Add(pixels + y * TileSide + part.left(), part.width());
}

/// A picture in pieces, each counted by itself.
struct Pieces
{
    int count = 0;
    std::function<void(Lane& lane, int piece)> add;
};

Counts CountPieces(const Pieces& pieces, const std::atomic<bool>* abandoned)
{
    Counts total;
    std::mutex mutex;
    std::atomic<int> next{0};
    HBRunLanes(HBLaneCount(pieces.count), [&] {
        const auto lane = std::make_unique<Lane>();
        for (int piece = next++; piece < pieces.count && !(abandoned && *abandoned); piece = next++)
            pieces.add(*lane, piece);
        const std::lock_guard<std::mutex> lock(mutex);
        lane->FlushInto(total);
    });
    return total;
}

/// What the lanes of one count share that gives way to other work.
struct BehindCount
{
    static constexpr int PiecesPerStep = 4;

    Pieces pieces;
    HBHistogrammCalculator::Abandoned abandoned;
    HBHistogrammCalculator::Done done;
    std::atomic<int> next{0};
    std::atomic<bool> failed{false};
    std::mutex mutex;
    Counts total;
    int lanes = 0; ///< that have not ended

    bool Step(Lane& lane)
    {
        try {
            for (int i = 0; i < PiecesPerStep; ++i) {
                const int piece = *abandoned || failed ? pieces.count : next++;
                if (piece >= pieces.count) {
                    End(lane);
                    return false;
                }
                pieces.add(lane, piece);
            }
            return true;
        } catch (const std::exception& error) {
            if (!failed.exchange(true))
                HBWarn("The histogram could not be counted: ", error.what());
            End(lane);
            return false;
        }
    }

private:
    void End(Lane& lane)
    {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            lane.FlushInto(total);
            if (--lanes > 0)
                return;
        }
        done(failed ? Counts() : total);
    }
};

void StartBehind(const Pieces& pieces, const HBHistogrammCalculator::Abandoned& abandoned,
                 const HBHistogrammCalculator::Done& done)
{
    const auto count = std::make_shared<BehindCount>();
    count->pieces = pieces;
    count->abandoned = abandoned;
    count->done = done;
    // One processor stays free for the thread that shows the job's result.
    const int lanes = std::max(1, HBLaneCount(pieces.count) - 1);
    count->lanes = lanes;
    for (int i = 0; i < lanes; ++i)
        HBRunBehind([count, lane = std::make_shared<Lane>()] { return count->Step(*lane); });
}

/// The tiles that `rect` meets, as a rectangle of tile columns and rows; `rect` is inside the image.
QRect TilesOf(const QRect& rect)
{
    return {QPoint(rect.left() / TileSide, rect.top() / TileSide),
            QPoint(rect.right() / TileSide, rect.bottom() / TileSide)};
}

/// The pieces hold a copy of the image.
Pieces PiecesOf(const HBImage<>& image, const QRect& rect)
{
    // An inverted rectangle must go before the intersection, which would turn it round.
    const QRect part = rect.isValid() ? rect & QRect(0, 0, image.Width(), image.Height()) : QRect();
    if (image.IsEmpty() || part.isEmpty())
        return {};

    const QRect tiles = TilesOf(part);
    return {tiles.width() * tiles.height(), [image, part, tiles](Lane& lane, int piece) {
                const int column = tiles.left() + piece % tiles.width();
                const int row = tiles.top() + piece / tiles.width();
                const int index = row * image.Columns() + column;
                const KMTilePin<HBRGBA32i> pin(image.Tile(index), false);
                AddTile(lane, pin.Pixels(),
                        (image.TileRect(index) & part).translated(-column * TileSide, -row * TileSide));
            }};
}

Pieces PiecesOf(const QImage& image)
{
    const int height = image.height();
    return {(height + StripRows - 1) / StripRows, [image, height](Lane& lane, int piece) {
                const int top = piece * StripRows;
                const int rows = qMin(StripRows, height - top);
                QImage strip = image;
                if (image.format() != QImage::Format_RGB32 && image.format() != QImage::Format_ARGB32)
                    strip = HBConverted(image.copy(0, top, image.width(), rows), QImage::Format_ARGB32);
                if (strip.isNull())
                    throw std::bad_alloc();
                const int first = strip.height() == height ? top : 0;
                for (int y = first; y < first + rows; ++y)
                    lane.Add(reinterpret_cast<const HBRGBA32i*>(strip.constScanLine(y)), strip.width());
            }};
}

int Saturated(int before, quint64 more)
{
    const quint64 room = quint64(std::numeric_limits<int>::max() - qint64(before));
    return int(qint64(before) + qint64(qMin(more, room)));
}

} // namespace

HBHistogrammCalculator::Counts HBHistogrammCalculator::Count(const HBImage<>& image, const QRect& rect,
                                                             const std::atomic<bool>* abandoned)
{
    return CountPieces(PiecesOf(image, rect), abandoned);
}

HBHistogrammCalculator::Counts HBHistogrammCalculator::Count(const QImage& image,
                                                             const std::atomic<bool>* abandoned)
{
    return CountPieces(PiecesOf(image), abandoned);
}

void HBHistogrammCalculator::CountBehind(const HBImage<>& image, const Abandoned& abandoned, const Done& done)
{
    StartBehind(PiecesOf(image, QRect(0, 0, image.Width(), image.Height())), abandoned, done);
}

void HBHistogrammCalculator::CountBehind(const QImage& image, const Abandoned& abandoned, const Done& done)
{
    StartBehind(PiecesOf(image), abandoned, done);
}

void HBHistogrammCalculator::SetOutput(int* red, int* green, int* blue, int* luma)
{
    m_Outputs = {red, green, blue, luma};
}

void HBHistogrammCalculator::Accumulate(const HBImage<>& image, const QRect& rect)
{
    const Counts counts = Count(image, rect);
    for (int channel = 0; channel < ChannelCount; ++channel) {
        if (int* output = m_Outputs[channel])
            for (int level = 0; level < 256; ++level)
                output[level] = Saturated(output[level], counts.levels[channel][level]);
    }
}

std::vector<int> HBHistogrammCalculator::Threshold(const std::array<quint64, 256>& counts)
{
    const quint64 total = std::accumulate(counts.begin(), counts.end(), quint64(0));
    if (total == 0)
        return {0, 255};

    // The lowest level up to which at least this many thousandths of all pixels lie.
    const auto percentile = [&](quint64 thousandths) {
        quint64 sum = 0;
        for (int level = 0; level < 255; ++level) {
            sum += counts[std::size_t(level)];
            if (sum * 1000 >= total * thousandths && sum > 0)
                return level;
        }
        return 255;
    };
    return {percentile(5), percentile(995)};
}

std::vector<int> HBHistogrammCalculator::Threshold(const int* counts)
{
    std::array<quint64, 256> levels;
    std::transform(counts, counts + levels.size(), levels.begin(),
                   [](int count) { return quint64(qMax(count, 0)); });
    return Threshold(levels);
}

void HBHistogramLook::Begin(const HBImage<>&)
{
    m_Counts = {};
}

std::unique_ptr<HBPictureLook::Lane> HBHistogramLook::MakeLane()
{
    class LookLane : public HBPictureLook::Lane
    {
    public:
        explicit LookLane(HBHistogramLook& look) : m_Look(look) {}
        ~LookLane() override
        {
            const std::lock_guard<std::mutex> lock(m_Look.m_Mutex);
            m_Lane.FlushInto(m_Look.m_Counts);
        }
        void Add(const HBRGBA32i* pixels, const QRect& area, int) override
        {
            AddTile(m_Lane, pixels, QRect(QPoint(0, 0), area.size()));
        }

    private:
        HBHistogramLook& m_Look;
        ::Lane m_Lane;
    };
    return std::make_unique<LookLane>(*this);
}

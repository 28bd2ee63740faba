// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTailLevels.h"

#include "HBHistogrammCalculator.h"
#include "HBParallel.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <memory>
#include <mutex>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBTailLevels.cpp"
#include <hwy/foreach_target.h>

#include <hwy/highway.h>

#ifndef HB_TAIL_LEVELS_ONCE
#define HB_TAIL_LEVELS_ONCE
namespace
{

constexpr int Channels = 4;
enum End { Low, High, Ends };
/// Levels that are looked at near each end, at most.
constexpr int MostWindow = 6;
/// The level before the window and those in it.
constexpr int MostLimits = MostWindow + 1;

/// Levels; in a pixel's order, with luma in place of alpha. Pixels at or below a level are counted.
struct TailLimits
{
    int count; ///< for each end
    std::uint8_t level[Ends][MostLimits][Channels];
};

struct TailCounts
{
    std::uint64_t upTo[Ends][MostLimits][Channels];
};

} // namespace
#endif

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

void CountTails(const TailLimits& limits, const HBRGBA32i* pixels, int count, TailCounts& counts)
{
    for (int i = 0; i < count; ++i) {
        const int values[Channels] = {pixels[i].blue, pixels[i].green, pixels[i].red,
                                      HBHistogrammCalculator::LumaOf(pixels[i])};
        for (int end = 0; end < Ends; ++end) {
            for (int limit = 0; limit < limits.count; ++limit) {
                for (int c = 0; c < Channels; ++c)
                    counts.upTo[end][limit][c] += values[c] <= limits.level[end][limit][c];
            }
        }
    }
}

#else

/// The sums of the products of neighbouring 16-bit numbers.
template <class D>
HWY_INLINE hn::Vec<D> MultiplyPairs(D di, hn::Vec<D> a, std::int32_t pair)
{
    const auto b = hn::Set(di, pair);
#if HWY_ARCH_X86 && HWY_TARGET != HWY_EMU128
    using V = hn::Vec<D>;
    if constexpr (sizeof(V) == 64)
        return V{_mm512_madd_epi16(a.raw, b.raw)};
    else if constexpr (sizeof(V) == 32)
        return V{_mm256_madd_epi16(a.raw, b.raw)};
    else
        return V{_mm_madd_epi16(a.raw, b.raw)};
#else
    const auto lower = [](auto v) { return hn::ShiftRight<16>(hn::ShiftLeft<16>(v)); };
    const auto upper = [](auto v) { return hn::ShiftRight<16>(v); };
    return hn::Add(hn::Mul(lower(a), lower(b)), hn::Mul(upper(a), upper(b)));
#endif
}

/// The pixels with luma in place of alpha.
template <class D>
HWY_INLINE hn::Vec<D> WithLuma(D du, hn::Vec<D> words)
{
    const hn::RebindToSigned<D> di;
    const auto* weights = HBHistogrammCalculator::LumaWeights;
    const auto even = hn::Set(du, 0x00FF00FFu);
    const auto redBlue = hn::BitCast(di, hn::And(words, even));
    const auto alphaGreen = hn::BitCast(di, hn::And(hn::ShiftRight<8>(words), even));
    const auto sum = hn::Add(hn::Add(MultiplyPairs(di, redBlue, (weights[0] << 16) | weights[2]),
                                     MultiplyPairs(di, alphaGreen, weights[1])),
                             hn::Set(di, 1 << 14));
    const auto luma = hn::ShiftLeft<24>(hn::ShiftRight<15>(hn::BitCast(du, sum)));
    return hn::Or(hn::And(words, hn::Set(du, 0x00FFFFFFu)), luma);
}

template <class D, class V>
HWY_INLINE void AddCounts(D du, V above, std::uint32_t pixels, std::uint64_t (&counts)[Channels])
{
    // Two channels a word: a sum of 16 bytes stays below 65536.
    const auto packed = hn::BitCast(du, above);
    const auto even = hn::Set(du, 0x00FF00FFu);
    const std::uint32_t blueRed = hn::GetLane(hn::SumOfLanes(du, hn::And(packed, even)));
    const std::uint32_t greenLuma = hn::GetLane(hn::SumOfLanes(du, hn::And(hn::ShiftRight<8>(packed), even)));
    counts[0] += pixels - (blueRed & 0xFFFFu);
    counts[1] += pixels - (greenLuma & 0xFFFFu);
    counts[2] += pixels - (blueRed >> 16);
    counts[3] += pixels - (greenLuma >> 16);
}

/// Adds to the counts; a multiple of 16 pixels.
void CountTails(const TailLimits& limits, const HBRGBA32i* pixels, int count, TailCounts& counts)
{
    const hn::CappedTag<std::uint32_t, 16> du;
    const hn::Repartition<std::uint8_t, decltype(du)> bytes;
    const int lanes = int(hn::Lanes(du));
    constexpr int MostInByte = 255;
    constexpr int Block = 128; // of vectors, which stay in the fastest cache from limit to limit
    static_assert(Block <= MostInByte, "a byte counts a block");
    alignas(64) std::uint32_t words[Block * 16];

    const auto one = hn::Set(bytes, 1);
    const auto levels = [&](int end, int limit) {
        std::uint32_t level;
        std::memcpy(&level, limits.level[end][limit], sizeof level);
        return hn::BitCast(bytes, hn::Set(du, level));
    };
    for (int done = 0; done < count;) {
        const int vectors = std::min(Block, (count - done) / lanes);
        for (int v = 0; v < vectors; ++v) {
            const auto* from = reinterpret_cast<const std::uint32_t*>(pixels + done + v * lanes);
            hn::Store(WithLuma(du, hn::LoadU(du, from)), du, words + v * lanes);
        }
        for (int limit = 0; limit < limits.count; ++limit) {
            const auto low = levels(Low, limit);
            const auto high = levels(High, limit);
            auto aboveLow = hn::Zero(bytes);
            auto aboveHigh = hn::Zero(bytes);
            for (int v = 0; v < vectors; ++v) {
                const auto values = hn::BitCast(bytes, hn::Load(du, words + v * lanes));
                aboveLow = hn::IfThenElse(values > low, hn::Add(aboveLow, one), aboveLow);
                aboveHigh = hn::IfThenElse(values > high, hn::Add(aboveHigh, one), aboveHigh);
            }
            AddCounts(du, aboveLow, std::uint32_t(vectors * lanes), counts.upTo[Low][limit]);
            AddCounts(du, aboveHigh, std::uint32_t(vectors * lanes), counts.upTo[High][limit]);
        }
        done += vectors * lanes;
    }
}

#endif

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{

HWY_EXPORT(CountTails);

using Counts = HBHistogrammCalculator::Counts;

constexpr int TileSide = HBImage<>::TileSide;
/// Of fewer tiles the histogram is counted: their sample would tell too little.
constexpr int LeastTiles = 64;
/// The shares of pixels up to the low and the high level, in thousandths, as HBHistogrammCalculator::Threshold has
/// them, and how far a sample may be off.
constexpr int Thousandths[Ends] = {5, 995};
constexpr int Margin = 1;
/// The place of HBHistogrammCalculator's channel in a pixel with luma.
constexpr int PlaceOf[Channels] = {2, 1, 0, 3};

HBChannelTails TailsOf(const Counts& counts)
{
    HBChannelTails tails;
    for (std::size_t c = 0; c < Channels; ++c) {
        const std::vector<int> ends = HBHistogrammCalculator::Threshold(counts.levels[c]);
        std::copy_n(ends.begin(), 2, tails[c].begin());
    }
    return tails;
}

std::optional<HBChannelTails> CountAll(const HBImage<>& picture, const HBJobControl* control)
{
    const auto histogram = std::make_shared<HBHistogramLook>();
    if (!HBLookAt(picture, {histogram}, control))
        return std::nullopt;
    return TailsOf(histogram->Result());
}

/// Calls add(lane, pixels, area, index) for all tiles, and end(lane), one at a time, for each lane made by `make`.
template <class Make, class Add, class End>
bool ForEachTile(const HBImage<>& picture, const HBJobControl* control, const Make& make, const Add& add,
                 const End& end)
{
    std::atomic<int> next{0};
    std::atomic<bool> cancelled{false};
    std::mutex mutex;
    HBRunLanes(HBLaneCount(picture.Tiles().size()), [&] {
        auto lane = make();
        for (int index; (index = next.fetch_add(1)) < picture.Tiles().size();) {
            if (HBIsCancelled(control)) {
                cancelled = true;
                break;
            }
            const KMTilePin<HBRGBA32i> pin(picture.Tile(index), false);
            add(lane, pin.Pixels(), picture.TileRect(index), index);
        }
        const std::lock_guard<std::mutex> lock(mutex);
        end(lane);
    });
    return !cancelled;
}

/// A row of each tile.
std::optional<Counts> Sample(const HBImage<>& picture, const HBJobControl* control)
{
    HBHistogramLook look;
    look.Begin(picture);
    const bool whole = ForEachTile(
        picture, control, [&] { return look.MakeLane(); },
        [](const std::unique_ptr<HBPictureLook::Lane>& lane, const HBRGBA32i* pixels, const QRect& area,
           int index) {
            const int row = index * 37 % area.height();
            lane->Add(pixels + row * TileSide, QRect(0, 0, area.width(), 1), index);
        },
        [](std::unique_ptr<HBPictureLook::Lane>& lane) { lane.reset(); });
    return whole ? std::optional(look.Result()) : std::nullopt;
}

/// The lowest level up to which at least so many thousandths of the pixels lie.
int Percentile(const std::array<quint64, 256>& levels, quint64 pixels, int thousandths)
{
    quint64 sum = 0;
    for (int level = 0; level < 255; ++level) {
        sum += levels[std::size_t(level)];
        if (sum * 1000 >= pixels * quint64(thousandths))
            return level;
    }
    return 255;
}

/// The levels among which each end is.
struct Windows
{
    int size = 0;
    int first[Channels][Ends];
};

/// Nothing if they would be too many.
std::optional<Windows> WindowsOf(const Counts& sample)
{
    Windows windows;
    for (int c = 0; c < Channels; ++c) {
        for (int end = 0; end < Ends; ++end) {
            const auto& levels = sample.levels[std::size_t(c)];
            windows.first[c][end] = Percentile(levels, sample.pixels, Thousandths[end] - Margin);
            const int last = Percentile(levels, sample.pixels, Thousandths[end] + Margin);
            windows.size = qMax(windows.size, last - windows.first[c][end] + 1);
        }
    }
    return windows.size <= MostWindow ? std::optional(windows) : std::nullopt;
}

TailLimits LimitsOf(const Windows& windows)
{
    TailLimits limits;
    limits.count = windows.size + 1;
    for (int c = 0; c < Channels; ++c) {
        for (int end = 0; end < Ends; ++end) {
            for (int limit = 0; limit < limits.count; ++limit) {
                const int level = windows.first[c][end] + limit - 1;
                limits.level[end][limit][PlaceOf[c]] = std::uint8_t(qBound(0, level, 255));
            }
        }
    }
    return limits;
}

/// Of what of the picture lies in the tile. White, which no limit reaches, fills up what is not a multiple of 16.
void CountTile(const TailLimits& limits, const HBRGBA32i* pixels, const QRect& area, TailCounts& counts)
{
    const auto count = HWY_DYNAMIC_DISPATCH(CountTails);
    if (area.width() == TileSide) {
        count(limits, pixels, area.height() * TileSide, counts);
        return;
    }
    std::array<HBRGBA32i, TileSide> row;
    row.fill(HBRGBA32i(255, 255, 255));
    for (int y = 0; y < area.height(); ++y) {
        std::copy_n(pixels + y * TileSide, area.width(), row.begin());
        count(limits, row.data(), TileSide, counts);
    }
}

/// The level of an end, or -1: it is not in the window.
int Find(const TailCounts& counts, const Windows& windows, int channel, int end, quint64 pixels)
{
    const int first = windows.first[channel][end];
    const auto reached = [&](int level) {
        const quint64 upTo = level < 0 ? 0 : counts.upTo[end][level - first + 1][PlaceOf[channel]];
        return upTo * 1000 >= pixels * quint64(Thousandths[end]);
    };
    if (reached(first - 1))
        return -1;
    for (int level = first; level < qMin(first + windows.size, 255); ++level) {
        if (reached(level))
            return level;
    }
    return first + windows.size >= 255 ? 255 : -1;
}

} // namespace

std::optional<HBChannelTails> HBTailLevels(const HBImage<>& picture, const HBJobControl* control)
{
    if (picture.IsEmpty() || picture.Tiles().size() < LeastTiles)
        return CountAll(picture, control);
    const std::optional<Counts> sample = Sample(picture, control);
    if (!sample)
        return std::nullopt;
    const std::optional<Windows> windows = WindowsOf(*sample);
    if (!windows)
        return CountAll(picture, control);

    const TailLimits limits = LimitsOf(*windows);
    TailCounts total{};
    const bool whole = ForEachTile(
        picture, control, [] { return TailCounts{}; },
        [&](TailCounts& counts, const HBRGBA32i* pixels, const QRect& area, int) {
            CountTile(limits, pixels, area, counts);
        },
        [&](const TailCounts& counts) {
            for (int end = 0; end < Ends; ++end) {
                for (int limit = 0; limit < limits.count; ++limit) {
                    for (int c = 0; c < Channels; ++c)
                        total.upTo[end][limit][c] += counts.upTo[end][limit][c];
                }
            }
        });
    if (!whole)
        return std::nullopt;
    const quint64 pixels = quint64(picture.Width()) * quint64(picture.Height());
    HBChannelTails tails;
    for (int c = 0; c < Channels; ++c) {
        for (int end = 0; end < Ends; ++end) {
            const int level = Find(total, *windows, c, end, pixels);
            if (level < 0)
                return CountAll(picture, control);
            tails[std::size_t(c)][std::size_t(end)] = level;
        }
    }
    return tails;
}

#endif

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLightStatistics.h"

#include "HBParallel.h"

#include <atomic>
#include <cmath>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBLightStatistics.cpp"
#include <hwy/foreach_target.h>

#include "HBColourVectors-inl.h"

// Sums of floats depend on their order. Pixels therefore always go to 16 sums in turn, whatever the length of the
// machine's vectors, and the sums of a tile are put together one after the other.
#ifndef HB_LIGHT_STATISTICS_ONCE
#define HB_LIGHT_STATISTICS_ONCE
namespace
{

constexpr int Sums = 16;
/// Brings the 32nd power of every level from 3 to 255 and the sum over a tile into the range of a float.
constexpr float NormUnit = 32.0f;

struct NormSums
{
    alignas(64) float red[Sums] = {};
    alignas(64) float green[Sums] = {};
    alignas(64) float blue[Sums] = {};
};

/// Products of at most 1: mantissa × 2^exponent.
struct LogSums
{
    alignas(64) float mantissa[Sums];
    alignas(64) std::int32_t exponent[Sums] = {};

    LogSums()
    {
        for (float& m : mantissa)
            m = 1.0f;
    }
};

} // namespace
#endif

HWY_BEFORE_NAMESPACE();
namespace
{
namespace HWY_NAMESPACE
{

/// The 32nd power; 0 of levels below 3, whose powers are too small for a float and would stall the processor.
template <class D>
HWY_INLINE hn::Vec<D> Power(D d, hn::Vec<D> level)
{
    auto power = hn::Mul(hn::IfThenElseZero(level >= hn::Set(d, 3.0f), level), hn::Set(d, 1.0f / NormUnit));
    for (int doubling = 0; doubling < 5; ++doubling)
        power = hn::Mul(power, power);
    return power;
}

/// Adds the pixels from `words` on, `blocks` times a vector with Sums pixels from one to the next.
template <class D>
HWY_INLINE void AddNorms(D d, const std::uint32_t* words, int blocks, NormSums& sums, int at)
{
    auto red = hn::LoadU(d, sums.red + at);
    auto green = hn::LoadU(d, sums.green + at);
    auto blue = hn::LoadU(d, sums.blue + at);
    for (int block = 0; block < blocks; ++block, words += Sums) {
        const auto source = hn::LoadU(hn::RebindToUnsigned<D>(), words);
        red = hn::Add(red, Power(d, Channel<16>(d, source)));
        green = hn::Add(green, Power(d, Channel<8>(d, source)));
        blue = hn::Add(blue, Power(d, Channel<0>(d, source)));
    }
    hn::StoreU(red, d, sums.red + at);
    hn::StoreU(green, d, sums.green + at);
    hn::StoreU(blue, d, sums.blue + at);
}

void SumNorms(const HBRGBA32i* pixels, int count, NormSums& sums)
{
    const hn::CappedTag<float, Sums> many;
    const auto* words = reinterpret_cast<const std::uint32_t*>(pixels);
    for (int at = 0; at < Sums; at += int(hn::Lanes(many)))
        AddNorms(many, words + at, count / Sums, sums, at);
    for (int i = count / Sums * Sums; i < count; ++i)
        AddNorms(hn::CappedTag<float, 1>(), words + i, 1, sums, i % Sums);
}

/// Luma moved into 0.052..1: eight of them multiplied are still far from the smallest float.
template <class D>
HWY_INLINE hn::Vec<D> RaisedLuma(D d, const std::uint32_t* words)
{
    const auto source = hn::LoadU(hn::RebindToUnsigned<D>(), words);
    const Colours<D> c{Channel<16>(d, source), Channel<8>(d, source), Channel<0>(d, source)};
    constexpr float unit = 255.0f * 1.055f;
    return hn::Add(Weigh(d, c, 0.2126f / unit, 0.7152f / unit, 0.0722f / unit), hn::Set(d, 0.055f / 1.055f));
}

template <class D>
HWY_INLINE void MultiplyLuma(D d, const std::uint32_t* words, int blocks, LogSums& sums, int at)
{
    auto product = hn::LoadU(d, sums.mantissa + at);
    for (int block = 0; block < blocks; ++block, words += Sums)
        product = hn::Mul(product, RaisedLuma(d, words));
    hn::StoreU(product, d, sums.mantissa + at);
}

/// Moves the exponents of the products out of the floats.
void Normalise(LogSums& sums)
{
    const hn::CappedTag<float, Sums> d;
    const hn::RebindToSigned<decltype(d)> di;
    const auto one = hn::Set(di, 127 << 23);
    const auto mantissaBits = hn::Set(di, (1 << 23) - 1);
    for (int at = 0; at < Sums; at += int(hn::Lanes(d))) {
        const auto bits = hn::BitCast(di, hn::LoadU(d, sums.mantissa + at));
        const auto exponent = hn::Sub(hn::ShiftRight<23>(bits), hn::Set(di, 127));
        hn::StoreU(hn::Add(hn::LoadU(di, sums.exponent + at), exponent), di, sums.exponent + at);
        hn::StoreU(hn::BitCast(d, hn::Or(hn::And(bits, mantissaBits), one)), d, sums.mantissa + at);
    }
}

/// \param count at most a row of a tile, so that at most eight lumas come together before the products are normalised
void MultiplyLumas(const HBRGBA32i* pixels, int count, LogSums& sums)
{
    const hn::CappedTag<float, Sums> many;
    const auto* words = reinterpret_cast<const std::uint32_t*>(pixels);
    for (int at = 0; at < Sums; at += int(hn::Lanes(many)))
        MultiplyLuma(many, words + at, count / Sums, sums, at);
    for (int i = count / Sums * Sums; i < count; ++i)
        MultiplyLuma(hn::CappedTag<float, 1>(), words + i, 1, sums, i % Sums);
    Normalise(sums);
}

} // namespace HWY_NAMESPACE
} // namespace
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace
{
HWY_EXPORT(SumNorms);
HWY_EXPORT(MultiplyLumas);

constexpr int TileSide = 128;

/// \param addRow void(const HBRGBA32i* pixels, int count, Result&)
/// \returns a Result for each tile
template <class Result, class AddRow>
std::vector<Result> MeasureTiles(const HBImage<>& image, const AddRow& addRow)
{
    std::vector<Result> results(image.IsEmpty() ? 0 : std::size_t(image.Tiles().size()));
    const int tiles = int(results.size());
    std::atomic<int> next{0};
    HBRunLanes(HBLaneCount(tiles), [&] {
        for (int index; (index = next.fetch_add(1)) < tiles;) {
            const KMTilePin<HBRGBA32i> pin(image.Tile(index), false);
            const QRect area = image.TileRect(index);
            for (int y = 0; y < area.height(); ++y)
                addRow(pin.Pixels() + y * TileSide, area.width(), results[std::size_t(index)]);
        }
    });
    return results;
}

double Total(const float (&sums)[Sums])
{
    double total = 0.0;
    for (const float sum : sums)
        total += double(sum);
    return total;
}

} // namespace

HBChannelNorms HBMeasureNorms(const HBImage<>& image)
{
    const auto sumRow = [](const HBRGBA32i* pixels, int count, NormSums& sums) {
        HWY_DYNAMIC_DISPATCH(SumNorms)(pixels, count, sums);
    };
    HBChannelNorms norms{};
    for (const NormSums& tile : MeasureTiles<NormSums>(image, sumRow)) {
        norms.red += Total(tile.red);
        norms.green += Total(tile.green);
        norms.blue += Total(tile.blue);
    }
    const double pixels = qMax(1.0, double(image.Width()) * image.Height());
    const auto norm = [=](double sum) { return std::pow(sum / pixels, 1.0 / 32.0) * double(NormUnit) / 255.0; };
    return {norm(norms.red), norm(norms.green), norm(norms.blue)};
}

double HBMeasureLogAverage(const HBImage<>& image)
{
    const auto multiplyRow = [](const HBRGBA32i* pixels, int count, LogSums& sums) {
        HWY_DYNAMIC_DISPATCH(MultiplyLumas)(pixels, count, sums);
    };
    double sum = 0.0;
    const std::vector<LogSums> tiles = MeasureTiles<LogSums>(image, multiplyRow);
    for (const LogSums& tile : tiles) {
        for (int i = 0; i < Sums; ++i)
            sum += std::log2(double(tile.mantissa[i])) + tile.exponent[i];
    }
    return tiles.empty() ? 0.0 : std::exp2(2.4 * sum / (double(image.Width()) * image.Height()));
}

#endif

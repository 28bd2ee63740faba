// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLightStatistics.h"

#include <cmath>
#include <memory>
#include <vector>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "HBLightStatistics.cpp"
#include <hwy/foreach_target.h>

#include "HBColorVectors-inl.h"

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
    const Colors<D> c{Channel<16>(d, source), Channel<8>(d, source), Channel<0>(d, source)};
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

/// \param count at most a row of a tile, so that at most eight lumas come together before the products are
///        normalised
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

/// The sums of every tile, put together in the order of the tiles.
template <class Sums>
struct TileSums
{
    std::vector<Sums> tiles;
    double pixels = 0.0;

    void Begin(const HBImage<>& picture)
    {
        tiles.assign(picture.IsEmpty() ? 0 : std::size_t(picture.Tiles().size()), Sums());
        pixels = double(picture.Width()) * picture.Height();
    }
};

/// \param AddRow void(const HBRGBA32i* pixels, int count, Sums&)
template <class Sums, class AddRow>
class RowLane : public HBPictureLook::Lane
{
public:
    RowLane(TileSums<Sums>& sums, AddRow addRow) : m_Sums(sums), m_AddRow(addRow) {}

    void Add(const HBRGBA32i* pixels, const QRect& area, int index) override
    {
        for (int y = 0; y < area.height(); ++y)
            m_AddRow(pixels + y * HBImage<>::TileSide, area.width(), m_Sums.tiles[std::size_t(index)]);
    }

private:
    TileSums<Sums>& m_Sums;
    AddRow m_AddRow;
};

template <class Sums, class AddRow>
std::unique_ptr<HBPictureLook::Lane> MakeRowLane(TileSums<Sums>& sums, AddRow addRow)
{
    return std::make_unique<RowLane<Sums, AddRow>>(sums, addRow);
}

double Total(const float (&sums)[Sums])
{
    double total = 0.0;
    for (const float sum : sums)
        total += double(sum);
    return total;
}

} // namespace

struct HBNormsLook::Tiles : TileSums<NormSums>
{
};

HBNormsLook::HBNormsLook() : m_pTiles(std::make_unique<Tiles>()) {}

HBNormsLook::~HBNormsLook() = default;

void HBNormsLook::Begin(const HBImage<>& picture)
{
    m_pTiles->Begin(picture);
}

std::unique_ptr<HBPictureLook::Lane> HBNormsLook::MakeLane()
{
    return MakeRowLane<NormSums>(*m_pTiles, [](const HBRGBA32i* pixels, int count, NormSums& sums) {
        HWY_DYNAMIC_DISPATCH(SumNorms)(pixels, count, sums);
    });
}

HBChannelNorms HBNormsLook::Result() const
{
    HBChannelNorms norms{};
    for (const NormSums& tile : m_pTiles->tiles) {
        norms.red += Total(tile.red);
        norms.green += Total(tile.green);
        norms.blue += Total(tile.blue);
    }
    const double pixels = qMax(1.0, m_pTiles->pixels);
    const auto norm = [=](double sum) { return std::pow(sum / pixels, 1.0 / 32.0) * double(NormUnit) / 255.0; };
    return {norm(norms.red), norm(norms.green), norm(norms.blue)};
}

struct HBLogAverageLook::Tiles : TileSums<LogSums>
{
};

HBLogAverageLook::HBLogAverageLook() : m_pTiles(std::make_unique<Tiles>()) {}

HBLogAverageLook::~HBLogAverageLook() = default;

void HBLogAverageLook::Begin(const HBImage<>& picture)
{
    m_pTiles->Begin(picture);
}

std::unique_ptr<HBPictureLook::Lane> HBLogAverageLook::MakeLane()
{
    return MakeRowLane<LogSums>(*m_pTiles, [](const HBRGBA32i* pixels, int count, LogSums& sums) {
        HWY_DYNAMIC_DISPATCH(MultiplyLumas)(pixels, count, sums);
    });
}

double HBLogAverageLook::Result() const
{
    double sum = 0.0;
    for (const LogSums& tile : m_pTiles->tiles) {
        for (int i = 0; i < Sums; ++i)
            sum += std::log2(double(tile.mantissa[i])) + tile.exponent[i];
    }
    return m_pTiles->tiles.empty() ? 0.0 : std::exp2(2.4 * sum / m_pTiles->pixels);
}

#endif

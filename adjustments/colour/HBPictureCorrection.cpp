// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPictureCorrection.h"

#include "HBLevels.h"
#include "HBRecordStream.h"

#include <HBBlend.h>
#include <HBHistogrammCalculator.h>
#include <HBIterativePhotoFilterTransformation.h>
#include <HBLevelsTransformation.h>
#include <HBLightBalance.h>
#include <HBTemperatureCorrection.h>

namespace
{

using P = HBPictureCorrectionParams;

/// 9000 K at -100, 6500 K at 0, 2000 K at 100; the two branches do not mirror each other, on purpose.
int Kelvin(int temperature)
{
    return temperature > 0 ? 6500 - 45 * temperature : (260 - temperature) * 25;
}

int Strength(const P& params)
{
    const qint32* stored = params.ModeStrength();
    return stored ? qBound(0, *stored, 100) : 0;
}

HBStage CastStage(int strength)
{
    const auto norms = std::make_shared<HBNormsLook>();
    HBStage stage;
    stage.looks = {norms};
    stage.prepare = [norms, strength](const HBImage<>&, const HBJobControl*) {
        return HBOperationOf(HBCorrectCast(norms->Result(), strength));
    };
    return stage;
}

HBStage LightStage(int mode, int strength)
{
    const auto average = std::make_shared<HBLogAverageLook>();
    HBStage stage;
    stage.looks = {average};
    stage.prepare = [average, mode, strength](const HBImage<>&, const HBJobControl*) {
        return HBOperationOf(
            HBCorrectLight(average->Result(), KMWBTransformation::BalanceFunction(mode), strength));
    };
    return stage;
}

/// The counts of a picture whose channels have gone through the tables.
HBHistogrammCalculator::Counts Mapped(const HBHistogrammCalculator::Counts& counts, const HBChannelTables& tables)
{
    const HBChannelTables::Table* const channels[] = {&tables.red, &tables.green, &tables.blue};
    HBHistogrammCalculator::Counts mapped;
    mapped.pixels = counts.pixels;
    for (std::size_t c = 0; c < 3; ++c) {
        for (std::size_t level = 0; level < 256; ++level)
            mapped.levels[c][(*channels[c])[level]] += counts.levels[c][level];
    }
    return mapped;
}

/// What HBSourceOver takes for a strength in percent; truncated: 99 is 253 of 256.
int MixOpacity(int strength)
{
    return strength * 256 / 100;
}

/// One version of a channel over another, by the opacity that HBSourceOver takes.
HBChannelTables::Table Mixed(const HBChannelTables::Table& above, int opacity)
{
    return HBMakeTable([&](int level) {
        const HBRGBA32i source{above[std::size_t(level)], 0, 0, 0};
        HBRGBA32i destination{std::uint8_t(level), 0, 0, 0};
        HBBlend::HBSourceOver()(source, destination, opacity);
        return destination.red;
    });
}

/// The full correction of the cast, each channel stretched between its own black and white, and both mixed with
/// the picture. Without a selection the three passes are one, and one look tells all: counts go through tables as
/// well as pixels do.
HBStage AdvancedStage(int strength)
{
    const auto norms = std::make_shared<HBNormsLook>();
    const auto histogram = std::make_shared<HBHistogramLook>();
    HBStage stage;
    stage.looks = {norms, histogram};
    stage.ranges = 3;
    stage.prepare = [=](const HBImage<>&, const HBJobControl*) {
        const HBChannelTables cast = HBCorrectCast(norms->Result(), 100);
        const HBLevelsTransformation stretch(HBAutomaticLevels(Mapped(histogram->Result(), cast)));
        HBChannelTables all = HBComposed(cast, stretch);
        const int opacity = MixOpacity(strength);
        for (HBChannelTables::Table* table : {&all.red, &all.green, &all.blue})
            *table = Mixed(*table, opacity);
        return HBOperationOf(all);
    };
    return stage;
}

/// The same with a selection: corrected and blended; stretched, by what the whole picture then holds, and blended;
/// mixed with the picture as it was, and blended.
HBStages AdvancedStages(int strength)
{
    const auto histogram = std::make_shared<HBHistogramLook>();
    const auto saved = std::make_shared<HBImage<>>();
    HBStage cast = CastStage(100);
    cast.prepare = [prepare = cast.prepare, saved](const HBImage<>& picture, const HBJobControl* control) {
        *saved = picture;
        return prepare(picture, control);
    };
    HBStage stretch;
    stretch.looks = {histogram};
    stretch.prepare = [histogram](const HBImage<>&, const HBJobControl*) {
        return HBOperationOf(HBLevelsTransformation(HBAutomaticLevels(histogram->Result())));
    };
    HBStage mix;
    mix.base = saved;
    mix.prepare = [opacity = MixOpacity(strength)](const HBImage<>& picture, const HBJobControl*) {
        return HBOperation{nullptr, [above = picture, opacity](HBTileAccess& tile) {
                               const KMTilePin<HBRGBA32i> pin(above.Tile(tile.Index()), false);
                               HBRGBA32i* const pixels = tile.Pixels();
                               for (int i = 0; i < HBImage<>::TilePixels; ++i)
                                   HBBlend::HBSourceOver()(pin.Pixels()[i], pixels[i], opacity);
                           }};
    };
    return {cast, stretch, mix};
}

HBStages BalanceStages(const P& params, bool selected)
{
    const int strength = Strength(params);
    if (params.mode == P::Auto && params.enchanced)
        return selected ? AdvancedStages(strength) : HBStages{AdvancedStage(strength)};
    if (strength == 0)
        return {HBStageOf(HBChannelTables())};
    return {params.mode == P::Auto ? CastStage(strength) : LightStage(params.mode, strength)};
}

} // namespace

bool HBPictureCorrectionParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) &&
           HBIsOk(stream >> enchanced >> autoStrength >> overexposureStrength >> underexposureStrength >> mode >>
                  useTemperature >> temperature >> temperatureStrength);
}

// The defaults, big endian: the 22 bytes of the tag; 00; 50, 100, 100, 0 as four bytes each; 00; 0, 50.
bool HBPictureCorrectionParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) &&
           HBIsOk(stream << enchanced << autoStrength << overexposureStrength << underexposureStrength << mode
                         << useTemperature << temperature << temperatureStrength);
}

const qint32* HBPictureCorrectionParams::ModeStrength() const
{
    switch (mode) {
    case Auto:
        return &autoStrength;
    case Overexposure:
        return &overexposureStrength;
    case Underexposure:
        return &underexposureStrength;
    default:
        return nullptr;
    }
}

HBStages HBStagesOf(const HBPictureCorrectionParams& params, bool selected)
{
    HBStages stages = BalanceStages(params, selected);
    if (params.useTemperature) {
        const int kelvin = Kelvin(HBClamped(params, &P::temperature));
        stages.push_back(HBStageOf(HBIterativePhotoFilterTransformation(
            HBTemperatureCorrection::GetTemperatureColor(kelvin), HBClamped(params, &P::temperatureStrength))));
    }
    return stages;
}

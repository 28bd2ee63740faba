// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStepManner.h"

#include "HBSilentControl.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace
{

struct Blend
{
    int amount;

    std::uint8_t operator()(int before, int after) const
    {
        return std::uint8_t((before * (100 - amount) + after * amount + 50) / 100);
    }
    void operator()(const HBRGBA32i* before, HBRGBA32i* after) const
    {
        for (int i = 0; i < HBImage<>::TilePixels; ++i) {
            after[i] = {(*this)(before[i].red, after[i].red), (*this)(before[i].green, after[i].green),
                        (*this)(before[i].blue, after[i].blue), (*this)(before[i].alpha, after[i].alpha)};
        }
    }
};

HBOperation AmountOf(const HBOperation& operation, const Blend& blend)
{
    if (operation.IsIdentity() || blend.amount <= 0)
        return {};
    if (operation.tables) {
        HBChannelTables tables = *operation.tables;
        for (auto* table : {&tables.blue, &tables.green, &tables.red}) {
            for (std::size_t level = 0; level < table->size(); ++level)
                (*table)[level] = blend(int(level), (*table)[level]);
        }
        return HBOperationOf(tables);
    }
    return {nullptr, [transform = operation.transform, blend](HBTileAccess& tile) {
                HBRGBA32i* const pixels = tile.Pixels();
                const std::vector<HBRGBA32i> before(pixels, pixels + HBImage<>::TilePixels);
                transform(tile);
                blend(before.data(), pixels);
            }};
}

/// The part of a mask that a further selection, which lies on the picture, covers too: nothing, where that selects
/// the mask.
HBImage<> Both(const HBSelection& own, const HBTarget& target)
{
    HBTarget nothing{HBImage<>(own.mask.Width(), own.mask.Height()), target.selection, target.offset - own.offset,
                     target.bounds};
    const HBOutcome both = HBWalkTiles(std::move(nothing), [&own](HBTileAccess& tile) {
        const KMTilePin<HBRGBA32i> pin(own.mask.Tile(tile.Index()), false);
        std::copy_n(pin.Pixels(), HBImage<>::TilePixels, tile.Pixels());
    });
    if (both.exception)
        std::rethrow_exception(both.exception);
    return both.image;
}

} // namespace

bool HBCanBecomeOne(const HBStages& stages)
{
    for (std::size_t i = 0; i < stages.size(); ++i) {
        // Overlays leave most tiles alone, which then stay shared.
        if (stages[i].ignoresSelection || stages[i].base || (i > 0 && stages[i].MustLook()))
            return false;
    }
    return true;
}

HBStage HBAmountOf(HBStages&& stages, int amount)
{
    HBStage one;
    if (stages.empty()) {
        one.prepare = [](const HBImage<>&, const HBJobControl*) { return HBOperation(); };
        return one;
    }
    one.looks = stages.front().looks;
    one.seesPicture = stages.front().seesPicture;
    one.prepare = [all = std::make_shared<HBStages>(std::move(stages)), amount](const HBImage<>& picture,
                                                                                const HBJobControl* control) {
        HBOperation operation;
        for (const HBStage& stage : *all)
            operation = HBThen(operation, stage.prepare(picture, control));
        return AmountOf(operation, Blend{amount});
    };
    return one;
}

HBOutcome HBBlendAmount(const HBImage<>& before, int amount, HBOutcome after, HBJobControl* control)
{
    if (!after.IsWhole() || amount >= 100)
        return after;
    std::vector<bool> shared;
    try {
        for (int i = 0; i < after.image.Tiles().size(); ++i)
            shared.push_back(before.Tile(i) == after.image.Tile(i));
    } catch (const std::bad_alloc&) {
        return {std::move(after.image), HBOutcome::Failed, std::current_exception()};
    }
    return HBWalkTiles(
        {std::exchange(after.image, {})},
        [&](HBTileAccess& tile) {
            if (shared[std::size_t(tile.Index())])
                return;
            const KMTilePin<HBRGBA32i> old(before.Tile(tile.Index()), false);
            Blend{amount}(old.Pixels(), tile.Pixels());
        },
        control);
}

HBTarget HBSelectIn(const HBTarget& target, const HBSelectionShape& selection, const HBImage<>& photo,
                    const HBJobControl* control)
{
    HBSilentControl silent(control);
    HBSelection own = selection.Rasterize(photo, &silent);
    if (!own.bounds.isValid()) {
        own.mask = HBImage<>(1, 1);
        own.bounds = QRect(0, 0, 1, 1);
    }
    if (target.bounds.isValid())
        own.mask = Both(own, target);
    return {target.source, own.mask, own.offset, own.bounds};
}

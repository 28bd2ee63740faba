// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBField.h"
#include "HBStage.h"

#include <HBTailLevels.h>

#include <mutex>
#include <optional>

/// Colour enhancer: contrast and colour stretched between the darkest and the lightest that the picture has, for
/// each channel by itself or for all in common.
struct HB_ADJUSTMENTS_EXPORT HBColorEnhancerParams
{
    qint32 amount = 100;
    qint32 affected = 100; ///< share of each channel's own range: 0 common to all, 100 each its own

    static constexpr char Tag[] = "KMColorEnhancer 1.00000";
    bool Read(QDataStream& stream);
    bool Write(QDataStream& stream) const;

    static constexpr auto Fields()
    {
        using P = HBColorEnhancerParams;
        return std::make_tuple(HBNumber("amount", &P::amount, {0, 100, 0, HBUnit::Percent}),
                               HBNumber("affected", &P::affected, {0, 100, HBNoNeutral, HBUnit::Percent}));
    }
};

/// Thresholds of one picture, kept from run to run. A run of an earlier picture may end after the next one was
/// set, so that each call says whose thresholds it means. Any thread.
class HB_ADJUSTMENTS_EXPORT HBColorThresholdCache
{
public:
    /// Forgets what was kept; from now on those of `picture` are.
    void SetPicture(const HBImage<>& picture);
    /// Does nothing for another picture.
    void Keep(const HBImage<>& picture, const HBChannelTails& thresholds);
    std::optional<HBChannelTails> Find(const HBImage<>& picture) const;

private:
    mutable std::mutex m_Mutex;
    HBImage<> m_Picture;
    std::optional<HBChannelTails> m_Thresholds;
};

/// Looks at the whole picture, whatever is selected.
HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBColorEnhancerParams& params);
/// The same for this picture, at which it does not look if the cache knows it.
HB_ADJUSTMENTS_EXPORT HBStages HBStagesOf(const HBColorEnhancerParams& params, const HBImage<>& picture,
                                          const std::shared_ptr<HBColorThresholdCache>& cache);

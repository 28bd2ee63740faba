// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorEnhancer.h"

#include "HBRecordStream.h"

#include <HBColorEnhancerTransformation.h>
#include <HBHistogrammCalculator.h>

namespace
{

using P = HBColorEnhancerParams;

HBOperation Enhancement(const P& params, const HBChannelTails& thresholds)
{
    const int affected = HBClamped(params, &P::affected);
    HBLevelsSettings settings;
    for (int c = 0; c < 3; ++c) {
        for (int end = 0; end < 2; ++end) {
            const int common = thresholds[HBHistogrammCalculator::Luma][std::size_t(end)];
            const int own = thresholds[std::size_t(c)][std::size_t(end)];
            settings.input[c + 1][end] = ((own - common) * affected + common * 100) / 100;
        }
    }
    HBColorEnhancerTransformation enhancer;
    enhancer.SetLevels(HBLevelsTransformation(settings));
    enhancer.SetAmountData(HBClamped(params, &P::amount));
    return HBOperationOf(enhancer);
}

} // namespace

bool HBColorEnhancerParams::Read(QDataStream& stream)
{
    return HBReadTag(stream, Tag) && HBIsOk(stream >> amount >> affected);
}

// The defaults, big endian: the 23 bytes of the tag, 00 00 00 64, 00 00 00 64.
bool HBColorEnhancerParams::Write(QDataStream& stream) const
{
    return HBWriteTag(stream, Tag) && HBIsOk(stream << amount << affected);
}

void HBColorThresholdCache::SetPicture(const HBImage<>& picture)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Picture = picture;
    m_Thresholds.reset();
}

void HBColorThresholdCache::Keep(const HBImage<>& picture, const HBChannelTails& thresholds)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (m_Picture.IsSameAs(picture))
        m_Thresholds = thresholds;
}

std::optional<HBChannelTails> HBColorThresholdCache::Find(const HBImage<>& picture) const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Picture.IsSameAs(picture) ? m_Thresholds : std::nullopt;
}

HBStages HBStagesOf(const HBColorEnhancerParams& params)
{
    return HBStagesOf(params, {}, std::make_shared<HBColorThresholdCache>());
}

HBStages HBStagesOf(const HBColorEnhancerParams& params, const HBImage<>& picture,
                    const std::shared_ptr<HBColorThresholdCache>& cache)
{
    HBStage stage;
    if (const std::optional<HBChannelTails> known = cache->Find(picture)) {
        stage.prepare = [params, known](const HBImage<>&, const HBJobControl*) {
            return Enhancement(params, *known);
        };
        return {stage};
    }
    stage.seesPicture = true;
    stage.prepare = [params, cache](const HBImage<>& seen, const HBJobControl* control) -> HBOperation {
        const std::optional<HBChannelTails> thresholds = HBTailLevels(seen, control);
        if (!thresholds)
            return {}; // cancelled
        cache->Keep(seen, *thresholds);
        return Enhancement(params, *thresholds);
    };
    return {stage};
}

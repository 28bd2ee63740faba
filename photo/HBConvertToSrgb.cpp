// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBConvertToSrgb.h"

#include <HBColorTransform.h>
#include <HBTileWalk.h>

HBImage<> HBConvertToSrgb(const HBImage<>& image, const KMCMSProfile& profile, QString* reason)
{
    QString ignored;
    QString& why = reason ? *reason : ignored;
    const auto transform = HBColorTransform::Make(profile.Icc(), {}, &why);
    if (!why.isEmpty())
        return image;
    HBImage<> converted = image;
    if (transform) {
        const HBOutcome outcome = HBWalkTiles({image}, [transform](HBTileAccess& tile) {
            transform->Apply(reinterpret_cast<QRgb*>(tile.Pixels()), HBImage<>::TilePixels);
        });
        if (outcome.exception)
            std::rethrow_exception(outcome.exception);
        converted = outcome.image;
    }
    converted.SetProfile(KMCMSProfile(HBSrgbProfile()));
    return converted;
}

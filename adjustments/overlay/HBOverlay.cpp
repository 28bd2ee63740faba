// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlay.h"

#include "HBAdjustment.h"

namespace
{

template <class Record>
HBImage<> Drawn(const HBImage<>& image, const Record& params, QString* error)
{
    const HBOutcome outcome = HBAdjust(params, {image, {}, {}, {}});
    if (error)
        *error = HBFailureReason(outcome);
    return outcome.IsWhole() ? outcome.image : image;
}

} // namespace

HBImage<> HBDrawSign(const HBImage<>& image, const HBSignParams& params, QString* error)
{
    return Drawn(image, params, error);
}

HBImage<> HBDrawWatermark(const HBImage<>& image, const HBWatermarkParams& params, QString* error)
{
    return Drawn(image, params, error);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTintRGB32.h"

#include <QtGlobal>

namespace
{

HBChannelTables::Table MakeTable(int black, int white, int amount)
{
    const int share = qBound(0, amount, 100);
    // All in 1/25500, rounded once.
    return HBMakeTable([=](int level) {
        const int tone = black * (255 - level) + white * level;
        return (level * 255 * (100 - share) + tone * share + 12750) / 25500;
    });
}

} // namespace

HBTintRGB32::HBTintRGB32(const HBRGBA32i& black, const HBRGBA32i& white, int amount)
{
    red = MakeTable(black.red, white.red, amount);
    green = MakeTable(black.green, white.green, amount);
    blue = MakeTable(black.blue, white.blue, amount);
}

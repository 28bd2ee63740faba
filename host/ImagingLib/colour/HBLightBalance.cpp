// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLightBalance.h"

#include "HBSrgb.h"

#include <QtGlobal>

namespace
{

template <class Function>
HBChannelTables::Table MapLight(Function function)
{
    return HBMakeTable([&](int level) {
        const double light = function(HBSrgb::Decode(level / 255.0));
        return int(std::lround(255.0 * HBSrgb::Encode(qBound(0.0, light, 1.0))));
    });
}

struct Gains
{
    double red = 1.0;
    double green = 1.0;
    double blue = 1.0;
};

Gains NeutralGains(const HBChannelNorms& norms)
{
    const double red = HBSrgb::Decode(norms.red);
    const double green = HBSrgb::Decode(norms.green);
    const double blue = HBSrgb::Decode(norms.blue);
    if (red <= 0.0 || green <= 0.0 || blue <= 0.0)
        return {};
    const double luminance = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    const auto gain = [=](double light) { return qBound(0.25, luminance / light, 4.0); };
    return {gain(red), gain(green), gain(blue)};
}

/// The power of the light that takes the picture's log-average luminance to the key, whichever way that is.
double KeyPower(double average)
{
    if (average <= 0.0)
        return 1.0;
    if (average >= 0.99)
        return 4.0; // white: the logarithm is 0 or nearly
    return qBound(0.25, std::log(0.18) / std::log(average), 4.0);
}

double Share(int strength)
{
    return qBound(0, strength, 100) / 100.0;
}

double Lerped(double share, double factor)
{
    return 1.0 + share * (factor - 1.0);
}

} // namespace

HBChannelTables HBCorrectCast(const HBChannelNorms& norms, int strength)
{
    HBChannelTables tables;
    const double share = Share(strength);
    if (share == 0.0)
        return tables;
    const Gains gains = NeutralGains(norms);
    const auto table = [=](double gain) {
        return MapLight([=](double light) { return light * Lerped(share, gain); });
    };
    tables.red = table(gains.red);
    tables.green = table(gains.green);
    tables.blue = table(gains.blue);
    return tables;
}

HBChannelTables HBCorrectLight(double logAverage, KMWBTransformation::BalanceFunction function, int strength)
{
    const double share = Share(strength);
    if (share == 0.0)
        return {};
    const double power = KeyPower(logAverage);
    double wanted = 1.0;
    if (function == KMWBTransformation::Overexposure)
        wanted = qMax(1.0, power);
    else if (function == KMWBTransformation::Underexposure)
        wanted = qMin(1.0, power);
    else
        return {};
    return HBChannelTables(MapLight([=](double light) { return std::pow(light, Lerped(share, wanted)); }));
}

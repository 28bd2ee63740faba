// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMIterativeWBTransformation.h"

#include "HBLight.h"
#include "HBLightStatistics.h"

#include <QtGlobal>

namespace
{

template <class Function>
HBChannelTables::Table MapLight(Function function)
{
    return HBMakeTable([&](int level) {
        const double light = function(HBLight::Decode(level / 255.0));
        return int(std::lround(255.0 * HBLight::Encode(qBound(0.0, light, 1.0))));
    });
}

struct Gains
{
    double red = 1.0;
    double green = 1.0;
    double blue = 1.0;
};

Gains NeutralGains(const HBImage<>& image)
{
    const HBChannelNorms norms = HBMeasureNorms(image);
    const double red = HBLight::Decode(norms.red);
    const double green = HBLight::Decode(norms.green);
    const double blue = HBLight::Decode(norms.blue);
    if (red <= 0.0 || green <= 0.0 || blue <= 0.0)
        return {};
    const double luminance = 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    const auto gain = [=](double light) { return qBound(0.25, luminance / light, 4.0); };
    return {gain(red), gain(green), gain(blue)};
}

/// The power of the light that takes the picture's log-average luminance to the key, whichever way that is.
double KeyPower(const HBImage<>& image)
{
    const double average = HBMeasureLogAverage(image);
    if (average <= 0.0)
        return 1.0;
    if (average >= 0.99)
        return 4.0; // white: the logarithm is 0 or nearly
    return qBound(0.25, std::log(0.18) / std::log(average), 4.0);
}

} // namespace

KMIterativeWBTransformation::KMIterativeWBTransformation(const HBImage<>& image, BalanceFunction function,
                                                         int strength)
{
    const double share = qBound(0, strength, 100) / 100.0;
    if (share == 0.0)
        return;
    const auto lerped = [=](double factor) { return 1.0 + share * (factor - 1.0); };
    if (function == AutoBalance) {
        const Gains gains = NeutralGains(image);
        const auto table = [=](double gain) {
            return MapLight([=](double light) { return light * lerped(gain); });
        };
        red = table(gains.red);
        green = table(gains.green);
        blue = table(gains.blue);
    } else if (function == Overexposure || function == Underexposure) {
        const double power = KeyPower(image);
        const double wanted = function == Overexposure ? qMax(1.0, power) : qMin(1.0, power);
        red = MapLight([=](double light) { return std::pow(light, lerped(wanted)); });
        green = red;
        blue = red;
    }
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPlanckianLocus.h"

#include <cmath>

namespace
{

// The colour-matching functions of the CIE 1931 standard observer (ISO/CIE 11664-1), 380..770 nm in steps of 10.
// Analytic fits of them are good to a level or two around daylight, but at 1000 K green would be wrong by 24.
constexpr int FirstWavelength = 380;
constexpr int WavelengthStep = 10;
constexpr double Observer[][3] = {
    {0.0014, 0.0000, 0.0065}, {0.0042, 0.0001, 0.0201}, {0.0143, 0.0004, 0.0679}, {0.0435, 0.0012, 0.2074},
    {0.1344, 0.0040, 0.6456}, {0.2839, 0.0116, 1.3856}, {0.3483, 0.0230, 1.7471}, {0.3362, 0.0380, 1.7721},
    {0.2908, 0.0600, 1.6692}, {0.1954, 0.0910, 1.2876}, {0.0956, 0.1390, 0.8130}, {0.0320, 0.2080, 0.4652},
    {0.0049, 0.3230, 0.2720}, {0.0093, 0.5030, 0.1582}, {0.0633, 0.7100, 0.0782}, {0.1655, 0.8620, 0.0422},
    {0.2904, 0.9540, 0.0203}, {0.4334, 0.9950, 0.0087}, {0.5945, 0.9950, 0.0039}, {0.7621, 0.9520, 0.0021},
    {0.9163, 0.8700, 0.0017}, {1.0263, 0.7570, 0.0011}, {1.0622, 0.6310, 0.0008}, {1.0026, 0.5030, 0.0003},
    {0.8544, 0.3810, 0.0002}, {0.6424, 0.2650, 0.0000}, {0.4479, 0.1750, 0.0000}, {0.2835, 0.1070, 0.0000},
    {0.1649, 0.0610, 0.0000}, {0.0874, 0.0320, 0.0000}, {0.0468, 0.0170, 0.0000}, {0.0227, 0.0082, 0.0000},
    {0.0114, 0.0041, 0.0000}, {0.0058, 0.0021, 0.0000}, {0.0029, 0.0010, 0.0000}, {0.0014, 0.0005, 0.0000},
    {0.0007, 0.0002, 0.0000}, {0.0003, 0.0001, 0.0000}, {0.0002, 0.0001, 0.0000}, {0.0001, 0.0000, 0.0000},
};

struct Chromaticity
{
    double u;
    double v;
};

/// The point of the locus in the CIE 1960 diagram.
Chromaticity Locus(double kelvin)
{
    constexpr double secondRadiation = 1.438777e7; // nm K
    HBTriple sum{};
    int wavelength = FirstWavelength;
    for (const auto& response : Observer) {
        const double power = std::pow(560.0 / wavelength, 5) / std::expm1(secondRadiation / (wavelength * kelvin));
        for (std::size_t i = 0; i < 3; ++i)
            sum[i] += power * response[i];
        wavelength += WavelengthStep;
    }
    const double total = sum[0] + 15 * sum[1] + 3 * sum[2];
    return {4 * sum[0] / total, 6 * sum[1] / total};
}

} // namespace

HBTriple HBPlanckianWhite(double kelvin, double duv)
{
    Chromaticity white = Locus(kelvin);
    const Chromaticity hotter = Locus(kelvin * 1.001);
    const double du = hotter.u - white.u;
    const double dv = hotter.v - white.v;
    const double length = std::hypot(du, dv);
    white.u += duv * dv / length;
    white.v -= duv * du / length;
    return {1.5 * white.u / white.v, 1.0, (2.0 - 0.5 * white.u - 5.0 * white.v) / white.v};
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLevelsTransformation.h"

#include <cmath>

namespace
{

int Level(int value)
{
    return qBound(0, value, 255);
}

/// What one channel's settings do to a level, without rounding.
struct Line
{
    int low;
    int high;
    int black;
    int white;
    double exponent;

    Line(const int input[2], const int output[2], double gamma)
        : low(Level(input[0]))
        , high(Level(input[1]))
        , black(Level(output[0]))
        , white(Level(output[1]))
        , exponent(std::isnan(gamma) ? 1.0 : 1.0 / qBound(0.01, gamma, 9.99))
    {
    }

    double Position(double level) const
    {
        if (high <= low)
            return level < low ? 0.0 : 1.0;
        return qBound(0.0, (level - low) / (high - low), 1.0);
    }
    double operator()(double level) const { return black + (white - black) * std::pow(Position(level), exponent); }
};

HBChannelTables::Table MakeTable(const Line& channel, const Line& composite, int amount)
{
    const double share = qBound(0, amount, 100) / 100.0;
    return HBMakeTable(
        [&](int level) { return std::lround(level + share * (composite(channel(level)) - level)); });
}

} // namespace

HBLevelsTransformation::HBLevelsTransformation(const int input[][2], const int output[][2], const double gamma[],
                                               int amount)
{
    const Line composite(input[0], output[0], gamma[0]);
    red = MakeTable(Line(input[1], output[1], gamma[1]), composite, amount);
    green = MakeTable(Line(input[2], output[2], gamma[2]), composite, amount);
    blue = MakeTable(Line(input[3], output[3], gamma[3]), composite, amount);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoPicks.h"

#include <HBLevels.h>
#include <HBReplaceColor.h>
#include <HBTemperature.h>
#include <HBTemperatureCorrection.h>

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

struct PickText
{
    Q_DECLARE_TR_FUNCTIONS(HBPhotoPicks)
};

std::array<int, 3> ChannelsOf(HBRGBA32i color)
{
    return {color.red, color.green, color.blue};
}

// ---- Temperature ----

/// How far from grey a colour is with those values, and, where that is the same, how far the values are from none.
double Cast(HBRGBA32i color, const HBTemperatureParams& params)
{
    HBTemperatureCorrection correction;
    correction.SetData(params.temperature, params.strength, params.tint);
    correction(color);
    const auto channels = ChannelsOf(color);
    const auto [low, high] = std::minmax_element(channels.begin(), channels.end());
    const double mired = std::abs(1e6 / params.temperature - 1e6 / 6500);
    return *high - *low + mired / 1e4 + std::abs(params.tint) / 1e3;
}

/// Temperature and tint by which the colour becomes grey: first on a wide grid, then on finer ones around the
/// best.
HBTemperatureParams Neutralized(HBRGBA32i color, HBTemperatureParams best)
{
    constexpr double Warmest = 1000, Coldest = 25; // mired: 1000 K and 40000 K
    double mired = 1e6 / 6500;
    double tint = 0;
    double miredStep = 30;
    double tintStep = 10;
    double least = 1e9;
    for (int round = 0; round < 5; ++round) {
        const int reach = round == 0 ? 33 : 6;
        const int tints = round == 0 ? 10 : 6;
        const double middleMired = mired;
        const double middleTint = tint;
        for (int m = -reach; m <= reach; ++m) {
            const double triedMired = std::clamp(middleMired + m * miredStep, Coldest, Warmest);
            for (int t = -tints; t <= tints; ++t) {
                HBTemperatureParams tried = best;
                tried.temperature = qRound(1e6 / triedMired);
                tried.tint = qRound(std::clamp(middleTint + t * tintStep, -100.0, 100.0));
                const double cast = Cast(color, tried);
                if (cast >= least)
                    continue;
                least = cast;
                mired = triedMired;
                tint = tried.tint;
                best = tried;
            }
        }
        miredStep /= 3;
        tintStep = std::max(1.0, tintStep / 3);
    }
    return best;
}

bool PickNeutral(HBRGBA32i color, std::any* record)
{
    auto& params = std::any_cast<HBTemperatureParams&>(*record);
    const auto channels = ChannelsOf(color);
    const auto [low, high] = std::minmax_element(channels.begin(), channels.end());
    if (*high < 8 || *high == 255)
        return false;             // too dark to have a colour, or brighter than could be stored
    constexpr double Visible = 4; // levels
    HBTemperatureParams found = Neutralized(color, params);
    if (Cast(color, found) > Visible) {
        params.strength = 100; // less does not reach so far
        found = Neutralized(color, params);
    }
    params = found;
    return true;
}

// ---- Levels ----

void MoveHandle(HBLevelsParams* params, int channel)
{
    const auto& input = params->input[channel];
    params->middle[channel] = HBLevelsParams::MiddleValue(input[0], input[1], params->gamma[channel]);
}

/// \param end 0: black, 1: white
bool PickEnd(int end, HBRGBA32i color, std::any* record)
{
    auto& params = std::any_cast<HBLevelsParams&>(*record);
    const auto channels = ChannelsOf(color);
    for (int c = 0; c < 3; ++c) {
        if (end == 0 ? channels[size_t(c)] >= params.input[c + 1][1]
                     : channels[size_t(c)] <= params.input[c + 1][0])
            return false;
    }
    for (int c = 0; c < 3; ++c) {
        params.input[c + 1][end] = channels[size_t(c)];
        MoveHandle(&params, c + 1);
    }
    return true;
}

bool PickGrey(HBRGBA32i color, std::any* record)
{
    auto& params = std::any_cast<HBLevelsParams&>(*record);
    std::array<double, 3> place{}; // of each channel between its black and its white
    double middle = 0;
    for (int c = 0; c < 3; ++c) {
        const auto& input = params.input[c + 1];
        place[size_t(c)] = double(ChannelsOf(color)[size_t(c)] - input[0]) / std::max(1, input[1] - input[0]);
        if (place[size_t(c)] <= 0 || place[size_t(c)] >= 1)
            return false;
        middle += place[size_t(c)] / 3;
    }
    for (int c = 0; c < 3; ++c) {
        const double gamma = std::log(place[size_t(c)]) / std::log(middle);
        params.gamma[c + 1] = std::clamp(std::round(gamma * 100) / 100, 0.01, 9.99);
        MoveHandle(&params, c + 1);
    }
    return true;
}

// ---- Replace colour ----

bool PickReplacement(HBRGBA32i color, std::any* record)
{
    std::any_cast<HBReplaceColorParams&>(*record).color = QColor(color.red, color.green, color.blue);
    return true;
}

} // namespace

QVector<HBPhotoPick> HBPhotoPicksOf(const QString& panel)
{
    using namespace std::placeholders;
    if (panel == "HBTemperatureWidget") {
        return {{PickText::tr("&Neutral…"), PickText::tr("Click a place of the photo that should be gray"),
                 PickNeutral}};
    }
    if (panel == "HBLevelsWidget") {
        return {{PickText::tr("&Black…"), PickText::tr("Click a place of the photo that should be black"),
                 std::bind(PickEnd, 0, _1, _2)},
                {PickText::tr("&Gray…"), PickText::tr("Click a place of the photo that should be gray"), PickGrey},
                {PickText::tr("&White…"), PickText::tr("Click a place of the photo that should be white"),
                 std::bind(PickEnd, 1, _1, _2)}};
    }
    if (panel == "HBReplaceColorWidget") {
        return {{PickText::tr("&Pick Color…"), PickText::tr("Click a place of the photo that has the new color"),
                 PickReplacement}};
    }
    return {};
}

HBRGBA32i HBColorAround(const HBImage<>& photo, const QPoint& pixel)
{
    constexpr int Reach = 2;
    const QRect area = QRect(pixel - QPoint(Reach, Reach), pixel + QPoint(Reach, Reach)) &
                       QRect(0, 0, photo.Width(), photo.Height());
    int sums[3] = {};
    const int count = std::max(1, area.width() * area.height());
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const auto channels = ChannelsOf(photo.PixelAt(x, y));
            for (size_t c = 0; c < 3; ++c)
                sums[c] += channels[c];
        }
    }
    const auto mean = [&](int c) { return std::uint8_t((sums[c] + count / 2) / count); };
    return {mean(0), mean(1), mean(2)};
}

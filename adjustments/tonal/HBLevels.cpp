// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLevels.h"

#include "HBRecordStream.h"

#include <HBIterativeLevelsTransformation.h>
#include <HBStretchRange.h>

#include <algorithm>
#include <limits>

namespace
{

int ToInt(qint64 value)
{
    using Limits = std::numeric_limits<int>;
    return int(std::clamp<qint64>(value, Limits::min(), Limits::max()));
}

} // namespace

bool HBLevelsParams::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> channel;
    for (int c = 0; c < 4; ++c) // see Write; the later of two ints for one field wins
        stream >> input[c][0] >> input[c][1] >> (c < 3 ? input[c + 1][0] : middle[0]);
    for (auto& points : output)
        stream >> points[0] >> points[1];
    for (int c = 0; c < 4; ++c) {
        stream >> gamma[c];
        middle[c] = MiddleValue(input[c][0], input[c][1], gamma[c]); // a stored middle is never trusted
    }
    return HBIsOk(stream);
}

// The defaults, big endian: the 16 bytes of the tag; 0; (0, 255, 0), (0, 255, 0), (0, 255, 0), (0, 255, 128); four
// times (0, 255); four times the double 1.0. The third int of each input triple is the low point of the next
// channel once more, and for the last channel middle[0], on purpose: the layout is fixed by records that exist.
bool HBLevelsParams::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << channel;
    for (int c = 0; c < 4; ++c)
        stream << input[c][0] << input[c][1] << (c < 3 ? input[c + 1][0] : middle[0]);
    for (const auto& points : output)
        stream << points[0] << points[1];
    for (const double value : gamma)
        stream << value;
    return HBIsOk(stream);
}

int HBLevelsParams::MiddleValue(int low, int high, double gamma)
{
    const qint64 middle = (qint64(low) + high) / 2;
    // Truncated, not rounded, on purpose: 2.01 counts as 2009 thousandths. The bounds keep the cast and the
    // products below inside 64 bits whatever a record holds.
    const qint64 g = qIsNaN(gamma) ? 1000 : qint64(qBound(-2e9, gamma * 1000, 2e9));
    if (g > 1000)
        return ToInt(middle + (low - middle) * (g - 1000) / 8990);
    return ToInt(high + (middle - high) * (g - 10) / 990);
}

double HBLevelsParams::ToneValue(int low, int high, int position)
{
    const qint64 middle = (qint64(low) + high) / 2;
    const qint64 room = position >= middle ? high - middle : middle - low;
    if (room == 0)
        return 1.0;
    // Whole thousandths, cut off.
    const qint64 thousandths = position >= middle ? (middle - position) * 990 / room + 1000
                                                  : (qint64(low) - position) * 8990 / room + 9990;
    return double(thousandths) / 1000.0;
}

HBStages HBStagesOf(const HBLevelsParams& params)
{
    // The transformation clamps: it is asked for in plain arrays that may be changed.
    HBLevelsSettings settings;
    std::copy(&params.input[0][0], &params.input[0][0] + 8, &settings.input[0][0]);
    std::copy(&params.output[0][0], &params.output[0][0] + 8, &settings.output[0][0]);
    std::copy(params.gamma, params.gamma + 4, settings.gamma);
    return {HBStageOf(HBIterativeLevelsTransformation(settings.input, settings.output, settings.gamma, 100))};
}

HBLevelsSettings HBAutomaticLevels(const HBHistogrammCalculator::Counts& counts)
{
    HBLevelsSettings settings;
    for (int c = 0; c < 3; ++c) {
        unsigned levels[256];
        int low = 255;
        int high = 0;
        for (int level = 0; level < 256; ++level) {
            // As an int counts them, which picture correction has always used.
            levels[level] = unsigned(std::min<quint64>(counts.levels[c][level], std::numeric_limits<int>::max()));
            if (levels[level] > 0) {
                low = std::min(low, level);
                high = level;
            }
        }
        if (low > high)
            low = 0; // an empty image
        const auto [black, white] = HBStretchRange(levels, low, high, double(counts.pixels));
        settings.input[c + 1][0] = black;
        settings.input[c + 1][1] = white;
    }
    return settings;
}

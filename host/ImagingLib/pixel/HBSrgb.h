// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cmath>

/// Between stored values and light: the transfer function of sRGB (IEC 61966-2-1) and tables for it. Both sides of
/// every function are 0..1.
namespace HBSrgb
{

inline double Decode(double value)
{
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

inline double Encode(double light)
{
    return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1.0 / 2.4) - 0.055;
}

/// The light of the levels 0..255.
struct LevelTable
{
    std::array<float, 256> light;

    LevelTable()
    {
        for (int level = 0; level < 256; ++level)
            light[std::size_t(level)] = float(Decode(level / 255.0));
    }
};

/// The level that a function of light has, not rounded, by the leading bits of the light as a float: fine steps
/// where it is dark. For the transfer function and for lightness the error is at most 0.11 levels.
struct ShadeTable
{
    static constexpr int StepBits = 9; ///< steps per doubling of the light: 2^StepBits
    static constexpr int Doublings = 13;
    static constexpr int Shift = 23 - StepBits;                 ///< from the bits of a float to a step
    static constexpr int First = (127 - Doublings) << StepBits; ///< the step of Least
    static constexpr float Least = 1.0f / (1 << Doublings);     ///< anything darker is black

    std::array<float, (Doublings << StepBits) + 1> level;

    /// \param function 0..1 to 0..1, monotone
    template <class Function>
    explicit ShadeTable(Function function)
    {
        const int steps = 1 << StepBits;
        for (int i = 0; i < Doublings * steps; ++i) {
            const double middle = std::ldexp(1.0 + (i % steps + 0.5) / steps, i / steps - Doublings);
            level[std::size_t(i)] = float(255.0 * function(middle));
        }
        level.front() = 0.0f;
        level.back() = float(255.0 * function(1.0));
    }
};

/// Decode, as a table.
inline const LevelTable& Decoding()
{
    static const LevelTable table;
    return table;
}

/// Encode, as a table.
inline const ShadeTable& Encoding()
{
    static const ShadeTable table(Encode);
    return table;
}

} // namespace HBSrgb

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <cstdint>
#include <cstring>

/// One pixel: 8 bits per channel, not premultiplied; in memory blue, green, red, alpha, as QImage::Format_ARGB32
/// on a little-endian machine.
struct alignas(4) HBRGBA32i
{
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t alpha = 0;

    constexpr HBRGBA32i() = default;
    constexpr HBRGBA32i(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255)
        : blue(b)
        , green(g)
        , red(r)
        , alpha(a)
    {
    }

    /// From Qt's 0xAARRGGBB.
    static constexpr HBRGBA32i FromRgba(QRgb rgba)
    {
        return {std::uint8_t(rgba >> 16), std::uint8_t(rgba >> 8), std::uint8_t(rgba), std::uint8_t(rgba >> 24)};
    }
    /// To Qt's 0xAARRGGBB.
    constexpr QRgb ToRgba() const
    {
        return (QRgb(alpha) << 24) | (QRgb(red) << 16) | (QRgb(green) << 8) | QRgb(blue);
    }

    friend constexpr bool operator==(const HBRGBA32i& a, const HBRGBA32i& b) { return a.ToRgba() == b.ToRgba(); }
    friend constexpr bool operator!=(const HBRGBA32i& a, const HBRGBA32i& b) { return !(a == b); }
};

static_assert(sizeof(HBRGBA32i) == 4, "a pixel is one 32-bit value");
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "pixels are shared with QImage::Format_ARGB32 byte by byte");

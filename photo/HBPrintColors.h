// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QColor>

#include <memory>

/// Turns cyan, magenta, yellow and black into sRGB, by the profile of the print. Relative colorimetric with black
/// point compensation. One thread.
class HBPrintColors
{
public:
    /// \param icc for CMYK; with any other there is nothing to convert by
    explicit HBPrintColors(const QByteArray& icc) : m_Icc(icc) {}
    ~HBPrintColors();
    HBPrintColors(const HBPrintColors&) = delete;
    HBPrintColors& operator=(const HBPrintColors&) = delete;

    /// Before the first pixel; false if the profile is none for this.
    /// \param inverted 255 is no ink, as most JPEG files have it; else 0 is
    bool Begin(bool inverted);
    /// In place: from the four bytes of each pixel, in that order, to opaque QRgb.
    void Convert(QRgb* pixels, int count) const;
    /// Whether it has begun: what is read is sRGB now.
    bool HasBegun() const { return m_Transform; }

private:
    const QByteArray m_Icc;
    void* m_Transform = nullptr;
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPictureLook.h"

// What the light of a picture is like. Every pixel counts alike, whatever its alpha; padding of border tiles does
// not. The same picture gives the same bits on every machine, however many lanes share the work.

/// The Minkowski norm of each channel, exponent 32, over the stored values: 0..1, in an empty picture 0. Channels
/// that are nowhere above level 2 count as black.
struct HBChannelNorms
{
    double red;
    double green;
    double blue;
};

/// Measures the norms of the channels.
class HB_IMAGINGLIB_EXPORT HBNormsLook : public HBPictureLook
{
public:
    HBNormsLook();
    ~HBNormsLook() override;
    void Begin(const HBImage<>& picture) override;
    std::unique_ptr<Lane> MakeLane() override;
    HBChannelNorms Result() const;

private:
    struct Tiles;
    std::unique_ptr<Tiles> m_pTiles;
};

/// The geometric mean of the pixels' luma (ITU-R BT.709) after an offset of 0.055, then as light: the log-average
/// luminance, 0.0008 (black) .. 1, in an empty picture 0. The offset, which is that of the transfer function of
/// sRGB (IEC 61966-2-1), keeps black pixels from deciding alone.
class HB_IMAGINGLIB_EXPORT HBLogAverageLook : public HBPictureLook
{
public:
    HBLogAverageLook();
    ~HBLogAverageLook() override;
    void Begin(const HBImage<>& picture) override;
    std::unique_ptr<Lane> MakeLane() override;
    double Result() const;

private:
    struct Tiles;
    std::unique_ptr<Tiles> m_pTiles;
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBRGBA32i.h"

#include <QtGlobal>

/// Counts pixels one by one into three arrays of 256 counters, which belong to the caller. Alpha is not looked at.
class KMRGBHistogram
{
public:
    KMRGBHistogram(uint* red, uint* green, uint* blue) : m_pRed(red), m_pGreen(green), m_pBlue(blue) {}

    void operator()(HBRGBA32i pixel)
    {
        ++m_pRed[pixel.red];
        ++m_pGreen[pixel.green];
        ++m_pBlue[pixel.blue];
    }

private:
    uint* m_pRed;
    uint* m_pGreen;
    uint* m_pBlue;
};

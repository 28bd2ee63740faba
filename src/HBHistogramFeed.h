// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>
#include <HBSharedImage.h>
#include <HistogramWidget.h>

/// The panel's copy of the source image that its histogram view counts in the background.
class HBHistogramFeed
{
public:
    void Update(const HBImage<>& image, HistogramWidget* view)
    {
        m_Image.Set(image);
        view->SetImage(&m_Image);
    }

private:
    HBSharedImage<HBImage<>> m_Image;
};

/// The histogram view's mask (1 red, 2 green, 4 blue) of a channel index (0 all, 1 red, 2 green, 3 blue).
inline int HBHistogramMask(int channel)
{
    switch (channel) {
    case 1:
        return 1;
    case 2:
        return 2;
    case 3:
        return 4;
    default:
        return 7;
    }
}

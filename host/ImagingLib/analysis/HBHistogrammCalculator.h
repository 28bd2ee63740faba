// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBPictureLook.h"

#include <QImage>

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// Counts how often each level occurs in a picture, per channel; alpha is not looked at, and padding of border
/// tiles is never counted. Works on several threads, also when called on a pool thread; any thread may call it.
class HB_IMAGINGLIB_EXPORT HBHistogrammCalculator
{
public:
    enum Channel { Red, Green, Blue, Luma, ChannelCount };

    /// Pixels per channel and level, and how many there were.
    struct Counts
    {
        std::array<std::array<quint64, 256>, ChannelCount> levels{};
        quint64 pixels = 0;
    };

    /// Where Accumulate adds its counts: arrays of 256, which the caller sets to 0 before the first picture. A
    /// null pointer leaves that channel out.
    void SetOutput(int* red, int* green, int* blue, int* luma);
    /// Adds the pixels of `rect` (image coordinates, cut to the image; an invalid one has none) to the output. A
    /// count stops at the largest int. \throws std::bad_alloc
    void Accumulate(const HBImage<>& image, const QRect& rect);

    /// The share of red, green and blue in luma after ITU-R BT.709 (0.2126, 0.7152, 0.0722), in 1/32768.
    static constexpr int LumaWeights[3] = {6966, 23436, 2366};
    /// Luma of the stored values, rounded; exact for greys.
    static int LumaOf(HBRGBA32i pixel)
    {
        return (LumaWeights[0] * pixel.red + LumaWeights[1] * pixel.green + LumaWeights[2] * pixel.blue +
                (1 << 14)) >>
               15;
    }

    /// Counts the pixels of `rect`. When `*abandoned` becomes true the rest is left out and the result is of no
    /// use.
    /// \throws std::bad_alloc
    static Counts Count(const HBImage<>& image, const QRect& rect, const std::atomic<bool>* abandoned = nullptr);
    /// The same for a whole QImage of any format; 16-bit channels are reduced to 8, premultiplied ones divided.
    static Counts Count(const QImage& image, const std::atomic<bool>* abandoned = nullptr);

    using Done = std::function<void(const Counts&)>;
    using Abandoned = std::shared_ptr<const std::atomic<bool>>;
    /// Counts the whole image in the pool, behind everything else that wants a thread (HBRunBehind), and calls
    /// `done` there, once, also when abandoned. It must not throw. Where there is not enough memory a warning says
    /// so and the counts are 0.
    static void CountBehind(const HBImage<>& image, const Abandoned& abandoned, const Done& done);
    static void CountBehind(const QImage& image, const Abandoned& abandoned, const Done& done);

    /// The levels below and above which 0.5 % of the counted pixels lie: the 0.5 % and the 99.5 % percentile of
    /// 256 counts (contrast stretching as in Gonzalez and Woods, Digital Image Processing). (0, 255) if nothing
    /// was counted; the two may be equal.
    static std::vector<int> Threshold(const std::array<quint64, 256>& counts);
    /// The same; less than 0 counts as 0.
    static std::vector<int> Threshold(const int* counts);

private:
    std::array<int*, ChannelCount> m_Outputs{};
};

/// A histogram of the whole picture.
class HB_IMAGINGLIB_EXPORT HBHistogramLook : public HBPictureLook
{
public:
    void Begin(const HBImage<>& picture) override;
    std::unique_ptr<Lane> MakeLane() override;
    const HBHistogrammCalculator::Counts& Result() const { return m_Counts; }

private:
    HBHistogrammCalculator::Counts m_Counts;
    std::mutex m_Mutex;
};

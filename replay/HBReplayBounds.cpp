// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayBounds.h"

#include "HBReplayWords.h"

namespace
{

constexpr int BytesPerPixel = 8; // two copies of a picture are in memory while it is read or written
// Fewer bytes do not hold a photo, though a plain picture: the most that the usual formats can pack is near this.
constexpr qint64 MostPixelsPerByte = 2000;
constexpr double PlausibleMegapixels = 50; // too little to do harm

} // namespace

QString HBReplayBounds::Problem(const QSize& size, qint64 fileBytes, const HBRecipeCost& recipe, int threads) const
{
    if (!size.isValid())
        return {};
    const qint64 pixels = qint64(size.width()) * size.height();
    const double millions = pixels / 1e6;
    const auto number = [](double value) { return QString::number(value, 'f', value < 10 ? 1 : 0); };
    if (millions > megapixels) {
        return HBReplayWords::tr("it has %1 megapixels, more than %2; allow it with --max-megapixels")
            .arg(number(millions), number(megapixels));
    }
    if (!anyMegapixels && millions > PlausibleMegapixels && pixels / MostPixelsPerByte > fileBytes) {
        return HBReplayWords::tr(
                   "it says that it has %1 megapixels, in a file of %2 bytes; allow it with --max-megapixels")
            .arg(number(millions))
            .arg(fileBytes);
    }
    const qint64 bytes = pixels * BytesPerPixel + recipe.Memory(pixels);
    if (bytes > memory) {
        return HBReplayWords::tr("it needs about %1 MB of memory, more than %2 MB; allow it with --memory")
            .arg(bytes >> 20)
            .arg(memory >> 20);
    }
    const double estimate = recipe.Seconds(pixels) / qMax(1, threads);
    if (estimate > seconds) {
        return HBReplayWords::tr(
                   "the recipe would take about %1 s for it, more than %2 s; allow it with --max-seconds-per-file")
            .arg(number(estimate), number(seconds));
    }
    return {};
}

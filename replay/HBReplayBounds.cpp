// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayBounds.h"

#include <HBAdjustment.h>
#include <HBWatermark.h>

#include <QCoreApplication>

namespace
{

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PanelReplay)
};

// Nanoseconds on one core.
constexpr double PerPixelOfTables = 0.3; // they become one table where they stand together
constexpr double PerPixel = 1.5;
constexpr double PerPixelOfFlood = 8;
constexpr double PerLetter = 4000; // of each copy

constexpr int BytesPerPixel = 8; // two copies of a picture are in memory while it is read or written
// Fewer bytes do not hold a photo, though a plain picture: the most that the usual formats can pack is near this.
constexpr qint64 MostPixelsPerByte = 2000;
constexpr double PlausibleMegapixels = 50; // too little to do harm

bool IsTable(const QString& panel)
{
    for (const char* name : {"HBBrightnessContrastWidget", "HBExposureWidget", "HBGammaCorrectionWidget",
                             "HBPosterizeWidget", "HBLevelsWidget", "HBCurvesWidget"}) {
        if (panel == QLatin1String(name))
            return true;
    }
    return false;
}

double Nanoseconds(const HBRecipeStep& step, double pixels)
{
    if (IsTable(step.panel))
        return PerPixelOfTables * pixels;
    if (step.panel == "HBReplaceColorWidget")
        return PerPixelOfFlood * pixels;
    double letters = 0;
    std::any record;
    QString reason;
    const HBAdjustment* adjustment = HBFindAdjustment(step.panel);
    if (adjustment && step.panel == "HBWatermarkWidget" && adjustment->restore(step.values, &record, &reason)) {
        const auto& text = std::any_cast<const HBWatermarkParams&>(record);
        letters = double(qMin(text.text.size(), 4096)) * HBClamped(text, &HBWatermarkParams::horizontalTiles) *
                  HBClamped(text, &HBWatermarkParams::verticalTiles);
    }
    return PerPixel * pixels + PerLetter * letters;
}

} // namespace

double HBEstimateSeconds(const HBRecipe& recipe, qint64 pixels)
{
    double sum = 0;
    for (const HBRecipeStep& step : recipe.steps)
        sum += Nanoseconds(step, double(pixels));
    return sum / 1e9;
}

QString HBReplayBounds::Problem(const QSize& size, qint64 fileBytes, const HBRecipe& recipe, int threads) const
{
    if (!size.isValid())
        return {};
    const qint64 pixels = qint64(size.width()) * size.height();
    const double millions = pixels / 1e6;
    const auto number = [](double value) { return QString::number(value, 'f', value < 10 ? 1 : 0); };
    if (millions > megapixels) {
        return Text::tr("it has %1 megapixels, more than %2; allow it with --max-megapixels")
            .arg(number(millions), number(megapixels));
    }
    if (!anyMegapixels && millions > PlausibleMegapixels && pixels / MostPixelsPerByte > fileBytes) {
        return Text::tr("it says that it has %1 megapixels, in a file of %2 bytes; allow it with --max-megapixels")
            .arg(number(millions))
            .arg(fileBytes);
    }
    if (pixels * BytesPerPixel > memory) {
        return Text::tr("it needs about %1 MB of memory, more than %2 MB; allow it with --memory")
            .arg(pixels * BytesPerPixel >> 20)
            .arg(memory >> 20);
    }
    const double estimate = HBEstimateSeconds(recipe, pixels) / qMax(1, threads);
    if (estimate > seconds) {
        return Text::tr(
                   "the recipe would take about %1 s for it, more than %2 s; allow it with --max-seconds-per-file")
            .arg(number(estimate), number(seconds));
    }
    return {};
}

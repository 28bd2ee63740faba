// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeBenchmark.h"

#include <HBAdjustment.h>
#include <HBPictureCorrection.h>
#include <HBRecipe.h>

#include <cstdio>

namespace
{

constexpr const char* Tables[] = {"HBBrightnessContrastWidget", "HBExposureWidget", "HBGammaCorrectionWidget",
                                  "HBLevelsWidget", "HBCurvesWidget"};
constexpr const char* Mixed[] = {"HBLevelsWidget", "HBCurvesWidget", "HBHueSaturationWidget",
                                 "HBColorBalanceWidget", "HBTemperatureWidget"};

/// The demonstrations one after the other.
template <std::size_t Count>
bool Load(const char* const (&classNames)[Count], HBRecipe* recipe, QString* error)
{
    for (const char* className : classNames) {
        HBRecipe step;
        if (!HBRecipe::Load(QStringLiteral(SAMPLE_RECIPES "/%1.json").arg(QLatin1String(className)), &step, error))
            return false;
        recipe->steps += step.steps;
    }
    return true;
}

template <std::size_t Count>
void Register(const std::string& name, const HBImage<>& (*photo)(), const char* const (&classNames)[Count])
{
    HBRecipe recipe;
    QString error;
    if (!Load(classNames, &recipe, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return;
    }
    benchmark::RegisterBenchmark(name.c_str(),
                                 [=](benchmark::State& state) {
                                     QString problem;
                                     photo();
                                     for (auto _ : state) {
                                         if (HBApplyRecipe(photo(), recipe, &problem).IsEmpty())
                                             state.SkipWithError(qPrintable(problem));
                                     }
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

bool PrintRatio(const char* what, double time, const char* unitName, double unit, double most)
{
    if (time <= 0 || unit <= 0)
        return true;
    const bool reached = time <= most * unit;
    std::printf("%-52s %8.2f ms %6.2f x %-28s aim: <= %.2f: %s\n", what, time, time / unit, unitName, most,
                reached ? "reached" : "missed");
    return reached;
}

} // namespace

std::string HBRecipeBenchmarkOf(const std::string& className)
{
    return "Recipe_" + className;
}

std::string HBRegisterRecipe(const std::string& className, const HBImage<>& (*photo)())
{
    Register(HBRecipeBenchmarkOf(className), photo, {className.c_str()});
    return HBRecipeBenchmarkOf(className);
}

void HBRegisterRecipes(const HBImage<>& (*photo)())
{
    for (const char* className : Mixed)
        HBRegisterRecipe(className, photo);
    Register("Recipe_FiveTables", photo, Tables);
    Register("Recipe_FiveMixed", photo, Mixed);
    benchmark::RegisterBenchmark("PictureCorrection_Advanced",
                                 [=](benchmark::State& state) {
                                     HBPictureCorrectionParams params;
                                     params.enchanced = true;
                                     photo();
                                     for (auto _ : state) {
                                         if (!HBAdjust(params, {photo()}).IsWhole())
                                             state.SkipWithError("It failed");
                                     }
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

bool HBPrintRecipes(const HBMedianReporter& reporter, const std::string& copy)
{
    double sum = 0;
    for (const char* className : Mixed)
        sum += reporter.Median(HBRecipeBenchmarkOf(className));
    std::printf("\n");
    const bool tables = PrintRatio("Five steps of tables as one recipe", reporter.Median("Recipe_FiveTables"),
                                   "one of them", reporter.Median(HBRecipeBenchmarkOf("HBLevelsWidget")), 1.3);
    const bool mixed = PrintRatio("Levels, curves, hue, color balance, temperature",
                                  reporter.Median("Recipe_FiveMixed"), "the sum of the five", sum, 0.75);
    const bool advanced = PrintRatio("Picture correction, advanced", reporter.Median("PictureCorrection_Advanced"),
                                     "the tile copy", reporter.Median(copy), 7.0);
    return tables && mixed && advanced;
}

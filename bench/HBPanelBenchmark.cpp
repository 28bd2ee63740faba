// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelBenchmark.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>
#include <HBParallel.h>
#include <HBRecipe.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThreadPool>

#include <memory>

namespace
{

/// The panel with its demonstration's setting, shown; null with a reason.
std::unique_ptr<HBAdjustmentWidget> MakePanel(const QString& name, QString* error)
{
    HBRecipe recipe;
    if (!HBRecipe::Load(QStringLiteral(SAMPLE_RECIPES "/%1.json").arg(name), &recipe, error))
        return nullptr;
    const HBPanelEntry* entry = HBFindPanel(name);
    std::unique_ptr<HBAdjustmentWidget> panel(entry->create(true, nullptr));
    if (!entry->restore(*panel, recipe.steps.first().values, error))
        return nullptr;
    panel->show();
    QApplication::processEvents();
    return panel;
}

/// Seconds from SetImage to ImageReady; below 0 if the job failed.
double SecondsOf(HBAdjustmentWidget& panel, const HBImage<>& photo)
{
    QEventLoop loop;
    qint64 elapsed = 0;
    QElapsedTimer timer;
    QObject::connect(&panel, &HBAdjustmentWidget::ImageReady, &loop, [&] {
        elapsed = timer.nsecsElapsed();
        loop.quit();
    });
    timer.start();
    panel.SetImage(photo, {}, {}, {});
    loop.exec();
    const double seconds = panel.HasJobFailed() ? -1 : double(elapsed) / 1e9;
    HBThreadPool().waitForDone();
    return seconds;
}

void Run(benchmark::State& state, const std::string& className, const HBImage<>& photo)
{
    QString error;
    for (auto _ : state) {
        const std::unique_ptr<HBAdjustmentWidget> panel = MakePanel(QString::fromStdString(className), &error);
        if (!panel) {
            state.SkipWithError(qPrintable(error));
            return;
        }
        const double seconds = SecondsOf(*panel, photo);
        if (seconds < 0) {
            state.SkipWithError("The job failed");
            return;
        }
        state.SetIterationTime(seconds);
    }
}

} // namespace

std::string HBPanelBenchmark(const std::string& className)
{
    return "EndToEnd_" + className;
}

void HBRegisterPanel(const std::string& className, const HBImage<>& (*photo)())
{
    benchmark::RegisterBenchmark(HBPanelBenchmark(className).c_str(),
                                 [=](benchmark::State& state) { Run(state, className, photo()); })
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

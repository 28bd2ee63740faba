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
#include <QSpinBox>
#include <QThreadPool>

#include <functional>
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

/// Seconds from `start` to ImageReady; below 0 if the job failed.
double SecondsOf(HBAdjustmentWidget& panel, const std::function<void()>& start)
{
    QEventLoop loop;
    qint64 elapsed = 0;
    QElapsedTimer timer;
    QObject::connect(&panel, &HBAdjustmentWidget::ImageReady, &loop, [&] {
        elapsed = timer.nsecsElapsed();
        loop.quit();
    });
    timer.start();
    start();
    loop.exec();
    const double seconds = panel.HasJobFailed() ? -1 : double(elapsed) / 1e9;
    HBThreadPool().waitForDone();
    return seconds;
}

/// Has the panel work in one step of its first control, which the demonstration has at its end.
void Change(HBAdjustmentWidget& panel)
{
    panel.findChild<QSpinBox*>()->stepDown();
    panel.ProcessNow();
}

void Run(benchmark::State& state, const std::string& className, const HBImage<>& photo, bool changed)
{
    QString error;
    for (auto _ : state) {
        const std::unique_ptr<HBAdjustmentWidget> panel = MakePanel(QString::fromStdString(className), &error);
        if (!panel) {
            state.SkipWithError(qPrintable(error));
            return;
        }
        double seconds = SecondsOf(*panel, [&] { panel->SetImage(photo, {}, {}, {}); });
        if (changed && seconds >= 0)
            seconds = SecondsOf(*panel, [&] { Change(*panel); });
        if (seconds < 0) {
            state.SkipWithError("The job failed");
            return;
        }
        state.SetIterationTime(seconds);
    }
}

void Register(const std::string& name, const std::string& className, const HBImage<>& (*photo)(), bool changed)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [=](benchmark::State& state) { Run(state, className, photo(), changed); })
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

} // namespace

std::string HBPanelBenchmark(const std::string& className)
{
    return "EndToEnd_" + className;
}

std::string HBChangeBenchmark(const std::string& className)
{
    return "Change_" + className;
}

void HBRegisterPanel(const std::string& className, const HBImage<>& (*photo)())
{
    Register(HBPanelBenchmark(className), className, photo, false);
}

void HBRegisterChange(const std::string& className, const HBImage<>& (*photo)())
{
    Register(HBChangeBenchmark(className), className, photo, true);
}

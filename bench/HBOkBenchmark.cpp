// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOkBenchmark.h"

#include "HBRecipeBenchmark.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelSession.h>
#include <HBParallel.h>
#include <HBRecipe.h>
#include <KMDocumentView.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSpinBox>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace
{

constexpr double MostMilliseconds = 50; ///< over the bare job
constexpr const char* Panels[] = {"HBLevelsWidget", "HBHueSaturationWidget", "HBColorBalanceWidget",
                                  "HBTemperatureWidget"};

enum Way { Control, SetValue, Editor };
constexpr Way Ways[] = {Control, SetValue, Editor};

std::string Name(const std::string& className, Way way)
{
    constexpr const char* Names[] = {"OkControl_", "OkSetValue_", "OkEditor_"};
    return Names[way] + className;
}

/// \return whether it came to that in time
template <class Condition>
bool RunUntil(Condition condition)
{
    constexpr int Patience = 60000; // ms
    QElapsedTimer time;
    time.start();
    QTimer wakes;
    wakes.start(1);
    while (!condition() && time.elapsed() < Patience)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

/// As the editor's window does it.
void Connect(HBPanelSession& session, KMDocumentView& view)
{
    QObject::connect(&session, &HBPanelSession::PreviewReady, &view, &KMDocumentView::SetPicture);
    QObject::connect(&session, &HBPanelSession::SightReady, &view, &KMDocumentView::ShowSight);
    QObject::connect(&session, &HBPanelSession::SightOver, &view, &KMDocumentView::EndSight);
    QObject::connect(&view, &KMDocumentView::SightChanged, &session, &HBPanelSession::SetSight);
    session.SetSight(view.SightArea(), view.Zoom());
}

void MoveControl(HBPanelSession& session)
{
    session.Panel()->findChild<QSpinBox*>()->stepDown();
}

/// For so long that what is in sight has been shown, but never still for so long that the whole is begun.
void MoveForAWhile(HBPanelSession& session)
{
    constexpr int Moves = 10;
    constexpr int Milliseconds = 8;
    for (int i = 0; i < Moves; ++i) {
        MoveControl(session);
        QElapsedTimer time;
        time.start();
        RunUntil([&] { return time.elapsed() >= Milliseconds; });
    }
    MoveControl(session);
}

/// Seconds; below 0 with a reason.
double MeasureOk(const HBPanelEntry& entry, const HBRecipeStep& step, const HBImage<>& photo, Way way,
                 QString* reason)
{
    KMDocumentView view;
    view.resize(1100, 760);
    view.show();
    view.SetPicture(photo);
    HBPanelSession session(entry);
    if (way == Editor)
        Connect(session, view);
    if (!session.SetStep(step, reason))
        return -1;
    session.Widget()->show();
    session.SetTarget({photo});
    // As in the middle of the work: the memory of two previews is in turn.
    for (const bool last : {false, true}) {
        if (!RunUntil([&] { return session.IsUpToDate() && !session.IsBusy(); })) {
            *reason = "There is no preview";
            return -1;
        }
        HBThreadPool().waitForDone();
        if (!last)
            MoveControl(session);
    }

    const auto before = session.Preview().Tile(0);
    HBImage<> accepted;
    qint64 elapsed = 0;
    QElapsedTimer time;
    QObject::connect(&session, &HBPanelSession::Accepted, &view, [&](const HBImage<>& image) {
        elapsed = time.nsecsElapsed();
        accepted = image;
    });
    if (way == Control)
        MoveControl(session);
    else if (way == Editor)
        MoveForAWhile(session);
    else if (!entry.restore(*session.Panel(), step.values, reason))
        return -1;
    time.start();
    session.Accept();
    if (!RunUntil([&] { return !accepted.IsEmpty(); }) || accepted.Tile(0) == before) {
        *reason = "OK has not given the image of the last change";
        return -1;
    }
    return double(elapsed) / 1e9;
}

void Run(benchmark::State& state, const QString& className, const HBImage<>& photo, Way way)
{
    HBRecipe recipe;
    QString reason;
    if (!HBRecipe::Load(QStringLiteral(SAMPLE_RECIPES "/%1.json").arg(className), &recipe, &reason))
        state.SkipWithError(qPrintable(reason));
    for (auto _ : state) {
        const double seconds = MeasureOk(*HBFindPanel(className), recipe.steps.first(), photo, way, &reason);
        if (seconds < 0) {
            state.SkipWithError(qPrintable(reason));
            return;
        }
        state.SetIterationTime(seconds);
    }
}

} // namespace

void HBRegisterOks(const HBImage<>& (*photo)())
{
    for (const char* className : Panels) {
        for (const Way way : Ways) {
            const QString name = QString::fromLatin1(className);
            benchmark::RegisterBenchmark(Name(className, way).c_str(),
                                         [=](benchmark::State& state) { Run(state, name, photo(), way); })
                ->Unit(benchmark::kMillisecond)
                ->Iterations(2) // opening the panel takes longer
                ->UseManualTime();
        }
    }
}

bool HBPrintOks(const HBMedianReporter& reporter)
{
    bool reached = true;
    std::printf("\n| OK right after a change | bare job, ms | by a control, ms more | by code, ms more | in the "
                "editor, ms more |\n|---|---|---|---|---|\n");
    for (const char* className : Panels) {
        const double job = reporter.Median(HBRecipeBenchmarkOf(className));
        std::printf("| %s | %.1f |", qPrintable(HBFindPanel(className)->Title()), job);
        for (const Way way : Ways) {
            const double more = reporter.Median(Name(className, way)) - job;
            reached = reached && more <= MostMilliseconds;
            std::printf(" %.1f |", more);
        }
        std::printf("\n");
    }
    std::printf("\nAim: at most %.0f ms more: %s\n", MostMilliseconds, reached ? "reached" : "missed");
    return reached;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayApply.h"

#include "HBInterrupt.h"
#include "HBReplayExit.h"
#include "HBReplayJournal.h"
#include "HBReplayPipeline.h"
#include "HBReplayWords.h"

#include <HBParallel.h>
#include <KMImageFileManager.h>
#include <KMTileManager64.h>

#include <QFileInfo>
#include <QThreadPool>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <sched.h>

namespace
{

/// Those that this process may use, which a scheduler or a container may have made fewer.
int Cores()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    return sched_getaffinity(0, sizeof set, &set) == 0 ? qMax(1, CPU_COUNT(&set)) : 1;
}

/// All that the options of apply and verify say.
struct Request
{
    HBReplayTarget target;
    HBReplayWork work;
    HBInputChoice choice;
    HBShard shard;
    QByteArray recipeHash; ///< of what the recipe's result depends on
    bool dryRun = false;
    bool resume = false;
    bool json = false;
};

bool ReadBounds(const HBReplayOptions& options, HBReplayWork* work, QString* problem)
{
    work->jobs = Cores();
    KMTileManager64& tiles = KMTileManager64::Instance();
    work->bounds.memory = tiles.MemoryBudget();
    work->bounds.anyMegapixels = options.IsSet("max-megapixels");
    if (!options.Whole("jobs", 1, 1024, &work->jobs, problem) ||
        !options.Number("max-seconds-per-file", 0.01, 1e6, &work->bounds.seconds, problem) ||
        !options.Number("max-megapixels", 0.01, 1e6, &work->bounds.megapixels, problem) ||
        !options.Bytes("memory", &work->bounds.memory, problem))
        return false;
    if (options.IsSet("memory"))
        tiles.SetMemoryBudget(work->bounds.memory);
    HBThreadPool().setMaxThreadCount(work->jobs);
    return true;
}

bool ReadPolicies(const HBReplayOptions& options, Request* request, QString* problem)
{
    const auto fail = [problem](const QString& text) {
        *problem = text;
        return false;
    };
    HBReplayTarget& target = request->target;
    if (options.IsSet("name")) {
        target.pattern = options.Value("name");
        const QString wrong = HBReplayTarget::PatternProblem(target.pattern);
        if (!wrong.isEmpty())
            return fail(wrong);
    }
    if (options.IsSet("on-conflict")) {
        const QString policy = options.Value("on-conflict");
        target.onConflict = policy == "skip"        ? HBReplayTarget::Skip
                            : policy == "overwrite" ? HBReplayTarget::Overwrite
                            : policy == "rename"    ? HBReplayTarget::Rename
                                                    : HBReplayTarget::Fail;
        if (options.IsSet("overwrite") && target.onConflict != HBReplayTarget::Overwrite)
            return fail(HBReplayWords::tr("--overwrite and --on-conflict %1 contradict each other").arg(policy));
    }
    if (options.IsSet("shard") && !HBReadShard(options.Value("shard"), &request->shard, problem))
        return false;
    // Workers that look for free names at the same time would take the same ones.
    if (request->shard.count > 1 && target.onConflict == HBReplayTarget::Rename)
        return fail(HBReplayWords::tr("--shard and --on-conflict rename do not go together"));
    if (options.IsSet("keep-going") && options.IsSet("fail-fast"))
        return fail(HBReplayWords::tr("--keep-going and --fail-fast contradict each other"));
    if (options.IsSet("null") && !options.IsSet("files-from"))
        return fail(HBReplayWords::tr("--null goes with --files-from"));
    return true;
}

bool ReadRequest(const HBReplayOptions& options, Request* request, QString* problem)
{
    HBReplayWork& work = request->work;
    if (!HBReadTarget(options, &request->target, &work.photo, problem) ||
        !ReadPolicies(options, request, problem) || !ReadBounds(options, &work, problem))
        return false;
    work.verifies = QLatin1String(options.Command()->name) == "verify";
    work.failFast = options.IsSet("fail-fast");
    request->dryRun = options.IsSet("dry-run");
    request->resume = options.IsSet("resume");
    request->json = options.IsSet("json");

    const QString recipe = options.Arguments().first();
    request->target.recipe = QFileInfo(recipe).completeBaseName();
    if (!HBRecipe::Load(recipe, &work.recipe, problem))
        return false;
    work.cost = HBRecipeCost(work.recipe);
    request->recipeHash = HBHashOfRecipe(work.recipe);
    request->choice = {options.Arguments().mid(1), options.Value("files-from"), options.IsSet("null"),
                       options.IsSet("recursive"), options.Value("base"),       options.Values("include"),
                       options.Values("exclude"),  request->target.folder};
    if (request->choice.paths.isEmpty() && request->choice.listFile.isEmpty()) {
        *problem = HBReplayWords::tr("name the photos, folders of them, or a list with --files-from");
        return false;
    }
    return true;
}

/// The hash of all that makes the results but the photos.
QByteArray JobHash(const Request& request)
{
    const HBReplayTarget& target = request.target;
    const QStringList options{target.suffix, target.pattern, target.recipe,
                              QString::number(request.work.photo.quality)};
    return HBHashOf(request.recipeHash + options.join('\n').toUtf8());
}

/// What a dry run, or one that fails fast and would fail, says instead of going to work.
void TellPlan(const QVector<HBReplayTask>& tasks, bool onlyRefused, HBReplayReport* report)
{
    for (const HBReplayTask& task : tasks) {
        if (HBIsInterrupted())
            return;
        if (task.kind == HBReplayTask::Refuse)
            HBPrintError(task.input + ": " + task.reason);
        if (task.kind == HBReplayTask::Refuse || !onlyRefused)
            report->Planned(task);
    }
}

/// Of a run that has come to its end.
int Finish(const HBReplayReport& report)
{
    if (HBIsInterrupted())
        HBEndInterrupted();
    report.Summary();
    return report.Count(HBReplayResult::Failed) > 0 ? HBFileFailed : HBAllDone;
}

/// To the end of the process if there are threads that cannot be waited for.
void Work(const QVector<HBReplayTask>& tasks, const Request& request, HBReplayReport* report)
{
    HBReplayPipeline pipeline(tasks, request.work, report);
    pipeline.Run();
    if (HBIsInterrupted() || pipeline.HasThreadsLeft())
        std::_Exit(HBFinishOutput(Finish(*report))); // its threads may be decoding or encoding for seconds yet
}

int Run(Request& request, const QVector<HBReplayInput>& inputs, HBReplayReport* report)
{
    HBReplayJournal journal(request.target.folder, request.shard, JobHash(request), request.resume);
    QString problem;
    QVector<HBReplayTask> tasks;
    const bool writes = !request.dryRun && !request.work.verifies;
    const HBReplayPlanning planning{request.shard, request.resume ? &journal : nullptr, request.work.verifies};
    if (!HBPlanReplay(inputs, request.target, planning, &tasks, &problem) ||
        (!request.work.verifies && !HBPrepareFolders(request.target, !writes, &tasks, &problem))) {
        HBPrintError(problem);
        return HBBadUsage;
    }
    report->SetExtent(inputs.size(), tasks.size());
    const bool isRefused = request.work.failFast &&
                           std::any_of(tasks.cbegin(), tasks.cend(),
                                       [](const HBReplayTask& task) { return task.kind == HBReplayTask::Refuse; });
    if (request.dryRun || isRefused) {
        TellPlan(tasks, !request.dryRun, report);
    } else {
        if (writes && !HBIsInterrupted()) {
            journal.Begin();
            request.work.journal = &journal;
        }
        Work(tasks, request, report);
    }
    const int code = Finish(*report);
    if (code == HBAllDone && !request.resume && writes)
        journal.Remove();
    return code;
}

} // namespace

bool HBReadTarget(const HBReplayOptions& options, HBReplayTarget* target, HBPhotoOptions* photo, QString* problem)
{
    const auto fail = [problem](const QString& text) {
        *problem = text;
        return false;
    };
    target->folder = options.Value("output");
    target->suffix = options.Value("format").toLower();
    target->onConflict = options.IsSet("overwrite") ? HBReplayTarget::Overwrite : HBReplayTarget::Fail;
    if (!target->suffix.isEmpty() && !KMImageFileManager::SuffixesForWrite().contains(target->suffix))
        return fail(HBReplayWords::tr("pictures cannot be written in the format \"%1\"").arg(target->suffix));
    if (!options.Whole("quality", 0, 100, &photo->quality, problem))
        return false;
    return !target->folder.isEmpty() || fail(HBReplayWords::tr("name the folder for the results with -o DIR"));
}

int HBReplayApply(const HBReplayOptions& options)
{
    Request request;
    QString problem;
    if (!ReadRequest(options, &request, &problem)) {
        HBPrintError(problem);
        return HBBadUsage;
    }
    const HBReplayReport::Kind kind = request.work.verifies ? HBReplayReport::Verifies
                                      : request.dryRun      ? HBReplayReport::Plans
                                                            : HBReplayReport::Writes;
    const auto report = std::make_shared<HBReplayReport>(kind, request.json, request.shard, request.recipeHash,
                                                         request.work.recipe.steps.size());
    HBSetLastWords([report] { return report->LastWords(); });
    QVector<HBReplayInput> inputs;
    if (!HBFindInputs(request.choice, &inputs, &problem)) {
        HBPrintError(problem);
        return HBBadUsage;
    }
    if (inputs.isEmpty() && !HBIsInterrupted()) {
        if (request.json)
            report->Summary();
        HBPrintError(HBReplayWords::tr("no photo was found there"));
        return HBNothingMatched;
    }
    report->SetExtent(inputs.size(), 0);
    return Run(request, inputs, report.get());
}

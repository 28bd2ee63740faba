// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayPlan.h"

#include "HBFileNames.h"
#include "HBInterrupt.h"
#include "HBReplayJournal.h"
#include "HBReplayWords.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <unistd.h>

namespace
{

class Planner
{
public:
    Planner(const QVector<HBReplayInput>& inputs, const HBReplayTarget& target, const HBReplayPlanning& planning)
        : m_Inputs(inputs)
        , m_Target(target)
        , m_Planning(planning)
    {
    }

    bool Plan(QVector<HBReplayTask>* tasks, QString* problem)
    {
        m_Writers.reserve(m_Inputs.size());
        for (int i = 0; i < m_Inputs.size() && !HBIsInterrupted(); ++i) {
            HBReplayTask task{m_Inputs[i].path, m_Inputs[i].name, m_Target.PathFor(m_Inputs[i].name), {}, {}};
            ClaimOutput(i, &task);
            if (m_Planning.shard.Holds(task.name)) // only these are worth a look at the disk
                tasks->append(task);
        }
        // First the photos, then the journal: what another run adjusts in place meanwhile is in one of them.
        if (m_Planning.journal && m_Target.onConflict == HBReplayTarget::Overwrite)
            ForEachToDo(tasks, NoteIfInPlace);
        if (m_Planning.journal && !m_Planning.journal->Read(problem))
            return false;
        ForEachToDo(tasks, [this](HBReplayTask* task) { Examine(task); });
        return true;
    }

private:
    static void Set(HBReplayTask* task, HBReplayTask::Kind kind, const QString& reason)
    {
        task->kind = kind;
        task->reason = reason;
    }

    template <typename Function>
    static void ForEachToDo(QVector<HBReplayTask>* tasks, const Function& function)
    {
        for (HBReplayTask& task : *tasks) {
            if (HBIsInterrupted())
                return;
            if (task.kind == HBReplayTask::Do)
                function(&task);
        }
    }

    static bool NoteIfInPlace(HBReplayTask* task)
    {
        const HBFileState output = HBStateOf(task->output);
        if (!output.IsSameFile(HBStateOf(task->input)))
            return false;
        if (task->modified == 0)
            task->modified = output.modified;
        return true;
    }

    /// By the names alone: the same for every share.
    void ClaimOutput(int index, HBReplayTask* task)
    {
        const auto writer = m_Writers.constFind(task->output);
        if (writer == m_Writers.constEnd()) {
            m_Writers.insert(task->output, index);
        } else if (m_Target.onConflict == HBReplayTarget::Rename) {
            RenameOutput(index, task);
        } else {
            Set(task, HBReplayTask::Refuse,
                HBReplayWords::tr("%1 is written from %2 already; --base or --name can keep them apart")
                    .arg(task->output, m_Inputs[*writer].path));
        }
    }

    void RenameOutput(int index, HBReplayTask* task)
    {
        int& number = m_Numbers[task->output]; // where the last search ended: many may have one name
        QString renamed;
        do
            renamed = m_Target.PathFor(task->name, QString("-%1").arg(++number));
        while (m_Writers.contains(renamed) || HBReplayTarget::IsTaken(renamed));
        task->output = renamed;
        m_Writers.insert(renamed, index);
    }

    void Examine(HBReplayTask* task)
    {
        QString earlier;
        if (m_Planning.journal && m_Planning.journal->IsDone(task->input, &earlier)) {
            task->output = earlier;
            return Set(task, HBReplayTask::Skip, HBReplayWords::tr("it was done in an earlier run"));
        }
        if (!HBIsFileName(task->input))
            return Set(task, HBReplayTask::Refuse, HBReplayWords::tr("its name is not UTF-8, which Qt 6 needs"));
        const QFileInfo input(task->input);
        if (!input.exists())
            return Set(task, HBReplayTask::Refuse, HBReplayWords::tr("there is no such file"));
        if (input.isDir())
            return Set(task, HBReplayTask::Refuse, HBReplayWords::tr("the folder cannot be read"));
        const QString problem = HBReplayTarget::NameProblem(task->output);
        if (!problem.isEmpty())
            return Set(task, HBReplayTask::Refuse, problem);
        task->replaces = HBReplayTarget::IsTaken(task->output);
        if (m_Planning.verifies)
            ExamineResult(task);
        else if (task->replaces)
            ExamineConflict(task);
    }

    void ExamineResult(HBReplayTask* task) const
    {
        if (!QFileInfo::exists(task->output))
            Set(task, HBReplayTask::Refuse, HBReplayWords::tr("its result %1 is not there").arg(task->output));
        else if (HBStateOf(task->output).IsSameFile(HBStateOf(task->input)))
            Set(task, HBReplayTask::Refuse, HBReplayWords::tr("the photo itself was replaced by its result"));
    }

    void ExamineConflict(HBReplayTask* task)
    {
        switch (m_Target.onConflict) {
        case HBReplayTarget::Fail:
            return Set(task, HBReplayTask::Refuse, HBReplayTarget::TakenProblem(task->output));
        case HBReplayTarget::Skip:
            return Set(task, HBReplayTask::Skip, HBReplayWords::tr("%1 is there already").arg(task->output));
        case HBReplayTarget::Rename:
            task->replaces = false;
            return RenameOutput(-1, task);
        case HBReplayTarget::Overwrite:
            break;
        }
        if (NoteIfInPlace(task))
            return;
        if (m_FilesOfInputs.isEmpty()) {
            for (const HBReplayInput& input : m_Inputs) {
                const HBFileState state = HBStateOf(input.path);
                if (state.exists)
                    m_FilesOfInputs.insert({state.device, state.inode}, input.path);
            }
        }
        const HBFileState output = HBStateOf(task->output);
        const QString input = m_FilesOfInputs.value({output.device, output.inode});
        if (!input.isEmpty())
            Set(task, HBReplayTask::Refuse, HBReplayWords::tr("%1 is a photo to adjust itself").arg(task->output));
    }

    const QVector<HBReplayInput>& m_Inputs;
    const HBReplayTarget& m_Target;
    const HBReplayPlanning& m_Planning;
    QHash<QString, int> m_Writers; ///< output → index of its input; -1: renamed for what is there
    QHash<QString, int> m_Numbers; ///< output → the last number that was tried behind its name
    QHash<QPair<quint64, quint64>, QString> m_FilesOfInputs; ///< filled when a result is to be replaced
};

bool CanWriteTo(const QString& folder)
{
    return ::access(QFile::encodeName(folder).constData(), W_OK | X_OK) == 0;
}

bool Prepare(const QString& folder, bool dryRun, QString* problem)
{
    const bool made = QFileInfo(folder).isDir() || (!dryRun && QDir().mkpath(folder));
    // A dry run makes none, but asks where the first of them would be made.
    QFileInfo nearest(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()));
    while (!nearest.exists() && !nearest.isRoot())
        nearest.setFile(nearest.path());
    if (QFileInfo::exists(folder) && !QFileInfo(folder).isDir())
        *problem = HBReplayWords::tr("%1: this is not a folder").arg(folder);
    else if (made && !CanWriteTo(folder))
        *problem = HBReplayWords::tr("%1: the folder cannot be written to").arg(folder);
    else if (!made && (!dryRun || !nearest.isDir() || !CanWriteTo(nearest.filePath())))
        *problem = HBReplayWords::tr("%1: the folder cannot be made").arg(folder);
    return problem->isEmpty();
}

} // namespace

bool HBPlanReplay(const QVector<HBReplayInput>& inputs, const HBReplayTarget& target,
                  const HBReplayPlanning& planning, QVector<HBReplayTask>* tasks, QString* problem)
{
    return Planner(inputs, target, planning).Plan(tasks, problem);
}

bool HBPrepareFolders(const HBReplayTarget& target, bool dryRun, QVector<HBReplayTask>* tasks, QString* problem)
{
    if (HBIsInterrupted())
        return true;
    if (!Prepare(target.folder, dryRun, problem))
        return false;
    QHash<QString, QString> problems; // of folders
    for (HBReplayTask& task : *tasks) {
        if (task.kind != HBReplayTask::Do || HBIsInterrupted())
            continue;
        const QString folder = QFileInfo(task.output).path();
        auto known = problems.constFind(folder);
        if (known == problems.constEnd()) {
            QString inner;
            Prepare(folder, dryRun, &inner);
            known = problems.insert(folder, inner);
        }
        if (!known->isEmpty()) {
            task.kind = HBReplayTask::Refuse;
            task.reason = *known;
        }
    }
    return true;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBShard.h"

#include "HBReplayWords.h"

#include <QCryptographicHash>
#include <QFile>
#include <QtEndian>

namespace
{

/// How a scheduler tells a task of an array which one it is.
struct Scheduler
{
    const char* index;
    const char* first; ///< null: the count of tasks is known otherwise or not at all
    const char* last;
    const char* step;
    const char* count; ///< of tasks that are numbered from 0, or from `first`; null: not told
    bool mayStartAtOne = false;
};

constexpr Scheduler schedulers[] = {
    {"SLURM_ARRAY_TASK_ID", "SLURM_ARRAY_TASK_MIN", "SLURM_ARRAY_TASK_MAX", "SLURM_ARRAY_TASK_STEP",
     "SLURM_ARRAY_TASK_COUNT"},
    {"SGE_TASK_ID", "SGE_TASK_FIRST", "SGE_TASK_LAST", "SGE_TASK_STEPSIZE",
     nullptr}, // "undefined" outside an array
    {"AWS_BATCH_JOB_ARRAY_INDEX", nullptr, nullptr, nullptr, "AWS_BATCH_JOB_ARRAY_SIZE"},
    {"PBS_ARRAY_INDEX", nullptr, nullptr, nullptr, nullptr, true},
    {"PBS_ARRAYID", nullptr, nullptr, nullptr, nullptr, true},
    {"JOB_COMPLETION_INDEX", nullptr, nullptr, nullptr, nullptr}, // Kubernetes
};

constexpr int MaximumCount = 1000000;

bool ReadNumber(const char* variable, int* number)
{
    bool isNumber = false;
    *number = variable ? qgetenv(variable).toInt(&isNumber) : 0;
    return isNumber;
}

bool ReadPair(const QString& text, HBShard* shard)
{
    const QStringList parts = text.split('/');
    bool isIndex = false;
    bool isCount = false;
    if (parts.size() == 2)
        *shard = {parts[0].toInt(&isIndex), parts[1].toInt(&isCount)};
    return isIndex && isCount && shard->index >= 1 && shard->index <= shard->count && shard->count <= MaximumCount;
}

/// \param count that the user says; 0: none
bool ReadEnvironment(int count, HBShard* shard, QString* problem)
{
    const auto fail = [problem](const QString& text) {
        *problem = text;
        return false;
    };
    for (const Scheduler& scheduler : schedulers) {
        int index = 0;
        if (!ReadNumber(scheduler.index, &index) || index < 0)
            continue;
        int first = 0;
        int last = 0;
        int step = 1;
        int told = 0;
        ReadNumber(scheduler.count, &told);
        if (ReadNumber(scheduler.first, &first) && ReadNumber(scheduler.last, &last)) {
            ReadNumber(scheduler.step, &step);
            step = qMax(1, step);
            const int spanned = (last - first) / step + 1;
            // Single tasks that are run again, as --array=3,7, would take themselves for all there are.
            if ((told != 0 && told != spanned) || (index - first) % step != 0) {
                return fail(HBReplayWords::tr(
                    "the tasks of this array have no even distance; name the share with --shard I/N"));
            }
            told = spanned;
        }
        if (told == 0 && count == 0) {
            return fail(
                HBReplayWords::tr("%1 is set, but not how many tasks there are; say it with --shard auto/N")
                    .arg(QLatin1String(scheduler.index)));
        }
        if (told != 0 && count != 0 && told != count)
            return fail(HBReplayWords::tr("the array has %1 tasks, not %2").arg(told).arg(count));
        const int size = told ? told : count;
        const int position = (index - first) / step;
        // From 0 or from 1: either way every share is there once. A higher number is one of an array with a step,
        // of which the task is told nothing: by its number some shares would be done twice, and others never.
        *shard = {(scheduler.mayStartAtOne && position == size ? 0 : position) + 1, size};
        return (shard->index >= 1 && shard->index <= size && size <= MaximumCount) ||
               fail(HBReplayWords::tr(
                        "task %1 is none of %2 that are numbered without gaps; name the share with --shard I/N")
                        .arg(index)
                        .arg(size));
    }
    return fail(HBReplayWords::tr("this is no task of a job array; name the share with --shard I/N"));
}

} // namespace

bool HBShard::Holds(const QString& name) const
{
    if (count == 1)
        return true;
    const QByteArray hash = QCryptographicHash::hash(QFile::encodeName(name), QCryptographicHash::Sha256);
    return int(qFromBigEndian<quint64>(hash.constData()) % quint64(count)) == index - 1;
}

QString HBShard::ToString() const
{
    return QString("%1/%2").arg(index).arg(count);
}

bool HBReadShard(const QString& text, HBShard* shard, QString* problem)
{
    HBShard counted;
    if (text == "auto")
        return ReadEnvironment(0, shard, problem);
    if (text.startsWith("auto/") && ReadPair("1/" + text.mid(5), &counted))
        return ReadEnvironment(counted.count, shard, problem);
    if (ReadPair(text, shard))
        return true;
    *problem = HBReplayWords::tr("--shard must be I/N with I from 1 to N, auto, or auto/N");
    return false;
}

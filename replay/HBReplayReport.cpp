// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayReport.h"

#include "HBFileNames.h"
#include "HBJsonLine.h"
#include "HBReplayLog.h"
#include "HBReplayWords.h"

#include <QFile>
#include <QJsonArray>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace
{

constexpr const char* statusNames[] = {"done", "skipped", "failed", "planned"};

void Print(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
    std::fflush(stdout);
}

double Rounded(double seconds)
{
    return qRound64(seconds * 1e4) / 1e4;
}

qint64 PeakMemory()
{
    struct rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) << 10;
}

} // namespace

HBReplayReport::HBReplayReport(Kind kind, bool json, const HBShard& shard, const QByteArray& recipeHash, int steps)
    : m_Kind(kind)
    , m_Json(json)
    , m_Shard(shard)
    , m_RecipeHash(recipeHash)
    , m_Steps(steps)
{
    m_Since.start();
}

void HBReplayReport::SetExtent(int inputs, int tasks)
{
    m_Inputs = inputs;
    m_Tasks = tasks;
}

QJsonObject HBReplayReport::Head(const HBReplayTask& task, const char* status) const
{
    return {{"type", "file"},
            {"status", status},
            {"input", task.input},
            {"name", task.name},
            {"output", task.output},
            {"steps", m_Steps},
            {"recipe", QString::fromLatin1(m_RecipeHash)}};
}

void HBReplayReport::File(const HBReplayTask& task, const HBReplayResult& result)
{
    ++m_Counts[result.status];
    if (!m_Json)
        return;
    QJsonObject line = Head(task, statusNames[result.status]);
    if (result.size.isValid()) {
        line.insert("width", result.size.width());
        line.insert("height", result.size.height());
        line.insert("seconds", QJsonObject{{"read", Rounded(result.readSeconds)},
                                           {"adjust", Rounded(result.adjustSeconds)},
                                           {"write", Rounded(result.writeSeconds)}});
    }
    if (!result.hash.isEmpty()) {
        line.insert("bytes", result.bytes);
        line.insert("result", QString::fromLatin1(result.hash));
    }
    line.insert("warnings", QJsonArray::fromStringList(result.warnings));
    line.insert("error", result.error.isEmpty() ? QJsonValue() : result.error);
    Print(HBJsonLine(line));
}

void HBReplayReport::Planned(const HBReplayTask& task)
{
    const HBReplayResult::Status status = task.kind == HBReplayTask::Do     ? HBReplayResult::Planned
                                          : task.kind == HBReplayTask::Skip ? HBReplayResult::Skipped
                                                                            : HBReplayResult::Failed;
    ++m_Counts[status];
    if (m_Json) {
        QJsonObject line = Head(task, statusNames[status]);
        line.insert("error", task.reason.isEmpty() ? QJsonValue() : task.reason);
        Print(HBJsonLine(line));
    } else if (status == HBReplayResult::Planned) {
        // Other programs get the very bytes.
        const bool terminal = isatty(STDOUT_FILENO);
        const auto shown = [terminal](const QString& path) {
            return QFile::encodeName(terminal ? HBShownOnTerminal(path) : path);
        };
        Print(shown(task.input) + '\t' + shown(task.output) + '\n');
    }
}

QByteArray HBReplayReport::SummaryLine(bool interrupted) const
{
    QJsonObject line{{"type", "summary"},
                     {"inputs", m_Inputs.load()},
                     {"tasks", m_Tasks.load()},
                     {"shard", m_Shard.ToString()},
                     {"steps", m_Steps},
                     {"recipe", QString::fromLatin1(m_RecipeHash)},
                     {"seconds", Rounded(m_Since.elapsed() / 1e3)},
                     {"peakMemory", PeakMemory()},
                     {"dryRun", m_Kind == Plans},
                     {"interrupted", interrupted}};
    for (int status = 0; status < 4; ++status)
        line.insert(statusNames[status], m_Counts[status].load());
    return HBJsonLine(line);
}

QString HBReplayReport::Counts() const
{
    const int done = m_Counts[m_Kind == Plans ? HBReplayResult::Planned : HBReplayResult::Done];
    const int skipped = m_Counts[HBReplayResult::Skipped];
    const int failed = m_Counts[HBReplayResult::Failed];
    const QString text = m_Kind == Verifies ? HBReplayWords::tr("%1 are the same, %2 skipped, %3 failed")
                         : m_Kind == Plans  ? HBReplayWords::tr("%1 would be written, %2 skipped, %3 would fail")
                                            : HBReplayWords::tr("%1 written, %2 skipped, %3 failed");
    const int untried = m_Tasks - done - skipped - failed;
    return text.arg(done).arg(skipped).arg(failed) +
           (untried > 0 ? HBReplayWords::tr(", %1 not tried").arg(untried) : QString());
}

void HBReplayReport::Summary() const
{
    if (m_Json)
        Print(SummaryLine(false));
    if (isatty(STDERR_FILENO) || m_Counts[HBReplayResult::Skipped] + m_Counts[HBReplayResult::Failed] > 0)
        HBPrintError(Counts());
}

HBLastWords HBReplayReport::LastWords() const
{
    return {HBLastErrorLine(HBReplayWords::tr("interrupted; %1").arg(Counts())),
            m_Json ? SummaryLine(true) : QByteArray()};
}

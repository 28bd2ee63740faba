// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayReport.h"

#include "HBFileNames.h"
#include "HBJsonLine.h"

#include <QFile>
#include <QJsonArray>

#include <cstdio>
#include <unistd.h>

namespace
{

constexpr const char* statusNames[] = {"done", "skipped", "failed"};

void Print(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
    std::fflush(stdout);
}

double Rounded(double seconds)
{
    return qRound64(seconds * 1e4) / 1e4;
}

} // namespace

HBReplayReport::HBReplayReport(bool json, const HBShard& shard, const QByteArray& recipeHash, int steps,
                               int inputs)
    : m_Json(json)
    , m_Shard(shard)
    , m_RecipeHash(recipeHash)
    , m_Steps(steps)
    , m_Inputs(inputs)
{
    m_Since.start();
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
    constexpr HBReplayResult::Status counted[] = {HBReplayResult::Done, HBReplayResult::Skipped,
                                                  HBReplayResult::Failed};
    const HBReplayResult::Status status = counted[task.kind];
    ++m_Counts[status];
    const bool isPlanned = task.kind == HBReplayTask::Do;
    if (m_Json) {
        QJsonObject line = Head(task, isPlanned ? "planned" : statusNames[status]);
        line.insert("error", task.reason.isEmpty() ? QJsonValue() : task.reason);
        Print(HBJsonLine(line));
    } else if (isPlanned) {
        // Other programs get the very bytes.
        const bool terminal = isatty(STDOUT_FILENO);
        const auto shown = [terminal](const QString& path) {
            return QFile::encodeName(terminal ? HBShownOnTerminal(path) : path);
        };
        Print(shown(task.input) + '\t' + shown(task.output) + '\n');
    }
}

void HBReplayReport::Summary(int tasks, bool interrupted) const
{
    if (!m_Json)
        return;
    QJsonObject line{{"type", "summary"},
                     {"inputs", m_Inputs},
                     {"tasks", tasks},
                     {"shard", m_Shard.ToString()},
                     {"steps", m_Steps},
                     {"recipe", QString::fromLatin1(m_RecipeHash)},
                     {"seconds", Rounded(m_Since.elapsed() / 1e3)},
                     {"interrupted", interrupted}};
    for (int status = 0; status < 3; ++status)
        line.insert(statusNames[status], m_Counts[status]);
    Print(HBJsonLine(line));
}

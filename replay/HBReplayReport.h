// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBInterrupt.h"
#include "HBReplayPlan.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QSize>
#include <QStringList>

#include <atomic>

/// What became of a photo.
struct HBReplayResult
{
    enum Status { Done, Skipped, Failed, Planned };

    Status status = Failed;
    QSize size; ///< of the picture, upright; not valid: it was not read
    double readSeconds = 0;
    double adjustSeconds = 0;
    double writeSeconds = 0; ///< encoding, and waiting for the disk
    qint64 bytes = 0;        ///< of the result's file
    QByteArray hash;         ///< the SHA-256 of the result's file; empty: not asked for
    QStringList warnings;
    QString error; ///< why it failed or was skipped; names the file unless it was skipped
};

/// What is said of a run: on standard output, with --json, a line for each file and one for all, flushed one by
/// one, so that a run that is killed leaves whole lines. Keys are never translated, never changed. And, on
/// standard error, how many files came to what end.
class HBReplayReport
{
public:
    enum Kind { Writes, Verifies, Plans };

    HBReplayReport(Kind kind, bool json, const HBShard& shard, const QByteArray& recipeHash, int steps);

    bool IsJson() const { return m_Json; }
    /// \param inputs how many there are for all shares
    /// \param tasks how many of them for this one
    void SetExtent(int inputs, int tasks);
    void File(const HBReplayTask& task, const HBReplayResult& result);
    /// What a dry run would do.
    void Planned(const HBReplayTask& task);
    /// At the end of a run that was not interrupted.
    void Summary() const;
    /// Any thread, also while files are told.
    HBLastWords LastWords() const;

    int Count(HBReplayResult::Status status) const { return m_Counts[status]; }

private:
    QJsonObject Head(const HBReplayTask& task, const char* status) const;
    QByteArray SummaryLine(bool interrupted) const;
    QString Counts() const;

    const Kind m_Kind;
    const bool m_Json;
    const HBShard m_Shard;
    const QByteArray m_RecipeHash;
    const int m_Steps;
    std::atomic<int> m_Inputs{0};
    std::atomic<int> m_Tasks{0};
    std::atomic<int> m_Counts[4] = {}; ///< by status
    QElapsedTimer m_Since;
};

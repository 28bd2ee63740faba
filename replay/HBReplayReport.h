// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayPlan.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QSize>
#include <QStringList>

/// What became of a photo.
struct HBReplayResult
{
    enum Status { Done, Skipped, Failed };

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

/// What is said of a run on standard output: with --json a line for each file and one for all, flushed one by one,
/// so that a run that is killed leaves whole lines. Keys are never translated, never changed.
class HBReplayReport
{
public:
    /// \param inputs how many there are for all shares
    HBReplayReport(bool json, const HBShard& shard, const QByteArray& recipeHash, int steps, int inputs);

    bool IsJson() const { return m_Json; }
    void File(const HBReplayTask& task, const HBReplayResult& result);
    /// What a dry run would do.
    void Planned(const HBReplayTask& task);
    void Summary(int tasks, bool interrupted) const;

    int Count(HBReplayResult::Status status) const { return m_Counts[status]; }

private:
    QJsonObject Head(const HBReplayTask& task, const char* status) const;

    const bool m_Json;
    const HBShard m_Shard;
    const QByteArray m_RecipeHash;
    const int m_Steps;
    const int m_Inputs;
    int m_Counts[3] = {0, 0, 0};
    QElapsedTimer m_Since;
};

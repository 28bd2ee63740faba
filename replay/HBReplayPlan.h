// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One photo to adjust.
struct HBReplayTask
{
    QString input;
    QString output;
    QString problem; ///< why it must not be written; empty: it may
};

/// Where results go.
struct HBReplayTarget
{
    QString folder;
    QString suffix; ///< the format of all of them; empty: each input's own
    bool overwrite = false;

    /// The path for a result named after `input`, with `addition` behind its name.
    QString PathFor(const QString& input, const QString& addition = {}) const;
    /// Why `output` must not be written; empty: it may.
    QString ProblemOf(const QString& output) const;
};

/// One task for each input, in the same order. No two tasks without a problem write the same file.
QVector<HBReplayTask> HBPlanReplay(const QStringList& inputs, const HBReplayTarget& target);

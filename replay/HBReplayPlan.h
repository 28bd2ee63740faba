// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBReplayInputs.h"
#include "HBReplayNames.h"
#include "HBShard.h"

class HBReplayJournal;

/// One photo to adjust, or why not.
struct HBReplayTask
{
    enum Kind { Do, Skip, Refuse };

    QString input;
    QString name;
    QString output;
    Kind kind = Do;
    QString reason;        ///< of Skip and Refuse
    bool replaces = false; ///< the output is there already
    qint64 modified = 0;   ///< when the photo was, in nanoseconds, if its result takes its place; else 0
};

struct HBReplayPlanning
{
    HBShard shard;
    HBReplayJournal* journal = nullptr; ///< of earlier runs to go on with, still to be read; null: none
    bool verifies = false;              ///< compares with results instead of writing them
};

/// Looks at all that can be known before a photo is read. Every share plans for all inputs, so that all of them
/// give the same names.
/// \param tasks one for each input of the share, in the same order. No two tasks to do write the same file, and
///        none writes over another one's input.
/// \return false, with the problem, if the journal cannot be read
bool HBPlanReplay(const QVector<HBReplayInput>& inputs, const HBReplayTarget& target,
                  const HBReplayPlanning& planning, QVector<HBReplayTask>* tasks, QString* problem);

/// Makes the folders of the results and looks whether they can be written to. False, with the problem, if the
/// target's own cannot; tasks whose folders cannot are refused.
/// \param dryRun makes none, and only looks at those that are there
bool HBPrepareFolders(const HBReplayTarget& target, bool dryRun, QVector<HBReplayTask>* tasks, QString* problem);

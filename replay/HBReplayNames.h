// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Where results go, and how they are called.
struct HBReplayTarget
{
    enum Conflict { Fail, Skip, Overwrite, Rename };

    QString folder;
    QString suffix; ///< the format of all of them; empty: each input's own
    QString pattern = "{name}.{ext}";
    QString recipe; ///< its name, for the pattern
    Conflict onConflict = Fail;

    /// The path for the result of a photo.
    /// \param name of the photo: relative; its folders are kept
    /// \param addition behind its name, before the suffix
    QString PathFor(const QString& name, const QString& addition = {}) const;
    /// Why no file can be called so; empty: it can.
    static QString NameProblem(const QString& output);
    /// Whether something has that name already: also a link that leads nowhere.
    static bool IsTaken(const QString& output);
    /// What to tell the user of that.
    static QString TakenProblem(const QString& output);
    /// Why the pattern is none; empty: it is one.
    static QString PatternProblem(const QString& pattern);
};

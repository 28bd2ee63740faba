// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// A photo to adjust.
struct HBReplayInput
{
    QString path;
    QString name; ///< below the results' folder, and for shares: relative, with the folders that are kept
};

/// Which photos the user means.
struct HBInputChoice
{
    QStringList paths;        ///< files and folders
    QString listFile;         ///< holds further ones; "-": standard input; empty: none
    bool endsWithNul = false; ///< each name of the list, instead of with a line's end
    bool recursive = false;
    QString base; ///< names are relative to it; empty: to the folder that was named; a file's is its own
    QStringList include;
    QStringList exclude;
    QString results; ///< folder of the results: what lies in it is no input of a folder around it
};

/// The photos, each once: files in their order, those of a folder sorted by name. Files of a folder must have the
/// suffix of a photo and are not hidden; links to folders are not followed. Files named need not be there.
bool HBFindInputs(const HBInputChoice& choice, QVector<HBReplayInput>* inputs, QString* problem);

/// The names that a list file holds. Lines may end as on Windows.
bool HBReadList(const QString& path, bool endsWithNul, QStringList* names, QString* problem);

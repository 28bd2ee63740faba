// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <QVector>

#include <functional>

// What attack_memory lets fail, and where.

enum class HBFailing { Nowhere, Everywhere, OutsideMainThread };

/// Nothing fails while it lives.
class HBCalm {
public:
    HBCalm();
    ~HBCalm();

private:
    const HBFailing m_Before;
};

/// From here on nothing fails in this attempt.
void HBEndFailing();

/// A picture, or why there is none.
struct HBAttackResult {
    QImage image;
    QString error;
};

struct HBAttackWork {
    QString name;
    HBFailing place;
    std::function<HBAttackResult()> run;
    /// Qt's painter of text and its writer of PNG, and libtiff, end the process in which they get none.
    bool isMemoryOurs = true;
    int room = 200; ///< so many calls go well after a block of 256 KiB has been given back
};

/// A file that is saved over another: on the disk is one of them, whole, and nothing else in that folder.
struct HBSavedFile {
    QByteArray before, after;

    void Restore(const QString& path) const;
    /// \param done that must be the new one. The first time, in which nothing fails, says what that is.
    void Check(const QString& path, bool done, int others = 0);
};

/// Open panels, from new values to OK.
QVector<HBAttackWork> HBSessionWorks();
/// One editor that lives through all: opens, applies, saves and exports.
QVector<HBAttackWork> HBEditorWorks();

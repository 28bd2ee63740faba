// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBShard.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <mutex>

/// What the file system says of a file.
struct HBFileState
{
    bool exists = false;
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;
    qint64 modified = 0; ///< nanoseconds since 1970

    bool IsSameFile(const HBFileState& other) const
    {
        return exists && other.exists && device == other.device && inode == other.inode;
    }
};
HBFileState HBStateOf(const QString& path);

/// The SHA-256 as hexadecimal digits.
QByteArray HBHashOf(const QByteArray& bytes);

/// What runs have written into a folder, so that a later one can go on: ".panel-replay.journal" in the results'
/// folder, with the share in its name if there is one. A line of JSON for each file, on the disk before its result
/// is: a result that was not there before is done when it is there; one that replaced a file, the photo itself
/// perhaps, when it has the hash of the line. So whenever the program or the machine stops, no photo is adjusted
/// twice in place.
class HBReplayJournal
{
public:
    /// \param job what else makes the result: the hash of recipe and options
    /// \param continues whether the lines of earlier runs are kept
    HBReplayJournal(const QString& folder, const HBShard& shard, const QByteArray& job, bool continues);
    ~HBReplayJournal();
    Q_DISABLE_COPY(HBReplayJournal)

    /// Reads the lines that all shares have left in the folder. Those that are torn or of another job do not
    /// count.
    bool Read(QString* problem);

    /// Whether the photo, as it is now, has its result.
    /// \param output where, if it has
    bool IsDone(const QString& input, QString* output) const;

    /// Any thread. False, with the reason, if the line did not get onto the disk: the result must not be written
    /// then.
    /// \param state of the photo before it was read
    /// \param isNew there is no file with the result's name
    bool Note(const QString& input, const HBFileState& state, const QString& output, bool isNew,
              const QByteArray& result, QString* reason);

    /// Before the first photo: looks for what a run that was killed has left beside results that it was about to
    /// write, which goes before they are written; or empties the journal of an earlier run, if its lines are not
    /// kept.
    void Begin();
    /// Nothing is left to go on with. A journal of files that were replaced stays: whoever cannot tell that the
    /// run has come to its end, and goes on with it, must not have them adjusted twice.
    void Remove();

private:
    struct Line
    {
        qint64 size;
        qint64 modified;
        QString output;
        qint64 bytes;
        QByteArray hash; ///< empty: the result was new
    };

    bool Open(QString* reason);
    void FindLeftovers();
    void RemoveLeftovers(const QString& output, const QByteArray& result) const;

    const QString m_Folder;
    const QString m_Path;
    const QByteArray m_Job;
    const bool m_Continues;
    QHash<QString, Line> m_Lines;            ///< by the photo's absolute path; the last one of each
    QHash<QString, QStringList> m_Leftovers; ///< by the result's absolute path; since Begin()
    std::mutex m_Mutex;
    int m_File = -1;
    bool m_HasReplaced = false;
    bool m_IsTorn = false; ///< the last line is not whole
};

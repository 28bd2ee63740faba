// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayMerge.h"

#include "HBJsonLine.h"
#include "HBReplayExit.h"
#include "HBReplayInputs.h"
#include "HBReplayLog.h"
#include "HBReplayWords.h"

#include <HBReadJson.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QSet>

#include <cstdio>

namespace
{

class Merge
{
public:
    bool Read(const QString& path, QString* problem)
    {
        QFile file(path);
        const bool isOpen = path == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
        if (!isOpen) {
            *problem = path + ": " + file.errorString();
            return false;
        }
        bool isWhole = false;
        bool isReport = false;
        bool isPlan = false;
        while (!file.atEnd()) {
            const QByteArray bytes = file.readLine();
            const QJsonObject line = HBReadJson(bytes).object(); // empty if it is torn
            const QString type = line.value("type").toString();
            isWhole = type == "summary" && !line.value("interrupted").toBool();
            isReport |= type == "summary" || type == "file";
            isPlan |= line.value("dryRun").toBool() || line.value("status") == "planned";
            if (type == "file")
                AddFile(line, bytes);
            else if (type == "summary")
                AddSummary(line);
        }
        if (!isReport && file.size() > 0) {
            *problem = HBReplayWords::tr("%1: this is not a report").arg(path);
            return false;
        }
        if (isPlan)
            HBPrintError(HBReplayWords::tr("%1: this is the report of a dry run, which does nothing").arg(path));
        else if (!isWhole)
            m_Torn.append(path);
        return true;
    }

    void Expect(const QStringList& paths)
    {
        for (const QString& path : paths)
            m_Expected.insert(QDir::cleanPath(path));
    }

    int Print()
    {
        if (m_Recipes.size() > 1)
            HBPrintError(HBReplayWords::tr("the reports are of different recipes"));
        QJsonArray failed;
        QJsonArray missing;
        QJsonArray twice;
        int done = 0;
        bool differ = m_Recipes.size() > 1;
        for (auto entry = m_Files.begin(); entry != m_Files.end(); ++entry) {
            std::fputs(entry->line.trimmed().append('\n').constData(), stdout);
            m_Expected.remove(entry.key());
            if (entry->isDone)
                ++done;
            else if (entry->isPlanned)
                Tell(entry.key(), HBReplayWords::tr("missing: no report but a dry run's names it"), &missing);
            else
                Tell(entry.key(), entry->error, &failed);
            if (entry->times > 1)
                Tell(entry.key(),
                     entry->differs ? HBReplayWords::tr("done twice, and not the same")
                                    : HBReplayWords::tr("done twice"),
                     &twice);
            differ |= entry->differs;
        }
        QStringList expected = m_Expected.values();
        expected.sort();
        for (const QString& path : expected)
            Tell(path, HBReplayWords::tr("missing: no report names it"), &missing);
        const int unnamed = missing.isEmpty() ? qMax(0, m_Inputs - m_Files.size()) : 0;
        if (unnamed > 0)
            HBPrintError(HBReplayWords::tr("%1 of %2 photos are in no report; name them with --files-from")
                             .arg(unnamed)
                             .arg(m_Inputs));
        // A share that was cut short and has come to its end since is no news.
        const bool ended = HaveAllEnded();
        for (const QString& path : ended ? QStringList() : m_Torn)
            HBPrintError(HBReplayWords::tr("%1: its run did not come to its end").arg(path));
        const QJsonArray shards = ended ? QJsonArray() : MissingShards();
        const bool whole = ended && failed.isEmpty() && missing.isEmpty() && unnamed == 0 && !differ;
        std::fputs(HBJsonLine({{"type", "summary"},
                               {"done", done},
                               {"failed", failed.size()},
                               {"missing", missing},
                               {"missingUnnamed", unnamed},
                               {"missingShards", shards},
                               {"twice", twice},
                               {"differ", differ},
                               {"whole", whole}})
                       .constData(),
                   stdout);
        return whole ? HBAllDone : HBFileFailed;
    }

private:
    struct Entry
    {
        QByteArray line; ///< as it was read: of a million, objects would take gigabytes
        QByteArray result;
        QString error;
        bool isDone = false;
        bool isPlanned = false; ///< and nothing else is known
        int times = 0;          ///< that it was done
        bool differs = false;
    };

    void AddFile(const QJsonObject& line, const QByteArray& bytes)
    {
        const QString status = line.value("status").toString();
        const QString input = QDir::cleanPath(line.value("input").toString());
        const bool isPlanned = status == "planned";
        if (isPlanned && m_Files.contains(input))
            return;
        Entry& entry = m_Files[input];
        m_Recipes.insert(line.value("recipe").toString());
        const bool isDone = status == "done";
        if (!isDone && entry.isDone)
            return;
        entry.isPlanned = isPlanned;
        if (isDone) {
            const QByteArray result = line.value("result").toString().toLatin1();
            entry.differs |= entry.times++ > 0 && entry.result != result;
            entry.result = result;
        }
        entry.isDone = isDone || status == "skipped"; // its result is there, from a run whose report may be lost
        entry.error = entry.isDone ? QString() : line.value("error").toString();
        entry.line = bytes;
    }

    void AddSummary(const QJsonObject& line)
    {
        m_Inputs = qMax(m_Inputs, line.value("inputs").toInt());
        const QStringList shard = line.value("shard").toString().split('/');
        const bool isEnd = !line.value("interrupted").toBool() && !line.value("dryRun").toBool();
        if (shard.size() == 2 && isEnd)
            m_Shards[shard[1].toInt()].insert(shard[0].toInt());
    }

    /// Of one number of shares; others may be of runs that were given up.
    bool HaveAllEnded() const
    {
        for (auto shards = m_Shards.begin(); shards != m_Shards.end(); ++shards) {
            if (shards->size() == shards.key())
                return true;
        }
        return false;
    }

    QJsonArray MissingShards() const
    {
        QJsonArray missing;
        for (auto shards = m_Shards.begin(); shards != m_Shards.end(); ++shards) {
            for (int index = 1; index <= shards.key(); ++index) {
                if (shards->contains(index))
                    continue;
                const QString name = QString("%1/%2").arg(index).arg(shards.key());
                HBPrintError(HBReplayWords::tr("share %1 is missing or did not come to its end").arg(name));
                missing.append(name);
            }
        }
        return missing;
    }

    static void Tell(const QString& path, const QString& what, QJsonArray* names)
    {
        HBPrintError(what.startsWith(path) ? what : path + ": " + what);
        names->append(path);
    }

    QMap<QString, Entry> m_Files;
    QSet<QString> m_Expected;
    QSet<QString> m_Recipes;
    QMap<int, QSet<int>> m_Shards; ///< by their count, those that came to their end
    QStringList m_Torn;            ///< reports without an end
    int m_Inputs = 0;
};

} // namespace

int HBMergeReports(const HBReplayOptions& options)
{
    Merge merge;
    QString problem;
    QStringList expected;
    bool isRead = options.Value("files-from").isEmpty() ||
                  HBReadList(options.Value("files-from"), options.IsSet("null"), &expected, &problem);
    for (const QString& path : options.Arguments())
        isRead = isRead && merge.Read(path, &problem);
    if (!isRead) {
        HBPrintError(problem);
        return HBBadUsage;
    }
    merge.Expect(expected);
    return merge.Print();
}

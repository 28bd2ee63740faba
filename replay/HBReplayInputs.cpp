// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayInputs.h"

#include "HBFileNames.h"
#include "HBInterrupt.h"
#include "HBReplayWords.h"

#include <KMImageFileManager.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QPair>
#include <QSet>

#include <algorithm>
#include <cstdio>
#include <fnmatch.h>

namespace
{

bool MatchesOne(const QStringList& patterns, const QString& name)
{
    const QByteArray path = QFile::encodeName(name);
    const QByteArray file = path.mid(path.lastIndexOf('/') + 1);
    return std::any_of(patterns.begin(), patterns.end(), [&](const QString& pattern) {
        const QByteArray& subject = pattern.contains('/') ? path : file;
        return fnmatch(QFile::encodeName(pattern).constData(), subject.constData(), FNM_CASEFOLD) == 0;
    });
}

bool LiesWithin(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(folder.endsWith('/') ? folder : folder + '/');
}

/// Collects one choice.
class Search
{
public:
    Search(const HBInputChoice& choice, QVector<HBReplayInput>* inputs)
        : m_Choice(choice)
        , m_Base(Absolute(choice.base))
        , m_pInputs(inputs)
    {
        if (!choice.results.isEmpty())
            m_Results = QFileInfo(choice.results).canonicalFilePath(); // empty if it is still to be made
    }

    /// \param keepsFolders of a file's relative path
    bool Add(const QString& path, bool keepsFolders, QString* problem)
    {
        if (QFileInfo(path).isDir())
            return AddFolder(path, problem);
        const QString clean = QDir::cleanPath(path);
        const bool below = !QDir::isAbsolutePath(clean) && clean != ".." && !clean.startsWith("../");
        return AddFile(path, keepsFolders && below ? clean : QFileInfo(path).fileName(), problem);
    }

private:
    static QString Absolute(const QString& path)
    {
        return path.isEmpty() ? path : QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    }

    bool AddFile(const QString& path, QString name, QString* problem)
    {
        if (!m_Base.isEmpty()) {
            name = QDir(m_Base).relativeFilePath(Absolute(path));
            if (name.startsWith("../") || QDir::isAbsolutePath(name)) {
                *problem = HBReplayWords::tr("%1 does not lie in the folder of --base").arg(path);
                return false;
            }
        }
        if ((m_Choice.include.isEmpty() || MatchesOne(m_Choice.include, name)) &&
            !MatchesOne(m_Choice.exclude, name))
            m_pInputs->append({path, name});
        return true;
    }

    bool AddFolder(const QString& folder, QString* problem)
    {
        // A folder that holds the photos and takes the results, too, is adjusted in place.
        const QString canonical = QFileInfo(folder).canonicalFilePath();
        const bool skipsResults = !m_Results.isEmpty() && !LiesWithin(canonical, m_Results);
        QStringList names;
        QStringList folders{QString()};
        while (!folders.isEmpty() &&
               !HBIsInterrupted()) { // a stack of our own: an iterator would enter the results
            const QString inner = folders.takeLast();
            const QFileInfo entered(folder + '/' + inner);
            if (!entered.isReadable() || !entered.isExecutable()) {
                // Reading it fails, and says so: what it holds must not be left out without a word.
                m_pInputs->append({QDir::cleanPath(entered.filePath()), QDir::cleanPath(entered.fileName())});
                continue;
            }
            // Links to nowhere, too, are files that get an answer.
            QDirIterator files(entered.filePath(), QDir::Files | QDir::Dirs | QDir::System | QDir::NoDotAndDotDot);
            while (files.hasNext() && !HBIsInterrupted()) {
                files.next();
                const QFileInfo info = files.fileInfo();
                const QString name = inner + info.fileName();
                if (!info.isDir()) {
                    if (m_Suffixes.contains(info.suffix().toLower()))
                        names.append(name);
                } else if (m_Choice.recursive && !info.isSymLink() &&
                           !(skipsResults && LiesWithin(info.canonicalFilePath(), m_Results))) {
                    folders.append(name + '/');
                }
            }
            for (const QString& name : HBNamesUnknownToQt(folder + '/' + inner)) {
                const bool wanted = name.endsWith('/') ? m_Choice.recursive
                                                       : m_Suffixes.contains(QFileInfo(name).suffix().toLower());
                if (wanted)
                    names.append(inner + name);
            }
        }
        std::sort(names.begin(), names.end());
        const QString prefix = folder == "." ? QString() : folder.endsWith('/') ? folder : folder + '/';
        return std::all_of(names.begin(), names.end(), [&](const QString& name) {
            return HBIsInterrupted() || AddFile(prefix + name, name, problem);
        });
    }

    const HBInputChoice& m_Choice;
    const QString m_Base;
    const QStringList m_Suffixes = KMImageFileManager::SuffixesForRead();
    QString m_Results;
    QVector<HBReplayInput>* m_pInputs;
};

/// A photo may be named by itself, and with its folder.
void RemoveRepeated(QVector<HBReplayInput>* inputs)
{
    QSet<QPair<QString, QString>> seen;
    seen.reserve(inputs->size());
    const auto isRepeated = [&seen](const HBReplayInput& input) {
        const int before = seen.size();
        seen.insert({QDir::cleanPath(input.path), input.name});
        return seen.size() == before;
    };
    inputs->erase(std::remove_if(inputs->begin(), inputs->end(), isRepeated), inputs->end());
}

} // namespace

bool HBReadList(const QString& path, bool endsWithNul, QStringList* names, QString* problem)
{
    QFile file(path);
    const bool isOpen = path == "-" ? file.open(stdin, QIODevice::ReadOnly)
                                    : !QFileInfo(path).isDir() && file.open(QIODevice::ReadOnly);
    const QByteArray bytes = isOpen ? file.readAll() : QByteArray();
    if (!isOpen || file.error() != QFile::NoError) {
        *problem = HBReplayWords::tr("%1: the list of files cannot be read").arg(path);
        return false;
    }
    const char end = endsWithNul ? '\0' : '\n';
    const char mark[] = "\xef\xbb\xbf"; // what Windows puts before UTF-8
    for (int first = !endsWithNul && bytes.startsWith(mark) ? 3 : 0; first < bytes.size();) {
        const int found = bytes.indexOf(end, first);
        const int next = found < 0 ? bytes.size() : found;
        const bool isOfWindows = found > first && !endsWithNul && bytes[found - 1] == '\r';
        if (next - isOfWindows > first)
            names->append(HBDecodedFileName(bytes.mid(first, next - isOfWindows - first)));
        first = next + 1;
    }
    return true;
}

bool HBFindInputs(const HBInputChoice& choice, QVector<HBReplayInput>* inputs, QString* problem)
{
    Search search(choice, inputs);
    for (const QString& path : choice.paths) {
        if (!search.Add(path, false, problem))
            return false;
    }
    QStringList listed;
    if (!choice.listFile.isEmpty() && !HBReadList(choice.listFile, choice.endsWithNul, &listed, problem))
        return false;
    if (!std::all_of(listed.begin(), listed.end(),
                     [&](const QString& path) { return HBIsInterrupted() || search.Add(path, true, problem); }))
        return false;
    if (choice.paths.size() + listed.size() > 1)
        RemoveRepeated(inputs);
    return true;
}

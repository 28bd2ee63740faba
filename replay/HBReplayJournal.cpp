// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayJournal.h"

#include "HBInterrupt.h"
#include "HBJsonLine.h"
#include "HBReplayWords.h"

#include <HBReadJson.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QSet>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr char Prefix[] = ".panel-replay";
constexpr char Suffix[] = ".journal";

QString Absolute(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

QByteArray HashOfFile(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex() : QByteArray();
}

bool WriteAll(int file, const QByteArray& bytes)
{
    for (int done = 0; done < bytes.size();) {
        const ssize_t written = ::write(file, bytes.constData() + done, std::size_t(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            return false;
        done += int(qMax(ssize_t(0), written));
    }
    return true;
}

/// Gets the names in it onto the disk.
void SyncFolder(const QString& folder)
{
    const int file = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file >= 0) {
        ::fsync(file);
        ::close(file);
    }
}

} // namespace

HBFileState HBStateOf(const QString& path)
{
    struct stat state = {};
    if (::stat(QFile::encodeName(path).constData(), &state) != 0)
        return {};
    return {true, state.st_dev, state.st_ino, state.st_size,
            qint64(state.st_mtim.tv_sec) * 1000000000 + state.st_mtim.tv_nsec};
}

QByteArray HBHashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

HBReplayJournal::HBReplayJournal(const QString& folder, const HBShard& shard, const QByteArray& job,
                                 bool continues)
    : m_Folder(Absolute(folder))
    , m_Path(QDir(folder).filePath(
          Prefix + (shard.count > 1 ? QString(".%1-of-%2").arg(shard.index).arg(shard.count) : QString()) +
          Suffix))
    , m_Job(job)
    , m_Continues(continues)
{
}

HBReplayJournal::~HBReplayJournal()
{
    if (m_File >= 0)
        ::close(m_File);
}

bool HBReplayJournal::Read(QString* problem)
{
    const QStringList names =
        QDir(m_Folder).entryList({Prefix + QString("*") + Suffix}, QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        QFile file(QDir(m_Folder).filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            *problem = file.fileName() + ": " + file.errorString();
            return false;
        }
        while (!file.atEnd() && !HBIsInterrupted()) {
            const QJsonObject line = HBReadJson(file.readLine()).object();
            if (line.value("job").toString().toLatin1() != m_Job)
                continue;
            const auto bytes = [&line](const char* key) {
                return qint64(qBound(-1.0, line[key].toDouble(), 9e15));
            };
            m_Lines.insert(line.value("input").toString(),
                           {bytes("size"), line.value("modified").toString().toLongLong(),
                            line.value("output").toString(), bytes("bytes"),
                            line.value("result").toString().toLatin1()});
        }
    }
    return true;
}

bool HBReplayJournal::IsDone(const QString& input, QString* output) const
{
    const auto line = m_Lines.constFind(Absolute(input));
    if (line == m_Lines.constEnd())
        return false;
    const QString path = QDir(m_Folder).filePath(line->output);
    const HBFileState result = HBStateOf(path);
    const HBFileState photo = HBStateOf(input);
    const bool isUnchanged = photo.size == line->size && photo.modified == line->modified;
    if (!result.exists || result.size != line->bytes || result.IsSameFile(photo) == isUnchanged)
        return false; // in place, a photo that is unchanged has not got its result
    if (!line->hash.isEmpty() && HashOfFile(path) != line->hash)
        return false;
    *output = path;
    return true;
}

bool HBReplayJournal::Open(QString* reason)
{
    if (m_File < 0) {
        m_File = ::open(QFile::encodeName(m_Path).constData(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
        char last = '\n';
        const off_t end = m_File < 0 ? 0 : ::lseek(m_File, 0, SEEK_END);
        // A torn last line must not spoil the next one.
        if (end > 0 && ::pread(m_File, &last, 1, end - 1) == 1 && last != '\n')
            WriteAll(m_File, "\n");
        if (end == 0)
            SyncFolder(m_Folder); // a journal that is lost with the power would have photos adjusted twice
    }
    if (m_File < 0)
        *reason = HBReplayWords::tr("the journal cannot be written (%1)").arg(qt_error_string(errno));
    return m_File >= 0;
}

bool HBReplayJournal::Note(const QString& input, const HBFileState& state, const QString& output, bool isNew,
                           const QByteArray& result, QString* reason)
{
    QJsonObject object{{"job", QString::fromLatin1(m_Job)},
                       {"input", Absolute(input)},
                       {"size", state.size},
                       {"modified", QString::number(state.modified)},
                       {"output", QDir(m_Folder).relativeFilePath(Absolute(output))},
                       {"bytes", result.size()}};
    if (!isNew)
        object.insert("result", QString::fromLatin1(HBHashOf(result)));
    const QByteArray line = HBJsonLine(object);
    RemoveLeftovers(Absolute(output), result);
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        if (!Open(reason))
            return false;
        m_HasReplaced |= !isNew;
        // A line that did not fit the disk is torn, too.
        m_IsTorn = !WriteAll(m_File, m_IsTorn ? '\n' + line : line);
        if (m_IsTorn) {
            *reason = HBReplayWords::tr("the journal cannot be written (%1)").arg(qt_error_string(errno));
            return false;
        }
    }
    if (::fdatasync(m_File) != 0 && errno != EINVAL) { // a pipe or the like has no disk
        *reason = HBReplayWords::tr("the journal cannot be written (%1)").arg(qt_error_string(errno));
        return false;
    }
    return true;
}

/// A result becomes whole under another name, at least where it replaces a file, or the disk knows no files
/// without a name, as network disks do: its own name, a dot and six letters. That may be anybody's, too: what goes
/// is only what has the very bytes of the result, as many as there are.
void HBReplayJournal::FindLeftovers()
{
    constexpr int added = 7;
    QHash<QString, const Line*> lines;
    QSet<QString> folders;
    for (const Line& line : qAsConst(m_Lines)) {
        const QString path = QDir::cleanPath(QDir(m_Folder).filePath(line.output));
        lines.insert(path, &line);
        folders.insert(QFileInfo(path).path());
    }
    for (const QString& folder : qAsConst(folders)) {
        QDirIterator files(folder, QDir::Files | QDir::Hidden);
        while (files.hasNext() && !HBIsInterrupted()) {
            const QString path = files.next();
            const Line* line = path.size() > added && path[path.size() - added] == '.'
                                   ? lines.value(path.chopped(added))
                                   : nullptr;
            if (!line || files.fileInfo().size() > line->bytes)
                continue;
            if (!line->hash.isEmpty() && HashOfFile(path) == line->hash)
                QFile::remove(path);
            else
                m_Leftovers[path.chopped(added)].append(path);
        }
    }
}

void HBReplayJournal::RemoveLeftovers(const QString& output, const QByteArray& result) const
{
    for (const QString& path : m_Leftovers.value(output)) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly) && file.size() <= result.size() && result.startsWith(file.readAll()))
            file.remove();
    }
}

void HBReplayJournal::Begin()
{
    if (m_Continues)
        FindLeftovers();
    else
        QFile::resize(m_Path, 0); // false if there is none
}

void HBReplayJournal::Remove()
{
    if (m_File >= 0 && !m_HasReplaced)
        ::unlink(QFile::encodeName(m_Path).constData());
}

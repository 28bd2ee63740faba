// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMTileScratch.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <limits>
#include <new>
#include <unistd.h>

namespace
{

QStringList Folders(const QString& chosen)
{
    if (!chosen.isEmpty())
        return {chosen};
    const QString environment = qEnvironmentVariable("TMPDIR");
    if (!environment.isEmpty())
        return {environment, QDir::tempPath()};
    return {QStringLiteral("/var/tmp"), QDir::tempPath()};
}

/// A file without a name, or -1.
int OpenUnlinked(const QString& folder)
{
    const int file = open(QFile::encodeName(folder).constData(), O_TMPFILE | O_RDWR | O_CLOEXEC | O_EXCL, 0600);
    if (file >= 0)
        return file;
    // Not every file system makes nameless files.
    QByteArray name = QFile::encodeName(folder + QStringLiteral("/tiles-XXXXXX"));
    const int named = mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0)
        unlink(name.constData());
    return named;
}

/// Calls pread or pwrite until the whole tile is through; both may stop half-way.
template <class Transfer, class Byte>
bool TransferTile(Transfer transfer, int file, Byte* bytes, int slot)
{
    const off_t start = off_t(slot) * KMTileScratch::SlotBytes;
    std::size_t done = 0;
    while (done < KMTileScratch::SlotBytes) {
        const ssize_t count = transfer(file, bytes + done, KMTileScratch::SlotBytes - done, start + off_t(done));
        if (count > 0)
            done += std::size_t(count);
        else if (count == 0 || errno != EINTR)
            return false;
    }
    return true;
}

} // namespace

KMTileScratch::~KMTileScratch()
{
    if (m_File >= 0)
        close(m_File);
}

void KMTileScratch::SetFolder(const QString& folder)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Folder = folder;
}

void KMTileScratch::SetLimit(qint64 bytes)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Limit = bytes;
}

bool KMTileScratch::Open()
{
    for (const QString& folder : Folders(m_Folder)) {
        if (m_File < 0)
            m_File = OpenUnlinked(folder);
    }
    return m_File >= 0;
}

int KMTileScratch::TakeSlot()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (m_File < 0 && !Open())
        return NoSlot;
    if (!m_FreeSlots.empty()) {
        const int slot = m_FreeSlots.back();
        m_FreeSlots.pop_back();
        return slot;
    }
    const bool limited = m_Limit >= 0 && (m_SlotCount + qint64(1)) * SlotBytes > m_Limit;
    if (limited || m_SlotCount == std::numeric_limits<int>::max())
        return NoSlot;
    try {
        if (m_FreeSlots.capacity() <= std::size_t(m_SlotCount))
            m_FreeSlots.reserve(2 * std::size_t(m_SlotCount) + 64); // so that Release needs no memory
    } catch (const std::bad_alloc&) {
        return NoSlot;
    }
    return m_SlotCount++;
}

int KMTileScratch::Write(int slot, const void* bytes)
{
    const int target = slot == NoSlot ? TakeSlot() : slot;
    if (target == NoSlot)
        return NoSlot;
    if (TransferTile(pwrite, m_File, static_cast<const char*>(bytes), target))
        return target;
    if (slot == NoSlot)
        Release(target);
    return NoSlot;
}

bool KMTileScratch::Read(int slot, void* bytes) const
{
    return TransferTile(pread, m_File, static_cast<char*>(bytes), slot);
}

void KMTileScratch::Release(int slot)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_FreeSlots.push_back(slot);
    if (int(m_FreeSlots.size()) < m_SlotCount)
        return;
    m_FreeSlots.clear();
    m_SlotCount = 0;
    // Only disk space is at stake: if this fails, the next tiles overwrite the old ones.
    const bool emptied = ftruncate(m_File, 0) == 0;
    Q_UNUSED(emptied)
}

int KMTileScratch::UsedSlots() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_SlotCount - int(m_FreeSlots.size());
}

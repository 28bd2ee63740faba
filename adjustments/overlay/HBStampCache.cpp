// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStampCache.h"

#include <algorithm>

HBStampCache& HBStampCache::Instance()
{
    static HBStampCache cache;
    return cache;
}

QSize HBStampCache::PictureSize(const HBStampFile& file)
{
    const std::lock_guard<std::mutex> lock(m_Guard);
    const auto found = std::find_if(m_Entries.cbegin(), m_Entries.cend(),
                                    [&file](const Entry& entry) { return entry.file == file; });
    return found == m_Entries.cend() ? QSize() : found->picture;
}

std::shared_ptr<const HBStamp> HBStampCache::Find(const HBStampFile& file, const QSize& size)
{
    const std::lock_guard<std::mutex> lock(m_Guard);
    const auto found = std::find_if(m_Entries.begin(), m_Entries.end(), [&](const Entry& entry) {
        return entry.file == file && entry.stamp->Size() == size;
    });
    if (found == m_Entries.end())
        return nullptr;
    std::rotate(m_Entries.begin(), found, found + 1);
    return m_Entries.first().stamp;
}

void HBStampCache::Keep(const HBStampFile& file, const QSize& picture, const std::shared_ptr<const HBStamp>& stamp)
{
    const std::lock_guard<std::mutex> lock(m_Guard);
    // What another thread has made meanwhile, and what the file held before.
    const auto replaced = [&](const Entry& entry) {
        return entry.file.name == file.name && (!(entry.file == file) || entry.stamp->Size() == stamp->Size());
    };
    m_Entries.erase(std::remove_if(m_Entries.begin(), m_Entries.end(), replaced), m_Entries.end());
    if (stamp->Image().sizeInBytes() > MaximumBytes)
        return;
    m_Entries.prepend({file, picture, stamp});
    qint64 bytes = 0;
    int kept = 0;
    while (kept < qMin(m_Entries.size(), MaximumCount) && bytes <= MaximumBytes)
        bytes += m_Entries.at(kept++).stamp->Image().sizeInBytes();
    m_Entries.resize(bytes > MaximumBytes ? kept - 1 : kept);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBStamp.h"

#include <QDateTime>
#include <QSize>
#include <QVector>

#include <mutex>

/// A file as it was when it was read.
struct HBStampFile
{
    QString name;
    QDateTime modified;
    qint64 size = 0;

    bool operator==(const HBStampFile& other) const
    {
        return name == other.name && modified == other.modified && size == other.size;
    }
};

/// The stamps that were used last, at each size at which they were. Safe from several threads.
class HBStampCache
{
public:
    static constexpr qint64 MaximumBytes = 256 << 20; ///< one that is larger is not kept
    static constexpr int MaximumCount = 64;

    static HBStampCache& Instance();

    /// Of the file's picture; empty if nothing of it is kept.
    QSize PictureSize(const HBStampFile& file);
    /// Null if it is not kept.
    std::shared_ptr<const HBStamp> Find(const HBStampFile& file, const QSize& size);
    void Keep(const HBStampFile& file, const QSize& picture, const std::shared_ptr<const HBStamp>& stamp);

private:
    struct Entry
    {
        HBStampFile file;
        QSize picture;
        std::shared_ptr<const HBStamp> stamp;
    };

    std::mutex m_Guard;
    QVector<Entry> m_Entries; ///< the one that was used last first
};

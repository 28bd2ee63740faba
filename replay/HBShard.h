// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// One of several equal workers' share of the photos: without talking to each other they take every photo once.
struct HBShard
{
    int index = 1; ///< 1 .. count
    int count = 1;

    /// Whether the photo belongs to this share: by the SHA-256 of its name below the folder, whose first eight
    /// bytes, big endian, modulo the count are index - 1. So the same on every machine, whatever other photos
    /// there are.
    bool Holds(const QString& name) const;
    QString ToString() const;
};

/// \param text "3/8"; "auto" for what a job array's environment says; or "auto/8" where that does not tell how
///        many tasks there are
bool HBReadShard(const QString& text, HBShard* shard, QString* problem);

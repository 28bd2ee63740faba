// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <mutex>
#include <vector>

/// The file that tiles move to: slots of one tile each in a file without a name, so that nothing is left behind
/// however the program ends. Opened at the first write; empty again when the last slot is given back.
///
/// Thread-safe; different slots are read and written at once.
class KMTileScratch
{
public:
    static constexpr int SlotBytes = 65536;
    static constexpr int NoSlot = -1;

    KMTileScratch() = default;
    KMTileScratch(const KMTileScratch&) = delete;
    KMTileScratch& operator=(const KMTileScratch&) = delete;
    ~KMTileScratch();

    /// For a file not yet opened; empty: TMPDIR, else /var/tmp, else the system's temporary folder.
    void SetFolder(const QString& folder);
    /// Largest size of the file in bytes, -1: no limit.
    void SetLimit(qint64 bytes);

    /// Writes a tile to `slot`, or to a new slot if it is NoSlot.
    /// \return the slot; NoSlot if the bytes could not be written (an existing slot is then undefined, but kept).
    int Write(int slot, const void* bytes);
    /// False if the bytes cannot be read back.
    bool Read(int slot, void* bytes) const;
    void Release(int slot);

    int UsedSlots() const;

private:
    bool Open();
    int TakeSlot();

    mutable std::mutex m_Mutex;
    QString m_Folder;
    qint64 m_Limit = -1;
    int m_File = -1; ///< set once, before any slot is handed out
    int m_SlotCount = 0;
    std::vector<int> m_FreeSlots;
};

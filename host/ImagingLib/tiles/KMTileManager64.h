// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"

#include <QString>

#include <functional>
#include <memory>
#include <utility>

struct KMTile;

/// Owner of all tile memory (64 KiB a tile), thread-safe.
///
/// Memory comes from recycled 2 MiB slabs. It is only valid between GetMemory and FreeMemory, which count: a tile
/// may be pinned by several threads at once, and stays where it is until the last one has given it back. Above the
/// memory budget the least recently used unpinned tiles move to an unlinked scratch file and come back by
/// themselves; a scratch file that cannot be written loses nothing: the tiles stay in memory, one warning is
/// logged and the trouble handler called. Pinning a resident tile takes no lock.
class HB_IMAGINGLIB_EXPORT KMTileManager64
{
public:
    static constexpr int TileBytes = 65536;
    static constexpr int TilesPerSlab = 32;

    static KMTileManager64& Instance();

    /// A new tile whose bytes are all zero, with one reference. Its memory is taken at the first GetMemory.
    KMTile* MakeTile();
    /// A new tile with the same bytes, with one reference.
    /// \throws std::bad_alloc if there is no memory for it.
    KMTile* CopyTile(KMTile* tile);
    /// A new tile of undefined bytes, for a caller who writes them all; with one reference.
    /// \throws std::bad_alloc if there is no memory for it.
    KMTile* MakeUnwrittenTile();
    /// Whether pinning the tile would read nothing from the scratch file and take no memory; another thread may
    /// change that at once.
    static bool IsInMemory(const KMTile* tile);
    /// Drops one reference; the last one gives the memory and the scratch space back.
    void CleanUpTile(KMTile* tile);

    /// Pins the tile and returns its 65536 bytes, aligned to 64. Without forWriting the bytes must not be changed
    /// (they may be dropped in favour of the copy on disk).
    /// \throws std::bad_alloc if there is no memory for it, or if its bytes cannot be read back from the scratch
    ///         file; the tile is not pinned then.
    void* GetMemory(KMTile* tile, bool forWriting);
    /// Gives back what one GetMemory returned.
    void FreeMemory(KMTile* tile);

    /// Bytes that tiles may hold in memory before they move to the scratch file; 0, the default: half
    /// of HBUsableMemory(). Tiles that are pinned stay, so the budget may be exceeded by as much as is in use at
    /// once. A smaller budget takes effect when the next tile needs memory. Beyond the budget, 64 MiB or a
    /// sixteenth of it, whichever is more, may be kept from the system for the next job.
    void SetMemoryBudget(qint64 bytes);
    qint64 MemoryBudget() const;

    /// Folder of the scratch file; takes effect for a scratch file not yet opened. Default: the environment's
    /// TMPDIR, else /var/tmp (which, unlike /tmp, is a disk everywhere), else the system's temporary folder.
    void SetScratchFolder(const QString& folder);
    /// Largest size of the scratch file in bytes; -1 (the default): as large as the disk allows. This and
    /// SetScratchFolder make the manager try at once again, and warn again, after the file could not be written.
    void SetScratchLimit(qint64 bytes);

    /// Called once, after the warning, when tiles cannot be moved to the scratch file: by the thread that wanted
    /// room, under no lock, so that it may use tiles itself. It must not throw. Empty: nobody is told. A call of
    /// the handler before may still be on its way when this returns.
    void SetTroubleHandler(std::function<void()> handler);

    /// What is in use now, in bytes.
    struct Usage
    {
        qint64 resident = 0; ///< tile memory taken from the slabs
        qint64 scratch = 0; ///< room that tiles have in the scratch file; a tile keeps its room when it comes back
        qint64 slabs = 0;   ///< memory held from the system, in use or ready to be
        qint64 tiles = 0;   ///< tiles alive (a count, not bytes)
    };
    Usage CurrentUsage() const;

    KMTileManager64(const KMTileManager64&) = delete;
    KMTileManager64& operator=(const KMTileManager64&) = delete;

private:
    friend class KMTileRef;
    KMTileManager64();
    ~KMTileManager64();

    static void AddReference(KMTile* tile);
    static bool IsShared(const KMTile* tile);

    struct Private;
    std::unique_ptr<Private> d;
};

/// A counted reference to a tile: images share tiles by copying it.
class KMTileRef
{
public:
    KMTileRef() = default;
    /// Takes over the one reference that MakeTile, MakeUnwrittenTile or CopyTile returned.
    explicit KMTileRef(KMTile* tile) : m_pTile(tile) {}
    KMTileRef(const KMTileRef& other) : m_pTile(other.m_pTile)
    {
        if (m_pTile)
            KMTileManager64::AddReference(m_pTile);
    }
    KMTileRef(KMTileRef&& other) noexcept : m_pTile(std::exchange(other.m_pTile, nullptr)) {}
    KMTileRef& operator=(KMTileRef other) noexcept
    {
        std::swap(m_pTile, other.m_pTile);
        return *this;
    }
    ~KMTileRef()
    {
        if (m_pTile)
            KMTileManager64::Instance().CleanUpTile(m_pTile);
    }

    KMTile* Get() const { return m_pTile; }
    /// Whether someone else holds the tile too, so that it must be copied before it is written.
    bool IsShared() const { return m_pTile && KMTileManager64::IsShared(m_pTile); }
    friend bool operator==(const KMTileRef& a, const KMTileRef& b) { return a.m_pTile == b.m_pTile; }
    friend bool operator!=(const KMTileRef& a, const KMTileRef& b) { return a.m_pTile != b.m_pTile; }

private:
    KMTile* m_pTile = nullptr;
};
Q_DECLARE_TYPEINFO(KMTileRef, Q_MOVABLE_TYPE);

/// The time between GetMemory and FreeMemory as an object.
template <class Pixel>
class KMTilePin
{
public:
    KMTilePin(const KMTileRef& tile, bool forWriting)
        : m_pTile(tile.Get())
        , m_pPixels(static_cast<Pixel*>(KMTileManager64::Instance().GetMemory(m_pTile, forWriting)))
    {
    }
    KMTilePin(KMTilePin&& other) noexcept
        : m_pTile(std::exchange(other.m_pTile, nullptr))
        , m_pPixels(other.m_pPixels)
    {
    }
    KMTilePin& operator=(KMTilePin&&) = delete;
    ~KMTilePin()
    {
        if (m_pTile)
            KMTileManager64::Instance().FreeMemory(m_pTile);
    }

    Pixel* Pixels() const { return m_pPixels; }

private:
    KMTile* m_pTile;
    Pixel* m_pPixels;
};

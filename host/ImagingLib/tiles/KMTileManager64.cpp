// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMTileManager64.h"

#include "HBUsableMemory.h"
#include "HBWarn.h"
#include "KMTileScratch.h"
#include "KMTileSlabs.h"

#include <QDebug>
#include <QScopeGuard>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <new>
#include <vector>

static_assert(KMTileManager64::TileBytes == KMTileSlabs::BlockBytes, "a tile is a block of a slab");
static_assert(KMTileManager64::TilesPerSlab == KMTileSlabs::BlocksPerSlab, "a tile is a block of a slab");
static_assert(KMTileManager64::TileBytes == KMTileScratch::SlotBytes, "a tile is a slot of the scratch file");

namespace
{

// The state of a tile is one word: these flags and, in the low bits, the number of pins.
// 0 is a tile without memory: its bytes are in its scratch slot, or all zero if it has none.
constexpr quint32 Resident = 0x80000000u; ///< has memory
constexpr quint32 Dirty = 0x40000000u;    ///< the memory was pinned for writing since it was last saved
constexpr quint32 Busy = 0x20000000u;     ///< one thread is moving the bytes in or out: wait; never with pins

/// Where scratch space ran out, this many tiles are made or loaded before the next attempt to move some there.
constexpr int BackOff = 256;
/// Share of the tiles in memory that one eviction moves out, and its limit: finding them costs a look at all.
constexpr std::size_t EvictionShare = 16;
constexpr std::size_t EvictionLimit = 1024;
/// Free slabs kept for the next job: this many or, with a large budget, this share of it.
constexpr qint64 ReserveSlabs = 32;
constexpr qint64 ReserveShare = 16;

qint64 DefaultBudget()
{
    return HBUsableMemory() / 2;
}

} // namespace

struct KMTile
{
    std::atomic<quint32> state{0};
    std::atomic<int> references{1};
    std::atomic<quint64> lastUse{0};
    // The rest belongs to whoever made the tile Busy, and is read-only while it is pinned.
    KMTileSlabs::Block block;
    int slot = KMTileScratch::NoSlot;
    std::size_t position = 0; ///< in the list of tiles with memory; guarded by the manager's mutex
};

struct KMTileManager64::Private
{
    Private() { SetBudget(DefaultBudget()); }

    bool TryPin(KMTile& tile, quint32 flags);
    bool PinOrClaim(KMTile& tile, quint32 flags);
    void EndClaim(KMTile& tile, quint32 state);

    void TakeMemory(KMTile& tile);
    void GiveMemory(KMTile& tile);
    void Load(KMTile& tile, int slot);
    void Copy(KMTile& from, KMTile& to);
    void Forget(KMTile& tile);

    std::vector<KMTile*> ClaimLeastRecentlyUsed(bool dirtyToo);
    std::size_t Evict(std::unique_lock<std::mutex>& lock);
    bool Save(const std::vector<KMTile*>& tiles);
    void WarnOnce();

    void SetBudget(qint64 bytes);
    void ScratchChanged();

    mutable std::mutex mutex;
    std::condition_variable unclaimed;
    KMTileSlabs slabs;
    std::vector<KMTile*> inMemory; ///< every tile that has a block
    qint64 budget = 0;
    int evictionsToSkip = 0;
    bool warned = false;
    std::function<void()> troubleHandler;

    // Not guarded by the mutex:
    KMTileScratch scratch;
    std::atomic<qint64> tileCount{0};
    /// Counts the blocks taken: a coarse clock, so that pinning a tile writes to nothing but the tile.
    std::atomic<quint64> clock{0};
};

/// Pins a tile that has memory and that nobody moves. Takes no lock.
bool KMTileManager64::Private::TryPin(KMTile& tile, quint32 flags)
{
    quint32 state = tile.state.load(std::memory_order_relaxed);
    while ((state & (Resident | Busy)) == Resident) {
        if (tile.state.compare_exchange_weak(state, (state + 1) | flags, std::memory_order_acquire,
                                             std::memory_order_relaxed)) {
            tile.lastUse.store(clock.load(std::memory_order_relaxed), std::memory_order_relaxed);
            return true;
        }
    }
    return false;
}

/// Pins the tile and returns true, or makes it Busy for the caller to load and returns false.
bool KMTileManager64::Private::PinOrClaim(KMTile& tile, quint32 flags)
{
    if (TryPin(tile, flags))
        return true;
    std::unique_lock<std::mutex> lock(mutex);
    unclaimed.wait(lock, [&] { return !(tile.state.load(std::memory_order_acquire) & Busy); });
    if (TryPin(tile, flags))
        return true;
    tile.state.store(Busy, std::memory_order_relaxed); // tiles are made Busy under the mutex only
    return false;
}

void KMTileManager64::Private::EndClaim(KMTile& tile, quint32 state)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        tile.state.store(state, std::memory_order_release);
    }
    unclaimed.notify_all();
}

/// Gives a Busy tile a block of undefined contents, moving other tiles out if the budget asks for it.
void KMTileManager64::Private::TakeMemory(KMTile& tile)
{
    std::unique_lock<std::mutex> lock(mutex);
    while (qint64(inMemory.size() + 1) * TileBytes > budget && Evict(lock) > 0) {
    }
    inMemory.reserve(inMemory.size() < inMemory.capacity() ? 0 : 2 * inMemory.size() + 64);
    do {
        tile.block = slabs.Take();
    } while (!tile.block.memory && Evict(lock) > 0);
    if (!tile.block.memory)
        throw std::bad_alloc();
    tile.position = inMemory.size();
    inMemory.push_back(&tile);
    tile.lastUse.store(clock.fetch_add(1, std::memory_order_relaxed), std::memory_order_relaxed);
}

/// The mutex must be held.
void KMTileManager64::Private::GiveMemory(KMTile& tile)
{
    inMemory[tile.position] = inMemory.back();
    inMemory[tile.position]->position = tile.position;
    inMemory.pop_back();
    slabs.Give(tile.block);
    tile.block = {};
}

/// Gives a Busy tile memory with the bytes of a scratch slot, or zeros for NoSlot.
void KMTileManager64::Private::Load(KMTile& tile, int slot)
{
    TakeMemory(tile);
    if (slot == KMTileScratch::NoSlot) {
        std::memset(tile.block.memory, 0, TileBytes);
    } else if (!scratch.Read(slot, tile.block.memory)) {
        const std::lock_guard<std::mutex> lock(mutex);
        GiveMemory(tile);
        throw std::bad_alloc();
    }
}

/// `to` is new: nobody else knows it.
void KMTileManager64::Private::Copy(KMTile& from, KMTile& to)
{
    const bool pinned = PinOrClaim(from, 0);
    const auto release = qScopeGuard([&] {
        if (pinned)
            from.state.fetch_sub(1, std::memory_order_release);
        else
            EndClaim(from, 0);
    });
    if (!pinned && from.slot == KMTileScratch::NoSlot)
        return;                                      // nobody ever wrote to it: both are zero
    to.state.store(Busy, std::memory_order_relaxed); // no eviction may see it half made
    try {
        if (pinned) {
            TakeMemory(to);
            std::memcpy(to.block.memory, from.block.memory, TileBytes);
        } else {
            Load(to, from.slot); // straight from the file: the original is not wanted in memory for this
        }
    } catch (...) {
        to.state.store(0, std::memory_order_relaxed);
        throw;
    }
    to.state.store(Resident | Dirty, std::memory_order_release);
}

/// Gives back all that the tile holds.
void KMTileManager64::Private::Forget(KMTile& tile)
{
    std::unique_lock<std::mutex> lock(mutex);
    unclaimed.wait(lock, [&] { return !(tile.state.load(std::memory_order_acquire) & Busy); });
    if (tile.state.load(std::memory_order_relaxed) & Resident)
        GiveMemory(tile);
    if (tile.slot != KMTileScratch::NoSlot) {
        scratch.Release(tile.slot);
        evictionsToSkip = 0;
    }
    tileCount.fetch_sub(1, std::memory_order_relaxed);
}

/// Makes the least recently used tiles without pins Busy, those that must be written first only if dirtyToo. The
/// mutex must be held.
std::vector<KMTile*> KMTileManager64::Private::ClaimLeastRecentlyUsed(bool dirtyToo)
{
    struct Candidate
    {
        quint64 lastUse; // a copy: the tile's own may change while the candidates are sorted
        KMTile* tile;
    };
    const quint32 mask = dirtyToo ? ~Dirty : ~quint32(0);
    std::vector<Candidate> candidates;
    candidates.reserve(inMemory.size());
    for (KMTile* tile : inMemory) {
        if ((tile->state.load(std::memory_order_relaxed) & mask) == Resident)
            candidates.push_back({tile->lastUse.load(std::memory_order_relaxed), tile});
    }
    const std::size_t share = qBound(std::size_t(1), inMemory.size() / EvictionShare, EvictionLimit);
    const std::size_t count = std::min(share, candidates.size());
    std::nth_element(candidates.begin(), candidates.begin() + std::ptrdiff_t(count), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.lastUse < b.lastUse; });

    std::vector<KMTile*> claimed;
    claimed.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        quint32 state = candidates[i].tile->state.load(std::memory_order_relaxed);
        if ((state & mask) == Resident &&
            candidates[i].tile->state.compare_exchange_strong(state, state | Busy, std::memory_order_acquire))
            claimed.push_back(candidates[i].tile);
    }
    return claimed;
}

/// Moves a batch of tiles out of memory; the mutex, held by `lock`, is free while they are written.
/// \return how many left
std::size_t KMTileManager64::Private::Evict(std::unique_lock<std::mutex>& lock)
{
    // While there is no scratch space, tiles that have a copy there already can still go.
    const bool writable = evictionsToSkip == 0;
    if (!writable)
        --evictionsToSkip;
    const std::vector<KMTile*> tiles = ClaimLeastRecentlyUsed(writable);
    if (tiles.empty())
        return 0;
    lock.unlock();
    const bool saved = Save(tiles);
    if (!saved)
        WarnOnce();
    lock.lock();

    std::size_t left = 0;
    for (KMTile* tile : tiles) {
        if (tile->state.load(std::memory_order_relaxed) & Dirty) {
            // Stays, and counts as just used, so that the next batch looks for others.
            tile->lastUse.store(clock.load(std::memory_order_relaxed), std::memory_order_relaxed);
            tile->state.store(Resident | Dirty, std::memory_order_release);
        } else {
            GiveMemory(*tile);
            tile->state.store(0, std::memory_order_release);
            ++left;
        }
    }
    if (!saved)
        evictionsToSkip = BackOff;
    unclaimed.notify_all();
    return left;
}

/// Writes the tiles that need it, which then are no longer Dirty. Stops at the first that cannot be written.
bool KMTileManager64::Private::Save(const std::vector<KMTile*>& tiles)
{
    for (KMTile* tile : tiles) {
        if (!(tile->state.load(std::memory_order_relaxed) & Dirty))
            continue;
        const int slot = scratch.Write(tile->slot, tile->block.memory);
        if (slot == KMTileScratch::NoSlot)
            return false;
        tile->slot = slot;
        tile->state.store(Resident | Busy, std::memory_order_relaxed);
    }
    return true;
}

/// The mutex must not be held: a message handler may do anything, and so may the trouble handler.
void KMTileManager64::Private::WarnOnce()
{
    std::function<void()> handler;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (std::exchange(warned, true))
            return;
        handler = troubleHandler;
    }
    HBWarn("Image data cannot be moved to the scratch file (is the disk full?): it stays in memory");
    if (handler)
        handler();
}

void KMTileManager64::Private::SetBudget(qint64 bytes)
{
    const std::lock_guard<std::mutex> lock(mutex);
    budget = bytes;
    slabs.SetReserve(std::size_t(qMax(ReserveSlabs, bytes / ReserveShare / qint64(KMTileSlabs::SlabBytes))));
}

/// There may be room now: try again, and say so again if there is none.
void KMTileManager64::Private::ScratchChanged()
{
    const std::lock_guard<std::mutex> lock(mutex);
    evictionsToSkip = 0;
    warned = false;
}

KMTileManager64::KMTileManager64() : d(std::make_unique<Private>()) {}

KMTileManager64::~KMTileManager64() = default;

KMTileManager64& KMTileManager64::Instance()
{
    // Never destroyed on purpose: images with static storage give their tiles back after the end of main().
    static KMTileManager64* const instance = new KMTileManager64;
    return *instance;
}

KMTile* KMTileManager64::MakeTile()
{
    auto* const tile = new KMTile;
    d->tileCount.fetch_add(1, std::memory_order_relaxed);
    return tile;
}

KMTile* KMTileManager64::CopyTile(KMTile* tile)
{
    KMTile* const copy = MakeTile();
    try {
        d->Copy(*tile, *copy);
    } catch (...) {
        CleanUpTile(copy);
        throw;
    }
    return copy;
}

KMTile* KMTileManager64::MakeUnwrittenTile()
{
    KMTile* const tile = MakeTile();
    tile->state.store(Busy, std::memory_order_relaxed); // no eviction may see it half made
    try {
        d->TakeMemory(*tile);
    } catch (...) {
        tile->state.store(0, std::memory_order_relaxed);
        CleanUpTile(tile);
        throw;
    }
    tile->state.store(Resident | Dirty, std::memory_order_release);
    return tile;
}

bool KMTileManager64::IsInMemory(const KMTile* tile)
{
    return tile->state.load(std::memory_order_relaxed) & Resident;
}

void KMTileManager64::CleanUpTile(KMTile* tile)
{
    if (tile->references.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    d->Forget(*tile);
    delete tile;
}

void* KMTileManager64::GetMemory(KMTile* tile, bool forWriting)
{
    const quint32 flags = forWriting ? Dirty : 0;
    if (!d->PinOrClaim(*tile, flags)) {
        try {
            d->Load(*tile, tile->slot);
        } catch (...) {
            d->EndClaim(*tile, 0);
            throw;
        }
        d->EndClaim(*tile, (Resident | flags) + 1);
    }
    return tile->block.memory;
}

void KMTileManager64::FreeMemory(KMTile* tile)
{
    const quint32 before = tile->state.fetch_sub(1, std::memory_order_release);
    Q_ASSERT_X(before & ~(Resident | Dirty | Busy), "KMTileManager64::FreeMemory", "the tile is not pinned");
    Q_UNUSED(before)
}

void KMTileManager64::SetMemoryBudget(qint64 bytes)
{
    d->SetBudget(bytes > 0 ? bytes : DefaultBudget());
}

qint64 KMTileManager64::MemoryBudget() const
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    return d->budget;
}

void KMTileManager64::SetScratchFolder(const QString& folder)
{
    d->scratch.SetFolder(folder);
    d->ScratchChanged();
}

void KMTileManager64::SetScratchLimit(qint64 bytes)
{
    d->scratch.SetLimit(bytes);
    d->ScratchChanged();
}

void KMTileManager64::SetTroubleHandler(std::function<void()> handler)
{
    const std::lock_guard<std::mutex> lock(d->mutex);
    d->troubleHandler.swap(handler);
}

KMTileManager64::Usage KMTileManager64::CurrentUsage() const
{
    Usage usage;
    usage.scratch = qint64(d->scratch.UsedSlots()) * TileBytes;
    usage.tiles = d->tileCount.load(std::memory_order_relaxed);
    const std::lock_guard<std::mutex> lock(d->mutex);
    usage.resident = qint64(d->inMemory.size()) * TileBytes;
    usage.slabs = qint64(d->slabs.SlabCount()) * qint64(KMTileSlabs::SlabBytes);
    return usage;
}

void KMTileManager64::AddReference(KMTile* tile)
{
    tile->references.fetch_add(1, std::memory_order_relaxed);
}

bool KMTileManager64::IsShared(const KMTile* tile)
{
    return tile->references.load(std::memory_order_acquire) > 1;
}

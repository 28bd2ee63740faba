// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// Memory for tiles, cut from 2 MiB slabs that are recycled: aligned to the size of a huge page, so that the
/// system backs a slab by one page and a job does not pay 512 page faults for it. Not thread-safe.
class KMTileSlabs
{
public:
    static constexpr std::size_t BlockBytes = 65536;
    static constexpr int BlocksPerSlab = 32;
    static constexpr std::size_t SlabBytes = BlockBytes * BlocksPerSlab;

    struct Slab
    {
        explicit Slab(char* memory) : base(memory) {}
        ~Slab();
        Slab(const Slab&) = delete;
        Slab& operator=(const Slab&) = delete;

        char* const base;
        std::uint32_t freeBlocks = 0xFFFFFFFFu; ///< one bit a block
        std::size_t position = 0;               ///< in the list of slabs that have room
    };
    struct Block
    {
        char* memory = nullptr;
        Slab* slab = nullptr;
    };

    ~KMTileSlabs();

    /// \return a block of undefined contents; its memory is null if the system has none left.
    Block Take();
    void Give(const Block& block);

    /// Wholly free slabs beyond this many go back to the system.
    void SetReserve(std::size_t slabs);
    std::size_t SlabCount() const { return m_SlabCount; }

private:
    Slab* MakeSlab();
    void AddRoom(Slab* slab);
    void RemoveRoom(Slab* slab);
    void Trim();

    std::vector<Slab*> m_WithRoom; ///< partly used ones; what is taken comes from the end
    std::vector<std::unique_ptr<Slab>> m_Free;
    std::size_t m_SlabCount = 0;
    std::size_t m_Reserve = 32;
};

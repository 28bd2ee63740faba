// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMTileSlabs.h"

#include <cstdint>
#include <sys/mman.h>

namespace
{

constexpr std::uint32_t AllFree = 0xFFFFFFFFu;

int LowestBit(std::uint32_t bits)
{
    return __builtin_ctz(bits);
}

/// mmap aligns to small pages only, so twice the size is asked for and the ends are given back.
char* MapAligned(std::size_t bytes)
{
    void* const mapped = mmap(nullptr, 2 * bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        return nullptr;
    char* const first = static_cast<char*>(mapped);
    const std::size_t head = (bytes - reinterpret_cast<std::uintptr_t>(first) % bytes) % bytes;
    if (head)
        munmap(first, head);
    munmap(first + head + bytes, bytes - head);
    return first + head;
}

} // namespace

KMTileSlabs::Slab::~Slab()
{
    munmap(base, SlabBytes);
}

KMTileSlabs::~KMTileSlabs() = default;

KMTileSlabs::Slab* KMTileSlabs::MakeSlab()
{
    char* const memory = MapAligned(SlabBytes);
    if (!memory)
        return nullptr;
    madvise(memory, SlabBytes, MADV_HUGEPAGE); // a wish: without huge pages everything still works
    auto slab = std::make_unique<Slab>(memory);
    // Room in both lists for every slab, so that giving back never has to ask for memory.
    m_WithRoom.reserve(m_SlabCount + 1);
    m_Free.reserve(m_SlabCount + 1);
    ++m_SlabCount;
    return slab.release();
}

KMTileSlabs::Block KMTileSlabs::Take()
{
    if (m_WithRoom.empty()) {
        Slab* slab = nullptr;
        if (m_Free.empty()) {
            slab = MakeSlab();
            if (!slab)
                return {};
        } else {
            slab = m_Free.back().release();
            m_Free.pop_back();
        }
        AddRoom(slab);
    }
    Slab* const slab = m_WithRoom.back();
    const int block = LowestBit(slab->freeBlocks);
    slab->freeBlocks &= slab->freeBlocks - 1;
    if (!slab->freeBlocks)
        RemoveRoom(slab);
    return {slab->base + block * BlockBytes, slab};
}

void KMTileSlabs::Give(const Block& block)
{
    Slab* const slab = block.slab;
    if (!slab->freeBlocks)
        AddRoom(slab);
    slab->freeBlocks |= 1u << ((block.memory - slab->base) / BlockBytes);
    if (slab->freeBlocks == AllFree) {
        RemoveRoom(slab);
        m_Free.emplace_back(slab);
        Trim();
    }
}

void KMTileSlabs::SetReserve(std::size_t slabs)
{
    m_Reserve = slabs;
    Trim();
}

void KMTileSlabs::Trim()
{
    while (m_Free.size() > m_Reserve) {
        m_Free.pop_back();
        --m_SlabCount;
    }
}

void KMTileSlabs::AddRoom(Slab* slab)
{
    slab->position = m_WithRoom.size();
    m_WithRoom.push_back(slab);
}

void KMTileSlabs::RemoveRoom(Slab* slab)
{
    m_WithRoom[slab->position] = m_WithRoom.back();
    m_WithRoom[slab->position]->position = slab->position;
    m_WithRoom.pop_back();
}

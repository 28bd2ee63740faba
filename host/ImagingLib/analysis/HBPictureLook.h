// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImage.h"
#include "HBImagingLibExport.h"
#include "HBJobControl.h"

#include <memory>
#include <vector>

/// Something that is counted over all tiles of a picture, in any order, by several lanes at once: a histogram, a
/// norm. An adjustment that must see the whole picture first says what it looks at; whoever walks the tiles next
/// shows them to the look while they are in the cache.
class HB_IMAGINGLIB_EXPORT HBPictureLook
{
public:
    /// The counter of one lane. What it counted is added to the look by its destructor.
    class Lane
    {
    public:
        virtual ~Lane();
        /// \param pixels of a whole tile
        /// \param area what of the picture lies in the tile; the rest is padding, which is never counted
        virtual void Add(const HBRGBA32i* pixels, const QRect& area, int index) = 0;
    };

    virtual ~HBPictureLook();
    /// Before the first lane: forgets what was counted. \throws std::bad_alloc
    virtual void Begin(const HBImage<>& picture) = 0;
    virtual std::unique_ptr<Lane> MakeLane() = 0;
};

/// What one pass over the picture tells at once.
using HBPictureLooks = std::vector<std::shared_ptr<HBPictureLook>>;

/// The lanes of several looks as one, for a tile function: each copy counts for itself.
class HB_IMAGINGLIB_EXPORT HBLookLanes
{
public:
    explicit HBLookLanes(const HBPictureLooks& looks);
    HBLookLanes(const HBLookLanes& other) : HBLookLanes(other.m_Looks) {}
    HBLookLanes& operator=(const HBLookLanes&) = delete;

    bool IsEmpty() const { return m_Looks.empty(); }
    void Add(const HBRGBA32i* pixels, const QRect& area, int index);

private:
    HBPictureLooks m_Looks;
    std::vector<std::unique_ptr<HBPictureLook::Lane>> m_Lanes; ///< made by the first Add
};

/// Shows all tiles to the looks in one pass; false if cancelled, when what was counted is of no use. Any thread.
/// \throws std::bad_alloc
HB_IMAGINGLIB_EXPORT bool HBLookAt(const HBImage<>& picture, const HBPictureLooks& looks,
                                   const HBJobControl* control = nullptr);

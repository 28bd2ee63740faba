// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPictureLook.h"

#include "HBParallel.h"

#include <atomic>

HBPictureLook::Lane::~Lane() = default;

HBPictureLook::~HBPictureLook() = default;

HBLookLanes::HBLookLanes(const HBPictureLooks& looks) : m_Looks(looks) {}

void HBLookLanes::Add(const HBRGBA32i* pixels, const QRect& area, int index)
{
    if (m_Lanes.empty()) {
        for (const std::shared_ptr<HBPictureLook>& look : m_Looks)
            m_Lanes.push_back(look->MakeLane());
    }
    for (const std::unique_ptr<HBPictureLook::Lane>& lane : m_Lanes)
        lane->Add(pixels, area, index);
}

bool HBLookAt(const HBImage<>& picture, const HBPictureLooks& looks, const HBJobControl* control)
{
    for (const std::shared_ptr<HBPictureLook>& look : looks)
        look->Begin(picture);
    const int tiles = picture.IsEmpty() ? 0 : int(picture.Tiles().size());
    std::atomic<int> next{0};
    HBRunLanes(HBLaneCount(tiles), [&] {
        HBLookLanes lanes(looks);
        for (int index; !HBIsCancelled(control) && (index = next.fetch_add(1)) < tiles;) {
            const KMTilePin<HBRGBA32i> pin(picture.Tile(index), false);
            lanes.Add(pin.Pixels(), picture.TileRect(index), index);
        }
    });
    return !HBIsCancelled(control);
}

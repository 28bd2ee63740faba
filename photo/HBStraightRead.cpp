// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStraightRead.h"

#include "HBPhotoText.h"

#include <HBUsableMemory.h>

bool HBStraightRead::Begin(const QSize& lying)
{
    constexpr int bytesPerPixel = 8; // of the deepest formats
    if (lying.isEmpty())
        return HBFail(&refusal, HBPhotoText::tr("the picture has no pixels"));
    if (qint64(lying.width()) * lying.height() > HBLargestPicture() / bytesPerPixel) {
        return HBFail(&refusal, HBPhotoText::tr("%1 x %2 pixels are too many for this machine's memory")
                                    .arg(lying.width())
                                    .arg(lying.height()));
    }
    tiles = HBUprightTiles(lying, orientation);
    return true;
}

qint64 HBLargestPicture()
{
    // Half of the memory: in some formats two copies of a picture are there while it is read or written.
    static const qint64 bytes = HBUsableMemory() / 2;
    return bytes;
}

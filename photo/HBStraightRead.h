// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPrintColors.h"
#include "HBUprightTiles.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

/// A picture that a format's library reads straight into tiles: it is in memory once. Where the file is one that
/// the reader leaves to Qt, it says so from the file's head.
struct HBStraightRead
{
    enum Outcome { Read, LeftToQt, Failed };

    // From whoever asks for it.
    int orientation = 1;            ///< how the picture lies in the file, as EXIF numbers it, 1..8
    HBPrintColors* print = nullptr; ///< by which CMYK is read; null: that is left to Qt
    std::function<bool()> isWanted; ///< asked now and then; false: the reading fails. May be null. Must not throw

    bool isCutShort = false; ///< the end of the file is missing; what there is shall be read

    HBUprightTiles tiles;
    int dotsPerMetreX = 0; ///< 0: the file does not say
    int dotsPerMetreY = 0;
    bool lacksPixels = false; ///< of a file that was cut short: some of them are not in it
    QStringList remarks;      ///< the decoder's, as about damaged data
    QString refusal;          ///< why the picture is not read at all; else empty
    QString reason;           ///< of another failure; may be empty

    bool IsWanted() const { return !isWanted || isWanted(); }
    /// Makes the tiles; false, with the refusal, if there cannot be so many.
    /// \param lying the size in the file's head
    /// \throws std::bad_alloc
    bool Begin(const QSize& lying);
};

/// The most bytes that one picture may take, of this machine's memory.
qint64 HBLargestPicture();

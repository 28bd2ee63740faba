// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPictureRows.h"
#include "HBStraightRead.h"

// Any thread.

/// Reads the first picture of a TIFF of 8 bits a channel that is grey or red, green and blue, also with an alpha
/// that its colours are not multiplied by: Qt's reader multiplies them, and with a small alpha little is left of
/// them. Other kinds are left to Qt.
/// \throws std::bad_alloc
HBStraightRead::Outcome HBReadTiff(const QByteArray& file, HBStraightRead* read);

/// Writes the pixels, uncompressed, and their resolution; no metadata.
/// \throws std::bad_alloc
bool HBWriteTiff(HBPictureRows& rows, QByteArray* bytes, QString* reason);

/// What libtiff would print, also when Qt's reader uses it, goes to Qt's log as other decoders' messages do.
void HBLogTiffMessages();

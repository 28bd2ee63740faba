// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPictureRows.h"
#include "HBStraightRead.h"

// Any thread.

/// Reads a PNG of up to 8 bits a channel; deeper ones, and those that come into view in several passes, are left
/// to Qt.
/// \throws std::bad_alloc
HBStraightRead::Outcome HBReadPng(const QByteArray& file, HBStraightRead* read);

/// Writes the pixels, packed as Qt packs them, and their resolution; no metadata.
/// \throws std::bad_alloc
bool HBWritePng(HBPictureRows& rows, QByteArray* bytes, QString* reason);

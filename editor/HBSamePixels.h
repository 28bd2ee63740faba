// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

/// Whether two images show the same, byte for byte; at once for tiles that they share. Any thread. Throws
/// std::bad_alloc if a tile cannot be brought back into memory.
bool HBHaveSamePixels(const HBImage<>& a, const HBImage<>& b);

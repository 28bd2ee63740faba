// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

class HBMessageBar;

/// From now on the bar tells, too, when image data no longer fit on the disk for temporary files, as the tile
/// manager's trouble handler. GUI thread; the last bar counts.
void HBShowTileWarnings(HBMessageBar* bar);

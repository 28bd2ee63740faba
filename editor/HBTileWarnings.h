// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

class HBMessageBar;

/// From now on the bar tells, too, when image data no longer fit on the disk for temporary files, which the tile
/// manager logs. Whatever is logged still goes where it went before. GUI thread; the last bar counts.
void HBShowTileWarnings(HBMessageBar* bar);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBTileMips.h>

#include <libgimp/gimp.h>

class QScreen;

/// How GIMP shows what HBGimpLayer reads: by the image's profile and the monitor's, as its preferences say. Plain
/// where colors are not managed, and for masks and channels. The thread of main() only.
HBTileMips::Look HBGimpLook(gint32 drawable, const QScreen* screen);

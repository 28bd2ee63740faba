// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBStraightRead.h"

/// Reads a JPEG that is grey, has colours for screens, or such for print and their profile. Any thread.
/// \throws std::bad_alloc
HBStraightRead::Outcome HBReadJpeg(const QByteArray& file, HBStraightRead* read);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBStraightRead.h"

/// Reads a JPEG that is grey or has colours for screens; those for print are left to Qt. Any thread.
/// \throws std::bad_alloc
HBStraightRead::Outcome HBReadJpeg(const QByteArray& file, HBStraightRead* read);

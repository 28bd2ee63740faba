// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

/// Whether what stands on a ground of that colour must be light.
inline bool HBIsDark(const QColor& ground)
{
    return ground.lightness() < 128;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// Why an overlay cannot be drawn: HBOverlayText::tr("...").
struct HBOverlayText
{
    Q_DECLARE_TR_FUNCTIONS(HBOverlay)
};

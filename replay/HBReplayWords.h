// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// What the program says: HBReplayWords::tr("...").
struct HBReplayWords
{
    Q_DECLARE_TR_FUNCTIONS(PanelReplay)
};

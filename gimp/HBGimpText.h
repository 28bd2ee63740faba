// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The texts of the plug-in.
struct HBGimpText
{
    Q_DECLARE_TR_FUNCTIONS(GimpPlugIn)
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <libgimp/gimp.h>

/// What GIMP has asked for.
struct HBGimpCall
{
    QString procedure;
    GimpRunMode mode;
    gint32 image;
    gint32 drawable;
    QString argument; ///< what a script gave besides
};

/// What became of it.
enum class HBGimpAnswer { Done, Cancelled, Failed };

/// Where the plug-in keeps what it remembers: a folder in GIMP's own of the user, which may not be there yet.
QString HBGimpFolder();

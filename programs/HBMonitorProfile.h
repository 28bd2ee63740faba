// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class QScreen;

/// The ICC profile that the desktop names for a screen: on X11 the property _ICC_PROFILE of the root window. Empty
/// where it names none. GUI thread.
QByteArray HBMonitorProfile(const QScreen* screen);

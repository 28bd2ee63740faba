// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSize>

// Exiv2 0.27 stores a colour profile in PNG without the name that the format asks for, so that nobody reads it,
// and in WebP under a wrong name, so that nobody reads the picture. Hence these two, for files without a profile
// that were written whole a moment ago.

/// The PNG file with the profile.
QByteArray HBWithPngProfile(const QByteArray& file, const QByteArray& icc);

/// The WebP file with the profile.
QByteArray HBWithWebPProfile(const QByteArray& file, const QByteArray& icc, const QSize& size);

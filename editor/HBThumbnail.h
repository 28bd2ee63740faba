// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

// Small pictures of photos, in the cache that all programs of a desktop share (freedesktop.org, "Thumbnail
// Managing Standard"). Any thread.

constexpr int HBThumbnailSide = 256; ///< of the cache's "large" ones, the longer side in pixels

/// Where the cache has it, whether it is there or not.
QString HBThumbnailPath(const QString& photo);

/// From the cache, if what is there was made of the file as it is now; else made of the photo, and put there. Null
/// if it is no photo that can be read, or there is not enough memory.
QImage HBThumbnail(const QString& photo);

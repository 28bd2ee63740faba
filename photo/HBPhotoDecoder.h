// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPhotoFile.h"

#include <QSize>

// Any thread.

/// Decodes the first picture of a file in memory, upright and with its metadata.
/// \param isWanted asked now and then while it decodes; false: it fails. May be null
/// \throws std::bad_alloc
bool HBDecodePhoto(const QByteArray& file, const std::function<bool()>& isWanted, HBCutShort cutShort,
                   HBPhoto* photo, QString* reason);

/// The size that the head of the file tells, as the picture lies there; not valid if it tells none.
QSize HBSizeInHead(const QString& path);

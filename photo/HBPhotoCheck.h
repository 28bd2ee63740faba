// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Whether a JPEG, PNG, WebP, TIFF, GIF or plain BMP file reaches its own end. The decoders fill what is missing
/// of a file that was cut short with grey and call it a picture. True for any other format.
bool HBIsWholeFile(const QByteArray& file);

/// Where the picture of a JPEG file ends, or -1 if it does not: cameras append further pictures and videos.
int HBJpegEnd(const QByteArray& file);

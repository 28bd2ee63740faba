// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

/// Reads the first picture of a TIFF file in memory, as it lies there, if it has 8 bits a channel and colours that
/// are not multiplied by their alpha. Qt's reader multiplies them, and with a small alpha little is left of them.
/// A null image if the file is another one, or is damaged: Qt's reader can tell more. Any thread.
QImage HBReadStraightTiff(const QByteArray& file);

/// What libtiff would print, also when Qt's reader uses it, goes to Qt's log as other decoders' messages do.
void HBLogTiffMessages();

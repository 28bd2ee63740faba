// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

class QDataStream;

// The frame of a stored record: the panel's tag as raw bytes, then the fields, each with QDataStream's own operator.
// Nothing here sets the stream's version or byte order: they are the caller's. All of it may read hostile data.

/// Writes the tag: no length before it, no zero behind it. False if it could not be written whole.
bool HBWriteTag(QDataStream& stream, const char* tag);

/// Reads as many bytes as the tag has. True if they are the tag. Bytes that are not stay consumed; the stream's status
/// is left as it was, also when it ends inside the tag.
bool HBReadTag(QDataStream& stream, const char* tag);

/// Up to `size` bytes, fewer if the stream ends; the stream's status is left as it was.
QByteArray HBReadRaw(QDataStream& stream, int size);

/// A truth value that travels as qint32: anything but 0 is true.
bool HBReadBool32(QDataStream& stream);

/// The one line that a failed read or write leaves on Qt's debug stream. Call it through HB_LOG_STREAM_ERROR.
/// \param source name of the panel's source, as "src\\HBLevelsWidget"
void HBLogStreamError(const char* date, const char* time, int line, const char* source, const char* message);

/// A macro, because date and time are those of the panel's own unit. `line` is __LINE__, unless the panel has a fixed
/// number.
#define HB_LOG_STREAM_ERROR(line, source, message) HBLogStreamError(__DATE__, __TIME__, line, source, message)

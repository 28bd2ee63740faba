// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <QByteArray>
#include <QDataStream>

// The stored form of a record: its tag as raw bytes, then the fields, each with QDataStream's own operator.
// Nothing here sets the stream's version or byte order: they are the caller's. All of it may read hostile data.
//
// Every record has Read and Write. Read returns false if the tag does not match (nothing is changed) or the stream
// ends early (what was read is changed); a value goes through as it is, also one out of range. Written records
// exist: neither tag nor fields ever change their meaning, a new field needs a new tag.

/// Writes the tag: no length before it, no zero behind it. False if it could not be written whole.
HB_ADJUSTMENTS_EXPORT bool HBWriteTag(QDataStream& stream, const char* tag);

/// Reads as many bytes as the tag has. True if they are the tag. Bytes that are not stay consumed; the stream's
/// status is left as it was, also when it ends inside the tag.
HB_ADJUSTMENTS_EXPORT bool HBReadTag(QDataStream& stream, const char* tag);

/// Up to `size` bytes, fewer if the stream ends; the stream's status is left as it was.
HB_ADJUSTMENTS_EXPORT QByteArray HBReadRaw(QDataStream& stream, int size);

/// A truth value that travels as qint32: anything but 0 is true.
HB_ADJUSTMENTS_EXPORT bool HBReadBool32(QDataStream& stream);

/// Whether all that was read or written so far went well.
inline bool HBIsOk(const QDataStream& stream)
{
    return stream.status() == QDataStream::Ok;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDataStream>

/// The one line that a failed read or write leaves on Qt's debug stream, as HBLogQuoted().
/// \param source name of the panel's source, as "src\\HBLevelsWidget"
void HBLogStreamError(const char* date, const char* time, int line, const char* source,
                      const char* message) noexcept;

/// What a failed read leaves of the record.
enum class HBAfterFailure { Keep, Reset };

// Date, time and line are those of the panel's own unit: its operators are made by a macro there.

/// The stream operators of Panel::Params; both return the stream and log one line on failure, "Write <words>
/// error." or "Read <words> error.".
/// \param lineWrite, lineRead __LINE__, unless the panel has fixed numbers, on purpose, for those who look for
///        them
#define HB_PANEL_STREAM_LINES(Panel, words, lineWrite, lineRead, afterFailure)                                    \
    QDataStream& operator<<(QDataStream& stream, const Panel::Params& params)                                     \
    {                                                                                                             \
        if (!params.Write(stream))                                                                                \
            HBLogStreamError(__DATE__, __TIME__, lineWrite, "src\\" #Panel, "Write " words " error.");            \
        return stream;                                                                                            \
    }                                                                                                             \
    QDataStream& operator>>(QDataStream& stream, Panel::Params& params)                                           \
    {                                                                                                             \
        if (!params.Read(stream)) {                                                                               \
            HBLogStreamError(__DATE__, __TIME__, lineRead, "src\\" #Panel, "Read " words " error.");              \
            if ((afterFailure) == HBAfterFailure::Reset)                                                          \
                params = Panel::Params();                                                                         \
        }                                                                                                         \
        return stream;                                                                                            \
    }

#define HB_PANEL_STREAM(Panel, words) HB_PANEL_STREAM_LINES(Panel, words, __LINE__, __LINE__, HBAfterFailure::Keep)

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustment.h"

#include <QDataStream>
#include <QIODevice>

// What makes a row of the table from a record type: of ours, or of one for HBRegisterAdjustment.

/// The record of a recipe step as bytes: the decoded base64. False with a reason if there is none.
HB_ADJUSTMENTS_EXPORT bool HBDecodeRecord(const QJsonObject& values, QByteArray* record, QString* reason);
/// The step of those bytes.
HB_ADJUSTMENTS_EXPORT QJsonObject HBEncodeRecord(const QByteArray& record);
/// Why a record could not be read from a stream that now is in this state.
/// \param read whether all fields were read; then there were further bytes
HB_ADJUSTMENTS_EXPORT QString HBRecordProblem(const QDataStream& stream, bool read);
/// The plain values of a recipe step, and back. Every number must be there; each is cut to what its field's type
/// holds.
HB_ADJUSTMENTS_EXPORT bool HBRestoreValues(const QJsonObject& values, const HBFieldInfos& fields, void* record,
                                           QString* reason);
/// The step of those values.
HB_ADJUSTMENTS_EXPORT QJsonObject HBSaveValues(const HBFieldInfos& fields, const void* record);

/// A recipe fixes how its records are streamed, whatever Qt it is read with.
constexpr QDataStream::Version HBRecordVersion = QDataStream::Qt_5_15;

/// What both kinds of rows share.
template <class Record>
HBAdjustment HBCommonRow(const char* className, const char* tag, const char* group, const char* title)
{
    HBAdjustment row{};
    row.className = className;
    row.tag = tag;
    row.group = group;
    row.title = title;
    row.fields = HBDescribeFields<Record>();
    row.defaults = [] { return std::any(Record()); };
    row.data = [](const std::any& record) { return static_cast<const void*>(std::any_cast<Record>(&record)); };
    row.mutableData = [](std::any& record) { return static_cast<void*>(std::any_cast<Record>(&record)); };
    row.stages = [](const std::any& record, bool selected) {
        return HBMakeStages(std::any_cast<const Record&>(record), selected);
    };
    return row;
}

/// An adjustment whose record is stored as its tag and fields.
template <class Record>
HBAdjustment HBRecordRow(const char* className, const char* group, const char* title)
{
    HBAdjustment row = HBCommonRow<Record>(className, Record::Tag, group, title);
    row.save = [](const std::any& record) {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(HBRecordVersion);
        std::any_cast<const Record&>(record).Write(stream);
        return HBEncodeRecord(bytes);
    };
    row.restore = [](const QJsonObject& values, std::any* record, QString* reason) {
        QByteArray bytes;
        if (!HBDecodeRecord(values, &bytes, reason))
            return false;
        QDataStream stream(bytes);
        stream.setVersion(HBRecordVersion);
        Record read;
        const bool complete = read.Read(stream);
        if (!complete || !stream.atEnd()) {
            *reason = HBRecordProblem(stream, complete);
            return false;
        }
        *record = read;
        return true;
    };
    return row;
}

/// An adjustment without a stored record: its numbers are stored by their keys.
template <class Record>
HBAdjustment HBValuesRow(const char* className, const char* group, const char* title)
{
    HBAdjustment row = HBCommonRow<Record>(className, nullptr, group, title);
    row.save = [](const std::any& record) {
        return HBSaveValues(HBDescribeFields<Record>(), &std::any_cast<const Record&>(record));
    };
    row.restore = [](const QJsonObject& values, std::any* record, QString* reason) {
        Record read;
        if (!HBRestoreValues(values, HBDescribeFields<Record>(), &read, reason))
            return false;
        *record = read;
        return true;
    };
    return row;
}

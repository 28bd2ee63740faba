// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentsExport.h"

#include <HBAdjustment.h>

#include <QJsonObject>
#include <QStringList>
#include <QVector>

/// What the user keeps of one adjustment: the values of its last use, and named presets, the last used first. Each
/// adjustment has a file of its own, which is read before every change, because several programs may share it.
///
/// Values are those that HBAdjustment::save returned. Entries that cannot be read are not shown, but stay in the
/// file; a file that is none of this kind is put aside under another name when something is to be kept.
/// Who reads or writes the file may get std::bad_alloc.
class HB_ADJUSTMENTS_EXPORT HBPresets
{
public:
    /// \param folder made when it is needed
    HBPresets(const QString& folder, const HBAdjustment& adjustment);

    /// Empty if there is none.
    QJsonObject Last() const { return Read().last; }
    QStringList Names() const;
    /// Empty if there is none of that name.
    QJsonObject Values(const QString& name) const;

    // All of these write the file; false with a reason that names it.
    bool SetLast(const QJsonObject& values, QString* reason);
    /// In place of one of the same name.
    bool Keep(const QString& name, const QJsonObject& values, QString* reason);
    /// It becomes the first.
    bool SetUsed(const QString& name, QString* reason);
    bool Remove(const QString& name, QString* reason);
    /// Not to the name of another.
    bool Rename(const QString& name, const QString& newName, QString* reason);

private:
    struct Preset
    {
        QString name;
        QJsonObject values;
    };
    struct Contents
    {
        QJsonObject last;
        QVector<Preset> presets;
        bool foreign = false; ///< what is there is not ours
    };

    Contents Read() const;
    bool Write(const Contents& contents, QString* reason) const;
    bool IsReadable(const QJsonObject& values) const;

    QString m_Path;
    const HBAdjustment& m_Adjustment;
};

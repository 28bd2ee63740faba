// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPresets.h"

#include "HBReadJson.h"

#include <HBSaveFile.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace
{

constexpr char PresetsFormat[] = "adjustment-presets";
constexpr int PresetsVersion = 1;
constexpr qint64 MaximumPresetsBytes = 16 << 20;

template <class Presets>
auto Find(Presets& presets, const QString& name)
{
    return std::find_if(presets.begin(), presets.end(), [&](const auto& preset) { return preset.name == name; });
}

} // namespace

HBPresets::HBPresets(const QString& folder, const HBAdjustment& adjustment)
    : m_Path(folder + '/' + adjustment.className + ".json")
    , m_Adjustment(adjustment)
{
}

HBPresets::Contents HBPresets::Read() const
{
    Contents contents;
    QFile file(m_Path);
    if (!file.open(QIODevice::ReadOnly))
        return contents;
    const QJsonObject read = HBReadJson(file.read(MaximumPresetsBytes)).object();
    if (read.value("format") != QLatin1String(PresetsFormat) || read.value("version") != PresetsVersion) {
        contents.foreign = file.size() > 0;
        return contents;
    }
    contents.last = read.value("last").toObject();
    const QJsonArray presets = read.value("presets").toArray();
    for (const QJsonValue& entry : presets) {
        QJsonObject values = entry.toObject();
        const QString name = values.take("name").toString();
        contents.presets.append({name, values});
    }
    return contents;
}

bool HBPresets::Write(const Contents& contents, QString* reason) const
{
    QDir().mkpath(QFileInfo(m_Path).path());
    // The new file must not take the place of one whose meaning we do not know.
    if (contents.foreign) {
        QString aside = m_Path + '~';
        while (QFile::exists(aside))
            aside += '~';
        QFile file(m_Path);
        if (!file.rename(aside)) {
            *reason = m_Path + ": " + file.errorString();
            return false;
        }
    }
    QJsonArray presets;
    for (const Preset& preset : contents.presets) {
        QJsonObject entry = preset.values;
        entry.insert("name", preset.name);
        presets.append(entry);
    }
    QJsonObject written{{"format", PresetsFormat}, {"version", PresetsVersion}, {"presets", presets}};
    if (!contents.last.isEmpty())
        written.insert("last", contents.last);
    if (HBSaveFile(m_Path, QJsonDocument(written).toJson(), reason))
        return true;
    *reason = m_Path + ": " + *reason;
    return false;
}

bool HBPresets::IsReadable(const QJsonObject& values) const
{
    std::any record;
    QString reason;
    return m_Adjustment.restore(values, &record, &reason);
}

QStringList HBPresets::Names() const
{
    QStringList names;
    for (const Preset& preset : Read().presets) {
        if (!preset.name.isEmpty() && IsReadable(preset.values))
            names.append(preset.name);
    }
    return names;
}

QJsonObject HBPresets::Values(const QString& name) const
{
    const Contents contents = Read();
    const auto found = Find(contents.presets, name);
    return found != contents.presets.end() && IsReadable(found->values) ? found->values : QJsonObject();
}

bool HBPresets::SetLast(const QJsonObject& values, QString* reason)
{
    Contents contents = Read();
    contents.last = values;
    return Write(contents, reason);
}

bool HBPresets::Keep(const QString& name, const QJsonObject& values, QString* reason)
{
    Contents contents = Read();
    const auto found = Find(contents.presets, name);
    if (found != contents.presets.end())
        contents.presets.erase(found);
    contents.presets.prepend({name, values});
    return Write(contents, reason);
}

bool HBPresets::SetUsed(const QString& name, QString* reason)
{
    const QJsonObject values = Values(name);
    return values.isEmpty() || Keep(name, values, reason);
}

bool HBPresets::Remove(const QString& name, QString* reason)
{
    Contents contents = Read();
    const auto found = Find(contents.presets, name);
    if (found == contents.presets.end())
        return true;
    contents.presets.erase(found);
    return Write(contents, reason);
}

bool HBPresets::Rename(const QString& name, const QString& newName, QString* reason)
{
    Contents contents = Read();
    const auto found = Find(contents.presets, name);
    if (found == contents.presets.end() || name == newName)
        return true;
    if (Find(contents.presets, newName) != contents.presets.end()) {
        *reason = QCoreApplication::translate("HBPresets", "There is a preset of this name already.");
        return false;
    }
    found->name = newName;
    return Write(contents, reason);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeFiles.h"

#include "HBAdjustment.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace
{

void Rename(HBRecipeStep* step, const std::function<QString(const QString&)>& rename)
{
    const HBAdjustment* adjustment = HBFindAdjustment(step->panel);
    const auto isFile = [](const HBFieldInfo& field) { return field.isFile; };
    if (!adjustment || std::none_of(adjustment->fields.begin(), adjustment->fields.end(), isFile))
        return;
    std::any record;
    QString ignored; // whoever needs the record is told
    if (!adjustment->restore(step->values, &record, &ignored))
        return;
    bool renamed = false;
    for (const HBFieldInfo& field : adjustment->fields) {
        const QString name = field.isFile ? field.get(adjustment->data(record)).toString() : QString();
        const QString other = name.isEmpty() ? name : rename(name);
        if (other == name)
            continue;
        field.set(adjustment->mutableData(record), other);
        renamed = true;
    }
    if (!renamed)
        return; // not a byte is another
    const QJsonObject values = adjustment->save(record);
    for (auto value = values.begin(); value != values.end(); ++value)
        step->values.insert(value.key(), value.value());
}

HBRecipe Renamed(HBRecipe recipe, const std::function<QString(const QString&)>& rename)
{
    for (HBRecipeStep& step : recipe.steps)
        Rename(&step, rename);
    return recipe;
}

} // namespace

HBRecipe HBWithNamesFrom(const HBRecipe& recipe, const QString& folder)
{
    return Renamed(recipe, [&](const QString& name) {
        const QString inside = QDir(folder).relativeFilePath(name);
        const bool isInside = QFileInfo(inside).isRelative() && inside != ".." && !inside.startsWith("../");
        return QFileInfo(name).isAbsolute() && isInside ? inside : name;
    });
}

HBRecipe HBWithFilesOf(const HBRecipe& recipe, const QString& folder)
{
    return Renamed(recipe, [&](const QString& name) {
        const QString file = QDir::cleanPath(QDir(folder).absoluteFilePath(name));
        return QFileInfo(name).isRelative() && QFileInfo(file).isFile() ? file : name;
    });
}

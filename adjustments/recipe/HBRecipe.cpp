// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipe.h"

#include "HBReadJson.h"
#include "HBRecipeFiles.h"
#include "HBRecipeReason.h"
#include "HBRecipeSteps.h"

#include <HBQtImage.h>
#include <HBSaveFile.h>
#include <HBStage.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <exception>
#include <new>

namespace
{

constexpr char Format[] = "adjustment-recipe";
constexpr int FirstVersion = 1;
constexpr int Version = 2; // steps may be off, or in part, or on a selection
// A recipe may be anybody's file: no recipe made by hand comes near these.
constexpr int MaximumBytes = 16 << 20;

constexpr char OnKey[] = "on";
constexpr char AmountKey[] = "amount";
constexpr char SelectionKey[] = "selection";

bool Fail(QString* error, const QString& text)
{
    *error = text;
    return false;
}

/// Runs what tells its failure; also where there is no memory for it. Qt ends the process if its JSON finds none.
template <class Step>
bool RunTelling(QString* error, Step step)
try {
    HBCheckMemory();
    return step();
} catch (const std::bad_alloc&) {
    return Fail(error, HBFailureReason({{}, HBOutcome::Failed, std::current_exception()}));
}

/// What a step of version 2 says besides the values, and out of them.
bool TakeManner(HBRecipeStep* step, QString* reason)
{
    const QJsonValue on = step->values.take(OnKey);
    const QJsonValue amount = step->values.take(AmountKey);
    const QJsonValue selection = step->values.take(SelectionKey);
    if (!on.isUndefined() && !on.isBool())
        return Fail(reason, HBRecipeReason::tr("whether it is on is neither true nor false"));
    step->on = on.toBool(true);
    step->amount = amount.toInt(HBRecipeStep::MaximumAmount);
    if (!amount.isUndefined() &&
        (amount.toInt(-1) != amount.toDouble() || step->amount < 0 || step->amount > HBRecipeStep::MaximumAmount))
        return Fail(reason, HBRecipeReason::tr("its amount is not a whole number from 0 to 100"));
    return selection.isUndefined() || HBSelectionShape::FromJson(selection, &step->selection, reason);
}

QJsonObject JsonOf(const HBRecipeStep& step, int version)
{
    QJsonObject object = step.values;
    if (version > FirstVersion) {
        for (const char* key : {OnKey, AmountKey, SelectionKey})
            object.remove(key); // read in version 1 it meant nothing
        const QJsonObject manner = step.Manner();
        for (auto member = manner.begin(); member != manner.end(); ++member)
            object.insert(member.key(), member.value());
    }
    object.insert("panel", step.panel);
    return object;
}

bool ReadStep(const QJsonValue& value, int version, int index, HBRecipeStep* step, QString* error)
{
    if (!value.isObject())
        return HBFailStep(error, index, {}, HBRecipeReason::tr("it is not an object"));
    step->values = value.toObject();
    const QJsonValue panel = step->values.take("panel");
    if (!panel.isString() || panel.toString().isEmpty())
        return HBFailStep(error, index, {}, HBRecipeReason::tr("it does not name its panel"));
    step->panel = panel.toString();
    QString reason;
    if (version > FirstVersion && !TakeManner(step, &reason))
        return HBFailStep(error, index, step->panel, reason);
    std::any record;
    const HBAdjustment* adjustment = HBReadStep(*step, index, &record, error);
    if (adjustment && !step->selection.IsNone() && adjustment->IgnoresSelection())
        return HBFailStep(error, index, step->panel,
                          HBRecipeReason::tr("it works on all of the photo, and can have no selection"));
    return adjustment;
}

bool CheckHead(const QJsonObject& head, QString* error)
{
    if (head.value("format").toString() != QLatin1String(Format))
        return Fail(error, HBRecipeReason::tr("This is not a recipe."));
    const double version = head.value("version").toDouble();
    if (version > Version) {
        return Fail(error, HBRecipeReason::tr("The recipe has version %1; this program reads versions up to %2.")
                               .arg(version)
                               .arg(Version));
    }
    if (version < FirstVersion || version != int(version))
        return Fail(error, HBRecipeReason::tr("The recipe has no valid version."));
    return true;
}

bool ReadJson(const QByteArray& json, HBRecipe* recipe, QString* error)
{
    const QJsonDocument document = HBReadJson(json, error);
    if (document.isNull())
        return false;
    const QJsonObject head = document.object();
    if (!CheckHead(head, error))
        return false;
    const int version = head.value("version").toInt();
    const QJsonArray steps = head.value("steps").toArray();
    if (steps.isEmpty())
        return Fail(error, HBRecipeReason::tr("The recipe has no steps."));
    if (steps.size() > HBRecipe::MaximumSteps) {
        return Fail(error, HBRecipeReason::tr("The recipe has %1 steps; at most %2 are allowed.")
                               .arg(steps.size())
                               .arg(HBRecipe::MaximumSteps));
    }
    HBRecipe read;
    for (int i = 0; i < steps.size(); ++i) {
        HBRecipeStep step;
        if (!ReadStep(steps.at(i), version, i, &step, error))
            return false;
        read.steps.append(step);
    }
    *recipe = read;
    return true;
}

bool ReadFile(const QString& path, HBRecipe* recipe, QString* error)
{
    auto fail = [&](const QString& reason) { return Fail(error, path + ": " + reason); };
    const QFileInfo info(path);
    if (!info.exists())
        return fail(HBRecipeReason::tr("There is no such file."));
    if (!info.isFile())
        return fail(HBRecipeReason::tr("This is not a file."));
    if (info.size() == 0) // also one of the kernel's, which could be read for ever
        return fail(HBRecipeReason::tr("The file is empty."));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    const QByteArray json = file.read(MaximumBytes + 1);
    if (file.error() != QFile::NoError)
        return fail(file.errorString());
    if (json.size() > MaximumBytes)
        return fail(HBRecipeReason::tr("The file is too large to be a recipe."));
    QString reason;
    HBRecipe read;
    if (!ReadJson(json, &read, &reason))
        return fail(reason);
    *recipe = HBWithFilesOf(read, info.absolutePath());
    return true;
}

} // namespace

QJsonObject HBRecipeStep::Manner() const
{
    QJsonObject manner;
    if (!on)
        manner.insert(OnKey, false);
    if (amount != MaximumAmount)
        manner.insert(AmountKey, amount);
    const HBAdjustment* adjustment = selection.IsNone() ? nullptr : HBFindAdjustment(panel);
    if (!selection.IsNone() && !(adjustment && adjustment->IgnoresSelection())) // it would not be read again
        manner.insert(SelectionKey, selection.ToJson());
    return manner;
}

bool HBRecipeStep::operator==(const HBRecipeStep& other) const
{
    return panel == other.panel && values == other.values && on == other.on && amount == other.amount &&
           selection == other.selection;
}

bool HBRecipe::FromJson(const QByteArray& json, HBRecipe* recipe, QString* error)
{
    return RunTelling(error, [&] { return ReadJson(json, recipe, error); });
}

QByteArray HBRecipe::ToJson() const
{
    HBCheckMemory();
    const bool isPlain =
        std::all_of(steps.begin(), steps.end(), [](const HBRecipeStep& step) { return step.Manner().isEmpty(); });
    const int version = isPlain ? FirstVersion : Version;
    QJsonArray array;
    for (const HBRecipeStep& step : steps)
        array.append(JsonOf(step, version));
    const QJsonObject head{{"format", Format}, {"version", version}, {"steps", array}};
    return QJsonDocument(head).toJson();
}

bool HBRecipe::Load(const QString& path, HBRecipe* recipe, QString* error)
{
    return RunTelling(error, [&] { return ReadFile(path, recipe, error); });
}

bool HBRecipe::Save(const QString& path, QString* error) const
{
    return RunTelling(error, [&] {
        QString reason;
        const HBRecipe kept = HBWithNamesFrom(*this, QFileInfo(path).absolutePath());
        return HBSaveFile(path, kept.ToJson(), &reason) || Fail(error, path + ": " + reason);
    });
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeCommands.h"

#include "HBFileNames.h"
#include "HBJsonLine.h"
#include "HBRecipeCost.h"
#include "HBRecipeText.h"
#include "HBReplayExit.h"
#include "HBReplayLog.h"
#include "HBReplayWords.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace
{

constexpr qint64 PixelsOfEstimate = 12000000;

/// One line: texts of a recipe may hold anything.
void Print(const QString& line)
{
    std::puts(qPrintable(HBShownOnTerminal(line)));
}

void Print(const QJsonObject& object)
{
    std::fputs(HBJsonLine(object).constData(), stdout);
}

bool Load(const QString& path, HBRecipe* recipe)
{
    QString problem;
    if (HBRecipe::Load(path, recipe, &problem))
        return true;
    HBPrintError(problem);
    return false;
}

} // namespace

int HBListPanels(const HBReplayOptions& options)
{
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (options.IsSet("json")) {
            Print(QJsonObject{{"panel", adjustment.className},
                              {"tag", adjustment.tag ? QJsonValue(adjustment.tag) : QJsonValue()},
                              {"group", adjustment.Group()},
                              {"title", adjustment.Title()}});
            continue;
        }
        const QStringList columns{adjustment.className, adjustment.tag ? adjustment.tag : "-", adjustment.Group(),
                                  adjustment.Title()};
        std::puts(qPrintable(columns.join('\t')));
    }
    return HBAllDone;
}

int HBExplainRecipe(const HBReplayOptions& options)
{
    HBRecipe recipe;
    if (!Load(options.Arguments().first(), &recipe))
        return HBBadUsage;
    const QVector<HBStepText> steps = HBDescribeRecipe(recipe);
    for (int i = 0; i < steps.size(); ++i) {
        const HBStepText& step = steps[i];
        if (options.IsSet("json")) {
            QJsonObject line = step.mannerJson;
            line.insert("type", "step");
            line.insert("step", i + 1);
            line.insert("panel", step.adjustment->className);
            line.insert("title", step.adjustment->Title());
            line.insert("values", step.json);
            Print(line);
            continue;
        }
        Print(QString("%1. %2 (%3)").arg(i + 1).arg(step.adjustment->Title(), step.adjustment->className));
        for (const QString& value : step.values + step.manner)
            Print("   " + value);
    }
    const double seconds = HBRecipeCost(recipe).Seconds(PixelsOfEstimate);
    if (options.IsSet("json")) {
        Print(QJsonObject{{"type", "summary"}, {"steps", steps.size()}, {"secondsFor12Megapixels", seconds}});
    } else {
        Print(HBReplayWords::tr("About %1 s for 12 megapixels on one core, without reading and writing.")
                  .arg(QString::number(seconds, 'g', 2)));
    }
    return HBAllDone;
}

int HBValidateRecipes(const HBReplayOptions& options)
{
    int code = HBAllDone;
    for (const QString& path : options.Arguments()) {
        HBRecipe recipe;
        if (Load(path, &recipe))
            Print(path + ": " + HBReplayWords::tr("good; steps: %1").arg(recipe.steps.size()));
        else
            code = HBBadUsage;
    }
    return code;
}

int HBShowDifferences(const HBReplayOptions& options)
{
    HBRecipe first;
    HBRecipe second;
    if (!Load(options.Arguments()[0], &first) || !Load(options.Arguments()[1], &second))
        return HBBadUsage;
    const QStringList lines = HBDiffRecipes(first, second);
    for (const QString& line : lines)
        Print(line);
    return lines.isEmpty() ? HBAllDone : HBFileFailed;
}

int HBPrintSchema(const HBReplayOptions&)
{
    std::fputs(QJsonDocument(HBRecipeSchema()).toJson().constData(), stdout);
    return HBAllDone;
}

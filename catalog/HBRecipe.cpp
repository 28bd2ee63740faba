// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipe.h"

#include "HBPanelCatalog.h"
#include "HBSaveFile.h"

#include <HBAdjustmentWidget.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <memory>

namespace
{

constexpr char Format[] = "adjustment-recipe";
constexpr int Version = 1;
// A recipe may be anybody's file: no recipe made by hand comes near these.
constexpr int MaximumBytes = 16 << 20;
constexpr int MaximumSteps = 1000;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(HBRecipe)
};

bool Fail(QString* error, const QString& text)
{
    *error = text;
    return false;
}

/// Names from a file are shown short and on one line.
QString Shown(const QString& name)
{
    const QString line = name.simplified();
    return line.size() > 60 ? line.left(60) + QChar(0x2026) : line;
}

bool FailStep(QString* error, int index, const QString& panel, const QString& reason)
{
    if (panel.isEmpty())
        return Fail(error, Text::tr("Step %1: %2").arg(index + 1).arg(reason));
    return Fail(error, Text::tr("Step %1 (%2): %3").arg(QString::number(index + 1), Shown(panel), reason));
}

/// The step's panel with its values, without a frame; null, with the error set, if that cannot be.
std::unique_ptr<HBAdjustmentWidget> MakePanel(const HBRecipeStep& step, int index, QString* error)
{
    const HBPanelEntry* entry = HBFindPanel(step.panel);
    if (!entry) {
        FailStep(error, index, step.panel, Text::tr("there is no such panel"));
        return nullptr;
    }
    std::unique_ptr<HBAdjustmentWidget> panel(entry->create(false, nullptr));
    QString reason;
    if (!entry->restore(*panel, step.values, &reason)) {
        FailStep(error, index, step.panel, reason);
        return nullptr;
    }
    return panel;
}

bool ReadStep(const QJsonValue& value, int index, HBRecipeStep* step, QString* error)
{
    if (!value.isObject())
        return FailStep(error, index, {}, Text::tr("it is not an object"));
    step->values = value.toObject();
    const QJsonValue panel = step->values.take("panel");
    if (!panel.isString() || panel.toString().isEmpty())
        return FailStep(error, index, {}, Text::tr("it does not name its panel"));
    step->panel = panel.toString();
    return MakePanel(*step, index, error) != nullptr;
}

bool CheckHead(const QJsonObject& head, QString* error)
{
    if (head.value("format").toString() != QLatin1String(Format))
        return Fail(error, Text::tr("This is not a recipe."));
    const double version = head.value("version").toDouble();
    if (version > Version) {
        return Fail(error, Text::tr("The recipe has version %1; this program reads versions up to %2.")
                               .arg(version)
                               .arg(Version));
    }
    if (version != Version)
        return Fail(error, Text::tr("The recipe has no valid version."));
    return true;
}

/// Lets the panel adjust the image and waits for it. False if the panel gave no result, or `progress` gave up.
bool RunPanel(HBAdjustmentWidget& panel, const HBImage<>& image, HBImage<>* result,
              const std::function<bool(double)>& progress)
{
    bool ready = false;
    int minimum = 0;
    int maximum = 0;
    QEventLoop loop;
    QObject::connect(&panel, &HBAdjustmentWidget::ImageReady, &loop, [&ready] { ready = true; });
    QObject::connect(&panel, &HBAdjustmentWidget::ProgressRangeChanged, &loop, [&](int from, int to) {
        minimum = from;
        maximum = to;
    });
    QObject::connect(&panel, &HBAdjustmentWidget::ProgressValueChanged, &loop, [&](int value) {
        if (maximum > minimum && !progress(double(value - minimum) / (maximum - minimum)))
            panel.SetCancelProcessing(true);
        // The last value of a job is sent when it no longer runs; one that was obsolete is followed by another.
        if (!panel.IsProcessing())
            loop.quit();
    });
    panel.SetImage(image, {}, {}, {});
    if (!panel.IsProcessing()) { // a panel without a job
        *result = image;
        return true;
    }
    while (panel.IsProcessing())
        loop.exec();
    *result = panel.AdjustedImage();
    return ready && !panel.HasJobFailed() && !panel.IsCancelProcessing();
}

/// Draws an overlay or lets the panel adjust the image; false, with the reason, if that failed.
bool ApplyStep(const HBPanelEntry& entry, HBAdjustmentWidget& panel, HBImage<>* image, QString* reason,
               const std::function<bool(double)>& progress)
{
    if (entry.draw) {
        *image = entry.draw(panel)(HBImage<>(*image), reason);
        progress(1);
        return reason->isEmpty();
    }
    if (RunPanel(panel, HBImage<>(*image), image, progress))
        return true;
    *reason = Text::tr("the adjustment failed; is there too little memory?");
    return false;
}

} // namespace

bool HBRecipe::FromJson(const QByteArray& json, HBRecipe* recipe, QString* error)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(json, &problem);
    if (document.isNull()) {
        return Fail(error,
                    Text::tr("This is not JSON: %1 at byte %2.").arg(problem.errorString()).arg(problem.offset));
    }
    const QJsonObject head = document.object();
    if (!CheckHead(head, error))
        return false;
    const QJsonArray steps = head.value("steps").toArray();
    if (steps.isEmpty())
        return Fail(error, Text::tr("The recipe has no steps."));
    if (steps.size() > MaximumSteps) {
        return Fail(
            error,
            Text::tr("The recipe has %1 steps; at most %2 are allowed.").arg(steps.size()).arg(MaximumSteps));
    }
    HBRecipe read;
    for (int i = 0; i < steps.size(); ++i) {
        HBRecipeStep step;
        if (!ReadStep(steps.at(i), i, &step, error))
            return false;
        read.steps.append(step);
    }
    *recipe = read;
    return true;
}

QByteArray HBRecipe::ToJson() const
{
    QJsonArray array;
    for (const HBRecipeStep& step : steps) {
        QJsonObject object = step.values;
        object.insert("panel", step.panel);
        array.append(object);
    }
    const QJsonObject head{{"format", Format}, {"version", Version}, {"steps", array}};
    return QJsonDocument(head).toJson();
}

bool HBRecipe::Load(const QString& path, HBRecipe* recipe, QString* error)
{
    auto fail = [&](const QString& reason) { return Fail(error, path + ": " + reason); };
    const QFileInfo info(path);
    if (!info.exists())
        return fail(Text::tr("There is no such file."));
    if (!info.isFile())
        return fail(Text::tr("This is not a file."));
    if (info.size() == 0) // also one of the kernel's, which could be read for ever
        return fail(Text::tr("The file is empty."));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    const QByteArray json = file.read(MaximumBytes + 1);
    if (file.error() != QFile::NoError)
        return fail(file.errorString());
    if (json.size() > MaximumBytes)
        return fail(Text::tr("The file is too large to be a recipe."));
    QString reason;
    return FromJson(json, recipe, &reason) || fail(reason);
}

bool HBRecipe::Save(const QString& path, QString* error) const
{
    QString reason;
    return HBSaveFile(path, ToJson(), &reason) || Fail(error, path + ": " + reason);
}

HBImage<> HBApplyRecipe(const HBImage<>& image, const HBRecipe& recipe, QString* error,
                        const std::function<bool(int)>& progress)
{
    HBImage<> result = image;
    for (int i = 0; i < recipe.steps.size(); ++i) {
        const HBRecipeStep& step = recipe.steps.at(i);
        const std::unique_ptr<HBAdjustmentWidget> panel = MakePanel(step, i, error);
        if (!panel)
            return {};
        bool givenUp = false;
        auto report = [&](double done) {
            givenUp = givenUp || (progress && !progress(int(1000 * (i + done) / recipe.steps.size())));
            return !givenUp;
        };
        QString reason;
        if (!ApplyStep(*HBFindPanel(step.panel), *panel, &result, &reason, report) || givenUp) {
            if (givenUp)
                error->clear();
            else
                FailStep(error, i, step.panel, reason);
            return {};
        }
    }
    return result;
}

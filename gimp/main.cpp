// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpApply.h"
#include "HBGimpArguments.h"
#include "HBGimpCall.h"
#include "HBGimpOpen.h"
#include "HBGimpProcedures.h"
#include "HBGimpText.h"
#include <HBPresets.h>

#include <HBInstallTranslations.h>
#include <HBPanelSetup.h>

#include <QApplication>
#include <QSettings>

// GIMP starts a process for every call, and one to ask for the procedures.

namespace
{

int argumentCount = 0;
char** arguments = nullptr;

bool ReadCall(const gchar* procedure, int count, const GimpParam* parameters, HBGimpCall* call, QString* reason)
{
    call->procedure = QString::fromUtf8(procedure);
    call->mode = count > 0 ? GimpRunMode(parameters[0].data.d_int32) : GIMP_RUN_NONINTERACTIVE;
    if (count < 3 || (count < 4 && call->mode == GIMP_RUN_NONINTERACTIVE)) {
        *reason = HBGimpText::tr("Run mode, image, layer and values are wanted.");
        return false;
    }
    call->image = parameters[1].data.d_image;
    call->drawable = parameters[2].data.d_drawable;
    if (count > 3)
        call->argument = QString::fromUtf8(parameters[3].data.d_string);
    if (!gimp_item_is_valid(call->drawable) || gimp_item_get_image(call->drawable) != call->image) {
        *reason = HBGimpText::tr("The layer is not one of the image.");
        return false;
    }
    return true;
}

/// The values of the last dialog; if there was none, or they cannot be read, those that a panel opens with.
HBRecipeStep LastStep(const HBAdjustment& adjustment)
{
    const QJsonObject last = HBPresets(HBGimpFolder(), adjustment).Last();
    std::any record;
    QString reason;
    return {QString::fromLatin1(adjustment.className),
            adjustment.restore(last, &record, &reason) ? last : adjustment.save(adjustment.defaults())};
}

bool ReadRecipe(const HBGimpCall& call, const HBAdjustment* adjustment, HBRecipe* recipe, QString* reason)
{
    if (!adjustment)
        return HBReadRecipeArgument(call.argument, recipe, reason);
    HBRecipeStep step;
    if (call.mode == GIMP_RUN_WITH_LAST_VALS)
        step = LastStep(*adjustment);
    else if (!HBReadStepArgument(*adjustment, call.argument, &step, reason))
        return false;
    recipe->steps = {step};
    return true;
}

HBGimpAnswer Apply(const HBGimpCall& call, const HBAdjustment* adjustment, QStringList* notes, QString* reason)
{
    HBRecipe recipe;
    const QString title = adjustment ? adjustment->Title() : HBGimpText::tr("Apply Recipe");
    const bool applied = ReadRecipe(call, adjustment, &recipe, reason) &&
                         HBApplyToLayer(HBGimpLayer(call.drawable), recipe, title, notes, reason);
    return applied ? HBGimpAnswer::Done : HBGimpAnswer::Failed;
}

HBGimpAnswer RunCall(HBGimpCall call, QStringList* notes, QString* reason)
try {
    const HBAdjustment* adjustment = HBAdjustmentOfProcedure(call.procedure);
    if (call.mode == GIMP_RUN_NONINTERACTIVE || (call.mode == GIMP_RUN_WITH_LAST_VALS && adjustment)) {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // a text is drawn with a QGuiApplication
        const QGuiApplication application(argumentCount, arguments);
        HBInstallTranslations();
        return Apply(call, adjustment, notes, reason);
    }
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argumentCount, arguments);
    HBInstallTranslations();
    HBUseGimpColors();
    HBSetUpPanels();
    if (adjustment)
        return HBOpenAdjustment(call, *adjustment, notes, reason);
    call.argument = HBAskForRecipe();
    return call.argument.isEmpty() ? HBGimpAnswer::Cancelled : Apply(call, nullptr, notes, reason);
} catch (const std::bad_alloc&) {
    *reason = HBGimpText::tr("There is not enough memory.");
    return HBGimpAnswer::Failed;
}

void Query()
{
    const QCoreApplication application(argumentCount, arguments);
    HBInstallTranslations();
    HBInstallProcedures();
}

void Run(const gchar* procedure, gint count, const GimpParam* parameters, gint* resultCount, GimpParam** results)
{
    // What the host libraries keep belongs to this plug-in, not to GIMP or to our own editor.
    QCoreApplication::setApplicationName("adjustment-panels");
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, HBGimpFolder());
    gegl_init(nullptr, nullptr);

    HBGimpCall call{};
    QStringList notes;
    QString reason;
    HBGimpAnswer answer = HBGimpAnswer::Failed;
    if (ReadCall(procedure, count, parameters, &call, &reason))
        answer = RunCall(call, &notes, &reason);
    for (const QString& note : notes)
        gimp_message(note.toUtf8().constData());
    if (answer == HBGimpAnswer::Done && call.mode != GIMP_RUN_NONINTERACTIVE)
        gimp_displays_flush();

    static GimpParam result[2];
    static QByteArray message;
    message = reason.toUtf8();
    result[0].type = GIMP_PDB_STATUS;
    result[0].data.d_status = answer == HBGimpAnswer::Done        ? GIMP_PDB_SUCCESS
                              : answer == HBGimpAnswer::Cancelled ? GIMP_PDB_CANCEL
                                                                  : GIMP_PDB_EXECUTION_ERROR;
    result[1].type = GIMP_PDB_STRING;
    result[1].data.d_string = message.data();
    *resultCount = answer == HBGimpAnswer::Failed ? 2 : 1;
    *results = result;
}

const GimpPlugInInfo info = {nullptr, nullptr, Query, Run};

} // namespace

QString HBGimpFolder()
{
    return QString::fromUtf8(gimp_directory()) + "/adjustment-panels";
}

int main(int argc, char* argv[])
{
    argumentCount = argc;
    arguments = argv;
    return gimp_main(&info, argc, argv);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpProcedures.h"

#include "HBGimpText.h"

#include <libgimp/gimp.h>

namespace
{

void Install(const QString& procedure, const QString& blurb, const char* help, const QString& label,
             const char* argument, const char* description)
{
    char text[][16] = {"run-mode", "image", "drawable"};
    char mode[] = "The run mode { RUN-INTERACTIVE (0), RUN-NONINTERACTIVE (1), RUN-WITH-LAST-VALS (2) }";
    char image[] = "The image";
    char drawable[] = "The layer, layer mask or channel to adjust";
    const GimpParamDef arguments[] = {
        {GIMP_PDB_INT32, text[0], mode},
        {GIMP_PDB_IMAGE, text[1], image},
        {GIMP_PDB_DRAWABLE, text[2], drawable},
        {GIMP_PDB_STRING, const_cast<char*>(argument), const_cast<char*>(description)},
    };
    gimp_install_procedure(procedure.toUtf8().constData(), blurb.toUtf8().constData(), help,
                           "The Adjustment Panels authors", "The Adjustment Panels authors", "2026",
                           label.toUtf8().constData(), "RGB*, GRAY*", GIMP_PLUGIN, G_N_ELEMENTS(arguments), 0,
                           arguments, nullptr);
    gimp_plugin_menu_register(procedure.toUtf8().constData(), "<Image>/Colors/Adjustment Panels");
}

} // namespace

QString HBProcedureOf(const HBAdjustment& adjustment)
{
    return "adjustment-panels-" + QString::fromLatin1(adjustment.title).toLower().replace(' ', '-');
}

const HBAdjustment* HBAdjustmentOfProcedure(const QString& procedure)
{
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (procedure == HBProcedureOf(adjustment))
            return &adjustment;
    }
    return nullptr;
}

void HBInstallProcedures()
{
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        QStringList keys;
        for (const HBFieldInfo& field : adjustment.fields)
            keys.append(field.key);
        const QString help = "Adjusts what is selected of a layer, or all of it. Its values: " + keys.join(", ");
        Install(HBProcedureOf(adjustment), HBGimpText::tr("Adjusts the layer: %1").arg(adjustment.Title()),
                help.toUtf8().constData(), adjustment.Title() + QChar(0x2026), "values",
                "The values as JSON, {\"key\": value}, the others by default; or a step of a recipe; or the bytes "
                "of a "
                "record in hexadecimal digits; empty: the defaults");
    }
    Install(HBRecipeProcedure, HBGimpText::tr("Applies a stored recipe of adjustments to the layer"),
            "All steps of the recipe, as one step that can be undone.",
            HBGimpText::tr("Apply Recipe") + QChar(0x2026), "recipe", "The path of a recipe's file, or its JSON");
}

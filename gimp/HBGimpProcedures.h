// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustment.h>

#include <QString>

/// What applies a recipe; all others are one adjustment each.
constexpr char HBRecipeProcedure[] = "adjustment-panels-apply";

/// "adjustment-panels-brightness-and-contrast": from the untranslated title. Scripts use it: never changed.
QString HBProcedureOf(const HBAdjustment& adjustment);
/// Null for any other name.
const HBAdjustment* HBAdjustmentOfProcedure(const QString& procedure);

/// Tells GIMP of all procedures and their places in the menus, in the user's language. Needs a QCoreApplication.
void HBInstallProcedures();

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelsExport.h"

#include <QColor>
#include <QString>

#include <optional>

class QAbstractButton;
class QWidget;

/// Shows a colour as the button's icon.
HB_PANELS_EXPORT void HBShowColor(QAbstractButton* button, const QColor& color);

/// How a colour dialog ended. Gone: the panel or the dialog was destroyed while it was open; touch neither.
enum class HBPick { Accepted, Rejected, Gone };

/// Runs the host's colour dialog over the panel. What follows from the answer differs between the panels, on
/// purpose.
/// \param liveSlot slot of the panel, as made by SLOT(), that follows the dialog's colour; null for none
/// \param chosen the dialog's colour at its end, if it was accepted
HB_PANELS_EXPORT HBPick HBRunColorDialog(QWidget* panel, const QString& title, const QColor& current,
                                         const char* liveSlot, QColor* chosen);

/// The same for a panel that follows live and then takes the colour that is left: the dialog's if it was accepted,
/// else the one from before. None: Gone.
HB_PANELS_EXPORT std::optional<QColor> HBPickColor(QWidget* panel, const QString& title, const QColor& current,
                                                   const char* liveSlot);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

class QDialogButtonBox;
class QWidget;

/// Lets the tab key reach the buttons behind the controls, where the buttons were made first: the focus follows
/// the order in which widgets are made. GUI thread.
/// \param window both are in it
/// \param controls what holds the controls
/// \param box what holds the buttons
void HBPutButtonsLastInTabOrder(QWidget* window, const QWidget* controls, QDialogButtonBox* box);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// The colours of all windows: dark ones, or those that the system asks for.
void HBUseDarkColors(bool dark);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// HBSetUpPanels, unless it has been called.
void HBSetUpPanelsOnce();

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBJobControl.h"

HBJobControl::~HBJobControl() = default;

void HBJobControl::SetRange(int, int) {}

void HBJobControl::SetProgress(int) {}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <string>

/// The names of a panel's benchmarks.
std::string HBPanelBenchmark(const std::string& className);
std::string HBChangeBenchmark(const std::string& className);

/// Registers a benchmark of what a user waits for: from SetImage of a panel on the screen, with the setting of its
/// demonstration, until ImageReady. A panel sees each picture for the first time; what it still works on after
/// that (a histogram, for example) is waited for, and not counted.
void HBRegisterPanel(const std::string& className, const HBImage<>& (*photo)());
/// The same of one step of the panel's first control afterwards, for a panel that remembers what it has found out
/// about the picture.
void HBRegisterChange(const std::string& className, const HBImage<>& (*photo)());

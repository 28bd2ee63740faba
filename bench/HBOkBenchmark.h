// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBBenchmarkSummary.h"

#include <HBImage.h>

/// Registers benchmarks of OK right after a change, until the final image is there: with a session as in the
/// examples, where a control was moved or values were set by code, and as in the editor, where the whole picture
/// has waited for the hand. An image of before the change is an error.
void HBRegisterOks(const HBImage<>& (*photo)());

/// Prints as a table in Markdown by how much that is more than the bare job of the same values.
/// \return whether it is within the aim
bool HBPrintOks(const HBMedianReporter& reporter);

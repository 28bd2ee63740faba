// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// A blending mode of the overlays, by its number in QPainter::CompositionMode.
struct HBTestMode {
    const char* text;
    int mode;
};

/// The modes of the list, in its order: lighten before darken.
inline constexpr HBTestMode HBTestModes[] = {
    {"Normal", 0},       {"Multiply", 13},       {"Screen", 14},        {"Overlay", 15},    {"Difference", 22},
    {"Exclusion", 23},   {"Lighten colors", 17}, {"Darken colors", 16}, {"Soft light", 21}, {"Hard light", 20},
    {"Color dodge", 18}, {"Color burn", 19},     {"Addition", 12}};

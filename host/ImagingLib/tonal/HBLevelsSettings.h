// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

/// What HBLevelsTransformation is made from; the defaults change nothing. The four entries are 0 composite, 1 red,
/// 2 green, 3 blue.
struct HBLevelsSettings
{
    int input[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}};  ///< black and white point, levels
    int output[4][2] = {{0, 255}, {0, 255}, {0, 255}, {0, 255}}; ///< what these become, levels
    double gamma[4] = {1.0, 1.0, 1.0, 1.0};                      ///< 0.01..9.99
};

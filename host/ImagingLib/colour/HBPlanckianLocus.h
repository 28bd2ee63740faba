// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <array>

/// A colour as three numbers: red, green and blue light or CIE 1931 XYZ.
using HBTriple = std::array<double, 3>;

/// The white of a black body, XYZ with Y = 1.
/// \param kelvin more than 0
/// \param duv distance from the locus in the CIE 1960 (u, v) diagram; positive is green, negative magenta
HBTriple HBPlanckianWhite(double kelvin, double duv);

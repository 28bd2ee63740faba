// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBImagingLibExport.h"
#include "HBRGBA32i.h"

/// Shows a picture as if the light on it had another colour temperature: the white of a black body at 6500 K is
/// adapted, in linear light, to that of the one asked for (Bradford transform, ICC.1 Annex E; von Kries scaling of
/// its cone responses), at the same luminance. Whites are on the Planckian locus: Planck's law seen by the CIE
/// 1931 standard observer. The tint moves the white off the locus, at a right angle to it in the CIE 1960 diagram
/// (Duv: Ohno, LEUKOS 10, 2014): 100 is Duv -0.02, magenta, and -100 is Duv 0.02, green.
///
/// Alpha is kept. (6500, any, 0) and (any, 0, any) are the exact identity, as is the default.
class HB_IMAGINGLIB_EXPORT HBTemperatureCorrection
{
public:
    HBTemperatureCorrection();

    /// \param kelvin 1000..40000
    /// \param strength percent of the way from the source, in linear light, 0..100
    /// \param tint -100 (green) .. 100 (magenta)
    /// All are clamped to their range.
    void SetData(int kelvin, int strength, int tint);

    void operator()(HBRGBA32i& pixel) const { (*this)(&pixel, 1); }
    /// The run form: the same bytes.
    void operator()(HBRGBA32i* pixels, int count) const;

    /// The colour of a black body, opaque and as bright as sRGB can show it.
    /// \param kelvin 1000..40000, clamped
    static HBRGBA32i GetTemperatureColor(int kelvin);

    /// What red, green and blue light become: a row for each.
    struct Matrix
    {
        float rows[3][3];
    };

private:
    Matrix m_Matrix;
    bool m_Identity = true;
};

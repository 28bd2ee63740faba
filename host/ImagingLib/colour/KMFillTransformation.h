// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBBlend.h"
#include "HBImagingLibExport.h"

/// Fills with one colour, laid over the pixels by its alpha (see HBBlend::HBSourceOver): with alpha 255 the exact
/// colour, with alpha 0, which is the default, the exact identity.
class HB_IMAGINGLIB_EXPORT KMFillTransformation
{
public:
    KMFillTransformation() : m_Color(0, 0, 0, 0) {}

    void SetData(const HBRGBA32i& color) { m_Color = color; }

    void operator()(HBRGBA32i& pixel) const
    {
        if (m_Color.alpha > 0) // else a transparent pixel would take its invisible colour
            HBBlend::HBSourceOver()(m_Color, pixel);
    }
    /// The run form: the same bytes.
    void operator()(HBRGBA32i* pixels, int count) const;

private:
    HBRGBA32i m_Color;
};

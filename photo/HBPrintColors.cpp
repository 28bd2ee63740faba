// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPrintColors.h"

#include <HBColorTransform.h>

#include <lcms2.h>

HBPrintColors::~HBPrintColors()
{
    if (m_Transform)
        cmsDeleteTransform(m_Transform);
}

bool HBPrintColors::Begin(bool inverted)
{
    if (m_Transform || HBProfileModel(m_Icc) != "CMYK")
        return m_Transform;
    cmsHPROFILE print = cmsOpenProfileFromMem(m_Icc.constData(), cmsUInt32Number(m_Icc.size()));
    cmsHPROFILE srgb = cmsCreate_sRGBProfile();
    if (print && srgb && cmsGetColorSpace(print) == cmsSigCmykData) {
        m_Transform = cmsCreateTransform(print, inverted ? TYPE_CMYK_8_REV : TYPE_CMYK_8, srgb,
                                         Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? TYPE_BGRA_8 : TYPE_ARGB_8,
                                         INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_BLACKPOINTCOMPENSATION);
    }
    if (print)
        cmsCloseProfile(print);
    if (srgb)
        cmsCloseProfile(srgb);
    return m_Transform;
}

void HBPrintColors::Convert(QRgb* pixels, int count) const
{
    cmsDoTransform(m_Transform, pixels, pixels, cmsUInt32Number(count));
    for (int i = 0; i < count; ++i)
        pixels[i] |= 0xff000000; // which is left as it was: ink
}

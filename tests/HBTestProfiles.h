// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVector>

#include <algorithm>
#include <lcms2.h>

// Colour profiles that Little CMS makes, as bytes, and what it makes of colours without our code.

inline QByteArray HBProfileBytes(cmsHPROFILE profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(int(size), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

/// Far wider than sRGB, gamma 1.8.
inline QByteArray HBWideProfile() {
    const cmsCIExyY d50 = {0.3457, 0.3585, 1};
    const cmsCIExyYTRIPLE primaries = {{0.7347, 0.2653, 1}, {0.1596, 0.8404, 1}, {0.0366, 0.0001, 1}};
    cmsToneCurve* gamma = cmsBuildGamma(nullptr, 1.8);
    cmsToneCurve* curves[] = {gamma, gamma, gamma};
    const QByteArray icc = HBProfileBytes(cmsCreateRGBProfile(&d50, &primaries, curves));
    cmsFreeToneCurve(gamma);
    return icc;
}

inline QByteArray HBGreyProfile(double exponent) {
    const cmsCIExyY d50 = {0.3457, 0.3585, 1};
    cmsToneCurve* gamma = cmsBuildGamma(nullptr, exponent);
    const QByteArray icc = HBProfileBytes(cmsCreateGrayProfile(&d50, gamma));
    cmsFreeToneCurve(gamma);
    return icc;
}

/// A table from three colours or four inks to Lab, made up: darker, and bent towards yellow.
inline QByteArray HBTableProfile(cmsColorSpaceSignature model) {
    const auto sample = [](const cmsUInt16Number in[], cmsUInt16Number out[], void* inks) -> cmsInt32Number {
        double r = in[0] / 65535.0, g = in[1] / 65535.0, b = in[2] / 65535.0;
        if (inks) {
            const double paper = 1 - in[3] / 65535.0;
            r = (1 - r) * paper;
            g = (1 - g) * paper;
            b = (1 - b) * paper;
        }
        const cmsCIELab lab = {90 * (0.3 * r + 0.6 * g + 0.1 * b), 80 * (r - g), 60 * (g - b) + 10 * r};
        cmsFloat2LabEncodedV2(out, &lab);
        return TRUE;
    };
    const bool inks = model == cmsSigCmykData;
    cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
    cmsSetProfileVersion(profile, 2.1); // whose tables need no curves
    cmsSetDeviceClass(profile, inks ? cmsSigOutputClass : cmsSigDisplayClass);
    cmsSetColorSpace(profile, model);
    cmsSetPCS(profile, cmsSigLabData);
    cmsPipeline* table = cmsPipelineAlloc(nullptr, inks ? 4 : 3, 3);
    cmsStage* stage = cmsStageAllocCLut16bit(nullptr, 9, inks ? 4 : 3, 3, nullptr);
    cmsStageSampleCLut16bit(stage, sample, inks ? stage : nullptr, 0);
    cmsPipelineInsertStage(table, cmsAT_BEGIN, stage);
    cmsWriteTag(profile, cmsSigAToB0Tag, table);
    cmsPipelineFree(table);
    return HBProfileBytes(profile);
}

/// Pixels through both profiles; sRGB where one is empty.
inline QVector<quint32> HBThroughProfiles(const QVector<quint32>& pixels, cmsUInt32Number layout,
                                          const QByteArray& from, const QByteArray& to) {
    const auto open = [](const QByteArray& icc) {
        return icc.isEmpty() ? cmsCreate_sRGBProfile()
                             : cmsOpenProfileFromMem(icc.constData(), cmsUInt32Number(icc.size()));
    };
    cmsHPROFILE source = open(from), target = open(to);
    cmsHTRANSFORM transform = cmsCreateTransform(source, layout, target, TYPE_BGRA_8, INTENT_RELATIVE_COLORIMETRIC,
                                                 cmsFLAGS_BLACKPOINTCOMPENSATION);
    QVector<quint32> converted(pixels.size(), 0);
    cmsDoTransform(transform, pixels.constData(), converted.data(), cmsUInt32Number(pixels.size()));
    cmsDeleteTransform(transform);
    cmsCloseProfile(source);
    cmsCloseProfile(target);
    for (int i = 0; i < pixels.size(); ++i) converted[i] |= 0xff000000;
    return converted;
}

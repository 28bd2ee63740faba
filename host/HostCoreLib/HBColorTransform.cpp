// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorTransform.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <lcms2.h>
#include <vector>

namespace
{

constexpr cmsUInt32Number QRgbFormat = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? TYPE_BGRA_8 : TYPE_ARGB_8;
constexpr int Largest = 64 << 20; ///< bytes of a profile; the largest tables in use have a few

/// Of Little CMS's things, each closed by its function.
template <auto Close>
struct Closer
{
    template <class Pointer>
    void operator()(Pointer* pointer) const
    {
        Close(pointer);
    }
};
using Profile = std::unique_ptr<void, Closer<cmsCloseProfile>>;
using Curve = std::unique_ptr<cmsToneCurve, Closer<cmsFreeToneCurve>>;
using Transform = std::unique_ptr<void, Closer<cmsDeleteTransform>>;

/// Little CMS prints nothing by itself, but its plug-in places are not for several threads: nothing is set here.
Profile Open(const QByteArray& icc)
{
    if (icc.isEmpty())
        return Profile(cmsCreate_sRGBProfile());
    if (icc.size() > Largest)
        return nullptr;
    return Profile(cmsOpenProfileFromMem(icc.constData(), cmsUInt32Number(icc.size())));
}

QByteArray BytesOf(cmsHPROFILE profile)
{
    cmsUInt32Number size = 0;
    if (!profile || !cmsSaveProfileToMem(profile, nullptr, &size))
        return {};
    QByteArray bytes(int(size), Qt::Uninitialized);
    if (!cmsSaveProfileToMem(profile, bytes.data(), &size))
        return {};
    return bytes;
}

/// The tone curve of a profile for grey, whatever it stores, as luminance by level.
Curve ToneOfGrey(cmsHPROFILE grey)
{
    const Profile xyz(cmsCreateXYZProfile());
    const Transform toXyz(cmsCreateTransform(grey, TYPE_GRAY_8, xyz.get(), TYPE_XYZ_DBL,
                                             INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE));
    if (!toXyz)
        return nullptr;
    std::vector<cmsUInt8Number> levels(256);
    for (int level = 0; level < 256; ++level)
        levels[size_t(level)] = cmsUInt8Number(level);
    std::vector<cmsCIEXYZ> colors(256);
    cmsDoTransform(toXyz.get(), levels.data(), colors.data(), 256);
    std::vector<cmsFloat32Number> tone(256);
    for (size_t level = 0; level < 256; ++level)
        tone[level] = std::clamp(cmsFloat32Number(colors[level].Y), 0.0f, 1.0f);
    return Curve(cmsBuildTabulatedToneCurveFloat(nullptr, 256, tone.data()));
}

Profile RgbOfGrey(cmsHPROFILE grey)
{
    const Curve tone = ToneOfGrey(grey);
    if (!tone)
        return nullptr;
    const cmsCIExyY d65 = {0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries = {{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}}; // of sRGB
    cmsToneCurve* const curves[] = {tone.get(), tone.get(), tone.get()};
    return Profile(cmsCreateRGBProfile(&d65, &primaries, curves));
}

} // namespace

HBColorTransform::~HBColorTransform()
{
    cmsDeleteTransform(m_Transform);
}

std::shared_ptr<const HBColorTransform> HBColorTransform::Make(const QByteArray& from, const QByteArray& to,
                                                               QString* reason)
{
    QString ignored;
    QString& why = reason ? *reason : ignored;
    why.clear();
    if (from == to)
        return nullptr;
    Profile source = Open(from);
    const Profile target = Open(to);
    if (source && cmsGetColorSpace(source.get()) == cmsSigGrayData)
        source = RgbOfGrey(source.get());
    const bool fit = source && target && cmsGetColorSpace(source.get()) == cmsSigRgbData &&
                     cmsGetColorSpace(target.get()) == cmsSigRgbData;
    // Without the cache of the last colour, which threads must not share.
    cmsHTRANSFORM made =
        fit ? cmsCreateTransform(source.get(), QRgbFormat, target.get(), QRgbFormat, INTENT_RELATIVE_COLORIMETRIC,
                                 cmsFLAGS_NOCACHE | cmsFLAGS_BLACKPOINTCOMPENSATION)
            : nullptr;
    if (!made) {
        why = QCoreApplication::translate("HBColorTransform", "the color profile cannot be used");
        return nullptr;
    }
    const std::shared_ptr<const HBColorTransform> transform(new HBColorTransform(made));
    return transform->ChangesAnything() ? transform : nullptr;
}

/// Other copies of one and the same profile differ by rounding.
bool HBColorTransform::ChangesAnything() const
{
    constexpr int Step = 15;
    std::vector<QRgb> before;
    for (int red = 0; red < 256; red += Step) {
        for (int green = 0; green < 256; green += Step) {
            for (int blue = 0; blue < 256; blue += Step)
                before.push_back(qRgb(red, green, blue));
        }
    }
    std::vector<QRgb> after = before;
    Apply(after.data(), int(after.size()));
    const auto same = [](QRgb a, QRgb b) {
        return std::abs(qRed(a) - qRed(b)) <= 1 && std::abs(qGreen(a) - qGreen(b)) <= 1 &&
               std::abs(qBlue(a) - qBlue(b)) <= 1;
    };
    return !std::equal(before.begin(), before.end(), after.begin(), same);
}

void HBColorTransform::Apply(QRgb* pixels, int count) const
{
    // In place Little CMS leaves the fourth byte as it is.
    cmsDoTransform(m_Transform, pixels, pixels, cmsUInt32Number(std::max(count, 0)));
}

QString HBProfileName(const QByteArray& icc)
{
    const Profile profile = icc.isEmpty() ? nullptr : Open(icc);
    if (!profile)
        return {};
    const auto size = cmsGetProfileInfo(profile.get(), cmsInfoDescription, "en", "US", nullptr, 0);
    std::vector<wchar_t> text(size / sizeof(wchar_t) + 1);
    cmsGetProfileInfo(profile.get(), cmsInfoDescription, "en", "US", text.data(), size);
    text.back() = 0;
    return QString::fromWCharArray(text.data()).simplified();
}

QByteArray HBProfileModel(const QByteArray& icc)
{
    return icc.size() < 128 ? QByteArray() : icc.mid(16, 4); // ICC.1:2022, 7.2.6
}

QByteArray HBSrgbProfile()
{
    return BytesOf(Profile(cmsCreate_sRGBProfile()).get());
}

QByteArray HBRgbProfileOfGrey(const QByteArray& icc)
{
    const Profile grey = icc.isEmpty() ? nullptr : Open(icc);
    if (!grey || cmsGetColorSpace(grey.get()) != cmsSigGrayData)
        return {};
    return BytesOf(RgbOfGrey(grey.get()).get());
}

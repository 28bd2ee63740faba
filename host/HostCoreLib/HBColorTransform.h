// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBHostCoreLibExport.h"

#include <QByteArray>
#include <QColor>
#include <QString>

#include <memory>

/// Converts colours between ICC profiles, by Little CMS: relative colorimetric with black point compensation. Any
/// thread, several at once.
class HB_HOSTCORELIB_EXPORT HBColorTransform
{
public:
    /// Profiles of any kind, also tables, as their bytes; empty: sRGB. One for grey counts as an RGB profile with
    /// its tone curve, so that greys look as it says and colours that were added as in sRGB.
    /// \param to for RGB
    /// Null if no level would change by more than one of 255, or if it cannot be done: then `reason` says why.
    static std::shared_ptr<const HBColorTransform> Make(const QByteArray& from, const QByteArray& to,
                                                        QString* reason = nullptr);
    HBColorTransform(const HBColorTransform&) = delete;
    HBColorTransform& operator=(const HBColorTransform&) = delete;
    ~HBColorTransform();

    /// In place; not premultiplied, and alpha is kept.
    void Apply(QRgb* pixels, int count) const;

private:
    explicit HBColorTransform(void* transform) : m_Transform(transform) {}
    bool ChangesAnything() const;

    void* m_Transform;
};

/// What the profile calls itself; empty if that cannot be read. Any thread.
HB_HOSTCORELIB_EXPORT QString HBProfileName(const QByteArray& icc);

/// For which colours a profile is, as four letters: "RGB ", "GRAY", "CMYK" ...; empty if it is none. Any thread.
HB_HOSTCORELIB_EXPORT QByteArray HBProfileModel(const QByteArray& icc);

/// A profile of sRGB. Any thread.
HB_HOSTCORELIB_EXPORT QByteArray HBSrgbProfile();

/// The profile for RGB by which a picture looks as it did by that one for grey; empty if it cannot be made. Any
/// thread.
HB_HOSTCORELIB_EXPORT QByteArray HBRgbProfileOfGrey(const QByteArray& icc);

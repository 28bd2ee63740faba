// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpColors.h"

#include <HBMonitorProfile.h>

#include <memory>

namespace
{

struct Unref
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

template <class Object>
using Owned = std::unique_ptr<Object, Unref>;

QByteArray Bytes(GimpColorProfile* profile)
{
    gsize length = 0;
    const guint8* const icc = profile ? gimp_color_profile_get_icc_profile(profile, &length) : nullptr;
    return QByteArray(reinterpret_cast<const char*>(icc), int(length));
}

bool IsLinear(GimpPrecision precision)
{
    switch (precision) {
    case GIMP_PRECISION_U8_LINEAR:
    case GIMP_PRECISION_U16_LINEAR:
    case GIMP_PRECISION_U32_LINEAR:
    case GIMP_PRECISION_HALF_LINEAR:
    case GIMP_PRECISION_FLOAT_LINEAR:
    case GIMP_PRECISION_DOUBLE_LINEAR:
        return true;
    default:
        return false;
    }
}

QByteArray ReadImageProfile(gint32 image)
{
    const Owned<GimpColorProfile> profile(gimp_image_get_effective_color_profile(image));
    if (!profile || !IsLinear(gimp_image_get_precision(image)))
        return Bytes(profile.get());
    // Light is read through the tone curve of sRGB.
    const Owned<GimpColorProfile> curved(gimp_color_profile_new_srgb_trc_from_color_profile(profile.get()));
    return Bytes(curved.get());
}

/// \param path as in gimprc; null: none
QByteArray ReadProfile(const char* path)
{
    const Owned<GFile> file(path && *path ? gimp_file_new_for_config_path(path, nullptr) : nullptr);
    const Owned<GimpColorProfile> profile(file ? gimp_color_profile_new_from_file(file.get(), nullptr) : nullptr);
    return Bytes(profile.get());
}

} // namespace

HBTileMips::Look HBGimpLook(gint32 drawable, const QScreen* screen)
{
    // Its fields: the functions that tell them are declared for C alone.
    const Owned<GimpColorConfig> config(gimp_get_color_configuration());
    if (gimp_item_is_channel(drawable) || config->mode == GIMP_COLOR_MANAGEMENT_OFF)
        return {};
    QByteArray monitor;
    if (config->display_profile_from_gdk)
        monitor = HBMonitorProfile(screen);
    if (monitor.isEmpty())
        monitor = ReadProfile(config->display_profile);
    HBTileMips::Look look;
    look.colors = HBColorTransform::Make(ReadImageProfile(gimp_item_get_image(drawable)), monitor);
    return look;
}

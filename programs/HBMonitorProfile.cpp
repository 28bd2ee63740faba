// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBMonitorProfile.h"

#include <QGuiApplication>
#include <QScreen>

#ifdef HAVE_XCB
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace
{

constexpr uint32_t LargestProfile = 64 << 20; // bytes

struct Freed
{
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Kept = std::unique_ptr<Reply, Freed>;

QByteArray RootProperty(xcb_connection_t* connection, xcb_window_t root, const QByteArray& name)
{
    const Kept<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, uint16_t(name.size()), name.constData()), nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return {};
    const Kept<xcb_get_property_reply_t> value(xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, root, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, LargestProfile / 4),
        nullptr));
    if (!value || value->format != 8)
        return {};
    return QByteArray(static_cast<const char*>(xcb_get_property_value(value.get())),
                      xcb_get_property_value_length(value.get()));
}

} // namespace

QByteArray HBMonitorProfile(const QScreen* screen)
{
    if (QGuiApplication::platformName() != "xcb" || !screen)
        return {};
    // A connection of its own: Qt's is not for the public.
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(xcb_connect(nullptr, nullptr),
                                                                                  xcb_disconnect);
    if (xcb_connection_has_error(connection.get()))
        return {};
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
    // "ICC Profiles in X": the first monitor's has no number.
    const int index = QGuiApplication::screens().indexOf(const_cast<QScreen*>(screen));
    QByteArray icc;
    if (index > 0)
        icc = RootProperty(connection.get(), root, "_ICC_PROFILE_" + QByteArray::number(index));
    return icc.isEmpty() ? RootProperty(connection.get(), root, "_ICC_PROFILE") : icc;
}
#else
QByteArray HBMonitorProfile(const QScreen*)
{
    return {};
}
#endif

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBTileWalk.h>

#include <QRect>
#include <QStringList>

#include <libgimp/gimp.h>

#include <functional>

/// A layer, layer mask or channel of GIMP as a target: its pixels in 8 bits, not premultiplied as GIMP's are,
/// and what is selected of it. The thread of main() only: all calls go to GIMP through one pipe.
class HBGimpLayer
{
public:
    explicit HBGimpLayer(gint32 drawable) : m_Drawable(drawable) {}

    /// False with a reason in words if it cannot be adjusted at all: indexed colours, a group, locked pixels.
    bool Check(QString* reason) const;
    /// What the user should know before: bits or colours that are lost where something changes. Empty: nothing.
    QString Warning() const;

    /// Is told how much is done, 0 .. 1; may be empty.
    using Progress = std::function<void(double share)>;
    /// Reads the pixels and the selection. \throws std::bad_alloc
    void Read(HBTarget* target, const Progress& progress) const;
    /// There is a selection, but none of it lies on the layer. The target's bounds are valid nevertheless, so
    /// that nothing but what ignores selections would be adjusted.
    bool IsSelectionElsewhere() const;

    /// What became of a write.
    struct Written
    {
        bool changed = false; ///< false: GIMP's image is as it was, and so is its history
        QStringList notes;    ///< what was lost on the way, in words
    };
    /// Writes what differs from the source as one step that can be undone; pixels that are the same keep every
    /// bit, whatever the depth of the layer. GIMP's locks (of alpha, of components) hold. False with a reason if
    /// the layer is no longer the one that was read. \throws std::bad_alloc
    bool Write(const HBImage<>& source, const HBImage<>& adjusted, Written* written, QString* reason,
               const Progress& progress) const;

private:
    bool IsExact() const;

    const gint32 m_Drawable;
};

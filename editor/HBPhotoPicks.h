// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QString>
#include <QVector>

#include <any>
#include <functional>

/// A value of a panel that the editor finds from a colour of the photo.
struct HBPhotoPick
{
    QString text; ///< of a button
    QString hint;
    /// Changes the panel's record for the colour of the photo; false if there is no value for it.
    std::function<bool(HBRGBA32i color, std::any* record)> apply;
};

/// Those of the panel with that class name, in the order of their buttons; empty for most.
QVector<HBPhotoPick> HBPhotoPicksOf(const QString& panel);

/// The mean of the few pixels around that one, because a single one is mostly noise. \throws std::bad_alloc
HBRGBA32i HBColorAround(const HBImage<>& photo, const QPoint& pixel);

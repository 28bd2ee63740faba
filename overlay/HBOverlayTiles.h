// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QImage>
#include <QPainter>
#include <QVector>

#include <functional>

/// How an overlay is laid on a picture.
struct HBComposition
{
    QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver;
    double opacity = 1; ///< 0..1

    /// From the numbers of a record: those of the list of modes, any other one is source over; percent, clamped.
    static HBComposition Of(unsigned mode, int percent);
};

/// Renders the overlay's part in `tile`, in pixels of the picture, into a layer of that size, in
/// QImage::Format_ARGB32_Premultiplied, transparent at first. False if there is nothing. Runs on several threads at
/// once.
using HBOverlayRenderer = std::function<bool(const QRect& tile, QImage& layer)>;

/// Lays an overlay over a picture, tile by tile in parallel, as QPainter composes it. Tiles outside `areas`, and those
/// where the layer is transparent, stay shared; pixels where it is transparent keep their bytes.
/// \throws std::bad_alloc
HBImage<> HBComposeTiles(const HBImage<>& picture, const QVector<QRect>& areas, const HBComposition& composition,
                         const HBOverlayRenderer& render);

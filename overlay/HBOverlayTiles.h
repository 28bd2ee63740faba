// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBComposition.h"

#include <HBImage.h>

#include <QImage>
#include <QVector>

#include <functional>

/// Renders the overlay's part in `tile`, in pixels of the picture, into a layer of that size, transparent at
/// first: in QImage::Format_ARGB32, or as premultiplied as the composition says. Runs on several threads at once.
using HBOverlayRenderer = std::function<void(const QRect& tile, QImage& layer)>;

/// Lays an overlay over a picture, tile by tile in parallel. Tiles outside `areas`, and those where the layer is
/// transparent, stay shared.
/// \throws std::bad_alloc
HBImage<> HBComposeTiles(const HBImage<>& picture, const QVector<QRect>& areas, const HBComposition& composition,
                         const HBOverlayRenderer& render);

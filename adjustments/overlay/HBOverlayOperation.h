// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBComposition.h"
#include "HBStage.h"

#include <QImage>
#include <QRectF>
#include <QSize>
#include <QVector>

#include <functional>

/// Renders the overlay's part in `tile`, in pixels of the picture, into a layer of that size, transparent at
/// first: in QImage::Format_ARGB32, or as premultiplied as the composition says. Runs on several threads at once.
using HBOverlayRenderer = std::function<void(const QRect& tile, QImage& layer)>;

/// Lays an overlay over the tiles. Those outside `areas`, and those where the layer is transparent, stay shared.
HBOperation HBOverlayOperation(const QVector<QRect>& areas, const HBComposition& composition,
                               const HBOverlayRenderer& render);

/// The stage of an overlay, which must know of the picture how large it is, whatever stages there are before.
/// Nothing is drawn on an empty picture.
HBStage HBOverlayStage(const std::function<HBOperation(const QSize& picture)>& prepare);

/// The picture between the margins. \throws HBAdjustmentError if they leave no room
QRectF HBOverlayRoom(const QSize& picture, const QRect& margins);

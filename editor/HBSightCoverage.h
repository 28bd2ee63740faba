// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBSelectionShape.h>

#include <QImage>

/// What a selection covers of a part of the photo, as large as it is shown: QImage::Format_Grayscale8 of that
/// size, black where nothing is selected. Costs what is on the screen, whatever the photo's size; the edges are
/// right to a pixel of the result. \throws std::bad_alloc
/// \param part of the photo, not empty
/// \param size at most that of the part
QImage HBCoverageInSight(const HBSelectionShape& selection, const HBImage<>& photo, const QRect& part,
                         const QSize& size);

/// Whether it covers no pixel of the photo at all. \throws std::bad_alloc
bool HBSelectsNothing(const HBSelectionShape& selection, const HBImage<>& photo);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentProcessing.h"

/// A job that lays one version of an image over another.
class IMAGINGLIB_EXPORT HBImageMixing : public HBAdjustmentProcessing
{
    Q_OBJECT
public:
    using HBAdjustmentProcessing::HBAdjustmentProcessing;

    /// `above` over `below`, which have the same size; where nothing is selected, `below`. See
    /// HBAdjustmentProcessing::Run.
    /// \param opacity of `above`, 0..256; 256 gives its very bytes
    HBImage<> Process(const HBImage<>& below, const HBImage<>& above, int opacity, const HBImage<>& selection,
                      const QPoint& offset, const QRect& bounds);
};

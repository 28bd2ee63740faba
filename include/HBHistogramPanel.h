// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelsExport.h"

#include <HBImage.h>
#include <HBSharedImage.h>
#include <HistogramWidget.h>

#include <QBrush>

/// What the panels over a histogram share. The view shows the panel's source image, or one of the host's choosing.
/// GUI thread.
class HB_PANELS_EXPORT HBHistogramPanel
{
public:
    /// Shows the histogram of this image instead of the source; see HistogramWidget::SetImage.
    void AttachQImage(HBSharedImage<QImage>* image);
    void AttachRGB32iImage(HBSharedImage<HBImage<>>* image);
    /// Counts the attached image again.
    void UpdateHistogramm();

    /// The histogram view's mask of a channel's index: 7 for 0, then 1, 2, 4; 7 for anything else.
    static int IndexToHistogrammChannel(int channel);

protected:
    HBHistogramPanel() = default;
    ~HBHistogramPanel() = default;
    HBHistogramPanel(const HBHistogramPanel&) = delete;
    HBHistogramPanel& operator=(const HBHistogramPanel&) = delete;

    /// Once, before anything else.
    void SetHistogram(HistogramWidget* view) { m_pHistogram = view; }
    void ShowSource(const HBImage<>& source);

    /// The strip beside an axis of levels: black at the left or at the bottom, white at the other end.
    static QBrush LevelStrip(Qt::Orientation orientation);

private:
    HistogramWidget* m_pHistogram = nullptr;
    HBSharedImage<HBImage<>> m_Source; ///< a copy, for the view
};

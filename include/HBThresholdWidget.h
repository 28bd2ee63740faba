// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"
#include "HBHistogramPanel.h"

#include <HBThreshold.h>

namespace Ui
{
class ThresholdWidget;
}

/// Threshold, over the histogram of the image.
class HB_PANELS_EXPORT HBThresholdWidget : public HBAdjustmentWidget, public HBHistogramPanel
{
    Q_OBJECT
public:
    using Params = HBThresholdParams;

    HBThresholdWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBThresholdWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of the controls' 1..255: 0 or less makes all white, more than 255
    /// all black. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnSourceChanged() { ShowSource(SourceImage()); }
    void OnLevelChanged(int level);
    void OnLevelChanged(uint control, int level);

private:
    struct ThresholdData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(ThresholdData job);

    std::unique_ptr<Ui::ThresholdWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBThresholdWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBThresholdWidget::Params& params);

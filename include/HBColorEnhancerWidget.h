// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBColorEnhancer.h>

namespace Ui
{
class ColorEnhancer;
}

/// Colour enhancer: contrast and colour stretched between the darkest and the lightest that the image has, for
/// each channel by itself or for all in common.
class HB_PANELS_EXPORT HBColorEnhancerWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBColorEnhancerParams;

    HBColorEnhancerWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBColorEnhancerWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range; the job takes the nearest value in it. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnAmountChanged(int amount) { Store(this, m_Params.amount, amount); }
    void OnAffectedChanged(int affected) { Store(this, m_Params.affected, affected); }
    void OnSourceChanged();

private:
    struct EnhancerData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(EnhancerData job);

    std::unique_ptr<Ui::ColorEnhancer> m_pUI;
    std::shared_ptr<HBColorThresholdCache> m_pCache; ///< shared with the running job
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBColorEnhancerWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBColorEnhancerWidget::Params& params);

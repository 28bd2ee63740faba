// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBBlackAndWhite.h>

namespace Ui
{
class BlackAndWhiteWidget;
}

/// Black and white: a weighted sum of the three colours, with fixed weights or the user's own.
class HB_PANELS_EXPORT HBBlackAndWhiteWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBBlackAndWhiteParams;

    HBBlackAndWhiteWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBBlackAndWhiteWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnAverage(bool checked) { SetType(checked, Params::Average); }
    void OnLuminance(bool checked) { SetType(checked, Params::Luminance); }
    void OnD65(bool checked) { SetType(checked, Params::D65); }
    void OnNTSC(bool checked) { SetType(checked, Params::NTSC); }
    void OnCIE(bool checked) { SetType(checked, Params::CIE); }
    void OnCustom(bool checked) { SetType(checked, Params::Custom); }
    void OnRedChanged(double weight) { SetWeight(m_Params.r, weight); }
    void OnGreenChanged(double weight) { SetWeight(m_Params.g, weight); }
    void OnBlueChanged(double weight) { SetWeight(m_Params.b, weight); }

private:
    struct BlackAndWhiteData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(BlackAndWhiteData job);
    void ShowWeights();
    void SetType(bool checked, Params::Type type);
    void SetWeight(float& weight, double value);

    std::unique_ptr<Ui::BlackAndWhiteWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBBlackAndWhiteWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBBlackAndWhiteWidget::Params& params);

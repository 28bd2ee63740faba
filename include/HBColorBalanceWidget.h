// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBColorBalance.h>

namespace Ui
{
class ColorBalanceParamWidget;
}

/// Colour balance: shifts between opposite colours, for the shadows, the midtones and the highlights by
/// themselves.
class HB_PANELS_EXPORT HBColorBalanceWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBColorBalanceParams;

    HBColorBalanceWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBColorBalanceWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnCRChanged(int value) { StoreValue(m_Params.cyanRed, value); }
    void OnMGChanged(int value) { StoreValue(m_Params.magentaGreen, value); }
    void OnYBChanged(int value) { StoreValue(m_Params.yellowBlue, value); }
    void OnShadowChanged(bool checked) { SetRange(checked, Params::Shadows); }
    void OnMidtoneChanged(bool checked) { SetRange(checked, Params::Midtones); }
    void OnHighLightChanged(bool checked) { SetRange(checked, Params::Highlights); }
    void OnLumChanged(bool checked) { Store(this, m_Params.preserveLuminosity, checked); }

private:
    struct CBData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(CBData job);
    void ShowRange();
    void CheckRange();
    void EnableValues(bool enable);
    void SetRange(bool checked, int toneRange);
    void StoreValue(qint32 (&axis)[3], int value);

    std::unique_ptr<Ui::ColorBalanceParamWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBColorBalanceWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBColorBalanceWidget::Params& params);

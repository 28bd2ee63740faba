// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"
#include "HBHistogramPanel.h"

#include <HBLevels.h>

namespace Ui
{
class LevelsWidget;
}

/// Levels, over the histogram of the image, with an automatic adjustment of the three channels.
class HB_PANELS_EXPORT HBLevelsWidget : public HBAdjustmentWidget, public HBHistogramPanel
{
    Q_OBJECT
public:
    using Params = HBLevelsParams;

    HBLevelsWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBLevelsWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, but for a channel outside 0..3, which becomes 0. Emits nothing and starts
    /// no job.
    void SetValue(const Params& params);

    /// See HBLevelsParams.
    static int MiddleValue(int low, int high, double gamma) { return Params::MiddleValue(low, high, gamma); }
    static double ToneValue(int low, int high, int position) { return Params::ToneValue(low, high, position); }

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnSourceChanged() { ShowSource(SourceImage()); }
    void OnChannelChanged(int channel);
    void OnInputChanged(uint control, int value);
    void OnLowInputChanged(int value);
    void OnMiddleInputChanged(double gamma);
    void OnHighInputChanged(int value);
    void OnOutputChanged(uint control, int value);
    void OnLowOutputChanged(int value) { StoreOutput(0, value); }
    void OnHighOutputChanged(int value) { StoreOutput(1, value); }
    void OnHistogrammComplete();
    void OnAutoAdjust();

private:
    struct LevelsData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(LevelsData job);
    void SetChannel(int channel);
    void MoveInputHandles(int low, int high, double gamma, const std::function<void()>& moveEnd);
    void StoreOutput(uint end, int value);

    std::unique_ptr<Ui::LevelsWidget> m_pUI;
    Params m_Params;
};

HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBLevelsWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBLevelsWidget::Params& params);

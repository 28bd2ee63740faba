// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <memory>

class HBConnectionSet;
class QDataStream;
class QLinearGradient;

namespace Ui
{
class HueSaturationParamWidget;
}

/// Hue, saturation and lightness, or the picture in one tone ("Colorize"). Reacts to the user from the first SetValue
/// on, not before.
class PANELS_EXPORT HBHueSaturationWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMHueSaturation 1.00000", then the fields in their order, colorize as 0 or 1. Written records
    /// exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 hue = 0;        ///< degrees to turn, or the hue itself if colorize; 0..359
        qint32 saturation = 0; ///< percent, -100..100; 0 does nothing
        qint32 lightness = 0;  ///< percent, -100..100; 0 does nothing
        bool colorize = false;

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBHueSaturationWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBHueSaturationWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, where the controls show and the job uses the nearest value they allow.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnHueChanged(int hue);
    void OnSaturationChanged(int saturation);
    void OnLightnessChanged(int lightness);
    void OnColorizeChanged(bool colorize);

private:
    struct HSData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(HSData job);
    void Connect();
    void Disconnect();
    void UpdateColorLabels();
    void UpdateHueGroove();
    void UpdateSaturationGroove();
    static QLinearGradient GetHue(int saturation, int lightness);
    static QLinearGradient GetSaturation(int hue, int lightness);

    std::unique_ptr<Ui::HueSaturationParamWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream; a failed read leaves the defaults.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBHueSaturationWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBHueSaturationWidget::Params& params);

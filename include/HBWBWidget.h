// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class WBWidget;
}

/// Picture correction: automatic white balance, or an over- or underexposed picture made right, each with a strength of
/// its own; and a shift of the colour temperature. Reacts to the user from the first SetValue on, not before.
class PANELS_EXPORT HBWBWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMWhiteBalance 1.00000", then the fields in their order. Written records exist: a new field
    /// needs a new tag.
    struct PANELS_EXPORT Params
    {
        bool enchanced = false;             ///< with an automatic stretch of the channels, in mode 0 only
        qint32 autoStrength = 50;           ///< of mode 0, percent
        qint32 overexposureStrength = 100;  ///< of mode 1, percent
        qint32 underexposureStrength = 100; ///< of mode 2, percent
        qint32 mode = 0;                    ///< 0 automatic, 1 overexposed, 2 underexposed
        bool useTemperature = false;
        qint32 temperature = 0;          ///< -100 (cooler) .. 100 (warmer)
        qint32 temperatureStrength = 50; ///< percent

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBWBWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBWBWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnWBStrengthChanged(int strength);
    void OnTemperature(int temperature);
    void OnTemperatureStrength(int strength);
    void OnOverexposure(bool checked);
    void OnUnderexposure(bool checked);
    void OnAuto(bool checked);
    void OnEnchanced(bool checked);
    void OnUseTemperature(bool checked);

private:
    struct WBData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(WBData job);
    void ApplyWhiteBalance(WBData& job);
    HBImage<> ApplyAutolevels(WBData& job);
    void Connect();
    void Disconnect();
    void SetMode(int mode);

    std::unique_ptr<Ui::WBWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    std::unique_ptr<HBConnectionSet> m_pStrengthLink; ///< of the strength slider, also in m_pConnections
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBWBWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBWBWidget::Params& params);

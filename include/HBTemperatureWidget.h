// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class TemperatureWidget;
}

/// Colour temperature: the picture as lit by light of that temperature, with a tint between green and magenta.
class PANELS_EXPORT HBTemperatureWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMTemperature 1.00000", then the fields in their order. Written records exist: a new field
    /// needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 temperature = 6500; ///< kelvin, 1000..40000; 6500 does nothing
        qint32 tint = 0;           ///< -100..100; 0 does nothing
        qint32 strength = 50;      ///< percent, 0..100

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBTemperatureWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBTemperatureWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. The control of the strength keeps showing what it showed.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnTemperatureChanged(int temperature);
    void OnTintChanged(int tint);
    void OnStrengthChanged(int strength);

private:
    struct TData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(TData job);
    void Connect();
    void Disconnect();

    std::unique_ptr<Ui::TemperatureWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBTemperatureWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBTemperatureWidget::Params& params);

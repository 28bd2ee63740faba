// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class BrightnessContrastParamWidget;
}

/// Brightness and contrast. The simplest complete panel: every other one is built like it.
class PANELS_EXPORT HBBrightnessContrastWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMBrightnessContrast 1.00000", then the fields in their order. Written records exist: a new
    /// field needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 brightness = 0; ///< levels to add, -127..127; 0 does nothing
        qint32 contrast = 0;   ///< -127..127; 0 does nothing

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBBrightnessContrastWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBBrightnessContrastWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, where the controls show and the job uses the nearest value they allow.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnBrightnessChanged(int value);
    void OnContrastChanged(int value);

private:
    struct BCData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(BCData job);
    void Connect();
    void Disconnect();

    std::unique_ptr<Ui::BrightnessContrastParamWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBBrightnessContrastWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBBrightnessContrastWidget::Params& params);

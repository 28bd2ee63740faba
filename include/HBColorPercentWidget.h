// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"
#include "HBColorPick.h"
#include "HBPanelJob.h"

#include <QAbstractButton>
#include <QSpinBox>

/// A panel of one colour, which the picture follows while it is being picked, and one percentage. The signal and
/// the slots are each panel's own: a template has no meta-object.
/// \tparam Panel has the signal ValueChanged() and the slot OnCurrentColorChanged(QColor)
/// \tparam Record has a `color` and the percentage
template <class Panel, class Record, qint32 Record::*Percent>
class HBColorPercentWidget : public HBAdjustmentWidget
{
public:
    using Params = Record;
    /// What the job works with.
    struct ColorizeData : HBJobData
    {
        Params params;
    };

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, where the controls show and the job uses the nearest percentage they
    /// allow. Emits nothing and starts no job.
    void SetValue(const Params& params)
    {
        const Mute mute(this);
        m_Params = params;
        HBShowColor(m_pButton, m_Params.color);
        m_pSpin->setValue(m_Params.*Percent);
    }

    void Reset() override
    {
        SetValue(Params());
        NotifyChanged(&Panel::ValueChanged);
    }
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override
    {
        HBStartJob(watcher, &Process, ColorizeData{JobData(), m_Params});
    }
    /// The job; any thread.
    static HBImage<> Process(ColorizeData job) { return HBRunJob(job, job.params); }

protected:
    using HBAdjustmentWidget::HBAdjustmentWidget;

    /// To be called once, by the constructor: shows the defaults in the form and listens to it.
    void SetControls(QAbstractButton* button, const char* buttonSlot, QSpinBox* spin, const char* spinSlot)
    {
        m_pButton = button;
        m_pSpin = spin;
        Listen(button, SIGNAL(clicked()), buttonSlot);
        Listen(spin, SIGNAL(valueChanged(int)), spinSlot);
        SetValue(Params());
    }
    void PickColor(const QString& title)
    {
        if (const auto left = HBPickColor(this, title, m_Params.color, SLOT(OnCurrentColorChanged(QColor))))
            StoreColor(*left);
    }
    void StoreColor(const QColor& color)
    {
        if (color == m_Params.color)
            return;
        HBShowColor(m_pButton, color);
        Store(static_cast<Panel*>(this), m_Params.color, color);
    }
    void StorePercent(int percent) { Store(static_cast<Panel*>(this), m_Params.*Percent, percent); }

private:
    QAbstractButton* m_pButton = nullptr;
    QSpinBox* m_pSpin = nullptr;
    Params m_Params;
};

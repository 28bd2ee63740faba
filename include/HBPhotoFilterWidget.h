// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"
#include "HBPanelJob.h"

#include <HBPhotoFilter.h>

namespace Ui
{
class PhotoFilterWidget;
}

/// Photo filter: a coloured gel before the lens, from a list of presets or freely chosen.
class HB_PANELS_EXPORT HBPhotoFilterWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBPhotoFilterParams;
    /// What the job works with.
    struct PhotoFilterData : HBJobData
    {
        Params params;
    };

    HBPhotoFilterWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBPhotoFilterWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range, where the controls show and the job uses the nearest density they allow.
    /// Emits nothing and starts no job.
    void SetValue(const Params& params);

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    /// The job; any thread.
    static HBImage<> Process(PhotoFilterData job);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnColor();
    void OnCurrentColorChanged(const QColor& color);
    void OnDensityChanged(int density) { Store(this, m_Params.density, density); }
    void OnPresetChanged(int index);

private:
    void FillPresets();
    void SetColor(const QColor& color);
    void UpdatePresetIndex(const QColor& color);
    void Change(const QColor& color, const QColor& preset);

    std::unique_ptr<Ui::PhotoFilterWidget> m_pUI;
    Params m_Params;
};

/// A failed read leaves the defaults.
HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBPhotoFilterWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBPhotoFilterWidget::Params& params);

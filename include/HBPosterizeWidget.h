// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

namespace Ui
{
class PosterizeParamWidget;
}

/// Posterize: the number of levels a channel keeps, held by its spin box. Has no stored record.
class HB_PANELS_EXPORT HBPosterizeWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    HBPosterizeWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBPosterizeWidget() override;

    /// 2..255.
    int GetPosterize() const;
    /// Clamped by the controls. Emits nothing and starts no job.
    void SetPosterize(int levels);

Q_SIGNALS:
    void PosterizeChanged();

public Q_SLOTS:
    void OnPosterizeChanged(int) { NotifyChanged(&HBPosterizeWidget::PosterizeChanged); }

private:
    struct PosterizeData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    static HBImage<> Process(PosterizeData job);

    std::unique_ptr<Ui::PosterizeParamWidget> m_pUI;
};

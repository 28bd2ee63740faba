// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"
#include "HBPanelJob.h"

#include <HBReplaceColor.h>

namespace Ui
{
class ReplaceColor;
}

/// Replace colour: the region of similar colour that touches a corner, a plain background for example, gets
/// another colour. The selection does not limit the fill.
class HB_PANELS_EXPORT HBReplaceColorWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    using Params = HBReplaceColorParams;
    using PositionType = Params::PositionType;
    static constexpr PositionType LeftTop = Params::LeftTop;
    static constexpr PositionType RightTop = Params::RightTop;
    static constexpr PositionType LeftBottom = Params::LeftBottom;
    static constexpr PositionType RightBottom = Params::RightBottom;

    struct RCData : HBJobData, HBColorReplacement
    {
    };

    HBReplaceColorWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBReplaceColorWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    /// The job; any thread.
    static HBImage<> Process(RCData job);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnSourceToleranceChanged(int tolerance) { Store(this, m_Params.tolerance, tolerance); }
    void OnSourcePosTypeChanged(int index) { Store(this, m_Params.position, GetPositionType(index)); }
    void OnDestinationColor();
    void OnCurrentColorChanged(const QColor& color);
    void OnDestinationOpacityChanged(int opacity) { Store(this, m_Params.opacity, opacity); }

private:
    void FillSourcePositions();
    int GetPositionIndex(PositionType position) const;
    PositionType GetPositionType(int index) const;
    void SetDestinationColor(const QColor& color);

    std::unique_ptr<Ui::ReplaceColor> m_pUI;
    Params m_Params;
};

/// A failed read leaves the defaults.
HB_PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBReplaceColorWidget::Params& params);
HB_PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBReplaceColorWidget::Params& params);

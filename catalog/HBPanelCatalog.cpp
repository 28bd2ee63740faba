// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelCatalog.h"

#include <HBBlackAndWhiteWidget.h>
#include <HBBrightnessContrastWidget.h>
#include <HBColorBalanceWidget.h>
#include <HBColorEnhancerWidget.h>
#include <HBColorizeWidget.h>
#include <HBCurvesWidget.h>
#include <HBExposure.h>
#include <HBExposureWidget.h>
#include <HBGammaCorrection.h>
#include <HBGammaCorrectionWidget.h>
#include <HBHueSaturationWidget.h>
#include <HBLevelsWidget.h>
#include <HBPhotoFilterWidget.h>
#include <HBPosterize.h>
#include <HBPosterizeWidget.h>
#include <HBReplaceColorWidget.h>
#include <HBSignWidget.h>
#include <HBTemperatureWidget.h>
#include <HBThresholdWidget.h>
#include <HBTintWidget.h>
#include <HBWatermarkWidget.h>
#include <HBWBWidget.h>
#include <KMFillColorWidget.h>

#include <type_traits>

namespace
{

template <class Panel>
HBAdjustmentWidget* Create(bool dialog, QWidget* parent)
{
    if constexpr (std::is_constructible_v<Panel, bool, QWidget*, Qt::WindowFlags>)
        return new Panel(dialog, parent, Qt::WindowFlags());
    else
        return new Panel(parent, Qt::WindowFlags());
}

/// Some panels react to the user only after their first SetValue.
template <class Panel>
HBAdjustmentWidget* CreateWithValue(bool dialog, QWidget* parent)
{
    auto* panel = new Panel(dialog, parent, Qt::WindowFlags());
    panel->SetValue(panel->GetValue());
    return panel;
}

template <class Panel>
HBPanelEntry Row()
{
    HBPanelEntry row{};
    row.className = Panel::staticMetaObject.className();
    row.adjustment = HBFindAdjustment(QString::fromLatin1(row.className));
    if (!row.adjustment)
        qFatal("%s has no row in HBAdjustmentTable.cpp", row.className);
    row.tag = row.adjustment->tag;
    row.group = row.adjustment->group;
    row.title = row.adjustment->title;
    row.create = &Create<Panel>;
    return row;
}

/// A panel whose values are its record `Params`.
template <class Panel>
HBPanelEntry RecordRow()
{
    using Params = typename Panel::Params;
    HBPanelEntry row = Row<Panel>();
    row.get = [](const HBAdjustmentWidget& panel) {
        return std::any(static_cast<const Panel&>(panel).GetValue());
    };
    row.set = [](HBAdjustmentWidget& panel, const std::any& record) {
        static_cast<Panel&>(panel).SetValue(std::any_cast<const Params&>(record));
    };
    return row;
}

template <class Panel>
HBPanelEntry JobRow()
{
    HBPanelEntry row = RecordRow<Panel>();
    row.create = &CreateWithValue<Panel>;
    return row;
}

/// A panel that only describes an overlay.
template <class Panel>
HBPanelEntry OverlayRow()
{
    HBPanelEntry row = RecordRow<Panel>();
    row.draw = [](const HBAdjustmentWidget& panel) -> HBOverlayDrawing {
        return [params = static_cast<const Panel&>(panel).GetValue()](const HBImage<>& source, QString* error) {
            const HBOutcome drawn = HBAdjust(params, {source, {}, {}, {}});
            *error = HBFailureReason(drawn);
            return drawn.IsWhole() ? drawn.image : source;
        };
    };
    return row;
}

/// Some setters land on the step beside a negative value the first time, and stay on it the second.
template <class Panel, class Number>
void SetExactly(HBAdjustmentWidget& panel, Number (Panel::*get)() const, void (Panel::*set)(Number), Number number)
{
    auto& target = static_cast<Panel&>(panel);
    for (int attempt = 0; attempt < 2 && (target.*get)() != number; ++attempt)
        (target.*set)(number);
}

HBPanelEntry GammaRow()
{
    using Panel = HBGammaCorrectionWidget;
    HBPanelEntry row = Row<Panel>();
    row.get = [](const HBAdjustmentWidget& panel) {
        return std::any(HBGammaCorrectionParams{static_cast<const Panel&>(panel).GetGamma()});
    };
    row.set = [](HBAdjustmentWidget& panel, const std::any& record) {
        const auto& params = std::any_cast<const HBGammaCorrectionParams&>(record);
        SetExactly(panel, &Panel::GetGamma, &Panel::SetGamma, params.gamma);
    };
    return row;
}

HBPanelEntry ExposureRow()
{
    using Panel = HBExposureWidget;
    HBPanelEntry row = Row<Panel>();
    row.get = [](const HBAdjustmentWidget& panel) {
        const auto& source = static_cast<const Panel&>(panel);
        return std::any(HBExposureParams{source.GetExposure(), source.GetOffset()});
    };
    row.set = [](HBAdjustmentWidget& panel, const std::any& record) {
        const auto& params = std::any_cast<const HBExposureParams&>(record);
        SetExactly(panel, &Panel::GetExposure, &Panel::SetExposure, params.exposure);
        SetExactly(panel, &Panel::GetOffset, &Panel::SetOffset, params.offset);
    };
    return row;
}

HBPanelEntry PosterizeRow()
{
    using Panel = HBPosterizeWidget;
    HBPanelEntry row = Row<Panel>();
    row.get = [](const HBAdjustmentWidget& panel) {
        return std::any(HBPosterizeParams{static_cast<const Panel&>(panel).GetPosterize()});
    };
    row.set = [](HBAdjustmentWidget& panel, const std::any& record) {
        const auto& params = std::any_cast<const HBPosterizeParams&>(record);
        SetExactly(panel, &Panel::GetPosterize, &Panel::SetPosterize, int(params.levels));
    };
    return row;
}

} // namespace

const QVector<HBPanelEntry>& HBPanelCatalog()
{
    static const QVector<HBPanelEntry> catalog = {
        JobRow<HBBrightnessContrastWidget>(),
        ExposureRow(),
        GammaRow(),
        PosterizeRow(),
        JobRow<HBLevelsWidget>(),
        JobRow<HBCurvesWidget>(),
        JobRow<HBThresholdWidget>(),
        JobRow<HBHueSaturationWidget>(),
        JobRow<HBColorBalanceWidget>(),
        JobRow<HBWBWidget>(),
        JobRow<HBTemperatureWidget>(),
        JobRow<HBColorEnhancerWidget>(),
        JobRow<HBTintWidget>(),
        JobRow<HBBlackAndWhiteWidget>(),
        JobRow<HBPhotoFilterWidget>(),
        JobRow<HBColorizeWidget>(),
        JobRow<HBReplaceColorWidget>(),
        JobRow<KMFillColorWidget>(),
        OverlayRow<HBSignWidget>(),
        OverlayRow<HBWatermarkWidget>(),
    };
    return catalog;
}

const HBPanelEntry* HBFindPanel(const QString& className)
{
    for (const HBPanelEntry& entry : HBPanelCatalog()) {
        if (className == QLatin1String(entry.className))
            return &entry;
    }
    return nullptr;
}

bool HBPanelEntry::restore(HBAdjustmentWidget& panel, const QJsonObject& values, QString* reason) const
{
    std::any record;
    if (!adjustment->restore(values, &record, reason))
        return false;
    set(panel, record);
    return true;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelCatalog.h"

#include "HBPanelRow.h"

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

#include <deque>

namespace
{

/// What programs have registered; a deque, so that a row stays where it is.
std::deque<HBPanelEntry>& OwnPanels()
{
    static std::deque<HBPanelEntry> panels;
    return panels;
}

/// The adjustment of a panel of ours.
template <class Panel>
const HBAdjustment& Adjustment()
{
    const char* name = Panel::staticMetaObject.className();
    const HBAdjustment* adjustment = HBFindAdjustment(QString::fromLatin1(name));
    if (!adjustment)
        qFatal("%s has no row in HBAdjustmentTable.cpp", name);
    return *adjustment;
}

template <class Panel>
HBPanelEntry JobRow()
{
    return HBPanelRow<Panel>(Adjustment<Panel>());
}

/// A panel that only describes an overlay.
template <class Panel>
HBPanelEntry OverlayRow()
{
    HBPanelEntry row = HBPanelRow<Panel>(Adjustment<Panel>());
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
    HBPanelEntry row = HBBarePanelRow<Panel>(Adjustment<Panel>());
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
    HBPanelEntry row = HBBarePanelRow<Panel>(Adjustment<Panel>());
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
    HBPanelEntry row = HBBarePanelRow<Panel>(Adjustment<Panel>());
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
    for (const HBPanelEntry& entry : OwnPanels()) {
        if (className == QLatin1String(entry.className))
            return &entry;
    }
    return nullptr;
}

bool HBRegisterPanel(const HBPanelEntry& entry)
{
    if (HBFindPanel(QString::fromLatin1(entry.className)) || !HBRegisterAdjustment(*entry.adjustment))
        return false;
    OwnPanels().push_back(entry);
    return true;
}

QVector<const HBPanelEntry*> HBAllPanels()
{
    QVector<const HBPanelEntry*> all;
    for (const HBPanelEntry& entry : HBPanelCatalog())
        all.append(&entry);
    for (const HBPanelEntry& entry : OwnPanels())
        all.append(&entry);
    return all;
}

bool HBPanelEntry::restore(HBAdjustmentWidget& panel, const QJsonObject& values, QString* reason) const
{
    std::any record;
    if (!adjustment->restore(values, &record, reason))
        return false;
    set(panel, record);
    return true;
}

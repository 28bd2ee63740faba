// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelCatalog.h"

#include <HBAdjustmentWidget.h>

#include <type_traits>

/// The row of a panel of any adjustment, but for `get` and `set`.
template <class Panel>
HBPanelEntry HBBarePanelRow(const HBAdjustment& adjustment)
{
    HBPanelEntry row{};
    row.adjustment = &adjustment;
    row.className = adjustment.className;
    row.tag = adjustment.tag;
    row.group = adjustment.group;
    row.title = adjustment.title;
    row.create = [](bool dialog, QWidget* parent) -> HBAdjustmentWidget* {
        if constexpr (std::is_constructible_v<Panel, bool, QWidget*, Qt::WindowFlags>)
            return new Panel(dialog, parent, Qt::WindowFlags());
        else
            return new Panel(parent, Qt::WindowFlags());
    };
    return row;
}

/// The row of a panel whose values are its record, for HBRegisterPanel. The panel has the type `Params` (the
/// adjustment's record), `Params GetValue() const`, `void SetValue(const Params&)`, and a constructor as
/// HBAdjustmentWidget has. The adjustment must live as long as the program; HBRecordRow makes one.
template <class Panel>
HBPanelEntry HBPanelRow(const HBAdjustment& adjustment)
{
    using Params = typename Panel::Params;
    HBPanelEntry row = HBBarePanelRow<Panel>(adjustment);
    row.get = [](const HBAdjustmentWidget& panel) {
        return std::any(Params(static_cast<const Panel&>(panel).GetValue()));
    };
    row.set = [](HBAdjustmentWidget& panel, const std::any& record) {
        static_cast<Panel&>(panel).SetValue(std::any_cast<const Params&>(record));
    };
    if constexpr (std::is_constructible_v<Panel, bool, QWidget*, Qt::WindowFlags>) {
        // Some panels react to the user only after their first SetValue.
        row.create = [](bool dialog, QWidget* parent) -> HBAdjustmentWidget* {
            auto* panel = new Panel(dialog, parent, Qt::WindowFlags());
            panel->SetValue(panel->GetValue());
            return panel;
        };
    }
    return row;
}

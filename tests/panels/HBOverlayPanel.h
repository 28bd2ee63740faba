// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The panel of an overlay, created as the shared checks create panels. It has no frame, whatever they ask for.
template <class Overlay>
class HBOverlayPanel : public Overlay {
public:
    HBOverlayPanel(bool, QWidget* parent, Qt::WindowFlags flags) : Overlay(parent, flags) {}
};

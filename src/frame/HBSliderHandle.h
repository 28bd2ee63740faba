// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSlider>

/// Gives a slider with a coloured groove its handle back, in the palette's colours: a style sheet that describes
/// the groove leaves no handle but one that it describes too. Call it after each SetGrooveGradient, which replaces
/// the whole sheet. On the slider itself, so that the panel's style sheet is the host's to set.
inline void HBStyleHandle(QSlider* slider)
{
    slider->setStyleSheet(slider->styleSheet() +
                          "QSlider::handle:horizontal{background: palette(button);border: 1px solid "
                          "palette(button-text);border-radius: 3px;width: 8px;margin: -5px 0;}"
                          "QSlider::handle:horizontal:focus{background: palette(highlight);border-color: "
                          "palette(highlight);}");
}

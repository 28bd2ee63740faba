// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPainter>

/// How an overlay is laid on a picture.
struct HBComposition
{
    /// What the vectors of any instruction set divide: count must be a multiple of it.
    static constexpr int Step = 16;

    QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver;
    float opacity = 1;          ///< 0..1
    bool premultiplied = false; ///< what is laid over; the picture never is

    /// From the numbers of a record: those of the list of modes, any other one is source over; percent, clamped,
    /// in the steps in which QPainter takes an opacity.
    static HBComposition Of(unsigned mode, int percent);

    /// Lays pixels over others as QPainter does on QImage::Format_ARGB32, within one level.
    /// Where `above` is transparent, `pixels` keeps its bytes.
    /// Formulas: W3C, Compositing and Blending Level 1; for addition, its operator plus-lighter.
    void Run(QRgb* pixels, const QRgb* above, int count) const;
};

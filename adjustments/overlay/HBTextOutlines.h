// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QString>
#include <QVector>

/// The outlines of a text, made once, to be filled at any size, in parts and on any thread.
class HBTextOutlines
{
public:
    /// Pixels of the font that the outlines are made with; their size on the picture is a matter of the transform.
    static constexpr int FontPixels = 256;
    /// What is longer is cut: no watermark is, and a record may hold anything.
    static constexpr int MaximumLength = 4096;

    /// Lines are split at line feeds and centred. Empty if the text is blank.
    /// \throws HBAdjustmentError, with the font, if the font is not installed or has no outlines for the text, or
    /// if there
    ///         is no QGuiApplication
    static HBTextOutlines Make(const QString& text, const QFont& font);

    bool IsEmpty() const { return m_Parts.isEmpty(); }
    /// The corners of all boxes: what is around them is around the text, however it is turned.
    const QPolygonF& Corners() const { return m_Corners; }
    QRectF Box() const { return m_Corners.boundingRect(); }

    /// Fills what lies in `window`, in the outlines' own coordinates, which the painter maps. What is outside may
    /// be missing.
    void Fill(QPainter& painter, const QRectF& window) const;

private:
    /// A closed line. One that does not touch a window has no part in what is filled there.
    struct Part
    {
        QPainterPath path;
        QRectF box;
    };
    void Add(const QPainterPath& path);

    QVector<Part> m_Parts;
    QPolygonF m_Corners;
};

/// The size of a font in units of the overlays: its pixels, or its points at 96 to the inch, 1..1000; that of 12
/// points for a size that is none (0, negative, not a number).
double HBFontUnits(const QFont& font);

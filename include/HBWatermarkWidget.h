// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class WatermarkWidget;
}

/// Watermark: a text laid over the photo, once or in rows. The panel only edits the values: it has no job, and the host
/// draws the text from GetValue().
class PANELS_EXPORT HBWatermarkWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMWatermark 1.00000", then angle, margins, text, font, colour, mode, opacity and the tiles, which
    /// is not the order of the fields here. Written records exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 angle = 0; ///< degrees, -179..180
        QFont font;
        QString text;
        /// Four margins, 0..999, in its four corner values: not a rectangle, never take its width.
        QRect margins = QRect(QPoint(5, 5), QPoint(5, 5));
        QColor color = Qt::white;
        qint32 blendingMode = 0;    ///< a QPainter::CompositionMode; one that is not in the list shows as "Normal"
        qint32 opacity = 100;       ///< percent, 0..100
        qint32 horizontalTiles = 1; ///< copies across, 1..9
        qint32 verticalTiles = 1;   ///< copies down, 1..9

        /// Needs a QApplication: the font and the text are its default font and its language's "Watermark".
        Params();
        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBWatermarkWidget(QWidget* parent, Qt::WindowFlags flags);
    ~HBWatermarkWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range. Emits nothing.
    void SetValue(const Params& params);

    void Reset() override;
    /// Does nothing: there is no job.
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnAnglechanged(int angle); // spelt so on purpose
    void OnTextChanged(const QString& text);
    void OnLeftMarginChanged(int margin);
    void OnRightMarginChanged(int margin);
    void OnTopMarginChanged(int margin);
    void OnBottomMarginChanged(int margin);
    void OnSelectFont();
    void OnOpacityChanged(int opacity);
    void OnBlendingModeChanged(int index);
    void OnHrzTilesChanged(int tiles);
    void OnVrtTilesChanged(int tiles);
    void OnSelectColor();

private:
    void Connect();
    void Disconnect();
    void SetColor(const QColor& color);
    unsigned BlendingIndexToMode(int index) const;
    int BlendingModeToIndex(unsigned mode) const;

    std::unique_ptr<Ui::WatermarkWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream; a failed read leaves the defaults.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBWatermarkWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBWatermarkWidget::Params& params);

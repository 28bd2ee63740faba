// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <QColor>

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class ReplaceColor;
}

/// Replace colour: the region of similar colour that touches a corner, a plain background for example, gets another
/// colour. The selection does not limit the fill.
class PANELS_EXPORT HBReplaceColorWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// The corner where the region begins. Stored: the numbers never change.
    enum PositionType : int { LeftTop = 0, RightTop = 1, LeftBottom = 2, RightBottom = 3 };

    struct RCData;

    /// Stored form: tag "KMReplaceColor 1.00000", then the fields in their order. Written records exist: a new field
    /// needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 tolerance = 0; ///< greatest difference per channel from the corner, 0..255
        PositionType position = LeftTop;
        QColor color = QColor(255, 255, 255);
        qint32 opacity = 100; ///< percent, 0..100; 0 does nothing

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBReplaceColorWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBReplaceColorWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    /// The job; on a thread of the pool.
    HBImage<> Process(RCData job);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnSourceToleranceChanged(int tolerance);
    void OnSourcePosTypeChanged(int index);
    void OnDestinationColor();
    void OnCurrentColorChanged(const QColor& color);
    void OnDestinationOpacityChanged(int opacity);

private:
    void Connect();
    void Disconnect();
    void FillSourcePositions();
    int GetPositionIndex(PositionType position) const;
    PositionType GetPositionType(int index) const;
    void SetDestinationColor(const QColor& color);

    std::unique_ptr<Ui::ReplaceColor> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream; a failed read leaves the defaults.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBReplaceColorWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBReplaceColorWidget::Params& params);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <QRect>
#include <QString>
#include <QStringList>

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class SignWidget;
}

/// Sign: a picture, a signature or a logo, stamped onto the photo. The panel only edits the values: it has no job, and
/// the host draws the stamp from GetValue().
class PANELS_EXPORT HBSignWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMSign 1.00000", then alignment, margins, file name, mode and opacity, which is not the order of
    /// the fields here. Written records exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignTop; ///< one horizontal and one vertical flag
        QString fileName;                                       ///< of the stamp; null until one is chosen
        /// Four margins, 0..999, in its four corner values: not a rectangle, never take its width.
        QRect margins = QRect(QPoint(5, 5), QPoint(5, 5));
        quint32 blendingMode = 0; ///< a QPainter::CompositionMode; one that is not in the list shows as "Normal"
        qint32 opacity = 100;     ///< percent, 0..100

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBSignWidget(QWidget* parent, Qt::WindowFlags flags);
    ~HBSignWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range. Emits nothing.
    void SetValue(const Params& params);

    void Reset() override;
    /// Does nothing: there is no job.
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnHorizontalAlignmentChanged(int index);
    void OnVerticalAlignmentChanged(int index);
    void OnLeftMarginChanged(int margin);
    void OnRightMarginChanged(int margin);
    void OnTopMarginChanged(int margin);
    void OnBottomMarginChanged(int margin);
    void OnSelectFileName();
    void OnOpacityChanged(int opacity);
    void OnBlendingModeChanged(int index);

private:
    void Connect();
    void Disconnect();
    QStringList GetOpenFileNames();
    void SetHorizontalAlignment(Qt::Alignment alignment);
    void SetVerticalAlignment(Qt::Alignment alignment);
    unsigned BlendingIndexToMode(int index) const;
    int BlendingModeToIndex(unsigned mode) const;

    std::unique_ptr<Ui::SignWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream; a failed read leaves the defaults.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBSignWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBSignWidget::Params& params);

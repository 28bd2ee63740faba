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
class TintWidget;
}

/// Tint: the brightness of a pixel on a ramp between two colours, mixed with the picture.
class PANELS_EXPORT HBTintWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// How the brightness is measured. Stored: the numbers never change.
    enum Type : int { Average = 0, NTSC = 1, LUMA = 2, RGB = 3 };

    /// Stored form: tag "KMTint 1.00000", then the fields in their order. Written records exist: a new field needs a new
    /// tag.
    struct PANELS_EXPORT Params
    {
        QColor blackTone = QColor(5, 6, 8);       ///< in place of black
        QColor whiteTone = QColor(170, 209, 255); ///< in place of white
        qint32 amount = 75;                       ///< percent, 0..100; 0 does nothing
        Type type = Average;

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBTintWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBTintWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range; a type that does not exist leaves the picture as it is. Emits
    /// nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnBlackTone();
    void OnWhiteTone();
    void OnCurrentBlackToneChanged(const QColor& tone);
    void OnCurrentWhiteToneChanged(const QColor& tone);
    void OnAmountChanged(int amount);
    void OnTypeChanged(int type);

private:
    struct TintData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(TintData job);
    void Connect();
    void Disconnect();
    void FillTintTypes();
    void SetBlackTone(const QColor& tone);
    void SetWhiteTone(const QColor& tone);
    static int IndexByType(Type type);

    std::unique_ptr<Ui::TintWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBTintWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBTintWidget::Params& params);

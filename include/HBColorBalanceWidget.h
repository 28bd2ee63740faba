// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class ColorBalanceParamWidget;
}

/// Colour balance: shifts between opposite colours, for the shadows, the midtones and the highlights by themselves.
class PANELS_EXPORT HBColorBalanceWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Index of a range in the three axes: 0 shadows, 1 midtones, 2 highlights.
    /// Stored form: tag "KMColorBalance 1.00000", then preserveLuminosity, toneRange and the axes, which is not the
    /// order of the fields here. Written records exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 cyanRed[3] = {0, 0, 0};      ///< -100 (cyan) .. 100 (red); 0 does nothing
        qint32 magentaGreen[3] = {0, 0, 0}; ///< -100 (magenta) .. 100 (green); 0 does nothing
        qint32 yellowBlue[3] = {0, 0, 0};   ///< -100 (yellow) .. 100 (blue); 0 does nothing
        qint32 toneRange = 2; ///< shown for editing: 1 shadows, 2 midtones, 3 highlights; 0 none; changes no pixel
        bool preserveLuminosity = true; ///< stored for later use; changes no pixel

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBColorBalanceWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBColorBalanceWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnCRChanged(int value);
    void OnMGChanged(int value);
    void OnYBChanged(int value);
    void OnShadowChanged(bool checked);
    void OnMidtoneChanged(bool checked);
    void OnHighLightChanged(bool checked);
    void OnLumChanged(bool checked);

private:
    struct CBData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(CBData job);
    void Connect();
    void Disconnect();
    void ShowRange();
    void CheckRange();
    void EnableValues(bool enable);
    void SetRange(int toneRange);
    void StoreValue(qint32 (&axis)[3], int value);

    std::unique_ptr<Ui::ColorBalanceParamWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBColorBalanceWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBColorBalanceWidget::Params& params);

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
class BlackAndWhiteWidget;
}

/// Black and white: a weighted sum of the three colours, with fixed weights or the user's own.
class PANELS_EXPORT HBBlackAndWhiteWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMBlackAndWhite 1.00000", then type, r, g, b, the weights in the stream's own floating-point
    /// precision. The older tag "KMDesaturate 1.00000" is read too. Written records exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        float r = 0.333f; ///< the user's own weights, 0..1; their sum need not be 1
        float g = 0.333f;
        float b = 0.333f;
        qint32 type = 0; ///< 0 average, 1 luminance, 2 D65, 3 NTSC, 4 CIE; anything else: the user's own

        bool IsCustom() const { return type < 0 || type > 4; }
        /// The weights that the type stands for.
        float GetR() const;
        float GetG() const;
        float GetB() const;

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBBlackAndWhiteWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBBlackAndWhiteWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

public Q_SLOTS:
    void OnAverage(bool checked);
    void OnLuminance(bool checked);
    void OnD65(bool checked);
    void OnNTSC(bool checked);
    void OnCIE(bool checked);
    void OnCustom(bool checked);
    void OnRedChanged(double weight);
    void OnGreenChanged(double weight);
    void OnBlueChanged(double weight);

private:
    struct BlackAndWhiteData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(BlackAndWhiteData job);
    void Connect();
    void Disconnect();
    void ShowWeights();
    void SetType(int type);
    void SetWeight(float& weight, double value);

    std::unique_ptr<Ui::BlackAndWhiteWidget> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBBlackAndWhiteWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBBlackAndWhiteWidget::Params& params);

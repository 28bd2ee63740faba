// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <memory>

class HBConnectionSet;
class QDataStream;

namespace Ui
{
class ColorEnhancer;
}

/// Colour enhancer: contrast and colour stretched between the darkest and the lightest that the image has, for each
/// channel by itself or for all in common.
class PANELS_EXPORT HBColorEnhancerWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMColorEnhancer 1.00000", then the fields in their order. Written records exist: a new field
    /// needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 amount = 100;   ///< percent, 0..100; 0 does nothing
        qint32 affected = 100; ///< share of each channel's own range, percent: 0 common to all, 100 each its own

        /// False if the tag does not match (nothing is changed) or the stream ends early (what was read is changed).
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBColorEnhancerWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBColorEnhancerWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept as it is, also out of range; the job takes the nearest value in it. Emits nothing and starts no job.
    void SetValue(const Params& params);

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnAmountChanged(int amount);
    void OnAffectedChanged(int affected);
    void OnSourceChanged();

private:
    struct EnhancerData;
    struct Thresholds;
    struct Cache;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(EnhancerData job);
    Thresholds SourceThresholds(const HBImage<>& source);
    void Connect();
    void Disconnect();

    std::unique_ptr<Ui::ColorEnhancer> m_pUI;
    std::unique_ptr<HBConnectionSet> m_pConnections;
    std::unique_ptr<Cache> m_pCache;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBColorEnhancerWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBColorEnhancerWidget::Params& params);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBAdjustmentWidget.h"

#include <HBSharedImage.h>

#include <memory>

class HBHistogramFeed;
class QDataStream;

namespace Ui
{
class ThresholdWidget;
}

/// Threshold: pixels darker than a level become black, all others white.
class PANELS_EXPORT HBThresholdWidget : public HBAdjustmentWidget
{
    Q_OBJECT
public:
    /// Stored form: tag "KMThreshold 1.00000", then the level. Written records exist: a new field needs a new tag.
    struct PANELS_EXPORT Params
    {
        qint32 level = 128; ///< luminance from which a pixel is white; 1..255 in the controls, any int in a record

        /// False if the tag does not match (nothing is changed) or the stream ends early.
        bool Read(QDataStream& stream);
        bool Write(QDataStream& stream) const;
    };

    HBThresholdWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBThresholdWidget() override;

    Params GetValue() const { return m_Params; }
    /// Kept, and processed, as it is, also out of range: 0 or less makes all white, more than 255 all black. Emits
    /// nothing and starts no job.
    void SetValue(const Params& params);

    /// Shows the histogram of an image of the host's choosing instead of the source; see HistogramWidget::SetImage.
    void AttachQImage(HBSharedImage<QImage>* image);
    void AttachRGB32iImage(HBSharedImage<HBImage<>>* image);
    /// Counts the attached image again.
    void UpdateHistogramm();

Q_SIGNALS:
    void ValueChanged();

private Q_SLOTS:
    void OnSourceChanged();
    void OnLevelChanged(int level);
    void OnLevelChanged(uint control, int level);

private:
    struct ThresholdData;

    void Reset() override;
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    HBImage<> Process(ThresholdData job);
    void Connect();
    void Disconnect();

    std::unique_ptr<Ui::ThresholdWidget> m_pUI;
    std::unique_ptr<HBHistogramFeed> m_pFeed;
    Params m_Params;
};

/// Both log one line on failure and return the stream.
PANELS_EXPORT QDataStream& operator<<(QDataStream& stream, const HBThresholdWidget::Params& params);
PANELS_EXPORT QDataStream& operator>>(QDataStream& stream, HBThresholdWidget::Params& params);

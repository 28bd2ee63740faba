// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBAdjustment.h>
#include <HBPanelJob.h>

#include <QFutureWatcher>
#include <QObject>

#include <functional>

/// The job of a panel that has none because it only describes its adjustment. Asked and answering as
/// HBAdjustmentWidget is; one job at a time. GUI thread only; destroying it waits for the end of a tile.
class HBOverlayJob : public QObject
{
    Q_OBJECT
public:
    /// \param record the panel's present one
    HBOverlayJob(const HBAdjustment& adjustment, std::function<std::any()> record, QObject* parent = nullptr);
    ~HBOverlayJob() override;

    void SetImage(const HBImage<>& source);
    /// As HBRecipeStep::amount; before the first image.
    void SetAmount(int amount) { m_Amount = amount; }
    bool IsProcessing() const { return m_pControl != nullptr; }
    /// Also if the record has changed without a word.
    bool HasPendingChange() const;
    void ProcessNow();
    void SetCancelProcessing(bool cancel);
    HBImage<> AdjustedImage() const { return m_Adjusted; }
    /// Of the last job; empty if it has not failed.
    QString FailureReason() const { return m_FailureReason; }

Q_SIGNALS:
    /// A job has its image or has failed.
    void ImageReady();
    void Ended();
    void RangeChanged(int minimum, int maximum);
    void ProgressChanged(int value);

private:
    QJsonObject Stored() const { return m_Adjustment.save(m_Record()); }
    void Start();
    void GiveUp();
    void TellProgress();
    void Finish();

    const HBAdjustment& m_Adjustment;
    const std::function<std::any()> m_Record;
    QFutureWatcher<HBOutcome> m_Watcher;
    std::shared_ptr<HBPanelJobControl> m_pControl; ///< of the job that runs
    HBImage<> m_Source;
    HBImage<> m_Adjusted;
    QString m_FailureReason;
    QJsonObject m_Begun; ///< the record that the last job knows
    int m_Amount = 100;
    bool m_NewSource = false; ///< and it does not know the source
    bool m_Done = false;      ///< it is in the adjusted image
    bool m_Cancel = false;
    bool m_Restart = false;
};

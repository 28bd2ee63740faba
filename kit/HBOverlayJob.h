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
    /// The record has changed.
    void Touch() { ++m_Changes; }
    bool IsProcessing() const { return m_pControl != nullptr; }
    bool HasPendingChange() const { return !m_Source.IsEmpty() && m_Done != m_Changes; }
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
    void Start();
    void GiveUp();
    void Finish();

    const HBAdjustment& m_Adjustment;
    const std::function<std::any()> m_Record;
    QFutureWatcher<HBOutcome> m_Watcher;
    std::shared_ptr<HBPanelJobControl> m_pControl; ///< of the job that runs
    HBImage<> m_Source;
    HBImage<> m_Adjusted;
    QString m_FailureReason;
    // Changes are counted: all, those that the last job knows, and those in the adjusted image.
    quint64 m_Changes = 0;
    quint64 m_Begun = 0;
    quint64 m_Done = 0;
    bool m_Cancel = false;
    bool m_Restart = false;
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelsExport.h"

#include <HBImage.h>
#include <KMAdjustmentWidget.h>

#include <QFutureWatcher>
#include <QPoint>
#include <QPointer>
#include <QReadWriteLock>
#include <QRect>
#include <QTimer>

#include <memory>

class HBOperationProgressDlg;
class HBPanelJobControl;
class HBPanelLinks;
class KMDocumentView;
class QLinearGradient;
class QSlider;
struct HBJobData;

namespace Ui
{
class AdjustmentDialogBase;
}

/// Base of every adjustment panel: takes an image from the host, recomputes an adjusted copy in the background
/// when a value changes, reports progress, and tells the host when a new image is ready and what the user decided.
///
/// Everything here is called, and every signal is emitted, on the GUI thread. The host's order: construct,
/// SetValue (of the panel), SetImage, user edits, WaitForProcessingFinished, AdjustedImage, destroy. The panel may
/// be destroyed at any time, also while a job runs or its progress dialog is open; from a slot of its own signals,
/// by deleteLater().
///
/// At most one job runs. What makes its result worthless (a new value, a new image, a cancel) marks it obsolete:
/// it stops at its next tile, its result is dropped, and OnProcessingFinished starts the next job unless
/// cancelled.
class HB_PANELS_EXPORT HBAdjustmentWidget : public KMAdjustmentWidget
{
    Q_OBJECT
public:
    /// \param dialog true: with a frame of its own (progress bar, OK / Cancel / Reset), and every change of a
    ///        value starts a job 50 ms later; false: the controls alone, and only SetImage starts jobs.
    HBAdjustmentWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags);
    ~HBAdjustmentWidget() override;

    /// Hands over the image to adjust and starts a job, whatever the mode.
    /// \param selection coverage mask: the alpha of its pixels; empty when nothing is selected
    /// \param selectionOffset where the mask lies on the source
    /// \param selectionBoundingRect in pixels of the mask; a valid one is what "there is a selection" means
    void SetImage(const HBImage<>& source, const HBImage<>& selection, const QPoint& selectionOffset,
                  const QRect& selectionBoundingRect);
    HBImage<> SourceImage() const { return m_Source; }
    /// The latest result; empty before the first ImageReady().
    HBImage<> AdjustedImage() const { return m_Adjusted; }
    /// Whether a job runs.
    bool IsProcessing() const { return m_Processing; }
    /// Whether the job that made the adjusted image threw, for want of memory for example: part of it is not
    /// adjusted then. A program that stores results must ask.
    bool HasJobFailed() const;
    /// Whether AdjustedImage() lacks something: a change younger than 50 ms, values set behind the last SetImage,
    /// a job that runs, was cancelled or has failed. False without an image.
    bool HasPendingChange() const;
    /// Begins to work in what HasPendingChange() says, now and in either mode, unless the running job knows it
    /// already or jobs are cancelled. A job that does not know it becomes obsolete. To have the final result, call
    /// this and then WaitForProcessingFinished.
    void ProcessNow();
    /// Empties both images, clears the cancel flag and resets the controls. A job that runs is left alone: its
    /// image still arrives, with ImageReady().
    void ClearData();

    /// Asks for the final result. True: nothing to wait for (a change that has not started its job is not
    /// waited for, see ProcessNow), or a wait is on already. False: Finished(int) will be emitted; if the job
    /// outlasts the host's progress timeout, a modal progress dialog is shown meanwhile.
    /// \param cancel also give the running job up
    bool WaitForProcessingFinished(bool cancel);
    /// While set, no job starts; setting it makes a running job obsolete. Clearing it starts nothing.
    void SetCancelProcessing(bool cancel);
    bool IsCancelProcessing() const { return m_Cancel; }

    /// The document the photo is shown in, for panels that pick from it.
    virtual void SetView(KMDocumentView* view);

public Q_SLOTS:
    void OnReset();

Q_SIGNALS:
    void Ok();
    void Cancel();
    /// AdjustedImage() is new.
    void ImageReady();
    /// A wait has ended: 0 if the user cancelled it, else 1. Inside its slots the wait still counts as pending.
    void Finished(int result);
    void ProgressRangeChanged(int minimum, int maximum);
    void ProgressValueChanged(int value);
    /// A value changed; in dialog mode this schedules a job.
    void DataChanged();
    void SourceChanged();

protected:
    /// Where a panel builds its form.
    QWidget* GetUIContent();
    bool IsDialog() const { return m_Dialog; }
    HBImage<> GetSelection() const { return m_Selection; }
    QPoint GetSelectionOffset() const { return m_SelectionOffset; }
    QRect GetSelectionBoundingRect() const { return m_SelectionBoundingRect; }
    QReadWriteLock& GetDataGuard();
    bool& GetNewData();

    /// Colours the groove of a horizontal slider, always from left to right: only the gradient's stops count.
    static void SetGrooveGradient(QSlider* slider, const QLinearGradient& gradient);

    /// The three closing calls of a slot, in their order: the host learns that the user changed something, the
    /// panel's own signal, and the change schedules a job.
    template <class Panel>
    void NotifyChanged(void (Panel::*valueSignal)())
    {
        Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
        (static_cast<Panel*>(this)->*valueSignal)();
        Q_EMIT DataChanged();
    }

    /// Stores what the user set, and tells by the panel's ValueChanged().
    template <class Panel, class Field, class Value>
    void Store(Panel* panel, Field& field, const Value& value)
    {
        field = value;
        panel->NotifyChanged(&Panel::ValueChanged);
    }

    /// Connects to a slot of the panel, by name, so that a host can disconnect it by name too; Mute cuts it.
    void Listen(QObject* sender, const char* signal, const char* slot);
    /// The same, but connected by the end of the first Mute.
    void ListenLater(QObject* sender, const char* signal, const char* slot);

    /// While it lives the panel hears nothing of its controls, or of one of them. At its end all is connected
    /// again, in the order of the Listen calls, also what the host had disconnected. Values that are set unheard
    /// are a pending change.
    class HB_PANELS_EXPORT Mute
    {
    public:
        enum Purpose {
            SetsValues,
            ShowsOthers ///< another channel, for example: the image stays as it is
        };
        explicit Mute(HBAdjustmentWidget* panel, const QObject* sender = nullptr, Purpose purpose = SetsValues);
        ~Mute();
        Mute(const Mute&) = delete;
        Mute& operator=(const Mute&) = delete;

    private:
        HBAdjustmentWidget* m_pPanel;
        const QObject* m_pSender;
    };

    /// The part of a job record that all panels share, as of now.
    HBJobData JobData() const;

    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    virtual void Reset() = 0;
    /// Starts the panel's job for its present values and hands its future to the watcher. A panel without a job of
    /// its own leaves the watcher alone.
    virtual void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) = 0;
    virtual QString GetWidgetName();
    virtual void ClearInternal();
    virtual void CancelProcessing();

    void StartProcessing();
    void RestartProcessing();
    void MarkJobObsolete();
    void FinishJob();
    void ReleaseWatcher();
    void FinishWaiting();
    void KillTimer(int& id);
    void DeliverProgress();
    bool TellProgress();

private Q_SLOTS:
    void OnResultReadyAt(int index);
    void OnProcessingFinished();
    void OnDataChanged();
    void OnProgressRangeChanged(int minimum, int maximum);
    void OnProgressValueChanged(int value);

private:
    std::shared_ptr<HBPanelJobControl> m_pControl; ///< shared with the running job
    std::unique_ptr<HBPanelLinks> m_pLinks;
    HBImage<> m_Source;
    HBImage<> m_Adjusted;
    HBImage<> m_Selection;
    QRect m_SelectionBoundingRect;
    QPoint m_SelectionOffset;
    // Changes are counted: all, those that the last job to begin knows, and those in the adjusted image.
    quint64 m_Changes = 0;
    quint64 m_ChangesBegun = 0;
    quint64 m_ChangesDone = 0;
    bool m_Processing = false;
    QFutureWatcher<HBImage<>>* m_pWatcher = nullptr;
    QTimer m_ProgressPause; ///< no more progress is told until it ends, but for a job's last
    int m_ProgressTimer = -1;
    int m_DataChangedTimer = -1;
    int m_WaitTimer = -1;
    /// From WaitForProcessingFinished to Finished. Not the timer's id: Qt gives a killed id out again at once.
    bool m_WaitPending = false;
    bool m_WaitCursor = false; ///< the override cursor of the wait is set
    QPointer<HBOperationProgressDlg> m_pWaitDialog;
    int m_ProgressMinimum = 0;
    int m_ProgressMaximum = 0;
    int m_ProgressValue = 0;
    const bool m_Dialog;
    Ui::AdjustmentDialogBase* m_pFrame; ///< its controls exist in dialog mode only
    bool m_Cancel = false;
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAdjustmentWidget.h"

#include "HBPanelJob.h"
#include "HBPanelLinks.h"
#include "HBTabOrder.h"
#include "ui_AdjustmentDialogBase.h"

#include <HBDialog.h>
#include <HBMdiArea.h>
#include <HBOperationProgressDlg.h>
#include <KMApplication.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLinearGradient>
#include <QPushButton>
#include <QSlider>
#include <QTimerEvent>

namespace
{

constexpr int DebounceMilliseconds = 50;
/// Between two looks at a job's progress.
constexpr int ProgressMilliseconds = 10;

} // namespace

HBAdjustmentWidget::HBAdjustmentWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : KMAdjustmentWidget(parent, flags)
    , m_pControl(std::make_shared<HBPanelJobControl>())
    , m_pLinks(std::make_unique<HBPanelLinks>(this))
    , m_Dialog(dialog)
    , m_pFrame(new Ui::AdjustmentDialogBase())
{
    connect(this, &HBAdjustmentWidget::DataChanged, this, [this] { ++m_Changes; });
    if (m_Dialog) {
        m_pFrame->setupUi(this);
        m_pFrame->m_pProgress->setObjectName("FILTERPROGRESS");
        m_pFrame->m_pProgress->setEnabled(false);
        connect(m_pFrame->m_pButtons, SIGNAL(accepted()), this, SIGNAL(Ok()));
        connect(m_pFrame->m_pButtons, SIGNAL(rejected()), this, SIGNAL(Cancel()));
        if (QPushButton* reset = m_pFrame->m_pButtons->button(QDialogButtonBox::Reset))
            connect(reset, SIGNAL(clicked()), this, SLOT(OnReset()));
        connect(this, SIGNAL(DataChanged()), this, SLOT(OnDataChanged()));
        connect(this, SIGNAL(ProgressRangeChanged(int,int)), m_pFrame->m_pProgress, SLOT(setRange(int,int)));
        connect(this, SIGNAL(ProgressValueChanged(int)), m_pFrame->m_pProgress, SLOT(setValue(int)));
    }
    m_ProgressPause.setSingleShot(true);
    connect(&m_ProgressPause, &QTimer::timeout, this, [this] {
        if (!m_pControl->WaitForProgress())
            DeliverProgress();
    });
    connect(m_pControl.get(), &HBPanelJobControl::ProgressTold, this, &HBAdjustmentWidget::DeliverProgress,
            Qt::QueuedConnection);
    connect(this, SIGNAL(ProgressRangeChanged(int,int)), this, SLOT(OnProgressRangeChanged(int,int)));
    connect(this, SIGNAL(ProgressValueChanged(int)), this, SLOT(OnProgressValueChanged(int)));
    if (m_Dialog) {
        m_pFrame->m_pProgress->setRange(m_ProgressMinimum, m_ProgressMaximum);
        m_pFrame->m_pProgress->setValue(m_ProgressValue);
    }
}

HBAdjustmentWidget::~HBAdjustmentWidget()
{
    FinishJob();
    // The panel itself has gone already, its controls go after this.
    const QObjectList controls = findChildren<QObject*>();
    for (QObject* control : controls)
        control->disconnect(this);
    m_pLinks->Sever();
    delete m_pFrame;
}

void HBAdjustmentWidget::SetImage(const HBImage<>& source, const HBImage<>& selection,
                                  const QPoint& selectionOffset, const QRect& selectionBoundingRect)
{
    m_Source = source;
    m_Selection = selection;
    m_SelectionOffset = selectionOffset;
    m_SelectionBoundingRect = selectionBoundingRect;
    ++m_Changes;
    StartProcessing();
    Q_EMIT SourceChanged();
}

bool HBAdjustmentWidget::HasPendingChange() const
{
    return !m_Source.IsEmpty() && m_ChangesDone != m_Changes;
}

void HBAdjustmentWidget::ProcessNow()
{
    const bool known = m_Processing && m_ChangesBegun == m_Changes;
    if (!HasPendingChange() || known)
        return;
    KillTimer(m_DataChangedTimer);
    StartProcessing();
}

void HBAdjustmentWidget::ClearData()
{
    m_Adjusted = HBImage<>();
    m_Source = HBImage<>();
    m_Cancel = false;
    Reset();
    Q_EMIT SourceChanged();
}

bool HBAdjustmentWidget::WaitForProcessingFinished(bool cancel)
{
    if (m_WaitPending) {
        if (cancel)
            CancelProcessing();
        return true;
    }
    if (!m_Processing)
        return true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_WaitCursor = true;
    m_WaitPending = true;
    m_WaitTimer = startTimer(KMApplication::GetProgressTimeout());
    if (cancel)
        CancelProcessing();
    return false;
}

void HBAdjustmentWidget::SetCancelProcessing(bool cancel)
{
    m_Cancel = cancel;
    if (m_Cancel && m_Processing)
        MarkJobObsolete();
}

void HBAdjustmentWidget::SetView(KMDocumentView*) {}

void HBAdjustmentWidget::OnReset()
{
    ++m_Changes; // a control that shows the neutral value already tells nothing
    Reset();
}

QWidget* HBAdjustmentWidget::GetUIContent()
{
    return m_Dialog ? m_pFrame->m_pContent : this;
}

void HBAdjustmentWidget::SetGrooveGradient(QSlider* slider, const QLinearGradient& gradient)
{
    QString stops;
    for (const QGradientStop& stop : gradient.stops()) {
        stops += QString("stop: %1 rgb(%2, %3, %4), ")
                     .arg(stop.first)
                     .arg(stop.second.red())
                     .arg(stop.second.green())
                     .arg(stop.second.blue());
    }
    stops.chop(2);
    slider->setStyleSheet(QString("QSlider::groove:horizontal{border: 0px solid;height: 4px;border-radius: 2px;"
                                  "background: qlineargradient(x1: 0, y1: 0, x2: 1, y2: 0, %1);}")
                              .arg(stops));
}

HBJobData HBAdjustmentWidget::JobData() const
{
    return {{m_Source, m_Selection, m_SelectionOffset, m_SelectionBoundingRect}, m_pControl};
}

QReadWriteLock& HBAdjustmentWidget::GetDataGuard()
{
    return m_pControl->guard;
}

bool& HBAdjustmentWidget::GetNewData()
{
    return m_pControl->newData;
}

bool HBAdjustmentWidget::HasJobFailed() const
{
    return m_pControl->failed;
}

// ---- Connections to the controls ----

void HBAdjustmentWidget::Listen(QObject* sender, const char* signal, const char* slot)
{
    ListenLater(sender, signal, slot);
    connect(sender, signal, this, slot, Qt::UniqueConnection);
}

void HBAdjustmentWidget::ListenLater(QObject* sender, const char* signal, const char* slot)
{
    m_pLinks->Add(sender, signal, slot);
}

HBAdjustmentWidget::Mute::Mute(HBAdjustmentWidget* panel, const QObject* sender, Purpose purpose)
    : m_pPanel(panel)
    , m_pSender(sender)
{
    if (purpose == SetsValues)
        ++m_pPanel->m_Changes;
    m_pPanel->m_pLinks->Disconnect(m_pSender);
}

HBAdjustmentWidget::Mute::~Mute()
{
    m_pPanel->m_pLinks->Connect(m_pSender);
}

// ---- The job ----

/// Ends a running job, which stops at its next tile, and drops its result.
void HBAdjustmentWidget::FinishJob()
{
    KillTimer(m_ProgressTimer);
    KillTimer(m_DataChangedTimer);
    KillTimer(m_WaitTimer);
    if (m_pWatcher) {
        {
            const QWriteLocker guard(&m_pControl->guard);
            m_pControl->newData = true;
        }
        m_pWatcher->disconnect(this);
        // Never under the guard: a job that has not begun yet is run here, on this thread.
        m_pWatcher->waitForFinished();
        ReleaseWatcher();
    }
    m_Processing = false;
    if (m_WaitCursor) {
        QApplication::restoreOverrideCursor();
        m_WaitCursor = false;
    }
    if (m_pWaitDialog)
        m_pWaitDialog->reject();
}

void HBAdjustmentWidget::timerEvent(QTimerEvent* event)
{
    if ((event->timerId() == m_ProgressTimer || event->timerId() == m_WaitTimer) && !TellProgress())
        return; // and the bars begin where the job is
    if (event->timerId() == m_ProgressTimer) {
        KillTimer(m_ProgressTimer);
        if (m_Dialog) {
            m_pFrame->m_pProgress->setEnabled(true);
            // The value, on purpose: the bar fills from where the job is when it appears.
            m_pFrame->m_pProgress->setMinimum(m_pFrame->m_pProgress->value());
        }
    } else if (event->timerId() == m_DataChangedTimer) {
        // While the host waits for the final image no further job starts: the change is dropped, on purpose.
        if (!m_WaitPending)
            StartProcessing();
        KillTimer(m_DataChangedTimer);
    } else if (event->timerId() == m_WaitTimer) {
        FinishWaiting();
    } else {
        KMAdjustmentWidget::timerEvent(event);
    }
}

void HBAdjustmentWidget::showEvent(QShowEvent* event)
{
    if (m_Dialog)
        HBPutButtonsLastInTabOrder(this, m_pFrame->m_pContent, m_pFrame->m_pButtons);
    KMAdjustmentWidget::showEvent(event);
}

QString HBAdjustmentWidget::GetWidgetName()
{
    const QWidget* widget = GetUIContent();
    return widget ? widget->windowTitle() : QString();
}

void HBAdjustmentWidget::ClearInternal() {}

void HBAdjustmentWidget::CancelProcessing()
{
    SetCancelProcessing(true);
}

void HBAdjustmentWidget::StartProcessing()
{
    if (m_Processing) {
        MarkJobObsolete();
        return;
    }
    if (m_Cancel)
        return;
    {
        const QWriteLocker guard(&m_pControl->guard);
        m_pControl->newData = false;
    }
    m_pControl->failed = false;
    m_ChangesBegun = m_Changes;
    m_pWatcher = new QFutureWatcher<HBImage<>>(this);
    connect(m_pWatcher, SIGNAL(resultReadyAt(int)), this, SLOT(OnResultReadyAt(int)));
    connect(m_pWatcher, SIGNAL(finished()), this, SLOT(OnProcessingFinished()));
    StartJobWatching(m_pWatcher);
    if (m_pWatcher->isCanceled()) {
        // No future was attached: a panel without a job, for which nobody shall wait.
        ReleaseWatcher();
        m_ChangesDone = m_ChangesBegun;
        return;
    }
    KillTimer(m_ProgressTimer);
    m_ProgressTimer = startTimer(KMApplication::GetProgressTimeout());
    m_Processing = true;
}

void HBAdjustmentWidget::RestartProcessing()
{
    KillTimer(m_DataChangedTimer);
    m_DataChangedTimer = startTimer(DebounceMilliseconds, Qt::CoarseTimer);
}

/// The running job's result will be dropped and OnProcessingFinished starts another job.
void HBAdjustmentWidget::MarkJobObsolete()
{
    const QWriteLocker guard(&m_pControl->guard);
    if (m_pControl->newData)
        return;
    m_pControl->newData = true;
    disconnect(m_pWatcher, SIGNAL(resultReadyAt(int)), this, SLOT(OnResultReadyAt(int)));
}

/// Later, and no longer as a child: it may be in the midst of the signal that made the host destroy this panel.
void HBAdjustmentWidget::ReleaseWatcher()
{
    m_pWatcher->setParent(nullptr);
    m_pWatcher->deleteLater();
    m_pWatcher = nullptr;
}

/// The host has waited for the progress timeout: show a dialog until the job is done, then answer with Finished.
void HBAdjustmentWidget::FinishWaiting()
{
    if (m_Cancel && m_Processing)
        MarkJobObsolete();
    KillTimer(m_WaitTimer);
    KillTimer(m_DataChangedTimer);

    // The host may destroy this panel, and its main window with the dialog, in any of the nested event loops
    // below.
    const QPointer<HBAdjustmentWidget> self(this);
    const QPointer<HBOperationProgressDlg> dialog(new HBOperationProgressDlg(HBMdiArea::MainWindow()));
    m_pWaitDialog = dialog;
    dialog->SetLabel(GetWidgetName() + ':');
    dialog->SetProgressRange(m_ProgressMinimum, m_ProgressMaximum);
    dialog->SetProgressPos(m_ProgressValue);
    connect(this, SIGNAL(ProgressRangeChanged(int,int)), dialog, SLOT(SetProgressRange(int,int)));
    connect(this, SIGNAL(ProgressValueChanged(int)), dialog, SLOT(SetProgressPos(int)));

    QApplication::restoreOverrideCursor();
    m_WaitCursor = false;
    int result = 1;
    if (m_Processing) {
        result = HBDialog::Exec(dialog);
        if (self && result == 0 && m_pWatcher)
            SetCancelProcessing(true);
        if (self && m_pWatcher) {
            QApplication::setOverrideCursor(Qt::WaitCursor);
            m_pWatcher->waitForFinished();
            QApplication::restoreOverrideCursor();
        }
    }
    if (self)
        QCoreApplication::processEvents();
    if (self)
        Q_EMIT Finished(result);
    if (self)
        m_WaitPending = false;
    delete dialog;
}

void HBAdjustmentWidget::KillTimer(int& id)
{
    if (id == -1)
        return;
    killTimer(id);
    id = -1;
}

/// Tells the progress since the last look, and looks again a little later, for as long as there is more.
void HBAdjustmentWidget::DeliverProgress()
{
    if (TellProgress())
        m_ProgressPause.start(ProgressMilliseconds);
}

/// Each step of it, in order. Slots may run an event loop, in which the rest is told, or destroy the panel: false.
bool HBAdjustmentWidget::TellProgress()
{
    const QPointer<HBAdjustmentWidget> self(this);
    // The bar paints itself at once for every value that shows; the last one is enough.
    const QPointer<QProgressBar> bar(m_Dialog ? m_pFrame->m_pProgress : nullptr);
    if (bar)
        bar->setUpdatesEnabled(false);
    while (const auto progress = self ? m_pControl->TakeProgress() : std::nullopt) {
        if (progress->isRange)
            Q_EMIT ProgressRangeChanged(progress->first, progress->maximum);
        else
            Q_EMIT ProgressValueChanged(progress->first);
    }
    if (bar)
        bar->setUpdatesEnabled(true);
    return self;
}

void HBAdjustmentWidget::OnResultReadyAt(int index)
{
    // What hears the last progress may run an event loop, in which this job ends and another one starts.
    const QFutureWatcherBase* const watcher = m_pWatcher;
    const HBImage<> adjusted = m_pWatcher->resultAt(index);
    if (!TellProgress() || (m_pWatcher && (m_pWatcher != watcher || m_pControl->IsCancelled())))
        return;
    m_Adjusted = adjusted;
    if (!HasJobFailed())
        m_ChangesDone = m_ChangesBegun;
    Q_EMIT ImageReady();
}

void HBAdjustmentWidget::OnProcessingFinished()
{
    if (!TellProgress())
        return;
    KillTimer(m_ProgressTimer);
    if (m_Dialog) {
        m_pFrame->m_pProgress->setEnabled(false);
        m_pFrame->m_pProgress->setMinimum(m_ProgressMinimum);
    }
    ReleaseWatcher();
    m_Processing = false;
    // A host that is told so may start a job, or destroy the panel.
    const QPointer<HBAdjustmentWidget> self(this);
    Q_EMIT ProgressRangeChanged(0, 100);
    if (self)
        Q_EMIT ProgressValueChanged(100);
    if (!self)
        return;
    bool restart;
    {
        const QReadLocker guard(&m_pControl->guard);
        restart = m_pControl->newData;
    }
    if (restart)
        StartProcessing();
}

void HBAdjustmentWidget::OnDataChanged()
{
    if (m_Source.Width() != 0 && m_Source.Height() != 0 && IsDialog())
        RestartProcessing();
}

void HBAdjustmentWidget::OnProgressRangeChanged(int minimum, int maximum)
{
    m_ProgressMinimum = minimum;
    m_ProgressMaximum = maximum;
}

void HBAdjustmentWidget::OnProgressValueChanged(int value)
{
    m_ProgressValue = value;
}

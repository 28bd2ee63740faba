// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBusyDialog.h"

#include <HBPoolJob.h>

#include <QCloseEvent>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <atomic>
#include <mutex>

namespace
{

constexpr int GlanceMilliseconds = 50;

/// Keeps the progress for whoever looks.
class Control : public HBJobControl
{
public:
    void SetProgress(int value) override { m_Progress = value; }
    int Progress() const { return m_Progress; }

private:
    std::atomic<int> m_Progress{0};
};

/// On another thread; returns when it is done. If that takes longer than `patience` milliseconds, `show` is called
/// and the loop goes on with `events`, until then without the user's.
void RunElsewhere(const std::function<void()>& work, int patience, const std::function<void()>& show,
                  QEventLoop::ProcessEventsFlags events)
{
    QEventLoop loop;
    QFutureWatcher<bool> watcher;
    bool done = false;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, [&] {
        done = true;
        loop.quit();
    });
    // What was written before a step is read after it; Qt sees to that too, but out of sight of a thread
    // sanitizer.
    std::mutex order;
    std::unique_lock<std::mutex> here(order);
    const auto elsewhere = [&] {
        const std::lock_guard<std::mutex> there(order);
        work();
        return true;
    };
    const bool started = HBTryWatch(HBThreadPool(), &watcher, elsewhere);
    here.unlock();
    if (!started)
        return work(); // the system has no more threads: the window has to wait
    if (patience > 0) {
        QTimer::singleShot(patience, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (!done) {
        show();
        loop.exec(events);
    }
    here.lock();
}

} // namespace

HBBusyDialog::HBBusyDialog(const QString& text, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_pBar(new QProgressBar(this))
{
    setModal(true);
    setWindowTitle(tr("Please wait"));
    m_pBar->setRange(0, 0);
    m_pBar->setMinimumWidth(300);
    auto* label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_pBar);
}

void HBBusyDialog::AllowCancel(HBJobControl* control)
{
    m_pControl = control;
    m_pCancel = new QPushButton(tr("Cancel"), this);
    connect(m_pCancel, &QPushButton::clicked, this, &HBBusyDialog::reject);
    layout()->addWidget(m_pCancel);
    layout()->setAlignment(m_pCancel, Qt::AlignRight);
}

void HBBusyDialog::reject()
{
    if (!m_pCancel)
        return;
    m_pControl->Cancel();
    m_pCancel->setEnabled(false);
}

void HBBusyDialog::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

void HBBusyDialog::Run(const QString& text, QWidget* parent, const std::function<void()>& work)
{
    HBBusyDialog dialog(text, parent);
    RunElsewhere(
        work, Patience, [&] { dialog.show(); }, QEventLoop::ExcludeUserInputEvents);
}

bool HBBusyDialog::RunCancellable(const QString& text, QWidget* parent,
                                  const std::function<void(HBJobControl*)>& work, int patience)
{
    Control control;
    HBBusyDialog dialog(text, parent);
    dialog.AllowCancel(&control);
    QTimer glance;
    connect(&glance, &QTimer::timeout, dialog.m_pBar, [&] {
        if (control.Progress() > 0)
            dialog.m_pBar->setRange(0, 1000);
        dialog.m_pBar->setValue(control.Progress());
    });
    glance.start(GlanceMilliseconds);
    RunElsewhere([&] { work(&control); }, patience, [&] { dialog.show(); }, QEventLoop::AllEvents);
    return !control.IsCancelled();
}

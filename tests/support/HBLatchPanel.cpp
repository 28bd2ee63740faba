// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLatchPanel.h"

#include <HBOperationProgressDlg.h>
#include <HBPanelJob.h>

#include <QApplication>
#include <QTimer>

#include <chrono>

void HBTestGate::Set(int allowed, bool obsoletePasses) {
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Allowed = allowed;
    m_ObsoletePasses = obsoletePasses;
    m_Changed.notify_all();
}

void HBTestGate::Let(int tiles) {
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Allowed += tiles;
    m_Changed.notify_all();
}

bool HBTestGate::WaitForHeld(int tiles) {
    std::unique_lock<std::mutex> lock(m_Mutex);
    return m_Changed.wait_for(lock, std::chrono::seconds(10), [&] { return m_Allowed == 0 && m_Held >= tiles; });
}

int HBTestGate::Passed() const {
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Passed;
}

void HBTestGate::Pass() {
    std::unique_lock<std::mutex> lock(m_Mutex);
    ++m_Held;
    m_Changed.notify_all();
    // A test that failed leaves its gate closed: it shall end all the same.
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    // Nobody tells when a job becomes obsolete, so that is asked from time to time.
    while (m_Allowed == 0 && !(m_ObsoletePasses && m_IsObsolete()) && std::chrono::steady_clock::now() < limit)
        m_Changed.wait_for(lock, std::chrono::milliseconds(1));
    if (m_Allowed > 0 && m_Allowed < Unlimited) --m_Allowed;
    --m_Held;
    ++m_Passed;
    m_Changed.notify_all();
}

namespace {

class GatedInversion {
public:
    GatedInversion(std::shared_ptr<HBTestGate> gate, std::function<void()> onTile)
        : m_pGate(std::move(gate))
        , m_OnTile(std::move(onTile)) {}

    void SetProcessingBuffer(HBRGBA32i* pixels) { m_pPixels = pixels; }
    void operator()(int first, int count) const {
        if (first == 0) { // of the tile's runs
            m_pGate->Pass();
            if (m_OnTile) m_OnTile();
        }
        for (HBRGBA32i* pixel = m_pPixels + first; pixel != m_pPixels + first + count; ++pixel)
            *pixel = HBRGBA32i::FromRgba(pixel->ToRgba() ^ 0xFFFFFF);
    }

private:
    std::shared_ptr<HBTestGate> m_pGate;
    std::function<void()> m_OnTile;
    HBRGBA32i* m_pPixels = nullptr;
};

} // namespace

struct HBLatchPanel::Data : HBJobData {
    std::shared_ptr<HBTestGate> gate;
    std::function<void()> onTile;
};

HBLatchPanel::HBLatchPanel(bool dialog, QWidget* parent)
    : HBAdjustmentWidget(dialog, parent, {})
    , m_pGate(std::make_shared<HBTestGate>([control = JobData().control] { return control->IsCancelled(); })) {
    GetUIContent()->setWindowTitle("Latch");
}

HBLatchPanel::~HBLatchPanel() { m_pGate->OpenWhenObsolete(); }

void HBLatchPanel::StartJobWatching(QFutureWatcher<HBImage<>>* watcher) {
    ++starts;
    if (onStart) onStart();
    if (hasJob) HBStartJob(watcher, &Process, Data{JobData(), m_pGate, onTile});
}

void HBLatchPanel::CancelProcessing() {
    ++cancels;
    SetCancelProcessing(true);
}

HBImage<> HBLatchPanel::Process(Data job) {
    return HBRunTransformation(job, GatedInversion(job.gate, job.onTile));
}

HBProgressDialogWatch::HBProgressDialogWatch(Action action) : m_Action(std::move(action)) {
    qApp->installEventFilter(this);
}

HBProgressDialogWatch::~HBProgressDialogWatch() { qApp->removeEventFilter(this); }

bool HBProgressDialogWatch::eventFilter(QObject* watched, QEvent* event) {
    auto* dialog = event->type() == QEvent::Show ? qobject_cast<HBOperationProgressDlg*>(watched) : nullptr;
    if (dialog) {
        ++m_Count;
        QMetaObject::invokeMethod(
            dialog, [=] { m_Action(dialog); }, Qt::QueuedConnection);
        // A test that goes wrong shall not wait for a human.
        QTimer::singleShot(20000, dialog, &QDialog::reject);
    }
    return false;
}

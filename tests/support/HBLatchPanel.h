// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBLogCapture.h"

#include <HBAdjustmentWidget.h>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

class HBOperationProgressDlg;

/// Where the tiles of a test job wait until the test lets them through.
class HBTestGate {
public:
    /// \param isObsolete asked by a waiting tile
    explicit HBTestGate(std::function<bool()> isObsolete) : m_IsObsolete(std::move(isObsolete)) {}

    // GUI thread:
    void Close() { Set(0, false); }
    void Open() { Set(Unlimited, false); }
    /// Lets so many more tiles through.
    void Let(int tiles);
    /// Holds every tile until the job has become obsolete: the test goes on to do that in a call that waits for
    /// the job's end.
    void OpenWhenObsolete() { Set(0, true); }
    /// Waits until so many tiles are held; false after ten seconds.
    bool WaitForHeld(int tiles = 1);
    /// How many tiles have passed.
    int Passed() const;

    /// A tile, on a thread of the job.
    void Pass();

private:
    static constexpr int Unlimited = 1 << 30;
    void Set(int allowed, bool obsoletePasses);

    const std::function<bool()> m_IsObsolete;
    mutable std::mutex m_Mutex;
    std::condition_variable m_Changed;
    int m_Allowed = Unlimited;
    bool m_ObsoletePasses = false;
    int m_Held = 0;
    int m_Passed = 0;
};

/// A panel whose job inverts the colours, one tile at a time through a gate, which is open at first.
class HBLatchPanel : public HBAdjustmentWidget {
    Q_OBJECT
public:
    explicit HBLatchPanel(bool dialog = true, QWidget* parent = nullptr);
    ~HBLatchPanel() override;

    HBTestGate& Gate() { return *m_pGate; }
    /// The user changes a value.
    void Change() { NotifyChanged(&HBLatchPanel::ValueChanged); }
    /// The host sets one, or has others shown.
    void Load(bool othersShown = false) {
        const Mute mute(this, nullptr, othersShown ? Mute::ShowsOthers : Mute::SetsValues);
    }

    bool hasJob = true;
    std::function<void()> onStart; ///< called by StartJobWatching
    std::function<void()> onTile;  ///< called for each tile on its thread; may throw
    int starts = 0;
    int resets = 0;
    int cancels = 0;

    using HBAdjustmentWidget::GetNewData;
    using HBAdjustmentWidget::GetSelectionBoundingRect;
    using HBAdjustmentWidget::GetSelectionOffset;
    using HBAdjustmentWidget::GetUIContent;
    using HBAdjustmentWidget::IsDialog;
    using HBAdjustmentWidget::SetGrooveGradient;

Q_SIGNALS:
    void ValueChanged();

private:
    struct Data;

    void Reset() override { ++resets; }
    void StartJobWatching(QFutureWatcher<HBImage<>>* watcher) override;
    void CancelProcessing() override;
    static HBImage<> Process(Data job);

    const std::shared_ptr<HBTestGate> m_pGate;
};

/// Acts whenever a progress dialog has opened, from inside its event loop.
class HBProgressDialogWatch : public QObject {
public:
    using Action = std::function<void(HBOperationProgressDlg*)>;

    explicit HBProgressDialogWatch(Action action);
    ~HBProgressDialogWatch() override;
    /// How many have opened.
    int Count() const { return m_Count; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const HBShowsWindows m_ShowsWindows;
    const Action m_Action;
    int m_Count = 0;
};

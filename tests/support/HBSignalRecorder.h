// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBTestPool.h"

#include <QMetaMethod>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <functional>

class HBAdjustmentWidget;

/// Writes down every signal of a panel, those of its base classes up to KMAdjustmentWidget included, in the order
/// in which they are emitted and with their arguments, as "ProgressRangeChanged(0,6)".
class HBSignalRecorder : public QObject {
public:
    explicit HBSignalRecorder(HBAdjustmentWidget* panel);

    /// Adds a line of the test's own between the signals.
    void Note(const QString& line);
    /// Called when that line is written, once; may destroy the panel.
    void Once(const QString& line, const std::function<void()>& action);

    /// What was written since the last call.
    QStringList Take();
    const QStringList& Lines() const { return m_Lines; }
    /// How many lines begin with the name.
    int Count(const QString& name) const;
    /// Runs the event loop until there are so many of them; false after ten seconds.
    bool WaitFor(const QString& name, int count = 1) const;

    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

private:
    QVector<QMetaMethod> m_Signals;
    QStringList m_Lines;
    QString m_Trigger;
    std::function<void()> m_Action;
};

/// Waits for all jobs and delivers what they have posted. No timer fires meanwhile: no debounce, no progress
/// timeout. A job that is started by the end of another is waited for too.
void HBSettle();

/// How many timers of the panel run: debounce, progress timeout, wait.
int HBTimerCount(const HBAdjustmentWidget& panel);

/// No job and no timer of the panel is left: nothing more will come by itself.
bool HBIsIdle(const HBAdjustmentWidget& panel);

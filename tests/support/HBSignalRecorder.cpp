// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSignalRecorder.h"

#include <HBAdjustmentWidget.h>
#include <HBParallel.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTest>
#include <QThreadPool>

HBSignalRecorder::HBSignalRecorder(HBAdjustmentWidget* panel) {
    const QMetaObject* meta = panel->metaObject();
    for (int index = KMAdjustmentWidget::staticMetaObject.methodOffset(); index < meta->methodCount(); ++index) {
        const QMetaMethod method = meta->method(index);
        if (method.methodType() != QMetaMethod::Signal) continue;
        // Slots that no moc knows: their ids follow those of QObject and arrive in qt_metacall().
        QMetaObject::connect(panel, index, this, QObject::staticMetaObject.methodCount() + int(m_Signals.size()),
                             Qt::DirectConnection);
        m_Signals.append(method);
    }
}

int HBSignalRecorder::qt_metacall(QMetaObject::Call call, int id, void** arguments) {
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod) return id;
    const QMetaMethod& method = m_Signals.at(id);
    QStringList values;
    for (int i = 0; i < method.parameterCount(); ++i) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        values += QVariant(method.parameterMetaType(i), arguments[i + 1]).toString();
#else
        values += QVariant(method.parameterType(i), arguments[i + 1]).toString();
#endif
    }
    Note(QString("%1(%2)").arg(QString::fromLatin1(method.name()), values.join(',')));
    return -1;
}

void HBSignalRecorder::Note(const QString& line) {
    m_Lines += line;
    if (m_Action && line == m_Trigger) std::exchange(m_Action, nullptr)();
}

void HBSignalRecorder::Once(const QString& line, const std::function<void()>& action) {
    m_Trigger = line;
    m_Action = action;
}

QStringList HBSignalRecorder::Take() { return std::exchange(m_Lines, {}); }

int HBSignalRecorder::Count(const QString& name) const {
    return int(
        std::count_if(m_Lines.begin(), m_Lines.end(), [&](const QString& line) { return line.startsWith(name); }));
}

bool HBSignalRecorder::WaitFor(const QString& name, int count) const {
    return QTest::qWaitFor([&] { return Count(name) >= count; }, 10000);
}

void HBSettle() {
    for (int i = 0; i < 4; ++i) {
        HBThreadPool().waitForDone(20000);
        QCoreApplication::sendPostedEvents();
    }
}

int HBTimerCount(const HBAdjustmentWidget& panel) {
    return QAbstractEventDispatcher::instance()->registeredTimers(const_cast<HBAdjustmentWidget*>(&panel)).size();
}

bool HBIsIdle(const HBAdjustmentWidget& panel) {
    // A pool thread ends a little after the job that it ran.
    return HBThreadPool().waitForDone(1000) && HBTimerCount(panel) == 0;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBLogCapture.h"

#include <QMutex>

#include <utility>

namespace {

QMutex mutex; // lines may come from a job
HBLogCapture* current = nullptr;
QtMessageHandler beforeWindows = nullptr;

void DropSizeHintRemark(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text != QLatin1String("This plugin does not support propagateSizeHints()"))
        beforeWindows(type, context, text);
}

} // namespace

HBLogCapture::HBLogCapture() {
    const QMutexLocker lock(&mutex);
    current = this;
    m_Before = qInstallMessageHandler(&HBLogCapture::Handle);
}

HBLogCapture::~HBLogCapture() {
    const QMutexLocker lock(&mutex);
    qInstallMessageHandler(m_Before);
    current = nullptr;
}

QVector<HBLogCapture::Line> HBLogCapture::Take() {
    const QMutexLocker lock(&mutex);
    return std::exchange(m_Lines, {});
}

void HBLogCapture::Handle(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QMutexLocker lock(&mutex);
    if (!current) return;
    if (type == QtDebugMsg)
        current->m_Lines.append({text, QString(context.file) + context.function + context.category});
    else
        current->m_Before(type, context, text);
}

HBShowsWindows::HBShowsWindows() { beforeWindows = qInstallMessageHandler(DropSizeHintRemark); }

HBShowsWindows::~HBShowsWindows() { qInstallMessageHandler(beforeWindows); }

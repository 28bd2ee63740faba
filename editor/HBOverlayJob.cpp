// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayJob.h"

#include <HBPoolJob.h>

#include <new>

HBOverlayJob::HBOverlayJob(QObject* parent) : QObject(parent)
{
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, &HBOverlayJob::Finish);
}

HBOverlayJob::~HBOverlayJob()
{
    m_Watcher.disconnect(this);
    m_Watcher.waitForFinished();
}

void HBOverlayJob::Draw(const HBImage<>& source, const HBOverlayDrawing& drawing)
{
    m_Source = source;
    m_Drawing = drawing;
    m_Pending = true;
    if (!m_Watcher.isRunning())
        Start();
}

void HBOverlayJob::Start()
{
    m_Pending = false;
    const QString noMemory = tr("There is not enough memory to draw this.");
    HBWatchInPool(&m_Watcher, [source = m_Source, drawing = m_Drawing, noMemory] {
        Result result{source, {}};
        try {
            result.image = drawing(source, &result.error);
        } catch (const std::bad_alloc&) {
            result.error = noMemory;
        }
        return result;
    });
}

void HBOverlayJob::Finish()
{
    if (m_Pending) {
        Start();
        return;
    }
    const Result result = m_Watcher.result();
    Q_EMIT Done(result.image, result.error);
}

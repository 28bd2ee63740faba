// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBThumbnails.h"

#include "HBThumbnail.h"

#include <HBPoolJob.h>

HBThumbnails::HBThumbnails(QObject* parent) : QObject(parent)
{
    m_Pool.setMaxThreadCount(qBound(1, QThread::idealThreadCount() / 2, 4)); // the open photo needs the others
}

HBThumbnails::~HBThumbnails()
{
    m_Wanted.clear();
    m_Pool.waitForDone();
}

void HBThumbnails::SetWanted(const QStringList& photos)
{
    m_Wanted = photos;
    StartNext();
}

void HBThumbnails::StartNext()
{
    while (!m_Wanted.isEmpty() && m_AtWork.size() < m_Pool.maxThreadCount()) {
        const QString photo = m_Wanted.takeFirst();
        if (m_AtWork.contains(photo))
            continue;
        auto* watcher = new QFutureWatcher<QImage>(this);
        connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, photo] {
            m_AtWork.remove(photo);
            watcher->deleteLater();
            Q_EMIT Ready(photo, watcher->result());
            StartNext();
        });
        const auto make = [photo] {
            QThread::currentThread()->setPriority(QThread::LowPriority);
            return HBThumbnail(photo);
        };
        m_AtWork.insert(photo);
        if (!HBTryWatch(m_Pool, watcher, make)) {
            m_AtWork.remove(photo); // the system has no more threads: another time
            delete watcher;
            return;
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSizeEstimate.h"

#include <HBPoolJob.h>

HBSizeEstimate::HBSizeEstimate(const HBImage<>& image, QObject* parent)
    : QObject(parent)
    , m_Image(image)
    , m_pWanted(std::make_shared<std::atomic<bool>>(true))
{
    connect(&m_Watcher, &QFutureWatcherBase::finished, this, &HBSizeEstimate::Finish);
}

HBSizeEstimate::~HBSizeEstimate()
{
    *m_pWanted = false;
}

void HBSizeEstimate::Ask(const QString& path, const HBPhotoOptions& options)
{
    m_Path = path;
    m_Options = options;
    m_Options.isWanted = [wanted = m_pWanted] { return wanted->load(); };
    m_Again = m_IsBusy;
    if (m_IsBusy)
        return;
    m_IsBusy = true;
    // Once for all that one turn of the event loop changes.
    QMetaObject::invokeMethod(this, &HBSizeEstimate::Start, Qt::QueuedConnection);
}

void HBSizeEstimate::Start()
{
    m_Again = false;
    HBWatchInPool(&m_Watcher, [image = m_Image, path = m_Path, options = m_Options]() -> qint64 {
        QByteArray file;
        QString ignored;
        return HBEncodePhoto(path, image, options, &file, &ignored) ? file.size() : -1;
    });
}

void HBSizeEstimate::Finish()
{
    const qint64 bytes = m_Watcher.result();
    m_IsBusy = m_Again;
    if (m_Again)
        Start();
    Q_EMIT Known(bytes);
}

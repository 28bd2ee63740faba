// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QThreadPool>

/// Makes thumbnails on threads of its own, those that are wanted first before others. GUI thread.
class HBThumbnails : public QObject
{
    Q_OBJECT
public:
    explicit HBThumbnails(QObject* parent = nullptr);
    /// Waits for those that are being made.
    ~HBThumbnails() override;

    /// In place of what was wanted before and has not begun.
    void SetWanted(const QStringList& photos);

Q_SIGNALS:
    /// \param thumbnail null if it is no photo that can be read
    void Ready(const QString& photo, const QImage& thumbnail);

private:
    void StartNext();

    QStringList m_Wanted;
    QSet<QString> m_AtWork;
    QThreadPool m_Pool;
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBThumbnails.h"

#include <QDockWidget>

class QListWidget;

/// The photos of a folder, or those that were chosen, in a row: one is open, any number are marked. GUI thread.
class HBFilmStrip : public QDockWidget
{
    Q_OBJECT
public:
    explicit HBFilmStrip(QWidget* parent = nullptr);

    /// All photos of the folder that this one lies in, unless it is one of those that were chosen.
    void SetOpen(const QString& photo);
    /// These and no others.
    void SetPhotos(const QStringList& photos);
    /// A file has been written.
    void Refresh(const QString& photo);

    /// Whether all that are in sight have their thumbnails, or nothing is in sight.
    bool IsComplete() const;

    const QStringList& Photos() const { return m_Photos; }
    /// The one so many places behind the open one; empty if there is none.
    QString Neighbour(int step) const;
    /// In their order; the open one if none is marked.
    QStringList Marked() const;

Q_SIGNALS:
    /// To be opened.
    void Chosen(const QString& photo);
    void MarkedChanged(int count);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void List();
    void ShowOpen();
    QStringList Missing(int ahead) const;
    void WantSeen();
    void ShowThumbnail(const QString& photo, const QImage& thumbnail);

    QListWidget* m_pList;
    HBThumbnails m_Thumbnails;
    QStringList m_Photos;
    QHash<QString, QIcon> m_Icons;
    QString m_Open;
    QString m_Folder; ///< whose photos these are; empty: chosen ones
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBDocument.h"

#include <QElapsedTimer>
#include <QLockFile>

#include <memory>

/// The stack of an editor that did not come to its end.
struct HBLostStack
{
    QString file; ///< that keeps it
    QString photo;
    qint64 size = 0; ///< of the photo's file, when it was last read or written
    QDateTime time;
    HBDocument::Steps steps;
    HBDocument::Steps saved; ///< what the photo's file is the result of already

    /// Whether the photo's file is as it was.
    bool IsSamePhoto() const;
    /// The steps as they fit the file: those that were saved in it are left out; where others were, all are
    /// switched off.
    HBDocument::Steps StepsForFile() const;

private:
    friend class HBRecovery;
    std::shared_ptr<QLockFile> lock; ///< no other editor offers it meanwhile
};

/// Keeps a document's unsaved steps in a file, a recipe with the photo's name, whole or not at all, so that they
/// can be offered after a crash. Each change is written at once, but for the amounts of one gesture: once a
/// second. A document without unsaved steps has no such file. Each editor has its own, and a lock that ends with
/// its process.
class HBRecovery : public QObject
{
    Q_OBJECT
public:
    /// \param folder made if need be
    HBRecovery(const QString& folder, HBDocument* document, QObject* parent = nullptr);
    /// The program comes to its end: what was not saved is not wanted any more.
    ~HBRecovery() override;

    QString Folder() const { return m_Folder; }
    /// What editors that are no more have left in the folder, the last first.
    QVector<HBLostStack> FindLost() const;
    /// Deletes it.
    static void Forget(const HBLostStack& lost);

Q_SIGNALS:
    /// Nothing can be kept.
    void Failed(const QString& reason);

private:
    void OnChanged();
    void Write();
    void Remove();

    const QString m_Folder;
    const QString m_File;
    HBDocument* m_pDocument;
    std::unique_ptr<QLockFile> m_pLock;
    QTimer m_Soon;
    QElapsedTimer m_SinceWrite;
    HBDocument::Steps m_Written;
    bool m_IsThere = false;
    bool m_HasFailed = false;
};

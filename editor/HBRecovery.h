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
    HBRecipeStep panel;      ///< of a panel that was open and had not been applied; of no panel: there was none
    int opened = -1;         ///< which of the steps that panel had opened; -1: it made a new one

    /// Whether the photo's file is as it was.
    bool IsSamePhoto() const;
    /// The steps as they fit the file: those that were saved in it are left out; where others were, all are
    /// switched off.
    HBDocument::Steps StepsForFile() const;
    bool HasPanel() const { return !panel.panel.isEmpty(); }
    /// The same with what the panel had changed, as if it had been applied. Of a step that the file holds already
    /// that is another step, which is switched off.
    HBDocument::Steps StepsWithPanel() const;

private:
    friend class HBRecovery;
    std::shared_ptr<QLockFile> lock; ///< no other editor offers it meanwhile
};

/// Keeps a document's unsaved steps in a file, a recipe with the photo's name, whole or not at all, so that they
/// can be offered after a crash; those of an open panel with them. Each change is written at once, but for the
/// amounts of one gesture: once a second. A document without unsaved steps has no such file. Each editor has its
/// own, and a lock that ends with its process.
class HBRecovery : public QObject
{
    Q_OBJECT
public:
    /// \param folder made if need be
    HBRecovery(const QString& folder, HBDocument* document, QObject* parent = nullptr);
    /// The program comes to its end: what was not saved is not wanted any more.
    ~HBRecovery() override;

    /// What the open panel would apply now.
    /// \param step of no panel: there is none, or it changes nothing. If it is applied in the same turn of the
    ///        event loop, no state without it is ever written
    /// \param opened as HBLostStack::opened
    void SetPanel(const HBRecipeStep& step, int opened);

    QString Folder() const { return m_Folder; }
    /// At once. Whether all that is to be kept is on the disk.
    bool Keep();
    /// What editors that are no more have left in the folder, the last first. \throws std::bad_alloc
    QVector<HBLostStack> FindLost() const;
    /// Deletes it.
    static void Forget(const HBLostStack& lost);

Q_SIGNALS:
    /// Nothing can be kept.
    void Failed(const QString& reason);

private:
    /// What is to be kept.
    struct State
    {
        HBDocument::Steps steps;
        HBRecipeStep panel;
        int opened;
    };
    State Present() const;
    bool IsWritten() const;
    bool IsNeeded() const { return m_pDocument->IsModified() || !m_Panel.panel.isEmpty(); }

    void OnChanged();
    void Update();
    void Write();
    QByteArray Json(const State& state);
    void Remove();

    const QString m_Folder;
    const QString m_File;
    HBDocument* m_pDocument;
    std::unique_ptr<QLockFile> m_pLock;
    QTimer m_Soon;
    QElapsedTimer m_SinceWrite;
    HBRecipeStep m_Panel;
    int m_Opened = -1;
    State m_Written;
    bool m_IsThere = false;
    bool m_HasFailed = false;
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBStackResult.h"

#include <HBPhotoFile.h>

#include <QDateTime>
#include <QUndoStack>

#include <optional>

/// One photo as it was opened, the stack of steps that are applied to it, from the first to the last, and what is
/// selected for the next one. Every change of these can be undone; the result follows as soon as it is made.
class HBDocument : public QObject
{
    Q_OBJECT
public:
    using Steps = HBStackResult::Steps;

    explicit HBDocument(QObject* parent = nullptr);
    ~HBDocument() override;

    bool IsOpen() const { return !m_Result.Photo().IsEmpty(); }
    QString Path() const { return m_Path; }
    QString FileName() const;
    /// Of the file at Path(), for a save over it.
    const HBPhotoEncoding& Encoding() const { return m_Encoding; }
    /// Of that file when it was read or written.
    qint64 FileSize() const { return m_FileSize; }
    QDateTime FileTime() const { return m_FileTime; }

    /// The photo as it was opened; empty if nothing is open.
    const HBImage<>& Original() const { return m_Result.Photo(); }
    /// The result of the steps, or of an earlier stack while it is being made.
    const HBImage<>& Image() const { return m_Result.Image(); }
    HBStackResult& Result() { return m_Result; }
    const HBStackResult& Result() const { return m_Result; }

    /// Starts anew with a photo that was just read.
    void SetPhoto(const QString& path, const HBPhoto& photo);

    const Steps& AllSteps() const { return m_Steps; }
    int StepCount() const { return m_Steps.size(); }
    const HBRecipeStep& StepAt(int index) const { return m_Steps.at(index); }
    static QString TitleOf(const HBRecipeStep& step);

    /// Each of these is one entry of undo. An index that there is none for is ignored.
    /// \param title of what is done
    void SetSteps(const Steps& steps, const QString& title);
    /// \param image their result, if it is known
    /// \param selection what is selected from now on
    void Append(const Steps& steps, const QString& title, const HBImage<>& image = {},
                const std::optional<HBSelectionShape>& selection = std::nullopt);
    /// \param image the result of the step and those before it, if it is known
    void Replace(int index, const HBRecipeStep& step, const HBImage<>& image = {});
    void SetOn(int index, bool on);
    /// Amounts that follow each other soon are one entry.
    void SetAmount(int index, int amount);
    void Move(int from, int to);
    void Duplicate(int index);
    void Remove(int index);
    /// No change of the photo.
    /// \param gesture those that follow each other soon with the same number are one entry; -1: with none
    void SetSelection(const HBSelectionShape& selection, int gesture = -1);
    const HBSelectionShape& Selection() const { return m_Selection; }

    /// Takes back what has changed since there was a result, instead of making one.
    void GiveUp();

    /// Silent while a photo is opened.
    QUndoStack& History() { return m_History; }
    const QUndoStack& History() const { return m_History; }
    bool IsModified() const { return m_Steps != m_SavedSteps; }
    /// The file holds what the present steps make of the photo.
    void SetSaved(const QString& path, const HBPhotoEncoding& encoding = {});
    /// The steps that the file holds the result of.
    const Steps& SavedSteps() const { return m_SavedSteps; }

    /// The steps that are on.
    HBRecipe Recipe() const;

Q_SIGNALS:
    /// Image(), the steps or the modified state is another.
    void Changed();
    void StepsChanged();
    /// By undo, redo, or another photo.
    void SelectionChanged();
    /// The steps have no result.
    void Failed(const QString& reason);

private:
    class Change;
    void Push(const Steps& steps, const HBSelectionShape& selection, const QString& title, int gesture = -1);
    void Push(const Steps& steps, const QString& title, int gesture = -1)
    {
        Push(steps, m_Selection, title, gesture);
    }
    void ReadFileState();
    void NoteResult();
    bool Has(int index) const { return index >= 0 && index < m_Steps.size(); }

    QString m_Path;
    HBPhotoEncoding m_Encoding;
    qint64 m_FileSize = 0;
    QDateTime m_FileTime;
    Steps m_Steps;
    Steps m_SavedSteps;
    HBSelectionShape m_Selection;
    HBStackResult m_Result;
    QUndoStack m_History;
    int m_ReadyAt = 0; ///< where in the history there was a result last
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>
#include <HBPhotoFile.h>
#include <HBRecipe.h>

#include <QObject>
#include <QVector>

/// One photo with the history of what was done to it. The states share the tiles that a step did not change, so
/// keeping them is cheap; what does not fit in memory goes to the scratch file with all other tiles.
class HBDocument : public QObject
{
    Q_OBJECT
public:
    struct State
    {
        QString title; ///< of the step that led here
        HBImage<> image;
        QVector<HBRecipeStep> steps; ///< what led here from the state before; empty for the photo as it was opened
        bool wholeImage = true;      ///< false: the step was made on a selection, which no recipe can tell
    };

    using QObject::QObject;

    bool IsOpen() const { return !m_States.isEmpty(); }
    QString Path() const { return m_Path; }
    QString FileName() const;
    /// Of the file at Path(), for a save over it.
    const HBPhotoEncoding& Encoding() const { return m_Encoding; }
    /// Empty if nothing is open.
    const HBImage<>& Image() const;
    /// As it was opened.
    const HBImage<>& Original() const;

    /// Starts anew with a photo that was just read.
    void SetPhoto(const QString& path, const HBPhoto& photo);
    /// Adds a state after the present one; what could be redone is dropped.
    void Apply(const State& state);

    const QVector<State>& States() const { return m_States; }
    int Index() const { return m_Index; }
    /// Undoes or redoes up to that state; an index that there is none for is ignored.
    void GoTo(int index);
    bool CanUndo() const { return m_Index > 0; }
    bool CanRedo() const { return m_Index + 1 < m_States.size(); }

    bool IsModified() const { return m_Index != m_SavedIndex; }
    /// The present state is what the file holds.
    void SetSaved(const QString& path, const HBPhotoEncoding& encoding = {});

    /// The steps up to the present state that were made on the whole image.
    /// \param leftOut how many were not; may be null
    HBRecipe Recipe(int* leftOut) const;

public Q_SLOTS:
    void Undo() { GoTo(m_Index - 1); }
    void Redo() { GoTo(m_Index + 1); }

Q_SIGNALS:
    /// Image(), the history or the modified state is another.
    void Changed();

private:
    QString m_Path;
    HBPhotoEncoding m_Encoding;
    QVector<State> m_States;
    int m_Index = -1;
    int m_SavedIndex = -1; ///< -2: the saved state can no longer be reached
};

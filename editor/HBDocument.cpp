// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBDocument.h"

#include <HBAdjustment.h>

#include <QElapsedTimer>
#include <QFileInfo>

#include <new>
#include <utility>

namespace
{

constexpr int GestureMilliseconds = 1000;
constexpr int SelectionGestures = 1 << 20; // behind those of the steps' amounts

} // namespace

/// From one stack, or selection, to another.
class HBDocument::Change : public QUndoCommand
{
public:
    Change(HBDocument* document, const Steps& steps, const HBSelectionShape& selection, const QString& title,
           int gesture)
        : QUndoCommand(title)
        , m_pDocument(document)
        , m_Before{document->m_Steps, document->m_Selection}
        , m_After{steps, selection}
        , m_Gesture(gesture)
    {
        m_Since.start();
    }

    void undo() override { Set(m_Before); }
    void redo() override { Set(m_After); }
    int id() const override { return m_Gesture; }
    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* next = static_cast<const Change*>(other);
        if (m_Since.elapsed() > GestureMilliseconds)
            return false;
        m_Since.start();
        m_After = next->m_After;
        return true;
    }

private:
    struct State
    {
        Steps steps;
        HBSelectionShape selection;
    };
    void Set(const State& state)
    {
        const bool isOther = state.steps != m_pDocument->m_Steps;
        const bool isElsewhere = state.selection != m_pDocument->m_Selection;
        const Steps before = std::exchange(m_pDocument->m_Steps, state.steps);
        m_pDocument->m_Selection = state.selection;
        try {
            if (isElsewhere)
                Q_EMIT m_pDocument->SelectionChanged();
            if (!isOther)
                return;
            m_pDocument->m_Result.Want(state.steps);
        } catch (const std::bad_alloc&) {
            if (isOther && m_pDocument->m_Result.Asked() != state.steps)
                m_pDocument->m_Steps = before; // or they would have the result of others
            throw;
        }
        Q_EMIT m_pDocument->StepsChanged();
    }

    HBDocument* m_pDocument;
    const State m_Before;
    State m_After;
    const int m_Gesture;
    QElapsedTimer m_Since; ///< since the last amount of the gesture
};

HBDocument::HBDocument(QObject* parent) : QObject(parent)
{
    connect(&m_Result, &HBStackResult::Ready, this, &HBDocument::NoteResult);
    connect(&m_History, &QUndoStack::indexChanged, this,
            &HBDocument::NoteResult); // a change is pushed behind Ready
    connect(&m_Result, &HBStackResult::Ready, this, &HBDocument::Changed);
    connect(&m_Result, &HBStackResult::Failed, this, &HBDocument::Failed);
    connect(&m_History, &QUndoStack::indexChanged, this, &HBDocument::Changed);
    connect(&m_History, &QUndoStack::cleanChanged, this, &HBDocument::Changed);
}

HBDocument::~HBDocument()
{
    m_History.disconnect(this); // it tells that it ends
}

QString HBDocument::FileName() const
{
    return QFileInfo(m_Path).fileName();
}

void HBDocument::SetPhoto(const QString& path, const HBPhoto& photo)
{
    m_Path = path;
    m_Encoding = photo.encoding;
    ReadFileState();
    m_Steps.clear();
    m_SavedSteps.clear();
    m_Selection = {};
    m_Result.SetPhoto(photo.image);
    {
        const QSignalBlocker quiet(m_History); // one word for all of it
        m_History.clear();
    }
    NoteResult();
    Q_EMIT SelectionChanged();
    Q_EMIT StepsChanged();
    Q_EMIT Changed();
}

QString HBDocument::TitleOf(const HBRecipeStep& step)
{
    const HBAdjustment* adjustment = HBFindAdjustment(step.panel);
    return adjustment ? adjustment->Title() : step.panel;
}

// ---- Changing the stack ----

void HBDocument::Push(const Steps& steps, const HBSelectionShape& selection, const QString& title, int gesture)
{
    if (steps.size() > HBRecipe::MaximumSteps) // which nothing could read again
        Q_EMIT Failed(tr("A photo has at most %1 steps.").arg(HBRecipe::MaximumSteps));
    else if (IsOpen() && (steps != m_Steps || selection != m_Selection))
        m_History.push(new Change(this, steps, selection, title, gesture));
}

void HBDocument::SetSteps(const Steps& steps, const QString& title)
{
    Push(steps, title);
}

void HBDocument::Append(const Steps& steps, const QString& title, const HBImage<>& image,
                        const std::optional<HBSelectionShape>& selection)
{
    if (!IsOpen() || steps.isEmpty())
        return;
    const Steps all = m_Steps + steps;
    if (!image.IsEmpty())
        m_Result.Know(all, image);
    Push(all, selection.value_or(m_Selection), title);
}

void HBDocument::Replace(int index, const HBRecipeStep& step, const HBImage<>& image)
{
    if (!Has(index))
        return;
    Steps steps = m_Steps;
    steps[index] = step;
    if (!image.IsEmpty())
        m_Result.Know(steps.mid(0, index + 1), image);
    Push(steps, TitleOf(step));
}

void HBDocument::SetOn(int index, bool on)
{
    if (!Has(index))
        return;
    Steps steps = m_Steps;
    steps[index].on = on;
    Push(steps, (on ? tr("Switch On %1") : tr("Switch Off %1")).arg(TitleOf(steps.at(index))));
}

void HBDocument::SetAmount(int index, int amount)
{
    if (!Has(index))
        return;
    Steps steps = m_Steps;
    steps[index].amount = qBound(0, amount, HBRecipeStep::MaximumAmount);
    Push(steps, tr("Amount of %1").arg(TitleOf(steps.at(index))), index);
}

void HBDocument::Move(int from, int to)
{
    if (!Has(from) || !Has(to))
        return;
    Steps steps = m_Steps;
    steps.move(from, to);
    Push(steps, tr("Move %1").arg(TitleOf(steps.at(to))));
}

void HBDocument::Duplicate(int index)
{
    if (!Has(index))
        return;
    Steps steps = m_Steps;
    steps.insert(index + 1, m_Steps.at(index));
    Push(steps, tr("Duplicate %1").arg(TitleOf(steps.at(index))));
}

void HBDocument::Remove(int index)
{
    if (!Has(index))
        return;
    Steps steps = m_Steps;
    steps.remove(index);
    Push(steps, tr("Delete %1").arg(TitleOf(m_Steps.at(index))));
}

void HBDocument::NoteResult()
{
    if (m_Result.IsUpToDate())
        m_ReadyAt = m_History.index();
}

void HBDocument::GiveUp()
{
    if (!m_Result.IsUpToDate() && m_ReadyAt <= m_History.count())
        m_History.setIndex(m_ReadyAt);
    if (!m_Result.IsUpToDate()) // amounts of one gesture, or what is no longer in the history
        m_History.undo();
}

void HBDocument::SetSelection(const HBSelectionShape& selection, int gesture)
{
    Push(m_Steps, selection, tr("Selection"), gesture < 0 ? -1 : SelectionGestures + gesture);
}

// ---- The file ----

void HBDocument::SetSaved(const QString& path, const HBPhotoEncoding& encoding)
{
    m_Path = path;
    m_Encoding = encoding;
    m_SavedSteps = m_Steps;
    ReadFileState();
    {
        const QSignalBlocker quiet(m_History);
        m_History.setClean();
    }
    Q_EMIT Changed();
}

void HBDocument::ReadFileState()
{
    const QFileInfo info(m_Path);
    m_FileSize = info.size();
    m_FileTime = info.lastModified();
}

HBRecipe HBDocument::Recipe() const
{
    HBRecipe recipe;
    for (const HBRecipeStep& step : m_Steps) {
        if (step.on)
            recipe.steps.append(step);
    }
    return recipe;
}

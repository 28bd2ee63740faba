// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelGestures.h"

#include "HBSelectionTool.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelSession.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace
{

// Keys that repeat, and numbers that are typed, are one gesture.
constexpr int RestMilliseconds = 300;

} // namespace

HBPanelGestures::HBPanelGestures(HBPanelSession* session, HBSelectionTool* selection, QObject* parent)
    : QObject(parent)
    , m_pSession(session)
    , m_pSelection(selection)
    , m_States({Present()})
{
    m_Rest.setSingleShot(true);
    m_Rest.setInterval(RestMilliseconds);
    connect(&m_Rest, &QTimer::timeout, this, &HBPanelGestures::OnTimeout);
    const auto begin = [this] {
        m_Rest.start(RestMilliseconds);
        Q_EMIT Changed();
    };
    connect(session->Panel(), &HBAdjustmentWidget::DataChanged, this, begin);
    connect(session->Panel(), &HBAdjustmentWidget::AboutUserParamsChanged, this, begin);
    connect(selection, &HBSelectionTool::Changed, this, [this](int gesture) {
        m_Rest.start(gesture < 0 ? 0 : RestMilliseconds);
        Q_EMIT Changed();
    });
    // A preset and a pick set the values without a word.
    connect(session, &HBPanelSession::PreviewReady, this, [this] {
        if (!m_Rest.isActive() && !IsPresent(m_States.at(m_Index)))
            m_Rest.start(0);
    });
    qApp->installEventFilter(this);
}

HBPanelGestures::~HBPanelGestures()
{
    qApp->removeEventFilter(this);
}

HBPanelGestures::State HBPanelGestures::Present() const
{
    return {m_pSession->Step().values, m_pSelection->Shape()};
}

bool HBPanelGestures::IsPresent(const State& state) const
{
    const State present = Present();
    return state.values == present.values && state.selection == present.selection;
}

bool HBPanelGestures::CanUndo() const
{
    return m_Index > 0 || (m_Rest.isActive() && !IsPresent(m_States.at(m_Index)));
}

bool HBPanelGestures::AreValuesChanged() const
{
    return m_States.first().values != Present().values;
}

bool HBPanelGestures::IsSelectionChanged() const
{
    return m_States.first().selection != Present().selection;
}

void HBPanelGestures::OnTimeout()
{
    if (QApplication::mouseButtons() != Qt::NoButton)
        m_Rest.start(RestMilliseconds); // the hand only rests; its release ends the gesture
    else
        Note();
}

void HBPanelGestures::Note()
{
    m_Rest.stop();
    if (!m_pSession->Panel() || IsPresent(m_States.at(m_Index)))
        return;
    m_States.resize(m_Index + 1);
    m_States.append(Present());
    ++m_Index;
    Q_EMIT Changed();
    Q_EMIT Done();
}

void HBPanelGestures::GoTo(int index)
{
    m_Index = index;
    const State state = m_States.at(index);
    m_pSession->SetStep({QString::fromLatin1(m_pSession->Entry().className), state.values});
    m_pSelection->SetShape(state.selection);
    m_Rest.stop(); // that was no gesture
    m_States[index] = Present();
    Q_EMIT Changed();
    Q_EMIT Done();
}

void HBPanelGestures::Undo()
{
    Note();
    if (m_Index > 0)
        GoTo(m_Index - 1);
}

void HBPanelGestures::Redo()
{
    Note();
    if (CanRedo())
        GoTo(m_Index + 1);
}

bool HBPanelGestures::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_Rest.isActive())
        m_Rest.start(0);
    if (event->type() == QEvent::ShortcutOverride) {
        // A number's box would undo its own text letter by letter, and keep the keys also when it has none.
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool undo = key->matches(QKeySequence::Undo);
        const bool redo = key->matches(QKeySequence::Redo);
        const auto* edit = qobject_cast<const QLineEdit*>(watched);
        const bool isNumber = qobject_cast<const QAbstractSpinBox*>(watched) ||
                              (edit && qobject_cast<const QAbstractSpinBox*>(edit->parentWidget()));
        const bool isIdle = edit && !(undo ? edit->isUndoAvailable() : edit->isRedoAvailable());
        const QWidget* panel = m_pSession->Widget();
        if ((undo || redo) && (isNumber || isIdle) && panel &&
            panel->isAncestorOf(static_cast<const QWidget*>(watched))) {
            event->ignore();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

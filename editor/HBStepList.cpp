// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBStepList.h"

#include "HBDocument.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

namespace
{

QString RowText(const HBRecipeStep& step)
{
    QStringList notes;
    if (step.amount < HBRecipeStep::MaximumAmount)
        notes.append(HBStepList::tr("%1 %").arg(step.amount).replace(' ', QChar(QChar::Nbsp)));
    if (!step.selection.IsNone())
        notes.append(HBStepList::tr("selection"));
    const QString title = HBDocument::TitleOf(step);
    return notes.isEmpty() ? title : QString("%1 (%2)").arg(title, notes.join(", "));
}

} // namespace

HBStepList::HBStepList(HBDocument* document, QWidget* parent)
    : QWidget(parent)
    , m_pDocument(document)
    , m_pList(new QListWidget(this))
    , m_pAmountRow(new QWidget(this))
    , m_pSlider(new QSlider(Qt::Horizontal, m_pAmountRow))
    , m_pSpin(new QSpinBox(m_pAmountRow))
{
    m_pList->setObjectName("StepList");
    m_pList->setAccessibleName(tr("Steps, from the first to the last"));
    m_pList->setToolTip(
        tr("Double click or Return: change a step · Space: on or off · Alt+Up, Alt+Down: move it · "
           "Ctrl+D: duplicate · Del: delete"));
    m_pList->setDragDropMode(QAbstractItemView::InternalMove);
    m_pList->setContextMenuPolicy(Qt::CustomContextMenu);
    m_pList->setMinimumHeight(80);
    m_pList->setSpacing(2);
    m_pList->setWordWrap(true);
    m_pList->setResizeMode(QListView::Adjust);
    m_pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pList->installEventFilter(this);

    m_pSlider->setRange(0, HBRecipeStep::MaximumAmount);
    m_pSlider->setPageStep(10);
    m_pSpin->setRange(0, HBRecipeStep::MaximumAmount);
    m_pSpin->setSuffix(tr(" %"));
    m_pSpin->setKeyboardTracking(false); // each value makes the photo anew
    for (QWidget* control : {static_cast<QWidget*>(m_pSlider), static_cast<QWidget*>(m_pSpin)}) {
        control->setToolTip(tr("How much of what the step does"));
        control->setAccessibleName(tr("Amount of the step in per cent"));
    }
    auto* amount = new QHBoxLayout(m_pAmountRow);
    amount->setContentsMargins(6, 2, 6, 6);
    amount->addWidget(new QLabel(tr("Amount:"), m_pAmountRow));
    amount->addWidget(m_pSlider, 1);
    amount->addWidget(m_pSpin);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pList, 1);
    layout->addWidget(m_pAmountRow);

    // Later, as its moves below: the list is in the middle of it.
    connect(m_pList, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
        const int step = m_pList->row(item);
        const bool on = item->checkState() == Qt::Checked;
        if (!m_Showing)
            QMetaObject::invokeMethod(
                this, [=] { m_pDocument->SetOn(step, on); }, Qt::QueuedConnection);
    });
    connect(m_pList, &QListWidget::itemActivated, this, [this] { Q_EMIT OpenAsked(Current()); });
    connect(m_pList, &QListWidget::currentRowChanged, this, &HBStepList::ShowAmount);
    connect(m_pList, &QWidget::customContextMenuRequested, this, &HBStepList::ShowMenu);
    connect(m_pSlider, &QSlider::valueChanged, this, &HBStepList::OnAmount);
    connect(m_pSpin, QOverload<int>::of(&QSpinBox::valueChanged), this, &HBStepList::OnAmount);
    connect(
        m_pList->model(), &QAbstractItemModel::rowsMoved, this,
        [this](const QModelIndex&, int from, int, const QModelIndex&, int before) {
            Move(from, before > from ? before - 1 : before);
        },
        Qt::QueuedConnection);
    connect(document, &HBDocument::StepsChanged, this, &HBStepList::Show);
    Show();
}

int HBStepList::Current() const
{
    return m_pList->currentRow();
}

void HBStepList::SetCurrent(int step)
{
    m_pList->setCurrentRow(step);
}

void HBStepList::SetOpened(bool opened, int step)
{
    if (opened == m_Opened && step == m_OpenedStep)
        return;
    m_Opened = opened;
    m_OpenedStep = step;
    Show();
}

void HBStepList::Show()
{
    const QScopedValueRollback<bool> showing(m_Showing, true);
    const int current = m_pList->currentRow();
    const bool atEnd = current < 0 || current == m_pList->count() - 1;
    m_pList->clear();
    for (int i = 0; i < m_pDocument->StepCount(); ++i) {
        const HBRecipeStep& step = m_pDocument->StepAt(i);
        auto* item = new QListWidgetItem(RowText(step), m_pList);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsUserCheckable);
        item->setCheckState(step.on ? Qt::Checked : Qt::Unchecked);
        QFont font = m_pList->font();
        font.setBold(i == m_OpenedStep);
        item->setFont(font);
    }
    const int last = m_pList->count() - 1;
    m_pList->setCurrentRow(atEnd ? last : qMin(current, last));
    m_pList->setEnabled(!m_Opened);
    ShowAmount();
}

void HBStepList::ShowAmount()
{
    const QScopedValueRollback<bool> showing(m_Showing, true);
    const int step = Current();
    const bool has = step >= 0 && step < m_pDocument->StepCount();
    m_pAmountRow->setEnabled(has && !m_Opened);
    const int amount = has ? m_pDocument->StepAt(step).amount : HBRecipeStep::MaximumAmount;
    m_pSlider->setValue(amount);
    m_pSpin->setValue(amount);
}

void HBStepList::OnAmount(int amount)
{
    if (!m_Showing)
        m_pDocument->SetAmount(Current(), amount);
}

void HBStepList::Move(int from, int to)
{
    if (from < 0 || to < 0 || to >= m_pDocument->StepCount())
        return;
    m_pList->setCurrentRow(to);
    m_pDocument->Move(from, to);
    SetCurrent(to);
}

bool HBStepList::TakeKey(int key, Qt::KeyboardModifiers modifiers)
{
    const int step = Current();
    const auto plain = modifiers & ~Qt::KeypadModifier;
    if (plain == Qt::AltModifier && (key == Qt::Key_Up || key == Qt::Key_Down)) {
        Move(step, key == Qt::Key_Up ? step - 1 : step + 1);
        return true;
    }
    if (plain == Qt::ControlModifier && key == Qt::Key_D) {
        m_pDocument->Duplicate(step);
        SetCurrent(step + 1);
        return true;
    }
    if (plain == Qt::NoModifier && key == Qt::Key_Delete) {
        m_pDocument->Remove(step);
        return true;
    }
    return false;
}

bool HBStepList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pList && !m_Opened &&
        (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (event->type() == QEvent::KeyPress && TakeKey(key->key(), key->modifiers()))
            return true;
        // Keys that the window has for something else.
        if (event->type() == QEvent::ShortcutOverride && key->modifiers() == Qt::ControlModifier &&
            key->key() == Qt::Key_D)
            key->accept();
    }
    return QWidget::eventFilter(watched, event);
}

void HBStepList::ShowMenu(const QPoint& at)
{
    const int step = m_pList->row(m_pList->itemAt(at));
    if (step < 0)
        return;
    QMenu menu(this);
    const auto add = [&](const QString& text, const char* key, const auto& function) {
        QAction* action = menu.addAction(text);
        action->setShortcut(QKeySequence(key));
        connect(action, &QAction::triggered, this, function);
        return action;
    };
    add(tr("&Change…"), "Return", [=] { Q_EMIT OpenAsked(step); });
    const bool on = m_pDocument->StepAt(step).on;
    add(on ? tr("Switch &Off") : tr("Switch &On"), "Space", [=] { m_pDocument->SetOn(step, !on); });
    menu.addSeparator();
    add(tr("Move &Up"), "Alt+Up", [=] { Move(step, step - 1); })->setEnabled(step > 0);
    add(tr("Move Do&wn"), "Alt+Down", [=] { Move(step, step + 1); })->setEnabled(step + 1 < m_pList->count());
    add(tr("D&uplicate"), "Ctrl+D", [=] { m_pDocument->Duplicate(step); });
    menu.addSeparator();
    add(tr("&Delete"), "Del", [=] { m_pDocument->Remove(step); });
    menu.exec(m_pList->viewport()->mapToGlobal(at));
}

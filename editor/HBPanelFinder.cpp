// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFinder.h"

#include <HBPanelCatalog.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

/// Whether each word that was typed begins one of the text.
bool Matches(const QString& text, const QString& typed)
{
    const QStringList words = text.toLower().split(' ', Qt::SkipEmptyParts);
    const QStringList wanted = typed.toLower().split(' ', Qt::SkipEmptyParts);
    return std::all_of(wanted.begin(), wanted.end(), [&](const QString& start) {
        return std::any_of(words.begin(), words.end(),
                           [&](const QString& word) { return word.startsWith(start); });
    });
}

} // namespace

HBPanelFinder::HBPanelFinder(QWidget* parent) : QDialog(parent), m_pTyped(new QLineEdit), m_pFound(new QListWidget)
{
    setWindowTitle(tr("Find Panel"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pTyped->setPlaceholderText(tr("Name of a panel"));
    m_pTyped->setAccessibleName(m_pTyped->placeholderText());
    m_pTyped->setClearButtonEnabled(true);
    m_pFound->setFocusPolicy(Qt::NoFocus); // the arrow keys reach it from the line above
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_pTyped);
    layout->addWidget(m_pFound);
    m_pTyped->installEventFilter(this);
    connect(m_pTyped, &QLineEdit::textChanged, this, &HBPanelFinder::List);
    connect(m_pTyped, &QLineEdit::returnPressed, this, [this] {
        if (Chosen())
            accept();
    });
    connect(m_pFound, &QListWidget::itemClicked, this, &QDialog::accept);
    List(QString());
    resize(sizeHint().expandedTo(QSize(320, 420)));
}

/// Those whose name fits come before those of whose group or English name something does.
void HBPanelFinder::List(const QString& typed)
{
    m_pFound->clear();
    QVector<const HBPanelEntry*> found[2];
    for (const HBPanelEntry* entry : HBAllPanels()) {
        const QString more = entry->Group() + ' ' + entry->title + ' ' + entry->group;
        if (Matches(entry->Title(), typed))
            found[0].append(entry);
        else if (Matches(entry->Title() + ' ' + more, typed))
            found[1].append(entry);
    }
    for (auto& part : found) {
        std::sort(part.begin(), part.end(), [](const auto* a, const auto* b) {
            return QString::localeAwareCompare(a->Title(), b->Title()) < 0;
        });
        for (const HBPanelEntry* entry : qAsConst(part)) {
            auto* item = new QListWidgetItem(entry->Title(), m_pFound);
            item->setData(Qt::UserRole, QString(entry->className));
            item->setToolTip(entry->Group());
        }
    }
    m_pFound->setCurrentRow(0);
}

const HBPanelEntry* HBPanelFinder::Chosen() const
{
    const QListWidgetItem* item = m_pFound->currentItem();
    return item ? HBFindPanel(item->data(Qt::UserRole).toString()) : nullptr;
}

bool HBPanelFinder::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pTyped && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(m_pFound, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

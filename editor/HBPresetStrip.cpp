// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPresetStrip.h"

#include "HBFolders.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>
#include <QWheelEvent>

#include <cmath>

namespace
{

/// Of a preset's picture; a low screen has better use for the room.
int PresetSide()
{
    return QGuiApplication::primaryScreen()->availableSize().height() < 800 ? 40 : 64;
}

QString Filter()
{
    return HBPresetStrip::tr("Presets and recipes") + " (*.json)";
}

} // namespace

HBPresetStrip::HBPresetStrip(const QString& folder, HBPanelSession* session, HBFolders* folders, QWidget* parent)
    : QWidget(parent)
    , m_pSession(session)
    , m_pFolders(folders)
    , m_Presets(folder, *session->Entry().adjustment)
    , m_pList(new QListWidget)
{
    m_pList->setObjectName("presets");
    m_pList->setAccessibleName(tr("Presets"));
    m_pList->setViewMode(QListView::IconMode);
    m_pList->setFlow(QListView::LeftToRight);
    m_pList->setWrapping(false);
    m_pList->setMovement(QListView::Static);
    m_pList->setTextElideMode(Qt::ElideRight);
    m_pList->setIconSize(QSize(PresetSide(), PresetSide()));
    const int width = qMax(PresetSide() + 12, fontMetrics().horizontalAdvance(tr("Last used")) + 16);
    m_pList->setGridSize(QSize(width, PresetSide() + fontMetrics().height() + 10));
    m_pList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The wheel and the arrow keys go along the row; a scroll bar would take a third of the height.
    m_pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pList->setFixedHeight(m_pList->gridSize().height() + 2 * m_pList->frameWidth());
    m_pList->viewport()->installEventFilter(this);
    m_pList->installEventFilter(this);
    m_pList->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* more = new QToolButton;
    more->setText(QStringLiteral("…"));
    more->setToolTip(tr("Save, rename, delete, import and export presets"));
    more->setAccessibleName(more->toolTip());
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 0);
    layout->addWidget(m_pList, 1);
    layout->addWidget(more, 0, Qt::AlignTop);
    connect(m_pList, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Apply(m_pList->row(item)); });
    connect(m_pList, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { ShowMenu(m_pList->viewport()->mapToGlobal(at)); });
    connect(more, &QToolButton::clicked, this,
            [this, more] { ShowMenu(more->mapToGlobal(QPoint(0, more->height()))); });
    connect(&m_Previews, &HBSmallPreviews::Ready, this, [this](const QVector<QImage>& previews) {
        m_IsComplete = true;
        for (int row = 0; row < previews.size() && row < m_pList->count(); ++row)
            m_pList->item(row)->setIcon(QIcon(QPixmap::fromImage(previews.at(row))));
    });
    List();
}

bool HBPresetStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel) {
        const QPoint delta = static_cast<QWheelEvent*>(event)->angleDelta();
        QScrollBar* bar = m_pList->horizontalScrollBar();
        bar->setValue(bar->value() - (delta.x() ? delta.x() : delta.y()));
        return true;
    }
    // Not by itemActivated, which in some styles comes behind each click, too.
    if (watched == m_pList && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter)
            Apply(m_pList->currentRow());
        if (key == Qt::Key_Space)
            return true; // Return is OK behind it, as everywhere in a panel
    }
    return QWidget::eventFilter(watched, event);
}

void HBPresetStrip::List()
{
    m_Entries.clear();
    const HBAdjustment& adjustment = *m_pSession->Entry().adjustment;
    const QJsonObject last = m_Presets.Last();
    std::any ignored;
    QString reason;
    if (!last.isEmpty() && adjustment.restore(last, &ignored, &reason))
        m_Entries.append({tr("Last used"), {}, last});
    m_Entries.append({tr("Default"), {}, adjustment.save(adjustment.defaults())});
    for (const QString& name : m_Presets.Names())
        m_Entries.append({name, name, m_Presets.Values(name)});
    m_pList->clear();
    QPixmap empty(PresetSide(), PresetSide());
    empty.fill(Qt::transparent);
    for (const Entry& entry : qAsConst(m_Entries)) {
        auto* item = new QListWidgetItem(QIcon(empty), entry.title, m_pList);
        item->setToolTip(entry.title);
        item->setSizeHint(m_pList->gridSize()); // or a name is cut off before the room for it ends
    }
    ShowPreviews();
}

void HBPresetStrip::ShowPreviews()
{
    if (!m_pSession || m_pSession->Target().source.IsEmpty())
        return;
    QVector<HBRecipe> recipes;
    for (const Entry& entry : qAsConst(m_Entries))
        recipes.append(HBRecipe{{{QString::fromLatin1(m_pSession->Entry().className), entry.values}}});
    m_IsComplete = false;
    m_Previews.Ask(m_pSession->Target().source, recipes, PresetSide() * int(std::ceil(devicePixelRatioF())));
}

void HBPresetStrip::Apply(int row)
{
    if (row < 0 || row >= m_Entries.size() || !m_pSession)
        return;
    const Entry entry = m_Entries.at(row);
    QString reason;
    Try(m_pSession->SetStep({QString::fromLatin1(m_pSession->Entry().className), entry.values}, &reason), reason);
    if (!entry.name.isEmpty())
        Try(m_Presets.SetUsed(entry.name, &reason), reason); // it stands where it was until the panel opens again
}

void HBPresetStrip::Try(bool done, const QString& reason)
{
    if (!done)
        Q_EMIT Failed(reason);
}

void HBPresetStrip::ShowMenu(const QPoint& position)
{
    const int row = m_pList->currentRow();
    const QString name = row >= 0 && row < m_Entries.size() ? m_Entries.at(row).name : QString();
    QMenu menu;
    menu.addAction(tr("&Save These Values…"), this, &HBPresetStrip::Save);
    menu.addAction(tr("&Import…"), this, [this] {
        const QString path = QFileDialog::getOpenFileName(
            this, tr("Import Preset"), m_pFolders->Folder(HBFolders::Presets, QString()), Filter());
        if (!path.isEmpty()) {
            m_pFolders->SetUsed(HBFolders::Presets, path);
            Import(path);
        }
    });
    menu.addSeparator();
    QAction* rename = menu.addAction(tr("&Rename “%1”…").arg(name), this, [=] { Rename(name); });
    QAction* remove = menu.addAction(tr("&Delete “%1”").arg(name), this, [=] { Delete(name); });
    QAction* exported = menu.addAction(tr("&Export “%1”…").arg(name), this, [=] {
        const QString folder = m_pFolders->Folder(HBFolders::Presets, QString());
        const QString path = QFileDialog::getSaveFileName(
            this, tr("Export Preset"), QDir(folder).filePath(name + ".adjustment-recipe.json"), Filter());
        if (!path.isEmpty()) {
            m_pFolders->SetUsed(HBFolders::Presets, path);
            Export(name, path);
        }
    });
    for (QAction* action : {rename, remove, exported})
        action->setVisible(!name.isEmpty());
    menu.exec(position);
}

void HBPresetStrip::Save()
{
    bool given = false;
    const QString name =
        QInputDialog::getText(this, tr("Save Preset"), tr("&Name:"), QLineEdit::Normal, {}, &given).trimmed();
    if (!given || name.isEmpty())
        return;
    if (m_Presets.Names().contains(name) &&
        QMessageBox::question(this, tr("Save Preset"), tr("Replace the preset “%1”?").arg(name)) !=
            QMessageBox::Yes)
        return;
    SaveAs(name);
}

bool HBPresetStrip::SaveAs(const QString& name)
{
    QString reason;
    const bool saved = m_pSession && m_Presets.Keep(name, m_pSession->Step().values, &reason);
    Try(saved, reason);
    List();
    return saved;
}

void HBPresetStrip::Rename(const QString& name)
{
    bool given = false;
    const QString newName =
        QInputDialog::getText(this, tr("Rename Preset"), tr("&Name:"), QLineEdit::Normal, name, &given).trimmed();
    QString reason;
    if (given && !newName.isEmpty())
        Try(m_Presets.Rename(name, newName, &reason), reason);
    List();
}

void HBPresetStrip::Delete(const QString& name)
{
    if (QMessageBox::question(this, tr("Delete Preset"), tr("Delete the preset “%1”?").arg(name)) !=
        QMessageBox::Yes)
        return;
    QString reason;
    Try(m_Presets.Remove(name, &reason), reason);
    List();
}

/// The first step of a recipe that is this panel's.
bool HBPresetStrip::Import(const QString& path)
{
    HBRecipe recipe;
    QString reason;
    bool done = HBRecipe::Load(path, &recipe, &reason);
    if (done) {
        done = false;
        reason = tr("%1: there is no step of this panel.").arg(path);
        for (const HBRecipeStep& step : qAsConst(recipe.steps)) {
            if (step.panel != QLatin1String(m_pSession->Entry().className))
                continue;
            const QString name = QFileInfo(path).fileName().section('.', 0, 0);
            QString free = name;
            for (int i = 2; m_Presets.Names().contains(free); ++i)
                free = QString("%1 %2").arg(name).arg(i);
            done = m_Presets.Keep(free, step.values, &reason);
            break;
        }
    }
    Try(done, reason);
    List();
    return done;
}

void HBPresetStrip::Export(const QString& name, const QString& path)
{
    QString reason;
    const HBRecipe recipe{{{QString::fromLatin1(m_pSession->Entry().className), m_Presets.Values(name)}}};
    Try(recipe.Save(path, &reason), reason);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecipeMenu.h"

#include "HBEditorStyle.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <cmath>

namespace
{

constexpr char Suffix[] = ".adjustment-recipe.json";
constexpr int Most = 30; // more than a menu holds

} // namespace

HBRecipeMenu::HBRecipeMenu(const QString& folder, QMenu* menu, QObject* parent)
    : QObject(parent)
    , m_Folder(folder)
    , m_pMenu(menu)
{
    menu->setProperty(HBEditorStyle::LargeIcons, true);
    menu->setToolTipsVisible(true);
    connect(menu, &QMenu::aboutToShow, this, &HBRecipeMenu::Fill);
    connect(&m_Previews, &HBSmallPreviews::Ready, this, [this](const QVector<QImage>& previews) {
        for (int i = 0; i < previews.size() && i < m_Shown.size(); ++i) {
            m_Shown.at(i)->setIcon(QIcon(QPixmap::fromImage(previews.at(i))));
            m_Shown.at(i)->setEnabled(!previews.at(i).isNull());
        }
    });
}

QString HBRecipeMenu::PathOf(const QString& name) const
{
    return QDir(m_Folder).filePath(name + Suffix);
}

void HBRecipeMenu::Fill()
{
    m_pMenu->clear();
    m_Shown.clear();
    QVector<HBRecipe> recipes;
    const QFileInfoList files = QDir(m_Folder).entryInfoList({"*.json"}, QDir::Files | QDir::Readable, QDir::Name);
    for (const QFileInfo& file : files.mid(0, Most)) {
        HBRecipe recipe;
        QString reason;
        if (!HBRecipe::Load(file.filePath(), &recipe, &reason))
            continue;
        QString name = file.fileName();
        name.chop(name.endsWith(Suffix) ? int(sizeof Suffix) - 1 : 5);
        QAction* action = m_pMenu->addAction(name.replace('&', "&&"));
        const QString path = file.filePath();
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT Chosen(path); });
        m_Shown.append(action);
        recipes.append(recipe);
    }
    if (m_Shown.isEmpty())
        m_pMenu->addAction(tr("No recipes yet"))->setEnabled(false);
    m_pMenu->addSeparator();
    connect(m_pMenu->addAction(tr("&Keep These Steps…")), &QAction::triggered, this, &HBRecipeMenu::KeepWanted);
    connect(m_pMenu->addAction(tr("&Open the Folder")), &QAction::triggered, this, [this] {
        QDir().mkpath(m_Folder);
        QDesktopServices::openUrl(QUrl::fromLocalFile(m_Folder));
    });
    const HBImage<> picture = photo ? photo() : HBImage<>();
    if (!picture.IsEmpty())
        m_Previews.Ask(picture, recipes,
                       int(std::ceil(HBEditorStyle::LargeIconSide * m_pMenu->devicePixelRatioF())));
}

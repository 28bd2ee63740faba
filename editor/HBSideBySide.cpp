// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSideBySide.h"

#include <KMDocumentView.h>

#include <QScopedValueRollback>
#include <QScrollBar>

HBSideBySide::HBSideBySide(KMDocumentView* after, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent)
    , m_pAfter(after)
    , m_pBefore(new KMDocumentView(this))
{
    setFocusProxy(after);
    m_pBefore->setAccessibleName(tr("Photo as it was before"));
    addWidget(m_pBefore);
    addWidget(after);
    setChildrenCollapsible(false);
    m_pBefore->hide();
    connect(after, &KMDocumentView::SightChanged, this, [this] { Follow(m_pAfter, m_pBefore); });
    connect(m_pBefore, &KMDocumentView::SightChanged, this, [this] { Follow(m_pBefore, m_pAfter); });
}

void HBSideBySide::SetBefore(const HBImage<>& image)
{
    m_Image = image;
    if (!m_Shown)
        return;
    const QScopedValueRollback<bool> following(m_Following, true); // one of another size is fitted in
    m_pBefore->SetPicture(image);
}

void HBSideBySide::SetShown(bool shown)
{
    m_Shown = shown;
    m_pBefore->setVisible(shown);
    if (!shown) {
        m_pBefore->SetPicture({}); // it takes memory for what it shows
        return;
    }
    setSizes({1, 1});
    SetBefore(m_Image);
    Follow(m_pAfter, m_pBefore);
}

void HBSideBySide::SetLook(const HBTileMips::Look& look)
{
    m_pBefore->SetLook(look);
}

void HBSideBySide::Follow(KMDocumentView* from, KMDocumentView* to)
{
    if (!m_Shown || m_Following || to->Picture().IsEmpty())
        return;
    const QScopedValueRollback<bool> following(m_Following, true);
    if (to->Zoom() != from->Zoom())
        to->SetZoom(from->Zoom());
    to->horizontalScrollBar()->setValue(from->horizontalScrollBar()->value());
    to->verticalScrollBar()->setValue(from->verticalScrollBar()->value());
}

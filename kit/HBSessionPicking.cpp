// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSessionPicking.h"

#include "HBPickSurface.h"

#include <HBAdjustmentWidget.h>
#include <KMDocumentView.h>

HBSessionPicking::HBSessionPicking(HBAdjustmentWidget* panel, QObject* parent) : QObject(parent), m_pPanel(panel)
{
}

void HBSessionPicking::SetView(QGraphicsView* view)
{
    auto* document = qobject_cast<KMDocumentView*>(view);
    if (view && !document) {
        auto* surface = new HBPickSurface(view, this);
        SetSurface(surface);
        m_pOwnSurface = surface;
        return;
    }
    ListenToView(document);
    delete m_pOwnSurface;
}

void HBSessionPicking::SetSurface(HBPickSurface* surface)
{
    ListenToView(surface ? surface->View() : nullptr);
    delete m_pOwnSurface; // the panel has let go of it
}

void HBSessionPicking::ListenToView(KMDocumentView* view)
{
    if (m_pPanel)
        m_pPanel->SetView(view); // ends a pick from the view before
    if (m_pView)
        m_pView->disconnect(this);
    m_pView = view;
    if (view) {
        connect(view, &KMDocumentView::OverrideCursorChanged, this, &HBSessionPicking::Tell);
        connect(view, &QObject::destroyed, this, [this] {
            m_pView = nullptr; // it is no view any more, and cannot be asked
            Tell();
        });
    }
    Tell();
}

void HBSessionPicking::Tell()
{
    const bool picking = m_pView && m_pView->HasOverrideCursor();
    if (picking != m_Picking)
        Q_EMIT Changed(m_Picking = picking);
}

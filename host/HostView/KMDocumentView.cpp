// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMDocumentView.h"

KMDocumentView::KMDocumentView(QWidget* parent) : QGraphicsView(parent) {}

void KMDocumentView::SetOverrideCursor(const QCursor& cursor)
{
    viewport()->setCursor(cursor);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hostview_export.h"

#include <QGraphicsView>

/// The view that shows the document (the photo). Scene coordinates are pixels of the photo.
class HOSTVIEW_EXPORT KMDocumentView : public QGraphicsView
{
    Q_OBJECT
public:
    explicit KMDocumentView(QWidget* parent = nullptr);

    /// The cursor shown over the view in place of its own; QCursor() gives the view's own back.
    void SetOverrideCursor(const QCursor& cursor);
};

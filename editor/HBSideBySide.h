// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBTileMips.h>

#include <QSplitter>

class KMDocumentView;

/// The view of the photo, and on wish to the left of it another of the photo as it was before: the same part, as
/// large.
class HBSideBySide : public QSplitter
{
    Q_OBJECT
public:
    explicit HBSideBySide(KMDocumentView* after, QWidget* parent = nullptr);

    void SetBefore(const HBImage<>& image);
    KMDocumentView* BeforeView() const { return m_pBefore; }

public Q_SLOTS:
    void SetShown(bool shown);
    void SetLook(const HBTileMips::Look& look);

private:
    void Follow(KMDocumentView* from, KMDocumentView* to);

    KMDocumentView* m_pAfter;
    KMDocumentView* m_pBefore;
    HBImage<> m_Image; ///< also while it is not shown
    bool m_Shown = false;
    bool m_Following = false;
};

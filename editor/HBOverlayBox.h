// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBPanelSession.h>

#include <QObject>
#include <QPointer>
#include <QRectF>

class HBOverlayBoxItem;
class KMDocumentView;

/// A frame around the stamp or the text of an open panel, by which the mouse moves it over the photo and, at its
/// lower right corner, makes it larger or smaller. What it changes is the panel's own: the margins, which decide
/// where a stamp lies and how much room it has, and the size of the font. GUI thread.
class HBOverlayBox : public QObject
{
    Q_OBJECT
public:
    /// Whether that panel has something to move.
    static bool IsFor(const HBPanelEntry& entry);
    /// A text that can be seen at first sight; the panel's own default is a hundredth of the photo high.
    static void SetFirstSize(HBPanelSession* session);

    HBOverlayBox(HBPanelSession* session, KMDocumentView* view);
    ~HBOverlayBox() override;

    /// In pixels of the photo; empty if there is nothing to be seen.
    QRectF Box() const { return m_Box; }

    // By so many pixels of the photo.
    void Move(const QPointF& by);
    void Resize(const QPointF& by);

private:
    void Find();

    HBPanelSession* const m_pSession;
    const QPointer<KMDocumentView> m_pView;
    HBOverlayBoxItem* m_pItem; ///< the scene's
    QRectF m_Box;
};

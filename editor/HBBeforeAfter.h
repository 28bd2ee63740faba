// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBTileMips.h>

#include <QObject>

class HBSplitLine;
class HBTileImageItem;
class KMDocumentView;

/// Shows the photo as it was before over what the view shows: all of it while a key is held or the preview is off,
/// or left of a line that can be dragged. Where the photo is larger than the view, the line stays in sight.
class HBBeforeAfter : public QObject
{
    Q_OBJECT
public:
    explicit HBBeforeAfter(KMDocumentView* view, QObject* parent = nullptr);

    void SetBefore(const HBImage<>& image);
    const HBImage<>& Before() const;
    bool IsHeld() const { return m_Held; }
    /// 0 is the left edge of the photo, 1 the right one.
    double SplitAt() const { return m_SplitAt; }
    void SetSplitAt(double fraction);
    /// Where the line is drawn, in pixels of the photo.
    double LineAt() const;

public Q_SLOTS:
    void SetHeld(bool held);
    void SetSplit(bool split);
    void SetPreviewed(bool previewed);
    /// As that of the view.
    void SetLook(const HBTileMips::Look& look);

private:
    void Update();

    KMDocumentView* m_pView;
    HBTileImageItem* m_pBefore;
    HBSplitLine* m_pLine;
    bool m_Held = false;
    bool m_Split = false;
    bool m_Previewed = true;
    double m_SplitAt = 0.5;
};

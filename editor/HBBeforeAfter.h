// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QObject>

class HBSplitLine;
class HBTileImageItem;
class KMDocumentView;

/// Shows the photo as it was before over what the view shows: all of it while a key is held, or left of a line
/// that can be dragged.
class HBBeforeAfter : public QObject
{
    Q_OBJECT
public:
    explicit HBBeforeAfter(KMDocumentView* view, QObject* parent = nullptr);

    void SetBefore(const HBImage<>& image);
    bool IsHeld() const { return m_Held; }
    bool IsSplit() const { return m_Split; }
    /// 0 is the left edge of the photo, 1 the right one.
    double SplitAt() const { return m_SplitAt; }
    void SetSplitAt(double fraction);
    HBTileImageItem* BeforeItem() const { return m_pBefore; }

public Q_SLOTS:
    void SetHeld(bool held);
    void SetSplit(bool split);

private:
    void Update();

    KMDocumentView* m_pView;
    HBTileImageItem* m_pBefore;
    HBSplitLine* m_pLine;
    bool m_Held = false;
    bool m_Split = false;
    double m_SplitAt = 0.5;
};

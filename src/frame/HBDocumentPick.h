// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelsExport.h"

#include <HBImage.h>
#include <HBJobControl.h>

#include <QFutureWatcher>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class KMDocumentView;
class QAbstractButton;

/// Colours picked from the photo: while one of several checkable buttons is checked, a rectangle dragged on the
/// document gives that button's colour, the average under it. GUI thread; the average is counted in the global
/// pool.
///
/// Who owns the buttons connects them to Toggle, and the watchers' finished() to whoever takes the result.
class HB_PANELS_EXPORT HBDocumentPick : public QObject
{
    Q_OBJECT
public:
    /// \param source the photo, as it is when a count begins
    /// \param filter hears the document's events and passes them to Filter; null: this does so itself
    explicit HBDocumentPick(const std::function<HBImage<>()>& source, QObject* filter = nullptr);
    /// Leaves no cursor, drag mode or filter with the document. A count that runs ends at its next tile.
    ~HBDocumentPick() override;

    /// A further button; returns its index, counted from 0.
    /// \param fallback the colour where no pixel can be counted
    int Add(QAbstractButton* button, const HBRGBA32i& fallback);
    /// The document to pick from; null for none. Unchecks the buttons.
    void SetView(KMDocumentView* view);
    /// A button was checked, which unchecks the others, or unchecked.
    void Toggle(int index, bool checked);
    void Filter(QObject* watched, QEvent* event);

    const QFutureWatcherBase* Watcher(int index) const { return &m_Picks.at(std::size_t(index))->watcher; }
    /// The colour of a watcher that has finished; none if it was cancelled.
    std::optional<HBRGBA32i> Result(int index) const;
    /// After a watcher has finished: a rectangle that was picked meanwhile, if any, has its turn, the last one.
    void StartNext(int index);
    /// Counts that run will have no result.
    void Cancel();

    /// The average under the rectangle (pixels, cut to the image): 32-bit sums that wrap above 16.8 million white
    /// pixels, on purpose; `fallback` where no pixel is, or once it is cancelled. Any thread.
    /// \throws std::bad_alloc
    static HBRGBA32i Average(const HBImage<>& image, const QRect& rect, const HBRGBA32i& fallback,
                             const HBJobControl* control = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Pick
    {
        QAbstractButton* button;
        HBRGBA32i fallback;
        QRect rect; ///< picked last, in pixels of the photo
        QFutureWatcher<HBRGBA32i> watcher;
        std::shared_ptr<HBJobControl> control; ///< of the count that was started last
        bool running = false;
        bool pending = false; ///< a rectangle was picked while the count ran
    };

    Pick* Checked() const;
    void InstallFilter(bool install);
    void Press(const QPoint& position);
    void Release(const QPoint& position);
    void EndDrag();
    void Start(Pick& pick);

    const std::function<HBImage<>()> m_Source;
    QObject* const m_pFilter;
    std::vector<std::unique_ptr<Pick>> m_Picks;
    QPointer<KMDocumentView> m_pView;
    bool m_Dragging = false;
    QPoint m_DragStart;
};

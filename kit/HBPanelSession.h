// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBKitExport.h"

#include <HBPanelCatalog.h>
#include <HBRecipe.h>
#include <HBTileWalk.h>

#include <QObject>
#include <QPointer>
#include <QRegion>
#include <QTimer>

class HBAdjustmentWidget;
class HBAmountJob;
class HBOverlayFrame;
class HBOverlayJob;
class HBPickSurface;
class HBSessionPicking;
class HBSessionSight;
class HBSessionWait;
class QGraphicsView;

/// Who brings OK, Cancel and Reset.
enum class HBPanelButtons {
    Panel, ///< the panel's widget has them, and a progress bar
    Host   ///< the program, which calls Accept, Reject and Reset
};

/// One open panel, from its opening to OK or Cancel: makes it from its row of the catalog, hands it the picture
/// and what is selected, passes its previews on as fast as they come, and at OK gives the image of exactly what
/// the controls say. The same for all panels, also those that only describe an overlay, which is drawn over the
/// whole picture whatever is selected.
///
///     HBSetUpPanels(window);                                         // once
///     auto* session = new HBPanelSession(*HBFindPanel("HBLevelsWidget"), window);
///     connect(session, &HBPanelSession::PreviewReady, view, &KMDocumentView::SetPicture);
///     connect(session, &HBPanelSession::Accepted, ...);              // the final image
///     connect(session, &HBPanelSession::Rejected, ...);
///     layout->addWidget(session->Widget());
///     session->SetTarget({picture});
///
/// The session owns the panel, wherever that is put on the screen. Both may be destroyed at any time, also while a
/// job runs, and at once: that waits for the end of a tile. From a slot of the session's or the panel's own
/// signals use deleteLater(). GUI thread only.
class HB_KIT_EXPORT HBPanelSession : public QObject
{
    Q_OBJECT
public:
    explicit HBPanelSession(const HBPanelEntry& entry, QObject* parent = nullptr,
                            HBPanelButtons buttons = HBPanelButtons::Panel);
    ~HBPanelSession() override;

    const HBPanelEntry& Entry() const { return m_Entry; }
    /// Null once it is destroyed.
    HBAdjustmentWidget* Panel() const;
    /// What to show: the panel, with its buttons if it brings them. Null once it is destroyed.
    QWidget* Widget() const;

    /// What to work on; also anew, when the picture or the selection has changed. An empty picture: the session
    /// rests, as that of a tab which is not in front. What of `target` lies outside the picture is ignored.
    void SetTarget(const HBTarget& target);
    const HBTarget& Target() const { return m_Target; }
    bool HasSelection() const { return m_Target.bounds.isValid(); }

    /// Previews and the final image have so many per cent of what the values do, as HBRecipeStep::amount: for a
    /// step that is opened again. Before the first target.
    void SetAmount(int amount);

    /// Where panels pick colours from. Either a view whose scene counts in pixels of the picture, with its upper
    /// left corner at (0, 0), or any surface; null: nowhere. A surface is the caller's.
    void SetView(QGraphicsView* view);
    void SetSurface(HBPickSurface* surface);
    /// What is in sight of the picture: as long as the values change, that alone is adjusted at once, as small as
    /// it is shown, and the whole once a control rests. Without it, or where an adjustment must see the whole,
    /// each preview is of the whole. KMDocumentView tells it by a signal.
    /// \param area in pixels of the picture; empty: nothing
    /// \param zoom device pixels per pixel of the picture
    void SetSight(const QRect& area, double zoom);
    /// Whether a panel is about to use the mouse on that view: the program's own tools wait meanwhile.
    bool IsPicking() const;

    /// Has the user changed a value?
    bool IsChanged() const { return m_Changed; }
    /// Whether a job runs or is about to.
    bool IsBusy() const { return m_Busy; }
    /// Whether Preview() shows exactly what the controls say.
    bool IsUpToDate() const;
    /// The last preview of the present picture; empty before the first.
    const HBImage<>& Preview() const { return m_Preview; }
    /// Is the wait for the final image on?
    bool IsFinishing() const { return m_Finishing; }

    /// The values, as a step of a recipe.
    HBRecipeStep Step() const;
    /// Shows the values of a step, however hostile, and works them in. False with a reason, and the panel left as
    /// it was, if they are not this panel's.
    bool SetStep(const HBRecipeStep& step, QString* reason = nullptr);
    /// The values as bytes: a recipe of this one step, which HBRecipe and panel-replay read too.
    QByteArray SaveValues() const;
    /// Loads what SaveValues returned; otherwise as SetStep.
    bool RestoreValues(const QByteArray& values, QString* reason = nullptr);

public Q_SLOTS:
    /// As the panel's own OK, Cancel and Reset buttons.
    void Accept();
    void Reject();
    void Reset();
    /// Works in what was set behind the session's back, by the panel's own SetValue, which tells nobody. OK does
    /// so by itself.
    void Refresh();

Q_SIGNALS:
    /// \param changed where it differs from the preview before, in whole tiles (HBChangedTiles); all of it for the
    ///        first of a picture
    void PreviewReady(const HBImage<>& image, const QRegion& changed);
    /// What is in sight, for values that Preview() lacks yet. \see HBTileImageItem::ShowSight
    void SightReady(const HBImage<>& sight, const QRect& area, int level);
    /// The last preview is right for all of the picture again.
    void SightOver();
    /// OK, and this is the final image: never one from before the last change. It shares the tiles that are as
    /// before with the picture.
    void Accepted(const HBImage<>& image);
    void Rejected();
    /// OK was pressed, but the panel goes on: the user would not wait (no reason), or the adjustment failed. The
    /// preview may lack the last change.
    void Resumed(const QString& reason);
    /// The adjustment cannot be made as the controls say, and the preview is the picture itself; empty: it can
    /// again.
    void Troubled(const QString& reason);
    void BusyChanged(bool busy);
    /// How far the present job is, 0 .. 100. An adjustment of several stages begins anew with each.
    void ProgressChanged(int percent);
    void PickingChanged(bool picking);

private:
    void ConnectPanel(HBPanelButtons buttons);
    bool IsOverlay() const { return m_pOverlayJob; }
    bool IsWorking() const;
    bool IsPending() const;
    QString FailureReason() const;
    HBImage<> Adjusted() const;
    void StartNow();
    void SetCancelProcessing(bool cancel);

    void OnChanged();
    void OnImageReady();
    void ShowAdjusted(const HBImage<>& adjusted, const QString& reason);
    void BlendAdjusted();
    void OnBlended(const HBOutcome& outcome);
    void OnJobEnded();
    void OnProgressRange(int minimum, int maximum);
    void OnProgressValue(int value);
    void OnStill();
    void TakeNewValues();

    void AdvanceSoon();
    void Advance();
    void TellBusy();
    void Trouble(const QString& reason);
    void Finish();
    void Resume(const QString& reason);
    bool End();
    void OnWaitCancelled();

    const HBPanelEntry m_Entry;
    QPointer<HBAdjustmentWidget> m_pPanel;
    QPointer<HBOverlayFrame> m_pOverlayFrame; ///< around the panel of an overlay
    HBOverlayJob* m_pOverlayJob = nullptr;    ///< of a panel without a job of its own
    HBAmountJob* m_pAmountJob = nullptr;      ///< if not all of what the panel does is left
    HBSessionSight* m_pSight = nullptr;       ///< once something is in sight
    HBSessionPicking* m_pPicking = nullptr;
    HBSessionWait* m_pWait; ///< for the final image
    HBTarget m_Target;
    HBImage<> m_Preview;
    QString m_Trouble; ///< what was said last
    QTimer m_Still;    ///< since the last change
    int m_Amount = HBRecipeStep::MaximumAmount;
    QString m_AmountFailure;  ///< of the last blending
    bool m_Unblended = false; ///< the panel's image is newer than the preview
    bool m_Changed = false;
    bool m_Busy = false;
    bool m_AdvanceSoon = false;
    bool m_Outdated = false;   ///< the running job does not know the last change
    bool m_GivenUpOne = false; ///< and the one before was given up for that
    bool m_Stopped = false;    ///< no job before something changes: the last failed, or the user gave it up
    bool m_Finishing = false;
    bool m_WaitCancelled = false;
    bool m_Over = false;
};

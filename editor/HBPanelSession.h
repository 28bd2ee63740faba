// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBOverlayJob.h"
#include "HBSelectionShape.h"

#include <HBPanelCatalog.h>
#include <HBRecipe.h>

#include <QObject>
#include <QPointer>
#include <QTimer>

class HBAdjustmentWidget;
class HBOverlayFrame;
class KMDocumentView;

/// One open panel, from its opening to OK or Cancel: hands it the photo and the selection, passes its previews on,
/// and at OK waits until the panel has worked the very last change in. Overlays, whose panels only describe them,
/// are drawn here, over the whole photo whatever is selected.
///
/// The session owns the panel, wherever that is put on the screen. Both may be destroyed at any time, also while a
/// job runs; from a slot of the session's or the panel's own signals use deleteLater(). GUI thread only.
class HBPanelSession : public QObject
{
    Q_OBJECT
public:
    /// \param view for panels that pick from the photo; may be null
    HBPanelSession(const HBPanelEntry& entry, KMDocumentView* view, QObject* parent = nullptr);
    ~HBPanelSession() override;

    const HBPanelEntry& Entry() const { return m_Entry; }
    /// Null once it is destroyed.
    HBAdjustmentWidget* Panel() const;
    /// The panel with its buttons, to be shown. Null once it is destroyed.
    QWidget* Widget() const;
    /// Has the user changed a value?
    bool IsChanged() const { return m_Changed; }
    bool HasSelection() const { return m_Selection.bounds.isValid(); }
    /// Is the wait for the final image on?
    bool IsFinishing() const { return m_Finishing; }
    /// The values, for a recipe.
    HBRecipeStep Step() const;

    /// What to work on; also anew, when the selection has changed.
    void SetSource(const HBImage<>& image, const HBSelection& selection);

public Q_SLOTS:
    /// As the panel's own OK and Cancel buttons.
    void Accept();
    void Reject();

Q_SIGNALS:
    void PreviewReady(const HBImage<>& image);
    /// OK, and this is the final image.
    void Accepted(const HBImage<>& image);
    void Rejected();
    /// OK was pressed, but the panel goes on: the user would not wait (no reason), or the adjustment failed. The
    /// preview may lack the last change.
    void Resumed(const QString& reason);
    /// An overlay cannot be drawn as it is; empty: it can again.
    void Troubled(const QString& reason);

private Q_SLOTS:
    void OnImageReady();
    void OnDataChanged();
    void OnFinished(int result);
    void TakeResult();
    void OnDrawn(const HBImage<>& image, const QString& error);

private:
    bool IsOverlay() const { return m_Entry.draw != nullptr; }
    void Draw();
    void Finish();
    void Resume(const QString& reason);

    const HBPanelEntry& m_Entry;
    QPointer<HBAdjustmentWidget> m_pPanel;
    QPointer<HBOverlayFrame> m_pOverlayFrame; ///< around the panel of an overlay
    HBOverlayJob m_OverlayJob;
    QString m_Trouble; ///< what was said last of the overlay
    HBImage<> m_Source;
    HBSelection m_Selection;
    QTimer m_Drawing; ///< gathers the changes of an overlay
    bool m_Changed = false;
    bool m_Finishing = false;
    bool m_Over = false;
};

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSelectionShape.h"

#include <HBPanelCatalog.h>
#include <HBRecipe.h>

#include <QObject>
#include <QPointer>
#include <QTimer>

class HBAdjustmentWidget;
class KMDocumentView;

/// One open panel, from its opening to OK or Cancel: hands it the photo and the selection, passes its previews on,
/// and at OK waits until the panel has worked the very last change in.
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
    /// In dialog mode: with its buttons and its live preview. Null once it is destroyed.
    HBAdjustmentWidget* Panel() const;
    /// Has the user changed a value?
    bool IsChanged() const { return m_Changed; }
    bool HasSelection() const { return m_Selection.bounds.isValid(); }
    /// Is the wait for the final image on?
    bool IsFinishing() const { return m_Finishing; }
    /// The values, for a recipe.
    HBRecipeStep Step() const;

    /// What to work on; also anew, when the selection has changed.
    void SetSource(const HBImage<>& image, const HBSelection& selection);

public slots:
    /// As the panel's own OK and Cancel buttons.
    void Accept();
    void Reject();

signals:
    void PreviewReady(const HBImage<>& image);
    /// OK, and this is the final image.
    void Accepted(const HBImage<>& image);
    void Rejected();
    /// OK was pressed, but the panel goes on: the user would not wait, or the adjustment failed for want of memory.
    /// The preview may lack the last change.
    void Resumed(bool failed);

private slots:
    void OnImageReady();
    void OnDataChanged();
    void OnFinished(int result);

private:
    void TakeResult();
    void Finish();
    void Resume(bool failed);

    const HBPanelEntry& m_Entry;
    QPointer<HBAdjustmentWidget> m_pPanel;
    HBImage<> m_Source;
    HBSelection m_Selection;
    /// Runs from a change until its job has begun for certain.
    QTimer m_Settling;
    bool m_Changed = false;
    bool m_Finishing = false;
    bool m_Stale = false; ///< a job was cancelled or failed: what the panel has is not what its controls say
    bool m_Over = false;
};

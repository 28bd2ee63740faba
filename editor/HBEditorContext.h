// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

class HBDocument;
class HBFolders;
class HBMessageBar;
class KMDocumentView;
class QMainWindow;
class QString;

/// What the parts of an editor work on together, and where they ask and tell the user. The parts end before it.
/// GUI thread.
struct HBEditorContext
{
    QMainWindow* window; ///< that their dialogs belong to
    KMDocumentView* view;
    HBDocument* document;
    HBMessageBar* messages;
    HBFolders* folders;
    bool remember; ///< keep what the user has chosen between sessions

    /// What was done: in the status bar, for some seconds.
    void ShowDone(const QString& text) const;
};

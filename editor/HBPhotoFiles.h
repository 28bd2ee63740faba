// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBEditorContext.h"
#include "HBRecentFiles.h"

#include <HBPhotoFile.h>

#include <QObject>

class HBFilmStrip;
class HBPanelController;
class QMenu;
class QSettings;

/// Reads the document's photo from files and writes it to them, with all that is asked and told then. GUI thread.
class HBPhotoFiles : public QObject
{
    Q_OBJECT
public:
    /// \param strip shows which photo is open
    /// \param recent the menu of those that were opened last
    HBPhotoFiles(const HBEditorContext& editor, HBPanelController* panels, HBFilmStrip* strip, QMenu* recent);

    /// Asks for the photo.
    void Choose();
    /// Reads the photo. If that fails, the message bar says why and the present photo stays. Asks first about a
    /// panel that is open and changes that are not saved.
    bool Open(const QString& path);
    /// Whether the present photo may go: asks about a panel that is open and changes that are not saved.
    bool MayLeave();

    // False if the user gave that up, or if it failed, which is said.

    /// Over the photo's file, which stays what it is as far as that can be: asks where it would lose something.
    bool Save();
    /// Asks for the name.
    bool SaveAs();
    /// Writes the present photo in the format of the suffix. The document has that file then.
    bool SaveTo(const QString& path, const HBPhotoOptions& options = {});
    /// A copy: the document stays what it is, neither saved nor under another name.
    bool Export();

    void ReadSettings(const QSettings& settings);
    void WriteSettings(QSettings* settings) const;

private:
    bool SaveOver();
    bool Write(const QString& text, const QString& path, const HBImage<>& image, const HBPhotoOptions& options,
               QStringList* warnings, HBPhotoEncoding* encoding = nullptr);
    void ShowWarnings(const QString& path, const QStringList& warnings);

    const HBEditorContext m_Editor;
    HBPanelController* const m_pPanels;
    HBFilmStrip* const m_pStrip;
    HBRecentFiles m_Recent;
    int m_Quality = 92;  ///< what Save As offers
    bool m_Busy = false; ///< a file is being read or written
};

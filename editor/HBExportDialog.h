// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBSizeEstimate.h"

#include <QDialog>

class HBFolders;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QSpinBox;

/// Asks how and where a copy of the photo is to be written, and says how large it would be. What was chosen last
/// is remembered apart from what the photo itself is saved with. GUI thread.
class HBExportDialog : public QDialog
{
    Q_OBJECT
public:
    /// \param photo path of the photo, over which nothing is exported
    /// \param remember keep the choices between sessions
    HBExportDialog(const HBImage<>& image, const QString& photo, HBFolders* folders, bool remember,
                   QWidget* parent = nullptr);

    QString Path() const;
    HBPhotoOptions Options() const;

    void accept() override;

private:
    QWidget* MakeQuality();
    void ListFormats();
    void ReadSettings();
    void WriteSettings() const;

    QString Suffix() const;
    void SetPath(const QString& path);
    void Browse();
    void OnFormat();
    void OnPath();
    void Update();
    void ShowSize(qint64 bytes);

    const QString m_Photo;
    HBFolders* const m_pFolders;
    const bool m_Remember;
    HBSizeEstimate m_Estimate;
    QComboBox* m_pFormat;
    QSlider* m_pQuality;
    QSpinBox* m_pQualityBox;
    QComboBox* m_pChroma;
    QCheckBox* m_pSrgb;
    QLabel* m_pSize;
    QLineEdit* m_pPath;
    QLabel* m_pProblem;
    QPushButton* m_pExport;
};

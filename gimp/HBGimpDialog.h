// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBPresets.h>

#include <HBPanelSession.h>
#include <HBTileMips.h>

#include <QDialog>

class KMDocumentView;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

/// One adjustment beside a view of the layer, which shows what becomes of it while the values change. Opens with
/// the values of the last time. Modal: exec() is 1 for OK. GUI thread only.
class HBGimpDialog : public QDialog
{
    Q_OBJECT
public:
    /// \param layerName for the title
    /// \param warning shown below the view; empty: none
    /// \param presets must outlive the dialog
    HBGimpDialog(const HBPanelEntry& entry, const HBTarget& target, const QString& layerName,
                 const QString& warning, HBPresets* presets);

    /// How the layer is shown, when not as it is.
    void SetLook(const HBTileMips::Look& look);

    /// What OK has made, and the values it was made with.
    const HBImage<>& Adjusted() const { return m_Adjusted; }
    HBRecipeStep Step() const { return m_Session.Step(); }

public Q_SLOTS:
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void ShowPreview();
    void UsePreset(int index);
    void SavePreset();
    void DeletePreset();

private:
    QWidget* MakeView(const QString& warning);
    QWidget* MakePresets();
    void ListPresets(const QString& chosen);
    void Say(const QString& text);

    HBPanelSession m_Session;
    HBPresets* m_pPresets;
    HBImage<> m_Source;
    HBImage<> m_Adjusted;
    KMDocumentView* m_pView;
    QCheckBox* m_pPreview;
    QComboBox* m_pPresetBox;
    QPushButton* m_pDelete;
    QLabel* m_pMessage;
};

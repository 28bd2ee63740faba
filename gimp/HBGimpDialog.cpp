// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpDialog.h"

#include <HBAdjustmentWidget.h>
#include <KMDocumentView.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QShowEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{

/// The keys go to the first control of the panel.
void FocusFirst(QWidget* panel)
{
    for (QWidget* control = panel->nextInFocusChain(); control != panel; control = control->nextInFocusChain()) {
        if (panel->isAncestorOf(control) && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus)) {
            control->setFocus();
            return;
        }
    }
}

} // namespace

HBGimpDialog::HBGimpDialog(const HBPanelEntry& entry, const HBTarget& target, const QString& layerName,
                           const QString& warning, HBPresets* presets)
    : m_Session(entry)
    , m_pPresets(presets)
    , m_Source(target.source)
{
    setWindowTitle(tr("%1 - %2").arg(entry.Title(), layerName));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    auto* controls = new QVBoxLayout;
    controls->addWidget(MakePresets());
    controls->addWidget(m_Session.Widget());
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(MakeView(warning), 1);
    layout->addLayout(controls);
    // The layer takes all further room.
    m_Session.Widget()->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);

    connect(&m_Session, &HBPanelSession::PreviewReady, this, &HBGimpDialog::ShowPreview);
    connect(&m_Session, &HBPanelSession::SightOver, m_pView, &KMDocumentView::EndSight);
    connect(&m_Session, &HBPanelSession::SightReady, m_pView,
            [this](const HBImage<>& sight, const QRect& area, int level) {
                if (m_pPreview->isChecked())
                    m_pView->ShowSight(sight, area, level);
            });
    connect(m_pView, &KMDocumentView::SightChanged, &m_Session, &HBPanelSession::SetSight);
    connect(&m_Session, &HBPanelSession::Rejected, this, &QDialog::reject);
    connect(&m_Session, &HBPanelSession::Troubled, this, &HBGimpDialog::Say);
    connect(&m_Session, &HBPanelSession::Resumed, this, &HBGimpDialog::Say);
    connect(&m_Session, &HBPanelSession::Accepted, this, [this](const HBImage<>& adjusted) {
        m_Adjusted = adjusted;
        accept();
    });
    // With other values it is no longer the preset.
    connect(m_Session.Panel(), &KMAdjustmentWidget::AboutUserParamsChanged, this,
            [this] { ListPresets(QString()); });

    m_Session.SetView(m_pView);
    const QJsonObject last = presets->Last();
    if (!last.isEmpty())
        m_Session.SetStep({QString::fromLatin1(entry.className), last});
    m_pView->SetPicture(m_Source);
    m_Session.SetSight(m_pView->SightArea(), m_pView->Zoom());
    m_Session.SetTarget(target);
    ListPresets(QString());
}

void HBGimpDialog::SetLook(const HBTileMips::Look& look)
{
    m_pView->SetLook(look);
}

void HBGimpDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // By now the panel has put its buttons behind its controls.
    if (!event->spontaneous())
        FocusFirst(m_Session.Panel());
}

QWidget* HBGimpDialog::MakeView(const QString& warning)
{
    m_pView = new KMDocumentView;
    m_pView->setObjectName("layer");
    m_pView->setMinimumSize(320, 240);
    m_pPreview = new QCheckBox(tr("&Preview"));
    m_pPreview->setToolTip(tr("Off: the layer as it was before"));
    m_pPreview->setChecked(true);
    connect(m_pPreview, &QCheckBox::toggled, this, &HBGimpDialog::ShowPreview);
    auto* zoom = new QLabel;
    const auto showZoom = [zoom](double factor) {
        zoom->setText(tr("%1 %").arg(100 * factor, 0, 'f', factor < 0.1 ? 1 : 0));
    };
    showZoom(m_pView->Zoom());
    connect(m_pView, &KMDocumentView::ZoomChanged, zoom, showZoom);

    auto* row = new QHBoxLayout;
    row->addWidget(m_pPreview);
    row->addStretch();
    row->addWidget(zoom);
    const struct
    {
        QString text;
        QString tip;
        void (KMDocumentView::*slot)();
    } buttons[] = {{tr("Fit"), tr("The whole layer"), &KMDocumentView::ZoomToFit},
                   {tr("1:1"), tr("Each pixel of the layer on one of the screen"), &KMDocumentView::ZoomToActual}};
    for (const auto& entry : buttons) {
        auto* button = new QToolButton;
        button->setText(entry.text);
        button->setToolTip(entry.tip);
        connect(button, &QToolButton::clicked, m_pView, entry.slot);
        row->addWidget(button);
    }

    m_pMessage = new QLabel(warning);
    m_pMessage->setWordWrap(true);
    m_pMessage->setVisible(!warning.isEmpty());
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pView, 1);
    layout->addLayout(row);
    layout->addWidget(m_pMessage);
    return box;
}

QWidget* HBGimpDialog::MakePresets()
{
    m_pPresetBox = new QComboBox;
    m_pPresetBox->setObjectName("presets");
    m_pPresetBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(m_pPresetBox, QOverload<int>::of(&QComboBox::activated), this, &HBGimpDialog::UsePreset);
    auto* save = new QPushButton(tr("&Save..."));
    save->setToolTip(tr("Keep these values under a name"));
    connect(save, &QPushButton::clicked, this, &HBGimpDialog::SavePreset);
    m_pDelete = new QPushButton(tr("&Delete"));
    m_pDelete->setToolTip(tr("Delete the chosen preset"));
    connect(m_pDelete, &QPushButton::clicked, this, &HBGimpDialog::DeletePreset);
    for (QPushButton* button : {save, m_pDelete})
        button->setAutoDefault(false); // Return is OK

    auto* box = new QWidget;
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pPresetBox, 1);
    layout->addWidget(save);
    layout->addWidget(m_pDelete);
    return box;
}

void HBGimpDialog::reject()
{
    // Also the window's own button, and Escape.
    m_Session.blockSignals(true);
    m_Session.Reject();
    QDialog::reject();
}

void HBGimpDialog::ShowPreview()
{
    const HBImage<>& preview = m_Session.Preview();
    if (!m_pPreview->isChecked())
        m_pView->EndSight();
    m_pView->SetPicture(m_pPreview->isChecked() && !preview.IsEmpty() ? preview : m_Source);
}

void HBGimpDialog::Say(const QString& text)
{
    m_pMessage->setText(text);
    m_pMessage->setVisible(!text.isEmpty());
}

void HBGimpDialog::ListPresets(const QString& chosen)
{
    if (chosen.isEmpty() && m_pPresetBox->count() > 0) {
        m_pPresetBox->setCurrentIndex(0);
    } else {
        m_pPresetBox->clear();
        m_pPresetBox->addItem(tr("Presets"));
        m_pPresetBox->addItems(m_pPresets->Names());
        // Not by findText: a preset may be called as the first entry.
        m_pPresetBox->setCurrentIndex(chosen.isEmpty() ? 0 : m_pPresets->Names().indexOf(chosen) + 1);
    }
    m_pDelete->setEnabled(m_pPresetBox->currentIndex() > 0);
}

void HBGimpDialog::UsePreset(int index)
{
    const QString name = m_pPresetBox->itemText(index);
    QString reason;
    if (index > 0 && (!m_Session.SetStep(
                          {QString::fromLatin1(m_Session.Entry().className), m_pPresets->Values(name)}, &reason) ||
                      !m_pPresets->SetUsed(name, &reason)))
        Say(reason);
    ListPresets(index > 0 ? name : QString());
}

void HBGimpDialog::SavePreset()
{
    QString name = m_pPresetBox->currentIndex() > 0 ? m_pPresetBox->currentText() : QString();
    bool given = false;
    name = QInputDialog::getText(this, tr("Save Preset"), tr("Name:"), QLineEdit::Normal, name, &given).trimmed();
    if (!given || name.isEmpty())
        return;
    if (m_pPresets->Names().contains(name) &&
        QMessageBox::question(this, tr("Save Preset"), tr("Replace the preset \"%1\"?").arg(name)) !=
            QMessageBox::Yes)
        return;
    QString reason;
    if (!m_pPresets->Keep(name, m_Session.Step().values, &reason))
        Say(reason);
    ListPresets(name);
}

void HBGimpDialog::DeletePreset()
{
    const QString name = m_pPresetBox->currentText();
    if (QMessageBox::question(this, tr("Delete Preset"), tr("Delete the preset \"%1\"?").arg(name)) !=
        QMessageBox::Yes)
        return;
    QString reason;
    if (!m_pPresets->Remove(name, &reason))
        Say(reason);
    m_pPresetBox->clear();
    ListPresets(QString());
}

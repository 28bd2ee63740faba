// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSignWidget.h"

#include "HBPanelStream.h"
#include "ui_SignWidget.h"

#include <KMApplication.h>
#include <KMFileDialog.h>
#include <KMImageFileManager.h>

#include <QFileInfo>

namespace
{

/// All other bits stay, also those that mean nothing here.
Qt::Alignment WithFlag(Qt::Alignment alignment, Qt::AlignmentFlag mask, Qt::AlignmentFlag flag)
{
    return (alignment & ~Qt::Alignment(mask)) | flag;
}

} // namespace

// Line numbers in the log: fixed, on purpose, for those who look for them.
HB_PANEL_STREAM_LINES(HBSignWidget, "sign data", 578, 591, HBAfterFailure::Reset)

HBSignWidget::HBSignWidget(QWidget* parent, Qt::WindowFlags flags)
    : HBOverlayWidget(parent, flags)
    , m_pUI(std::make_unique<Ui::SignWidget>())
{
    m_pUI->setupUi(GetUIContent());
    Listen(m_pUI->m_pSelectAnImage, SIGNAL(clicked()), SLOT(OnSelectFileName()));
    Listen(m_pUI->m_pHrzAlignment, SIGNAL(currentIndexChanged(int)), SLOT(OnHorizontalAlignmentChanged(int)));
    Listen(m_pUI->m_pVrtAlignment, SIGNAL(currentIndexChanged(int)), SLOT(OnVerticalAlignmentChanged(int)));
    ListenToOverlay(*m_pUI);
    Reset();
}

HBSignWidget::~HBSignWidget() = default;

void HBSignWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    m_pUI->m_pImageFileName->setText(m_Params.fileName);
    SetHorizontalAlignment(m_Params.alignment);
    SetVerticalAlignment(m_Params.alignment);
    ShowOverlay(*m_pUI, m_Params);
}

void HBSignWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::SetHorizontalAlignment(Qt::Alignment alignment)
{
    const int index = alignment & Qt::AlignLeft      ? 0
                      : alignment & Qt::AlignHCenter ? 1
                      : alignment & Qt::AlignRight   ? 2
                                                     : 0;
    m_pUI->m_pHrzAlignment->setCurrentIndex(index);
}

void HBSignWidget::SetVerticalAlignment(Qt::Alignment alignment)
{
    const int index = alignment & Qt::AlignTop       ? 0
                      : alignment & Qt::AlignVCenter ? 1
                      : alignment & Qt::AlignBottom  ? 2
                                                     : 0;
    m_pUI->m_pVrtAlignment->setCurrentIndex(index);
}

void HBSignWidget::OnHorizontalAlignmentChanged(int index)
{
    const Qt::AlignmentFlag flag = index == 1 ? Qt::AlignHCenter : index == 2 ? Qt::AlignRight : Qt::AlignLeft;
    Store(this, m_Params.alignment, WithFlag(m_Params.alignment, Qt::AlignHorizontal_Mask, flag));
}

void HBSignWidget::OnVerticalAlignmentChanged(int index)
{
    const Qt::AlignmentFlag flag = index == 1 ? Qt::AlignVCenter : index == 2 ? Qt::AlignBottom : Qt::AlignTop;
    Store(this, m_Params.alignment, WithFlag(m_Params.alignment, Qt::AlignVertical_Mask, flag));
}

QStringList HBSignWidget::GetOpenFileNames()
{
    const QString filter = KMImageFileManager::GetFilterForRead();
    if (filter.isEmpty())
        return {};
    const QString current = m_pUI->m_pImageFileName->text();
    const QString folder = current.isEmpty() ? KMApplication::GetPathOpen() : QFileInfo(current).absolutePath();
    const QString name = KMFileDialog::GetOpenFileName(tr("Select an image"), folder, filter);
    return name.isEmpty() ? QStringList() : QStringList(name);
}

void HBSignWidget::OnSelectFileName()
{
    const QPointer<HBSignWidget> self(this); // may be destroyed while the dialog is open
    const QStringList names = GetOpenFileNames();
    if (!self || names.isEmpty())
        return;
    m_pUI->m_pImageFileName->setText(names.first());
    Store(this, m_Params.fileName, names.first());
}

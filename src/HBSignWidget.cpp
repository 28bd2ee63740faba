// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBSignWidget.h"

#include "HBBlendingModes.h"
#include "HBConnectionSet.h"
#include "HBParamStream.h"
#include "ui_SignWidget.h"

#include <KMApplication.h>
#include <KMFileDialog.h>
#include <KMImageFileManager.h>

#include <QDataStream>
#include <QFileInfo>

namespace
{

constexpr char Tag[] = "KMSign 1.00000";
constexpr char SourceName[] = "src\\HBSignWidget";

// Line numbers in the log: fixed, on purpose, for those who look for them.
constexpr int WriteErrorLine = 578;
constexpr int ReadErrorLine = 591;

/// All other bits stay, also those that mean nothing here.
Qt::Alignment WithFlag(Qt::Alignment alignment, Qt::AlignmentFlag mask, Qt::AlignmentFlag flag)
{
    return (alignment & ~Qt::Alignment(mask)) | flag;
}

} // namespace

// ---- Record ----

bool HBSignWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    qint32 flags = 0;
    stream >> flags >> margins >> fileName >> blendingMode >> opacity;
    alignment = Qt::Alignment(QFlag(flags));
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian: the 14 bytes of the tag; 00 00 00 21; four times 00 00 00 05; FF FF FF FF (a null name);
// 00 00 00 00; 00 00 00 64.
bool HBSignWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << qint32(int(alignment)) << margins << fileName << blendingMode << opacity;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBSignWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(WriteErrorLine, SourceName, "Write sign data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBSignWidget::Params& params)
{
    if (!params.Read(stream)) {
        HB_LOG_STREAM_ERROR(ReadErrorLine, SourceName, "Read sign data error.");
        params = HBSignWidget::Params();
    }
    return stream;
}

// ---- Construction ----

HBSignWidget::HBSignWidget(QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(false, parent, flags)
    , m_pUI(std::make_unique<Ui::SignWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    HBFillBlendingModes(m_pUI->m_pBlendCombo);
    m_pConnections->Add(m_pUI->m_pSelectAnImage, SIGNAL(clicked()), SLOT(OnSelectFileName()));
    m_pConnections->Add(m_pUI->m_pHrzAlignment, SIGNAL(currentIndexChanged(int)),
                                                       SLOT(OnHorizontalAlignmentChanged(int)));
    m_pConnections->Add(m_pUI->m_pVrtAlignment, SIGNAL(currentIndexChanged(int)),
                                                       SLOT(OnVerticalAlignmentChanged(int)));
    m_pConnections->Add(m_pUI->m_pLeftMargin, SIGNAL(valueChanged(int)), SLOT(OnLeftMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pRightMargin, SIGNAL(valueChanged(int)), SLOT(OnRightMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pTopMargin, SIGNAL(valueChanged(int)), SLOT(OnTopMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pBottomMargin, SIGNAL(valueChanged(int)), SLOT(OnBottomMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pOpacitySpn, SIGNAL(valueChanged(int)), SLOT(OnOpacityChanged(int)));
    m_pConnections->Add(m_pUI->m_pBlendCombo, SIGNAL(currentIndexChanged(int)), SLOT(OnBlendingModeChanged(int)));
    Reset();
    // Once more after Reset, which has connected already: the set connects what is not connected, so each edit is heard
    // once.
    Connect();
}

HBSignWidget::~HBSignWidget()
{
    FinishJob();
    Disconnect();
}

void HBSignWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBSignWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBSignWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pImageFileName->setText(m_Params.fileName);
    SetHorizontalAlignment(m_Params.alignment);
    SetVerticalAlignment(m_Params.alignment);
    m_pUI->m_pLeftMargin->setValue(m_Params.margins.left());
    m_pUI->m_pTopMargin->setValue(m_Params.margins.top());
    m_pUI->m_pRightMargin->setValue(m_Params.margins.right());
    m_pUI->m_pBottomMargin->setValue(m_Params.margins.bottom());
    m_pUI->m_pOpacitySpn->setValue(m_Params.opacity);
    m_pUI->m_pBlendCombo->setCurrentIndex(BlendingModeToIndex(m_Params.blendingMode));
    Connect();
}

void HBSignWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::StartJobWatching(QFutureWatcher<HBImage<>>*) {}

void HBSignWidget::OnLeftMarginChanged(int margin)
{
    m_Params.margins.setLeft(margin);
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::OnRightMarginChanged(int margin)
{
    m_Params.margins.setRight(margin);
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::OnTopMarginChanged(int margin)
{
    m_Params.margins.setTop(margin);
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::OnBottomMarginChanged(int margin)
{
    m_Params.margins.setBottom(margin);
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::OnOpacityChanged(int opacity)
{
    m_Params.opacity = opacity;
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::OnBlendingModeChanged(int index)
{
    m_Params.blendingMode = BlendingIndexToMode(index);
    NotifyChanged(&HBSignWidget::ValueChanged);
}

unsigned HBSignWidget::BlendingIndexToMode(int index) const
{
    return HBBlendingIndexToMode(index);
}

int HBSignWidget::BlendingModeToIndex(unsigned mode) const
{
    return HBBlendingModeToIndex(mode);
}

// ---- Alignment ----

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
    m_Params.alignment = WithFlag(m_Params.alignment, Qt::AlignHorizontal_Mask, flag);
    NotifyChanged(&HBSignWidget::ValueChanged);
}

void HBSignWidget::OnVerticalAlignmentChanged(int index)
{
    const Qt::AlignmentFlag flag = index == 1 ? Qt::AlignVCenter : index == 2 ? Qt::AlignBottom : Qt::AlignTop;
    m_Params.alignment = WithFlag(m_Params.alignment, Qt::AlignVertical_Mask, flag);
    NotifyChanged(&HBSignWidget::ValueChanged);
}

// ---- The file ----

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
    m_Params.fileName = names.first();
    NotifyChanged(&HBSignWidget::ValueChanged);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTintWidget.h"

#include "HBAverageTintRGB32.h"
#include "HBColorPick.h"
#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_TintWidget.h"

#include <HBIterativeAdjustmentTransformation.h>
#include <HBTintRGB32.h>

namespace
{

constexpr char Tag[] = "KMTint 1.00000";
constexpr char SourceName[] = "src\\HBTintWidget";

} // namespace

// ---- Record ----

bool HBTintWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    qint32 typeValue = 0;
    stream >> blackTone >> whiteTone >> amount >> typeValue;
    type = Type(typeValue);
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian, version Qt_5_15: the 14 bytes of the tag; 01 FFFF 0505 0606 0808 0000;
// 01 FFFF AAAA D1D1 FFFF 0000; 00 00 00 4B; 00 00 00 00.
bool HBTintWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << blackTone << whiteTone << amount << qint32(type);
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBTintWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write tint data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBTintWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read tint data error.");
    return stream;
}

// ---- Construction ----

HBTintWidget::HBTintWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::TintWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    // Before the connections: filling the list fires its signal.
    FillTintTypes();
    m_pConnections->Add(m_pUI->m_pBlackTone, SIGNAL(clicked()), SLOT(OnBlackTone()));
    m_pConnections->Add(m_pUI->m_pWhiteTone, SIGNAL(clicked()), SLOT(OnWhiteTone()));
    m_pConnections->Add(m_pUI->m_pAmount, SIGNAL(valueChanged(int)), SLOT(OnAmountChanged(int)));
    m_pConnections->Add(m_pUI->m_pType, SIGNAL(currentIndexChanged(int)), SLOT(OnTypeChanged(int)));
    Connect();
    SetValue(Params());
}

HBTintWidget::~HBTintWidget()
{
    FinishJob();
    Disconnect();
}

void HBTintWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBTintWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

void HBTintWidget::FillTintTypes()
{
    m_pUI->m_pType->clear();
    m_pUI->m_pType->addItem(tr("Average"), Average);
    m_pUI->m_pType->addItem(tr("NTSC"), NTSC);
    m_pUI->m_pType->addItem(tr("LUMA"), LUMA);
    m_pUI->m_pType->addItem(tr("RGB"), RGB);
}

int HBTintWidget::IndexByType(Type type)
{
    return type; // the rows stand in the order of the types
}

// ---- Values ----

void HBTintWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    SetBlackTone(m_Params.blackTone);
    SetWhiteTone(m_Params.whiteTone);
    m_pUI->m_pType->setCurrentIndex(IndexByType(m_Params.type));
    m_pUI->m_pAmount->setValue(m_Params.amount);
    Connect();
}

void HBTintWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBTintWidget::ValueChanged);
}

void HBTintWidget::SetBlackTone(const QColor& tone)
{
    m_Params.blackTone = tone;
    HBShowColor(m_pUI->m_pBlackTone, tone);
}

void HBTintWidget::SetWhiteTone(const QColor& tone)
{
    m_Params.whiteTone = tone;
    HBShowColor(m_pUI->m_pWhiteTone, tone);
}

void HBTintWidget::OnBlackTone()
{
    const QColor before = m_Params.blackTone;
    QColor chosen;
    const HBPick pick = HBRunColorDialog(this, tr("Select a black tone"), before,
                                         SLOT(OnCurrentBlackToneChanged(QColor)), &chosen);
    if (pick != HBPick::Gone)
        OnCurrentBlackToneChanged(pick == HBPick::Accepted ? chosen : before);
}

void HBTintWidget::OnWhiteTone()
{
    const QColor before = m_Params.whiteTone;
    QColor chosen;
    const HBPick pick = HBRunColorDialog(this, tr("Select a white tone"), before,
                                         SLOT(OnCurrentWhiteToneChanged(QColor)), &chosen);
    if (pick != HBPick::Gone)
        OnCurrentWhiteToneChanged(pick == HBPick::Accepted ? chosen : before);
}

void HBTintWidget::OnCurrentBlackToneChanged(const QColor& tone)
{
    if (tone == m_Params.blackTone)
        return;
    SetBlackTone(tone);
    NotifyChanged(&HBTintWidget::ValueChanged);
}

void HBTintWidget::OnCurrentWhiteToneChanged(const QColor& tone)
{
    if (tone == m_Params.whiteTone)
        return;
    SetWhiteTone(tone);
    NotifyChanged(&HBTintWidget::ValueChanged);
}

void HBTintWidget::OnAmountChanged(int amount)
{
    m_Params.amount = amount;
    NotifyChanged(&HBTintWidget::ValueChanged);
}

void HBTintWidget::OnTypeChanged(int type)
{
    m_Params.type = Type(type);
    NotifyChanged(&HBTintWidget::ValueChanged);
}

// ---- Job ----

struct HBTintWidget::TintData : HBJobData
{
    Params params;
};

void HBTintWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const TintData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBTintWidget::Process, job);
}

HBImage<> HBTintWidget::Process(TintData job)
{
    const HBRGBA32i black = HBRGBA32i::FromRgba(job.params.blackTone.rgba());
    const HBRGBA32i white = HBRGBA32i::FromRgba(job.params.whiteTone.rgba());
    const int amount = qBound(0, job.params.amount, 100);
    switch (job.params.type) {
    case Average:
        return RunTransformation(
            job, HBIterativeTintTransformation(HBAverageTintRGB32<333, 334, 333>(black, white, amount * 2550)));
    case NTSC:
        return RunTransformation(
            job, HBIterativeTintTransformation(HBAverageTintRGB32<300, 590, 110>(black, white, amount * 2550)));
    case LUMA:
        return RunTransformation(
            job, HBIterativeTintTransformation(HBAverageTintRGB32<212, 715, 73>(black, white, amount * 2550)));
    case RGB:
        return RunTransformation(job, HBIterativeTintTransformation(HBTintRGB32(black, white, amount)));
    }
    return job.source; // a type from a stream that does not exist
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplaceColorWidget.h"

#include "HBColorPick.h"
#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "HBPixel.h"
#include "ui_ReplaceColor.h"

#include <HBFloodFillHelper.h>

namespace
{

constexpr char Tag[] = "KMReplaceColor 1.00000";
constexpr char SourceName[] = "src\\HBReplaceColorWidget";

// Line numbers in the log: fixed, on purpose, for those who look for them.
constexpr int WriteErrorLine = 397;
constexpr int ReadErrorLine = 410;

} // namespace

// ---- Record ----

bool HBReplaceColorWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    qint32 positionValue = 0;
    stream >> tolerance >> positionValue >> color >> opacity;
    position = PositionType(positionValue);
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian, version Qt_5_15: the 22 bytes of the tag; 00 00 00 00; 00 00 00 00;
// 01 FFFF FFFF FFFF FFFF 0000; 00 00 00 64.
bool HBReplaceColorWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << tolerance << qint32(position) << color << opacity;
    return stream.status() == QDataStream::Ok;
}

// The messages are the sign panel's, on purpose.
QDataStream& operator<<(QDataStream& stream, const HBReplaceColorWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(WriteErrorLine, SourceName, "Write sign data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBReplaceColorWidget::Params& params)
{
    if (!params.Read(stream)) {
        HB_LOG_STREAM_ERROR(ReadErrorLine, SourceName, "Read sign data error.");
        params = HBReplaceColorWidget::Params();
    }
    return stream;
}

// ---- Construction ----

HBReplaceColorWidget::HBReplaceColorWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ReplaceColor>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    FillSourcePositions();
    // The sliders only: a spin box arrives through the form's link, so a change is heard once.
    m_pConnections->Add(m_pUI->m_pSourceTolerance, SIGNAL(valueChanged(int)), SLOT(OnSourceToleranceChanged(int)));
    m_pConnections->Add(m_pUI->m_pPositionType, SIGNAL(currentIndexChanged(int)),
                                                       SLOT(OnSourcePosTypeChanged(int)));
    m_pConnections->Add(m_pUI->m_pSelectDestinationColor, SIGNAL(clicked()), SLOT(OnDestinationColor()));
    m_pConnections->Add(m_pUI->m_pDestinationOpacity, SIGNAL(valueChanged(int)),
                                                             SLOT(OnDestinationOpacityChanged(int)));
    Reset(); // connects
}

HBReplaceColorWidget::~HBReplaceColorWidget()
{
    FinishJob();
    Disconnect();
}

void HBReplaceColorWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBReplaceColorWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

void HBReplaceColorWidget::FillSourcePositions()
{
    m_pUI->m_pPositionType->clear();
    m_pUI->m_pPositionType->addItem(tr("Left top"), LeftTop);
    m_pUI->m_pPositionType->addItem(tr("Right top"), RightTop);
    m_pUI->m_pPositionType->addItem(tr("Left bottom"), LeftBottom);
    m_pUI->m_pPositionType->addItem(tr("Right bottom"), RightBottom);
}

/// The row of a position; -1 for one that does not exist.
int HBReplaceColorWidget::GetPositionIndex(PositionType position) const
{
    return m_pUI->m_pPositionType->findData(int(position));
}

HBReplaceColorWidget::PositionType HBReplaceColorWidget::GetPositionType(int index) const
{
    return index == -1 ? LeftTop : PositionType(m_pUI->m_pPositionType->itemData(index).toInt());
}

// ---- Values ----

void HBReplaceColorWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pSourceTolerance->setValue(m_Params.tolerance);
    m_pUI->m_pPositionType->setCurrentIndex(GetPositionIndex(m_Params.position));
    SetDestinationColor(m_Params.color);
    m_pUI->m_pDestinationOpacity->setValue(m_Params.opacity);
    Connect();
}

void HBReplaceColorWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::SetDestinationColor(const QColor& color)
{
    m_Params.color = color;
    HBShowColor(m_pUI->m_pSelectDestinationColor, color);
}

void HBReplaceColorWidget::OnDestinationColor()
{
    const QColor before = m_Params.color;
    QColor chosen;
    const HBPick pick = HBRunColorDialog(this, tr("Select replacement color"), before,
                                         SLOT(OnCurrentColorChanged(QColor)), &chosen);
    if (pick == HBPick::Rejected)
        OnCurrentColorChanged(before);
    if (pick != HBPick::Accepted)
        return;
    // Without comparing, on purpose: each accepted dialog is heard.
    SetDestinationColor(chosen);
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::OnCurrentColorChanged(const QColor& color)
{
    if (color == m_Params.color)
        return;
    SetDestinationColor(color);
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::OnSourceToleranceChanged(int tolerance)
{
    m_Params.tolerance = tolerance;
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::OnSourcePosTypeChanged(int index)
{
    m_Params.position = GetPositionType(index);
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

void HBReplaceColorWidget::OnDestinationOpacityChanged(int opacity)
{
    m_Params.opacity = opacity;
    NotifyChanged(&HBReplaceColorWidget::ValueChanged);
}

// ---- Job ----

struct HBReplaceColorWidget::RCData : HBJobData
{
    HBRGBA32i replacement;
    QPoint seed;
    int tolerance;
};

void HBReplaceColorWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    RCData job{JobData(), HBRGBA32i::FromRgba(m_Params.color.rgb()), QPoint(0, 0), m_Params.tolerance};
    job.replacement.alpha = HBOpacityAlpha(m_Params.opacity);
    const PositionType position = m_Params.position;
    if (position == RightTop || position == RightBottom)
        job.seed.setX(job.source.Width() - 1);
    if (position == LeftBottom || position == RightBottom)
        job.seed.setY(job.source.Height() - 1);
    HBStartJob(watcher, this, &HBReplaceColorWidget::Process, job);
}

HBImage<> HBReplaceColorWidget::Process(RCData job)
{
    // A record may hold any int: all four bytes count, as unsigned ones.
    const quint32 t = quint32(job.tolerance);
    const HBRGBA32i tolerance = HBRGBA32i::FromRgba(t | t << 8 | t << 16 | t << 24);
    HBFloodFillHelper::FloodFill(job.source, job.seed, tolerance, job.replacement, nullptr);
    return job.source;
}

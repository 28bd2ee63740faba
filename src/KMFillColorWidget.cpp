// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "KMFillColorWidget.h"

#include "HBColorPick.h"
#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "HBPixel.h"
#include "ui_FillColor.h"

#include <HBIterativeAdjustmentTransformation.h>
#include <KMFillTransformation.h>

namespace
{

constexpr char Tag[] = "KMFillColor 1.00000";
constexpr char SourceName[] = "src\\KMFillColorWidget";

// Line numbers in the log: fixed, on purpose, for those who look for them.
constexpr int WriteErrorLine = 295;
constexpr int ReadErrorLine = 308;

} // namespace

// ---- Record ----

bool KMFillColorWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> color >> opacity;
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian, version Qt_5_15: the 19 bytes of the tag; 01 FFFF 0000 0000 0000 0000; 00 00 00 64.
bool KMFillColorWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << color << opacity;
    return stream.status() == QDataStream::Ok;
}

// The messages are the colorize panel's, on purpose.
QDataStream& operator<<(QDataStream& stream, const KMFillColorWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(WriteErrorLine, SourceName, "Write colorize data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, KMFillColorWidget::Params& params)
{
    if (!params.Read(stream)) {
        HB_LOG_STREAM_ERROR(ReadErrorLine, SourceName, "Read colorize data error.");
        params = KMFillColorWidget::Params();
    }
    return stream;
}

// ---- Construction ----

KMFillColorWidget::KMFillColorWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::FillColor>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    m_pConnections->Add(m_pUI->m_pColor, SIGNAL(clicked()), SLOT(OnColor()));
    m_pConnections->Add(m_pUI->m_pOpacity, SIGNAL(valueChanged(int)), SLOT(OnOpacityChanged(int)));
    Connect();
    SetValue(Params());
}

KMFillColorWidget::~KMFillColorWidget()
{
    FinishJob();
    Disconnect();
}

void KMFillColorWidget::Connect()
{
    m_pConnections->Connect(this);
}

void KMFillColorWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void KMFillColorWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    SetColor(m_Params.color);
    m_pUI->m_pOpacity->setValue(m_Params.opacity);
    Connect();
}

void KMFillColorWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&KMFillColorWidget::ValueChanged);
}

void KMFillColorWidget::SetColor(const QColor& color)
{
    m_Params.color = color;
    HBShowColor(m_pUI->m_pColor, color);
}

void KMFillColorWidget::OnColor()
{
    const QColor before = m_Params.color;
    QColor chosen;
    const HBPick pick =
        HBRunColorDialog(this, tr("Select a color"), before, SLOT(OnCurrentColorChanged(QColor)), &chosen);
    if (pick != HBPick::Gone)
        OnCurrentColorChanged(pick == HBPick::Accepted ? chosen : before);
}

void KMFillColorWidget::OnCurrentColorChanged(const QColor& color)
{
    if (color == m_Params.color)
        return;
    SetColor(color);
    NotifyChanged(&KMFillColorWidget::ValueChanged);
}

void KMFillColorWidget::OnOpacityChanged(int opacity)
{
    m_Params.opacity = opacity;
    NotifyChanged(&KMFillColorWidget::ValueChanged);
}

// ---- Job ----

struct KMFillColorWidget::ColorizeData : HBJobData
{
    Params params;
};

void KMFillColorWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const ColorizeData job{JobData(), m_Params};
    HBStartJob(watcher, this, &KMFillColorWidget::Process, job);
}

HBImage<> KMFillColorWidget::Process(ColorizeData job)
{
    HBRGBA32i fill = HBRGBA32i::FromRgba(job.params.color.rgb());
    fill.alpha = HBOpacityAlpha(job.params.opacity);
    KMFillTransformation transformation;
    transformation.SetData(fill);
    return RunTransformation(job, HBIterativeAdjustmentTransformation(transformation));
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorizeWidget.h"

#include "HBColorPick.h"
#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_ColorizeWidget.h"

#include <HBIterativeColorizeTransformation.h>

namespace
{

constexpr char Tag[] = "KMColorizeFilter 1.00000";
constexpr char SourceName[] = "src\\HBColorizeWidget";

// Line numbers in the log: fixed, on purpose, for those who look for them.
constexpr int WriteErrorLine = 296;
constexpr int ReadErrorLine = 309;

} // namespace

// ---- Record ----

bool HBColorizeWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> color >> amount;
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian, version Qt_5_15: the 24 bytes of the tag; 01 FFFF FFFF D2D2 FFFF 0000; 00 00 00 19.
bool HBColorizeWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << color << amount;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBColorizeWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(WriteErrorLine, SourceName, "Write colorize data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBColorizeWidget::Params& params)
{
    if (!params.Read(stream)) {
        HB_LOG_STREAM_ERROR(ReadErrorLine, SourceName, "Read colorize data error.");
        params = HBColorizeWidget::Params();
    }
    return stream;
}

// ---- Construction ----

HBColorizeWidget::HBColorizeWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ColorizeWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    m_pConnections->Add(m_pUI->m_pColor, SIGNAL(clicked()), SLOT(OnColor()));
    m_pConnections->Add(m_pUI->m_pAmount, SIGNAL(valueChanged(int)), SLOT(OnAmountChanged(int)));
    Connect();
    SetValue(Params());
}

HBColorizeWidget::~HBColorizeWidget()
{
    FinishJob();
    Disconnect();
}

void HBColorizeWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBColorizeWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBColorizeWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    SetColor(m_Params.color);
    m_pUI->m_pAmount->setValue(m_Params.amount);
    Connect();
}

void HBColorizeWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBColorizeWidget::ValueChanged);
}

void HBColorizeWidget::SetColor(const QColor& color)
{
    m_Params.color = color;
    HBShowColor(m_pUI->m_pColor, color);
}

void HBColorizeWidget::OnColor()
{
    const QColor before = m_Params.color;
    QColor chosen;
    const HBPick pick =
        HBRunColorDialog(this, tr("Select a color"), before, SLOT(OnCurrentColorChanged(QColor)), &chosen);
    if (pick != HBPick::Gone)
        OnCurrentColorChanged(pick == HBPick::Accepted ? chosen : before);
}

void HBColorizeWidget::OnCurrentColorChanged(const QColor& color)
{
    if (color == m_Params.color)
        return;
    SetColor(color);
    NotifyChanged(&HBColorizeWidget::ValueChanged);
}

void HBColorizeWidget::OnAmountChanged(int amount)
{
    m_Params.amount = amount;
    NotifyChanged(&HBColorizeWidget::ValueChanged);
}

// ---- Job ----

struct HBColorizeWidget::ColorizeData : HBJobData
{
    Params params;
};

void HBColorizeWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const ColorizeData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBColorizeWidget::Process, job);
}

HBImage<> HBColorizeWidget::Process(ColorizeData job)
{
    const HBRGBA32i color = HBRGBA32i::FromRgba(job.params.color.rgba());
    return RunTransformation(job, HBIterativeColorizeTransformation(color, job.params.amount));
}

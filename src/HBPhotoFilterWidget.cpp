// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFilterWidget.h"

#include "HBColorPick.h"
#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_PhotoFilterWidget.h"

#include <HBIterativePhotoFilterTransformation.h>

namespace
{

constexpr char Tag[] = "KMPhotoFilter 1.00000";
constexpr char SourceName[] = "src\\HBPhotoFilterWidget";

// Line numbers in the log: fixed, on purpose, for those who look for them.
constexpr int WriteErrorLine = 368;
constexpr int ReadErrorLine = 381;

/// Presets behind the first row, "Custom". The fourth name is misspelt, on purpose: it is a key of the translations.
struct Preset
{
    const char* name;
    const char* color;
};
constexpr Preset presets[] = {
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Warming Filter (85)"), "#EC8A00"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Warming Filter (LBA)"), "#FA9600"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Warming Filter (81)"), "#EBB113"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Coolling Filter (80)"), "#006DFF"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Cooling Filter (LBB)"), "#005DFF"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Cooling Filter (82)"), "#00B5FF"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Red"), "#EA1A1A"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Orange"), "#F38417"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Yellow"), "#F9E31C"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Green"), "#19C919"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Cyan"), "#1DCBEA"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Blue"), "#1D35EA"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Violet"), "#9B1DEA"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Magenta"), "#E318E3"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Sepia"), "#AC7A33"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Deep Red"), "#FF0000"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Deep Blue"), "#0022CD"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Deep Emerald"), "#008C00"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Deep Yellow"), "#FFD500"},
    {QT_TRANSLATE_NOOP("HBPhotoFilterWidget", "Underwater"), "#00C1B1"},
};

} // namespace

// ---- Record ----

bool HBPhotoFilterWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    stream >> color >> density;
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian, version Qt_5_15: the 21 bytes of the tag; 01 FFFF EBEB B1B1 1313 0000; 00 00 00 32.
bool HBPhotoFilterWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << color << density;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBPhotoFilterWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(WriteErrorLine, SourceName, "Write photo filter data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBPhotoFilterWidget::Params& params)
{
    if (!params.Read(stream)) {
        HB_LOG_STREAM_ERROR(ReadErrorLine, SourceName, "Read photo filter data error.");
        params = HBPhotoFilterWidget::Params();
    }
    return stream;
}

// ---- Construction ----

HBPhotoFilterWidget::HBPhotoFilterWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::PhotoFilterWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    FillPresets();
    // Never cut, on purpose: SetValue stores the colour before it looks for the preset, which then changes nothing.
    connect(m_pUI->m_pPresetList, SIGNAL(currentIndexChanged(int)), SLOT(OnPresetChanged(int)));
    m_pConnections->Add(m_pUI->m_pColor, SIGNAL(clicked()), SLOT(OnColor()));
    m_pConnections->Add(m_pUI->m_pDensity, SIGNAL(valueChanged(int)), SLOT(OnDensityChanged(int)));
    Connect();
    SetValue(Params());
}

HBPhotoFilterWidget::~HBPhotoFilterWidget()
{
    FinishJob();
    Disconnect();
    m_pUI->m_pPresetList->disconnect(this);
}

void HBPhotoFilterWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBPhotoFilterWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

void HBPhotoFilterWidget::FillPresets()
{
    m_pUI->m_pPresetList->clear();
    m_pUI->m_pPresetList->addItem(tr("Custom"), QColor(Qt::transparent));
    for (const Preset& preset : presets)
        m_pUI->m_pPresetList->addItem(tr(preset.name), QColor(preset.color));
}

// ---- Values ----

void HBPhotoFilterWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    SetColor(m_Params.color);
    UpdatePresetIndex(m_Params.color);
    m_pUI->m_pDensity->setValue(m_Params.density);
    Connect();
}

void HBPhotoFilterWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBPhotoFilterWidget::ValueChanged);
}

void HBPhotoFilterWidget::SetColor(const QColor& color)
{
    m_Params.color = color;
    HBShowColor(m_pUI->m_pColor, color);
}

/// Shows the preset with that colour, or "Custom".
void HBPhotoFilterWidget::UpdatePresetIndex(const QColor& color)
{
    int index = m_pUI->m_pPresetList->findData(color);
    if (index < 0)
        index = m_pUI->m_pPresetList->findData(QColor(Qt::transparent));
    if (index >= 0)
        m_pUI->m_pPresetList->setCurrentIndex(index);
}

void HBPhotoFilterWidget::OnPresetChanged(int index)
{
    if (index < 0)
        return;
    const QColor color = m_pUI->m_pPresetList->itemData(index).value<QColor>();
    if (color == QColor(Qt::transparent) || color == m_Params.color)
        return;
    SetColor(color);
    UpdatePresetIndex(color);
    NotifyChanged(&HBPhotoFilterWidget::ValueChanged);
}

void HBPhotoFilterWidget::OnCurrentColorChanged(const QColor& color)
{
    if (color == m_Params.color)
        return;
    SetColor(color);
    UpdatePresetIndex(color);
    NotifyChanged(&HBPhotoFilterWidget::ValueChanged);
}

void HBPhotoFilterWidget::OnColor()
{
    const QColor before = m_Params.color;
    QColor chosen;
    const HBPick pick =
        HBRunColorDialog(this, tr("Select a filter color"), before, SLOT(OnCurrentColorChanged(QColor)), &chosen);
    if (pick == HBPick::Gone)
        return;
    const QColor wanted = pick == HBPick::Accepted ? chosen : before;
    if (wanted == m_Params.color)
        return;
    SetColor(wanted);
    // The preset of the colour from before the dialog, on purpose, also when another one was accepted.
    UpdatePresetIndex(before);
    NotifyChanged(&HBPhotoFilterWidget::ValueChanged);
}

void HBPhotoFilterWidget::OnDensityChanged(int density)
{
    m_Params.density = density;
    NotifyChanged(&HBPhotoFilterWidget::ValueChanged);
}

// ---- Job ----

struct HBPhotoFilterWidget::PhotoFilterData : HBJobData
{
    Params params;
};

void HBPhotoFilterWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const PhotoFilterData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBPhotoFilterWidget::Process, job);
}

HBImage<> HBPhotoFilterWidget::Process(PhotoFilterData job)
{
    const HBRGBA32i color = HBRGBA32i::FromRgba(job.params.color.rgba());
    return RunTransformation(job, HBIterativePhotoFilterTransformation(color, job.params.density));
}

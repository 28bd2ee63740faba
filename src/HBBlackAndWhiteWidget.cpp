// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBlackAndWhiteWidget.h"

#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "ui_BlackAndWhiteWidget.h"

#include <HBIterativeBlackAndWhiteTransformation.h>

#include <QButtonGroup>

namespace
{

constexpr char Tag[] = "KMBlackAndWhite 1.00000";
constexpr char OldTag[] = "KMDesaturate 1.00000"; // read, never written
constexpr char SourceName[] = "src\\HBBlackAndWhiteWidget";

enum Type { Average, Luminance, D65, NTSC, CIE, Custom };

/// The weights of a type, single precision on purpose: they reach the job as they stand, not through a spin box.
/// Luminance, D65 and CIE have the same ones; the job treats CIE differently.
struct Weights
{
    float r, g, b;
};
constexpr Weights fixedWeights[] = {
    {0.333f, 0.333f, 0.333f},         // Average
    {0.212671f, 0.71516f, 0.072169f}, // Luminance
    {0.212671f, 0.71516f, 0.072169f}, // D65
    {0.3f, 0.59f, 0.11f},             // NTSC
    {0.212671f, 0.71516f, 0.072169f}, // CIE
};

/// Reads either tag. The older one is 3 bytes shorter, so that a foreign record loses 23 bytes.
bool ReadEitherTag(QDataStream& stream)
{
    QByteArray bytes = HBReadRaw(stream, int(sizeof OldTag) - 1);
    if (bytes == OldTag)
        return true;
    bytes += HBReadRaw(stream, int(sizeof Tag) - int(sizeof OldTag));
    return bytes == Tag;
}

} // namespace

// ---- Record ----

float HBBlackAndWhiteWidget::Params::GetR() const
{
    return IsCustom() ? r : fixedWeights[type].r;
}

float HBBlackAndWhiteWidget::Params::GetG() const
{
    return IsCustom() ? g : fixedWeights[type].g;
}

float HBBlackAndWhiteWidget::Params::GetB() const
{
    return IsCustom() ? b : fixedWeights[type].b;
}

bool HBBlackAndWhiteWidget::Params::Read(QDataStream& stream)
{
    if (!ReadEitherTag(stream))
        return false;
    stream >> type >> r >> g >> b;
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian, double precision: the 23 bytes of the tag, 00 00 00 00, three times 3FD54FDF40000000.
bool HBBlackAndWhiteWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << type << r << g << b;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBBlackAndWhiteWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write BlackAndWhite data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBBlackAndWhiteWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read BlackAndWhite data error.");
    return stream;
}

// ---- Construction ----

HBBlackAndWhiteWidget::HBBlackAndWhiteWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::BlackAndWhiteWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    // A group of their own: auto-exclusive buttons would also uncheck the host's beside an embedded panel.
    auto* types = new QButtonGroup(this);
    for (QRadioButton* radio :
         {m_pUI->m_pAverage, m_pUI->m_pLuminance, m_pUI->m_pD65, m_pUI->m_pNTSC, m_pUI->m_pCIE, m_pUI->m_pCustom})
        types->addButton(radio);

    m_pConnections->Add(m_pUI->m_pRed, SIGNAL(valueChanged(double)), SLOT(OnRedChanged(double)));
    m_pConnections->Add(m_pUI->m_pGreen, SIGNAL(valueChanged(double)), SLOT(OnGreenChanged(double)));
    m_pConnections->Add(m_pUI->m_pBlue, SIGNAL(valueChanged(double)), SLOT(OnBlueChanged(double)));
    m_pConnections->Add(m_pUI->m_pAverage, SIGNAL(toggled(bool)), SLOT(OnAverage(bool)));
    m_pConnections->Add(m_pUI->m_pLuminance, SIGNAL(toggled(bool)), SLOT(OnLuminance(bool)));
    m_pConnections->Add(m_pUI->m_pD65, SIGNAL(toggled(bool)), SLOT(OnD65(bool)));
    m_pConnections->Add(m_pUI->m_pNTSC, SIGNAL(toggled(bool)), SLOT(OnNTSC(bool)));
    m_pConnections->Add(m_pUI->m_pCIE, SIGNAL(toggled(bool)), SLOT(OnCIE(bool)));
    m_pConnections->Add(m_pUI->m_pCustom, SIGNAL(toggled(bool)), SLOT(OnCustom(bool)));
    Connect();
}

HBBlackAndWhiteWidget::~HBBlackAndWhiteWidget()
{
    FinishJob();
    Disconnect();
}

void HBBlackAndWhiteWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBBlackAndWhiteWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBBlackAndWhiteWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    const int type = m_Params.IsCustom() ? Custom : m_Params.type;
    m_pUI->m_pAverage->group()->buttons().at(type)->setChecked(true);
    ShowWeights();
    Connect();
}

void HBBlackAndWhiteWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBBlackAndWhiteWidget::ValueChanged);
}

void HBBlackAndWhiteWidget::ShowWeights()
{
    m_pUI->m_pRed->setValue(double(m_Params.GetR()));
    m_pUI->m_pGreen->setValue(double(m_Params.GetG()));
    m_pUI->m_pBlue->setValue(double(m_Params.GetB()));
}

void HBBlackAndWhiteWidget::SetType(int type)
{
    m_Params.type = type;
    Disconnect();
    ShowWeights();
    Connect();
    NotifyChanged(&HBBlackAndWhiteWidget::ValueChanged);
}

/// Only the user's own weights are edited; those of a type stay what they are.
void HBBlackAndWhiteWidget::SetWeight(float& weight, double value)
{
    if (!m_Params.IsCustom())
        return;
    weight = float(value);
    NotifyChanged(&HBBlackAndWhiteWidget::ValueChanged);
}

void HBBlackAndWhiteWidget::OnAverage(bool checked)
{
    if (checked)
        SetType(Average);
}

void HBBlackAndWhiteWidget::OnLuminance(bool checked)
{
    if (checked)
        SetType(Luminance);
}

void HBBlackAndWhiteWidget::OnD65(bool checked)
{
    if (checked)
        SetType(D65);
}

void HBBlackAndWhiteWidget::OnNTSC(bool checked)
{
    if (checked)
        SetType(NTSC);
}

void HBBlackAndWhiteWidget::OnCIE(bool checked)
{
    if (checked)
        SetType(CIE);
}

void HBBlackAndWhiteWidget::OnCustom(bool checked)
{
    if (checked)
        SetType(Custom);
}

void HBBlackAndWhiteWidget::OnRedChanged(double weight)
{
    SetWeight(m_Params.r, weight);
}

void HBBlackAndWhiteWidget::OnGreenChanged(double weight)
{
    SetWeight(m_Params.g, weight);
}

void HBBlackAndWhiteWidget::OnBlueChanged(double weight)
{
    SetWeight(m_Params.b, weight);
}

// ---- Job ----

struct HBBlackAndWhiteWidget::BlackAndWhiteData : HBJobData
{
    Params params;
};

void HBBlackAndWhiteWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const BlackAndWhiteData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBBlackAndWhiteWidget::Process, job);
}

HBImage<> HBBlackAndWhiteWidget::Process(BlackAndWhiteData job)
{
    const Params& params = job.params;
    return RunTransformation(job, HBIterativeBlackAndWhiteTransformation(params.type == CIE, params.GetR(),
                                                                         params.GetG(), params.GetB()));
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBColorBalanceWidget.h"

#include "HBConnectionSet.h"
#include "HBPanelJob.h"
#include "HBParamStream.h"
#include "HBSliderHandle.h"
#include "ui_ColorBalanceParamWidget.h"

#include <HBIterativeColorBalanceTransformation.h>

#include <QButtonGroup>
#include <QLinearGradient>

namespace
{

constexpr char Tag[] = "KMColorBalance 1.00000";
constexpr char SourceName[] = "src\\HBColorBalanceWidget";

enum ToneRange { NoRange, Shadows, Midtones, Highlights };

bool IsRange(int toneRange)
{
    return toneRange >= Shadows && toneRange <= Highlights;
}

QLinearGradient Between(Qt::GlobalColor from, Qt::GlobalColor to)
{
    QLinearGradient gradient(0, 0, 1, 0);
    gradient.setColorAt(0.0, from);
    gradient.setColorAt(0.5, Qt::white);
    gradient.setColorAt(1.0, to);
    return gradient;
}

} // namespace

// ---- Record ----

bool HBColorBalanceWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    preserveLuminosity = HBReadBool32(stream);
    stream >> toneRange;
    for (qint32(*axis)[3] : {&cyanRed, &magentaGreen, &yellowBlue})
        stream >> (*axis)[0] >> (*axis)[1] >> (*axis)[2];
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian: the 22 bytes of the tag, 00 00 00 01, 00 00 00 02, nine times 00 00 00 00.
bool HBColorBalanceWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << qint32(preserveLuminosity) << toneRange;
    for (const qint32(*axis)[3] : {&cyanRed, &magentaGreen, &yellowBlue})
        stream << (*axis)[0] << (*axis)[1] << (*axis)[2];
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBColorBalanceWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Write color balance data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBColorBalanceWidget::Params& params)
{
    if (!params.Read(stream))
        HB_LOG_STREAM_ERROR(__LINE__, SourceName, "Read color balance data error.");
    return stream;
}

// ---- Construction ----

HBColorBalanceWidget::HBColorBalanceWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::ColorBalanceParamWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    // A group of their own: auto-exclusive buttons would also uncheck the host's beside an embedded panel.
    auto* ranges = new QButtonGroup(this);
    for (QRadioButton* radio : {m_pUI->m_pShadows, m_pUI->m_pMidtones, m_pUI->m_pHighlights})
        ranges->addButton(radio);
    // Wired and stored, but never shown, on purpose.
    m_pUI->m_pLuminosity->hide();

    m_pConnections->Add(m_pUI->m_pCRSpin, SIGNAL(valueChanged(int)), SLOT(OnCRChanged(int)));
    m_pConnections->Add(m_pUI->m_pMGSpin, SIGNAL(valueChanged(int)), SLOT(OnMGChanged(int)));
    m_pConnections->Add(m_pUI->m_pYBSpin, SIGNAL(valueChanged(int)), SLOT(OnYBChanged(int)));
    m_pConnections->Add(m_pUI->m_pShadows, SIGNAL(toggled(bool)), SLOT(OnShadowChanged(bool)));
    m_pConnections->Add(m_pUI->m_pMidtones, SIGNAL(toggled(bool)), SLOT(OnMidtoneChanged(bool)));
    m_pConnections->Add(m_pUI->m_pHighlights, SIGNAL(toggled(bool)), SLOT(OnHighLightChanged(bool)));
    m_pConnections->Add(m_pUI->m_pLuminosity, SIGNAL(toggled(bool)), SLOT(OnLumChanged(bool)));
    Connect();

    SetGrooveGradient(m_pUI->m_pCRSlider, Between(Qt::cyan, Qt::red));
    SetGrooveGradient(m_pUI->m_pMGSlider, Between(Qt::magenta, Qt::green));
    SetGrooveGradient(m_pUI->m_pYBSlider, Between(Qt::yellow, Qt::blue));
    for (QSlider* slider : {m_pUI->m_pCRSlider, m_pUI->m_pMGSlider, m_pUI->m_pYBSlider})
        HBStyleHandle(slider);
}

HBColorBalanceWidget::~HBColorBalanceWidget()
{
    FinishJob();
    Disconnect();
}

void HBColorBalanceWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBColorBalanceWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBColorBalanceWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    CheckRange();
    ShowRange();
    m_pUI->m_pLuminosity->setChecked(m_Params.preserveLuminosity);
    EnableValues(m_Params.toneRange != NoRange);
    Connect();
}

void HBColorBalanceWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBColorBalanceWidget::ValueChanged);
}

/// Checks the button of the record's range; none for no range; a range that does not exist changes nothing.
void HBColorBalanceWidget::CheckRange()
{
    QButtonGroup* ranges = m_pUI->m_pShadows->group();
    if (IsRange(m_Params.toneRange)) {
        ranges->buttons().at(m_Params.toneRange - 1)->setChecked(true);
    } else if (m_Params.toneRange == NoRange) {
        // An exclusive group does not let its checked button go.
        ranges->setExclusive(false);
        for (QAbstractButton* radio : ranges->buttons())
            radio->setChecked(false);
        ranges->setExclusive(true);
    }
}

/// Loads the three axes' values of the record's range, 0 if it is none.
void HBColorBalanceWidget::ShowRange()
{
    const int r = m_Params.toneRange;
    auto value = [r](const qint32(&axis)[3]) { return IsRange(r) ? axis[r - 1] : 0; };
    m_pUI->m_pCRSpin->setValue(value(m_Params.cyanRed));
    m_pUI->m_pMGSpin->setValue(value(m_Params.magentaGreen));
    m_pUI->m_pYBSpin->setValue(value(m_Params.yellowBlue));
}

void HBColorBalanceWidget::EnableValues(bool enable)
{
    m_pUI->m_pCRSpin->setEnabled(enable);
    m_pUI->m_pMGSpin->setEnabled(enable);
    m_pUI->m_pYBSpin->setEnabled(enable);
    m_pUI->m_pLuminosity->setEnabled(enable);
}

void HBColorBalanceWidget::SetRange(int toneRange)
{
    m_Params.toneRange = toneRange;
    Disconnect();
    ShowRange();
    Connect();
    EnableValues(true);
    // Without DataChanged(): another range is shown, the image stays as it is.
    Q_EMIT KMAdjustmentWidget::AboutUserParamsChanged();
    Q_EMIT ValueChanged();
}

void HBColorBalanceWidget::StoreValue(qint32 (&axis)[3], int value)
{
    if (IsRange(m_Params.toneRange))
        axis[m_Params.toneRange - 1] = value;
    NotifyChanged(&HBColorBalanceWidget::ValueChanged);
}

void HBColorBalanceWidget::OnCRChanged(int value)
{
    StoreValue(m_Params.cyanRed, value);
}

void HBColorBalanceWidget::OnMGChanged(int value)
{
    StoreValue(m_Params.magentaGreen, value);
}

void HBColorBalanceWidget::OnYBChanged(int value)
{
    StoreValue(m_Params.yellowBlue, value);
}

void HBColorBalanceWidget::OnShadowChanged(bool checked)
{
    if (checked)
        SetRange(Shadows);
}

void HBColorBalanceWidget::OnMidtoneChanged(bool checked)
{
    if (checked)
        SetRange(Midtones);
}

void HBColorBalanceWidget::OnHighLightChanged(bool checked)
{
    if (checked)
        SetRange(Highlights);
}

void HBColorBalanceWidget::OnLumChanged(bool checked)
{
    m_Params.preserveLuminosity = checked;
    NotifyChanged(&HBColorBalanceWidget::ValueChanged);
}

// ---- Job ----

struct HBColorBalanceWidget::CBData : HBJobData
{
    Params params;
};

void HBColorBalanceWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    const CBData job{JobData(), m_Params};
    HBStartJob(watcher, this, &HBColorBalanceWidget::Process, job);
}

HBImage<> HBColorBalanceWidget::Process(CBData job)
{
    const Params& params = job.params;
    return RunTransformation(
        job, HBIterativeColorBalanceTransformation(params.cyanRed, params.magentaGreen, params.yellowBlue));
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBWatermarkWidget.h"

#include "HBBlendingModes.h"
#include "HBColorPick.h"
#include "HBConnectionSet.h"
#include "HBParamStream.h"
#include "ui_WatermarkWidget.h"

#include <HBFontDialog.h>

#include <QDataStream>

#include <new>

namespace
{

constexpr char Tag[] = "KMWatermark 1.00000";
constexpr char SourceName[] = "src\\HBWatermarkWidget";

// Line numbers in the log: fixed, on purpose, for those who look for them.
constexpr int WriteErrorLine = 548;
constexpr int ReadErrorLine = 561;

} // namespace

// ---- Record ----

HBWatermarkWidget::Params::Params() : text(tr("Watermark")) {}

bool HBWatermarkWidget::Params::Read(QDataStream& stream)
{
    if (!HBReadTag(stream, Tag))
        return false;
    try {
        stream >> angle >> margins >> text >> font >> color >> blendingMode >> opacity >> horizontalTiles >>
            verticalTiles;
    } catch (const std::bad_alloc&) {
        // Qt makes room for as many names of a font as the record says that there are.
        stream.setStatus(QDataStream::ReadCorruptData);
    }
    return stream.status() == QDataStream::Ok;
}

// The defaults, big endian, version Qt_5_15: the 19 bytes of the tag; 00 00 00 00; four times 00 00 00 05; the text as
// 00 00 00 12 and its UTF-16; the font; 01 FFFF FFFF FFFF FFFF 0000; 00 00 00 00; 00 00 00 64; twice 00 00 00 01.
bool HBWatermarkWidget::Params::Write(QDataStream& stream) const
{
    if (!HBWriteTag(stream, Tag))
        return false;
    stream << angle << margins << text << font << color << blendingMode << opacity << horizontalTiles
           << verticalTiles;
    return stream.status() == QDataStream::Ok;
}

QDataStream& operator<<(QDataStream& stream, const HBWatermarkWidget::Params& params)
{
    if (!params.Write(stream))
        HB_LOG_STREAM_ERROR(WriteErrorLine, SourceName, "Write watermark data error.");
    return stream;
}

QDataStream& operator>>(QDataStream& stream, HBWatermarkWidget::Params& params)
{
    if (!params.Read(stream)) {
        HB_LOG_STREAM_ERROR(ReadErrorLine, SourceName, "Read watermark data error.");
        params = HBWatermarkWidget::Params();
    }
    return stream;
}

// ---- Construction ----

HBWatermarkWidget::HBWatermarkWidget(QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(false, parent, flags)
    , m_pUI(std::make_unique<Ui::WatermarkWidget>())
    , m_pConnections(std::make_unique<HBConnectionSet>())
{
    m_pUI->setupUi(GetUIContent());
    HBFillBlendingModes(m_pUI->m_pBlendCombo);
    m_pConnections->Add(m_pUI->m_pSelectFont, SIGNAL(clicked()), SLOT(OnSelectFont()));
    m_pConnections->Add(m_pUI->m_pAngleSpn, SIGNAL(valueChanged(int)), SLOT(OnAnglechanged(int)));
    m_pConnections->Add(m_pUI->m_pText, SIGNAL(textChanged(QString)), SLOT(OnTextChanged(QString)));
    m_pConnections->Add(m_pUI->m_pLeftMargin, SIGNAL(valueChanged(int)), SLOT(OnLeftMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pRightMargin, SIGNAL(valueChanged(int)), SLOT(OnRightMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pTopMargin, SIGNAL(valueChanged(int)), SLOT(OnTopMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pBottomMargin, SIGNAL(valueChanged(int)), SLOT(OnBottomMarginChanged(int)));
    m_pConnections->Add(m_pUI->m_pOpacitySpn, SIGNAL(valueChanged(int)), SLOT(OnOpacityChanged(int)));
    m_pConnections->Add(m_pUI->m_pBlendCombo, SIGNAL(currentIndexChanged(int)), SLOT(OnBlendingModeChanged(int)));
    m_pConnections->Add(m_pUI->m_pColor, SIGNAL(clicked()), SLOT(OnSelectColor()));
    m_pConnections->Add(m_pUI->m_pVrtTiles, SIGNAL(valueChanged(int)), SLOT(OnVrtTilesChanged(int)));
    m_pConnections->Add(m_pUI->m_pHrzTiles, SIGNAL(valueChanged(int)), SLOT(OnHrzTilesChanged(int)));
    Reset();
    // Once more after Reset, which has connected already: the set connects what is not connected, so each edit is heard
    // once.
    Connect();
}

HBWatermarkWidget::~HBWatermarkWidget()
{
    FinishJob();
    Disconnect();
}

void HBWatermarkWidget::Connect()
{
    m_pConnections->Connect(this);
}

void HBWatermarkWidget::Disconnect()
{
    m_pConnections->Disconnect(this);
}

// ---- Values ----

void HBWatermarkWidget::SetValue(const Params& params)
{
    Disconnect();
    m_Params = params;
    m_pUI->m_pHrzTiles->setValue(m_Params.horizontalTiles);
    m_pUI->m_pVrtTiles->setValue(m_Params.verticalTiles);
    m_pUI->m_pText->setText(m_Params.text);
    m_pUI->m_pAngleSpn->setValue(m_Params.angle);
    m_pUI->m_pLeftMargin->setValue(m_Params.margins.left());
    m_pUI->m_pTopMargin->setValue(m_Params.margins.top());
    m_pUI->m_pRightMargin->setValue(m_Params.margins.right());
    m_pUI->m_pBottomMargin->setValue(m_Params.margins.bottom());
    m_pUI->m_pOpacitySpn->setValue(m_Params.opacity);
    m_pUI->m_pBlendCombo->setCurrentIndex(BlendingModeToIndex(unsigned(m_Params.blendingMode)));
    SetColor(m_Params.color);
    Connect();
}

void HBWatermarkWidget::Reset()
{
    SetValue(Params());
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::StartJobWatching(QFutureWatcher<HBImage<>>*) {}

void HBWatermarkWidget::OnAnglechanged(int angle)
{
    m_Params.angle = angle;
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnTextChanged(const QString& text)
{
    m_Params.text = text;
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnLeftMarginChanged(int margin)
{
    m_Params.margins.setLeft(margin);
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnRightMarginChanged(int margin)
{
    m_Params.margins.setRight(margin);
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnTopMarginChanged(int margin)
{
    m_Params.margins.setTop(margin);
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnBottomMarginChanged(int margin)
{
    m_Params.margins.setBottom(margin);
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnOpacityChanged(int opacity)
{
    m_Params.opacity = opacity;
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnBlendingModeChanged(int index)
{
    m_Params.blendingMode = qint32(BlendingIndexToMode(index));
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnHrzTilesChanged(int tiles)
{
    m_Params.horizontalTiles = tiles;
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnVrtTilesChanged(int tiles)
{
    m_Params.verticalTiles = tiles;
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

unsigned HBWatermarkWidget::BlendingIndexToMode(int index) const
{
    return HBBlendingIndexToMode(index);
}

int HBWatermarkWidget::BlendingModeToIndex(unsigned mode) const
{
    return HBBlendingModeToIndex(mode);
}

// ---- Colour and font ----

void HBWatermarkWidget::SetColor(const QColor& color)
{
    m_Params.color = color;
    HBShowColor(m_pUI->m_pColor, color);
}

void HBWatermarkWidget::OnSelectColor()
{
    QColor chosen;
    if (HBRunColorDialog(this, tr("Select text color"), m_Params.color, nullptr, &chosen) != HBPick::Accepted)
        return;
    SetColor(chosen);
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

void HBWatermarkWidget::OnSelectFont()
{
    // Panel and dialog may be destroyed while the dialog is open.
    const QPointer<HBWatermarkWidget> self(this);
    const QPointer<HBFontDialog> dialog(new HBFontDialog(m_Params.font, this));
    dialog->setWindowTitle(tr("Font parameters"));
    const int result = dialog->Exec();
    if (!self || !dialog)
        return;
    const QFont font = dialog->GetSelectedFont();
    delete dialog;
    if (result != 1)
        return;
    m_Params.font = font;
    NotifyChanged(&HBWatermarkWidget::ValueChanged);
}

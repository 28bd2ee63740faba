// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFilterWidget.h"

#include "HBColorPick.h"
#include "HBPanelStream.h"
#include "ui_PhotoFilterWidget.h"

HB_PANEL_STREAM_LINES(HBPhotoFilterWidget, "photo filter data", 368, 381, HBAfterFailure::Reset)

namespace
{

/// Presets behind the first row, "Custom". The fourth name is misspelt, on purpose: it is a key of the
/// translations.
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

HBPhotoFilterWidget::HBPhotoFilterWidget(bool dialog, QWidget* parent, Qt::WindowFlags flags)
    : HBAdjustmentWidget(dialog, parent, flags)
    , m_pUI(std::make_unique<Ui::PhotoFilterWidget>())
{
    m_pUI->setupUi(GetUIContent());
    FillPresets();
    // Never muted, on purpose: SetValue stores the colour before it looks for the preset, which then changes
    // nothing.
    connect(m_pUI->m_pPresetList, SIGNAL(currentIndexChanged(int)), SLOT(OnPresetChanged(int)));
    Listen(m_pUI->m_pColor, SIGNAL(clicked()), SLOT(OnColor()));
    Listen(m_pUI->m_pDensity, SIGNAL(valueChanged(int)), SLOT(OnDensityChanged(int)));
    SetValue(Params());
}

HBPhotoFilterWidget::~HBPhotoFilterWidget() = default;

void HBPhotoFilterWidget::FillPresets()
{
    m_pUI->m_pPresetList->clear();
    m_pUI->m_pPresetList->addItem(tr("Custom"), QColor(Qt::transparent));
    for (const Preset& preset : presets)
        m_pUI->m_pPresetList->addItem(tr(preset.name), QColor(preset.color));
}

void HBPhotoFilterWidget::SetValue(const Params& params)
{
    const Mute mute(this);
    m_Params = params;
    SetColor(m_Params.color);
    UpdatePresetIndex(m_Params.color);
    m_pUI->m_pDensity->setValue(m_Params.density);
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

/// The user has chosen another colour.
/// \param preset the colour whose preset is shown
void HBPhotoFilterWidget::Change(const QColor& color, const QColor& preset)
{
    if (color == m_Params.color)
        return;
    SetColor(color);
    UpdatePresetIndex(preset);
    NotifyChanged(&HBPhotoFilterWidget::ValueChanged);
}

void HBPhotoFilterWidget::OnPresetChanged(int index)
{
    const QColor color = m_pUI->m_pPresetList->itemData(index).value<QColor>();
    if (index >= 0 && color != QColor(Qt::transparent))
        Change(color, color);
}

void HBPhotoFilterWidget::OnCurrentColorChanged(const QColor& color)
{
    Change(color, color);
}

void HBPhotoFilterWidget::OnColor()
{
    const QColor before = m_Params.color;
    // The preset of the colour from before the dialog, on purpose, also when another one was accepted.
    if (const auto left =
            HBPickColor(this, tr("Select a filter color"), before, SLOT(OnCurrentColorChanged(QColor))))
        Change(*left, before);
}

void HBPhotoFilterWidget::StartJobWatching(QFutureWatcher<HBImage<>>* watcher)
{
    HBStartJob(watcher, &Process, PhotoFilterData{JobData(), m_Params});
}

HBImage<> HBPhotoFilterWidget::Process(PhotoFilterData job)
{
    return HBRunJob(job, job.params);
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelCatalog.h"

#include <HBBlackAndWhiteWidget.h>
#include <HBBrightnessContrastWidget.h>
#include <HBColorBalanceWidget.h>
#include <HBColorEnhancerWidget.h>
#include <HBColorizeWidget.h>
#include <HBCurvesWidget.h>
#include <HBExposureWidget.h>
#include <HBGammaCorrectionWidget.h>
#include <HBHueSaturationWidget.h>
#include <HBLevelsWidget.h>
#include <HBOverlay.h>
#include <HBPhotoFilterWidget.h>
#include <HBPosterizeWidget.h>
#include <HBReplaceColorWidget.h>
#include <HBSignWidget.h>
#include <HBTemperatureWidget.h>
#include <HBThresholdWidget.h>
#include <HBTintWidget.h>
#include <HBWatermarkWidget.h>
#include <HBWBWidget.h>
#include <KMFillColorWidget.h>

#include <QCoreApplication>
#include <QDataStream>

#include <new>

namespace
{

constexpr char RecordKey[] = "record";
constexpr char ValuesKey[] = "values";

// A recipe fixes how its records are streamed, whatever Qt it is read with.
constexpr QDataStream::Version RecordVersion = QDataStream::Qt_5_15;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(HBPanelCatalog)
};

bool DecodeRecord(const QJsonObject& values, QByteArray* record, QString* reason)
{
    const QJsonValue text = values.value(QLatin1String(RecordKey));
    if (!text.isString()) {
        *reason = Text::tr("it has no record");
        return false;
    }
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toString().toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        *reason = Text::tr("its record is not base64");
        return false;
    }
    *record = decoded.decoded;
    return true;
}

template <class Panel>
HBAdjustmentWidget* Create(bool dialog, QWidget* parent)
{
    return new Panel(dialog, parent, Qt::WindowFlags());
}

/// Some panels react to the user only after their first SetValue.
template <class Panel>
HBAdjustmentWidget* CreateWithValue(bool dialog, QWidget* parent)
{
    auto* panel = new Panel(dialog, parent, Qt::WindowFlags());
    panel->SetValue(panel->GetValue());
    return panel;
}

template <class Panel>
HBAdjustmentWidget* CreateOverlay(bool, QWidget* parent)
{
    return new Panel(parent, Qt::WindowFlags());
}

template <class Panel>
QJsonObject SaveRecord(const HBAdjustmentWidget& panel)
{
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    stream.setVersion(RecordVersion);
    static_cast<const Panel&>(panel).GetValue().Write(stream);
    return {{RecordKey, QString::fromLatin1(record.toBase64())}};
}

template <class Panel>
bool RestoreRecord(HBAdjustmentWidget& panel, const QJsonObject& values, QString* reason)
{
    QByteArray record;
    if (!DecodeRecord(values, &record, reason))
        return false;
    QDataStream stream(record);
    stream.setVersion(RecordVersion);
    typename Panel::Params params;
    if (!params.Read(stream)) {
        switch (stream.status()) {
        case QDataStream::Ok: // a foreign tag leaves it alone
            *reason = Text::tr("its record is not one of this panel");
            break;
        case QDataStream::ReadPastEnd:
            *reason = Text::tr("its record is cut short");
            break;
        default:
            *reason = Text::tr("its record is broken");
        }
        return false;
    }
    if (!stream.atEnd()) {
        *reason = Text::tr("its record is too long");
        return false;
    }
    static_cast<Panel&>(panel).SetValue(params);
    return true;
}

/// One plain value of a panel without a record: its key in recipes and its accessors.
template <class Panel, class Number>
struct Value
{
    const char* key;
    Number (Panel::*get)() const;
    void (Panel::*set)(Number);
};

template <class Panel>
struct PlainValues;

template <>
struct PlainValues<HBGammaCorrectionWidget>
{
    static constexpr Value<HBGammaCorrectionWidget, double> all[] = {
        {"gamma", &HBGammaCorrectionWidget::GetGamma, &HBGammaCorrectionWidget::SetGamma}};
};

template <>
struct PlainValues<HBExposureWidget>
{
    static constexpr Value<HBExposureWidget, double> all[] = {
        {"exposure", &HBExposureWidget::GetExposure, &HBExposureWidget::SetExposure},
        {"offset", &HBExposureWidget::GetOffset, &HBExposureWidget::SetOffset}};
};

template <>
struct PlainValues<HBPosterizeWidget>
{
    static constexpr Value<HBPosterizeWidget, int> all[] = {
        {"levels", &HBPosterizeWidget::GetPosterize, &HBPosterizeWidget::SetPosterize}};
};

template <class Panel>
QJsonObject SaveValues(const HBAdjustmentWidget& panel)
{
    QJsonObject values;
    for (const auto& value : PlainValues<Panel>::all)
        values.insert(QLatin1String(value.key), (static_cast<const Panel&>(panel).*value.get)());
    return {{ValuesKey, values}};
}

template <class Panel>
bool RestoreValues(HBAdjustmentWidget& panel, const QJsonObject& stored, QString* reason)
{
    const QJsonObject values = stored.value(QLatin1String(ValuesKey)).toObject();
    for (const auto& value : PlainValues<Panel>::all) {
        if (!values.value(QLatin1String(value.key)).isDouble()) {
            *reason = Text::tr("it has no number \"%1\"").arg(QLatin1String(value.key));
            return false;
        }
    }
    for (const auto& value : PlainValues<Panel>::all) {
        auto& target = static_cast<Panel&>(panel);
        using Number = decltype((target.*value.get)());
        // The panels clamp to their own ranges, which all lie far inside this one.
        const auto number = Number(qBound(-1e9, values.value(QLatin1String(value.key)).toDouble(), 1e9));
        // Some setters land on the step beside a negative value the first time, and stay on it the second.
        for (int attempt = 0; attempt < 2 && (target.*value.get)() != number; ++attempt)
            (target.*value.set)(number);
    }
    return true;
}

/// A panel without a record.
template <class Panel>
HBPanelEntry PlainRow(const char* group, const char* title)
{
    return {Panel::staticMetaObject.className(),
            nullptr,
            group,
            title,
            &Create<Panel>,
            &SaveValues<Panel>,
            &RestoreValues<Panel>};
}

/// A panel whose values are a stored record `Params`, which opens with the tag.
template <class Panel>
HBPanelEntry Row(const char* tag, const char* group, const char* title,
                 HBAdjustmentWidget* (*create)(bool, QWidget*) = &CreateWithValue<Panel>)
{
    return {
        Panel::staticMetaObject.className(), tag, group, title, create, &SaveRecord<Panel>, &RestoreRecord<Panel>};
}

// The groups, in the order of the menus.
constexpr char Tonal[] = QT_TRANSLATE_NOOP("HBPanelCatalog", "Tonal");
constexpr char Color[] = QT_TRANSLATE_NOOP("HBPanelCatalog", "Color");
constexpr char Overlays[] = QT_TRANSLATE_NOOP("HBPanelCatalog", "Overlays");

/// An overlay: a panel whose values are a stored record and are drawn by `Draw`.
template <class Panel, HBImage<> (*Draw)(const HBImage<>&, const typename Panel::Params&, QString*)>
HBPanelEntry OverlayRow(const char* tag, const char* title)
{
    HBPanelEntry row = Row<Panel>(tag, Overlays, title, &CreateOverlay<Panel>);
    row.draw = [](const HBAdjustmentWidget& panel) -> HBOverlayDrawing {
        return [params = static_cast<const Panel&>(panel).GetValue()](const HBImage<>& source, QString* error) {
            return Draw(source, params, error);
        };
    };
    return row;
}

} // namespace

const QVector<HBPanelEntry>& HBPanelCatalog()
{
    static const QVector<HBPanelEntry> catalog = {
        Row<HBBrightnessContrastWidget>("KMBrightnessContrast 1.00000", Tonal,
                                        QT_TRANSLATE_NOOP("HBPanelCatalog", "Brightness and Contrast")),
        PlainRow<HBExposureWidget>(Tonal, QT_TRANSLATE_NOOP("HBPanelCatalog", "Exposure")),
        PlainRow<HBGammaCorrectionWidget>(Tonal, QT_TRANSLATE_NOOP("HBPanelCatalog", "Gamma")),
        PlainRow<HBPosterizeWidget>(Tonal, QT_TRANSLATE_NOOP("HBPanelCatalog", "Posterize")),
        Row<HBLevelsWidget>("KMLevels 1.00000", Tonal, QT_TRANSLATE_NOOP("HBPanelCatalog", "Levels")),
        Row<HBCurvesWidget>("KMCurves 1.00000", Tonal, QT_TRANSLATE_NOOP("HBPanelCatalog", "Curves")),
        Row<HBThresholdWidget>("KMThreshold 1.00000", Tonal, QT_TRANSLATE_NOOP("HBPanelCatalog", "Threshold")),
        Row<HBHueSaturationWidget>("KMHueSaturation 1.00000", Color,
                                   QT_TRANSLATE_NOOP("HBPanelCatalog", "Hue and Saturation")),
        Row<HBColorBalanceWidget>("KMColorBalance 1.00000", Color,
                                  QT_TRANSLATE_NOOP("HBPanelCatalog", "Color Balance")),
        Row<HBWBWidget>("KMWhiteBalance 1.00000", Color,
                        QT_TRANSLATE_NOOP("HBPanelCatalog", "Picture Correction")),
        Row<HBTemperatureWidget>("KMTemperature 1.00000", Color,
                                 QT_TRANSLATE_NOOP("HBPanelCatalog", "Temperature")),
        Row<HBColorEnhancerWidget>("KMColorEnhancer 1.00000", Color,
                                   QT_TRANSLATE_NOOP("HBPanelCatalog", "Color Enhancer")),
        Row<HBTintWidget>("KMTint 1.00000", Color, QT_TRANSLATE_NOOP("HBPanelCatalog", "Tint")),
        Row<HBBlackAndWhiteWidget>("KMBlackAndWhite 1.00000", Color,
                                   QT_TRANSLATE_NOOP("HBPanelCatalog", "Black and White")),
        Row<HBPhotoFilterWidget>("KMPhotoFilter 1.00000", Color,
                                 QT_TRANSLATE_NOOP("HBPanelCatalog", "Photo Filter")),
        Row<HBColorizeWidget>("KMColorizeFilter 1.00000", Color, QT_TRANSLATE_NOOP("HBPanelCatalog", "Colorize")),
        Row<HBReplaceColorWidget>("KMReplaceColor 1.00000", Color,
                                  QT_TRANSLATE_NOOP("HBPanelCatalog", "Replace Color")),
        Row<KMFillColorWidget>("KMFillColor 1.00000", Color, QT_TRANSLATE_NOOP("HBPanelCatalog", "Fill Color")),
        OverlayRow<HBSignWidget, &HBDrawSign>("KMSign 1.00000", QT_TRANSLATE_NOOP("HBPanelCatalog", "Sign")),
        OverlayRow<HBWatermarkWidget, &HBDrawWatermark>("KMWatermark 1.00000",
                                                        QT_TRANSLATE_NOOP("HBPanelCatalog", "Watermark")),
    };
    return catalog;
}

const HBPanelEntry* HBFindPanel(const QString& className)
{
    for (const HBPanelEntry& entry : HBPanelCatalog()) {
        if (className == QLatin1String(entry.className))
            return &entry;
    }
    return nullptr;
}

QString HBPanelEntry::Group() const
{
    return Text::tr(group);
}

QString HBPanelEntry::Title() const
{
    return Text::tr(title);
}

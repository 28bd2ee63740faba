// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelCatalog.h"

#include <HBBrightnessContrastWidget.h>

#include <QCoreApplication>
#include <QDataStream>

namespace
{

constexpr char RecordKey[] = "record";

// A recipe fixes how its records are streamed, whatever Qt it is read with.
constexpr QDataStream::Version RecordVersion = QDataStream::Qt_5_15;

QString Translated(const char* text)
{
    return QCoreApplication::translate("HBPanelCatalog", text);
}

bool DecodeRecord(const QJsonObject& values, QByteArray* record, QString* reason)
{
    const QJsonValue text = values.value(QLatin1String(RecordKey));
    if (!text.isString()) {
        *reason = Translated("it has no record");
        return false;
    }
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toString().toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        *reason = Translated("its record is not base64");
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
        // A foreign tag leaves the stream's status alone.
        *reason = stream.status() == QDataStream::Ok ? Translated("its record is not one of this panel")
                                                     : Translated("its record is cut short");
        return false;
    }
    if (!stream.atEnd()) {
        *reason = Translated("its record is too long");
        return false;
    }
    static_cast<Panel&>(panel).SetValue(params);
    return true;
}

/// A panel whose values are a stored record `Params`, which opens with the tag.
template <class Panel>
HBPanelEntry Row(const char* tag, const char* group, const char* title)
{
    return {Panel::staticMetaObject.className(),
            tag,
            group,
            title,
            &Create<Panel>,
            &SaveRecord<Panel>,
            &RestoreRecord<Panel>};
}

// The groups, in the order of the menus.
constexpr char Tonal[] = QT_TRANSLATE_NOOP("HBPanelCatalog", "Tonal");

} // namespace

const QVector<HBPanelEntry>& HBPanelCatalog()
{
    static const QVector<HBPanelEntry> catalog = {
        Row<HBBrightnessContrastWidget>("KMBrightnessContrast 1.00000", Tonal,
                                        QT_TRANSLATE_NOOP("HBPanelCatalog", "Brightness and Contrast")),
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
    return Translated(group);
}

QString HBPanelEntry::Title() const
{
    return Translated(title);
}

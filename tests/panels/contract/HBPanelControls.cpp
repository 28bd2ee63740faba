// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelControls.h"

#include "../HBPickedDocument.h"

#include <HBAdjustmentWidget.h>
#include <HBColorWidget.h>
#include <MavuCustomSlider.h>

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QCryptographicHash>
#include <QDialogButtonBox>
#include <QGraphicsPathItem>
#include <QGraphicsView>
#include <QLineEdit>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>

namespace {

/// The colours of a groove; whatever else a style sheet says is not what a panel shows.
QString Groove(const QWidget& widget) {
    QString stops;
    auto match = QRegularExpression("stop: [^,]+rgb\\([^)]*\\)").globalMatch(widget.styleSheet());
    while (match.hasNext()) stops += match.next().captured();
    return stops.isEmpty() ? stops : " groove " + Hash(stops.toLatin1());
}

QString Nodes(const QGraphicsScene& scene) {
    QStringList items;
    for (const QGraphicsItem* item : scene.items()) {
        const auto* path = dynamic_cast<const QGraphicsPathItem*>(item);
        QString text = QString("%1,%2").arg(item->pos().x()).arg(item->pos().y());
        for (int i = 0; path && i < path->path().elementCount(); ++i)
            text += QString(" %1,%2")
                        .arg(path->path().elementAt(i).x, 0, 'f', 3)
                        .arg(path->path().elementAt(i).y, 0, 'f', 3);
        if (item->isVisible() && (path || !item->pos().isNull())) items += text;
    }
    items.sort();
    return QString("%1 items %2").arg(items.size()).arg(Hash(items.join('\n').toLatin1()));
}

} // namespace

QString Hash(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().left(8));
}

QString Hash(const HBImage<>& image) {
    if (image.IsEmpty()) return "none";
    const QImage pixels = image.ToQImage();
    return Hash(
        QByteArray::fromRawData(reinterpret_cast<const char*>(pixels.constBits()), int(pixels.sizeInBytes())));
}

QString Hash(const QBrush& brush) {
    QStringList parts{QString::number(brush.style()), brush.color().name(QColor::HexArgb)};
    if (brush.gradient()) {
        for (const QGradientStop& stop : brush.gradient()->stops())
            parts += QString("%1 %2").arg(stop.first).arg(stop.second.name(QColor::HexArgb));
    }
    return Hash(parts.join(',').toLatin1());
}

QString Shown(const QWidget& widget) {
    QString text = Groove(widget);
    if (auto* handles = qobject_cast<const MavuCustomSlider*>(&widget)) {
        for (uint i = 0; i < handles->ControlCount(); ++i)
            text += QString(" %1[%2..%3]")
                        .arg(handles->Value(i))
                        .arg(handles->LowestValue(i))
                        .arg(handles->HighestValue(i));
    } else if (auto* color = qobject_cast<const HBColorWidget*>(&widget)) {
        text += Hash(color->BackgroundBrush());
    } else if (auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        text += button->isChecked() ? "on" : "off";
        if (!button->icon().isNull() && !button->isCheckable())
            text += QString(" colour %1").arg(button->icon().pixmap(4, 4).toImage().pixelColor(1, 1).name());
    } else if (auto* view = qobject_cast<const QGraphicsView*>(&widget)) {
        text += view->scene() ? Nodes(*view->scene()) : QString();
    } else {
        for (const char* name : {"value", "currentIndex", "text"}) {
            const QVariant value = widget.property(name);
            if (value.isValid()) text = QString("%1%2").arg(value.toString(), text);
            if (value.isValid()) break;
        }
    }
    return text.trimmed() + (widget.isEnabled() ? "" : " disabled") +
           (widget.isHidden() && !widget.isWindow() ? " hidden" : "");
}

QVector<QWidget*> Controls(const HBAdjustmentWidget& panel) {
    QVector<QWidget*> controls;
    for (QWidget* widget : panel.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || name == "FILTERPROGRESS") continue;
        if (!qobject_cast<QDialogButtonBox*>(widget) && !qobject_cast<QDialogButtonBox*>(widget->parent()))
            controls += widget;
    }
    std::sort(controls.begin(), controls.end(),
              [](auto* a, auto* b) { return a->objectName() < b->objectName(); });
    return controls;
}

QStringList ShownBy(const HBAdjustmentWidget& panel) {
    QStringList lines;
    for (const QWidget* control : Controls(panel)) lines += control->objectName() + '=' + Shown(*control);
    lines.removeAll("m_pContent=");
    return lines;
}

QVector<Move> Moves(QWidget* control) {
    QVector<Move> moves;
    const auto add = [&](const QString& name, const std::function<void()>& run) { moves += {name, run}; };
    const auto key = [&](Qt::Key code) {
        add("key " + QKeySequence(code).toString(), [=] { QTest::keyClick(control, code); });
    };
    const auto value = [&](const char* property, const QVariant& number) {
        const bool fraction = number.userType() == QMetaType::Double; // Qt 6 would write 2e+05
        add(fraction ? QString::number(number.toDouble(), 'f', QLocale::FloatingPointShortest) : number.toString(),
            [=] { control->setProperty(property, number); });
    };
    const auto type = [&](const char* text) {
        add(QString("type ") + text, [=] {
            if (auto* box = qobject_cast<QAbstractSpinBox*>(control)) box->selectAll();
            QTest::keyClicks(control, text);
            QTest::keyClick(control, Qt::Key_Return);
        });
    };
    if (auto* handles = qobject_cast<MavuCustomSlider*>(control)) {
        for (uint i = 0; i < handles->ControlCount(); ++i) {
            for (const int number : {-1000, 1000, 40, 41, 200})
                add(QString("handle %1 %2").arg(i).arg(number), [=] { handles->SetValue(i, number); });
            add(QString("handle %1").arg(i), [=] { handles->SetCurrentControl(i); });
            for (const auto code : {Qt::Key_Right, Qt::Key_PageDown}) key(code);
        }
    } else if (qobject_cast<QAbstractSlider*>(control) || qobject_cast<QAbstractSpinBox*>(control)) {
        const double low = control->property("minimum").toDouble(), high = control->property("maximum").toDouble();
        for (const double number : {low, high + 1, low, high, low + (high - low) / 3}) value("value", number);
        for (const auto code : {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Home}) key(code);
        if (qobject_cast<QAbstractSpinBox*>(control))
            for (const char* text : {"7", "-0.5", "99999"}) type(text);
    } else if (auto* combo = qobject_cast<QComboBox*>(control)) {
        for (int i = qMin(combo->count(), 6) - 1; i >= -1; --i) value("currentIndex", i);
        for (const auto code : {Qt::Key_End, Qt::Key_Up}) key(code);
    } else if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        // The automatic corrections are the one kind of plain button that opens no dialog.
        if (button->isCheckable() || button->objectName() == "m_pAutoBtn")
            for (const char* name : {"click", "click again"}) add(name, [=] { button->click(); });
    } else if (auto* edit = qobject_cast<QLineEdit*>(control)) {
        for (const char* text : {"12", "abc", ""}) value("text", text);
        if (!edit->isReadOnly()) type("3x");
    } else if (auto* view = qobject_cast<QGraphicsView*>(control)) {
        for (const auto mouse : {Qt::LeftButton, Qt::RightButton})
            for (const auto event : {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseMove,
                                     QEvent::GraphicsSceneMouseRelease})
                add(QString("mouse %1 %2").arg(mouse).arg(event - QEvent::GraphicsSceneMouseMove), [=] {
                    const bool presses = event == QEvent::GraphicsSceneMousePress; // moves and releases elsewhere
                    HBSceneMouse(view->scene(), event, presses ? QPointF(64, 191) : QPointF(80, 150), mouse);
                });
        for (const auto code :
             {Qt::Key_Insert, Qt::Key_Up, Qt::Key_Tab, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Delete})
            key(code);
    }
    return moves;
}

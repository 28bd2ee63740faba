// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QMetaMethod>

// A form as lines of text, so that a test can state it whole.

/// What can be stated of a control: class, name and what differs from a plain one.
inline QString HBControlText(const QWidget& control) {
    QString text = QString("%1 %2").arg(control.metaObject()->className(), control.objectName());
    if (auto* label = qobject_cast<const QLabel*>(&control)) {
        text += QString(" \"%1\"").arg(label->text());
        if (label->alignment() & Qt::AlignRight && label->alignment() & Qt::AlignVCenter) text += " right";
    } else if (auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        text += QString(" \"%1\"").arg(button->text());
        if (button->isChecked()) text += " checked";
    } else if (qobject_cast<const QAbstractSlider*>(&control) || qobject_cast<const QAbstractSpinBox*>(&control)) {
        for (const char* name : {"minimum", "maximum", "value", "decimals", "singleStep", "suffix"}) {
            const QVariant value = control.property(name);
            const bool plain =
                !value.isValid() || value == QVariant(QString()) || (name == QString("singleStep") && value == 1);
            if (!plain) text += ' ' + value.toString();
        }
        if (control.property("orientation") == int(Qt::Vertical)) text += " vertical";
    } else if (auto* combo = qobject_cast<const QComboBox*>(&control)) {
        text += QString(" at %1 of %2").arg(combo->currentIndex()).arg(combo->count());
    } else {
        text += QString(" \"%1\"").arg(control.property("title").toString());
    }
    const auto sizes = [&](const char* name, int least, int most) {
        if (least == most)
            text += QString(" %1 %2").arg(name).arg(least);
        else if (least > 0)
            text += QString(" %1 from %2").arg(name).arg(least);
    };
    sizes("width", control.minimumWidth(), control.maximumWidth());
    sizes("height", control.minimumHeight(), control.maximumHeight());
    if (!control.isEnabled()) text += " disabled";
    if (!control.toolTip().isEmpty()) text += QString(" tip \"%1\"").arg(control.toolTip());
    return text;
}

/// A line for each cell of a grid, "row, column (1 × columns): control", in the order of the form.
inline QStringList HBGridText(const QLayout* layout) {
    QStringList lines;
    auto* grid = qobject_cast<const QGridLayout*>(layout);
    for (int i = 0; grid && i < grid->count(); ++i) {
        int row, column, rows, columns;
        grid->getItemPosition(i, &row, &column, &rows, &columns);
        QString line = QString("%1, %2").arg(row).arg(column);
        if (rows != 1 || columns != 1) line += QString(" (%1 x %2)").arg(rows).arg(columns);
        QLayoutItem* item = grid->itemAt(i);
        if (QSpacerItem* spacer = item->spacerItem())
            line += QString(": spacer %1 x %2").arg(spacer->sizeHint().width()).arg(spacer->sizeHint().height());
        else if (item->widget())
            line += ": " + HBControlText(*item->widget());
        lines += line;
    }
    return lines;
}

/// Signals and slots of a class itself, in the order of its meta-object.
inline QStringList HBMethodText(const QMetaObject& meta) {
    QStringList lines;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) lines += meta.method(i).methodSignature();
    return lines;
}

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBPanelFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>

#include <limits>

// Checks that the tests of several panels share.

constexpr int LeastInt = std::numeric_limits<int>::min();
constexpr int MostInt = std::numeric_limits<int>::max();

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

/// Where something lies in its layout: "gridLayout 0,1", with the spans behind it if they are not 1.
inline QString HBCellOf(const QLayout* layout, int index) {
    const auto* grid = qobject_cast<const QGridLayout*>(layout);
    if (!grid) return QString("%1 %2").arg(layout->objectName()).arg(index);
    int row, column, rows, columns;
    grid->getItemPosition(index, &row, &column, &rows, &columns);
    const QString cell = QString("%1 %2,%3").arg(layout->objectName()).arg(row).arg(column);
    return rows == 1 && columns == 1 ? cell : QString("%1 %2x%3").arg(cell).arg(rows).arg(columns);
}

/// All that stands in the layouts under `parent`, cell by cell: controls, and spacers with their size hint.
inline QStringList HBFormLines(const QWidget* parent) {
    QStringList lines;
    const auto cells = [&lines](const QLayout* layout, const auto& self) -> void {
        for (int i = 0; i < layout->count(); ++i) {
            QLayoutItem* item = layout->itemAt(i);
            if (item->layout()) {
                self(item->layout(), self);
                continue;
            }
            if (QWidget* widget = item->widget()) {
                lines += HBCellOf(layout, i) + ": " + HBControlText(*widget);
                if (widget->layout()) self(widget->layout(), self);
            } else {
                const QSize size = item->sizeHint();
                const bool grows = item->expandingDirections() != Qt::Orientations();
                lines += QString("%1: spacer %2x%3%4")
                             .arg(HBCellOf(layout, i))
                             .arg(size.width())
                             .arg(size.height())
                             .arg(grows ? " expanding" : "");
            }
        }
    };
    cells(parent->layout(), cells);
    return lines;
}

/// The form of a panel in both modes: its name, its title, its first size where it is the panel's own, some cells.
template <class Panel>
void HBVerifyForm(const char* form, const char* title, const QSize& size, const QStringList& lines) {
    for (const bool dialog : {true, false}) {
        HBPanelFixture<Panel> f(dialog);
        QWidget* content = dialog ? f.template Find<QWidget>("m_pContent") : nullptr;
        if (!content) content = &f.panel; // embedded, or an overlay
        if (form && content == &f.panel) QCOMPARE(content->objectName(), QString(form));
        QCOMPARE(content->windowTitle(), QString(title));
        if (size.isValid() && content == &f.panel) QCOMPARE(content->size(), size);
        const QStringList found = HBFormLines(content);
        for (const QString& line : lines) QVERIFY2(found.contains(line), qPrintable(line));
    }
}

/// Whether one sees where a slider stands, whatever style sheet the host gives the panel: a sheet that colours its groove
/// takes the handle away, unless it brings one. The value that it is moved to must not change the groove.
inline bool HBShowsItsValue(QSlider* slider) {
    for (const QWidget* parent = slider->parentWidget(); parent; parent = parent->parentWidget())
        if (!parent->styleSheet().isEmpty()) return false;
    const QImage before = slider->grab().toImage();
    slider->setValue(slider->maximum() - slider->maximum() / 4);
    return slider->grab().toImage() != before;
}

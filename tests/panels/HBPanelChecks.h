// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBFormText.h"
#include "HBPanelFixture.h"

#include <QSlider>
#include <QSpinBox>

#include <limits>

// Checks that the tests of several panels share.

constexpr int LeastInt = std::numeric_limits<int>::min();
constexpr int MostInt = std::numeric_limits<int>::max();

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

/// The form of a panel in both modes: its names, its title, its first size where it is the panel's own, its cells.
template <class Panel>
void HBVerifyForm(const char* form, const char* title, const QSize& size, const QStringList& lines) {
    for (const bool dialog : {true, false}) {
        HBPanelFixture<Panel> f(dialog);
        QWidget* content = dialog ? f.template Find<QWidget>("m_pContent") : &f.panel;
        QVERIFY(content);
        QCOMPARE(content->objectName(), QString(dialog ? "m_pContent" : form));
        QCOMPARE(content->windowTitle(), QString(title));
        if (!dialog) QCOMPARE(content->size(), size);
        const QStringList found = HBFormLines(content);
        for (int i = 0; i < qMin(found.size(), lines.size()); ++i) QCOMPARE(found[i], lines[i]);
        QCOMPARE(found.size(), lines.size());
    }
}

/// Whether one sees where a slider stands: a style sheet that colours its groove takes the handle away, unless another
/// brings one. The value that it is moved to must not change the groove.
inline bool HBShowsItsValue(QSlider* slider) {
    const QImage before = slider->grab().toImage();
    slider->setValue(slider->maximum() - slider->maximum() / 4);
    return slider->grab().toImage() != before;
}

/// Gives the panel sources that have nothing to measure or to transform: none, one pixel, one colour. Each must come
/// back, whatever the panel's record is; with as many pixels and unchanged alpha.
template <class Panel>
void HBVerifyOddSources(HBPanelFixture<Panel>& f) {
    const auto plain = [](int width, int height, QRgb colour) {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(colour);
        return HBImage<>::FromQImage(image);
    };
    const HBImage<> sources[] = {HBImage<>(),
                                 plain(1, 1, qRgba(200, 100, 0, 255)),
                                 plain(1, 1, qRgba(0, 0, 0, 0)),
                                 plain(130, 3, qRgb(0, 0, 0)),
                                 plain(130, 3, qRgb(255, 255, 255)),
                                 plain(130, 3, qRgba(0, 0, 255, 128))};
    for (const HBImage<>& source : sources) {
        f.recorder.Take();
        f.panel.SetImage(source, {}, {}, {});
        QVERIFY(f.Finish());
        QCOMPARE(f.recorder.Count("ImageReady"), 1);
        const HBImage<> result = f.panel.AdjustedImage();
        QCOMPARE(QSize(result.Width(), result.Height()), QSize(source.Width(), source.Height()));
        if (!source.IsEmpty())
            QCOMPARE(qAlpha(result.ToQImage().pixel(0, 0)), qAlpha(source.ToQImage().pixel(0, 0)));
        QVERIFY(!f.panel.HasJobFailed());
    }
    f.panel.ClearData();
    QVERIFY(f.Finish());
    f.recorder.Take();
}

/// Destroys panels whose job has just been started and ones in the midst of it.
template <class Panel>
void HBVerifyDestruction(const std::function<void(Panel&)>& prepare) {
    const HBImage<> photo = HBTestRamp(1500, 1500);
    for (const bool running : {false, true, false, true}) {
        HBPanelFixture<Panel> f;
        prepare(f.panel);
        f.panel.SetImage(photo, {}, {}, {});
        if (running) QVERIFY(f.recorder.WaitFor("ProgressValueChanged"));
    }
}

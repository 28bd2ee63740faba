// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFrame.h"

#include <QApplication>
#include <QGraphicsView>
#include <QPainter>
#include <QVBoxLayout>

HBPhotoFrame::HBPhotoFrame(QWidget* content, QWidget* parent) : QWidget(parent)
{
    constexpr int line = 2;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(line, line, line, line);
    layout->addWidget(content);
    connect(qApp, &QApplication::focusChanged, this, [this] { update(); });
}

void HBPhotoFrame::paintEvent(QPaintEvent*)
{
    const QWidget* focus = QApplication::focusWidget();
    const bool hasFocus = focus && isAncestorOf(focus) && qobject_cast<const QGraphicsView*>(focus);
    QPainter(this).fillRect(rect(), palette().color(hasFocus ? QPalette::Highlight : QPalette::Window));
}

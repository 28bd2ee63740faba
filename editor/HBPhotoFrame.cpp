// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPhotoFrame.h"

#include <QApplication>
#include <QPainter>
#include <QVBoxLayout>

HBPhotoFrame::HBPhotoFrame(QWidget* view, QWidget* parent) : QWidget(parent), m_pView(view)
{
    constexpr int line = 2;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(line, line, line, line);
    layout->addWidget(view);
    connect(qApp, &QApplication::focusChanged, this, [this] { update(); });
}

void HBPhotoFrame::paintEvent(QPaintEvent*)
{
    const bool hasFocus = m_pView->hasFocus();
    QPainter(this).fillRect(rect(), palette().color(hasFocus ? QPalette::Highlight : QPalette::Window));
}

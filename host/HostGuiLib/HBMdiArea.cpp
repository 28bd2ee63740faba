// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBMdiArea.h"

#include <QPointer>
#include <QWidget>

namespace
{

QPointer<QWidget>& Window()
{
    static QPointer<QWidget> window;
    return window;
}

} // namespace

QWidget* HBMdiArea::MainWindow()
{
    return Window();
}

void HBMdiArea::SetMainWindow(QWidget* window)
{
    Window() = window;
}

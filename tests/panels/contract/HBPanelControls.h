// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBImage.h>

#include <QBrush>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class HBAdjustmentWidget;
class QWidget;

// What the controls of any panel show, as text, and how a user moves them.

/// Eight digits that stand for the bytes, pixels or colours.
QString Hash(const QByteArray& bytes);
QString Hash(const HBImage<>& image);
QString Hash(const QBrush& brush);

/// What a control shows.
QString Shown(const QWidget& widget);

/// The panel's controls by name, without the frame's own and without the parts of Qt's controls.
QVector<QWidget*> Controls(const HBAdjustmentWidget& panel);

/// Each control with what it shows.
QStringList ShownBy(const HBAdjustmentWidget& panel);

struct Move {
    QString name;
    std::function<void()> run;
};

/// What a user does to a control; nothing for one that opens a dialog or only shows something.
QVector<Move> Moves(QWidget* control);

// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <QVector>

/// One picture of a contact sheet, with the line below it.
struct HBContact
{
    QImage thumbnail;
    QString label;
};

/// The picture made small for a contact sheet.
QImage HBThumbnail(const QImage& image);

/// All of them in one labelled grid, about as wide as high. Needs a QGuiApplication for the labels.
QImage HBContactSheet(const QVector<HBContact>& contacts);

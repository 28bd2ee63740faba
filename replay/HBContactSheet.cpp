// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBContactSheet.h"

#include <HBScaled.h>

#include <QPainter>
#include <QtMath>

namespace
{

// Pixels.
constexpr QSize thumbnailSize(320, 240);
constexpr int labelHeight = 28;
constexpr int gap = 16;
constexpr int labelSize = 15;

} // namespace

QImage HBThumbnail(const QImage& image)
{
    return HBScaled(image, thumbnailSize, Qt::KeepAspectRatio);
}

QImage HBContactSheet(const QVector<HBContact>& contacts)
{
    const int columns = qMax(1, qCeil(qSqrt(contacts.size())));
    const int rows = (contacts.size() + columns - 1) / columns;
    const QSize cell(thumbnailSize.width() + gap, thumbnailSize.height() + labelHeight + gap);
    QImage sheet(columns * cell.width() + gap, rows * cell.height() + gap, QImage::Format_RGB32);
    sheet.fill(QColor(40, 40, 40));

    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(labelSize);
    painter.setFont(font);
    painter.setPen(Qt::white);
    for (int i = 0; i < contacts.size(); ++i) {
        const QRect frame(QPoint(gap + i % columns * cell.width(), gap + i / columns * cell.height()),
                          thumbnailSize);
        QRect picture(QPoint(), contacts[i].thumbnail.size());
        picture.moveCenter(frame.center());
        painter.drawImage(picture.topLeft(), contacts[i].thumbnail);
        const QRect label(frame.left(), frame.bottom() + 1, frame.width(), labelHeight);
        painter.drawText(label, Qt::AlignCenter, contacts[i].label);
    }
    return sheet;
}

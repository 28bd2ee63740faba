// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBTestModes.h"

#include <HBImage.h>

#include <QImage>
#include <QPainter>

// What the tests of the two overlays share.

inline QRect HBMargins(int left, int top, int right, int bottom) {
    return {QPoint(left, top), QPoint(right, bottom)};
}

/// A colour of an overlay test. Dodge and burn jump at black and white, where QPainter's 16 bits do not tell which
/// side a translucent pixel is on: those are left out.
inline QRgb HBColor(int red, int green, int blue, int alpha) {
    auto level = [](int value) { return 8 + value % 240; };
    return qRgba(level(red), level(green), level(blue), alpha);
}

/// Many colours; the left half opaque, in the right half every alpha from 0 on.
inline QImage HBHalfOpaque(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int alpha = x < width / 2 ? 255 : (y * 7 + x) % 256;
            image.setPixel(x, y, HBColor(x * 5 + y, y * 3, x + y * 11, alpha));
        }
    }
    return image;
}

inline QImage HBPlain(int width, int height, const QColor& color) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

/// The largest difference in alpha, or in a colour as far as it shows: QPainter's own colours of a pixel that
/// covers little are off by as much as its 16 bits lose there.
inline double HBLargestDifference(const QImage& a, const QImage& b) {
    double largest = a.size() == b.size() ? 0 : 256;
    for (int y = 0; largest < 256 && y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb left = a.pixel(x, y);
            const QRgb right = b.pixel(x, y);
            const int color = qMax(qAbs(qRed(left) - qRed(right)),
                                   qMax(qAbs(qGreen(left) - qGreen(right)), qAbs(qBlue(left) - qBlue(right))));
            const double seen = qMax(qAlpha(left), qAlpha(right)) / 255.0 * color;
            largest = qMax(largest, qMax(seen, double(qAbs(qAlpha(left) - qAlpha(right)))));
        }
    }
    return largest;
}

/// The pixels that differ.
inline QRect HBChangedRect(const QImage& before, const QImage& after) {
    QRect changed;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y)) changed |= QRect(x, y, 1, 1);
        }
    }
    return changed;
}

/// The mean difference of two pictures of different sizes, once both are small.
inline double HBMeanDifference(const QImage& a, const QImage& b) {
    const QSize size(150, 150 * a.height() / a.width());
    auto small = [&size](const QImage& image) {
        return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_ARGB32);
    };
    const QImage left = small(a);
    const QImage right = small(b);
    double sum = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int i = 0; i < 4 * size.width(); ++i)
            sum += qAbs(left.constScanLine(y)[i] - right.constScanLine(y)[i]);
    }
    return sum / (4.0 * size.width() * size.height());
}

/// Whether the overlay differs by at most a level from a layer at that place as QPainter composes it. What the
/// layer does not cover keeps its bytes; QPainter's way through premultiplied pixels loses some.
inline bool HBIsComposed(const QImage& drawn, const QImage& picture, const QImage& layer, QPoint at, int mode,
                         int opacity) {
    QImage expected = picture;
    QPainter painter(&expected);
    painter.setCompositionMode(QPainter::CompositionMode(mode));
    painter.setOpacity(opacity / 100.0);
    painter.drawImage(at, layer);
    painter.end();
    int covered = 0;
    for (int y = 0; y < layer.height(); ++y) {
        for (int x = 0; x < layer.width(); ++x) {
            const bool untouched = opacity == 0 || qAlpha(layer.pixel(x, y)) == 0;
            covered += untouched ? 0 : 1;
            if (untouched) expected.setPixel(at + QPoint(x, y), picture.pixel(at + QPoint(x, y)));
        }
    }
    const double difference = HBLargestDifference(drawn, expected);
    if (difference > 1) qWarning("mode %d at %d %%: off by %g", mode, opacity, difference);
    return difference <= 1 && (opacity == 0 || covered > 5000);
}

/// Whether a function draws the same on a picture and on one twenty times its size, in either orientation.
template <class Draw>
bool HBLooksTheSameAtAnySize(const Draw& draw) {
    for (const QSize shape : {QSize(300, 200), QSize(300, 450)}) {
        const QImage plain = HBPlain(shape.width(), shape.height(), Qt::darkBlue);
        const QImage small = draw(plain);
        const QImage large = draw(HBPlain(shape.width() * 20, shape.height() * 20, Qt::darkBlue));
        if (HBMeanDifference(small, plain) <= 1 || HBMeanDifference(small, large) >= 0.6) return false;
    }
    return true;
}

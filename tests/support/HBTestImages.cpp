// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestImages.h"

HBImage<> HBTestPicture(int width, int height, const std::function<QRgb(int, int)>& color) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) image.setPixel(x, y, color(x, y));
    }
    return HBImage<>::FromQImage(image);
}

HBImage<> HBTestRamp(int width, int height) {
    return HBTestPicture(width, height, [](int x, int y) {
        return qRgba((x + 3 * y) & 255, (5 * x + y) & 255, (x * y) & 255, 255 - ((x / 3 + y / 5) & 255));
    });
}

HBImage<> HBTestColorCube(int step) {
    const int levels = (254 + step) / step + 1;
    const int colors = levels * levels * levels;
    int side = 1;
    while (side * side < colors) ++side;
    auto level = [=](int index) { return qMin(255, index % levels * step); };
    return HBTestPicture(side, side, [=](int x, int y) {
        const int index = (y * side + x) % colors;
        return qRgb(level(index), level(index / levels), level(index / levels / levels));
    });
}

HBImage<> HBTestMask(int width, int height) {
    return HBTestPicture(width, height, [](int x, int y) {
        const int coverage = qBound(0, (7 * x + 11 * y) % 512 - 128, 255);
        return qRgba(coverage, coverage, coverage, coverage);
    });
}

HBImage<> HBTestMask(int width, int height, int coverage) {
    return HBTestPicture(width, height, [=](int, int) { return qRgba(coverage, coverage, coverage, coverage); });
}

QVector<QSize> HBAwkwardSizes() {
    return {{1, 1}, {127, 127}, {128, 128}, {129, 129}, {257, 130}, {1, 300}, {300, 1}};
}

HBImage<> HBPlainLoop(const HBImage<>& source, const std::function<HBRGBA32i(HBRGBA32i)>& operation,
                      const HBImage<>& mask, const QPoint& offset, const QRect& bounds) {
    const QImage before = source.ToQImage();
    const QImage coverages = mask.ToQImage();
    const QRect selected = bounds.translated(offset);
    return HBTestPicture(source.Width(), source.Height(), [&](int x, int y) {
        const QRgb old = before.pixel(x, y);
        const QRgb adjusted = operation(HBRGBA32i::FromRgba(old)).ToRgba();
        if (!bounds.isValid()) return adjusted;
        const QPoint onMask = QPoint(x, y) - offset;
        const bool covered = selected.contains(x, y) && coverages.rect().contains(onMask);
        const int coverage = covered ? qAlpha(coverages.pixel(onMask)) : 0;
        auto mix = [=](int from, int to) { return (from * (255 - coverage) + to * coverage + 127) / 255; };
        return qRgba(mix(qRed(old), qRed(adjusted)), mix(qGreen(old), qGreen(adjusted)),
                     mix(qBlue(old), qBlue(adjusted)), mix(qAlpha(old), qAlpha(adjusted)));
    });
}

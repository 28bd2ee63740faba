// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFuzz.h"

#include "HBTestFiles.h"
#include "HBTestImages.h"

#include <HBReadJson.h>

#include <QCoreApplication>
#include <QImage>
#include <QJsonObject>
#include <QThread>

#include <cstdio>
#include <cstdlib>

void HBFuzzFail(const QString& what) {
    std::fprintf(stderr, "WRONG: %s\n", qPrintable(what));
    std::abort();
}

HBTarget HBFuzzTarget(HBFuzzInput* input) {
    static const QVector<QSize> sizes = {{1, 1},     {3, 129},  {127, 3}, {128, 128},
                                         {129, 130}, {257, 20}, {0, 0},   {40, 30}};
    HBTarget target;
    const QSize size = sizes[input->Below(sizes.size())];
    if (!size.isEmpty()) target.source = HBTestRamp(size.width(), size.height());
    const int kind = input->Below(6);
    if (kind == 0) return target;
    target.offset = QPoint(input->Signed(), input->Signed());
    target.bounds = QRect(input->Signed(), input->Signed(), input->Byte(), input->Byte());
    if (kind == 1) target.bounds = QRect(QPoint(), size);
    if (kind == 2) target.offset = QPoint(1 << 30, -(1 << 30));
    if (kind == 3) target.bounds = QRect(-(1 << 30), -(1 << 30), (1 << 30) + 50, (1 << 30) + 50);
    if (kind != 4) target.selection = HBTestMask(1 + input->Below(200), 1 + input->Below(200));
    return target;
}

bool HBKeepsOutside(const HBTarget& target, const HBImage<>& result) {
    if (!target.bounds.isValid()) return true;
    const QRect mask(0, 0, target.selection.Width(), target.selection.Height());
    const QRect reached = target.bounds.intersected(mask);
    const QImage before = target.source.ToQImage(), after = result.ToQImage();
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            const qint64 sx = qint64(x) - target.offset.x(), sy = qint64(y) - target.offset.y();
            const bool inside =
                sx >= reached.left() && sx <= reached.right() && sy >= reached.top() && sy <= reached.bottom();
            if (!inside && before.pixel(x, y) != after.pixel(x, y)) return false;
        }
    }
    return true;
}

QJsonObject HBFuzzStep(const HBAdjustment& adjustment, const QByteArray& bytes) {
    if (adjustment.tag) return {{"record", QString::fromLatin1(bytes.toBase64())}};
    QString ignored;
    return {{"values", HBReadJson(bytes, &ignored).object()}};
}

bool HBComesTrue(const std::function<bool()>& isSo) {
    constexpr int Turns = 40000; // of a millisecond or more
    for (int turn = 0; turn < Turns; ++turn) {
        if (isSo()) return true;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1); // not the pool's waitForDone(): that loses a task that comes meanwhile
    }
    return false;
}

void HBFuzzWrite(const QString& path, const QByteArray& bytes) {
    if (!HBWriteBytes(path, bytes)) HBFuzzFail(path + " cannot be written");
}

QString HBFuzzFolder() {
    static const QTemporaryDir folder;
    return folder.path();
}

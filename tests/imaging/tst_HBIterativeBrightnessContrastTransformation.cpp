// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBIterativeBrightnessContrastTransformation.h>

#include <QScopeGuard>

#include <algorithm>
#include <hwy/targets.h>
#include <limits>
#include <vector>

namespace {

using Transformation = HBIterativeBrightnessContrastTransformation;

int Map(int brightness, int contrast, int level) {
    const auto byte = std::uint8_t(level);
    HBRGBA32i pixel(byte, byte, byte, 77);
    Transformation transformation(brightness, contrast);
    transformation.SetProcessingBuffer(&pixel);
    transformation(0);
    const bool grey = pixel.red == pixel.green && pixel.green == pixel.blue && pixel.alpha == 77;
    return grey ? pixel.red : -1;
}

/// Every byte value in every channel; neighbours differ, so that a mixed-up channel or pixel shows.
std::vector<HBRGBA32i> EveryByte() {
    std::vector<HBRGBA32i> pixels;
    for (int i = 0; i < 256; ++i)
        pixels.emplace_back(std::uint8_t(i), std::uint8_t(i * 7 + 3), std::uint8_t(255 - i),
                            std::uint8_t(i * 5 + 1));
    return pixels;
}

bool RunEqualsScalar(const HBChannelTables& tables, int first, int count) {
    std::vector<HBRGBA32i> expected = EveryByte();
    std::vector<HBRGBA32i> pixels = expected;
    for (int i = first; i < first + count; ++i) tables(expected[std::size_t(i)]);
    tables(pixels.data() + first, count);
    return pixels == expected;
}

HBChannelTables ThreeDifferentTables() {
    HBChannelTables tables;
    tables.red = HBMakeTable([](int level) { return level * level / 255; });
    tables.green = HBMakeTable([](int level) { return 255 - level; });
    tables.blue = HBMakeTable([](int level) { return (level * 37 + 11) & 255; });
    return tables;
}

} // namespace

class tst_HBIterativeBrightnessContrastTransformation : public QObject {
    Q_OBJECT
private slots:
    void Values_data() {
        QTest::addColumn<int>("brightness");
        QTest::addColumn<int>("contrast");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("expected");
        QTest::newRow("brighter") << 50 << 0 << 100 << 150;
        QTest::newRow("brighter, white") << 50 << 0 << 206 << 255;
        QTest::newRow("darker") << -127 << 0 << 128 << 1;
        QTest::newRow("darker, black") << -127 << 0 << 126 << 0;
        // tan(67.5°) = 1 + √2 and tan(22.5°) = √2 - 1 about 127.5
        QTest::newRow("slope 2.414") << 0 << 64 << 100 << 61;
        QTest::newRow("slope 2.414, above") << 0 << 64 << 155 << 194;
        QTest::newRow("slope 2.414, black") << 0 << 64 << 74 << 0;
        QTest::newRow("slope 0.414") << 0 << -64 << 100 << 116;
        QTest::newRow("slope 0.414, brighter") << 10 << -64 << 100 << 126;
        QTest::newRow("flat, black") << 0 << -127 << 0 << 127;
        QTest::newRow("flat, white") << 0 << -127 << 255 << 128;
        QTest::newRow("upright, below") << 0 << 127 << 126 << 0;
        QTest::newRow("upright, above") << 0 << 127 << 129 << 255;
    }
    void Values() {
        QFETCH(int, brightness);
        QFETCH(int, contrast);
        QFETCH(int, level);
        QFETCH(int, expected);
        QCOMPARE(Map(brightness, contrast, level), expected);
    }

    void NeutralIsIdentity() {
        for (int level = 0; level < 256; ++level) QCOMPARE(Map(0, 0, level), level);
    }

    void EveryArgumentIsMonotone() {
        for (int contrast = -127; contrast <= 127; ++contrast) {
            const auto table = Transformation(contrast / 2, contrast).Operation().red;
            QVERIFY(std::is_sorted(table.begin(), table.end()));
        }
    }

    void ArgumentsAreClamped() {
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        for (int level = 0; level < 256; ++level) {
            QCOMPARE(Map(128, 0, level), Map(127, 0, level));
            QCOMPARE(Map(most, least, level), Map(127, -127, level));
            QCOMPARE(Map(least, most, level), Map(-127, 127, level));
        }
    }

    void RunFormEqualsScalarForm() {
        const auto reset = qScopeGuard([] { hwy::GetChosenTarget().Update(hwy::SupportedTargets()); });
        const HBChannelTables tables[] = {HBChannelTables(), ThreeDifferentTables(),
                                          Transformation(30, -40).Operation()};
        int targets = 0;
        for (qint64 left = hwy::SupportedTargets(); left; left &= left - 1, ++targets) {
            const qint64 target = left & -left;
            hwy::GetChosenTarget().Update(target);
            for (const HBChannelTables& table : tables) {
                QVERIFY2(RunEqualsScalar(table, 0, 256), hwy::TargetName(target));
                for (int count = 0; count <= 70; ++count)
                    QVERIFY2(RunEqualsScalar(table, count % 6, count), hwy::TargetName(target));
            }
        }
        QVERIFY(targets > 0);
    }
};

HB_TEST_MAIN(tst_HBIterativeBrightnessContrastTransformation)
#include "tst_HBIterativeBrightnessContrastTransformation.moc"

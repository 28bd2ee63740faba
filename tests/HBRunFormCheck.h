// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBRGBA32i.h>

#include <QScopeGuard>

#include <hwy/targets.h>
#include <vector>

/// 17 × 17 × 17 colours, black and white among them, with every alpha. Their number is odd.
inline std::vector<HBRGBA32i> HBDenseColors() {
    const auto level = [](int step) { return std::uint8_t(qMin(255, step * 16)); };
    std::vector<HBRGBA32i> pixels;
    for (int i = 0; i < 17 * 17 * 17; ++i)
        pixels.emplace_back(level(i % 17), level(i / 17 % 17), level(i / 289), std::uint8_t(i));
    return pixels;
}

/// Whether a pixel operation gives the same bytes pixel by pixel and in runs, on every instruction set of this
/// machine, for runs of any length and alignment, and touches no pixel outside the run.
template <class Operation>
bool HBRunFormEqualsScalarForm(const Operation& operation) {
    const auto reset = qScopeGuard([] { hwy::GetChosenTarget().Update(hwy::SupportedTargets()); });
    const std::vector<HBRGBA32i> colors = HBDenseColors();
    std::vector<HBRGBA32i> mapped = colors;
    for (HBRGBA32i& pixel : mapped) operation(pixel);

    for (qint64 left = hwy::SupportedTargets(); left; left &= left - 1) {
        hwy::GetChosenTarget().Update(left & -left);
        std::vector<HBRGBA32i> whole = colors;
        operation(whole.data(), int(whole.size()));
        if (whole != mapped) return false;
        for (std::size_t count = 0; count <= 70; ++count) {
            const std::size_t first = 2000 + count % 7;
            std::vector<HBRGBA32i> pixels = colors;
            operation(pixels.data() + first, int(count));
            for (std::size_t i = 0; i < pixels.size(); ++i) {
                const bool inside = i >= first && i < first + count;
                if (pixels[i] != (inside ? mapped : colors)[i]) return false;
            }
        }
    }
    return true;
}

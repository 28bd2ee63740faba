// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBJobControl.h>

#include <atomic>
#include <limits>

/// Cancels once it is asked, or told of progress, more often than allowed; counts both.
struct HBTestControl : HBJobControl {
    bool IsCancelled() const override { return ++asked > allowedQuestions || HBJobControl::IsCancelled(); }
    void SetRange(int, int) override { ++ranges; }
    void SetProgress(int) override {
        if (++told > allowedProgress) Cancel();
    }

    int allowedQuestions = std::numeric_limits<int>::max();
    int allowedProgress = std::numeric_limits<int>::max();
    mutable std::atomic<int> asked{0}; // by all lanes
    int ranges = 0;
    int told = 0;
};

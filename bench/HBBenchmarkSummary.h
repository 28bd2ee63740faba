// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// What a benchmark of a job is held against: at most `mostCopies` times the tile copy, and OpenCV's nearest
/// equivalent at least `leastPeers` times the job.
struct HBBenchmarkAim
{
    std::string job;
    std::string peer; ///< empty if OpenCV has nothing alike
    double mostCopies;
    double leastPeers;
};

/// Prints the aggregates as Google Benchmark's console does and remembers the single times. All benchmarks must use
/// the unit benchmark::kMillisecond and real time.
class HBMedianReporter : public benchmark::ConsoleReporter
{
public:
    HBMedianReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override;

    /// Prints the medians of the compared benchmarks and their ratios.
    /// \return whether all aims are reached; one whose benchmarks did not run is left out
    bool PrintSummary(const std::string& copy, const std::vector<HBBenchmarkAim>& aims) const;

private:
    double Median(const std::string& name) const;

    std::map<std::string, std::vector<double>> m_Milliseconds;
};

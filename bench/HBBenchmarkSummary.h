// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// A panel's benchmarks and what they are held against.
struct HBBenchmarkRow
{
    std::string panel;    ///< class
    std::string job;      ///< the benchmark of its bare job
    std::string peer;     ///< that of OpenCV's nearest equivalent; empty if it has nothing alike
    double mostCopies;    ///< the job takes at most so many times the tile copy
    double mostEndCopies; ///< the same end to end; 0 for a panel without a job
    double leastPeers;    ///< the peer takes at least so many times as long as the panel end to end
};

/// Prints the aggregates as Google Benchmark's console does and remembers the single times. All benchmarks must
/// use the unit benchmark::kMillisecond and real or manual time.
class HBMedianReporter : public benchmark::ConsoleReporter
{
public:
    HBMedianReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override;

    /// Whether a benchmark reported an error.
    bool HasFailed() const { return m_Failed; }
    /// In milliseconds; 0 if the benchmark did not run.
    double Median(const std::string& name) const;

    /// Prints the medians of the rows, their ratios and whether the aims are reached. Benchmarks that did not run
    /// are left out.
    /// \return whether all aims are reached
    bool PrintSummary(const std::vector<HBBenchmarkRow>& rows, const std::string& copy) const;
    /// The same as a table in Markdown, without the aims.
    void PrintFigures(const std::vector<HBBenchmarkRow>& rows, const std::string& copy) const;

private:
    struct Times
    {
        double job;
        double end;
        double peer;
    };
    Times TimesOf(const HBBenchmarkRow& row) const;

    std::map<std::string, std::vector<double>> m_Milliseconds;
    bool m_Failed = false;
};

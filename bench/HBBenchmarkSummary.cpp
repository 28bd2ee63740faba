// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBenchmarkSummary.h"

#include <algorithm>
#include <cstdio>

void HBMedianReporter::ReportRuns(const std::vector<Run>& runs)
{
    std::vector<Run> aggregates;
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Aggregate)
            aggregates.push_back(run);
        else if (!run.error_occurred)
            m_Milliseconds[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
    }
    ConsoleReporter::ReportRuns(aggregates);
}

double HBMedianReporter::Median(const std::string& name) const
{
    const auto found = m_Milliseconds.find(name);
    if (found == m_Milliseconds.end())
        return 0;
    std::vector<double> times = found->second;
    const auto middle = times.begin() + std::ptrdiff_t(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

bool HBMedianReporter::PrintSummary(const std::string& copy, const std::vector<HBBenchmarkAim>& aims) const
{
    const double copyTime = Median(copy);
    std::printf("\nMedians in ms; the tile copy takes %.2f\n", copyTime);
    std::printf("%-28s %8s %8s %10s %12s\n", "job", "job", "OpenCV", "job/copy", "OpenCV/job");
    bool reached = true;
    for (const HBBenchmarkAim& aim : aims) {
        const double job = Median(aim.job);
        const double peer = Median(aim.peer);
        if (job <= 0 || copyTime <= 0)
            continue;
        const bool good = job <= aim.mostCopies * copyTime && (peer <= 0 || peer >= aim.leastPeers * job);
        reached = reached && good;
        std::printf("%-28s %8.2f %8.2f %10.2f %12.2f   aim: <= %.1f, >= %.1f: %s\n", aim.job.c_str(), job, peer,
                    job / copyTime, peer / job, aim.mostCopies, aim.leastPeers, good ? "reached" : "missed");
    }
    return reached;
}

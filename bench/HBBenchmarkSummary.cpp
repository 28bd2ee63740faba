// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBenchmarkSummary.h"

#include "HBPanelBenchmark.h"

#include <HBPanelCatalog.h>
#include <HBParallel.h>

#include <algorithm>
#include <cstdio>

namespace
{

/// "1.4 ×", or nothing where one of the two was not measured.
std::string Ratio(double numerator, double denominator)
{
    if (numerator <= 0 || denominator <= 0)
        return {};
    char text[32];
    std::snprintf(text, sizeof text, "%.1f ×", numerator / denominator);
    return text;
}

std::string Milliseconds(double time)
{
    if (time <= 0)
        return {};
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", time);
    return text;
}

/// " (LookUpTable)" of "OpenCV_LookUpTable".
std::string PeerName(const std::string& peer)
{
    return peer.empty() ? peer : " (" + peer.substr(peer.find('_') + 1) + ")";
}

std::string Title(const std::string& panel)
{
    return HBFindPanel(QString::fromStdString(panel))->Title().toStdString();
}

} // namespace

void HBMedianReporter::ReportRuns(const std::vector<Run>& runs)
{
    std::vector<Run> shown;
    for (const Run& run : runs) {
        m_Failed = m_Failed || run.error_occurred;
        if (run.run_type == Run::RT_Aggregate || run.error_occurred)
            shown.push_back(run);
        else
            m_Milliseconds[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
    }
    ConsoleReporter::ReportRuns(shown);
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

HBMedianReporter::Times HBMedianReporter::TimesOf(const HBBenchmarkRow& row) const
{
    return {Median(row.job), Median(HBPanelBenchmark(row.panel)), Median(row.peer)};
}

bool HBMedianReporter::PrintSummary(const std::vector<HBBenchmarkRow>& rows, const std::string& copy) const
{
    const double copyTime = Median(copy);
    std::printf("\nMedians in ms; the tile copy takes %.2f\n", copyTime);
    std::printf("%-28s %8s %8s %8s %9s %9s %10s\n", "panel", "job", "end", "OpenCV", "job/copy", "end/copy",
                "OpenCV/end");
    bool allReached = true;
    for (const HBBenchmarkRow& row : rows) {
        const Times times = TimesOf(row);
        if (copyTime <= 0 || (times.job <= 0 && times.end <= 0))
            continue;
        const bool reached = times.job <= row.mostCopies * copyTime &&
                             (times.end <= 0 || (times.end <= row.mostEndCopies * copyTime &&
                                                 (times.peer <= 0 || times.peer >= row.leastPeers * times.end)));
        allReached = allReached && reached;
        std::printf("%-28s %8.2f %8.2f %8.2f %9.2f %9.2f %10.2f   aims: <= %.1f, <= %.1f, >= %.1f: %s\n",
                    row.panel.c_str(), times.job, times.end, times.peer, times.job / copyTime,
                    times.end / copyTime, times.end > 0 ? times.peer / times.end : 0, row.mostCopies,
                    row.mostEndCopies, row.leastPeers, reached ? "reached" : "missed");
    }
    return allReached;
}

void HBMedianReporter::PrintFigures(const std::vector<HBBenchmarkRow>& rows, const std::string& copy) const
{
    const double copyTime = Median(copy);
    std::printf("24 megapixels on %d threads; copying the tiles takes %.1f ms.\n\n", HBLaneCount(1 << 20),
                copyTime);
    std::printf("| panel | job, ms | job ÷ copy | end to end, ms | end to end ÷ copy | OpenCV, ms | OpenCV ÷ end "
                "to end |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    for (const HBBenchmarkRow& row : rows) {
        const Times times = TimesOf(row);
        std::printf("| %s | %s | %s | %s | %s | %s | %s |\n", Title(row.panel).c_str(),
                    Milliseconds(times.job).c_str(), Ratio(times.job, copyTime).c_str(),
                    Milliseconds(times.end).c_str(), Ratio(times.end, copyTime).c_str(),
                    (Milliseconds(times.peer) + PeerName(row.peer)).c_str(), Ratio(times.peer, times.end).c_str());
    }
}

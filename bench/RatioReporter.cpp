// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/RatioReporter.h"

#include "bench/Trial.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            m_medians[run.run_name.function_name] = run.GetAdjustedRealTime();
    }
    ConsoleReporter::ReportRuns(runs);
}

bool RatioReporter::printRatio(const char *name, const std::string &ours, const std::string &bare, double limit) const
{
    const auto a = m_medians.find(ours);
    const auto b = m_medians.find(bare);
    if (a == m_medians.end() || b == m_medians.end()) {
        std::printf("%s: not measured\n", name);
        return false;
    }
    const double ratio = a->second / b->second;
    std::printf("%s: %.1f ms / %.1f ms = %.2f (at most %.1f)\n", name, a->second, b->second, ratio, limit);
    return ratio <= limit || Trial::isOn();
}

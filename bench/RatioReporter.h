// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Prints as usual, and remembers the median time of each benchmark for a ratio at the end.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;
    // "name: a / b = ratio (limit)"; false when a benchmark did not run or the ratio is above the limit, which a trial does
    // not judge.
    bool printRatio(const char *name, const std::string &ours, const std::string &bare, double limit) const;

private:
    std::map<std::string, double> m_medians;
};

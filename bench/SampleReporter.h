// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Prints as usual, and keeps every repetition's time in milliseconds under the benchmark's name, for bench/judge.py: what is fast enough stands in
// bench/bounds.tsv and nowhere in the programs. They judge only whether the work was done.
class SampleReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override;
    // Another figure, in the unit that its line of the bounds says.
    void add(const std::string &name, double value);
    // Writes the samples to the file that the environment's TZ_BENCH_SAMPLES names, if it does. False when a benchmark failed or the file cannot be written.
    [[nodiscard]] bool finish() const;

private:
    std::map<std::string, std::vector<double>> m_samples;
    bool m_hasFailed = false;
};

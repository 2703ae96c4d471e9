// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// A trial, which the tests make of every benchmark (the environment sets TZ_BENCH_TRIAL): a small fraction of the work, once
// or twice. What a benchmark counts and compares is judged as ever; how fast it is, is not.
namespace Trial {

bool isOn();

// As many of the benchmark's records; a twentieth of them in a trial.
int size(int full);
// As many repetitions; two in a trial, the least that has a median.
int repetitions(int full);

}

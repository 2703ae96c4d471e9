// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/TestDatabase.h"

#include <QList>
#include <QTemporaryDir>

// A demo office with that many contracts on the benchmark's private server, or on another one; its user is logged in.
class BenchOffice
{
public:
    explicit BenchOffice(int contracts);
    BenchOffice(int contracts, const KConnectionSettings &server);

private:
    void fill(int contracts);

    std::unique_ptr<TestDatabase> m_database;
    QTemporaryDir m_settings;
};

// Resident memory of this process in KiB: now, and the highest since the last resetPeakMemory.
long currentMemory();
long peakMemory();
void resetPeakMemory();
// The same of another process, 0 when it is gone.
long peakMemoryOf(qint64 process);
QString processName(qint64 process);
QList<qint64> childProcesses();
// Returns memory freed by earlier work to the system, where the library can: it would hide what the next one needs.
void releaseFreeMemory();

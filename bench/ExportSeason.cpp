// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// A season of 100,000 rows into the tax file, against a bare program that makes the same rows and passes them to the library
// in one call. Starting Java counts on both sides.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/reports/season/SeasonalExport.h"
#include "auto/reports/season/SeasonalRow.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/AccessFileReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const int rowCount = Trial::size(100'000);
const QString modules = u"" TZ_BUILT_MODULES ""_s;
const QString table = u"Foroush_Detail"_s;
QString folder;
QString guid;

// The same as in BareRows.java.
SeasonalRow rowOf(int i)
{
    auto party = std::make_shared<TaxParty>();
    party->postalCode = QString::number(1'000'000'000 + i);
    party->areaCode = u"021"_s;
    party->telephone = QString::number(22'000'000 + i);
    party->address = u"تهران، خیابان شماره "_s + QString::number(i);
    party->name = u"نام "_s + QString::number(i % 500);
    party->family = u"نام خانوادگی "_s + QString::number(i % 700);
    party->economicCode = u"4111"_s + QString::number(i);
    party->nationalCode = QString::number(1'200'000'000 + i);
    party->kindCode = 5;
    party->provinceCode = 23;
    party->cityCode = 8;
    SeasonalRow row;
    row.returned = i % 7 == 0;
    row.number = i;
    row.description = u"مبایعه نامه"_s;
    row.amount = 1'000'000 + i * 13;
    row.tax = 90'000 + i;
    row.discount = i % 1000;
    row.code = i;
    row.date = ConvertToMiladi(1404, 5, 12);
    row.party = party;
    return row;
}

SeasonalExport seasonalExport()
{
    return SeasonalExport({SeasonalExport::Kind::Sales, 1, u"1404"_s, rowCount,
                           [](int row) { return rowOf(row + 1).texts(); }},
                          modules);
}

QString exportedPath()
{
    return QDir(folder).filePath(SeasonalExport::fileName(SeasonalExport::Kind::Sales, u"1404"_s, 1));
}

QString barePath()
{
    return QDir(folder).filePath(u"bare.mdb"_s);
}

// Runs the bare program; looks at it from time to time when asked.
bool runBare(const std::function<void(qint64)> &look = {})
{
    QFile::remove(barePath());
    if (!QFile::copy(modules + u"/TTMS.mdb"_s, barePath()))
        return false;
    QProcess java;
    java.start(u"java"_s, {u"-cp"_s, u"" TZ_BARE_CLASS_PATH ""_s, u"io.tzauto.taxfile.BareRows"_s, barePath(), guid, QString::number(rowCount)});
    while (!java.waitForFinished(look ? 20 : 600'000) && java.state() != QProcess::NotRunning) {
        if (look)
            look(java.processId());
    }
    return java.exitStatus() == QProcess::NormalExit && java.exitCode() == 0;
}

void exportSeason(benchmark::State &state)
{
    for (auto _ : state) {
        if (seasonalExport().run(folder) != SeasonalExport::Outcome::Done)
            state.SkipWithError("not exported");
    }
}

void bareAddRows(benchmark::State &state)
{
    for (auto _ : state) {
        if (!runBare())
            state.SkipWithError("the bare program failed");
    }
}

// Both write the same, as another program reads it.
bool compareFiles()
{
    if (seasonalExport().run(folder) != SeasonalExport::Outcome::Done)
        return false;
    guid = AccessFileReader(exportedPath()).records(u"Foroush"_s).value(0).value(u"ID"_s).toString();
    return runBare() && AccessFileReader(exportedPath()).count(table) == rowCount
        && AccessFileReader(exportedPath()).records(table) == AccessFileReader(barePath()).records(table);
}

void measureMemory()
{
    long helper = 0, bare = 0;
    releaseFreeMemory();
    const long idle = currentMemory();
    resetPeakMemory();
    static_cast<void>(seasonalExport().run(folder, [&helper](int, int) {
        for (const qint64 child : childProcesses())
            if (processName(child) == u"java"_s)
                helper = std::max(helper, peakMemoryOf(child));
        return true;
    }));
    const long own = peakMemory() - idle;
    static_cast<void>(runBare([&bare](qint64 process) { bare = std::max(bare, peakMemoryOf(process)); }));
    std::printf("peak memory of 100,000 rows: export %.1f MiB over the idle program and %.1f MiB in its helper; bare program %.1f MiB\n",
                static_cast<double>(own) / 1024, static_cast<double>(helper) / 1024, static_cast<double>(bare) / 1024);
}

}

BENCHMARK(bareAddRows)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(7))->Iterations(1)->UseRealTime();
BENCHMARK(exportSeason)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(7))->Iterations(1)->UseRealTime();

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(0);
    const QTemporaryDir files;
    folder = files.path();
    CompanyDetails company;
    company.name1 = u"نمایشگاه"_s;
    company.write();
    if (!compareFiles()) {
        std::printf("the two files differ\n");
        return 1;
    }
    measureMemory();
    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.finish() ? 0 : 1;
}

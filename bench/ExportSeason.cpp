// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// A season of 100,000 rows into the tax file, against a bare program of the library's own that makes the same rows and gives
// them to it in one call. Starting Java counts on both sides.

#include "bench/BenchOffice.h"
#include "bench/RatioReporter.h"
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

namespace {

const int rowCount = Trial::size(100'000);
const QString modules = QStringLiteral(TZ_BUILT_MODULES);
const QString table = QStringLiteral("Foroush_Detail");
QString folder;
QString guid;

// The same as in BareRows.java.
SeasonalRow rowOf(int i)
{
    auto party = std::make_shared<TaxParty>();
    party->postalCode = QString::number(1'000'000'000 + i);
    party->areaCode = QStringLiteral("021");
    party->telephone = QString::number(22'000'000 + i);
    party->address = QStringLiteral("تهران، خیابان شماره ") + QString::number(i);
    party->name = QStringLiteral("نام ") + QString::number(i % 500);
    party->family = QStringLiteral("نام خانوادگی ") + QString::number(i % 700);
    party->economicCode = QStringLiteral("4111") + QString::number(i);
    party->nationalCode = QString::number(1'200'000'000 + i);
    party->kindCode = 5;
    party->provinceCode = 23;
    party->cityCode = 8;
    SeasonalRow row;
    row.returned = i % 7 == 0;
    row.number = i;
    row.description = QStringLiteral("مبایعه نامه");
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
    return SeasonalExport({SeasonalExport::Kind::Sales, 1, QStringLiteral("1404"), rowCount,
                           [](int row) { return rowOf(row + 1).texts(); }},
                          modules);
}

QString exportedPath()
{
    return QDir(folder).filePath(SeasonalExport::fileName(SeasonalExport::Kind::Sales, QStringLiteral("1404"), 1));
}

QString barePath()
{
    return QDir(folder).filePath(QStringLiteral("bare.mdb"));
}

// Runs the bare program; looks at it from time to time when asked.
bool runBare(const std::function<void(qint64)> &look = {})
{
    QFile::remove(barePath());
    if (!QFile::copy(modules + QStringLiteral("/TTMS.mdb"), barePath()))
        return false;
    QProcess java;
    java.start(QStringLiteral("java"), {QStringLiteral("-cp"), QStringLiteral(TZ_BARE_CLASS_PATH), QStringLiteral("io.tzauto.taxfile.BareRows"), barePath(), guid, QString::number(rowCount)});
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
    guid = AccessFileReader(exportedPath()).records(QStringLiteral("Foroush")).value(0).value(QStringLiteral("ID")).toString();
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
            if (processName(child) == QStringLiteral("java"))
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
    company.name1 = QStringLiteral("نمایشگاه");
    company.write();
    if (!compareFiles()) {
        std::printf("the two files differ\n");
        return 1;
    }
    measureMemory();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.printRatio("export of 100,000 rows / bare addRows", "exportSeason", "bareAddRows", 1.5) ? 0 : 1;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The cars that fit one demand, best first and with their names, out of 10,000: against the one SELECT of the cars, by
// itself.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/cars/matching/MatchingCars.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/db/records/CTblTemp.h"
#include "host/demo/DemoRandom.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/accounting/frame/KApplication.h"

#include <mysql.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const int carCount = Trial::size(10'000);
constexpr int brands = 12;
constexpr int colors = 8;

int demandID = 0;
QByteArray carStatement;

// The office's own few cars would only blur the figures.
void addCars()
{
    CTblTemp statement;
    statement.Open(false, false, true);
    statement.ExecuteQuery("DELETE FROM AutomobilInformations");
    CTblAutomobilInformations car;
    RecordBulkInsert cars(car, {u"iCode"_s, u"iPersonID"_s, u"iAutomobilType"_s, u"iBrigade"_s, u"iModel"_s, u"iColor"_s, u"sNumOfPlates"_s, u"dAmount"_s, u"iYear"_s});
    DemoRandom random(carCount);
    for (int code = 1; code <= carCount; ++code) {
        car.m_iCode = code;
        car.m_iPersonID = random.between(1, 50);
        car.m_iAutomobilType = random.between(1, brands);
        car.m_iModel = random.between(1, 60);
        car.m_iBrigade = random.between(1, 120);
        car.m_iColor = random.between(1, colors);
        car.m_iYear = random.between(1385, 1405);
        car.m_dAmount = random.between(300, 3000) * 1e7;
        car.m_sNumOfPlates = u"%1 ب %2 ایران 10"_s.arg(random.between(11, 99)).arg(random.between(111, 999));
        cars.add();
    }
    cars.flush();
}

int addDemand()
{
    CTblAutomobilDemands demand;
    demand.AddNew();
    demand.m_iCode = 1;
    demand.m_iPersonID = 1;
    demand.m_iAutomobilType = 3;
    demand.m_iColor = 2;
    demand.m_iModelFrom = 1395;
    demand.m_iModelUpTo = 1400;
    demand.m_dAmountFrom = 8e9;
    demand.m_dAmountUpTo = 15e9;
    demand.Update(true);
    return static_cast<int>(demand.GetLastInsertedID());
}

// What the cars are read by, as it reaches the server.
QByteArray statementOfTheCars()
{
    QByteArray statement;
    KConnection::setStatementObserver([&statement](const QString &text) {
        if (text.contains(u" FROM AutomobilInformations "_s))
            statement = text.toUtf8();
    });
    [[maybe_unused]] const auto matching = MatchingCars::of(demandID);
    KConnection::setStatementObserver({});
    return statement;
}

void matchDemand(benchmark::State &state)
{
    for (auto _ : state) {
        const auto matching = MatchingCars::of(demandID);
        if (!matching || matching->cars.empty())
            state.SkipWithError("no car fits");
    }
}

void bareSelect(benchmark::State &state)
{
    MYSQL *connection = KConnection::forThread().handle();
    for (auto _ : state) {
        if (mysql_real_query(connection, carStatement.constData(), static_cast<unsigned long>(carStatement.size())) != 0)
            state.SkipWithError(mysql_error(connection));
        MYSQL_RES *result = mysql_store_result(connection);
        const unsigned int columns = mysql_num_fields(result);
        int rows = 0;
        for (; MYSQL_ROW row = mysql_fetch_row(result); ++rows) {
            for (unsigned int column = 0; column < columns; ++column)
                benchmark::DoNotOptimize(row[column]);
        }
        mysql_free_result(result);
        if (rows != carCount)
            state.SkipWithError("wrong number of rows");
    }
}

}

BENCHMARK(bareSelect)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(matchDemand)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(15))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(100);
    addCars();
    demandID = addDemand();
    carStatement = statementOfTheCars();

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto matching = MatchingCars::of(demandID);
    std::printf("cars that fit: %zu of %d\n", matching->cars.size(), carCount);
    return reporter.finish() ? 0 : 1;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The cars that fit one demand, best first and with their names, out of 10,000: against the one SELECT of all the cars, by itself, which is also
// what a demand of any brand asks for.

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

struct Asked
{
    int demand = 0;
    int cars = 0; // that are read
    QByteArray statement;
};

Asked ofOneBrand;
Asked ofAnyBrand;

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

int addDemand(int brand)
{
    CTblAutomobilDemands demand;
    demand.AddNew();
    demand.m_iCode = 1 + brand;
    demand.m_iPersonID = 1;
    demand.m_iAutomobilType = brand;
    demand.m_iColor = 2;
    demand.m_iModelFrom = 1395;
    demand.m_iModelUpTo = 1400;
    demand.m_dAmountFrom = 8e9;
    demand.m_dAmountUpTo = 15e9;
    demand.Update(true);
    return static_cast<int>(demand.GetLastInsertedID());
}

MYSQL_RES *answerTo(const QByteArray &statement)
{
    MYSQL *connection = KConnection::forThread().handle();
    return mysql_real_query(connection, statement.constData(), static_cast<unsigned long>(statement.size())) == 0 ? mysql_store_result(connection) : nullptr;
}

// With what its cars are read by, as it reaches the server.
Asked asked(int brand)
{
    Asked asked;
    asked.demand = addDemand(brand);
    KConnection::setStatementObserver([&asked](const QString &text) {
        if (text.contains(u" FROM AutomobilInformations "_s))
            asked.statement = text.toUtf8();
    });
    [[maybe_unused]] const auto matching = MatchingCars::of(asked.demand);
    KConnection::setStatementObserver({});
    MYSQL_RES *rows = answerTo(asked.statement);
    asked.cars = static_cast<int>(mysql_num_rows(rows));
    mysql_free_result(rows);
    return asked;
}

void matchDemand(benchmark::State &state, const Asked &asked)
{
    for (auto _ : state) {
        const auto matching = MatchingCars::of(asked.demand);
        if (!matching || matching->cars.empty())
            state.SkipWithError("no car fits");
    }
}

void bareSelect(benchmark::State &state, const Asked &asked)
{
    for (auto _ : state) {
        MYSQL_RES *result = answerTo(asked.statement);
        const unsigned int columns = mysql_num_fields(result);
        int rows = 0;
        for (; MYSQL_ROW row = mysql_fetch_row(result); ++rows) {
            for (unsigned int column = 0; column < columns; ++column)
                benchmark::DoNotOptimize(row[column]);
        }
        mysql_free_result(result);
        if (rows != asked.cars)
            state.SkipWithError("wrong number of rows");
    }
}

void bareSelectOfAnyBrand(benchmark::State &state)
{
    bareSelect(state, ofAnyBrand);
}

void matchDemandOfOneBrand(benchmark::State &state)
{
    matchDemand(state, ofOneBrand);
}

void matchDemandOfAnyBrand(benchmark::State &state)
{
    matchDemand(state, ofAnyBrand);
}

}

BENCHMARK(matchDemandOfOneBrand)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(bareSelectOfAnyBrand)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(matchDemandOfAnyBrand)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(15))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(100);
    addCars();
    ofOneBrand = asked(3);
    ofAnyBrand = asked(0);

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Asked &asked : {ofOneBrand, ofAnyBrand})
        std::printf("cars that fit: %zu of %d that were read\n", MatchingCars::of(asked.demand)->cars.size(), asked.cars);
    return reporter.finish() ? 0 : 1;
}

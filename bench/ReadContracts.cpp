// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// 10,000 contracts with all 126 columns: through the record class, and by a bare Connector/C loop that touches every cell, and by Qt's QSqlQuery.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/SqlPeer.h"
#include "bench/Trial.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"

#include <mysql.h>

namespace {

const int contractCount = Trial::size(10'000);

void recordClass(benchmark::State &state)
{
    for (auto _ : state) {
        CTblAutomobilContracts contracts;
        contracts.Open(true, true, true);
        double sum = 0;
        qsizetype letters = 0;
        while (!contracts.IsEOF()) {
            sum += contracts.m_dAmount;
            letters += contracts.m_sName1.size();
            contracts.MoveNext();
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(letters);
        if (contracts.GetRecordsCount() != contractCount)
            state.SkipWithError("wrong number of rows");
    }
}

QByteArray statementOfAllColumns()
{
    CTblAutomobilContracts contracts;
    QByteArray statement = "SELECT ";
    for (const KMySQL::Column &column : contracts.columns())
        statement += column.name.toUtf8() + ',';
    statement.chop(1);
    return statement + " FROM AutomobilContracts";
}

void bareLoop(benchmark::State &state)
{
    const QByteArray statement = statementOfAllColumns();
    MYSQL *connection = KConnection::forThread().handle();
    for (auto _ : state) {
        if (mysql_real_query(connection, statement.constData(), static_cast<unsigned long>(statement.size())) != 0)
            state.SkipWithError(mysql_error(connection));
        MYSQL_RES *result = mysql_store_result(connection);
        const unsigned int fields = mysql_num_fields(result);
        unsigned long long touched = 0;
        while (MYSQL_ROW row = mysql_fetch_row(result)) {
            const unsigned long *lengths = mysql_fetch_lengths(result);
            for (unsigned int i = 0; i < fields; ++i) {
                if (row[i] && lengths[i] > 0)
                    touched += static_cast<unsigned char>(row[i][0]) + lengths[i];
            }
        }
        mysql_free_result(result);
        benchmark::DoNotOptimize(touched);
    }
}

void sqlQuery(benchmark::State &state)
{
    const QString statement = QString::fromUtf8(statementOfAllColumns());
    for (auto _ : state) {
        if (SqlPeer::read(statement) != contractCount)
            state.SkipWithError("wrong number of rows");
    }
}

}

BENCHMARK(bareLoop)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(sqlQuery)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(recordClass)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(contractCount);
    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.finish() ? 0 : 1;
}

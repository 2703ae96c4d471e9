// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// One contract saved with its accounting document, as the editor's OK does: against the bare library sending the same statements
// but those by which several desks work together (the unit's token, the note of who changed it).

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/contracts/document/ContractSaving.h"
#include "suite/accounting/frame/KApplication.h"

#include <mysql.h>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int contractID = 0;

bool saveWith(double amount)
{
    ContractSaving::Decision decision;
    decision.key = contractID;
    decision.write = [amount](CTblAutomobilContracts &contract) {
        contract.m_dCommission = amount;
        contract.m_sExplain = QString::number(amount);
    };
    return ContractSaving::save(decision).docNum != 0;
}

// Two saves that undo each other, so that each of them changes the row; the second is the state at the beginning.
constexpr std::array amounts{5'000'000.0, 6'000'000.0};

bool setBack()
{
    return saveWith(amounts[1]);
}

QList<QByteArray> statementsOf(double amount, bool withoutTrace)
{
    QList<QByteArray> statements;
    KConnection::setStatementObserver([&](const QString &text) {
        if (!withoutTrace || !(text.startsWith(u"INSERT INTO UnitTokens"_s) || text.startsWith(u"INSERT INTO Changes"_s)))
            statements.append(text.toUtf8());
    });
    [[maybe_unused]] const bool saved = saveWith(amount);
    KConnection::setStatementObserver({});
    return statements;
}

void saveContract(benchmark::State &state)
{
    std::size_t turn = 0;
    if (!setBack())
        state.SkipWithError("the contract was not saved");
    for (auto _ : state) {
        if (!saveWith(amounts[turn++ % amounts.size()]))
            state.SkipWithError("the contract was not saved");
    }
}

void bareStatements(benchmark::State &state)
{
    if (!setBack())
        state.SkipWithError("the contract was not saved");
    const std::array<QList<QByteArray>, 2> saves{statementsOf(amounts[0], true), statementsOf(amounts[1], true)};
    MYSQL *connection = KConnection::forThread().handle();
    std::size_t turn = 0;
    for (auto _ : state) {
        for (const QByteArray &statement : saves[turn++ % saves.size()]) {
            if (mysql_real_query(connection, statement.constData(), static_cast<unsigned long>(statement.size())) != 0)
                state.SkipWithError(mysql_error(connection));
            mysql_free_result(mysql_store_result(connection));
        }
    }
}

}

BENCHMARK(bareStatements)->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(saveContract)->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(Trial::size(1'000));
    CTblAutomobilContracts contract;
    contract.m_filter = "iStatus=0 AND iArchiveUserID=0";
    contract.SetLimit(1);
    contract.Open(true, true, true);
    contractID = contract.m_iID;

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const bool ready = setBack();
    const auto all = statementsOf(amounts[0], false).size();
    const auto bare = statementsOf(amounts[1], true).size();
    std::printf("statements of a save: %d, of them for several desks: %d%s\n", int(all), int(all - bare), ready ? "" : " (not saved)");
    return reporter.finish() && ready ? 0 : 1;
}

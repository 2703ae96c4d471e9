// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// What it costs to note the values of a change: a contract and a person saved on a database that keeps them, against one that keeps who
// changed what and no more.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/contracts/document/ContractSaving.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTableSchema.h"

#include <cstdio>

namespace {

int contractID = 0;
int personID = 0;

void keepValues(bool on)
{
    CTblTemp statement;
    statement.ExecuteQuery(on ? KSql("ALTER TABLE Changes ADD COLUMN IF NOT EXISTS sValues MEDIUMTEXT DEFAULT NULL")
                              : KSql("ALTER TABLE Changes DROP COLUMN IF EXISTS sValues"));
    KTableSchema::forgetAll();
}

bool saveContract(int turn)
{
    ContractSaving::Decision decision;
    decision.key = contractID;
    decision.write = [turn](CTblAutomobilContracts &contract) {
        contract.m_dCommission = turn % 2 == 0 ? 5'000'000 : 6'000'000;
        contract.m_sExplain = QString::number(turn);
        contract.m_dAmount += turn % 2 == 0 ? 1'000 : -1'000;
    };
    return ContractSaving::save(decision).docNum != 0;
}

bool savePerson(int turn)
{
    CTblPersons person;
    if (!person.IsRecordExist(QStringLiteral("iID"), personID))
        return false;
    person.Edit();
    person.m_sAddress = QStringLiteral("تهران، خیابان %1").arg(turn);
    person.m_sMobile = turn % 2 == 0 ? QStringLiteral("09121234567") : QStringLiteral("09127654321");
    person.m_dPercentDiscount = turn % 50;
    return person.Update(true);
}

template <bool (*save)(int), bool withValues>
void measure(benchmark::State &state)
{
    keepValues(withValues);
    int turn = 0;
    for (auto _ : state) {
        if (!save(++turn))
            state.SkipWithError("nothing was saved");
    }
}

// What a note with values takes on the disk, with its indexes.
void printSize()
{
    keepValues(true);
    CTblTemp statement;
    statement.ExecuteQuery("DELETE FROM Changes");
    for (int turn = 0; turn < Trial::size(2'000); ++turn) {
        if (!saveContract(turn) || !savePerson(turn))
            return;
    }
    statement.ExecuteQuery("OPTIMIZE TABLE Changes");
    statement.ExecuteQuery("ANALYZE TABLE Changes");
    statement.ExecuteQuery("SELECT COUNT(*),SUM(LENGTH(sValues)) FROM Changes");
    const int rows = statement.GetLongFieldValue(0);
    const double text = statement.GetDoubleFieldValue(1);
    statement.ExecuteQuery("SELECT DATA_LENGTH+INDEX_LENGTH FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME='Changes'");
    std::printf("%d notes of changes: %.0f bytes each on the disk, %.0f of them values\n", rows, statement.GetDoubleFieldValue(0) / rows, text / rows);
}

template <class Record>
int anyOf()
{
    Record record;
    record.m_filter = "iStatus=0";
    record.SetLimit(1);
    record.Open(true, true, true);
    return record.m_iID;
}

}

BENCHMARK(measure<saveContract, false>)->Name("contractWithout")->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(measure<saveContract, true>)->Name("contractWith")->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(measure<savePerson, false>)->Name("personWithout")->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(measure<savePerson, true>)->Name("personWith")->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(Trial::size(1'000));
    contractID = anyOf<CTblAutomobilContracts>();
    personID = anyOf<CTblPersons>();

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    printSize();
    keepValues(true);
    return reporter.finish() ? 0 : 1;
}

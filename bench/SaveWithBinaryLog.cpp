// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// One contract saved with its accounting document on a server that forces each commit to the disk: with the binary log, against the same save on the
// same server without it.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/contracts/document/ContractSaving.h"
#include "host/server/EmbeddedServer.h"
#include "suite/accounting/frame/KApplication.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int contractID = 0;
double amount = 5'000'000;

// Each save changes the row.
bool save()
{
    ContractSaving::Decision decision;
    decision.key = contractID;
    amount = 11'000'000 - amount;
    decision.write = [](CTblAutomobilContracts &contract) {
        contract.m_dCommission = amount;
        contract.m_sExplain = QString::number(amount);
    };
    return ContractSaving::save(decision).docNum != 0;
}

void saves(benchmark::State &state, const QByteArray &logged)
{
    KConnection::forThread().run("SET SESSION sql_log_bin=" + logged);
    for (auto _ : state) {
        if (!save())
            state.SkipWithError("the contract was not saved");
    }
}

void withLog(benchmark::State &state)
{
    saves(state, "1");
}

void withoutLog(benchmark::State &state)
{
    saves(state, "0");
}

}

BENCHMARK(withoutLog)->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();
BENCHMARK(withLog)->Unit(benchmark::kMicrosecond)->Repetitions(Trial::repetitions(15))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const QTemporaryDir folder;
    EmbeddedServer::Options options;
    options.keepBinaryLog = true;
    EmbeddedServer server(DataFolder(folder.path()), options);
    server.start();
    const BenchOffice office(Trial::size(1'000), server.connectionSettings());
    CTblAutomobilContracts contract;
    contract.m_filter = "iStatus=0 AND iArchiveUserID=0";
    contract.SetLimit(1);
    contract.Open(true, true, true);
    contractID = contract.m_iID;

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.finish() ? 0 : 1;
}

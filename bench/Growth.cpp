// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// How the time of what is done all day grows with the office: lists' first 1,000 rows, a person's contracts, a contract's open instalments, the next
// code, the balances of all accounts, each in offices of 10,000, 100,000 and a million contracts by turns. Each office is a process of its own with
// its own server, so that none has read what another would have to read:
//
//     Growth --of CONTRACTS      is one, and does what its standard input says; answers with milliseconds

#include "bench/KeptOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"
#include "bench/WorkProcess.h"

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/overdue/CDlgOverdueInstalments.h"
#include "auto/contracts/overdue/DueDays.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"

#include <QElapsedTimer>

#include <array>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>

using namespace Qt::StringLiterals;

namespace {

struct Size
{
    const char *name;
    int contracts;
};

const std::array<Size, 3> sizes{{{"small", Trial::isOn() ? 100 : 10'000}, {"middle", Trial::isOn() ? 200 : 100'000}, {"large", Trial::isOn() ? 400 : 1'000'000}}};

constexpr int rowLimit = 1000;
constexpr int manyItems = 2000;

qint64 value(const QByteArray &statement)
{
    CTblTemp query;
    query.Open(true, false, true);
    query.ExecuteQuery(statement.constData(), true, true);
    return query.GetTextFieldValue(0).toLongLong();
}

void show(KListPage &page)
{
    page.resize(1366, 700);
    page.show();
    page.setRowLimit(rowLimit);
    QCoreApplication::processEvents();
}

// From the search button to the painted list; whether it has that many rows.
bool fill(KListPage &page, qint64 least)
{
    page.refill();
    page.list()->viewport()->repaint();
    QCoreApplication::processEvents();
    return page.list()->count() >= std::min<qint64>(least, rowLimit);
}

// What an office does when it is asked to.
class Operations
{
public:
    Operations()
    {
        // Opened over few rows, so that each list is first filled when it is asked for.
        show(m_contracts);
        m_contracts.filters().set(u"archive", 0);
        m_contracts.filters().set(u"returned", 0);
        show(m_ofPerson);
        m_ofPerson.filters().set(u"archive", 0);
        m_ofPerson.filters().set(u"returned", 0);
        m_ofPerson.filters().set(u"seller", value("SELECT iPersonFirstID FROM AutomobilContracts WHERE iCode=100050"));
        show(m_cars);
        m_cars.filters().set(u"archive", 0);
        // Of one contract from the first on: the desk shows all that is asked for.
        m_due.filters().set(u"span", DueDays::AllOpen);
        m_due.filters().set(u"contract", value("SELECT ac.iCode FROM AutomobilPayments ap JOIN AutomobilContracts ac ON ac.iID=ap.iAutomobilContractID WHERE "
                                               "ap.iStatus=0 AND ac.iStatus=0 AND ac.iArchiveUserID=0 AND COALESCE(ac.iNum,0)=0 ORDER BY ap.iID LIMIT 1"));
        m_due.resize(1366, 700);
        m_due.show();
        QCoreApplication::processEvents();
        const qint64 contracts = value("SELECT COUNT(*) FROM AutomobilContracts WHERE iArchiveUserID=0");
        const qint64 cars = value("SELECT COUNT(*) FROM AutomobilInformations WHERE iArchiveUserID=0");
        m_operations = {
            {"contracts", [this, contracts] { return fill(m_contracts, std::min(contracts, qint64(rowLimit)) / 2); }},
            {"personContracts", [this] { return fill(m_ofPerson, 1) && m_ofPerson.list()->count() < 50; }},
            {"cars", [this, cars] { return fill(m_cars, std::min(cars, qint64(rowLimit)) / 2); }},
            {"dueInstalments", [this] { return fill(m_due, 1) && m_due.list()->count() < 50; }},
            {"nextCode", [] { return CTblAutomobilContracts::nextCode() > 100'000; }},
            {"balances", [] { return CTblDocs::balances(AccountLevel::Moeen).size() > 1; }},
            {"moreItems", [] { return changeItems("INSERT INTO Items(iType,sName,iStatus) SELECT 808,CONCAT('bench ',seq),0 FROM seq_1_to_" + QByteArray::number(manyItems)); }},
            {"fewerItems", [] { return changeItems("DELETE FROM Items WHERE sName LIKE 'bench %'"); }},
        };
    }

    bool run(const std::string &name) const
    {
        const auto found = m_operations.find(name);
        return found != m_operations.end() && found->second();
    }

private:
    static bool changeItems(const QByteArray &statement)
    {
        KConnection::forThread().run(statement);
        return true;
    }

    CDlgAutomobilContracts m_contracts;
    CDlgAutomobilContracts m_ofPerson;
    CDlgAutomobilInformations m_cars;
    CDlgOverdueInstalments m_due;
    std::map<std::string, std::function<bool()>> m_operations;
};

// An office of the parent's; ends with its standard input.
int serve(int contracts)
{
    const KeptOffice office(contracts);
    WriteSetting(u"AutomobilContracts"_s, u"iMaxRows"_s, 1);
    WriteSetting(u"AutomobilInformations"_s, u"iMaxRows"_s, 1);
    const Operations operations;
    std::cout << "ready" << std::endl;
    std::string name;
    while (std::getline(std::cin, name)) {
        QElapsedTimer clock;
        clock.start();
        const bool isDone = operations.run(name);
        const double taken = double(clock.nsecsElapsed()) / 1e6;
        if (isDone)
            std::cout << taken << std::endl;
        else
            std::cout << "not done" << std::endl;
    }
    return 0;
}

using Offices = std::array<std::unique_ptr<WorkProcess>, sizes.size()>;

// Each office by turns; the first round only warms up what a program has read once it was at work.
bool measure(const Offices &offices, const QByteArray &operation, const std::string &name, SampleReporter &reporter)
{
    const int rounds = Trial::repetitions(9);
    for (int round = 0; round <= rounds; ++round) {
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            const std::optional<QByteArray> answer = offices[i]->ask(operation);
            bool isNumber = false;
            const double taken = answer.value_or(QByteArray()).toDouble(&isNumber);
            if (!isNumber) {
                std::printf("%s of %d contracts: %s\n", name.c_str(), sizes[i].contracts, answer.value_or("gone").constData());
                return false;
            }
            if (round > 0)
                reporter.add(name + '_' + sizes[i].name, taken);
            if (round == rounds)
                std::printf("%-20s %9d contracts: %8.1f ms (the last of %d)\n", name.c_str(), sizes[i].contracts, taken, rounds);
        }
    }
    std::fflush(stdout);
    return true;
}

bool ask(const Offices &offices, const QByteArray &operation)
{
    bool isDone = true;
    for (const auto &office : offices) {
        bool isNumber = false;
        static_cast<void>(office->ask(operation).value_or(QByteArray()).toDouble(&isNumber));
        isDone = isDone && isNumber;
    }
    return isDone;
}

}

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (const qsizetype at = arguments.indexOf(u"--of"_s); at > 0)
        return serve(arguments.value(at + 1).toInt());

    Offices offices;
    for (std::size_t i = 0; i < sizes.size(); ++i)
        offices[i] = std::make_unique<WorkProcess>(QCoreApplication::applicationFilePath(), QStringList{u"--of"_s, QString::number(sizes[i].contracts)});
    SampleReporter reporter;
    // Of a run that was broken off.
    bool isDone = ask(offices, "fewerItems");
    for (const char *operation : {"contracts", "personContracts", "cars", "dueInstalments", "nextCode", "balances"})
        isDone = measure(offices, operation, operation, reporter) && isDone;
    isDone = isDone && ask(offices, "moreItems") && measure(offices, "cars", "carsOfManyItems", reporter);
    isDone = ask(offices, "fewerItems") && isDone;
    return reporter.finish() && isDone ? 0 : 1;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The seasonal report over 100,000 contracts and 200,000 lines of invoices: gathering its rows, against streaming the needed
// columns by a bare Connector/C loop and summing them up; and how long the window's thread stands still while its list fills.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/reports/season/CDlgAutomobilReportSeasons.h"
#include "auto/reports/season/SeasonBounds.h"
#include "auto/reports/season/SeasonalGathering.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QButtonGroup>
#include <QAbstractButton>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSpinBox>
#include <QTimer>

#include <mysql.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const int contractCount = Trial::size(100'000);
const int invoiceCount = Trial::size(100'000);
constexpr int linesOfAnInvoice = 2;
const int personCount = Trial::size(5'000);
constexpr int year = 1404;
// Above half of the commissions and below all of the lines.
constexpr double minimumAmount = 500'000;

void fillSeason()
{
    KConnection &connection = KConnection::forThread();
    const auto run = [&connection](const QString &statement) { connection.run(statement.toUtf8()); };
    const QString first = Season::bounds(0, year).first.toString(Qt::ISODate);
    for (const char *table : {"AutomobilContracts", "Factors", "FactorStuffs", "Services", "Persons"})
        run(u"DELETE FROM "_s + QLatin1String(table));
    run(u"INSERT INTO Persons (iID,sName,sFamily,sName2,sAddress,sTel,sNationalCode,sPostalCode,iTaxKind) SELECT seq,"
        "CONCAT('نام',seq),'خانوادگی','نام کامل','تهران خیابان آزادی پلاک ده','02122334455','0012345679','1234567890',5 "
        "FROM seq_1_to_%1"_s
            .arg(personCount));
    run(u"INSERT INTO Services (iID,iCode,sName) SELECT seq,seq,CONCAT('خدمت ',seq) FROM seq_1_to_20"_s);
    run(u"INSERT INTO AutomobilContracts (iCode,iPersonFirstID,iPersonSecondID,dateContract,iContractType,dCommission,"
        "dTax,dTax2,dImposition,dImposition2,dDiscountFirst,dDiscountSecond,bReturn,iDocNum,iFiscalYear) SELECT seq,"
        "1+MOD(seq,%1),1+MOD(seq*7,%1),'%2'+INTERVAL MOD(seq,90) DAY,MOD(seq,4),MOD(seq*7919,1000000),MOD(seq,100),"
        "MOD(seq,50),MOD(seq,30),MOD(seq,20),MOD(seq,10),MOD(seq,5),MOD(seq,9)=0,0,1404 FROM seq_1_to_%3"_s
            .arg(QString::number(personCount), first, QString::number(contractCount)));
    run(u"INSERT INTO Factors (iID,iType,iPersonID,date,dAmount,dDiscount,dTax,dImposition) SELECT seq,7,1+MOD(seq,%1),"
        "'%2'+INTERVAL MOD(seq,90) DAY,2000000,MOD(seq,1000),180000,20000 FROM seq_1_to_%3"_s
            .arg(QString::number(personCount), first, QString::number(invoiceCount)));
    run(u"INSERT INTO FactorStuffs (iFactorNum,iType,iServiceID,dCount,dPrice,dAmount) SELECT 1+(seq-1) DIV 2,7,"
        "1+MOD(seq,20),2,500000,1000000 FROM seq_1_to_%1"_s
            .arg(invoiceCount * linesOfAnInvoice));
    for (const char *table : {"Factors", "FactorStuffs"})
        run(u"UPDATE %1 SET iDepartmentID=%2"_s.arg(QLatin1String(table)).arg(GetDBSetting()->GetDepartmentID()));
}

SeasonalGathering::Query query()
{
    SeasonalGathering::Query query;
    query.shamsiYear = year;
    query.minimumAmount = minimumAmount;
    query.departmentID = GetDBSetting()->GetDepartmentID();
    return query;
}

double lastTotal = 0; // of either side, which must agree
double lastBareTotal = 0;
int lastRows = 0;

void gathering(benchmark::State &state)
{
    for (auto _ : state) {
        const SeasonalGathering::Outcome outcome = SeasonalGathering::gather(query(), [](const QVector<SeasonalRow> &rows) {
            benchmark::DoNotOptimize(rows.constData());
            return true;
        });
        lastTotal = outcome.totals.total;
        lastRows = outcome.rows;
    }
}

template <class Row>
void stream(const QString &text, const Row &row)
{
    MYSQL *connection = KConnection::forThread().handle();
    const QByteArray statement = text.toUtf8();
    if (mysql_real_query(connection, statement.constData(), static_cast<unsigned long>(statement.size())) != 0)
        qFatal("%s", mysql_error(connection));
    MYSQL_RES *result = mysql_use_result(connection);
    while (MYSQL_ROW cells = mysql_fetch_row(result))
        row(cells);
    mysql_free_result(result);
}

double number(const char *cell)
{
    return cell ? std::strtod(cell, nullptr) : 0;
}

void streamAndSum(benchmark::State &state)
{
    const QString contractsIn = Season::condition("dateContract", Season::bounds(0, year)).text() + QLatin1String(" AND iStatus=0");
    const QString invoicesIn = Season::condition("f.date", Season::bounds(0, year)).text() + QLatin1String(" AND f.iStatus=0 AND f.iType=7");
    for (auto _ : state) {
        double total = 0;
        size_t touched = 0;
        stream(u"SELECT sName,sFamily,sNationalCode,sEconomicCode,sPostalCode,sAreaCode,sTel,sAddress,iKind,bNatural,"
               "iTaxKind,iTaxZone,iProvinceCode,iCityCode FROM Persons"_s,
               [&touched](MYSQL_ROW cells) { touched += size_t(cells[7][0]); });
        stream(u"SELECT iCode,iPersonFirstID,iPersonSecondID,dateContract,iContractType,dCommission,dDiscountFirst,"
               "dDiscountSecond,dTax,dImposition,iDocNum,iPersonContract1,iPersonContract2,bReturn,dTax2,dImposition2,"
               "iFiscalYear FROM AutomobilContracts WHERE "_s
                   + contractsIn + QLatin1String(" ORDER BY dateContract"),
               [&total](MYSQL_ROW cells) {
                   total += 2 * number(cells[5]) + number(cells[8]) + number(cells[9]) + number(cells[14]) + number(cells[15])
                       - number(cells[6]) - number(cells[7]);
               });
        stream(u"SELECT f.iID,f.iPersonID,f.date,f.dAmount,f.dDiscount,f.dTax,f.dImposition,f.iDocNum,s.iKind,s.iServiceID,"
               "s.sDesc,s.dCount,s.dPrice FROM Factors f JOIN FactorStuffs s ON s.iFactorNum=f.iID WHERE "_s
                   + invoicesIn + QLatin1String(" ORDER BY f.date"),
               [&total](MYSQL_ROW cells) {
                   const double amount = number(cells[11]) * number(cells[12]);
                   const double share = amount / number(cells[3]);
                   total += amount + share * (number(cells[5]) + number(cells[6]) - number(cells[4]));
               });
        benchmark::DoNotOptimize(touched);
        lastBareTotal = total;
    }
}

// The longest time between two turns of the event loop while the window gathers and its list fills, in milliseconds.
double longestStall(CDlgAutomobilReportSeasons &window)
{
    QElapsedTimer clock;
    qint64 longest = 0;
    QTimer beat;
    beat.setTimerType(Qt::PreciseTimer);
    QObject::connect(&beat, &QTimer::timeout, &beat, [&] { longest = std::max(longest, clock.nsecsElapsed()); clock.restart(); });
    QEventLoop loop;
    QObject::connect(&window, &CDlgAutomobilReportSeasons::idle, &loop, &QEventLoop::quit);
    window.refresh();
    clock.start();
    beat.start(0);
    loop.exec();
    // What the end of it left to be laid out and painted.
    for (int turns = 0; turns < 20; ++turns) {
        QCoreApplication::processEvents();
        longest = std::max(longest, clock.nsecsElapsed());
        clock.restart();
    }
    return static_cast<double>(longest) / 1e6;
}

}

BENCHMARK(streamAndSum)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(5))->UseRealTime();
BENCHMARK(gathering)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(5))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(1);
    fillSeason();

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (std::fabs(lastTotal - lastBareTotal) > 1) {
        std::printf("the sums differ: %.2f and %.2f\n", lastTotal, lastBareTotal);
        return 1;
    }

    CDlgAutomobilReportSeasons window;
    QEventLoop opened;
    QObject::connect(&window, &CDlgAutomobilReportSeasons::idle, &opened, &QEventLoop::quit);
    window.show();
    opened.exec();
    window.year()->setNumber(year);
    window.seasons()->button(0)->setChecked(true);
    window.minimumAmount()->setNumber(minimumAmount);
    for (int round = 0; round < Trial::repetitions(5); ++round) {
        const double stall = longestStall(window);
        reporter.add("longestStall", stall);
        std::printf("rows in the list: %d; longest stall of the window's thread: %.1f ms\n", window.list()->listModel()->allRows(), stall);
    }
    return reporter.finish() && window.list()->listModel()->allRows() == lastRows ? 0 : 1;
}

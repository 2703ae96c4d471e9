// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The search over everything, from a key to the painted hits, in an office of a million contracts, 300,000 cars and half a million persons: each
// way of typing, the worst ones too, against one bare lookup of a key through the client library in the same run.
//
//     Search [--contracts=N] [options of the benchmark]      cars and persons follow from N

#include "bench/BenchOffice.h"
#include "bench/RatioReporter.h"
#include "bench/Trial.h"

#include "auto/subjects/AutoSearch.h"
#include "auto/subjects/AutoWindows.h"
#include "host/books/BookWindows.h"
#include "host/finding/SearchBox.h"
#include "host/finding/SearchPopup.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasuryWindows.h"

#include <QAbstractItemModel>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListView>

#include <mysql.h>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int contractsOfTheDemo = 60;
constexpr int mostMilliseconds = 50;

int contractCount = Trial::size(1'000'000) / (Trial::isOn() ? 25 : 1);

SearchBox *box = nullptr;
QWidget *window = nullptr;

struct Typed
{
    const char *name;
    QString text;
};

const std::vector<Typed> &waysOfTyping()
{
    static const std::vector<Typed> typed{
        {"one letter", u"ع"_s},
        {"common first name", u"علی"_s},
        {"network of a mobile", u"0912"_s},
        {"one digit", u"1"_s},
        {"name and family name", u"علی احمدی"_s},
        {"family name and name", u"احمدی علی"_s},
        {"words of different fields", u"احمدی سمند"_s},
        {"three words", u"علی احمدی سمند"_s},
        {"whole mobile", u"+98 912 000 1234"_s},
        {"last digits", u"1234"_s},
        {"plate in another spelling", u"۱۲ب۳۴۵"_s},
        {"end of a VIN", u"000777"_s},
        {"word of an explanation", u"تحویل"_s},
        {"nothing", u"زززز"_s},
    };
    return typed;
}

void run(const QByteArray &statement)
{
    KConnection::forThread().run(statement);
}

// Names, numbers and texts of a real office's variety, by the key of the row.
void fill()
{
    const QByteArray first = "ELT(1+MOD(seq,20),'علی','محمد','حسین','رضا','مریم','زهرا','فاطمه','امیر','سارا','مهدی','حسن','نرگس','احمد','سعید','لیلا','علیرضا','محمدرضا','کامران','بهزاد','شهرام')";
    const QByteArray family = "CONCAT(ELT(1+MOD(seq DIV 20,25),'احمدی','محمدی','کریمی','رضایی','حسینی','موسوی','کشاورز','رستمی','صادقی','نجفی','فلاح','جعفری','قاسمی','هاشمی','اکبری','یوسفی','باقری','سلیمانی','مرادی','شریفی','عباسی','نوری','امینی','طاهری','دهقان'),IF(MOD(seq,3)=0,'',CONCAT('‌',ELT(1+MOD(seq DIV 500,7),'نژاد','پور','فر','زاده','تبار','راد','منش'))))";
    const QByteArray plate = "CONCAT(10+MOD(seq,90),' ',ELT(1+MOD(seq,12),'ب','ج','د','س','ص','ط','ق','ل','م','ن','و','ه'),' ',LPAD(MOD(seq*7,1000),3,'0'),' ایران ',10+MOD(seq,80))";
    const QByteArray vin = "CONCAT('NAA',LPAD(HEX(seq*2654435761),8,'0'),LPAD(seq,6,'0'))";
    const QByteArray persons = QByteArray::number(std::max(20, contractCount / 2));
    const QByteArray cars = QByteArray::number(std::max(12, contractCount * 3 / 10));
    const QByteArray contracts = QByteArray::number(contractCount);
    run("INSERT INTO Persons(iCode,sName,sFamily,sName2,sMobile,sNationalCode) SELECT 100000+seq," + first + "," + family + ",CONCAT(" + first + ",' '," + family
        + "),CONCAT('0912',LPAD(seq,7,'0')),LPAD(seq*7919,10,'0') FROM seq_1_to_" + persons);
    run("INSERT INTO AutomobilInformations(iCode,iPersonID,sNumOfPlates,sVIN,sChassisNum,sDesc,iStatus,iArchiveUserID,bSold) SELECT 100000+seq,1+MOD(seq*31," + persons + ")," + plate + "," + vin
        + ",CONCAT('CH',LPAD(seq,7,'0')),'تحویل پس از بازدید کارشناس، بدون رنگ',0,0,0 FROM seq_1_to_" + cars);
    run("INSERT INTO AutomobilContracts(iCode,iNum,iPersonFirstID,iPersonSecondID,sName1,sAutomobilName,sNumOfPlates,sVIN,sDesc,dAmount,iContractType,iStatus,iArchiveUserID) SELECT 100000+seq,100000+seq,1+MOD(seq*17,"
        + persons + "),1+MOD(seq*29," + persons + "),'',ELT(1+MOD(seq,6),'پژو پارس','سمند','پراید 131','دنا پلاس','تیبا','کوییک')," + plate + "," + vin
        + ",'تحویل با سند قطعی در محضر',1000000000+seq,0,0,0 FROM seq_1_to_" + contracts);
}

// Empties the box, types the text with its last letter as the key, and waits until the hits are painted.
qint64 fromKeyToPaint(const QString &text)
{
    const QAbstractItemModel *hits = box->popup()->list()->model();
    box->edit()->setText(text.chopped(1));
    box->begin();
    box->edit()->end(false);
    bool answered = false;
    QElapsedTimer clock;
    const auto painted = QObject::connect(box, &SearchBox::answered, box, [&] {
        box->popup()->repaint();
        answered = true;
    });
    clock.start();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text.right(1));
    QCoreApplication::sendEvent(box->edit(), &press);
    while (!answered)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const qint64 taken = clock.nsecsElapsed();
    QObject::disconnect(painted);
    if (hits->rowCount() == 0 && !box->popup()->isNothingFound())
        return -1;
    return taken;
}

void search(benchmark::State &state)
{
    const QString text = waysOfTyping().at(static_cast<std::size_t>(state.range(0))).text;
    for (auto _ : state) {
        const qint64 taken = fromKeyToPaint(text);
        if (taken < 0)
            state.SkipWithError("no answer");
        state.SetIterationTime(double(taken) / 1e9);
    }
}

void bareLookup(benchmark::State &state)
{
    static const QByteArray statement = "SELECT iRecordID FROM SearchKeys WHERE iKind=1 AND sKey='9120001234' LIMIT 3";
    MYSQL *connection = KConnection::forThread().handle();
    for (auto _ : state) {
        if (mysql_real_query(connection, statement.constData(), static_cast<unsigned long>(statement.size())) != 0)
            state.SkipWithError(mysql_error(connection));
        MYSQL_RES *result = mysql_store_result(connection);
        benchmark::DoNotOptimize(mysql_fetch_row(result));
        mysql_free_result(result);
    }
}

qint64 count(const char *table)
{
    CTblTemp query;
    query.Open(false, false, true);
    query.ExecuteQuery("SELECT COUNT(*) FROM " + KSql::name(QLatin1String(table)));
    return query.GetLongFieldValue(0);
}

// Every way of typing, some times each; prints the median and the longest.
bool reportAll()
{
    bool fast = true;
    constexpr int rounds = 7;
    for (const Typed &typed : waysOfTyping()) {
        std::vector<qint64> taken;
        for (int round = 0; round < rounds; ++round)
            taken.push_back(fromKeyToPaint(typed.text));
        std::ranges::sort(taken);
        const double median = double(taken[rounds / 2]) / 1e6;
        std::printf("%-28s median %7.1f ms, longest %7.1f ms\n", typed.name, median, double(taken.back()) / 1e6);
        fast = fast && taken.front() >= 0 && (Trial::isOn() || median < mostMilliseconds);
    }
    return fast;
}

void enterKinds()
{
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    AutoSearch::enter();
    CrmWindows::enter();
    TreasuryWindows::enter();
    BookWindows::enter();
    AutoWindows::enter();
}

}

BENCHMARK(bareLookup)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(5))->UseRealTime();
BENCHMARK(search)->Arg(8)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(5))->UseManualTime();

int main(int argc, char **argv)
{
    constexpr char sizeOption[] = "--contracts=";
    for (int argument = 1; argument < argc; ++argument) {
        if (const QByteArray text(argv[argument]); text.startsWith(sizeOption))
            contractCount = std::max(100, text.mid(sizeof(sizeOption) - 1).toInt());
    }
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(contractsOfTheDemo);
    enterKinds();
    fill();
    QElapsedTimer building;
    building.start();
    SearchIndex::build(true);
    std::printf("%lld contracts, %lld cars, %lld persons; %lld keys made in %.1f s\n", static_cast<long long>(count("AutomobilContracts")), static_cast<long long>(count("AutomobilInformations")),
                static_cast<long long>(count("Persons")), static_cast<long long>(count("SearchKeys")), double(building.elapsed()) / 1000);

    QWidget mainWindow;
    auto *bar = new QWidget(&mainWindow);
    bar->setGeometry(0, 0, 1366, 48);
    box = new SearchBox(bar, &mainWindow);
    auto *line = new QHBoxLayout(bar);
    line->addWidget(box);
    window = &mainWindow;
    mainWindow.resize(1366, 768);
    mainWindow.show();
    QCoreApplication::processEvents();

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const bool fast = reportAll();
    const bool near = reporter.printRatio("search for a whole mobile, from key to paint / one bare lookup", "search", "bareLookup", 400);
    return fast && near ? 0 : 1;
}

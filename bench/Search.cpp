// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The search over everything, from a key to the painted hits, in an office of a million contracts, 300,000 cars and half a million persons: each
// way of typing, the worst ones too, against one bare lookup of a key through the client library in the same run.
//
//     Search [--contracts=N] [--office=FOLDER] [options of the benchmark]      cars and persons follow from N
//
// With a folder the office stands there on a server as the program starts it, and is filled once: the next run finds it again.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/subjects/AutoSearch.h"
#include "auto/subjects/AutoWindows.h"
#include "host/books/BookWindows.h"
#include "host/finding/SearchBox.h"
#include "host/finding/SearchPopup.h"
#include "host/server/EmbeddedServer.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/db/connection/KLongWork.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasuryWindows.h"

#include <QAbstractItemModel>
#include <QElapsedTimer>
#include <QFile>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListView>

#include <mysql.h>

#include <algorithm>
#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int contractsOfTheDemo = 60;
constexpr int codeOfTheDemo = 100'000; // codes of what is filled in begin behind it

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
        {"family name of many", u"احمدی"_s},
        {"mobile up to its middle", u"0912 000"_s},
        {"whole plate", u"22 ب 084 ایران 22"_s},
        {"plate without its region", u"۲۲ب۰۸۴"_s},
        {"two words of many", u"احمدی تحویل"_s},
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

// What the rules make of each text of a column, so that the server can hang it on all rows that say it.
using Rule = QStringList (*)(const QString &text);

void enterRule(const QByteArray &table, const QByteArray &column, Rule rule)
{
    CTblTemp texts;
    texts.Open(false, false, true);
    texts.ExecuteQuery(KSql::formatted("SELECT DISTINCT %1 FROM %2", KSql::name(QLatin1String(column)), KSql::name(QLatin1String(table))));
    QList<KSql> rows;
    for (; texts.HasResultRow(); texts.MoveNextResult()) {
        const QString text = texts.GetTextFieldValue(0);
        for (const QString &key : rule(text))
            rows.append(KSql::formatted("(%1,%2)", KSql::quoted(text), KSql::quoted(key)));
    }
    for (qsizetype from = 0; from < rows.size(); from += 1000) {
        KConnection::forThread().run("INSERT INTO BenchKeys(sText,sKey) VALUES" + KSql::joined(rows.mid(from, 1000), ","));
    }
}

// One kind's keys in the order of their table. select: of key and record, from the rows of the table t behind those of the demo.
void fillKind(int kind, const QByteArray &table, const QList<QByteArray> &keys, const QList<QByteArray> &texts, const QList<QByteArray> &persons)
{
    QByteArrayList parts;
    const QByteArray from = " FROM " + table + " t";
    const QByteArray where = " WHERE t.iCode>" + QByteArray::number(codeOfTheDemo);
    const QByteArray ofText = "JOIN BenchKeys b ON b.sText=CONVERT(%1 USING utf8) COLLATE utf8_bin";
    for (const QByteArray &key : keys)
        parts.append("SELECT " + key + " AS sKey,t.iID" + from + where);
    for (const QByteArray &text : texts)
        parts.append("SELECT b.sKey,t.iID" + from + ' ' + QByteArray(ofText).replace("%1", "t." + text) + where);
    for (const QByteArray &person : persons) {
        parts.append("SELECT CONCAT('@',t." + person + "),t.iID" + from + where);
        parts.append("SELECT b.sKey,t.iID" + from + " JOIN Persons p ON p.iID=t." + person + ' ' + QByteArray(ofText).replace("%1", "p.sName2") + where);
    }
    run("INSERT IGNORE INTO SearchKeys(iKind,sKey,iRecordID) SELECT " + QByteArray::number(kind) + ",sKey,iID FROM (" + parts.join(" UNION ALL ") + ") k ORDER BY sKey,iID");
}

// The keys that SearchIndex would make of these rows, set by set: one by one they take a quarter of an hour. That they are the same ones is what the small
// run looks at.
void fillKeys()
{
    const QByteArray plate = "REPLACE(REPLACE(t.sNumOfPlates,' ایران ',''),' ','')";
    const QList<QByteArray> ofCar{"CAST(t.iCode AS CHAR)", plate, "SUBSTR(" + plate + ",3)", "SUBSTR(" + plate + ",4)", "LOWER(t.sVIN)", "CONCAT('<',REVERSE(LOWER(t.sVIN)))"};
    run("CREATE TABLE BenchKeys (sText VARCHAR(200) COLLATE utf8_bin NOT NULL, sKey VARCHAR(64) COLLATE utf8_bin NOT NULL, KEY (sText)) CHARSET=utf8");
    enterRule("Persons", "sName2", &SearchText::ofName);
    enterRule("AutomobilContracts", "sAutomobilName", &SearchText::ofName);
    for (const char *table : {"AutomobilContracts", "AutomobilInformations"})
        enterRule(table, "sDesc", [](const QString &text) { return SearchText::ofExplanation(text); });
    // Made at once at the end, in order.
    run("ALTER TABLE SearchKeys DROP KEY record");
    fillKind(SearchKinds::Persons, "Persons", {"CAST(t.iCode AS CHAR)", "SUBSTR(t.sMobile,2)", "CONCAT('<',REVERSE(SUBSTR(t.sMobile,2)))", "t.sNationalCode"}, {"sName2"}, {});
    fillKind(SearchKinds::Cars, "AutomobilInformations", ofCar + QList<QByteArray>{"LOWER(t.sChassisNum)", "CONCAT('<',REVERSE(LOWER(t.sChassisNum)))"}, {"sDesc"}, {"iPersonID"});
    fillKind(SearchKinds::Contracts, "AutomobilContracts", ofCar, {"sAutomobilName", "sDesc"}, {"iPersonFirstID", "iPersonSecondID"});
    run("ALTER TABLE SearchKeys ADD KEY record (iKind,iRecordID)");
    run("DROP TABLE BenchKeys");
    run("ANALYZE TABLE SearchKeys");
}

// Whether the rules make the keys that were filled in; tells some of the others.
bool isAsTheRulesMakeIt()
{
    run("CREATE TABLE BenchKeys AS SELECT * FROM SearchKeys");
    SearchIndex::build(true);
    CTblTemp others;
    others.Open(false, false, true);
    others.ExecuteQuery("(SELECT 'not filled',iKind,iRecordID,sKey FROM (SELECT * FROM SearchKeys EXCEPT SELECT * FROM BenchKeys) m LIMIT 5) UNION ALL "
                        "(SELECT 'not made',iKind,iRecordID,sKey FROM (SELECT * FROM BenchKeys EXCEPT SELECT * FROM SearchKeys) f LIMIT 5)");
    const bool isSame = !others.HasResultRow();
    for (; others.HasResultRow(); others.MoveNextResult())
        std::printf("%s: kind %d, record %d, %s\n", qPrintable(others.GetTextFieldValue(0)), others.GetLongFieldValue(1), others.GetLongFieldValue(2), qPrintable(others.GetTextFieldValue(3)));
    run("DROP TABLE BenchKeys");
    return isSame;
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

// Every way of typing, some times each; prints the median and the longest, and keeps those of the slowest way.
bool reportAll(SampleReporter &reporter)
{
    bool allAnswered = true;
    constexpr int rounds = 7;
    std::vector<qint64> slowest(rounds, 0);
    for (const Typed &typed : waysOfTyping()) {
        std::vector<qint64> taken;
        for (int round = 0; round < rounds; ++round)
            taken.push_back(fromKeyToPaint(typed.text));
        std::ranges::sort(taken);
        const double median = double(taken[rounds / 2]) / 1e6;
        std::printf("%-28s median %7.1f ms, longest %7.1f ms\n", typed.name, median, double(taken.back()) / 1e6);
        allAnswered = allAnswered && taken.front() >= 0;
        if (taken[rounds / 2] > slowest[rounds / 2])
            slowest = taken;
    }
    for (const qint64 one : slowest)
        reporter.add("slowestSearch", double(one) / 1e6);
    return allAnswered;
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
    constexpr char officeOption[] = "--office=";
    QString folder;
    for (int argument = 1; argument < argc; ++argument) {
        const QByteArray text(argv[argument]);
        if (text.startsWith(sizeOption))
            contractCount = std::max(100, text.mid(sizeof(sizeOption) - 1).toInt());
        if (text.startsWith(officeOption))
            folder = QFile::decodeName(text.mid(sizeof(officeOption) - 1));
    }
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    std::optional<EmbeddedServer> server;
    if (!folder.isEmpty()) {
        server.emplace(DataFolder(folder));
        server->start();
    }
    const BenchOffice office = server ? BenchOffice(contractsOfTheDemo, server->connectionSettings()) : BenchOffice(contractsOfTheDemo);
    enterKinds();
    QElapsedTimer filling;
    filling.start();
    if (count("AutomobilContracts") < contractCount) {
        SearchIndex::build(true);
        // Statements over all rows take longer than an office's may.
        const KLongWork work;
        fill();
        fillKeys();
    }
    std::printf("%lld contracts, %lld cars, %lld persons; %lld keys, filled in %.1f s\n", static_cast<long long>(count("AutomobilContracts")), static_cast<long long>(count("AutomobilInformations")),
                static_cast<long long>(count("Persons")), static_cast<long long>(count("SearchKeys")), double(filling.elapsed()) / 1000);
    std::fflush(stdout);
    if (Trial::isOn() && !isAsTheRulesMakeIt())
        return 1;

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

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reportAll(reporter) && reporter.finish() ? 0 : 1;
}

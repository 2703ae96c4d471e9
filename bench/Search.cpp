// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The search over everything, from a key to the painted hits, in an office of a million contracts, 300,000 cars and half a million persons: each
// way of typing, the worst ones too, against one bare lookup of a key through the client library in the same run.

#include "bench/BenchFilling.h"
#include "bench/KeptOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/subjects/AutoWindows.h"
#include "host/books/BookWindows.h"
#include "host/finding/SearchBox.h"
#include "host/finding/SearchPopup.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/db/records/CTblTemp.h"
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


const int contractCount = Trial::size(1'000'000) / (Trial::isOn() ? 25 : 1);

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

// Whether the rules make the keys that were filled in; tells some of the others.
bool isAsTheRulesMakeIt()
{
    const auto run = [](const QByteArray &statement) { KConnection::forThread().run(statement); };
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

void enterWindows()
{
    BenchFilling::enterSearch();
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
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    QElapsedTimer filling;
    filling.start();
    const KeptOffice office(contractCount);
    enterWindows();
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

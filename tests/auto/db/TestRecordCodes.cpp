// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/RecordCodes.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/RecordSaving.h"
#include "suite/db/records/CTblTemp.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <barrier>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

template <class Record>
int addOne()
{
    return RecordCodes::add<Record>([](Record &) { });
}

template <class Record>
int codeOf(int key)
{
    Record record;
    return record.IsRecordExist(u"iID"_s, key) ? record.m_iCode : -1;
}

struct Kind
{
    const char *table;
    int (*add)();
    int (*codeOf)(int key);
};

const Kind kinds[] = {
    {"AutomobilContracts", addOne<CTblAutomobilContracts>, codeOf<CTblAutomobilContracts>},
    {"AutomobilInformations", addOne<CTblAutomobilInformations>, codeOf<CTblAutomobilInformations>},
    {"AutomobilDemands", addOne<CTblAutomobilDemands>, codeOf<CTblAutomobilDemands>},
};

}

class TestRecordCodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { prepareModuleTables(m_database); }

    void aCodeIsOneMoreThanTheHighest_data() { kindRows(); }
    void aCodeIsOneMoreThanTheHighest()
    {
        QFETCH(int, kind);
        QCOMPARE(kinds[kind].codeOf(kinds[kind].add()), 1);
        m_database.run(u"INSERT INTO %1(iCode) VALUES(40),(7)"_s.arg(QLatin1String(kinds[kind].table)));
        QCOMPARE(kinds[kind].codeOf(kinds[kind].add()), 41);
    }

    // Each pair starts at the same moment, on two connections.
    void twoDesksNeverGetTheSame_data() { kindRows(); }
    void twoDesksNeverGetTheSame()
    {
        constexpr int pairs = 12;
        QFETCH(int, kind);
        std::barrier start(2);
        QList<int> keys[2];
        QStringList failures[2];
        const auto desk = [&](int number) {
            for (int pair = 0; pair < pairs; ++pair) {
                start.arrive_and_wait();
                try {
                    keys[number].append(kinds[kind].add());
                } catch (const std::exception &error) {
                    failures[number].append(QString::fromUtf8(error.what()));
                }
            }
        };
        std::thread first(desk, 0);
        std::thread second(desk, 1);
        first.join();
        second.join();
        QVERIFY2((failures[0] + failures[1]).isEmpty(), qPrintable((failures[0] + failures[1]).join(u'\n')));
        QSet<int> codes;
        for (const int key : keys[0] + keys[1])
            codes.insert(kinds[kind].codeOf(key));
        QCOMPARE(codes.size(), 2 * pairs);
        QCOMPARE(*std::max_element(codes.cbegin(), codes.cend()), 2 * pairs);
    }

    // Both type one code into a row of their own and save at the same moment.
    void twoDesksNeverTakeTheSame()
    {
        constexpr int pairs = 12;
        for (int pair = 0; pair < pairs; ++pair) {
            const int keys[2] = {addOne<CTblAutomobilContracts>(), addOne<CTblAutomobilContracts>()};
            std::barrier start(2);
            int refused[2] = {0, 0};
            const auto desk = [&](int number) {
                start.arrive_and_wait();
                try {
                    const RecordSaving::Decision<CTblAutomobilContracts> decision{
                        keys[number], 0, [pair](CTblAutomobilContracts &contract) { contract.m_iCode = 900 - pair; }};
                    RecordSaving::save(decision);
                } catch (const RecordCodes::Refused &) {
                    refused[number] = 1;
                }
            };
            std::thread first(desk, 0);
            std::thread second(desk, 1);
            first.join();
            second.join();
            QCOMPARE(refused[0] + refused[1], 1);
            QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM AutomobilContracts WHERE iCode=%1"_s.arg(900 - pair)), u"1"_s);
        }
    }

    void changedCodeIsRefusedWhereItIsEmptyOrTaken_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("isRefused");
        QTest::newRow("empty") << 0 << true;
        QTest::newRow("below one") << -3 << true;
        QTest::newRow("of another row") << 1 << true;
        QTest::newRow("its own") << 2 << false;
        QTest::newRow("free") << 77 << false;
    }

    void changedCodeIsRefusedWhereItIsEmptyOrTaken()
    {
        QFETCH(int, code);
        QFETCH(bool, isRefused);
        addOne<CTblAutomobilContracts>();
        const int key = addOne<CTblAutomobilContracts>();
        const auto save = [&] {
            RecordSaving::save<CTblAutomobilContracts>({key, 0, [code](CTblAutomobilContracts &contract) {
                                                            contract.m_iCode = code;
                                                            contract.m_sDesc = u"x"_s;
                                                        }});
        };
        if (isRefused)
            QVERIFY_THROWS_EXCEPTION(RecordCodes::Refused, save());
        else
            save();
        QCOMPARE(codeOf<CTblAutomobilContracts>(key), isRefused ? 2 : code);
        QCOMPARE(m_database.value(u"SELECT sDesc FROM AutomobilContracts WHERE iID=%1"_s.arg(key)), isRefused ? QString() : u"x"_s);
    }

    // Rows of old databases keep theirs until somebody changes it.
    void codeThatTwoRowsHaveFromBeforeDoesNotStopTheirSaving()
    {
        m_database.run(u"INSERT INTO AutomobilContracts(iID,iCode) VALUES(1,5),(2,5)"_s);
        RecordSaving::save<CTblAutomobilContracts>({1, 0, [](CTblAutomobilContracts &contract) { contract.m_sDesc = u"x"_s; }});
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(iCode) FROM AutomobilContracts WHERE sDesc='x'"_s), u"5"_s);
    }

private:
    static void kindRows()
    {
        QTest::addColumn<int>("kind");
        for (int i = 0; i < int(std::size(kinds)); ++i)
            QTest::newRow(kinds[i].table) << i;
    }

    TestDatabase m_database;
};

static const RegisteredTest<TestRecordCodes, QCoreApplication> registeredRecordCodes;
#include "TestRecordCodes.moc"

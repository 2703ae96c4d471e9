// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/editor/NewRecord.h"
#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/search/SearchFinding.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KTransaction.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>
#include <random>

using namespace Qt::StringLiterals;

// The keys that records are found by follow every write, and what is found by them.
class TestSearchIndex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void init() { m_office->clear(); }
    void cleanupTestCase() { m_office.reset(); }

    void savedRecordIsFound_data();
    void savedRecordIsFound();
    void changedRecordIsFoundAnew();
    void unrelatedChangeTouchesNoKey();
    void rolledBackChangeLeavesNoKey();
    void renamedPersonLeadsToItsRecords();
    void deletedRecordIsGoneAndComesBack();
    void begunRecordIsNotShown();
    void bestComesFirst();
    void onlyReadableKindsAreSearched();
    void commonWordIsBounded();
    void wordsOfDifferentFields();
    void wordsThatManyHaveAreJoined();
    void buildGoesOnWhereItWasCutOff();
    void buildRemovesWhatIsLeftOver();
    void randomHistoryLeavesWhatABuildWouldMake();

private:
    QString scalar(const QString &sql) { return m_office->database().value(sql); }
    QString allKeys() { return scalar(u"SELECT GROUP_CONCAT(CONCAT_WS(' ',iKind,iRecordID,sKey) ORDER BY iKind,iRecordID,sKey SEPARATOR '\n') FROM SearchKeys"_s); }
    // Of that kind, in their order.
    QList<qint32> found(const QString &typed, int kind)
    {
        for (const SearchFinding::Group &group : SearchFinding::find(typed, {kind}, 3))
            return group.records;
        return {};
    }
    void compareWithBuilt();

    std::unique_ptr<TestOffice> m_office;
};

namespace {

template <class Record>
void change(qint32 key, const std::function<void(Record &)> &set)
{
    Record record;
    QVERIFY(record.IsRecordExist(u"iID"_s, key));
    record.Edit();
    set(record);
    record.Update(true);
}

}

void TestSearchIndex::compareWithBuilt()
{
    m_office->database().run(u"SET SESSION group_concat_max_len=10000000"_s);
    const QString kept = allKeys();
    QVERIFY(SearchIndex::build(true));
    QCOMPARE(kept, allKeys());
}

void TestSearchIndex::savedRecordIsFound_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("typed");
    QTest::newRow("person by name") << int(SearchKinds::Persons) << u"كشاورز مجيد"_s;
    QTest::newRow("person by national code") << int(SearchKinds::Persons) << u"۴۱۰۰۰۱۱۹۷۰"_s;
    QTest::newRow("person by mobile") << int(SearchKinds::Persons) << u"+98 912 100 6327"_s;
    QTest::newRow("person by last digits") << int(SearchKinds::Persons) << u"6327"_s;
    QTest::newRow("car by plate") << int(SearchKinds::Cars) << u"۱۲ب۳۴۵ایران۶۷"_s;
    QTest::newRow("car by plate from the region") << int(SearchKinds::Cars) << u"ایران 67 345 ب 12"_s;
    QTest::newRow("car by VIN") << int(SearchKinds::Cars) << u"naam01ca5ek123456"_s;
    QTest::newRow("car by the VIN's end") << int(SearchKinds::Cars) << u"123456"_s;
    QTest::newRow("car by owner") << int(SearchKinds::Cars) << u"کشاورز"_s;
    QTest::newRow("car by explanation") << int(SearchKinds::Cars) << u"گلگیر"_s;
    QTest::newRow("contract by party") << int(SearchKinds::Contracts) << u"مجید کشاورز"_s;
    QTest::newRow("contract by party typed by hand") << int(SearchKinds::Contracts) << u"رستمی"_s;
    QTest::newRow("contract by number") << int(SearchKinds::Contracts) << u"4711"_s;
    QTest::newRow("contract by plate") << int(SearchKinds::Contracts) << u"12ب345"_s;
    QTest::newRow("demand by person") << int(SearchKinds::Demands) << u"کشاورز"_s;
    QTest::newRow("demand by explanation") << int(SearchKinds::Demands) << u"سانروف"_s;
}

void TestSearchIndex::savedRecordIsFound()
{
    QFETCH(int, kind);
    QFETCH(QString, typed);
    const int person = m_office->addPerson(u"مجید"_s, u"کشاورز"_s, [](CTblPersons &one) {
        one.m_sNationalCode = u"4100011970"_s;
        one.m_sMobile = u"09121006327"_s;
    });
    const int car = m_office->addCar([&](CTblAutomobilInformations &one) {
        one.m_iPersonID = person;
        one.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
        one.m_sVIN = u"NAAM01CA5EK123456"_s;
        one.m_sDesc = u"گلگیر راست رنگ"_s;
    });
    const int contract = m_office->addContract([&](CTblAutomobilContracts &one) {
        one.m_iPersonFirstID = person;
        one.m_sName2 = u"سمیرا رستمی"_s;
        one.m_iNum = 4711;
        one.m_sNumOfPlates = u"12ب345-67"_s;
    });
    const int demand = m_office->addDemand([&](CTblAutomobilDemands &one) {
        one.m_iPersonID = person;
        one.m_sDescSpecial = u"سانروف داشته باشد"_s;
    });
    const QHash<int, int> expected{{SearchKinds::Persons, person}, {SearchKinds::Cars, car}, {SearchKinds::Contracts, contract}, {SearchKinds::Demands, demand}};
    QCOMPARE(found(typed, kind), QList<qint32>{expected.value(kind)});
    QCOMPARE(found(u"چیز دیگر"_s, kind), QList<qint32>());
    compareWithBuilt();
}

void TestSearchIndex::changedRecordIsFoundAnew()
{
    const int car = m_office->addCar([](CTblAutomobilInformations &one) { one.m_sNumOfPlates = u"12 ب 345 ایران 67"_s; });
    change<CTblAutomobilInformations>(car, [](CTblAutomobilInformations &one) { one.m_sNumOfPlates = u"98 د 765 ایران 43"_s; });
    QCOMPARE(found(u"12ب345"_s, SearchKinds::Cars), QList<qint32>());
    QCOMPARE(found(u"98د765"_s, SearchKinds::Cars), QList<qint32>{car});
    QCOMPARE(SearchIndex::recordsWith(SearchKinds::Cars, SearchText::wholePlate(u"۹۸ د ۷۶۵ - ۴۳"_s)), QList<qint32>{car});
    QCOMPARE(SearchIndex::recordsWith(SearchKinds::Cars, SearchText::wholePlate(u"98د765"_s)), QList<qint32>());
    compareWithBuilt();
}

void TestSearchIndex::unrelatedChangeTouchesNoKey()
{
    const int car = m_office->addCar([](CTblAutomobilInformations &one) { one.m_sVIN = u"NAAM01CA5EK123456"_s; });
    const ObservedStatements statements({u"SELECT"_s, u"INSERT"_s, u"DELETE"_s});
    change<CTblAutomobilInformations>(car, [](CTblAutomobilInformations &one) { one.m_dAmount = 5e9; });
    QVERIFY(statements.taken().filter(u"SearchKeys"_s).isEmpty());
}

void TestSearchIndex::rolledBackChangeLeavesNoKey()
{
    const QString before = allKeys();
    {
        const KTransaction transaction;
        m_office->addPerson(u"ناتمام"_s, u"مانده"_s);
        QCOMPARE(found(u"ناتمام"_s, SearchKinds::Persons).size(), 1);
    }
    QCOMPARE(allKeys(), before);
}

void TestSearchIndex::renamedPersonLeadsToItsRecords()
{
    const int person = m_office->addPerson(u"مجید"_s, u"کشاورز"_s);
    const int other = m_office->addPerson(u"بهزاد"_s, u"کشاورز"_s);
    const int car = m_office->addCar([&](CTblAutomobilInformations &one) { one.m_iPersonID = person; });
    const int contract = m_office->addContract([&](CTblAutomobilContracts &one) {
        one.m_iPersonFirstID = other;
        one.m_iPersonSecondID = person;
    });
    change<CTblPersons>(person, [](CTblPersons &one) { one.m_sFamily = u"دهقان"_s; });
    QCOMPARE(found(u"دهقان"_s, SearchKinds::Cars), QList<qint32>{car});
    QCOMPARE(found(u"دهقان"_s, SearchKinds::Contracts), QList<qint32>{contract});
    QCOMPARE(found(u"کشاورز"_s, SearchKinds::Cars), QList<qint32>());
    QCOMPARE(found(u"کشاورز"_s, SearchKinds::Contracts), QList<qint32>{contract});
    compareWithBuilt();
}

void TestSearchIndex::deletedRecordIsGoneAndComesBack()
{
    const int person = m_office->addPerson(u"مجید"_s, u"کشاورز"_s);
    const int contract = m_office->addContract([&](CTblAutomobilContracts &one) { one.m_iPersonFirstID = person; });
    const int car = m_office->addCar([](CTblAutomobilInformations &one) { one.m_sVIN = u"NAAM01CA5EK123456"_s; });
    CTblAutomobilContracts asked;
    QVERIFY(asked.IsRecordExist(u"iID"_s, contract));
    RowDeleting::run(asked);
    CTblAutomobilInformations askedCar;
    QVERIFY(askedCar.IsRecordExist(u"iID"_s, car));
    RowDeleting::run(askedCar);
    QCOMPARE(found(u"کشاورز"_s, SearchKinds::Contracts), QList<qint32>());
    QCOMPARE(found(u"naam01"_s, SearchKinds::Cars), QList<qint32>());
    compareWithBuilt();
    for (const auto &[table, key] : {std::pair(u"AutomobilContracts"_s, contract), std::pair(u"AutomobilInformations"_s, car)})
        BinRestoring::run(Bin::entryOf(table, key).value());
    QCOMPARE(found(u"کشاورز"_s, SearchKinds::Contracts).size(), 1);
    QCOMPARE(found(u"naam01"_s, SearchKinds::Cars).size(), 1);
    compareWithBuilt();
}

void TestSearchIndex::begunRecordIsNotShown()
{
    const int car = NewRecord::add<CTblAutomobilInformations>([](CTblAutomobilInformations &one) { one.m_sVIN = u"NAAM01CA5EK123456"_s; });
    QVERIFY(SearchFinding::find(u"naam01"_s, {SearchKinds::Cars}, 3).isEmpty());
    NewRecord::discard<CTblAutomobilInformations>(car);
    QCOMPARE(scalar(u"SELECT COUNT(*) FROM SearchKeys WHERE iKind=3"_s), u"0"_s);
}

void TestSearchIndex::bestComesFirst()
{
    const int longer = m_office->addPerson(u"علیرضا"_s, u"آذر"_s);
    const int older = m_office->addPerson(u"علی"_s, {});
    const int newer = m_office->addPerson(u"علی"_s, {});
    const int explained = m_office->addCar([](CTblAutomobilInformations &one) { one.m_sDesc = u"به علی زنگ بزن"_s; });
    const int numbered = m_office->addCar([](CTblAutomobilInformations &one) { one.m_sNumOfEngines = u"علی1"_s; });
    QCOMPARE(found(u"علی"_s, SearchKinds::Persons), (QList<qint32>{newer, older, longer}));
    QCOMPARE(found(u"علی"_s, SearchKinds::Cars), (QList<qint32>{numbered, explained}));
}

void TestSearchIndex::onlyReadableKindsAreSearched()
{
    QCOMPARE(SearchFinding::readable().size(), 8);
    m_office->logInAs(u"sima"_s, u"Persons"_s, KSecurity::Read | KSecurity::Access);
    QCOMPARE(SearchFinding::readable(), QList<int>{SearchKinds::Persons});
    m_office->logInAs(u"nobody"_s, u"Persons"_s, KSecurity::Access);
    QCOMPARE(SearchFinding::readable(), QList<int>());
    QVERIFY(SearchFinding::find(u"علی"_s, {}, 3).isEmpty());
    m_office->logInAsAdmin();
}

// However many there are, a bounded number of keys is read; the whole key is among them.
void TestSearchIndex::commonWordIsBounded()
{
    m_office->database().run(u"INSERT INTO Persons(iID,sName2) SELECT 1000000+seq,CONCAT('علی',seq) FROM seq_1_to_3000"_s);
    QVERIFY(SearchIndex::build(true));
    const QList<SearchFinding::Group> groups = SearchFinding::find(u"ع"_s, SearchFinding::readable(), 3);
    QCOMPARE(groups.size(), 1);
    QVERIFY(groups.constFirst().more);
    QCOMPARE(groups.constFirst().records.size(), 100);
    QCOMPARE(groups.constFirst().hits.size(), 3);
    QCOMPARE(found(u"علی2999"_s, SearchKinds::Persons).constFirst(), 1002999);
}

void TestSearchIndex::wordsOfDifferentFields()
{
    const int one = m_office->addContract([](CTblAutomobilContracts &contract) {
        contract.m_sName1 = u"مجید کشاورز"_s;
        contract.m_sAutomobilName = u"پژو پارس"_s;
    });
    m_office->addContract([](CTblAutomobilContracts &contract) {
        contract.m_sName1 = u"مجید کشاورز"_s;
        contract.m_sAutomobilName = u"سمند"_s;
    });
    QCOMPARE(found(u"کشاورز پارس"_s, SearchKinds::Contracts), QList<qint32>{one});
    QCOMPARE(found(u"پژو مجید"_s, SearchKinds::Contracts), QList<qint32>{one});
    QCOMPARE(found(u"پراید مجید"_s, SearchKinds::Contracts), QList<qint32>());
}

// One record among thousands that have either word, behind all of them; and how many are looked at where thousands have both.
void TestSearchIndex::wordsThatManyHaveAreJoined()
{
    TestDatabase &database = m_office->database();
    database.run(u"INSERT INTO AutomobilContracts(iID,sName1,iArchiveUserID) SELECT 1000000+seq,CONCAT('کشاورز ',seq),0 FROM seq_1_to_2000"_s);
    database.run(u"INSERT INTO AutomobilContracts(iID,sAutomobilName,iArchiveUserID) SELECT 1010000+seq,CONCAT('سمند ',seq),0 FROM seq_1_to_2000"_s);
    database.run(u"INSERT INTO AutomobilContracts(iID,sName1,sAutomobilName,iArchiveUserID) VALUES(1020000,'کشاورز ی','سمند ی',0)"_s);
    QVERIFY(SearchIndex::build(true));
    QCOMPARE(found(u"کشاورز سمند"_s, SearchKinds::Contracts), QList<qint32>{1020000});
    QCOMPARE(found(u"سمند کشاورز 1999"_s, SearchKinds::Contracts), QList<qint32>());
    database.run(u"UPDATE AutomobilContracts SET sAutomobilName='سمند' WHERE iID BETWEEN 1000001 AND 1002000"_s);
    QVERIFY(SearchIndex::build(true));
    const QList<SearchFinding::Group> groups = SearchFinding::find(u"کشاورز سمند"_s, {SearchKinds::Contracts}, 3);
    QCOMPARE(groups.size(), 1);
    QVERIFY(groups.constFirst().more);
    QVERIFY(groups.constFirst().records.size() < 100);
    QCOMPARE(groups.constFirst().hits.size(), 3);
}

void TestSearchIndex::buildGoesOnWhereItWasCutOff()
{
    m_office->database().run(u"INSERT INTO Persons(sName2) SELECT CONCAT('نام ',seq) FROM seq_1_to_1000"_s);
    int steps = 0;
    const auto once = [&steps](int done) {
        Q_ASSERT(done >= 0 && done <= 1000);
        ++steps;
        return false;
    };
    QVERIFY(!SearchIndex::build(true, once));
    QVERIFY(!SearchIndex::isBuilt());
    const int before = scalar(u"SELECT COUNT(*) FROM SearchKeys"_s).toInt();
    QVERIFY(before > 0);
    // What was made is not made again.
    m_office->database().run(u"DELETE FROM SearchKeys"_s);
    QVERIFY(SearchIndex::build(false));
    QCOMPARE(steps, 1);
    QVERIFY(SearchIndex::isBuilt());
    QVERIFY(scalar(u"SELECT COUNT(DISTINCT iRecordID) FROM SearchKeys WHERE iKind=1"_s).toInt() < 1000);
    QVERIFY(SearchIndex::build(true));
    QCOMPARE(scalar(u"SELECT COUNT(DISTINCT iRecordID) FROM SearchKeys WHERE iKind=1"_s), u"1000"_s);
}

void TestSearchIndex::buildRemovesWhatIsLeftOver()
{
    const int person = m_office->addPerson(u"مجید"_s, u"کشاورز"_s);
    for (const QString &row : {u"1,'wrong',%1"_s.arg(person), u"1,'gone',%1"_s.arg(person + 5), u"3,'gone',7"_s, u"1,'gone',1"_s})
        m_office->database().run(u"INSERT INTO SearchKeys(iKind,sKey,iRecordID) VALUES(%1)"_s.arg(row));
    QVERIFY(SearchIndex::build(true));
    QCOMPARE(scalar(u"SELECT COUNT(*) FROM SearchKeys WHERE sKey IN ('wrong','gone')"_s), u"0"_s);
    QCOMPARE(found(u"کشاورز"_s, SearchKinds::Persons), QList<qint32>{person});
}

namespace {

constexpr int changesOfADesk = 60;

const QString someNames[] = {u"علی"_s, u"مجید"_s, u"سمیرا"_s, u"کشاورز"_s, u"رستمی"_s, u"احمدی"_s};

// One desk's work, each change a unit of its own, which is run again after a deadlock.
class RandomDesk
{
public:
    RandomDesk(unsigned seed, const QList<int> &persons)
        : m_random(seed)
        , m_persons(persons)
    {
    }

    void work()
    {
        for (int i = 0; i < changesOfADesk; ++i)
            KTransaction::runReplayable([&] { one(); });
    }

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    QString name() { return someNames[below(std::size(someNames))]; }
    int person() { return m_persons.at(below(static_cast<int>(m_persons.size()))); }

    template <class Record>
    void each(const std::function<void(Record &)> &work)
    {
        Record record;
        record.m_filter = KSql::formatted("iID%%1=%2", 3, below(3));
        record.SetLimit(1);
        record.Open(false, false, true);
        if (record.IsEOF() || !record.lockRecord(record.m_iID))
            return;
        work(record);
    }

    void one()
    {
        switch (below(6)) {
        case 0:
            return add();
        case 1:
            return rename();
        case 2:
            return each<CTblAutomobilContracts>([this](CTblAutomobilContracts &record) {
                record.Edit();
                record.m_iPersonFirstID = person();
                record.m_sName2 = name();
                record.Update(true);
            });
        case 3:
            return each<CTblAutomobilContracts>([](CTblAutomobilContracts &record) { record.Delete(); });
        default:
            return add();
        }
    }
    void add()
    {
        CTblAutomobilContracts contract;
        contract.Open(false, false, true);
        contract.AddNew();
        contract.m_iPersonFirstID = person();
        contract.m_sName2 = name();
        contract.m_iCode = below(100000);
        contract.Update(true);
    }
    void rename()
    {
        CTblPersons record;
        if (!record.lockRecord(person()))
            return;
        record.Edit();
        record.m_sName = name();
        record.m_sFamily = name();
        record.Update(true);
    }

    std::mt19937 m_random;
    QList<int> m_persons;
};

}

// Two desks at once add, change, rename and delete; what stands there then is what would be made anew.
void TestSearchIndex::randomHistoryLeavesWhatABuildWouldMake()
{
    QList<int> persons;
    for (const QString &name : someNames)
        persons.append(m_office->addPerson(name, u"نخست"_s));
    std::atomic_int failures = 0;
    std::vector<std::unique_ptr<QThread>> desks;
    for (unsigned seed = 1; seed <= 2; ++seed) {
        desks.emplace_back(QThread::create([&, seed] {
            try {
                RandomDesk(seed, persons).work();
            } catch (const CMySQLException &error) {
                qWarning() << error.what();
                ++failures;
            }
            KConnection::closeThreadConnections();
        }));
        desks.back()->start();
    }
    for (const auto &desk : desks)
        desk->wait();
    QCOMPARE(failures.load(), 0);
    QVERIFY(scalar(u"SELECT COUNT(*) FROM AutomobilContracts"_s).toInt() > 10);
    compareWithBuilt();
}

static const RegisteredTest<TestSearchIndex> registeredSearchIndex;
#include "TestSearchIndex.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/bin/CarRecordParts.h"
#include "auto/catalog/CatalogEntries.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/editor/NewRecord.h"
#include "auto/subjects/AutoSubjects.h"
#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/totals/TotalsCheck.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KTableSchema.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/SameDatabase.h"

#include <QApplication>
#include <QScopeGuard>
#include <QTest>

#include <memory>
#include <thread>

using namespace Qt::StringLiterals;

// Whatever is deleted comes back as it was, with all that belonged to it.
class TestDeletedRecords : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    TestDatabase &database() { return m_office->database(); }
    QString value(const QString &statement) { return database().value(statement); }
    int number(const QString &statement) { return value(statement).toInt(); }
    void run(const QString &statement) { database().run(statement); }

    // A contract of its own with one of everything that belongs to one.
    int wholeContract()
    {
        const PostedContract posted(*m_office);
        const int key = posted.key;
        run(u"INSERT INTO FileDocs(iTable,iRecordID,sName,oData,iScope,iUserID) VALUES(69,%1,'قرارداد.pdf',X'00270a5cff1a',0,1),(69,%1,'',NULL,1,1)"_s.arg(key));
        run(u"INSERT INTO CustomFieldRecords(iTable,iRecordID,iFieldID,sValue) VALUES(69,%1,%2,'x\\'y')"_s.arg(key).arg(customField(69)));
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,iNum,date,dAmount,sDesc) VALUES(%1,%2,1,NOW(),0.1,NULL),(%1,%2,2,NOW(),1e15/3,'')"_s.arg(key).arg(posted.buyer));
        run(u"INSERT INTO FollowUps(iTable,iRecordID,iPaymentID,sNote) SELECT 69,%1,MIN(iID),'قول داد' FROM AutomobilPayments WHERE iAutomobilContractID=%1"_s.arg(key));
        run(u"INSERT INTO Alarms(iTable,iRecordID,iUserID,date) VALUES(69,%1,1,NOW())"_s.arg(key));
        run(u"INSERT INTO CarContracts(iCarID,iContractID,iUserID,dateCreate) VALUES(%1,%2,1,NOW())"_s.arg(m_office->addCar()).arg(key));
        return key;
    }
    int customField(int kind)
    {
        run(u"INSERT IGNORE INTO CustomFields(iTable,sName) VALUES(%1,'field')"_s.arg(kind));
        return number(u"SELECT iID FROM CustomFields WHERE iTable=%1"_s.arg(kind));
    }
    int wholeCar()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"206"_s);
        const int carClass = m_office->addClass(model, u"تیپ 2"_s);
        const int owner = m_office->addPerson(u"علی"_s, u"رضایی"_s);
        const int key = m_office->addCar([&](CTblAutomobilInformations &car) {
            car.m_iPersonID = owner;
            car.m_iAutomobilType = brand;
            car.m_iModel = model;
            car.m_iBrigade = carClass;
            car.m_oPicture.data = QByteArray("\x89PNG\0\xff'", 7);
        });
        run(u"INSERT INTO FileDocs(iTable,iRecordID,sName,oData) VALUES(68,%1,'a',REPEAT('b',700000))"_s.arg(key));
        run(u"INSERT INTO Pictures(iTable,iRecordID,iOrder,sName,oPicture,iUserID) VALUES(68,%1,2,'پشت.jpg',REPEAT(X'ff00',600000),1),(68,%1,1,NULL,X'00270a5cff1a',0)"_s.arg(key));
        run(u"INSERT INTO CustomFieldRecords(iTable,iRecordID,iFieldID,sValue) VALUES(68,%1,%2,'1')"_s.arg(key).arg(customField(68)));
        run(u"INSERT INTO FollowUps(iTable,iRecordID,iKind,sNote,datePromised) VALUES(68,%1,2,'زنگ زد',NOW()),(68,%1,1,'',NULL)"_s.arg(key));
        run(u"INSERT INTO PublicCars(iCarID,iUserID,dateCreate) VALUES(%1,1,NOW())"_s.arg(key));
        return key;
    }
    int wholeDemand()
    {
        const int person = m_office->addPerson(u"علی"_s, u"رضایی"_s);
        const int key = m_office->addDemand([&](CTblAutomobilDemands &demand) { demand.m_iPersonID = person; });
        run(u"INSERT INTO FileDocs(iTable,iRecordID,sName) VALUES(70,%1,'a')"_s.arg(key));
        run(u"INSERT INTO FollowUps(iTable,iRecordID,iKind,sNote) VALUES(70,%1,1,'x\\'y')"_s.arg(key));
        run(u"INSERT INTO Alarms(iTable,iRecordID,iUserID,date) VALUES(70,%1,1,NOW())"_s.arg(key));
        run(u"UPDATE Alarms SET iRecordID2=(SELECT iCode FROM AutomobilDemands WHERE iID=%1)"_s.arg(key));
        run(u"UPDATE AutomobilDemands SET iAlarmID=(SELECT MAX(iID) FROM Alarms) WHERE iID=%1"_s.arg(key));
        return key;
    }
    // With a model that has classes, and one without, which stays.
    int wholeBrand()
    {
        const int brand = m_office->addBrand(u"رنو"_s);
        const int model = m_office->addModel(brand, u"مگان"_s);
        m_office->addClass(model, u"1600"_s);
        m_office->addClass(model, u"2000"_s);
        m_office->addModel(brand, u"کپچر"_s);
        return brand;
    }
    int makeRecord(const QString &table)
    {
        if (table == u"AutomobilContracts")
            return wholeContract();
        if (table == u"AutomobilInformations")
            return wholeCar();
        if (table == u"AutomobilDemands")
            return wholeDemand();
        const int brand = wholeBrand();
        const int model = number(u"SELECT iID FROM CarModels WHERE sName='مگان'"_s);
        return table == u"CarBrands" ? brand : table == u"CarModels" ? model
                                                                     : number(u"SELECT MAX(iID) FROM CarClasses"_s);
    }

    static Bin::Entry remove(const QString &table, int key)
    {
        if (table == u"AutomobilContracts") {
            CTblAutomobilContracts asked;
            if (!asked.IsRecordExist(u"iID"_s, key))
                qFatal("the contract is gone");
            ContractDeleting::run(asked);
        } else {
            std::unique_ptr<KMySQL> asked;
            if (table == u"AutomobilInformations")
                asked = std::make_unique<CTblAutomobilInformations>();
            else if (table == u"AutomobilDemands")
                asked = std::make_unique<CTblAutomobilDemands>();
            else
                asked = CatalogEntries::records(table == u"CarBrands" ? CatalogLevel::Brand : table == u"CarModels" ? CatalogLevel::Model
                                                                                                                    : CatalogLevel::Class);
            if (!asked->IsRecordExist(u"iID"_s, key))
                qFatal("the record is gone");
            RowDeleting::run(*asked);
        }
        return Bin::entryOf(table, key).value_or(Bin::Entry());
    }

    static QString refusal(const std::function<void()> &work)
    {
        try {
            work();
        } catch (const KAccountingError &error) {
            return error.userMessage();
        }
        return {};
    }

    static void addKinds()
    {
        QTest::addColumn<QString>("table");
        for (const char *table : {"AutomobilContracts", "AutomobilInformations", "AutomobilDemands", "CarBrands", "CarModels", "CarClasses"})
            QTest::newRow(table) << QString::fromLatin1(table);
    }

private Q_SLOTS:
    void initTestCase()
    {
        CarRecordParts::enter();
        AutoSubjects::enter();
        m_office = std::make_unique<TestOffice>();
    }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->logInAsAdmin();
        for (const char *table : {"Bin", "BinRows", "FileDocs", "Pictures", "CustomFieldRecords", "CustomFields", "FollowUps", "Alarms", "CarContracts", "PublicCars", "Changes", "AutomobilPayments"})
            run(u"DELETE FROM "_s + QLatin1String(table));
    }

    void everythingComesBackAsItWas_data() { addKinds(); }
    void everythingComesBackAsItWas()
    {
        QFETCH(QString, table);
        const int key = makeRecord(table);
        const SameDatabase before;
        const Bin::Entry entry = remove(table, key);
        QVERIFY(entry.id > 0);
        QVERIFY(!before.differences().isEmpty());
        const BinRestoring::Restored restored = BinRestoring::run(entry);
        QCOMPARE(restored.key, key);
        QCOMPARE(before.differences(), QString());
        QVERIFY2(!restored.message.contains(u'\n'), qPrintable(restored.message));
        QCOMPARE(value(u"SELECT iKind FROM Changes WHERE sTable='%1' AND iRecordID=%2 ORDER BY iID DESC LIMIT 1"_s.arg(table).arg(key)), u"5"_s);
    }

    // In the sums of its accounts before, and again afterwards; between the two it is in none, whatever its row in the bin says.
    void aDocumentComesBackIntoTheSumsOfItsAccounts()
    {
        const int key = wholeContract();
        const auto balance = [] { return CTblDocs::GetBedBesHesabMoeen1(Accounts::persons).bed; };
        const double before = balance();
        QVERIFY(before > 0);
        TotalsFolding::fold();
        const auto isRight = [&](double expected) { return balance() == expected && TotalsCheck::find().isEmpty(); };
        QVERIFY(isRight(before));
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        QVERIFY(isRight(0));
        TotalsFolding::fold();
        QVERIFY(isRight(0));
        BinRestoring::run(entry);
        QVERIFY(isRight(before));
        TotalsFolding::fold();
        QVERIFY(isRight(before));
        run(u"DELETE FROM AccountTotals"_s);
    }

    // What a kept row holds is read back from bytes; a number of it that is not a double's shortest form would show here.
    void aContractComesBackTwice()
    {
        const int key = wholeContract();
        const SameDatabase before;
        for (int time = 0; time < 2; ++time)
            BinRestoring::run(remove(u"AutomobilContracts"_s, key));
        QCOMPARE(before.differences(), QString());
    }

    void aCodeThatIsTakenGetsTheNext_data()
    {
        QTest::addColumn<QString>("table");
        for (const char *table : {"AutomobilContracts", "AutomobilInformations", "AutomobilDemands"})
            QTest::newRow(table) << QString::fromLatin1(table);
    }
    void aCodeThatIsTakenGetsTheNext()
    {
        QFETCH(QString, table);
        const int key = makeRecord(table);
        const int code = number(u"SELECT iCode FROM %1 WHERE iID=%2"_s.arg(table).arg(key));
        const Bin::Entry entry = remove(table, key);
        run(u"INSERT INTO %1(iCode) VALUES(%2),(%3)"_s.arg(table).arg(code).arg(code + 7));
        const BinRestoring::Restored restored = BinRestoring::run(entry);
        QCOMPARE(number(u"SELECT iCode FROM %1 WHERE iID=%2"_s.arg(table).arg(key)), code + 8);
        if (table == u"AutomobilDemands")
            QCOMPARE(value(u"SELECT iRecordID2 FROM Alarms"_s), QString::number(code + 8));
        QVERIFY2(restored.message.contains(u"کد %1 گرفته شده بود"_s.arg(code)) && restored.message.contains(u"با کد %1 بازگشت"_s.arg(code + 8)), qPrintable(restored.message));
    }

    // Keys are never given twice, but a database that was restored may hold another row under one.
    void keysThatAreTakenBecomeNewOnesEverywhere()
    {
        const int key = wholeContract();
        const int payment = number(u"SELECT MIN(iID) FROM AutomobilPayments"_s);
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        run(u"INSERT INTO AutomobilContracts(iID,iCode) VALUES(%1,900)"_s.arg(key));
        run(u"INSERT INTO AutomobilPayments(iID,iAutomobilContractID) VALUES(%1,%2)"_s.arg(payment).arg(key));
        const BinRestoring::Restored restored = BinRestoring::run(entry);
        QVERIFY(restored.key != key);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE iAutomobilContractID=%1"_s.arg(restored.key)), u"2"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM FileDocs WHERE iTable=69 AND iRecordID=%1"_s.arg(restored.key)), u"2"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps f JOIN AutomobilPayments p ON p.iID=f.iPaymentID WHERE f.iRecordID=%1 AND p.iAutomobilContractID=%1 AND p.iNum=1"_s.arg(restored.key)), u"1"_s);
        QVERIFY2(restored.message.contains(u"شناسه %1 گرفته شده بود"_s.arg(key)), qPrintable(restored.message));
    }

    void theDocumentGetsANumberOfItsOwn()
    {
        const int key = wholeContract();
        const int num = number(u"SELECT iDocNum FROM AutomobilContracts WHERE iID=%1"_s.arg(key));
        const QString rows = value(u"SELECT GROUP_CONCAT(iHesabMoeenCode,':',dBed,':',dBes ORDER BY iID) FROM Docs"_s);
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        const PostedContract other(*m_office);
        QCOMPARE(number(u"SELECT iDocNum FROM AutomobilContracts WHERE iID=%1"_s.arg(other.key)), num);
        const BinRestoring::Restored restored = BinRestoring::run(entry);
        QCOMPARE(number(u"SELECT iDocNum FROM AutomobilContracts WHERE iID=%1"_s.arg(key)), num + 1);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iHesabMoeenCode,':',dBed,':',dBes ORDER BY iID) FROM Docs WHERE iDocNum=%1"_s.arg(num + 1)), rows);
        QVERIFY2(restored.message.contains(u"سند شماره %1 با شماره %2 بازگشت"_s.arg(num).arg(num + 1)), qPrintable(restored.message));
    }

    void theYearOfTheDocumentIsThatOfOpenBooks_data()
    {
        QTest::addColumn<int>("yearsLater");    // the office's year, once the contract is deleted
        QTest::addColumn<int>("daysToOpening"); // of that year's books, from the deletion
        QTest::addColumn<int>("movedBy");       // years that the document moves
        QTest::newRow("same year") << 0 << -100 << 0;
        QTest::newRow("its books were closed without it") << 1 << 1 << 1;
        QTest::newRow("it was deleted out of closed books") << 1 << -30 << 0;
    }
    void theYearOfTheDocumentIsThatOfOpenBooks()
    {
        QFETCH(int, yearsLater);
        QFETCH(int, daysToOpening);
        QFETCH(int, movedBy);
        const int key = wholeContract();
        const int year = number(u"SELECT iFiscalYear FROM AutomobilContracts WHERE iID=%1"_s.arg(key));
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        GetDBSetting()->SetFiscalYear(year + yearsLater);
        m_office->setFiscalYearOpening(entry.date.date().addDays(daysToOpening));
        const BinRestoring::Restored restored = BinRestoring::run(entry);
        QCOMPARE(number(u"SELECT iFiscalYear FROM AutomobilContracts WHERE iID=%1"_s.arg(key)), year + movedBy);
        QCOMPARE(number(u"SELECT COUNT(*) FROM Docs d JOIN AutomobilContracts c ON c.iDocNum=d.iDocNum AND c.iFiscalYear=d.iFiscalYear"_s), 4);
        QCOMPARE(restored.message.contains(u"بدون سند آن بسته شده است"_s), movedBy > 0);
    }

    void anAccountThatIsGoneKeepsTheContractOut()
    {
        const int key = wholeContract();
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        run(u"UPDATE HesabMoeen SET iCode=-iCode WHERE iCode=410202"_s);
        const auto back = qScopeGuard([this] { run(u"UPDATE HesabMoeen SET iCode=-iCode WHERE iCode<0"_s); });
        const SameDatabase before;
        QVERIFY(refusal([&] { BinRestoring::run(entry); }).contains(u"حساب تعریف نشده"_s));
        QCOMPARE(before.differences(), QString());
    }

    void voidReceiptsMeetTheirContractAgain()
    {
        const PostedContract posted(*m_office);
        CTblAutomobilContracts asked;
        posted.load(asked);
        posted.receive(posted.seller, 1500, u"a"_s, ContractReceipts::commission(asked, 1));
        ContractReceipts::makeVoid(posted.key, ContractReceipts::list(asked).constFirst(), u"اشتباه"_s);
        BinRestoring::run(remove(u"AutomobilContracts"_s, posted.key));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts r JOIN AutomobilContracts c ON c.iID=r.iRecordID WHERE r.iTable=69"_s), u"1"_s);
    }

    void whatIsGoneMeanwhileIsSaid()
    {
        const int key = wholeCar();
        const Bin::Entry entry = remove(u"AutomobilInformations"_s, key);
        run(u"DELETE FROM Persons"_s);
        run(u"DELETE FROM CustomFields"_s);
        const BinRestoring::Restored restored = BinRestoring::run(entry);
        QVERIFY2(restored.message.contains(u"شخص آن دیگر نیست"_s) && restored.message.contains(u"فیلد سفارشی آن دیگر نیست"_s), qPrintable(restored.message));
        QCOMPARE(value(u"SELECT COUNT(*) FROM CustomFieldRecords"_s), u"0"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"1"_s);
    }

    void aDemandWithoutItsPersonStaysInTheBin()
    {
        const int key = wholeDemand();
        const Bin::Entry entry = remove(u"AutomobilDemands"_s, key);
        run(u"DELETE FROM Persons"_s);
        QVERIFY(refusal([&] { BinRestoring::run(entry); }).contains(u"شخص"_s));
        QVERIFY(Bin::entry(entry.id).has_value());
    }

    void theCatalogOfACarComesBackAlong()
    {
        const int key = wholeCar();
        const SameDatabase before;
        const Bin::Entry car = remove(u"AutomobilInformations"_s, key);
        const int brand = number(u"SELECT iID FROM CarBrands"_s);
        remove(u"CarBrands"_s, brand);
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarModels"_s), u"0"_s);
        const BinRestoring::Restored restored = BinRestoring::run(car);
        QCOMPARE(before.differences(), QString());
        QVERIFY2(restored.message.contains(u"هم بازگشت"_s), qPrintable(restored.message));
    }

    void aModelBringsItsBrandAlong()
    {
        const int brand = m_office->addBrand(u"کیا"_s);
        const int model = m_office->addModel(brand, u"سراتو"_s);
        const SameDatabase before;
        const Bin::Entry entry = remove(u"CarModels"_s, model);
        remove(u"CarBrands"_s, brand);
        BinRestoring::run(entry);
        QCOMPARE(before.differences(), QString());
    }

    void aNameOfTheCatalogThatIsTakenIsSaid()
    {
        const int brand = wholeBrand();
        const Bin::Entry entry = remove(u"CarBrands"_s, brand);
        m_office->addBrand(u"رنو"_s);
        QVERIFY(refusal([&] { BinRestoring::run(entry); }).contains(u"«رنو»"_s));
        QVERIFY(Bin::entry(entry.id).has_value());
    }

    void whoIsSecondIsToldWhoWasFirst()
    {
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, wholeContract());
        BinRestoring::run(entry);
        const SameDatabase before;
        QVERIFY(refusal([&] { BinRestoring::run(entry); }).contains(u"پیش از شما بازگردانده است"_s));
        QCOMPARE(before.differences(), QString());
    }

    // Each with a connection of its own; one of them is first.
    void twoDesksAtOnceBringItBackOnce()
    {
        const int key = wholeContract();
        const SameDatabase before;
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        std::atomic<int> back = 0;
        std::atomic<int> told = 0;
        const auto restore = [&] {
            try {
                BinRestoring::run(entry);
                ++back;
            } catch (const KAccountingError &) {
                ++told;
            }
            KConnection::closeThreadConnections();
        };
        std::thread other(restore);
        restore();
        other.join();
        QCOMPARE(back.load(), 1);
        QCOMPARE(told.load(), 1);
        QCOMPARE(before.differences(), QString());
    }

    void whoMayTakeItBack_data()
    {
        QTest::addColumn<bool>("own");
        QTest::addColumn<int>("rights");
        QTest::addColumn<bool>("may");
        QTest::newRow("own, may delete") << true << int(KSecurity::allRights) << true;
        QTest::newRow("own, may delete no more") << true << int(KSecurity::Access | KSecurity::Read) << false;
        QTest::newRow("another's") << false << int(KSecurity::allRights) << false;
    }
    void whoMayTakeItBack()
    {
        QFETCH(bool, own);
        QFETCH(int, rights);
        QFETCH(bool, may);
        const int key = wholeContract();
        const int clerk = m_office->logInAs(u"sima"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        if (!own)
            m_office->logInAsAdmin();
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        if (!own)
            m_office->logInAs(u"sima"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        KSecurity::setRights(clerk, u"AutomobilContracts"_s, rights);
        QCOMPARE(BinRestoring::mayRestore(entry), may);
        QCOMPARE(refusal([&] { BinRestoring::run(entry); }).isEmpty(), may);
        QCOMPARE(number(u"SELECT COUNT(*) FROM AutomobilContracts"_s), may ? 1 : 0);
    }

    void nothingComesBackIntoAClosedDatabase()
    {
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, wholeContract());
        GetDBSetting()->SetClosedDB(true);
        const QString told = refusal([&] { BinRestoring::run(entry); });
        GetDBSetting()->SetClosedDB(false);
        QVERIFY2(told.contains(u"بسته"_s), qPrintable(told));
        QVERIFY(Bin::entry(entry.id).has_value());
    }

    void anAttachmentNeedsNoStatementOfItsSize()
    {
        const int key = m_office->addCar();
        run(u"INSERT INTO FileDocs(iTable,iRecordID,sName,oData) VALUES(68,%1,'a',REPEAT('\\'',6000000))"_s.arg(key));
        const SameDatabase before;
        qsizetype longest = 0;
        KConnection::setStatementObserver([&](const QString &statement) { longest = std::max(longest, statement.size()); });
        const Bin::Entry entry = remove(u"AutomobilInformations"_s, key);
        KConnection::setStatementObserver({});
        QVERIFY2(longest < 1024 * 1024, qPrintable(QString::number(longest)));
        BinRestoring::run(entry);
        QCOMPARE(before.differences(), QString());
    }

    // Whatever fails, the record is where it was.
    void whatCannotBeKeptIsNotDeleted_data()
    {
        QTest::addColumn<QString>("when");
        for (const char *when : {"INSERT ON Bin", "INSERT ON BinRows", "DELETE ON AutomobilContracts", "INSERT ON UnitTokens"})
            QTest::newRow(when) << QString::fromLatin1(when);
    }
    void whatCannotBeKeptIsNotDeleted()
    {
        QFETCH(QString, when);
        const int key = wholeContract();
        const SameDatabase before;
        run(u"CREATE TRIGGER refuse BEFORE %1 FOR EACH ROW SIGNAL SQLSTATE '45000'"_s.arg(when));
        const auto drop = qScopeGuard([this] { run(u"DROP TRIGGER IF EXISTS refuse"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, remove(u"AutomobilContracts"_s, key));
        QCOMPARE(before.differences(), QString());
    }

    void whatCannotComeBackStaysInTheBin_data()
    {
        QTest::addColumn<QString>("when");
        for (const char *when : {"INSERT ON AutomobilContracts", "INSERT ON Docs", "INSERT ON FollowUps", "DELETE ON BinRows", "INSERT ON UnitTokens"})
            QTest::newRow(when) << QString::fromLatin1(when);
    }
    void whatCannotComeBackStaysInTheBin()
    {
        QFETCH(QString, when);
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, wholeContract());
        const SameDatabase before;
        run(u"CREATE TRIGGER refuse BEFORE %1 FOR EACH ROW SIGNAL SQLSTATE '45000'"_s.arg(when));
        const auto drop = qScopeGuard([this] { run(u"DROP TRIGGER IF EXISTS refuse"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, BinRestoring::run(entry));
        QCOMPARE(before.differences(), QString());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Changes WHERE iKind=5"_s), u"0"_s);
    }

    void aNewRecordThatIsCancelledLeavesNothing()
    {
        const SameDatabase before;
        const int key = NewRecord::add<CTblAutomobilContracts>([](CTblAutomobilContracts &) {});
        NewRecord::discard<CTblAutomobilContracts>(key);
        QCOMPARE(before.differences(), QString());
    }

    void aDamagedRowIsSaid()
    {
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, wholeContract());
        run(u"UPDATE BinRows SET oRow=LEFT(oRow,20) WHERE sTable='AutomobilPayments'"_s);
        const SameDatabase before;
        QVERIFY(refusal([&] { BinRestoring::run(entry); }).contains(u"آسیب دیده"_s));
        QCOMPARE(before.differences(), QString());
    }

    // A table that has got a column since, and lost another.
    void rowsOfAnOlderTableComeBackWithDefaults()
    {
        const int key = wholeContract();
        run(u"ALTER TABLE AutomobilContracts ADD COLUMN iLost INT DEFAULT 3"_s);
        const auto drop = qScopeGuard([this] { run(u"ALTER TABLE AutomobilContracts DROP COLUMN IF EXISTS iLost, DROP COLUMN IF EXISTS iNew"_s); });
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, key);
        run(u"ALTER TABLE AutomobilContracts DROP COLUMN iLost, ADD COLUMN iNew INT DEFAULT 4"_s);
        KTableSchema::forgetAll();
        BinRestoring::run(entry);
        QCOMPARE(value(u"SELECT iNew FROM AutomobilContracts WHERE iID=%1"_s.arg(key)), u"4"_s);
        KTableSchema::forgetAll();
    }

    void whatIsOverGoesForGood()
    {
        const Bin::Entry old = remove(u"CarBrands"_s, wholeBrand());
        const Bin::Entry young = remove(u"AutomobilContracts"_s, wholeContract());
        run(u"UPDATE Bin SET date=NOW()-INTERVAL 91 DAY WHERE iID=%1"_s.arg(old.id));
        run(u"UPDATE Bin SET date=NOW()-INTERVAL 89 DAY WHERE iID=%1"_s.arg(young.id));
        QCOMPARE(Bin::removeExpired(), 1);
        QVERIFY(!Bin::entry(old.id) && Bin::entry(young.id));
        QCOMPARE(value(u"SELECT COUNT(*) FROM BinRows WHERE iBinID=%1"_s.arg(old.id)), u"0"_s);
        CTblProperties::DBWriteSettingInt(u"Bin"_s, u"BinDays"_s, 30);
        QCOMPARE(Bin::removeExpired(), 1);
        QCOMPARE(value(u"SELECT COUNT(*) FROM BinRows"_s), u"0"_s);
    }

    void onlyOneDeskAtATimeEmptiesIt()
    {
        const Bin::Entry entry = remove(u"CarBrands"_s, wholeBrand());
        run(u"UPDATE Bin SET date=NOW()-INTERVAL 91 DAY"_s);
        {
            const auto other = KLease::tryTake(u"bin"_s, u"another desk"_s);
            QVERIFY(other);
            QCOMPARE(Bin::removeExpired(), 0);
        }
        GetDBSetting()->SetClosedDB(true);
        const int whileClosed = Bin::removeExpired();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(whileClosed, 0);
        QVERIFY(Bin::entry(entry.id).has_value());
        QCOMPARE(Bin::removeExpired(), 1);
    }

    void onlyAdministratorsDeleteForGood()
    {
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, wholeContract());
        m_office->logInAs(u"sima"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        QVERIFY(!refusal([&] { Bin::remove(entry.id); }).isEmpty());
        QVERIFY(Bin::entry(entry.id).has_value());
        m_office->logInAsAdmin();
        QVERIFY(Bin::remove(entry.id));
        QVERIFY(!Bin::remove(entry.id));
        QCOMPARE(value(u"SELECT COUNT(*) FROM BinRows"_s), u"0"_s);
    }

    void whatBelongsToItIsCountedInWords()
    {
        const Bin::Entry entry = remove(u"AutomobilContracts"_s, wholeContract());
        QCOMPARE(RecordPackage::ofBin(entry.id).contents(), u"سند، 2 قسط، 2 پرونده، 1 فیلد سفارشی، 1 پیگیری"_s);
    }
};

static const RegisteredTest<TestDeletedRecords, QApplication> registeredDeletedRecords;
#include "TestDeletedRecords.moc"

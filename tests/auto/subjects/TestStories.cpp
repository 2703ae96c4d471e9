// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/subjects/CarStory.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/timeline/CDlgStory.h"
#include "suite/accounting/timeline/Story.h"
#include "suite/accounting/timeline/StoryModel.h"
#include "suite/accounting/reports/ListReport.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(StoryEvent::Kind)

// What is told of a car, a person, a contract and a demand, and who is told it.
class TestStories : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office->logInAsAdmin(); }
    void initTestCase();
    void cleanupTestCase() { m_office.reset(); }
    void priceSaysTheDifference_data();
    void priceSaysTheDifference();
    void carTellsEverything_data();
    void carTellsEverything();
    void firstPriceIsAmongTheFacts();
    void newestComesFirst();
    void personHoldsContractsAndMoney();
    void contractTellsItsOwn();
    void demandNamesTheCars();
    void whatMayNotBeReadIsNotTold_data();
    void whatMayNotBeReadIsNotTold();
    void whatHangsOnAContractIsToldWithIt_data();
    void whatHangsOnAContractIsToldWithIt();
    void carsAreNotToldToWhoReadsDemands();
    void remindersOfOthersAreTheirs();
    void oldRowsBeginWithTheirDate();
    void longStoryIsCut();
    void statementsDoNotGrowWithTheStory();
    void goneRecordIsTold();
    void windowKeepsTheChoiceAndSkipsMonths();
    void printedAsShown();

private:
    void fillCar();
    QString value(const QString &query) { return m_office->database().value(query); }
    void run(const QString &statement) { m_office->database().run(statement); }
    static const StoryEvent *find(const Story &story, StoryEvent::Kind kind, const QString &words);

    std::unique_ptr<TestOffice> m_office;
    int m_car = 0;
    int m_owner = 0;
    int m_demand = 0;
    std::unique_ptr<PostedContract> m_contract;
};

const StoryEvent *TestStories::find(const Story &story, StoryEvent::Kind kind, const QString &words)
{
    for (const StoryEvent &event : story.events) {
        if (event.kind == kind && (event.title + u' ' + event.line).contains(words))
            return &event;
    }
    return nullptr;
}

void TestStories::initTestCase()
{
    m_office = std::make_unique<TestOffice>();
    fillCar();
}

void TestStories::fillCar()
{
    const int brand = m_office->addBrand(u"هیوندای"_s);
    const int model = m_office->addModel(brand, u"توسان"_s);
    m_owner = m_office->addPerson(u"کامران"_s, u"پورحسن"_s);
    m_car = m_office->addCar([&](CTblAutomobilInformations &car) {
        car.m_iPersonID = m_owner;
        car.m_iAutomobilType = brand;
        car.m_iModel = model;
        car.m_iYear = 1399;
        car.m_dAmount = 46500;
        car.m_dateIntroduction = GetDBSetting()->GetDBServerDate().addDays(-100);
    });
    run(u"UPDATE Changes SET date=NOW()-INTERVAL 90 DAY WHERE sTable='AutomobilInformations'"_s);
    CTblAutomobilInformations car;
    QVERIFY(car.IsRecordExist(u"iID"_s, m_car));
    car.Edit();
    car.m_dAmount = 45000;
    car.m_oPicture.data = "picture";
    car.m_iFunction = 64500;
    car.Update(true);
    const int customer = m_office->addPerson(u"زهرا"_s, u"صادقی"_s);
    m_demand = m_office->addDemand([&](CTblAutomobilDemands &demand) {
        demand.m_iPersonID = customer;
        demand.m_iAutomobilType = brand;
        demand.m_dateReference = GetDBSetting()->GetDBServerDate().addDays(-3);
    });
    m_contract = std::make_unique<PostedContract>(*m_office);
    run(u"INSERT INTO CarContracts(iCarID,iContractID) VALUES(%1,%2)"_s.arg(m_car).arg(m_contract->key));
    const ReceiptPurpose purpose{.recordKind = CTblAutomobilContracts::recordKind, .recordID = m_contract->key, .what = ReceiptPurpose::Price, .side = 2, .text = u"بهای خودرو"_s};
    PostedContract::receive(m_contract->buyer, 700, u"نقد"_s, purpose);
    run(u"INSERT INTO Cheques(iKind,iState,sNumber,sBank,dAmount,dateDue,iPersonID,iTable,iRecordID,dateCreate) VALUES(0,0,'102030','ملت',900,NOW(),%1,69,%2,NOW())"_s.arg(m_contract->buyer).arg(m_contract->key));
    run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iNum,date,dAmount,iStatus) VALUES(%1,1,NOW()-INTERVAL 2 DAY,500,0),(%1,2,NOW()+INTERVAL 30 DAY,500,0)"_s.arg(m_contract->key));
    run(u"INSERT INTO FileDocs(iTable,iRecordID,sName,iUserID,dateCreate) VALUES(68,%1,'کارت.pdf',%2,NOW()),(68,%1,'of another',0,NULL)"_s.arg(m_car).arg(m_office->adminID()));
    run(u"INSERT INTO Pictures(iTable,iRecordID,iOrder,sName,iUserID,dateCreate) VALUES(68,%1,1,'نما',%2,NOW()),(68,%1,2,'موتور',%2,NOW())"_s.arg(m_car).arg(m_office->adminID()));
    run(u"INSERT INTO Alarms(iTable,iRecordID,iUserID,date,sDesc) VALUES(68,%1,%2,NOW(),'تماس با مالک')"_s.arg(m_car).arg(m_office->adminID()));
    run(u"INSERT INTO FollowUps(iTable,iRecordID,date,sNote,iUserID,iKind,datePromised) VALUES(68,%1,NOW(),'مالک کوتاه می‌آید',%2,2,NOW()+INTERVAL 3 DAY)"_s.arg(m_car).arg(m_office->adminID()));
}

void TestStories::priceSaysTheDifference_data()
{
    QTest::addColumn<double>("before");
    QTest::addColumn<double>("after");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("line");
    QTest::newRow("lower") << 46500.0 << 45000.0 << u"قیمت کم شد"_s << u"از 46,500 به 45,000، 1,500 کمتر"_s;
    QTest::newRow("higher") << 45000.0 << 46000.0 << u"قیمت زیاد شد"_s << u"از 45,000 به 46,000، 1,000 بیشتر"_s;
    QTest::newRow("first") << 0.0 << 46000.0 << u"قیمت گذاشته شد"_s << u"46,000"_s;
    QTest::newRow("none any more") << 45000.0 << 0.0 << u"قیمت برداشته شد"_s << u"45,000 بود"_s;
}

void TestStories::priceSaysTheDifference()
{
    QFETCH(double, before);
    QFETCH(double, after);
    const StoryEvent event = CarStory::priceEvent(before, after);
    QTEST(event.title, "title");
    QTEST(event.line, "line");
    QCOMPARE(event.amount, after);
}

void TestStories::carTellsEverything_data()
{
    QTest::addColumn<StoryEvent::Kind>("kind");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("table");
    using Kind = StoryEvent::Kind;
    QTest::newRow("entered") << Kind::Record << u"خودرو معرفی شد"_s << u"AutomobilInformations"_s;
    QTest::newRow("its owner and price then") << Kind::Record << u"46,500"_s << u"AutomobilInformations"_s;
    QTest::newRow("changed") << Kind::Record << u"کارکرد"_s << u"AutomobilInformations"_s;
    QTest::newRow("price") << Kind::Price << u"از 46,500 به 45,000، 1,500 کمتر"_s << u"AutomobilInformations"_s;
    QTest::newRow("own picture") << Kind::Picture << u"تصویر خودرو گذاشته شد"_s << u"AutomobilInformations"_s;
    QTest::newRow("further pictures") << Kind::Picture << u"2 تصویر افزوده شد نما، موتور"_s << QString();
    QTest::newRow("matched") << Kind::Demand << u"زهرا صادقی"_s << u"AutomobilDemands"_s;
    QTest::newRow("contract") << Kind::Contract << u"رضا احمدی و مریم کریمی"_s << u"AutomobilContracts"_s;
    QTest::newRow("receipt") << Kind::Money << u"دریافت 700"_s << u"Receipts"_s;
    QTest::newRow("cheque") << Kind::Money << u"چک 102030 گرفته شد"_s << u"Cheques"_s;
    QTest::newRow("instalment that was due") << Kind::Money << u"سررسید قسط 1"_s << u"AutomobilContracts"_s;
    QTest::newRow("file") << Kind::File << u"کارت.pdf"_s << QString();
    QTest::newRow("reminder") << Kind::Reminder << u"تماس با مالک"_s << u"Alarms"_s;
    QTest::newRow("call") << Kind::Note << u"تماس: مالک کوتاه می‌آید پیگیری بعدی"_s << u"FollowUps"_s;
}

void TestStories::carTellsEverything()
{
    QFETCH(StoryEvent::Kind, kind);
    QFETCH(QString, words);
    const Story story = Story::read(u"AutomobilInformations"_s, m_car);
    const StoryEvent *event = find(story, kind, words);
    QVERIFY(event);
    QTEST(event->table, "table");
    QVERIFY(event->when.isValid());
    QCOMPARE(event->key != 0, !event->table.isEmpty());
    QCOMPARE(story.head.title, u"هیوندای توسان"_s);
    QVERIFY(story.head.facts.contains(qMakePair(u"مالک"_s, u"کامران پورحسن"_s)));
}

void TestStories::firstPriceIsAmongTheFacts()
{
    const auto fact = [](int car) {
        for (const auto &[label, text] : Story::read(u"AutomobilInformations"_s, car).head.facts) {
            if (label == u"قیمت نخست"_s)
                return text;
        }
        return QString();
    };
    QCOMPARE(fact(m_car), u"46,500"_s);
    // One that never changed says nothing twice.
    QCOMPARE(fact(m_office->addCar([](CTblAutomobilInformations &car) { car.m_dAmount = 700; })), QString());
}

void TestStories::newestComesFirst()
{
    const Story story = Story::read(u"AutomobilInformations"_s, m_car);
    QVERIFY(std::ranges::is_sorted(story.events, [](const StoryEvent &one, const StoryEvent &other) { return one.when > other.when; }));
    QCOMPARE(story.events.constLast().title, u"خودرو معرفی شد"_s);
    // What is still to come has not happened.
    QVERIFY(!find(story, StoryEvent::Kind::Money, u"قسط 2"_s));
    QVERIFY(!story.hasMore);
}

void TestStories::personHoldsContractsAndMoney()
{
    const Story buyer = Story::read(u"Persons"_s, m_contract->buyer);
    QVERIFY(find(buyer, StoryEvent::Kind::Contract, u"قرارداد"_s));
    QVERIFY(find(buyer, StoryEvent::Kind::Money, u"دریافت 700"_s));
    QVERIFY(find(buyer, StoryEvent::Kind::Money, u"102030"_s));
    // The other side's money is not theirs.
    const Story seller = Story::read(u"Persons"_s, m_contract->seller);
    QVERIFY(find(seller, StoryEvent::Kind::Contract, u"قرارداد"_s));
    QVERIFY(!find(seller, StoryEvent::Kind::Money, u"دریافت 700"_s));
    QVERIFY(find(Story::read(u"Persons"_s, m_owner), StoryEvent::Kind::Record, u"معرفی کرد"_s));
}

void TestStories::contractTellsItsOwn()
{
    CTblAutomobilContracts contract;
    m_contract->load(contract);
    // What is changed right after it was added is one entry with that.
    run(u"UPDATE Changes SET date=NOW()-INTERVAL 1 DAY WHERE sTable='AutomobilContracts'"_s);
    contract.Edit();
    contract.m_bReturn = 1;
    contract.Update(true);
    const Story story = Story::read(u"AutomobilContracts"_s, m_contract->key);
    QVERIFY(find(story, StoryEvent::Kind::Contract, u"برگشت خورد"_s));
    QVERIFY(find(story, StoryEvent::Kind::Money, u"دریافت 700"_s));
    QVERIFY(!find(story, StoryEvent::Kind::Contract, u"نوشته شد"_s));
    const Story car = Story::read(u"AutomobilInformations"_s, m_car);
    QVERIFY(find(car, StoryEvent::Kind::Contract, u"برگشت خورد"_s));
}

void TestStories::demandNamesTheCars()
{
    const Story story = Story::read(u"AutomobilDemands"_s, m_demand);
    const StoryEvent *match = find(story, StoryEvent::Kind::Demand, u"هیوندای توسان"_s);
    QVERIFY(match);
    QCOMPARE(match->key, m_car);
    QCOMPARE(story.head.title, u"تقاضای زهرا صادقی"_s);
}

void TestStories::whatMayNotBeReadIsNotTold_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<bool>("seesReceipts");
    QTest::addColumn<bool>("seesContracts");
    QTest::newRow("the car alone") << QString() << false << false;
    QTest::newRow("receipts too") << u"Receipts"_s << true << false;
    QTest::newRow("contracts too") << u"AutomobilContracts"_s << false << true;
}

void TestStories::whatMayNotBeReadIsNotTold()
{
    QFETCH(QString, form);
    const int user = m_office->logInAs(u"user of %1"_s.arg(form), u"AutomobilInformations"_s, KSecurity::Read);
    if (!form.isEmpty())
        KSecurity::setRights(user, form, KSecurity::Read);
    KSecurity::forgetRights();
    const Story story = Story::read(u"AutomobilInformations"_s, m_car);
    QTEST(find(story, StoryEvent::Kind::Money, u"دریافت"_s) != nullptr, "seesReceipts");
    QTEST(find(story, StoryEvent::Kind::Contract, u"قرارداد"_s) != nullptr, "seesContracts");
    QVERIFY(find(story, StoryEvent::Kind::Price, u"45,000"_s));
    QVERIFY(!Story::isOffered(u"Persons"_s));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, Story::read(u"Persons"_s, m_owner));
}

void TestStories::whatHangsOnAContractIsToldWithIt_data()
{
    QTest::addColumn<bool>("readsContracts");
    QTest::newRow("the car alone") << false;
    QTest::newRow("contracts too") << true;
}

// Files, pictures, notes and reminders have no right of their own: theirs is the contract's.
void TestStories::whatHangsOnAContractIsToldWithIt()
{
    QFETCH(bool, readsContracts);
    const int user = m_office->logInAs(u"reader of files %1"_s.arg(readsContracts), u"AutomobilInformations"_s, KSecurity::Read);
    if (readsContracts)
        KSecurity::setRights(user, u"AutomobilContracts"_s, KSecurity::Read);
    KSecurity::forgetRights();
    const int kind = CTblAutomobilContracts::recordKind;
    run(u"INSERT INTO FileDocs(iTable,iRecordID,sName,iUserID,dateCreate) VALUES(%1,%2,'مبایعه نامه.pdf',%3,NOW())"_s.arg(kind).arg(m_contract->key).arg(m_office->adminID()));
    run(u"INSERT INTO Pictures(iTable,iRecordID,iOrder,sName,iUserID,dateCreate) VALUES(%1,%2,1,'صفحه امضا',%3,NOW())"_s.arg(kind).arg(m_contract->key).arg(m_office->adminID()));
    run(u"INSERT INTO FollowUps(iTable,iRecordID,date,sNote,iUserID,iKind) VALUES(%1,%2,NOW(),'خریدار تخفیف می‌خواهد',%3,1)"_s.arg(kind).arg(m_contract->key).arg(m_office->adminID()));
    run(u"INSERT INTO Alarms(iTable,iRecordID,iUserID,date,sDesc) VALUES(%1,%2,%3,NOW(),'امضای قرارداد')"_s.arg(kind).arg(m_contract->key).arg(user));
    const Story story = Story::read(u"AutomobilInformations"_s, m_car);
    QCOMPARE(find(story, StoryEvent::Kind::File, u"مبایعه نامه.pdf"_s) != nullptr, readsContracts);
    QCOMPARE(find(story, StoryEvent::Kind::Picture, u"صفحه امضا"_s) != nullptr, readsContracts);
    QCOMPARE(find(story, StoryEvent::Kind::Note, u"خریدار تخفیف می‌خواهد"_s) != nullptr, readsContracts);
    QCOMPARE(find(story, StoryEvent::Kind::Reminder, u"امضای قرارداد"_s) != nullptr, readsContracts);
    QVERIFY(find(story, StoryEvent::Kind::File, u"کارت.pdf"_s));
    for (const QString &table : {u"FileDocs"_s, u"Pictures"_s, u"FollowUps"_s, u"Alarms"_s})
        run(u"DELETE FROM %1 WHERE iTable=%2 AND iRecordID=%3"_s.arg(table).arg(kind).arg(m_contract->key));
}

void TestStories::carsAreNotToldToWhoReadsDemands()
{
    const int user = m_office->logInAs(u"reader of demands"_s, u"AutomobilDemands"_s, KSecurity::Read);
    QVERIFY(!find(Story::read(u"AutomobilDemands"_s, m_demand), StoryEvent::Kind::Demand, u"هیوندای توسان"_s));
    KSecurity::setRights(user, u"AutomobilInformations"_s, KSecurity::Read);
    KSecurity::forgetRights();
    QVERIFY(find(Story::read(u"AutomobilDemands"_s, m_demand), StoryEvent::Kind::Demand, u"هیوندای توسان"_s));
}

void TestStories::remindersOfOthersAreTheirs()
{
    m_office->logInAs(u"reader"_s, u"AutomobilInformations"_s, KSecurity::Read);
    QVERIFY(!find(Story::read(u"AutomobilInformations"_s, m_car), StoryEvent::Kind::Reminder, u"تماس با مالک"_s));
}

void TestStories::oldRowsBeginWithTheirDate()
{
    const int car = m_office->addCar();
    run(u"DELETE FROM Changes WHERE sTable='AutomobilInformations' AND iRecordID=%1"_s.arg(car));
    run(u"UPDATE AutomobilInformations SET dateCreate='2020-01-02 10:11:12' WHERE iID=%1"_s.arg(car));
    const Story story = Story::read(u"AutomobilInformations"_s, car);
    QCOMPARE(story.events.size(), 1);
    QCOMPARE(story.events.constFirst().title, u"خودرو معرفی شد"_s);
    QCOMPARE(story.events.constFirst().when.date(), QDate(2020, 1, 2));
}

void TestStories::longStoryIsCut()
{
    const int car = m_office->addCar();
    QStringList rows;
    for (int i = 0; i < 30; ++i)
        rows.append(u"(68,%1,NOW()-INTERVAL %2 DAY,'note %2',1)"_s.arg(car).arg(i));
    run(u"INSERT INTO FollowUps(iTable,iRecordID,date,sNote,iKind) VALUES"_s + rows.join(u','));
    const Story some = Story::read(u"AutomobilInformations"_s, car, 10);
    QCOMPARE(some.events.size(), 10);
    QVERIFY(some.hasMore);
    const Story all = Story::read(u"AutomobilInformations"_s, car, 100);
    QCOMPARE(all.events.size(), 31);
    QVERIFY(!all.hasMore);
}

void TestStories::statementsDoNotGrowWithTheStory()
{
    const auto statements = [this](int car) {
        // A union begins with its bracket.
        const ObservedStatements observed({u"SELECT"_s, u"(SELECT"_s});
        Story::read(u"AutomobilInformations"_s, car);
        return observed.taken();
    };
    const int bare = m_office->addCar();
    statements(bare); // what is read once per program
    const QStringList few = statements(bare);
    const QStringList many = statements(m_car);
    QVERIFY2(many.size() <= 12, qPrintable(many.join(u'\n')));
    QVERIFY2(many.size() - few.size() <= 5, qPrintable(few.join(u'\n')));
}

void TestStories::goneRecordIsTold()
{
    QVERIFY_THROWS_EXCEPTION(KAccountingError, Story::read(u"AutomobilInformations"_s, 987654));
    QVERIFY_THROWS_EXCEPTION(KAccountingError, Story::read(u"CarBrands"_s, 1));
}

void TestStories::windowKeepsTheChoiceAndSkipsMonths()
{
    {
        CDlgStory window(u"AutomobilInformations"_s, m_car);
        window.resize(1200, 700);
        window.show();
        QVERIFY(window.model()->event(window.list()->currentIndex()));
        QVERIFY(!window.model()->event(window.model()->index(0)));
        QTest::keyClick(window.list(), Qt::Key_End);
        const StoryEvent *last = window.model()->event(window.list()->currentIndex());
        QVERIFY(last);
        QCOMPARE(last->title, u"خودرو معرفی شد"_s);
        QPushButton *prices = window.kindSwitch(StoryEvent::Kind::Price);
        QVERIFY(prices);
        prices->click();
        QTRY_COMPARE(window.model()->rowCount(), 2);
        window.OnClosing();
    }
    CDlgStory again(u"AutomobilInformations"_s, m_car);
    QCOMPARE(again.model()->rowCount(), 2);
    again.setKinds({});
    QVERIFY(again.model()->rowCount() > 10);
}

void TestStories::printedAsShown()
{
    CDlgStory window(u"AutomobilInformations"_s, m_car);
    window.setKinds({StoryEvent::Kind::Price});
    const QVector<KListModel::Row> rows = window.report().rows();
    window.setKinds({});
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.constFirst().cells.at(3).text, u"قیمت کم شد"_s);
    QCOMPARE(rows.constFirst().cells.at(5).value.toDouble(), 45000.0);
}

static const RegisteredTest<TestStories, QApplication> registeredStories;
#include "TestStories.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/today/AutoToday.h"

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/overdue/CDlgOverdueInstalments.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/today/LotToday.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/today/TodayReader.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/subjects/CrmToday.h"
#include "suite/treasury/cheques/CDlgCheques.h"
#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/treasury/subjects/TreasuryToday.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

// What the day holds, on a small office, against what the tables and the lists say by themselves.
class TestAutoToday : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_office.reset(); }
    void init();
    void instalmentTellsWhatIsLeftOfIt();
    void whatDoesNotCountIsNoInstalment_data();
    void whatDoesNotCountIsNoInstalment();
    void unsettledContractsAreThoseThatOweByTheirDocument();
    void carsStandFromTheDayOfTheirIntroduction();
    void newCarIsToldWithTheDemandThatItFits();
    void insuranceEndsOnTheDayInItsWords_data();
    void insuranceEndsOnTheDayInItsWords();
    void birthdayIsThatOfTheShamsiYear();
    void plannedCallsStandBelowTheReminders();
    void monthsAddUpTheTables();
    void listBehindACardShowsAsMany();
    void oneStatementForEachSource();
    void cardsFollowTheRights();
    void demandsAloneTellNoCars();
    void incomeIsToldWithTheReport();
    void whatChangedWhileReadingIsReadAgain();

private:
    static QDate today() { return GetDBSetting()->GetDBServerDate().date(); }
    static QDateTime at(int inDays) { return QDateTime(today().addDays(inDays), QTime(0, 0), Qt::UTC); }
    static TodayContent card(const QString &id) { return TodayReader::readNow().cards.value(id); }
    int addContract(int daysAgo, const std::function<void(CTblAutomobilContracts &)> &more = {});
    int addInstalment(int contract, int number, int inDays, double amount);
    int receive(int contract, int person, int payment, double amount);
    QString value(const QString &query) { return m_office->database().value(query); }

    std::unique_ptr<TestOffice> m_office;
    int m_seller = 0;
    int m_buyer = 0;
};

void TestAutoToday::initTestCase()
{
    m_office = std::make_unique<TestOffice>();
    TreasuryToday::enter();
    CrmToday::enter();
    AutoToday::enter();
}

void TestAutoToday::init()
{
    m_office->logInAsAdmin();
    m_office->clear();
    m_seller = m_office->addPerson(u"علی"_s, u"شیرازی"_s);
    m_buyer = m_office->addPerson(u"مریم"_s, u"کریمی"_s);
}

int TestAutoToday::addContract(int daysAgo, const std::function<void(CTblAutomobilContracts &)> &more)
{
    return m_office->addContract([&](CTblAutomobilContracts &contract) {
        contract.m_iPersonFirstID = m_seller;
        contract.m_iPersonSecondID = m_buyer;
        contract.m_sName1 = u"علی شیرازی"_s;
        contract.m_sName2 = u"مریم کریمی"_s;
        contract.m_iPersonContract1 = 0;
        contract.m_iPersonContract2 = 0;
        contract.m_dateContract = at(-daysAgo);
        if (more)
            more(contract);
    });
}

int TestAutoToday::addInstalment(int contract, int number, int inDays, double amount)
{
    m_office->database().run(u"INSERT INTO AutomobilPayments(iDepartmentID,iAutomobilContractID,iPersonID,iNum,date,dAmount,iStatus) SELECT %5,%1,"
                             "iPersonSecondID,%2,CURDATE()+INTERVAL %3 DAY,%4,0 FROM AutomobilContracts WHERE iID=%1"_s.arg(contract)
                                 .arg(number)
                                 .arg(inDays)
                                 .arg(amount, 0, 'f', 2)
                                 .arg(GetDBSetting()->GetDepartmentID()));
    return value(u"SELECT MAX(iID) FROM AutomobilPayments"_s).toInt();
}

int TestAutoToday::receive(int contract, int person, int payment, double amount)
{
    ReceiptPosting::Handover handover;
    handover.personID = person;
    handover.date = GetDBSetting()->GetDBServerDate();
    handover.account = Accounts::cash;
    ReceiptPurpose purpose;
    purpose.recordKind = CTblAutomobilContracts::recordKind;
    purpose.recordID = contract;
    purpose.paymentID = payment;
    purpose.what = payment > 0 ? ReceiptPurpose::Instalment : ReceiptPurpose::Commission;
    purpose.side = person == m_seller ? 1 : 2;
    purpose.text = u"دریافت"_s;
    handover.parts = {{amount, u"دریافت"_s, purpose}};
    return ReceiptPosting::save(handover).constFirst().receiptID;
}

void TestAutoToday::instalmentTellsWhatIsLeftOfIt()
{
    const int contract = addContract(20, [](CTblAutomobilContracts &record) { record.m_iContractType = 2; });
    const int late = addInstalment(contract, 1, -12, 1000);
    addInstalment(contract, 2, 0, 1000);
    addInstalment(contract, 3, 1, 1000);
    addInstalment(contract, 4, 8, 1000);
    receive(contract, m_buyer, late, 300);
    const TodayContent content = card(u"instalments"_s);
    QCOMPARE(content.count, 3);
    QCOMPARE(content.tone, TodayTone::Overdue);
    QStringList lines;
    for (const TodayLine &line : content.lines)
        lines.append(u"%1|%2|%3|%4"_s.arg(line.name, line.line, QString::number(*line.amount), line.chip));
    QCOMPARE(lines, (QStringList{u"مریم کریمی|قسط 1، قرارداد 1|700|12 روز گذشته"_s, u"مریم کریمی|قسط 2، قرارداد 1|1000|امروز"_s, u"مریم کریمی|قسط 3، قرارداد 1|1000|فردا"_s}));
    QCOMPARE(content.lines.at(0).key, late);
}

void TestAutoToday::whatDoesNotCountIsNoInstalment_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("paid") << u"UPDATE AutomobilPayments SET iStatus=1"_s;
    QTest::newRow("of a void contract") << u"UPDATE AutomobilContracts SET iStatus=1"_s;
    QTest::newRow("of an archived contract") << u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s;
    QTest::newRow("too far ahead") << u"UPDATE AutomobilPayments SET date=CURDATE()+INTERVAL 8 DAY"_s;
}

void TestAutoToday::whatDoesNotCountIsNoInstalment()
{
    QFETCH(QString, statement);
    addInstalment(addContract(20), 1, -1, 1000);
    QCOMPARE(card(u"instalments"_s).count, 1);
    m_office->database().run(statement);
    QCOMPARE(card(u"instalments"_s).count, 0);
}

void TestAutoToday::unsettledContractsAreThoseThatOweByTheirDocument()
{
    const auto withCommission = [](CTblAutomobilContracts &contract) { contract.m_dCommission = 1000; };
    const int paid = addContract(30, withCommission);
    const int half = addContract(20, withCommission);
    addContract(3, withCommission);
    addContract(400, withCommission);
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, half));
    const double first = ContractDues::charged(contract, 1, false);
    const double second = ContractDues::charged(contract, 2, false);
    QVERIFY(first + second > 0);
    for (const int key : {paid, half}) {
        if (first > 0)
            receive(key, m_seller, 0, first);
    }
    if (second > 0)
        receive(paid, m_buyer, 0, second);
    const TodayContent content = card(u"unsettled"_s);
    QCOMPARE(content.count, 1);
    QCOMPARE(content.lines.at(0).key, half);
    QCOMPARE(*content.lines.at(0).amount, ContractDues::commission(contract, 1, false).rest() + ContractDues::commission(contract, 2, false).rest());
    QCOMPARE(content.lines.at(0).chip, u"20 روز"_s);
}

void TestAutoToday::carsStandFromTheDayOfTheirIntroduction()
{
    const auto since = [](int days, bool sold = false) {
        return [days, sold](CTblAutomobilInformations &car) {
            car.m_dateIntroduction = at(-days);
            car.m_dAmount = 900;
            car.m_dPurchasePriceOfOwner = 700;
            car.m_dAutomobilExpenses = 50;
            car.m_bSold = sold;
        };
    };
    const int old = m_office->addCar(since(100));
    const int just = m_office->addCar(since(45));
    m_office->addCar(since(44));
    m_office->addCar(since(300, true));
    const TodayContent content = card(u"standing"_s);
    QCOMPARE(content.count, 2);
    QCOMPARE(content.lines.at(0).key, old);
    QCOMPARE(content.lines.at(0).tone, TodayTone::Overdue);
    QCOMPARE(*content.lines.at(0).amount, 150.0);
    QCOMPARE(content.lines.at(1).key, just);
    QCOMPARE(content.lines.at(1).tone, TodayTone::Due);
}

void TestAutoToday::newCarIsToldWithTheDemandThatItFits()
{
    const int brand = m_office->addBrand(u"پژو"_s);
    const auto car = [brand](int daysAgo) {
        return [brand, daysAgo](CTblAutomobilInformations &record) {
            record.m_iAutomobilType = brand;
            record.m_dateCreate = at(-daysAgo);
            record.m_dAmount = 500;
        };
    };
    const int fresh = m_office->addCar(car(1));
    m_office->addCar(car(2));
    m_office->addDemand([&](CTblAutomobilDemands &demand) {
        demand.m_iPersonID = m_buyer;
        demand.m_iAutomobilType = brand;
        demand.m_dAmountUpTo = 600;
    });
    m_office->addDemand([&](CTblAutomobilDemands &demand) {
        demand.m_iPersonID = m_seller;
        demand.m_iAutomobilType = brand;
        demand.m_dAmountUpTo = 400;
    });
    const TodayContent content = card(u"matches"_s);
    QCOMPARE(content.count, 1);
    QCOMPARE(content.lines.size(), 1);
    QCOMPARE(content.lines.at(0).key, fresh);
    QCOMPARE(content.lines.at(0).line, u"مریم کریمی"_s);
    QCOMPARE(content.lines.at(0).chip, u"100٪"_s);
}

void TestAutoToday::insuranceEndsOnTheDayInItsWords_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QDate>("day");
    const QDate day = ConvertToMiladi(1405, 9, 30);
    QTest::newRow("day alone") << u"1405/09/30"_s << day;
    QTest::newRow("among words") << u"شخص ثالث تا 1405/9/30، بدنه ندارد"_s << day;
    QTest::newRow("Persian digits") << u"بیمه تا ۱۴۰۵/۰۹/۳۰"_s << day;
    QTest::newRow("no day") << u"8 ماه"_s << QDate();
    QTest::newRow("a day that is none") << u"1405/13/01"_s << QDate();
    QTest::newRow("nothing") << QString() << QDate();
}

void TestAutoToday::insuranceEndsOnTheDayInItsWords()
{
    QFETCH(QString, words);
    QFETCH(QDate, day);
    QCOMPARE(LotToday::dayIn(words), day);
}

void TestAutoToday::birthdayIsThatOfTheShamsiYear()
{
    const ShamsiDate now = GetShamsi(today());
    const auto born = [](const QDate &day) { return [day](CTblPersons &person) { person.m_dateBirth = QDateTime(day, QTime(0, 0), Qt::UTC); }; };
    const QDate thirty = ConvertToMiladi(now.year - 30, now.month, std::min(now.day, shamsiDaysInMonth(now.year - 30, now.month)));
    const int celebrating = m_office->addPerson(u"زهرا"_s, u"صادقی"_s, born(thirty));
    m_office->addPerson(u"رضا"_s, u"مرادی"_s, born(thirty.addDays(-1)));
    const TodayContent content = card(u"birthdays"_s);
    QCOMPARE(content.count, 1);
    QCOMPARE(content.lines.at(0).key, celebrating);
    QCOMPARE(content.lines.at(0).chip, u"30 سالگی"_s);
}

void TestAutoToday::plannedCallsStandBelowTheReminders()
{
    const int user = GetDBSetting()->GetUserID();
    const int person = m_buyer;
    const auto say = [&](int kind, int about, int record, int by, int inDays, const QString &words) {
        m_office->database().run(u"INSERT INTO FollowUps(iTable,iRecordID,iKind,iUserID,date,sNote,datePromised) VALUES(%1,%2,%3,%4,NOW(),'%5',CURDATE()+INTERVAL %6 DAY)"_s.arg(about).arg(record).arg(kind).arg(by).arg(words).arg(inDays));
    };
    say(CTblFollowUps::call, RecordKind::Person, person, user, 0, u"امروز زنگ بزنم"_s);
    say(CTblFollowUps::note, CTblAutomobilContracts::recordKind, addContract(3), user, -4, u"سند را بگیرم"_s);
    say(CTblFollowUps::note, RecordKind::Person, m_seller, user, 1, u"فردا"_s);
    say(CTblFollowUps::note, RecordKind::Person, m_seller + 100, user + 1, 0, u"از دیگری"_s);
    say(CTblFollowUps::due, RecordKind::Person, m_seller + 200, user, 0, u"وعده"_s);
    m_office->database().run(u"INSERT INTO Alarms(iUserID,iStatus,date,sDesc) VALUES(%1,0,CURDATE()+INTERVAL 9 HOUR,'یادآور')"_s.arg(user));
    const TodayContent notes = card(u"notes"_s);
    QStringList lines;
    for (const TodayLine &line : notes.lines)
        lines.append(u"%1|%2|%3|%4"_s.arg(line.table, line.name, line.line, line.chip));
    QCOMPARE(lines, (QStringList{u"FollowUps|سند را بگیرم|قرارداد 1|4 روز گذشته"_s, u"FollowUps|امروز زنگ بزنم|مریم کریمی|امروز"_s}));
    QCOMPARE(notes.count, 2);
    const TodayContent reminders = card(u"reminders"_s);
    QCOMPARE(reminders.count, 1);
    QCOMPARE(reminders.lines.at(0).chip, u"09:00"_s);
    // Something was said about him since.
    say(CTblFollowUps::note, RecordKind::Person, person, user, 9, u"زنگ زدم"_s);
    QCOMPARE(card(u"notes"_s).count, 1);
}

void TestAutoToday::monthsAddUpTheTables()
{
    const QDate first = ConvertToMiladi(GetShamsi(today()).year, GetShamsi(today()).month, 1);
    const int intoMonth = int(first.daysTo(today()));
    const auto worth = [](CTblAutomobilContracts &contract) {
        contract.m_dAmount = 1000;
        contract.m_dCommission = 10;
    };
    addContract(0, worth);
    addContract(intoMonth, worth);
    addContract(intoMonth + 1, worth);
    addContract(0, [&](CTblAutomobilContracts &contract) {
        worth(contract);
        contract.m_iStatus = 1;
    });
    const std::optional<TodayFigures> figures = TodayReader::readNow().figures;
    QVERIFY(figures);
    QCOMPARE(figures->months[0].contracts, 2);
    QCOMPARE(figures->months[0].amount, 2000.0);
    QCOMPARE(figures->months[0].commission, 20.0);
    QCOMPARE(figures->months[1].contracts, 1);
    QCOMPARE(figures->months[0].name, shamsiMonthName(GetShamsi(today()).month));
    QCOMPARE(figures->income.size(), qsizetype(intoMonth + 1));
}

// Each card's "همه" against its count: the list asks by other statements.
void TestAutoToday::listBehindACardShowsAsMany()
{
    const int contract = addContract(30, [](CTblAutomobilContracts &record) { record.m_dCommission = 1000; });
    addInstalment(contract, 1, -3, 500);
    addInstalment(contract, 2, 5, 500);
    addInstalment(contract, 3, 50, 500);
    m_office->addCar([](CTblAutomobilInformations &car) {
        car.m_dateIntroduction = at(-90);
        car.m_sInsuranceStatus = u"تا "_s + shamsiText(today().addDays(3));
    });
    m_office->addCar();
    m_office->database().run(u"INSERT INTO Cheques(iKind,iState,sSayad,dAmount,dateDue,iPersonID) VALUES(0,0,'1234567890123456',5,CURDATE(),%1),"
                             "(1,0,'1234567890123457',6,CURDATE()+INTERVAL 7 DAY,%1),(0,0,'1234567890123458',7,CURDATE()+INTERVAL 8 DAY,%1)"_s.arg(m_buyer));
    const auto listed = [](auto &page, const TodayContent &content) {
        page.setRequest(content.request);
        page.open();
        return qint64(page.list()->count());
    };
    const TodayState state = TodayReader::readNow();
    QCOMPARE(state.trouble, QString());
    const auto content = [&](const QString &id) { return state.cards.value(id); };
    CDlgOverdueInstalments desk;
    QCOMPARE(content(u"instalments"_s).count, 2);
    QCOMPARE(listed(desk, content(u"instalments"_s)), 2);
    CDlgAutomobilContracts contracts;
    QCOMPARE(content(u"unsettled"_s).count, 1);
    QCOMPARE(listed(contracts, content(u"unsettled"_s)), 1);
    for (const QString &id : {u"standing"_s, u"insurance"_s}) {
        CDlgAutomobilInformations cars;
        QCOMPARE(content(id).count, 1);
        QCOMPARE(listed(cars, content(id)), 1);
    }
    CDlgCheques cheques;
    QCOMPARE(content(u"cheques"_s).count, 2);
    QCOMPARE(listed(cheques, content(u"cheques"_s)), 2);
    CDlgAutomobilInformations none;
    QCOMPARE(content(u"matches"_s).count, 0);
    QCOMPARE(listed(none, content(u"matches"_s)), 0);
}

void TestAutoToday::oneStatementForEachSource()
{
    addInstalment(addContract(30), 1, -3, 500);
    TodayReader::readNow();
    const ObservedStatements observed({u"SELECT"_s, u"SHOW"_s});
    TodayReader::readNow();
    const QStringList taken = observed.taken();
    QVERIFY2(taken.size() <= 10, qPrintable(taken.join(u'\n')));
    QVERIFY(taken.size() >= 8);
}

void TestAutoToday::cardsFollowTheRights()
{
    addInstalment(addContract(30), 1, -3, 500);
    m_office->logInAs(u"فقط خودرو"_s, u"AutomobilInformations"_s, KSecurity::allRights);
    const TodayState state = TodayReader::readNow();
    QStringList cards = state.cards.keys();
    cards.sort();
    QCOMPARE(cards, (QStringList{u"insurance"_s, u"notes"_s, u"reminders"_s, u"standing"_s}));
    QVERIFY(!state.figures);
}

void TestAutoToday::demandsAloneTellNoCars()
{
    const int user = m_office->logInAs(u"فقط تقاضا"_s, u"AutomobilDemands"_s, KSecurity::Read);
    QVERIFY(!TodayReader::readNow().cards.contains(u"matches"_s));
    KSecurity::setRights(user, u"AutomobilInformations"_s, KSecurity::Read);
    KSecurity::forgetRights();
    QVERIFY(TodayReader::readNow().cards.contains(u"matches"_s));
}

// Who writes contracts sees how many there are; what the office earns and spends is the report's.
void TestAutoToday::incomeIsToldWithTheReport()
{
    addContract(0);
    const int user = m_office->logInAs(u"فروشنده"_s, u"AutomobilContracts"_s, KSecurity::Read);
    const std::optional<TodayFigures> without = TodayReader::readNow().figures;
    QVERIFY(without);
    QCOMPARE(without->months[0].contracts, 1);
    QVERIFY(without->income.isEmpty());
    QVERIFY(without->expenses.isEmpty());
    KSecurity::setRights(user, u"AutoFullReport"_s, KSecurity::Access);
    KSecurity::forgetRights();
    const std::optional<TodayFigures> with = TodayReader::readNow().figures;
    QVERIFY(with);
    QVERIFY(!with->income.isEmpty());
    QVERIFY(!with->expenses.isEmpty());
}

void TestAutoToday::whatChangedWhileReadingIsReadAgain()
{
    QList<qint64> counts;
    TodayReader reader([&](const TodayState &state) { counts.append(state.cards.value(u"instalments"_s).count); });
    reader.read();
    addInstalment(addContract(30), 1, -3, 500);
    // Asked twice while the first reading is under way or has not told yet: once more is enough.
    reader.read();
    reader.read();
    QTRY_COMPARE(counts.size(), 2);
    QCOMPARE(counts.constLast(), 1);
    QTRY_VERIFY(!reader.isReading());
    QCoreApplication::processEvents();
    QCOMPARE(counts.size(), 2);
}

static const RegisteredTest<TestAutoToday, QApplication> registeredAutoToday;
#include "TestAutoToday.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/CDlgOverdueInstalments.h"

#include "auto/contracts/overdue/DueDays.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// The overdue desk on a small office, against what the tables say by themselves.
class TestOverdueInstalments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init();
    void rowSaysWhomToCallAndWhatIsOpen();
    void filterBySpan_data();
    void filterBySpan();
    void whatDoesNotCountIsLeftOut_data();
    void whatDoesNotCountIsLeftOut();
    void restIsWhatValidReceiptsLeaveOver();
    void sumsAreThoseOfTheTables();
    void lastOneOfAPlanCarriesWhatRoundingLeftOver();
    void departmentsHavePlansOfTheirOwn();
    void buyerTypedByHandIsNamedByTheContract();
    void lateFeeFollowsTheSettings();
    void lastCallIsShownAndFilteredBy();
    void statementsDoNotGrowWithTheRows();
    void noteIsAddedFromTheDesk();
    void noteOfAnInstalmentThatIsGoneIsRefused();
    void receivingFromTheDeskTakesTheRowAway();
    void deskOfOneContractShowsAllThatIsOpen();
    void contractIsAskedForByTheNumberItIsCalledBy();
    void amountsOfOtherContractsAreNotRead();
    void planReplacedMeanwhileIsTold();
    void notesGoWithTheirContract();
    void commandsNeedTheirRights();
    void closedDatabaseOffersNothingToChange();
    void pageNeedsTheRight();

private:
    static QDate today() { return GetDBSetting()->GetDBServerDate().date(); }
    int addContract(int buyer, const std::function<void(CTblAutomobilContracts &)> &more = {});
    // Of the contract, due in that many days; its key.
    int addInstalment(int contract, int number, int inDays, double amount, bool paid = false);
    int receive(int contract, int payment, double amount);
    QString value(const QString &query) { return m_office->database().value(query); }
    void open(CDlgOverdueInstalments &page, int span);
    static QStringList column(const CDlgOverdueInstalments &page, QStringView key);

    std::unique_ptr<TestOffice> m_office;
    int m_buyer = 0;
    int m_contract = 0;
    int m_late = 0;
    int m_today = 0;
    int m_soon = 0;
    int m_far = 0;
};

void TestOverdueInstalments::init()
{
    m_office->clear();
    m_office->database().run(u"DELETE FROM FollowUps"_s);
    m_buyer = m_office->addPerson(u"مریم"_s, u"کریمی"_s, [](CTblPersons &person) { person.m_sMobile = u"09121234567"_s; });
    m_contract = addContract(m_buyer);
    m_late = addInstalment(m_contract, 1, -10, 1000);
    m_today = addInstalment(m_contract, 2, 0, 1000);
    m_soon = addInstalment(m_contract, 3, 30, 1000);
    m_far = addInstalment(m_contract, 4, 400, 1000);
    g_pDlgWarning->takeShown();
    g_pDlgMessage->takeShown();
}

int TestOverdueInstalments::addContract(int buyer, const std::function<void(CTblAutomobilContracts &)> &more)
{
    return m_office->addContract([&](CTblAutomobilContracts &contract) {
        contract.m_iContractType = 2;
        contract.m_iPersonSecondID = buyer;
        contract.m_iDocNum = 7;
        if (more)
            more(contract);
    });
}

int TestOverdueInstalments::addInstalment(int contract, int number, int inDays, double amount, bool paid)
{
    m_office->database().run(
        u"INSERT INTO AutomobilPayments(iDepartmentID,iAutomobilContractID,iPersonID,iNum,date,dAmount,iStatus) SELECT %6,%1,iPersonSecondID,%2,"
        "CURDATE()+INTERVAL %3 DAY,%4,%5 FROM AutomobilContracts WHERE iID=%1"_s.arg(contract)
            .arg(number)
            .arg(inDays)
            .arg(amount, 0, 'f', 6)
            .arg(paid ? 1 : 0)
            .arg(GetDBSetting()->GetDepartmentID()));
    return value(u"SELECT MAX(iID) FROM AutomobilPayments"_s).toInt();
}

int TestOverdueInstalments::receive(int contract, int payment, double amount)
{
    ReceiptPosting::Handover handover;
    handover.personID = m_buyer;
    handover.date = GetDBSetting()->GetDBServerDate();
    handover.account = Accounts::cash;
    ReceiptPurpose purpose;
    purpose.recordKind = CTblAutomobilContracts::recordKind;
    purpose.recordID = contract;
    purpose.paymentID = payment;
    purpose.what = ReceiptPurpose::Instalment;
    purpose.text = u"قسط"_s;
    handover.parts = {{amount, u"قسط"_s, purpose}};
    return ReceiptPosting::save(handover).constFirst().receiptID;
}

void TestOverdueInstalments::open(CDlgOverdueInstalments &page, int span)
{
    page.filters().set(u"span", span);
    page.open();
}

QStringList TestOverdueInstalments::column(const CDlgOverdueInstalments &page, QStringView key)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts.append(page.list()->cellText(row, key));
    return texts;
}

void TestOverdueInstalments::rowSaysWhomToCallAndWhatIsOpen()
{
    receive(m_contract, m_late, 300);
    CDlgOverdueInstalments page;
    QCOMPARE(page.title(), u"اقساط و سررسیدها"_s);
    page.open();
    // What is due by today, at first.
    QCOMPARE(page.list()->count(), 2);
    QStringList cells;
    for (const QStringView key : {u"due", u"days", u"person", u"mobile", u"contract", u"car", u"number", u"amount", u"received", u"rest", u"lateFee", u"note", u"promised"})
        cells.append(page.list()->cellText(0, key));
    QCOMPARE(cells.join(u'|'), u"%1|10|مریم کریمی|09121234567|1|پراید|1|1,000|300|700|||"_s.arg(shamsiText(today().addDays(-10))));
    for (const QStringView key : {u"due", u"days", u"rest"}) {
        const int column = page.list()->columnOf(key);
        QVERIFY(page.list()->listModel()->rows().at(0).cells.at(column).warning);
        QVERIFY(!page.list()->listModel()->rows().at(1).cells.at(column).warning);
    }
    QCOMPARE(page.totalText(), u"جمع مانده : 1,700     معوق : 700"_s);
}

void TestOverdueInstalments::filterBySpan_data()
{
    QTest::addColumn<int>("span");
    QTest::addColumn<int>("days");
    QTest::addColumn<QString>("numbers");
    QTest::newRow("all that are open") << int(DueDays::AllOpen) << 0 << u"1,2,3,4"_s;
    QTest::newRow("up to today") << int(DueDays::UpToToday) << 0 << u"1,2"_s;
    QTest::newRow("today") << int(DueDays::Today) << 0 << u"2"_s;
    QTest::newRow("overdue") << int(DueDays::Overdue) << 0 << u"1"_s;
    QTest::newRow("ten days late") << int(DueDays::AllOpen) << 10 << u"1"_s;
    QTest::newRow("eleven days late") << int(DueDays::AllOpen) << 11 << QString();
}

void TestOverdueInstalments::filterBySpan()
{
    QFETCH(int, span);
    QFETCH(int, days);
    QFETCH(QString, numbers);
    CDlgOverdueInstalments page;
    page.filters().set(u"days", days);
    open(page, span);
    QCOMPARE(column(page, u"number").join(u','), numbers);
}

void TestOverdueInstalments::whatDoesNotCountIsLeftOut_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("listed");
    QTest::newRow("as it is") << u"SELECT 1"_s << 4;
    QTest::newRow("void contract") << u"UPDATE AutomobilContracts SET iStatus=1"_s << 0;
    QTest::newRow("archived contract") << u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s << 0;
    QTest::newRow("contract that is gone") << u"DELETE FROM AutomobilContracts"_s << 0;
    QTest::newRow("contract nobody has saved") << u"INSERT INTO Placeholders(sTable,iRecordID,sSession) SELECT 'AutomobilContracts',iID,'x' FROM AutomobilContracts"_s << 0;
    QTest::newRow("paid instalment") << u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=3"_s << 3;
}

void TestOverdueInstalments::whatDoesNotCountIsLeftOut()
{
    QFETCH(QString, change);
    QFETCH(int, listed);
    m_office->database().run(change);
    CDlgOverdueInstalments page;
    open(page, DueDays::AllOpen);
    QCOMPARE(page.list()->count(), listed);
    if (!change.contains(u"iArchiveUserID"))
        return;
    // The debt of an archived contract stands: it is shown when asked for.
    page.filters().set(u"archived", true);
    page.refill();
    QCOMPARE(page.list()->count(), 4);
}

void TestOverdueInstalments::restIsWhatValidReceiptsLeaveOver()
{
    const int first = receive(m_contract, m_late, 300);
    const int second = receive(m_contract, m_late, 200);
    CDlgOverdueInstalments page;
    open(page, DueDays::Overdue);
    QCOMPARE(page.list()->cellText(0, u"rest"), u"500"_s);
    ReceiptPosting::makeVoid(first, u"اشتباه"_s);
    page.refill();
    QCOMPARE(page.list()->cellText(0, u"received"), u"200"_s);
    QCOMPARE(page.list()->cellText(0, u"rest"), u"800"_s);
    // One whose cheque bounced pays nothing.
    m_office->database().run(u"UPDATE Receipts SET iStatus=2 WHERE iID=%1"_s.arg(second));
    page.refill();
    QCOMPARE(page.list()->cellText(0, u"rest"), u"1,000"_s);
}

void TestOverdueInstalments::sumsAreThoseOfTheTables()
{
    const int other = addContract(m_office->addPerson(u"علی"_s, u"رضایی"_s));
    for (int number = 1; number <= 12; ++number)
        addInstalment(other, number, 30 * (number - 5), 2500);
    const int third = value(u"SELECT iID FROM AutomobilPayments WHERE iAutomobilContractID=%1 AND iNum=3"_s.arg(other)).toInt();
    receive(other, third, 1200);
    receive(m_contract, m_today, 100);
    ReceiptPosting::makeVoid(receive(m_contract, m_today, 50), u"اشتباه"_s);
    CDlgOverdueInstalments page;
    open(page, DueDays::AllOpen);
    const QString amounts = u"SELECT SUM(dAmount) FROM AutomobilPayments WHERE iStatus=0"_s;
    const QString receipts = u"SELECT SUM(dAmount) FROM Receipts WHERE iTable=69 AND iStatus=0 AND iPaymentID IN (SELECT iID FROM AutomobilPayments WHERE iStatus=0)"_s;
    double rest = 0;
    for (const KListModel::Row &row : page.list()->listModel()->rows())
        rest += row.cells.at(page.list()->columnOf(u"rest")).value.toDouble();
    QCOMPARE(page.list()->count(), value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE iStatus=0"_s).toInt());
    QCOMPARE(rest, value(amounts).toDouble() - value(receipts).toDouble());
    QVERIFY(page.totalText().startsWith(u"جمع مانده : 32,700     معوق : "_s));
}

// Three times 333.33 and something are received as 333, 333 and 334 where the money unit has no decimals.
void TestOverdueInstalments::lastOneOfAPlanCarriesWhatRoundingLeftOver()
{
    m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
    for (int number = 1; number <= 3; ++number)
        addInstalment(m_contract, number, number, 1000.0 / 3);
    CDlgOverdueInstalments page;
    open(page, DueDays::AllOpen);
    QCOMPARE(column(page, u"amount"), (QStringList{u"333"_s, u"333"_s, u"334"_s}));
    m_office->database().run(u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=1"_s);
    page.refill();
    QCOMPARE(column(page, u"rest"), (QStringList{u"333"_s, u"334"_s}));
}

// What rounding leaves over is received with the last one of the plan, not with that of another department's.
void TestOverdueInstalments::departmentsHavePlansOfTheirOwn()
{
    m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
    for (int number = 1; number <= 3; ++number)
        addInstalment(m_contract, number, number, 1000.0 / 3);
    addInstalment(m_contract, 1, 90, 50);
    m_office->database().run(u"UPDATE AutomobilPayments SET iDepartmentID=iDepartmentID+1 WHERE dAmount=50"_s);
    CDlgOverdueInstalments page;
    open(page, DueDays::AllOpen);
    QCOMPARE(column(page, u"amount").mid(0, 3), (QStringList{u"333"_s, u"333"_s, u"334"_s}));
}

void TestOverdueInstalments::buyerTypedByHandIsNamedByTheContract()
{
    const int contract = addContract(0, [](CTblAutomobilContracts &typed) {
        typed.m_sName2 = u"حسن دستی"_s;
        typed.m_sMobile2 = u"09350000000"_s;
        typed.m_iNum = 555;
    });
    addInstalment(contract, 1, -1, 10);
    CDlgOverdueInstalments page;
    page.filters().set(u"words", u"حسن"_s);
    open(page, DueDays::UpToToday);
    QCOMPARE(page.list()->count(), 1);
    QCOMPARE(page.list()->cellText(0, u"person"), u"حسن دستی"_s);
    QCOMPARE(page.list()->cellText(0, u"mobile"), u"09350000000"_s);
    QCOMPARE(page.list()->cellText(0, u"contract"), u"555"_s);
    page.list()->selectRow(0);
    QVERIFY(page.runCommand(u"statement"));
    QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"خریدار این قرارداد در فهرست اشخاص نیست و صورتحسابی ندارد."_s});
}

void TestOverdueInstalments::lateFeeFollowsTheSettings()
{
    ContractSettings settings;
    settings.lateFeePercent = 1;
    settings.lateFeeGrace = 4;
    settings.save();
    receive(m_contract, m_late, 400);
    CDlgOverdueInstalments page;
    page.open();
    // Six days after the grace, one percent a day of the 600 that are left.
    QCOMPARE(page.list()->cellText(0, u"lateFee"), u"36"_s);
    QCOMPARE(page.list()->cellText(1, u"lateFee"), QString());
}

void TestOverdueInstalments::lastCallIsShownAndFilteredBy()
{
    const CTblFollowUps::Subject late{CTblAutomobilContracts::recordKind, m_contract, m_late, u"AutomobilPayments"_s};
    CTblFollowUps::add(late, u"پاسخ نداد"_s, {});
    CTblFollowUps::add(late, u"فردا"_s, QDateTime(today().addDays(1), QTime(0, 0), Qt::UTC));
    CDlgOverdueInstalments page;
    page.open();
    QCOMPARE(column(page, u"note"), (QStringList{u"فردا"_s, QString()}));
    QCOMPARE(page.list()->cellText(0, u"promised"), shamsiText(today().addDays(1)));
    const auto listed = [&page](int promise) {
        page.filters().set(u"promise", promise);
        page.refill();
        return column(page, u"number").join(u',');
    };
    QCOMPARE(listed(1), QString());
    QCOMPARE(listed(2), u"1"_s);
    QCOMPARE(listed(3), u"2"_s);
    QCOMPARE(listed(0), u"1,2"_s);
    m_office->database().run(u"UPDATE FollowUps SET datePromised=CURDATE()-INTERVAL 1 DAY WHERE sNote='فردا'"_s);
    QCOMPARE(listed(1), u"1"_s);
}

void TestOverdueInstalments::statementsDoNotGrowWithTheRows()
{
    CDlgOverdueInstalments page;
    open(page, DueDays::AllOpen);
    const auto statements = [&page] {
        const ObservedStatements observed({u"SELECT"_s});
        page.refill();
        return observed.taken().size();
    };
    const auto few = statements();
    for (int number = 5; number <= 60; ++number)
        addInstalment(m_contract, number, number, 10);
    QCOMPARE(statements(), few);
    QCOMPARE(page.list()->count(), 60);
}

void TestOverdueInstalments::noteIsAddedFromTheDesk()
{
    CDlgOverdueInstalments page;
    page.open();
    page.list()->selectRow(0);
    TestOffice::whenModal("CDlgFollowUp", [](QWidget *window) {
        Hand::named<KEdit>(window, u"یادداشت تماس :"_s)->setText(u"شنبه می‌آید"_s);
        static_cast<QDialog *>(window)->accept();
    });
    QVERIFY(page.runCommand(u"followUp"));
    QCOMPARE(page.list()->cellText(0, u"note"), u"شنبه می‌آید"_s);
    QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iPaymentID) FROM FollowUps"_s), u"69|%1|%2"_s.arg(m_contract).arg(m_late));
}

// Another desk replaces the plan while the call is noted: what is typed stays, and no note hangs on a row that is gone.
void TestOverdueInstalments::noteOfAnInstalmentThatIsGoneIsRefused()
{
    CDlgOverdueInstalments page;
    page.open();
    page.list()->selectRow(0);
    QString typed;
    QStringList told;
    TestOffice::whenModal("CDlgFollowUp", [&](QWidget *window) {
        auto *note = Hand::named<KEdit>(window, u"یادداشت تماس :"_s);
        note->setText(u"شنبه می‌آید"_s);
        m_office->database().run(u"DELETE FROM AutomobilPayments WHERE iNum=1"_s);
        static_cast<QDialog *>(window)->accept();
        typed = window->isVisible() ? note->text() : QString();
        told = g_pDlgWarning->takeShown();
        static_cast<KDialog *>(window)->cancel();
    });
    QVERIFY(page.runCommand(u"followUp"));
    QCOMPARE(told, QStringList{u"قسط شماره 1 دیگر در برنامه اقساط این قرارداد نیست. چیزی ثبت نشد."_s});
    QCOMPARE(typed, u"شنبه می‌آید"_s);
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestOverdueInstalments::receivingFromTheDeskTakesTheRowAway()
{
    receive(m_contract, m_late, 300);
    CDlgOverdueInstalments page;
    page.open();
    page.list()->selectRow(0);
    TestOffice::whenModal("CDlgCashFromPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
    QVERIFY(page.runCommand(u"receive"));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QCOMPARE(column(page, u"number"), QStringList{u"2"_s});
    // The next command is not about whoever moved into its place.
    QCOMPARE(page.list()->currentKey(), 0);
    QVERIFY(!page.runCommand(u"statement"));
    QCOMPARE(value(u"SELECT SUM(dAmount) FROM Receipts WHERE iStatus=0 AND iPaymentID=%1"_s.arg(m_late)).toDouble(), 1000.0);
    QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments WHERE iID=%1"_s.arg(m_late)), u"1"_s);
}

void TestOverdueInstalments::deskOfOneContractShowsAllThatIsOpen()
{
    const int other = addContract(m_buyer);
    addInstalment(other, 1, -1, 10);
    struct Host : KTabHost
    {
        void addPage(KDialogTabPage *page) override { shown.reset(static_cast<CDlgOverdueInstalments *>(page)); }
        std::unique_ptr<CDlgOverdueInstalments> shown;
    } host;
    GetDBSetting()->SetTabHost(&host);
    CDlgOverdueInstalments::showContract(1);
    GetDBSetting()->SetTabHost(nullptr);
    QVERIFY(host.shown);
    host.shown->open();
    QCOMPARE(column(*host.shown, u"number"), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    QCOMPARE(column(*host.shown, u"contract"), QStringList(4, u"1"_s));
}

// Its own number, else its code.
void TestOverdueInstalments::contractIsAskedForByTheNumberItIsCalledBy()
{
    const auto asked = [](int number) {
        CDlgOverdueInstalments page;
        page.filters().set(u"contract", number);
        page.open();
        return column(page, u"contract");
    };
    const int numbered = addContract(m_buyer, [](CTblAutomobilContracts &contract) { contract.m_iNum = 555; });
    addInstalment(numbered, 1, -1, 10);
    const QString code = value(u"SELECT iCode FROM AutomobilContracts WHERE iID=%1"_s.arg(numbered));
    QCOMPARE(asked(555), QStringList{u"555"_s});
    QCOMPARE(asked(code.toInt()), QStringList());
    m_office->database().run(u"UPDATE AutomobilContracts SET iNum=NULL WHERE iID=%1"_s.arg(numbered));
    QCOMPARE(asked(555), QStringList());
    QCOMPARE(asked(code.toInt()), QStringList{code});
}

void TestOverdueInstalments::amountsOfOtherContractsAreNotRead()
{
    const int other = addContract(m_buyer, [](CTblAutomobilContracts &contract) { contract.m_iNum = 555; });
    addInstalment(other, 1, -1, 10);
    CDlgOverdueInstalments page;
    page.filters().set(u"contract", 555);
    const ObservedStatements observed({u"SELECT iID,iAutomobilContractID"_s, u"SELECT iPaymentID"_s});
    page.open();
    const QString asked = u" IN (%1)"_s.arg(other);
    QCOMPARE(observed.taken().size(), 2);
    for (const QString &statement : observed.taken())
        QVERIFY2(statement.contains(asked), qPrintable(statement));
    QCOMPARE(column(page, u"rest"), QStringList{u"10"_s});
}

void TestOverdueInstalments::planReplacedMeanwhileIsTold()
{
    CDlgOverdueInstalments page;
    page.open();
    page.list()->selectRow(0);
    m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
    addInstalment(m_contract, 1, -3, 70);
    for (const QStringView command : {u"followUp", u"receive", u"plan", u"showContract", u"statement"}) {
        page.list()->selectRow(0);
        m_office->database().run(u"UPDATE AutomobilPayments SET iID=iID+100"_s);
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این قسط دیگر در برنامه اقساط قرارداد نیست. فهرست دوباره خوانده شد."_s});
        QCOMPARE(column(page, u"rest"), QStringList{u"70"_s});
    }
}

void TestOverdueInstalments::notesGoWithTheirContract()
{
    CTblFollowUps::add({CTblAutomobilContracts::recordKind, m_contract, m_late, u"AutomobilPayments"_s}, u"آمد"_s, {});
    CTblAutomobilContracts contract;
    QVERIFY(contract.IsRecordExist(u"iID"_s, m_contract));
    QVERIFY(contract.Delete());
    QCOMPARE(value(u"SELECT COUNT(*) FROM FollowUps"_s), u"0"_s);
}

void TestOverdueInstalments::commandsNeedTheirRights()
{
    const QString form = u"AutomobilPayments"_s;
    m_office->logInAs(u"مهمان"_s, form, KSecurity::Access);
    CDlgOverdueInstalments page;
    page.open();
    page.list()->selectRow(0);
    const std::pair<QStringView, QString> refused[] = {
        {u"followUp", KSecurity::refusalText(form, KSecurity::Write)},
        {u"showContract", KSecurity::refusalText(u"AutomobilContracts"_s, KSecurity::Read)},
        {u"plan", KSecurity::refusalText(u"AutomobilContracts"_s, KSecurity::Read)},
        {u"statement", KSecurity::refusalText(u"Documents"_s, KSecurity::Read)},
        {u"print", KSecurity::refusalText(form, KSecurity::PrintList)},
    };
    for (const auto &[command, text] : refused) {
        page.runCommand(command);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{text});
    }
}

void TestOverdueInstalments::closedDatabaseOffersNothingToChange()
{
    GetDBSetting()->SetClosedDB(true);
    CDlgOverdueInstalments page;
    page.open();
    page.list()->selectRow(0);
    const bool offered = page.isOffered(u"receive") || page.isOffered(u"followUp");
    const bool shows = page.isOffered(u"statement") && page.isOffered(u"print");
    GetDBSetting()->SetClosedDB(false);
    QVERIFY(!offered);
    QVERIFY(shows);
    QCOMPARE(page.list()->count(), 2);
}

void TestOverdueInstalments::pageNeedsTheRight()
{
    m_office->logInAs(u"بی حق"_s, u"AutomobilContracts"_s, KSecurity::allRights);
    CDlgOverdueInstalments page;
    QVERIFY(!page.OnAccess());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutomobilPayments"_s, KSecurity::Access)});
}

static const RegisteredTest<TestOverdueInstalments, QApplication> registeredOverdueInstalments;
#include "TestOverdueInstalments.moc"

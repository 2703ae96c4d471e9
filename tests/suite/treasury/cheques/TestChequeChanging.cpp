// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeChanging.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/treasury/cheques/ChequeVoiding.h"
#include "suite/treasury/cheques/ChequesDue.h"
#include "tests/suite/treasury/cheques/ChequeOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <atomic>
#include <thread>

using State = ChequeState;

class TestChequeChanging : public QObject
{
    Q_OBJECT

    ChequeOffice m_office;

    QString value(const char *statement) { return m_office.value(QString::fromUtf8(statement)); }

private Q_SLOTS:
    void init() { m_office.clear(); }

    void stepsAreBookedAndKept()
    {
        const int cheque = m_office.received();
        QCOMPARE(m_office.balance(Accounts::chequesInHand), 1500.0);
        const ChequeChanging::Changed deposited = m_office.bring(cheque, State::Deposited);
        QCOMPARE(deposited.docNum, 2);
        QCOMPARE(deposited.fiscalYear, 1405);
        QCOMPARE(m_office.balance(Accounts::chequesInHand), 0.0);
        QCOMPARE(m_office.balance(Accounts::chequesDeposited), 1500.0);
        m_office.bring(cheque, State::Cleared);
        QCOMPARE(m_office.balance(Accounts::chequesDeposited), 0.0);
        QCOMPARE(m_office.balance(Accounts::bank), 1500.0);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.giver), -1500.0);
        QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',iFromState,iToState,DATE(date),iAccount,iPersonID,iDocNum,iFiscalYear,iStatus) "
                       "ORDER BY iID SEPARATOR ' ') FROM ChequeChanges"),
                 u"0/1/2026-05-10/110201/0/2/1405/0 1/2/2026-05-10/110201/0/3/1405/0"_s);
        QCOMPARE(value("SELECT CONCAT_WS('/',iState,iAccount,iEndorsedID) FROM Cheques"), u"2/110201/0"_s);
        QCOMPARE(value("SELECT iStatus FROM Receipts"), u"0"_s);
        QCOMPARE(m_office.value(booksAgree(Accounts::documentKindCheque)), u"2/0/0"_s);
        QVERIFY(value("SELECT sDesc FROM Documents WHERE iNum=2").contains(u"شماره 77"_s));
    }

    void bouncedChequePaysNothing_data()
    {
        QTest::addColumn<State>("to");
        QTest::newRow("bounced") << State::Bounced;
        QTest::newRow("given back") << State::Returned;
    }

    // What it had paid is open again, and paid again when it is collected after all or the step is undone.
    void bouncedChequePaysNothing()
    {
        QFETCH(State, to);
        ReceiptPosting::Handover handover = m_office.handover();
        handover.parts = {{500, u"کمیسیون"_s, {.recordKind = ChequeOffice::recordKind, .recordID = ChequeOffice::recordID}},
                          {1000, u"علی‌الحساب"_s, {}}};
        const int cheque = ChequeOffice::enter(handover);
        m_office.owner.asked.clear();
        m_office.bring(cheque, to);
        QCOMPARE(value("SELECT GROUP_CONCAT(iStatus) FROM Receipts"), u"2,2"_s);
        QCOMPARE(m_office.owner.asked, (QStringList{u"lock 31"_s, u"recount 31 status 2"_s}));
        QCOMPARE(m_office.balance(Accounts::persons, m_office.giver), 0.0);
        m_office.owner.asked.clear();
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        QCOMPARE(value("SELECT GROUP_CONCAT(iStatus) FROM Receipts"), u"0,0"_s);
        QCOMPARE(m_office.owner.asked, (QStringList{u"lock 31"_s, u"recount 31 status 0"_s}));
        QCOMPARE(m_office.balance(Accounts::persons, m_office.giver), -1500.0);
        QCOMPARE(m_office.balance(Accounts::chequesInHand), 1500.0);
    }

    void bouncedChequeIsDepositedAgain()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        m_office.bring(cheque, State::Bounced);
        QCOMPARE(value("SELECT iStatus FROM Receipts"), u"2"_s);
        m_office.bring(cheque, State::Deposited);
        QCOMPARE(value("SELECT iStatus FROM Receipts"), u"0"_s);
        m_office.bring(cheque, State::Cleared);
        QCOMPARE(m_office.balance(Accounts::bank), 1500.0);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.giver), -1500.0);
        QCOMPARE(m_office.balance(Accounts::chequesDeposited), 0.0);
    }

    void endorsedChequeThatBounces()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Endorsed);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.endorsee), 1500.0);
        QCOMPARE(value("SELECT iEndorsedID FROM Cheques").toInt(), m_office.endorsee);
        m_office.bring(cheque, State::Bounced);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.endorsee), 0.0);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.giver), 0.0);
        // Undone, it is with whom it was endorsed to, whose account is not that of the step.
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.endorsee), 1500.0);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.endorsee), 0.0);
        QCOMPARE(value("SELECT CONCAT_WS('/',iState,iEndorsedID) FROM Cheques"), u"0/0"_s);
    }

    // What the endorsee had to get is paid by it for as long as he keeps it.
    void endorsedChequePaysAClaim()
    {
        const auto payments = [this] {
            return value("SELECT GROUP_CONCAT(CONCAT_WS('/',dAmount,iRecordID,iDocNum,iStatus) ORDER BY iID SEPARATOR ' ') FROM Receipts WHERE iKind=1");
        };
        const int cheque = m_office.received();
        m_office.owner.asked.clear();
        ChequeChanging::Change change = m_office.step(cheque, State::Endorsed);
        change.pays = {{1000, {}, ChequeOffice::claim()}, {500, {}, {}}};
        ChequeChanging::change(change);
        QCOMPARE(payments(), u"1000/31/2/0 500/0/2/0"_s);
        QCOMPARE(value("SELECT GROUP_CONCAT(DISTINCT CONCAT_WS('/',iPersonID,iMethod,iFor=3)) FROM Receipts WHERE iKind=1 AND iRecordID=31"), u"%1/4/1"_s.arg(m_office.endorsee));
        QCOMPARE(m_office.owner.asked, (QStringList{u"lock 31"_s, u"recount 31 status 0"_s}));
        QCOMPARE(m_office.balance(Accounts::persons, m_office.endorsee), 1500.0);
        m_office.bring(cheque, State::Bounced);
        QCOMPARE(payments(), u"1000/31/2/2 500/0/2/2"_s);
        // Paid to the office after all, it pays nobody else.
        m_office.bring(cheque, State::Cleared);
        QCOMPARE(payments(), u"1000/31/2/2 500/0/2/2"_s);
        QCOMPARE(value("SELECT iStatus FROM Receipts WHERE iKind=0"), u"0"_s);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        QCOMPARE(payments(), u"1000/31/2/0 500/0/2/0"_s);
        m_office.owner.asked.clear();
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"به شخص دیگر"_s);
        QCOMPARE(payments(), u"1000/31/2/1 500/0/2/1"_s);
        QCOMPARE(value("SELECT GROUP_CONCAT(DISTINCT sVoidReason) FROM Receipts WHERE iKind=1"), u"به شخص دیگر"_s);
        QVERIFY(m_office.owner.asked.contains(u"recount 31 status 1"_s));
        // What is void already is no hindrance to the cheque's own voiding.
        ChequeVoiding::makeVoid(cheque, u"اشتباه"_s);
        QCOMPARE(value("SELECT GROUP_CONCAT(iStatus) FROM Receipts"), u"1,1,1"_s);
    }

    void collectedByTheEndorseeItHasPaid()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Endorsed);
        m_office.bring(cheque, State::Cleared);
        QCOMPARE(value("SELECT CONCAT_WS('/',dAmount,iTable,iStatus) FROM Receipts WHERE iKind=1"), u"1500/0/0"_s);
    }

    void claimThatCannotBePaidIsRefused_data()
    {
        QTest::addColumn<QList<ReceiptPosting::Part>>("pays");
        using Parts = QList<ReceiptPosting::Part>;
        ReceiptPurpose paid = ChequeOffice::claim();
        paid.require = [] { throw KAccountingError(u"در این میان پرداخت شده است."_s); };
        QTest::newRow("paid by another desk meanwhile") << Parts{{1500, {}, paid}};
        QTest::newRow("less than the cheque") << Parts{{1000, {}, ChequeOffice::claim()}};
        ReceiptPurpose unknown = ChequeOffice::claim();
        unknown.recordKind = 999;
        QTest::newRow("of nobody") << Parts{{1500, {}, unknown}};
    }

    void claimThatCannotBePaidIsRefused()
    {
        const int cheque = m_office.received();
        ChequeChanging::Change change = m_office.step(cheque, State::Endorsed);
        QFETCH(QList<ReceiptPosting::Part>, pays);
        change.pays = pays;
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeChanging::change(change); }).isEmpty());
        QCOMPARE(value("SELECT CONCAT_WS('/',iState,(SELECT COUNT(*) FROM Receipts),(SELECT COUNT(*) FROM Documents)) FROM Cheques"), u"0/1/1"_s);
    }

    void givenBackChequeThatCameAgainStaysGivenBack()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Returned);
        const int again = m_office.received();
        const auto undo = [&] { return ChequeOffice::refusalOf([&] { ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s); }); };
        QVERIFY2(undo().contains(u"شناسه صیادی"_s), "it is in the office twice");
        QCOMPARE(value("SELECT GROUP_CONCAT(iState ORDER BY iID) FROM Cheques"), u"4,0"_s);
        ChequeVoiding::makeVoid(again, u"اشتباه"_s);
        QCOMPARE(undo(), QString());
        QCOMPARE(value("SELECT GROUP_CONCAT(iState ORDER BY iID) FROM Cheques"), u"0,6"_s);
    }

    void collectedByWhomItWasEndorsedToBooksNothing()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Endorsed);
        QCOMPARE(m_office.bring(cheque, State::Cleared).docNum, 0);
        QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"2"_s);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        QCOMPARE(value("SELECT iState FROM Cheques").toInt(), int(State::Endorsed));
    }

    void givenChequeIsPaid()
    {
        const int cheque = m_office.given();
        QCOMPARE(m_office.balance(Accounts::chequesPayable), -1500.0);
        QCOMPARE(m_office.balance(Accounts::persons, m_office.giver), 1500.0);
        m_office.bring(cheque, State::Cleared);
        QCOMPARE(m_office.balance(Accounts::chequesPayable), 0.0);
        QCOMPARE(m_office.balance(Accounts::bank), -1500.0);
    }

    void undoneStepStaysWithItsTrace()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"  به بانک دیگری "_s);
        QCOMPARE(value("SELECT CONCAT_WS('/',iStatus,iVoidUserID,sVoidReason,dateVoid IS NOT NULL,iVoidDocNum) FROM ChequeChanges"),
                 u"1/%1/به بانک دیگری/1/0"_s.arg(m_office.office.admin));
        QCOMPARE(value("SELECT CONCAT_WS('/',iStatus,(SELECT COUNT(*) FROM Docs WHERE iDocNum=2)) FROM Documents WHERE iNum=2"), u"1/0"_s);
        QCOMPARE(value("SELECT CONCAT_WS('/',iState,iAccount) FROM Cheques"), u"0/0"_s);
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"باز"_s); }).isEmpty());
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"  "_s); }).isEmpty());
        m_office.bring(cheque, State::Cleared);
        QCOMPARE(m_office.balance(Accounts::bank), 1500.0);
    }

    void stepOfAnEarlierYearIsReversed()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        GetDBSetting()->SetFiscalYear(1406);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        QCOMPARE(value("SELECT CONCAT_WS('/',iStatus,iVoidDocNum,iVoidFiscalYear) FROM ChequeChanges"), u"1/1/1406"_s);
        QCOMPARE(value("SELECT iStatus FROM Documents WHERE iNum=2 AND iFiscalYear=1405"), u"0"_s);
        QCOMPARE(m_office.balance(Accounts::chequesInHand), 1500.0);
        QCOMPARE(m_office.balance(Accounts::chequesDeposited), 0.0);
    }

    void refusals_data()
    {
        QTest::addColumn<std::function<void(ChequeChanging::Change &)>>("spoil");
        QTest::addColumn<QString>("field");
        using Spoil = std::function<void(ChequeChanging::Change &)>;
        const auto row = [](const char *name, const Spoil &spoil, const QString &field) { QTest::newRow(name) << spoil << field; };
        row(
            "a step that does not follow", [](auto &change) { change.to = State::InHand; }, u"iState"_s);
        row(
            "void", [](auto &change) { change.to = State::Void; }, u"iState"_s);
        row(
            "no date", [](auto &change) { change.date = {}; }, u"date"_s);
        row(
            "before it was received", [](auto &change) { change.date = ChequeOffice::date(4, 30); }, u"date"_s);
        row(
            "tomorrow", [](auto &change) { change.date = GetDBSetting()->GetDBServerDate().addDays(1); }, u"date"_s);
        row(
            "outside the fiscal year", [](auto &change) { change.date = QDateTime(QDate(2027, 3, 21), QTime(0, 0), Qt::UTC); }, u"date"_s);
        row(
            "no account", [](auto &change) { change.account = 0; }, u"iAccount"_s);
        row(
            "deposited in the cash box", [](auto &change) { change.account = Accounts::cash; }, u"iAccount"_s);
        row(
            "an account that is none for money", [](auto &change) { change.account = Accounts::persons; }, u"iAccount"_s);
        row(
            "an account that is gone", [](auto &change) { change.account = 110299; }, u"iAccount"_s);
        row(
            "endorsed to nobody",
            [](auto &change) {
                change.to = State::Endorsed;
                change.endorsedID = 0;
            },
            u"iEndorsedID"_s);
        row(
            "endorsed to somebody who is gone",
            [](auto &change) {
                change.to = State::Endorsed;
                change.endorsedID = 99999;
            },
            u"iEndorsedID"_s);
    }

    void refusals()
    {
        QFETCH(std::function<void(ChequeChanging::Change &)>, spoil);
        ChequeChanging::Change change = m_office.step(m_office.received(), State::Deposited);
        spoil(change);
        QString field;
        try {
            ChequeChanging::change(change);
        } catch (const FieldRefused &refusal) {
            field = refusal.column();
            QVERIFY(!refusal.userMessage().isEmpty());
        }
        QTEST(field, "field");
        QCOMPARE(value("SELECT CONCAT_WS('/',(SELECT COUNT(*) FROM ChequeChanges),(SELECT COUNT(*) FROM Documents),iState) FROM Cheques"), u"0/1/0"_s);
    }

    void notToWhomItCameFrom()
    {
        ChequeChanging::Change change = m_office.step(m_office.received(), State::Endorsed);
        change.endorsedID = m_office.giver;
        QVERIFY_THROWS_EXCEPTION(FieldRefused, ChequeChanging::change(change));
    }

    void datesGoForward()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        QVERIFY_THROWS_EXCEPTION(FieldRefused, ChequeChanging::change(m_office.step(cheque, State::Cleared, 5, 9)));
        ChequeChanging::change(m_office.step(cheque, State::Cleared, 5, 10));
    }

    void closedDatabaseIsRefused()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        GetDBSetting()->SetClosedDB(true);
        QVERIFY(!ChequeOffice::refusalOf([&] { m_office.bring(cheque, State::Cleared); }).isEmpty());
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s); }).isEmpty());
        QCOMPARE(value("SELECT iState FROM Cheques"), u"1"_s);
    }

    void rightsAreAskedWhereTheChangeIsMade_data()
    {
        QTest::addColumn<int>("rights");
        QTest::addColumn<bool>("mayChange");
        QTest::addColumn<bool>("mayUndo");
        QTest::newRow("read only") << int(KSecurity::Access | KSecurity::Read) << false << false;
        QTest::newRow("modify") << int(KSecurity::Access | KSecurity::Modify) << true << false;
        QTest::newRow("all") << int(KSecurity::allRights) << true << true;
    }

    void rightsAreAskedWhereTheChangeIsMade()
    {
        QFETCH(int, rights);
        QFETCH(bool, mayChange);
        QFETCH(bool, mayUndo);
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        KSecurity::setRights(m_office.office.clerk, ChequeChanging::rightsForm(), rights);
        GetDBSetting()->Login(m_office.office.clerk);
        const QString change = ChequeOffice::refusalOf([&] { m_office.bring(cheque, State::Cleared); });
        QCOMPARE(change, mayChange ? QString() : KSecurity::refusalText(ChequeChanging::rightsForm(), KSecurity::Modify));
        const QString undo = ChequeOffice::refusalOf([&] { ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s); });
        QCOMPARE(undo, mayUndo ? QString() : KSecurity::refusalText(ChequeChanging::rightsForm(), KSecurity::Delete));
    }

    void whatAnotherDeskMovedIsTold_data()
    {
        QTest::addColumn<bool>("undo");
        QTest::newRow("a step") << false;
        QTest::newRow("taking back") << true;
    }

    void whatAnotherDeskMovedIsTold()
    {
        QFETCH(bool, undo);
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        const ChequeChanging::Seen seen = ChequeChanging::seen(cheque);
        KSecurity::setRights(m_office.office.clerk, ChequeChanging::rightsForm(), KSecurity::allRights);
        GetDBSetting()->Login(m_office.office.clerk);
        m_office.bring(cheque, State::Bounced);
        GetDBSetting()->Login(m_office.office.admin);
        ChequeChanging::Change change = m_office.step(cheque, State::Cleared);
        change.seen = seen;
        const QString told = ChequeOffice::refusalOf([&] { undo ? ChequeChanging::undoLast(seen, u"اشتباه"_s) : void(ChequeChanging::change(change)); });
        QVERIFY2(told.startsWith(u"کاربر «clerk»"_s) && told.contains(ChequeStates::name(State::Bounced)), qPrintable(told));
        QCOMPARE(value("SELECT CONCAT_WS('/',iState,(SELECT COUNT(*) FROM ChequeChanges WHERE iStatus=0)) FROM Cheques"), u"3/2"_s);
    }

    // The same state again is not what was seen: in between it bounced, and what it had paid was open.
    void sameStateAfterOtherStepsIsNotWhatWasSeen()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        const ChequeChanging::Change change = m_office.step(cheque, State::Cleared);
        m_office.bring(cheque, State::Bounced);
        m_office.bring(cheque, State::Deposited);
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeChanging::change(change); }).isEmpty());
    }

    void goneChequeIsTold()
    {
        ChequeChanging::Change change = m_office.step(m_office.received(), State::Deposited);
        change.seen.chequeID = 99999;
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeChanging::change(change); }).isEmpty());
    }

    void withoutTheOwnerNothingStopsCounting()
    {
        ReceiptPosting::Handover handover = m_office.handover();
        handover.parts.first().purpose = {.recordKind = ChequeOffice::recordKind, .recordID = ChequeOffice::recordID};
        const int cheque = ChequeOffice::enter(handover);
        ReceiptOwners::remove(ChequeOffice::recordKind);
        // The money is where it was: nothing of the record changes.
        m_office.bring(cheque, State::Deposited);
        const QString told = ChequeOffice::refusalOf([&] { m_office.bring(cheque, State::Bounced); });
        ReceiptOwners::enter(ChequeOffice::recordKind, m_office.owner);
        QVERIFY(told.contains(u"بارگذاری نشده"_s));
        QCOMPARE(value("SELECT CONCAT_WS('/',c.iState,r.iStatus) FROM Cheques c JOIN Receipts r ON r.iChequeID=c.iID"), u"1/0"_s);
    }

    // Money does not come back to what was deleted or made void meanwhile.
    void whatIsGoneIsNotPaidAgain_data()
    {
        QTest::addColumn<State>("to");
        QTest::newRow("bounced and deposited again") << State::Bounced;
        QTest::newRow("given back") << State::Returned;
    }

    void whatIsGoneIsNotPaidAgain()
    {
        QFETCH(State, to);
        ReceiptPosting::Handover handover = m_office.handover();
        handover.parts.first().purpose = ChequeOffice::claim();
        const int cheque = ChequeOffice::enter(handover);
        m_office.owner.isGone = true;
        m_office.bring(cheque, to);
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s); }).isEmpty());
        if (to == State::Bounced)
            QVERIFY(!ChequeOffice::refusalOf([&] { m_office.bring(cheque, State::Deposited); }).isEmpty());
        QCOMPARE(value("SELECT iStatus FROM Receipts"), u"2"_s);
        QCOMPARE(value("SELECT iState FROM Cheques").toInt(), int(to));
    }

    void sayadNumberIsEnteredOnce()
    {
        const int cheque = m_office.received();
        const QString told = ChequeOffice::refusalOf([&] { m_office.received(); });
        QVERIFY2(told.contains(u"رضا احمدی"_s) && told.contains(u"1405/03/11"_s), qPrintable(told));
        // Given back, it can be handed over again; so can one that was entered wrongly.
        m_office.bring(cheque, State::Returned);
        const int again = m_office.received();
        ChequeVoiding::makeVoid(again, u"مبلغ اشتباه"_s);
        QVERIFY(m_office.received() > again);
        QCOMPARE(value("SELECT GROUP_CONCAT(iState ORDER BY iID) FROM Cheques"), u"4,6,0"_s);
    }

    void movedChequeIsNotMadeVoid()
    {
        const int cheque = m_office.received();
        m_office.bring(cheque, State::Deposited);
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeVoiding::makeVoid(cheque, u"اشتباه"_s); }).isEmpty());
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        ChequeVoiding::makeVoid(cheque, u"اشتباه"_s);
        QCOMPARE(m_office.balance(Accounts::chequesInHand), 0.0);
        QVERIFY(!ChequeOffice::refusalOf([&] { ChequeVoiding::makeVoid(99999, u"اشتباه"_s); }).isEmpty());
    }

    void twoDesksAtOnce_data()
    {
        QTest::addColumn<bool>("entering");
        QTest::newRow("one moves the cheque") << false;
        QTest::newRow("one enters the Sayad number") << true;
    }

    void twoDesksAtOnce()
    {
        QFETCH(bool, entering);
        const int cheque = entering ? 0 : m_office.received();
        const ChequeChanging::Change change = entering ? ChequeChanging::Change() : m_office.step(cheque, State::Deposited);
        const ReceiptPosting::Handover handover = m_office.handover();
        const auto work = [&] { entering ? void(ReceiptPosting::save(handover)) : void(ChequeChanging::change(change)); };
        QString refusal;
        std::atomic<bool> done{false};
        std::thread other;
        {
            KTransaction transaction;
            work();
            other = std::thread([&] {
                refusal = ChequeOffice::refusalOf(work);
                done = true;
            });
            QTest::qWait(300);
            QVERIFY(!done);
            transaction.commit();
        }
        other.join();
        QVERIFY2(refusal.contains(entering ? u"شناسه صیادی"_s : ChequeStates::name(State::Deposited)), qPrintable(refusal));
        QCOMPARE(value("SELECT COUNT(*) FROM Cheques"), u"1"_s);
        QCOMPARE(value("SELECT COUNT(*) FROM ChequeChanges"), entering ? u"0"_s : u"1"_s);
    }

    void dueOnesAreFound()
    {
        const auto enter = [&](const QString &sayad, const QDateTime &due, CTblReceipts::Kind kind = CTblReceipts::received) {
            ReceiptPosting::Handover handover = m_office.handover(sayad, kind);
            handover.cheque->due = due;
            return ChequeOffice::enter(handover);
        };
        m_office.office.database.run(u"UPDATE Persons SET sMobile='09121234567' WHERE iID=%1"_s.arg(m_office.giver));
        const int late = enter(u"1111111111111112"_s, ChequeOffice::date(6, 1));
        const int today = enter(u"1111111111111113"_s, ChequeOffice::date(6, 10), CTblReceipts::paid);
        const int later = enter(u"1111111111111114"_s, ChequeOffice::date(6, 11));
        m_office.bring(enter(u"1111111111111115"_s, ChequeOffice::date(6, 1)), State::Cleared);
        const int bounced = enter(u"1111111111111116"_s, ChequeOffice::date(6, 2));
        m_office.bring(bounced, State::Bounced);
        const auto keys = [](const QList<ChequesDue::Row> &rows) {
            QList<int> keys;
            for (const ChequesDue::Row &row : rows)
                keys.append(row.id);
            return keys;
        };
        const QDate day(2026, 6, 10);
        const QList<ChequesDue::Row> rows = ChequesDue::open(day, day);
        QCOMPARE(keys(rows), (QList<int>{late, bounced, today}));
        QCOMPARE(keys(ChequesDue::open(day)), (QList<int>{late, bounced, today, later}));
        QCOMPARE(rows.at(0).daysOverdue, 9);
        QCOMPARE(rows.at(0).person, u"رضا احمدی"_s);
        QCOMPARE(rows.at(0).mobile, u"09121234567"_s);
        QCOMPARE(rows.at(0).amount, 1500.0);
        QCOMPARE(rows.at(0).bank, u"ملت"_s);
        QCOMPARE(rows.at(1).state, State::Bounced);
        QCOMPARE(rows.at(2).daysOverdue, 0);
        QCOMPARE(rows.at(2).kind, CTblReceipts::paid);
    }
};

static const RegisteredTest<TestChequeChanging, QCoreApplication> registeredChequeChanging;
#include "TestChequeChanging.moc"

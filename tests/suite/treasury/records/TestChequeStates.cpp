// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/ChequeStates.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;
using State = ChequeState;

namespace {

constexpr int giver = 7;
constexpr int endorsee = 9;
constexpr int bankAccount = 110202;

// A side of the step's document: "110301:7", without a person "110481".
QString sideOf(const DocumentRow &row)
{
    return row.personID == 0 ? QString::number(row.account) : u"%1:%2"_s.arg(row.account).arg(row.personID);
}

QString rowsText(const QList<DocumentRow> &rows)
{
    QStringList texts;
    for (const DocumentRow &row : rows)
        texts.append(row.debit > 0 ? u"debit "_s + sideOf(row) : u"credit "_s + sideOf(row));
    return texts.join(u' ');
}

}

class TestChequeStates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stepIsBooked_data()
    {
        QTest::addColumn<bool>("given");
        QTest::addColumn<State>("from");
        QTest::addColumn<State>("to");
        QTest::addColumn<QString>("rows");
        const auto row = [](const char *name, bool given, State from, State to, const char *rows) {
            QTest::newRow(name) << given << from << to << QString::fromLatin1(rows);
        };
        row("deposited", false, State::InHand, State::Deposited, "debit 110482 credit 110481");
        row("cleared from the bank", false, State::Deposited, State::Cleared, "debit 110202 credit 110482");
        row("cleared at once", false, State::InHand, State::Cleared, "debit 110202 credit 110481");
        row("bounced at the bank", false, State::Deposited, State::Bounced, "debit 110301:7 credit 110482");
        row("bounced in hand", false, State::InHand, State::Bounced, "debit 110301:7 credit 110481");
        row("given back", false, State::InHand, State::Returned, "debit 110301:7 credit 110481");
        row("given back after it bounced", false, State::Bounced, State::Returned, "");
        row("endorsed", false, State::InHand, State::Endorsed, "debit 110301:9 credit 110481");
        row("bounced after it was endorsed", false, State::Endorsed, State::Bounced, "debit 110301:7 credit 110301:9");
        row("collected by whom it was endorsed to", false, State::Endorsed, State::Cleared, "");
        row("deposited again", false, State::Bounced, State::Deposited, "debit 110482 credit 110301:7");
        row("paid after it bounced", false, State::Bounced, State::Cleared, "debit 110202 credit 110301:7");
        row("given: cleared", true, State::InHand, State::Cleared, "debit 210281 credit 110202");
        row("given: bounced", true, State::InHand, State::Bounced, "debit 210281 credit 110301:7");
        row("given: taken back", true, State::InHand, State::Returned, "debit 210281 credit 110301:7");
        row("given: paid after it bounced", true, State::Bounced, State::Cleared, "debit 110301:7 credit 110202");
        row("given: taken back after it bounced", true, State::Bounced, State::Returned, "");
    }

    void stepIsBooked()
    {
        QFETCH(bool, given);
        QFETCH(State, from);
        QFETCH(State, to);
        QVERIFY(ChequeStates::following(from, given).contains(to));
        const QList<DocumentRow> rows = ChequeStates::rowsOf({given, from, to, 1500, giver, endorsee, bankAccount, u"چک"_s});
        QTEST(rowsText(rows), "rows");
        QVERIFY(documentSum(rows).isBalanced());
        for (const DocumentRow &row : rows) {
            QCOMPARE(row.debit + row.credit, 1500.0);
            QCOMPARE(row.description, u"چک"_s);
        }
    }

    // Whatever way a cheque goes, its effect on the books together with its receipt is that of where it has come to.
    void wayEndsWhereTheMoneyIs_data()
    {
        QTest::addColumn<QList<State>>("way");
        QTest::addColumn<QString>("holds");
        const auto row = [](const char *name, const QList<State> &way, const char *holds) { QTest::newRow(name) << way << QString::fromLatin1(holds); };
        row("collected", {State::Deposited, State::Cleared}, "110202=1500 110301:7=-1500");
        row("bounced, again, collected", {State::Deposited, State::Bounced, State::Deposited, State::Cleared}, "110202=1500 110301:7=-1500");
        row("bounced and given back", {State::Deposited, State::Bounced, State::Returned}, "");
        row("endorsed and bounced", {State::Endorsed, State::Bounced}, "");
        row("endorsed and collected", {State::Endorsed, State::Cleared}, "110301:7=-1500 110301:9=1500");
        row("given back", {State::Returned}, "");
    }

    void wayEndsWhereTheMoneyIs()
    {
        QFETCH(QList<State>, way);
        // The receipt: debit in hand, credit who gave it.
        QMap<QString, double> balance{{QString::number(Accounts::chequesInHand), 1500}, {u"%1:%2"_s.arg(Accounts::persons).arg(giver), -1500}};
        State from = State::InHand;
        for (const State to : way) {
            for (const DocumentRow &row : ChequeStates::rowsOf({false, from, to, 1500, giver, endorsee, bankAccount, {}}))
                balance[sideOf(row)] += row.debit - row.credit;
            from = to;
        }
        QStringList holds;
        for (auto entry = balance.cbegin(); entry != balance.cend(); ++entry) {
            if (entry.value() != 0)
                holds.append(u"%1=%2"_s.arg(entry.key()).arg(entry.value()));
        }
        QTEST(holds.join(u' '), "holds");
    }

    void endsHaveNothingBehindThem_data()
    {
        QTest::addColumn<bool>("given");
        QTest::addColumn<State>("state");
        for (const bool given : {false, true}) {
            for (const State state : {State::Cleared, State::Returned, State::Void})
                QTest::addRow("%s %d", given ? "given" : "received", static_cast<int>(state)) << given << state;
        }
        QTest::newRow("given cheques are not deposited") << true << State::Deposited;
        QTest::newRow("given cheques are not endorsed") << true << State::Endorsed;
    }

    void endsHaveNothingBehindThem()
    {
        QFETCH(bool, given);
        QFETCH(State, state);
        QVERIFY(ChequeStates::following(state, given).isEmpty());
    }

    void whatCountsAndWhatIsOpen_data()
    {
        QTest::addColumn<State>("state");
        QTest::addColumn<bool>("counts");
        QTest::addColumn<bool>("open");
        QTest::newRow("in hand") << State::InHand << true << true;
        QTest::newRow("deposited") << State::Deposited << true << true;
        QTest::newRow("cleared") << State::Cleared << true << false;
        QTest::newRow("bounced") << State::Bounced << false << true;
        QTest::newRow("returned") << State::Returned << false << false;
        QTest::newRow("endorsed") << State::Endorsed << true << false;
        QTest::newRow("void") << State::Void << false << false;
    }

    void whatCountsAndWhatIsOpen()
    {
        QFETCH(State, state);
        QTEST(ChequeStates::counts(state), "counts");
        QTEST(ChequeStates::isOpen(state), "open");
    }

    void stepsAskForWhatTheyNeed_data()
    {
        QTest::addColumn<State>("from");
        QTest::addColumn<State>("to");
        QTest::addColumn<bool>("account");
        QTest::addColumn<bool>("person");
        QTest::newRow("deposited") << State::InHand << State::Deposited << true << false;
        QTest::newRow("cleared") << State::Deposited << State::Cleared << true << false;
        QTest::newRow("collected by somebody else") << State::Endorsed << State::Cleared << false << false;
        QTest::newRow("endorsed") << State::InHand << State::Endorsed << false << true;
        QTest::newRow("bounced") << State::Deposited << State::Bounced << false << false;
        QTest::newRow("returned") << State::InHand << State::Returned << false << false;
    }

    void stepsAskForWhatTheyNeed()
    {
        QFETCH(State, from);
        QFETCH(State, to);
        QTEST(ChequeStates::needsAccount(from, to), "account");
        QTEST(ChequeStates::needsPerson(to), "person");
    }
};

static const RegisteredTest<TestChequeStates> registeredChequeStates;
#include "TestChequeStates.moc"

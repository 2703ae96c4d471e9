// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cheques/ContractCheques.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/treasury/cheques/ChequeVoiding.h"
#include "tests/auto/contracts/cheques/ContractOfCheques.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

// The cheques of a contract, and what they pay.
class TestContractCheques : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<ContractOfCheques> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString texts() const
    {
        QStringList texts;
        for (const MatterCheques::FieldText &field : MatterCheques::texts(ContractCheques::ofPrice(ContractCheques::list(m_contract->key))))
            texts.append(field.text);
        return texts.join(u'/');
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        m_contract.reset();
        m_office.reset();
    }
    void init()
    {
        m_office->clear();
        m_contract = std::make_unique<ContractOfCheques>(*m_office);
    }

    void bouncedChequeOpensTheInstalment()
    {
        const int payment = m_contract->addInstalment(500);
        const auto isPaid = [&] { return value(u"SELECT iStatus FROM AutomobilPayments WHERE iID=%1"_s.arg(payment)); };
        const int cheque = m_contract->receive(u"77"_s, 500, m_contract->instalment(payment));
        QCOMPARE(isPaid(), u"1"_s);
        ContractOfCheques::bring(cheque, ChequeState::Deposited);
        QCOMPARE(isPaid(), u"1"_s);
        ContractOfCheques::bring(cheque, ChequeState::Bounced);
        QCOMPARE(isPaid(), u"0"_s);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), u"اشتباه"_s);
        QCOMPARE(isPaid(), u"1"_s);
        ContractOfCheques::bring(cheque, ChequeState::Bounced);
        ContractOfCheques::bring(cheque, ChequeState::Cleared);
        QCOMPARE(isPaid(), u"1"_s);
    }

    void chequesOfInstalmentsAreThoseThatStand()
    {
        const int first = m_contract->addInstalment(500);
        const int second = m_contract->addInstalment(300);
        QVERIFY(ContractCheques::ofInstalments(m_contract->key).isEmpty());
        m_contract->receive(u"77"_s, 200, m_contract->instalment(first));
        m_contract->receive(u"79"_s, 300, m_contract->instalment(first));
        m_contract->receive(u"81"_s, 100, m_contract->price());
        const int back = m_contract->receive(u"88"_s, 300, m_contract->instalment(second));
        using Cheques = QHash<int, QStringList>;
        QCOMPARE(ContractCheques::ofInstalments(m_contract->key), (Cheques{{first, {u"77 ملت"_s, u"79 ملت"_s}}, {second, {u"88 ملت"_s}}}));
        ContractOfCheques::bring(back, ChequeState::Returned);
        QCOMPARE(ContractCheques::ofInstalments(m_contract->key), (Cheques{{first, {u"77 ملت"_s, u"79 ملت"_s}}}));
        QVERIFY(ContractCheques::ofInstalments(m_contract->key + 1).isEmpty());
    }

    void onlyWhatPaysThePriceIsOnTheMatterPage()
    {
        QCOMPARE(texts(), u"/////"_s);
        m_contract->receive(u"77"_s, 500, m_contract->price());
        m_contract->receive(u"79"_s, 700, m_contract->price());
        m_contract->receive(u"88"_s, 300, m_contract->instalment(m_contract->addInstalment(300)));
        QCOMPARE(ContractCheques::list(m_contract->key).size(), 3);
        QCOMPARE(texts(), u"2/1,200/77، 79/ملت/ونک/6510"_s);
    }

    void whatIsVoidOrGivenBackIsNot()
    {
        const int mistyped = m_contract->receive(u"77"_s, 500, m_contract->price());
        const int back = m_contract->receive(u"78"_s, 500, m_contract->price());
        const int bounced = m_contract->receive(u"79"_s, 700, m_contract->price());
        ChequeVoiding::makeVoid(mistyped, u"مبلغ"_s);
        ContractOfCheques::bring(back, ChequeState::Returned);
        ContractOfCheques::bring(bounced, ChequeState::Bounced);
        QCOMPARE(texts(), u"1/700/79/ملت/ونک/6510"_s);
        const QList<ContractCheques::Row> rows = ContractCheques::list(m_contract->key);
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows.at(0).state, ChequeState::Void);
        QCOMPARE(rows.at(2).amount, 700.0);
        QCOMPARE(rows.at(2).cheque.number, u"79"_s);
    }

    // One cheque in two parts: the page says what of it pays the price.
    void partOfAChequePaysThePrice()
    {
        const ReceiptPurpose instalment = m_contract->instalment(m_contract->addInstalment(300));
        ReceiptPosting::save({.personID = m_contract->buyer,
                              .date = ContractOfCheques::today(),
                              .method = CTblReceipts::cheque,
                              .cheque = Cheque{u"1111111111111177"_s, u"77"_s, u"ملت"_s, {}, {}, ContractOfCheques::today(), {}},
                              .parts = {{300, u"قسط"_s, instalment}, {700, u"بها"_s, m_contract->price()}}});
        QCOMPARE(ContractCheques::list(m_contract->key).constFirst().amount, 1000.0);
        QCOMPARE(texts(), u"1/700/77/ملت//"_s);
    }

    void priceStandsFirstAmongThePurposes()
    {
        const ReceiptPurpose price = m_contract->price();
        QCOMPARE(price.what, int(ReceiptPurpose::Price));
        QCOMPARE(price.side, 2);
        QCOMPARE(price.recordID, m_contract->key);
        QVERIFY(price.text.contains(u"خریدار"_s));
    }

    void contractThatChangedTakesNoCheque_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("void") << u"iStatus=1"_s;
        QTest::newRow("another buyer") << u"iPersonSecondID=iPersonSecondID+1"_s;
    }

    void contractThatChangedTakesNoCheque()
    {
        QFETCH(QString, change);
        const ReceiptPurpose price = m_contract->price();
        m_office->database().run(u"UPDATE AutomobilContracts SET "_s + change);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, m_contract->receive(u"77"_s, 500, price));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Cheques"_s), u"0"_s);
    }

    void entryIsRefusedUntilTheContractIsReady_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("shownBuyer"); // 0: typed by hand, 1: the stored one, 2: another
        QTest::addColumn<bool>("refused");
        QTest::newRow("ready") << QString() << 1 << false;
        QTest::newRow("typed by hand") << QString() << 0 << true;
        QTest::newRow("changed and not saved") << QString() << 2 << true;
        QTest::newRow("void") << u"iStatus=1"_s << 1 << true;
    }

    void entryIsRefusedUntilTheContractIsReady()
    {
        QFETCH(QString, stored);
        QFETCH(int, shownBuyer);
        if (!stored.isEmpty())
            m_office->database().run(u"UPDATE AutomobilContracts SET "_s + stored);
        CTblAutomobilContracts contract;
        m_contract->load(contract);
        const int shown = shownBuyer == 1 ? m_contract->buyer : shownBuyer * 1000;
        QTEST(!ContractCheques::entryRefusal(contract, shown).isEmpty(), "refused");
    }
};

static const RegisteredTest<TestContractCheques, QApplication> registeredContractCheques;
#include "TestContractCheques.moc"

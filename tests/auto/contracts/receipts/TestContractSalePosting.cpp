// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanFollowing.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/utility/values/Money.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/RegisteredTest.h"

#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

// The price of an instalment sale in the books, from the contract to the last instalment.
class TestContractSalePosting : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PlannedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void begin(bool posted, const std::function<void(CTblAutomobilContracts &)> &more = {})
    {
        m_contract = std::make_unique<PlannedContract>(*m_office, posted, more);
    }
    static void nothing(CTblAutomobilContracts &) { }
    void compareBooks() { QCOMPARE(value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s); }
    static QStringList open(int person, CTblReceipts::Kind kind)
    {
        QStringList items;
        for (const OpenItem &item : ReceiptOwners::openItems(person, kind))
            items.append(u"%1: %2"_s.arg(item.purpose.text).arg(item.rest));
        return items;
    }
    int hand(CTblReceipts::Kind kind, int person, double amount, const ReceiptPurpose &purpose)
    {
        return ReceiptPosting::save({.kind = kind,
                                     .personID = person,
                                     .date = GetDBSetting()->GetDBServerDate(),
                                     .account = 110101,
                                     .parts = {{amount, u"a"_s, purpose}}})
            .constFirst()
            .receiptID;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        m_contract.reset();
        m_office.reset();
    }
    void init() { m_office->clear(); }

    void buyerOwesThePriceAndTheInterestAndTheSellerIsOwedThePrice()
    {
        begin(true);
        QCOMPARE(m_contract->owes(m_contract->buyer), 2000.0 + 144 + 100);
        QCOMPARE(m_contract->owes(m_contract->seller), 100.0 - 2000);
        QCOMPARE(m_contract->balance(Accounts::carSaleClearing), 0.0);
        QCOMPARE(m_contract->balance(Accounts::instalmentInterest), -144.0);
        compareBooks();
    }

    void nothingIsPostedWhileTheSettingIsOff()
    {
        begin(false);
        QCOMPARE(m_contract->owes(m_contract->buyer), 100.0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs WHERE iHesabMoeenCode IN (210681,410281,410381)"_s), u"0"_s);
    }

    void documentThatHoldsTheSaleKeepsItWhenTheSettingIsTurnedOff()
    {
        begin(true);
        PlannedContract::setPosted(false);
        m_contract->save([](CTblAutomobilContracts &contract) { contract.m_sDesc = u"شرح"_s; });
        QCOMPARE(m_contract->owes(m_contract->buyer), 2244.0);
        compareBooks();
    }

    void documentGetsTheSaleWithTheNextSaveOnceTheSettingIsOn()
    {
        begin(false);
        PlannedContract::setPosted(true);
        QCOMPARE(m_contract->owes(m_contract->buyer), 100.0);
        m_contract->save(nothing);
        QCOMPARE(m_contract->owes(m_contract->buyer), 2244.0);
    }

    void showroomSellsItsOwnCar()
    {
        begin(true, [](CTblAutomobilContracts &contract) {
            contract.m_iPersonFirstID = 0;
            contract.m_iPersonContract1 = 1;
        });
        QCOMPARE(m_contract->balance(Accounts::carSales), -2000.0);
        QCOMPARE(m_contract->balance(Accounts::carSaleClearing), 0.0);
        compareBooks();
    }

    void sellerTypedByHandLeavesThePriceOnTheClearingAccount()
    {
        begin(true, [](CTblAutomobilContracts &contract) {
            contract.m_iPersonFirstID = 0;
            contract.m_iPersonContract1 = 2;
        });
        QCOMPARE(m_contract->balance(Accounts::carSaleClearing), -2000.0);
        QCOMPARE(m_contract->owes(m_contract->buyer), 2244.0);
        compareBooks();
    }

    void onlyAnInstalmentSaleToAPersonIsPosted_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("person");
        QTest::newRow("sale") << 0 << true;
        QTest::newRow("rent") << 1 << true;
        QTest::newRow("letter") << 3 << true;
        QTest::newRow("buyer typed by hand") << 2 << false;
    }

    void onlyAnInstalmentSaleToAPersonIsPosted()
    {
        QFETCH(int, type);
        QFETCH(bool, person);
        begin(true, [type, person](CTblAutomobilContracts &contract) {
            contract.m_iContractType = type;
            if (!person)
                contract.m_iPersonSecondID = 0;
        });
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs WHERE iHesabMoeenCode IN (210681,410281,410381)"_s), u"0"_s);
    }

    void interestFollowsThePlan()
    {
        begin(true);
        const auto keys = [this] { return StoredInstalments::keysOf(StoredInstalments::load(m_contract->key)); };
        StoredInstalments::remove(m_contract->key, keys());
        QCOMPARE(m_contract->owes(m_contract->buyer), 2100.0);
        const InstalmentTerms terms{1200, 2, RateUnit::Monthly, InterestMethod::WholePrincipal, 7, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
        StoredInstalments::save({m_contract->key, 1, m_contract->buyer}, keys(), terms, instalmentPlan(terms));
        QCOMPARE(m_contract->owes(m_contract->buyer), 2100.0 + 168);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents WHERE iKind=28"_s), u"1"_s);
        compareBooks();
    }

    // The books of an earlier year are closed: what would change its document is refused, anything else is saved.
    void planLeavesTheDocumentOfAnotherYearAlone_data()
    {
        QTest::addColumn<bool>("posted"); // the document holds the sale
        QTest::addColumn<double>("rate"); // of the new plan; below 0: the plan is deleted
        QTest::addColumn<bool>("refused");
        QTest::newRow("other interest") << true << 2.0 << true;
        QTest::newRow("same interest") << true << 1.0 << false;
        QTest::newRow("deleted") << true << -1.0 << true;
        QTest::newRow("sale not in the books") << false << 2.0 << false;
        QTest::newRow("sale not in the books, deleted") << false << -1.0 << false;
    }

    void planLeavesTheDocumentOfAnotherYearAlone()
    {
        QFETCH(bool, posted);
        QFETCH(double, rate);
        QFETCH(bool, refused);
        begin(posted);
        // Turned on meanwhile, as it is where the sale is in the books.
        PlannedContract::setPosted(true);
        for (const QString &table : {u"AutomobilContracts"_s, u"Documents"_s, u"Docs"_s})
            m_office->database().run(u"UPDATE %1 SET iFiscalYear=iFiscalYear-1"_s.arg(table));
        const QString rows = u"SELECT GROUP_CONCAT(CONCAT_WS('/',iDocNum,iFiscalYear,iPersonID,dBed,dBes) ORDER BY iID) FROM Docs"_s;
        const QString books = value(rows);
        const QString plan = m_contract->plan();
        const QList<int> keys = StoredInstalments::keysOf(StoredInstalments::load(m_contract->key));
        const InstalmentTerms terms{1200, rate, RateUnit::Monthly, InterestMethod::WholePrincipal, 12, 1, IntervalUnit::Months, ConvertToMiladi(1405, 2, 1)};
        QString told;
        try {
            if (rate < 0)
                StoredInstalments::remove(m_contract->key, keys);
            else
                StoredInstalments::save({m_contract->key, 1, m_contract->buyer}, keys, terms, instalmentPlan(terms));
        } catch (const KAccountingError &error) {
            told = error.userMessage();
        }
        QCOMPARE(!told.isEmpty(), refused);
        QVERIFY2(!refused || told.contains(QString::number(GetDBSetting()->FiscalYear() - 1)), qPrintable(told));
        QCOMPARE(value(rows), books);
        const bool replaced = keys != StoredInstalments::keysOf(StoredInstalments::load(m_contract->key));
        QCOMPARE(replaced, !refused);
        QVERIFY(!refused || m_contract->plan() == plan);
    }

    void spreadOfTheRestIsInTheBooksAtOnce()
    {
        begin(true);
        m_contract->receive(1, 112);
        const auto change = [](CTblAutomobilContracts &contract) { contract.m_dAmount = 3000; };
        std::optional<PlanFollowing::Answer> answer;
        const ContractSaving::PlanStep plan{[&answer](CTblAutomobilContracts &contract) { PlanFollowing::run(contract, answer); }};
        try {
            m_contract->save(change, plan);
        } catch (const PlanFollowing::Undecided &undecided) {
            answer = {undecided.facts(), PlanChoice::Spread};
        }
        m_contract->save(change, plan);
        const double planned = value(u"SELECT SUM(dAmount) FROM AutomobilPayments"_s).toDouble();
        QCOMPARE(planned, 2464.0);
        QCOMPARE(m_contract->owes(m_contract->buyer), 100 + 800 + planned - 112);
        compareBooks();
    }

    void planAndDocumentAreSavedTogetherOrNotAtAll()
    {
        begin(true);
        m_office->database().run(u"CREATE TRIGGER refuseInterest BEFORE INSERT ON Docs FOR EACH ROW "
                                 "IF NEW.iHesabMoeenCode=410281 THEN SIGNAL SQLSTATE '45000'; END IF"_s);
        const auto drop = qScopeGuard([this] { m_office->database().run(u"DROP TRIGGER refuseInterest"_s); });
        const InstalmentTerms terms{1200, 2, RateUnit::Monthly, InterestMethod::WholePrincipal, 7, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
        const QString before = m_contract->plan();
        QVERIFY_THROWS_EXCEPTION(CMySQLException,
                                 StoredInstalments::save({m_contract->key, 1, m_contract->buyer},
                                                         StoredInstalments::keysOf(StoredInstalments::load(m_contract->key)), terms, instalmentPlan(terms)));
        QCOMPARE(m_contract->plan(), before);
        QCOMPARE(m_contract->owes(m_contract->buyer), 2244.0);
        compareBooks();
    }

    void deletedContractTakesTheSaleWithIt()
    {
        begin(true);
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, m_contract->key));
        contract.Delete();
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs"_s), u"0"_s);
    }

    void buyerOwesNothingOnceAllIsReceived()
    {
        begin(true);
        for (int pass = 0; pass < 100; ++pass) {
            const QList<OpenItem> items = ReceiptOwners::openItems(m_contract->buyer, CTblReceipts::received);
            if (items.isEmpty())
                break;
            hand(CTblReceipts::received, m_contract->buyer, items.constFirst().rest, items.constFirst().purpose);
        }
        QVERIFY(ReceiptOwners::openItems(m_contract->buyer, CTblReceipts::received).isEmpty());
        QCOMPARE(m_contract->owes(m_contract->buyer), 0.0);
        QCOMPARE(value(u"SELECT SUM(iStatus) FROM AutomobilPayments"_s), u"12"_s);
    }

    // --- What is open ---

    void buyerHasThePriceOutsideOfThePlanAndTheInstalmentsOpen()
    {
        begin(true);
        m_contract->receive(1, 112);
        m_contract->receive(2, 50);
        const QStringList items = open(m_contract->buyer, CTblReceipts::received);
        QCOMPARE(items.size(), 13);
        QCOMPARE(items.mid(0, 4), (QStringList{u"کمیسیون قرارداد 1، خریدار: 100"_s, u"بهای خودرو قرارداد 1، خریدار: 800"_s, u"قسط 2 قرارداد 1: 62"_s, u"قسط 3 قرارداد 1: 112"_s}));
        const QList<OpenItem> found = ReceiptOwners::openItems(m_contract->buyer, CTblReceipts::received);
        hand(CTblReceipts::received, m_contract->buyer, 300, found.at(1).purpose);
        QCOMPARE(open(m_contract->buyer, CTblReceipts::received).at(1), u"بهای خودرو قرارداد 1، خریدار: 500"_s);
        QCOMPARE(open(m_contract->seller, CTblReceipts::received), QStringList{u"کمیسیون قرارداد 1، فروشنده: 100"_s});
    }

    void priceIsOpenAsFarAsThePlanDoesNotSplitIt_data()
    {
        QTest::addColumn<double>("principal"); // 0: no plan
        QTest::addColumn<double>("open");
        QTest::newRow("as the contract says") << 1200. << 800.;
        QTest::newRow("more paid down than it says") << 900. << 1100.;
        QTest::newRow("no plan yet") << 0. << 2000.;
    }

    void priceIsOpenAsFarAsThePlanDoesNotSplitIt()
    {
        QFETCH(double, principal);
        QFETCH(double, open);
        begin(true);
        const auto keys = [this] { return StoredInstalments::keysOf(StoredInstalments::load(m_contract->key)); };
        StoredInstalments::remove(m_contract->key, keys());
        if (principal > 0) {
            const InstalmentTerms terms{principal, 1.3, RateUnit::Monthly, InterestMethod::WholePrincipal, 7, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
            StoredInstalments::save({m_contract->key, 1, m_contract->buyer}, keys(), terms, instalmentPlan(terms));
        }
        double sum = 0;
        for (const OpenItem &item : ReceiptOwners::openItems(m_contract->buyer, CTblReceipts::received)) {
            sum += item.rest;
            if (item.purpose.what == ReceiptPurpose::Price)
                QCOMPARE(item.rest, open);
        }
        // What is open is what the books say he owes.
        QVERIFY2(IsEquals(sum, m_contract->owes(m_contract->buyer)), qPrintable(QString::number(sum)));
    }

    void sellerIsOwedThePrice()
    {
        begin(true);
        const QList<OpenItem> items = ReceiptOwners::openItems(m_contract->seller, CTblReceipts::paid);
        QCOMPARE(items.size(), 1);
        QCOMPARE(items.constFirst().rest, 2000.0);
        const int paid = hand(CTblReceipts::paid, m_contract->seller, 1500, items.constFirst().purpose);
        QCOMPARE(open(m_contract->seller, CTblReceipts::paid), QStringList{u"بهای خودرو قرارداد 1، فروشنده: 500"_s});
        ReceiptPosting::makeVoid(paid, u"اشتباه"_s);
        QCOMPARE(open(m_contract->seller, CTblReceipts::paid), QStringList{u"بهای خودرو قرارداد 1، فروشنده: 2000"_s});
        QVERIFY(open(m_contract->buyer, CTblReceipts::paid).isEmpty());
    }

    void priceIsOpenOnlyWhereTheBooksHoldIt()
    {
        begin(false);
        QVERIFY(open(m_contract->seller, CTblReceipts::paid).isEmpty());
        QVERIFY(!open(m_contract->buyer, CTblReceipts::received).join(u'|').contains(u"بهای خودرو"_s));
    }

    void voidAndUnconfirmedContractsHaveNothingOpen_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("void") << u"iStatus=1"_s;
        QTest::newRow("never confirmed") << u"iDocNum=0"_s;
    }

    void voidAndUnconfirmedContractsHaveNothingOpen()
    {
        QFETCH(QString, change);
        begin(true);
        m_office->database().run(u"UPDATE AutomobilContracts SET "_s + change);
        QVERIFY(open(m_contract->buyer, CTblReceipts::received).isEmpty());
        QVERIFY(open(m_contract->seller, CTblReceipts::paid).isEmpty());
    }
};

static const RegisteredTest<TestContractSalePosting, KApplication> registeredContractSalePosting;
#include "TestContractSalePosting.moc"

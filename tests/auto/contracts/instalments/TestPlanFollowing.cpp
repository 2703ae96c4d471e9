// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/CDlgPlanChoice.h"
#include "auto/contracts/instalments/PlanFollowing.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/RegisteredTest.h"

#include <QRadioButton>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

// What becomes of a plan when its contract changes.
class TestPlanFollowing : public QObject
{
    Q_OBJECT

    using Change = std::function<void(CTblAutomobilContracts &)>;

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PlannedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    static Change amount(double changed)
    {
        return [changed](CTblAutomobilContracts &contract) { contract.m_dAmount = changed; };
    }

    // The facts that the user is asked about; nothing where he is not.
    std::optional<PlanFollowing::Facts> asked(const Change &change, const std::optional<PlanFollowing::Answer> &answer = {}) const
    {
        try {
            m_contract->save(change, {[&answer](CTblAutomobilContracts &contract) { PlanFollowing::run(contract, answer); }});
        } catch (const PlanFollowing::Undecided &undecided) {
            return undecided.facts();
        }
        return {};
    }

    void decide(const Change &change, PlanChoice choice) const
    {
        const auto facts = asked(change);
        QVERIFY(facts);
        QVERIFY(!asked(change, PlanFollowing::Answer{*facts, choice}));
    }

    QStringList said() const
    {
        CTblAutomobilContracts contract;
        contract.IsRecordExist(u"iID"_s, m_contract->key);
        return PlanFollowing::disagreement(contract);
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
        m_contract = std::make_unique<PlannedContract>(*m_office);
    }

    void contractThatAgreesIsNotAskedAbout()
    {
        QVERIFY(!asked([](CTblAutomobilContracts &contract) { contract.m_sDesc = u"شرح"_s; }));
        // The price and the cash, by the same: what is split stays.
        QVERIFY(!asked([](CTblAutomobilContracts &contract) {
            contract.m_dAmount = 2300;
            contract.m_dFixAmount = 800;
        }));
        QVERIFY(said().isEmpty());
    }

    void changeIsAskedAboutAndNothingIsSavedBefore()
    {
        const auto facts = asked(amount(2600));
        QVERIFY(facts);
        QCOMPARE(facts->contract.left, 1800.0);
        QVERIFY(facts->agreement().amount && !facts->agreement().buyer);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"2000"_s);
    }

    void contractLeftInDisagreementIsAskedAboutOnce()
    {
        decide(amount(2600), PlanChoice::Leave);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"2600"_s);
        QCOMPARE(said().size(), 1);
        QVERIFY(!asked([](CTblAutomobilContracts &contract) { contract.m_sDesc = u"شرح"_s; }));
        const CDlgCalcPayment dialog(m_contract->key, m_contract->buyer, 0);
        QVERIFY2(dialog.disagreementText().contains(u"1,800"_s), qPrintable(dialog.disagreementText()));
        QVERIFY(asked(amount(2700)));
    }

    void restIsSpreadInTheUnitThatSavesTheContract()
    {
        m_contract->receive(1, 112);
        m_contract->receive(2, 50);
        const QString dates = value(u"SELECT GROUP_CONCAT(date ORDER BY iNum) FROM AutomobilPayments"_s);
        decide(amount(3000), PlanChoice::Spread);
        QVERIFY(said().isEmpty());
        QCOMPARE(value(u"SELECT CONCAT_WS('/',COUNT(*),ROUND(SUM(dAmount-dExtra),6)) FROM AutomobilPayments"_s), u"12/2200.000000"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iStatus ORDER BY iNum) FROM AutomobilPayments"_s), u"1,0,0,0,0,0,0,0,0,0,0,0"_s);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilPayments WHERE iNum=1"_s), u"112"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE dAmount<>ROUND(dAmount)"_s), u"0"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(date ORDER BY iNum) FROM AutomobilPayments"_s), dates);
    }

    void changedBuyerTakesOverWhatIsOpen()
    {
        m_contract->receive(1, 112);
        const int other = m_office->addPerson(u"علی"_s, u"رضایی"_s);
        const QString before = m_contract->plan();
        decide([other](CTblAutomobilContracts &contract) { contract.m_iPersonSecondID = other; }, PlanChoice::Spread);
        QCOMPARE(m_contract->plan(), before);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE iPersonID=%1"_s.arg(other)), u"11"_s);
        QVERIFY(said().isEmpty());
    }

    void planOfWhatIsNoInstalmentSaleCanGo()
    {
        const auto sale = [](CTblAutomobilContracts &contract) { contract.m_iContractType = 0; };
        const auto facts = asked(sale);
        QVERIFY(facts);
        QCOMPARE(facts->choices(), (QList{PlanChoice::Delete, PlanChoice::Leave}));
        QVERIFY(!asked(sale, PlanFollowing::Answer{*facts, PlanChoice::Delete}));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"0"_s);
    }

    void rowsThatHoldNothingAnyMoreGo()
    {
        m_contract->receive(1, 112);
        m_contract->receive(2, 50);
        // Just what was received of the principal: 100 and 50/1.12.
        const double principal = 100 + 50 / 1.12;
        decide([principal](CTblAutomobilContracts &contract) { contract.m_dAmount = 800 + principal; }, PlanChoice::Spread);
        QCOMPARE(m_contract->plan(), u"112/1,50/1"_s);
    }

    // --- Two desks ---

    void instalmentReceivedMeanwhileIsAskedAboutAnew()
    {
        const auto facts = asked(amount(2600));
        QVERIFY(facts);
        m_contract->receive(1, 112);
        const auto anew = asked(amount(2600), PlanFollowing::Answer{*facts, PlanChoice::NewPlan});
        QVERIFY(anew);
        QCOMPARE(anew->choices(), (QList{PlanChoice::Spread, PlanChoice::Leave}));
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"2000"_s);
    }

    void planReplacedMeanwhileIsAskedAboutAnew()
    {
        const auto facts = asked(amount(2600));
        QVERIFY(facts);
        const InstalmentTerms terms{1200, 0, RateUnit::Monthly, InterestMethod::WholePrincipal, 3, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
        StoredInstalments::save({m_contract->key, 1, m_contract->buyer}, StoredInstalments::keysOf(StoredInstalments::load(m_contract->key)), terms,
                                instalmentPlan(terms));
        QVERIFY(asked(amount(2600), PlanFollowing::Answer{*facts, PlanChoice::Spread}));
        QCOMPARE(value(u"SELECT SUM(dAmount) FROM AutomobilPayments"_s), u"1200"_s);
    }

    void contractAndSpreadAreSavedTogetherOrNotAtAll()
    {
        const auto facts = asked(amount(2600));
        QVERIFY(facts);
        const QString before = m_contract->plan();
        m_office->database().run(u"CREATE TRIGGER refuseRow BEFORE UPDATE ON AutomobilPayments FOR EACH ROW "
                                 "IF NEW.iNum=7 THEN SIGNAL SQLSTATE '45000'; END IF"_s);
        const auto drop = qScopeGuard([this] { m_office->database().run(u"DROP TRIGGER refuseRow"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, asked(amount(2600), PlanFollowing::Answer{*facts, PlanChoice::Spread}));
        QCOMPARE(m_contract->plan(), before);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"2000"_s);
    }

    // --- The question ---

    void questionOffersWhatCanBeDone()
    {
        const auto facts = asked(amount(2600));
        QVERIFY(facts);
        CDlgPlanChoice dialog(*facts);
        QCOMPARE(dialog.windowTitle(), u"برنامه اقساط"_s);
        QCOMPARE(dialog.choice(), PlanChoice::NewPlan);
        QCOMPARE(dialog.findChildren<QRadioButton *>().size(), 3);
        QVERIFY(dialog.choose(PlanChoice::Spread));
        QCOMPARE(dialog.choice(), PlanChoice::Spread);
        QVERIFY(!dialog.choose(PlanChoice::Delete));
    }

    void newPlanOpensCalculatedForTheNewAmount()
    {
        decide(amount(2600), PlanChoice::NewPlan);
        CDlgCalcPayment dialog(m_contract->key, m_contract->buyer, 0);
        dialog.calculateAnew(1800);
        QCOMPARE(dialog.list()->count(), 12);
        QCOMPARE(dialog.shownTotal(), 2016.0);
        dialog.savePlan();
        QVERIFY(said().isEmpty());
        QVERIFY(dialog.disagreementText().isEmpty());
    }
};

static const RegisteredTest<TestPlanFollowing, KApplication> registeredPlanFollowing;
#include "TestPlanFollowing.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"
#include "auto/catalog/parameters/CDlgInputParameters.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/cars/register/editor/CarEditorOffice.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Dialog = CDlgAddAutomobilInformation;

const QString notaryCost = u"dAmountPresence"_s;
const QString profit = u"dProfitAndLoss"_s;
const QString customs = u"iCustomsClearance"_s;

const QString inputs[] = {u"dSoldAmount"_s, u"dPurchasePriceOfOwner"_s,
                          u"dAutomobilExpenses"_s, notaryCost, u"dRemainingPresence"_s};

}

class TestCDlgAddAutomobilInformationSales : public QObject
{
    Q_OBJECT

    std::unique_ptr<CarEditorOffice> m_office;
    std::unique_ptr<Dialog> m_dialog;

    CDlgAddAutomobilInformationSales &open(const std::function<void(Car &)> &set = {}, EditorMode mode = EditorMode::Edit)
    {
        m_dialog = m_office->opened(m_office->addOwnedCar(set), mode);
        m_dialog->tabs()->setCurrentIndex(1);
        return *m_dialog->salePage();
    }

    KForm &form() { return *m_dialog->salePage()->form(); }
    double shown(const QString &column) { return form().edit(column)->number(); }

    void type(const QString &column, const char *text)
    {
        form().edit(column)->selectAll();
        QTest::keyClicks(form().edit(column), QString::fromLatin1(text));
    }

    Car &saved(Car &car) { return m_office->saved(*m_dialog, car); }

    int addTariff(const QString &title, double amount)
    {
        CTblAutomobilTariffs tariff;
        tariff.AddNew();
        tariff.m_sTitle = title;
        tariff.m_dAmount = amount;
        tariff.Update(true);
        return static_cast<int>(tariff.GetLastInsertedID());
    }

    // Opens the tariffs by the button and chooses that one; 0 goes back. Returns the tariff that the list began with.
    int pickTariff(int key)
    {
        int preselected = 0;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = qobject_cast<CDlgAutomobilTariffs *>(static_cast<KDialogHolder *>(window)->page());
            QVERIFY(page);
            preselected = page->list()->currentKey();
            if (key == 0)
                static_cast<QDialog *>(window)->reject();
            else {
                page->list()->selectKey(key);
                Q_EMIT page->list()->rowActivated(key);
            }
        });
        form().button(notaryCost)->click();
        return preselected;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<CarEditorOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->begin(); }
    void cleanup() { m_dialog.reset(); }

    void everyLabelIsToTheLetter()
    {
        open();
        compareLabels(u"sale"_s, form(), *m_dialog->salePage());
    }

    void pageHasNoChecksOfItsOwn()
    {
        QVERIFY(open().validate());
    }

    // --- Profit and loss ---

    void soldAThousandGivesAProfitOfTwoHundredAndTwenty()
    {
        open();
        type(u"dSoldAmount"_s, "1000");
        type(u"dPurchasePriceOfOwner"_s, "700");
        type(u"dAutomobilExpenses"_s, "50");
        type(notaryCost, "20");
        type(u"dRemainingPresence"_s, "10");
        QCOMPARE(shown(profit), 220.0);
        Car car;
        QCOMPARE(saved(car).m_dProfitAndLoss, 220.0);
    }

    void saleBelowThePurchasePriceIsALossSavedAsSuch()
    {
        open();
        type(u"dSoldAmount"_s, "600");
        type(u"dPurchasePriceOfOwner"_s, "700");
        QCOMPARE(shown(profit), -100.0);
        QVERIFY(form().edit(profit)->isEntryValid());
        Car car;
        QCOMPARE(saved(car).m_dProfitAndLoss, -100.0);
        m_dialog = m_office->opened(m_dialog->key());
        QCOMPARE(shown(profit), -100.0);
        QVERIFY(form().edit(profit)->text().contains(u'-'));
    }

    void eachOfTheFiveAmountsRecomputesAtOnce_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<double>("expected");
        for (const QString &column : inputs)
            QTest::newRow(qPrintable(column)) << column << (column == inputs[0] ? 500.0 : -400.0);
    }

    // Sold for 100 and nothing else; then that amount, or another one, becomes 500.
    void eachOfTheFiveAmountsRecomputesAtOnce()
    {
        QFETCH(QString, column);
        QFETCH(double, expected);
        open();
        type(inputs[0], "100");
        QCOMPARE(shown(profit), 100.0);
        type(column, "500");
        QCOMPARE(shown(profit), expected);
    }

    void noOtherAmountOfThePageIsComputedOrCounts()
    {
        open();
        type(u"dSoldAmount"_s, "100");
        for (const char *name : {"dMbayhAutomobilContract", "dAmountContract", "dPaidContract", "dAmountCommission", "dPaidComission"})
            type(QString::fromLatin1(name), "7");
        QCOMPARE(shown(profit), 100.0);
        QCOMPARE(shown(u"dRemainingContract"_s), 0.0);
        QCOMPARE(shown(u"dRemainingComission"_s), 0.0);
        type(u"dRemainingContract"_s, "3");
        Car car;
        saved(car);
        QCOMPARE(car.m_dRemainingContract, 3.0);
        QCOMPARE(car.m_dPaidContract, 7.0);
        QCOMPARE(car.m_dRemainingComission, 0.0);
    }

    void moreCanBePaidThanWasDue()
    {
        open([](Car &car) { car.m_dRemainingComission = -7; });
        type(u"dRemainingPresence"_s, "-10");
        QCOMPARE(shown(profit), 10.0);
        Car car;
        saved(car);
        QCOMPARE(car.m_dRemainingPresence, -10.0);
        QCOMPARE(car.m_dRemainingComission, -7.0);
    }

    void storedProfitThatDoesNotFollowIsComputedBeforeSaving()
    {
        m_dialog = m_office->opened(m_office->addOwnedCar([](Car &car) {
            car.m_dSoldAmount = 100;
            car.m_dProfitAndLoss = 4711;
        }));
        // The page is never looked at.
        Car car;
        QCOMPARE(saved(car).m_dProfitAndLoss, 100.0);
    }

    void profitCannotBeTyped()
    {
        open();
        QVERIFY(form().edit(profit)->isReadOnly());
    }

    // --- Notary tariff ---

    void chosenTariffGivesTheNotarysCostAndIsWhereTheListBegins()
    {
        addTariff(u"سند"_s, 1500);
        const int key = addTariff(u"وکالت"_s, 2500000);
        open([](Car &car) { car.m_dSoldAmount = 3000000; });
        pickTariff(key);
        QCOMPARE(m_dialog->salePage()->tariffID(), key);
        QCOMPARE(form().edit(notaryCost)->text(), u"2,500,000"_s);
        QCOMPARE(shown(profit), 500000.0);
        QCOMPARE(pickTariff(0), key);
        // Going back changes nothing.
        QCOMPARE(shown(notaryCost), 2500000.0);
        QCOMPARE(m_dialog->salePage()->tariffID(), key);
        Car car;
        saved(car);
        QCOMPARE(car.m_dAmountPresence, 2500000.0);
        QCOMPARE(car.m_dProfitAndLoss, 500000.0);
    }

    void afterReopeningNoTariffIsRemembered()
    {
        const int key = addTariff(u"وکالت"_s, 2500);
        open();
        pickTariff(key);
        Car car;
        saved(car);
        m_office->database().run(u"UPDATE AutomobilTariffs SET dAmount=9999"_s);
        m_dialog = m_office->opened(m_dialog->key());
        QCOMPARE(m_dialog->salePage()->tariffID(), 0);
        QCOMPARE(shown(notaryCost), 2500.0);
        QCOMPARE(m_office->database().value(u"SELECT iTariffsID FROM AutomobilInformations"_s), u"0"_s);
    }

    void choosingATariffAndCancellingTheEditorLeavesTheStoredCostUnchanged()
    {
        const int key = addTariff(u"وکالت"_s, 2500);
        open([](Car &car) { car.m_dAmountPresence = 70; });
        pickTariff(key);
        QCOMPARE(shown(notaryCost), 2500.0);
        m_dialog->reject();
        Car car;
        QCOMPARE(m_office->load(car, m_dialog->key()).m_dAmountPresence, 70.0);
    }

    void tariffThatThePageHoldsReplacesTheStoredCostWhenThePageIsFilledAgain()
    {
        const int key = addTariff(u"وکالت"_s, 2500);
        open([](Car &car) { car.m_dAmountPresence = 70; });
        pickTariff(key);
        Car car;
        m_office->load(car, m_dialog->key());
        m_dialog->salePage()->fill(car);
        QCOMPARE(shown(notaryCost), 2500.0);
        m_office->database().run(u"DELETE FROM AutomobilTariffs"_s);
        m_dialog->salePage()->fill(car);
        QCOMPARE(shown(notaryCost), 70.0);
    }

    void tariffsNeedTheirAccessRight()
    {
        addTariff(u"وکالت"_s, 2500);
        open([](Car &car) { car.m_dAmountPresence = 70; });
        const QString rightsForm = u"AutomobilTariffs"_s;
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~KSecurity::Access);
        form().button(notaryCost)->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Access)});
        QCOMPARE(shown(notaryCost), 70.0);
    }

    // --- Buyer ---

    void buyerIsShownFromThePersonsAndCanBeEmptied()
    {
        open([this](Car &car) { car.m_iPersonBuyerID = m_office->buyer; });
        PersonGroup *buyer = m_dialog->salePage()->buyer();
        QCOMPARE(buyer->name(), u"رضا احمدی"_s);
        QCOMPARE(buyer->codeEdit()->text(), u"2"_s);
        QPushButton *clear = named<QPushButton>(*buyer, u"کد شخص : حذف خريدار"_s);
        QVERIFY(clear->isEnabled());
        clear->click();
        QVERIFY(!clear->isEnabled());
        Car car;
        QCOMPARE(saved(car).m_iPersonBuyerID, 0);
    }

    void buyerIsPickedFromThePersons()
    {
        open();
        PersonGroup *buyer = m_dialog->salePage()->buyer();
        QVERIFY(!named<QPushButton>(*buyer, u"کد شخص : حذف خريدار"_s)->isEnabled());
        TestOffice::whenModal("KDialogHolder", [this](QWidget *window) {
            auto *page = static_cast<KDialogHolder *>(window)->page();
            QVERIFY(qobject_cast<CDlgPersons *>(page));
            page->findChild<KExtListCtrl *>()->selectKey(m_office->buyer);
            Q_EMIT page->findChild<KExtListCtrl *>()->rowActivated(m_office->buyer);
        });
        named<QPushButton>(*buyer, u"کد شخص : ... خريدار"_s)->click();
        QCOMPARE(buyer->name(), u"رضا احمدی"_s);
        Car car;
        QCOMPARE(saved(car).m_iPersonBuyerID, m_office->buyer);
    }

    void buyerDeletedFromThePersonsLeavesTheFieldsEmptyAndItsButtonDisabled()
    {
        open([](Car &car) { car.m_iPersonBuyerID = 4711; });
        PersonGroup *buyer = m_dialog->salePage()->buyer();
        for (const KEdit *line : buyer->findChildren<KEdit *>())
            QCOMPARE(line->text(), QString());
        QVERIFY(!named<QPushButton>(*buyer, u"کد شخص : حذف خريدار"_s)->isEnabled());
        Car car;
        QCOMPARE(saved(car).m_iPersonBuyerID, 4711);
    }

    // --- Customs ---

    void customsAreThoseOfTheInputParameters()
    {
        const int south = m_office->addItem(CTblItems::typeClearanceCustoms, u"بندرعباس"_s);
        m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        open();
        QCOMPARE(m_office->entries(form().comboBox(customs)), (QStringList{u"-"_s, u"بندرعباس"_s}));
        int option = -1;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = qobject_cast<CDlgInputParameters *>(static_cast<KDialogHolder *>(window)->page());
            QVERIFY(page);
            option = page->option();
            page->list()->selectKey(south);
            Q_EMIT page->list()->rowActivated(south);
        });
        form().button(customs)->click();
        QCOMPARE(option, int(InputParameters::ClearanceCustoms));
        Car car;
        QCOMPARE(saved(car).m_iCustomsClearance, south);
    }

    void customsThatAreGoneAreKept()
    {
        open([](Car &car) { car.m_iCustomsClearance = 4711; });
        Car car;
        QCOMPARE(saved(car).m_iCustomsClearance, 4711);
    }

    // --- Showing ---

    void shownCarHasNoButtons()
    {
        open({}, EditorMode::Show);
        for (const QPushButton *button : m_dialog->salePage()->findChildren<QPushButton *>())
            QVERIFY2(!button->isVisible(), qPrintable(button->accessibleName()));
    }
};

static const RegisteredTest<TestCDlgAddAutomobilInformationSales, KApplication> registeredCDlgAddAutomobilInformationSales;

#include "TestCDlgAddAutomobilInformationSales.moc"

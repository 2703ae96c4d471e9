// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/CarContracts.h"
#include "auto/contracts/cars/CarSale.h"
#include "auto/contracts/cars/CDlgCarContracts.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "auto/subjects/AutoSubjects.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/office/OtherDesk.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// A contract that is made from a car: what it remembers, and what becomes of the car's sale page.
class TestCarOfContract : public ContractEditorTest
{
    Q_OBJECT

    using Car = CTblAutomobilInformations;

    int addCar(const std::function<void(Car &)> &more = {})
    {
        return m_office->addCar([&](Car &car) {
            car.m_iPersonID = m_seller;
            car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
            car.m_dAmount = 800'000;
            if (more)
                more(car);
        });
    }

    // A new contract of the car, ready to be saved.
    std::unique_ptr<Dialog> filledFrom(int car)
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        if (!dialog->takeCar(car))
            return dialog;
        dialog->basePage()->secondParty()->takePerson(m_buyer);
        fillMatterPage(*dialog->matterPage());
        return dialog;
    }

    int savedFrom(int car)
    {
        auto dialog = filledFrom(car);
        dialog->accept();
        return dialog->isVisible() ? 0 : dialog->key();
    }

    QString sale(int car)
    {
        return value(u"SELECT CONCAT_WS('/',bSold,iPersonBuyerID,ROUND(dSoldAmount),ROUND(dAmountContract),ROUND(dAmountCommission),ROUND(dProfitAndLoss)) "
                     "FROM AutomobilInformations WHERE iID=%1"_s.arg(car));
    }
    QString linked() { return value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iContractID,iCarID) ORDER BY iContractID) FROM CarContracts"_s); }
    static QString link(int contract, int car) { return u"%1/%2"_s.arg(contract).arg(car); }
    static QStringList asked(const QString &part) { return g_pDlgYesNo->takeShown().filter(part); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        begin();
        m_office->database().run(u"DELETE FROM CarContracts"_s);
    }

    void priceOfTheCarIsProposedWithItsCommission()
    {
        auto dialog = filledFrom(addCar());
        QCOMPARE(shown(*dialog, "dAmount"), 800'000.0);
        QCOMPARE(shown(*dialog, "dCommission"), 16'000.0);
    }

    void anAmountThatWasEnteredStays()
    {
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        type(*dialog, "dAmount", "500000");
        QVERIFY(dialog->takeCar(addCar()));
        QCOMPARE(shown(*dialog, "dAmount"), 500'000.0);
    }

    void savedContractRemembersItsCarAndFillsItsSalePage()
    {
        const int car = addCar([](Car &c) { c.m_dPurchasePriceOfOwner = 700'000; });
        const int contract = savedFrom(car);
        QCOMPARE(linked(), link(contract, car));
        QCOMPARE(sale(car), u"1/%1/800000/800000/16000/100000"_s.arg(m_buyer));
        QCOMPARE(asked(u"صفحه فروش خودرو"_s).size(), 1);
        // What is opened again asks nothing more.
        opened(contract)->accept();
        QCOMPARE(asked(u"صفحه فروش خودرو"_s).size(), 0);
        QCOMPARE(linked(), link(contract, car));
    }

    void whoeverSaysNoLeavesTheSalePageAlone()
    {
        const int car = addCar();
        auto dialog = filledFrom(car);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog->accept();
        QCOMPARE(linked(), link(dialog->key(), car));
        QCOMPARE(sale(car), u"0/0/0/0/0/0"_s);
    }

    void whatTheSalePageSaysAlreadyStays()
    {
        const int car = addCar([](Car &c) { c.m_dAmountContract = 5; });
        savedFrom(car);
        QCOMPARE(sale(car), u"1/%1/800000/5/16000/800000"_s.arg(m_buyer));
    }

    void cancelledContractLeavesNothing()
    {
        const int car = addCar();
        auto dialog = filledFrom(car);
        dialog->reject();
        QCOMPARE(linked(), QString());
        QCOMPARE(sale(car), u"0/0/0/0/0/0"_s);
    }

    void carThatStandsInAnOpenContractSaysSo()
    {
        const int car = addCar();
        const int first = savedFrom(car);
        m_office->database().run(u"UPDATE AutomobilInformations SET bSold=0"_s);
        int listed = 0;
        TestOffice::whenModal("CDlgCarContracts", [&](QWidget *window) {
            auto *dialog = static_cast<CDlgCarContracts *>(window);
            listed = dialog->list()->currentKey();
            dialog->reject();
        });
        auto dialog = opened(Dialog::addPlaceholder(), Mode::New);
        QVERIFY(!dialog->takeCar(car));
        QCOMPARE(listed, first);
        QCOMPARE(shown(*dialog, "dAmount"), 0.0);
        // One that is not active any more is no question.
        m_office->database().run(u"UPDATE AutomobilContracts SET iStatus=1 WHERE iID=%1"_s.arg(first));
        QVERIFY(dialog->takeCar(car));
    }

    // Whoever has entered the sale by hand is not asked to have it filled.
    void ofASoldCarNothingIsAsked()
    {
        const int car = addCar([](Car &c) { c.m_bSold = 1; });
        const int contract = savedFrom(car);
        QCOMPARE(linked(), link(contract, car));
        QCOMPARE(asked(u"خودرو"_s), QStringList());
        QCOMPARE(sale(car), u"1/0/0/0/0/0"_s);
    }

    // --- Another desk ---

    void carSoldMeanwhileIsToldAndNeverOverwritten_data()
    {
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("goes back") << false;
        QTest::newRow("saves the contract alone") << true;
    }

    void carSoldMeanwhileIsToldAndNeverOverwritten()
    {
        QFETCH(bool, goesOn);
        const int car = addCar();
        auto dialog = filledFrom(car);
        const auto there = CarSale::unsold(car);
        QVERIFY(there);
        // The other desk is quicker than the answer to the question: its change comes between the question and the unit.
        m_office->database().run(u"CREATE TRIGGER meanwhile BEFORE UPDATE ON AutomobilContracts FOR EACH ROW UPDATE AutomobilInformations SET bSold=1, dSoldAmount=7"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        g_pDlgYesNo->answerNext(goesOn ? KMessageDialog::Yes : KMessageDialog::No);
        dialog->accept();
        m_office->database().run(u"DROP TRIGGER meanwhile"_s);
        QCOMPARE(asked(u"در این میان تغییر داده است"_s).size(), 1);
        QCOMPARE(dialog->isVisible(), !goesOn);
        QCOMPARE(linked(), goesOn ? link(dialog->key(), car) : QString());
        QCOMPARE(value(u"SELECT ROUND(dSoldAmount) FROM AutomobilInformations"_s), goesOn ? u"7"_s : u"0"_s);
    }

    void carDeletedMeanwhileIsTold()
    {
        const int car = addCar();
        auto dialog = filledFrom(car);
        OtherDesk(*m_office, u"AutomobilInformations"_s).does([&] {
            Car there;
            QVERIFY(there.IsRecordExist(u"iID"_s, car));
            QVERIFY(there.Delete());
        });
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(asked(u"حذف کرده است"_s).size(), 1);
        QCOMPARE(linked(), QString());
    }

    void contractBegunMeanwhileIsToldOnce()
    {
        const int car = addCar();
        auto dialog = filledFrom(car);
        const int other = m_office->addContract();
        CTblCarContracts::set(other, car);
        dialog->accept();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(asked(u"قرارداد دیگری نوشته شده"_s).size(), 1);
        QCOMPARE(linked(), link(other, car) < link(dialog->key(), car) ? link(other, car) + u',' + link(dialog->key(), car) : link(dialog->key(), car) + u',' + link(other, car));
    }

    void pressedTwiceItIsDoneOnce()
    {
        const int car = addCar();
        auto dialog = filledFrom(car);
        dialog->accept();
        dialog->accept();
        QCOMPARE(value(u"SELECT COUNT(*) FROM CarContracts"_s), u"1"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void whoMayNotChangeCarsIsNotAsked()
    {
        const int car = addCar();
        m_office->logInAs(u"mina"_s, u"AutomobilContracts"_s, KSecurity::allRights);
        QVERIFY(!CarSale::unsold(car));
        m_office->logInAsAdmin();
        QVERIFY(CarSale::unsold(car));
    }

    // --- Parted ---

    static CarContracts::Entry entryOf(int car, int contract)
    {
        for (const CarContracts::Entry &entry : CarContracts::ofCar(car)) {
            if (entry.contractID == contract)
                return entry;
        }
        return {};
    }
    static QString refusalOfUnlinking(int car, const CarContracts::Entry &asked)
    {
        try {
            CarContracts::unlink(car, asked);
        } catch (const KAccountingError &error) {
            return error.userMessage();
        }
        return {};
    }
    QString notedOf(const QString &table, int key)
    {
        return value(u"SELECT sValues FROM Changes WHERE sTable='%1' AND iRecordID=%2 ORDER BY iID DESC LIMIT 1"_s.arg(table).arg(key));
    }

    void partedContractAndSaleStayAndBothHistoriesTell()
    {
        AutoSubjects::enter();
        const int car = addCar();
        const int contract = savedFrom(car);
        const QString sold = sale(car);
        CDlgCarContracts window(car, CDlgCarContracts::Purpose::Show);
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        window.unlinkButton()->click();
        QCOMPARE(linked(), link(contract, car));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        window.unlinkButton()->click();
        QCOMPARE(asked(u"از این خودرو جدا شود؟"_s).size(), 2);
        QCOMPARE(linked(), QString());
        QCOMPARE(window.list()->count(), 0);
        QVERIFY(!window.unlinkButton()->isEnabled());
        QCOMPARE(sale(car), sold);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
        QVERIFY2(notedOf(u"AutomobilContracts"_s, contract).contains(u"خودروی قرارداد"_s), qPrintable(notedOf(u"AutomobilContracts"_s, contract)));
        QVERIFY2(notedOf(u"AutomobilInformations"_s, car).contains(u"قرارداد خودرو"_s), qPrintable(notedOf(u"AutomobilInformations"_s, car)));
        // Pressed twice it does nothing more.
        window.unlinkButton()->click();
        QCOMPARE(asked(u"از این خودرو"_s), QStringList());
    }

    void whoAsksBeforeAnotherContractPartsNothing()
    {
        const CDlgCarContracts window(addCar(), CDlgCarContracts::Purpose::AskForAnother);
        QVERIFY(!window.unlinkButton());
    }

    void whatAnotherDeskDidBeforeItIsPartedIsTold_data()
    {
        QTest::addColumn<QString>("there");
        QTest::addColumn<QString>("told");
        QTest::newRow("parted") << u"parted"_s << u"آن را تغییر داده است"_s;
        QTest::newRow("archived") << u"archived"_s << u"بایگانی کرده است"_s;
        QTest::newRow("deleted") << u"deleted"_s << u"حذف کرده است"_s;
    }

    void whatAnotherDeskDidBeforeItIsPartedIsTold()
    {
        QFETCH(QString, there);
        QFETCH(QString, told);
        AutoSubjects::enter();
        const int car = addCar();
        const int contract = savedFrom(car);
        const CarContracts::Entry seen = entryOf(car, contract);
        OtherDesk(*m_office, u"AutomobilContracts"_s).does([&] {
            if (there == u"parted"_s)
                return CarContracts::unlink(car, seen);
            CTblAutomobilContracts row;
            QVERIFY(row.IsRecordExist(u"iID"_s, contract));
            if (there == u"deleted"_s)
                return ContractDeleting::run(row);
            row.Edit();
            row.m_iArchiveUserID = GetDBSetting()->GetUserID();
            row.Update(true);
        });
        const QString before = linked();
        const QString said = refusalOfUnlinking(car, seen);
        QVERIFY2(said.contains(told) && said.contains(u"کاربر «sima»"_s), qPrintable(said));
        QCOMPARE(linked(), before);
    }

    void withoutTheRightOrInAClosedDatabaseNothingIsParted()
    {
        const int car = addCar();
        const int contract = savedFrom(car);
        const CarContracts::Entry seen = entryOf(car, contract);
        m_office->logInAs(u"mina"_s, u"AutomobilContracts"_s, KSecurity::Read);
        QVERIFY(!refusalOfUnlinking(car, seen).isEmpty());
        m_office->logInAsAdmin();
        GetDBSetting()->SetClosedDB(true);
        const QString said = refusalOfUnlinking(car, seen);
        GetDBSetting()->SetClosedDB(false);
        QVERIFY2(said.contains(u"بسته شده است"_s), qPrintable(said));
        QCOMPARE(linked(), link(contract, car));
    }

    // --- The way back ---

    void deletedContractGivesTheSaleBack()
    {
        const int car = addCar([](Car &c) { c.m_dPurchasePriceOfOwner = 700'000; });
        const int key = savedFrom(car);
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, key));
        QCOMPARE(CarSale::soldBy(contract), car);
        ContractDeleting::run(contract, [&] { CarSale::takeBack(contract); });
        QCOMPARE(sale(car), u"0/0/0/0/0/-700000"_s);
        QCOMPARE(linked(), QString());
    }

    void whatWasChangedSinceStaysAndASaleOfOthersIsNone()
    {
        const int car = addCar();
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, savedFrom(car)));
        m_office->database().run(u"UPDATE AutomobilInformations SET dAmountCommission=9"_s);
        KTransaction::runReplayable([&] { CarSale::takeBack(contract); });
        QCOMPARE(sale(car), u"0/0/0/0/9/0"_s);
        m_office->database().run(u"UPDATE AutomobilInformations SET bSold=1, dSoldAmount=3"_s);
        QCOMPARE(CarSale::soldBy(contract), 0);
        KTransaction::runReplayable([&] { CarSale::takeBack(contract); });
        QCOMPARE(sale(car), u"1/0/3/0/9/0"_s);
    }
};

static const RegisteredTest<TestCarOfContract, KApplication> registeredCarOfContract;
#include "TestCarOfContract.moc"

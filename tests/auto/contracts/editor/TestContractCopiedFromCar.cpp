// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"
#include "auto/contracts/editor/LoadCarForContract.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;

QString matter(const CDlgAddAutomobilContract &dialog, const char *column)
{
    return dialog.matterPage()->form()->edit(QString::fromLatin1(column))->plainText();
}

QString firstParty(const CDlgAddAutomobilContract &dialog, const QString &label)
{
    for (const QLineEdit *edit : dialog.basePage()->firstParty()->findChildren<QLineEdit *>()) {
        if (edit->accessibleName() == label + u" طرف اول"_s)
            return edit->text();
    }
    return u"no such field"_s;
}

}

// The command "گالري اتومبيل" of the contract editor.
class TestContractCopiedFromCar : public ContractEditorTest
{
    Q_OBJECT

    int m_owner = 0;

    // Presses the button and picks that car in the list that opens; 0 cancels. The key that was preselected.
    static int pick(Dialog &dialog, int car)
    {
        int preselected = -1;
        TestOffice::whenModal("KDialogHolder", [&preselected, car](QWidget *window) {
            const auto *page = window->findChild<CDlgAutomobilInformations *>();
            preselected = page->list()->currentKey();
            if (car == 0) {
                static_cast<QDialog *>(window)->reject();
                return;
            }
            page->list()->selectKey(car);
            Q_EMIT page->list()->rowActivated(car);
        });
        dialog.carButton()->click();
        return preselected;
    }

    int fullCar()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"206"_s);
        const int carClass = m_office->addClass(model, u"تیپ 5"_s);
        const int system = m_office->addItem(CTblItems::typeSystem, u"هاچ بک"_s);
        const int white = m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        return m_office->addCar([=, this](Car &car) {
            car.m_iPersonID = m_owner;
            car.m_iAutomobilType = brand;
            car.m_iModel = model;
            car.m_iBrigade = carClass;
            car.m_iSystem = system;
            car.m_iColor = white;
            car.m_iYear = 1398;
            car.m_iUsageType = 2;
            car.m_iFuel = 3;
            car.m_iNumOFAxles = 2;
            car.m_iNumOfWheels = 6;
            car.m_sNumOfEngines = u"E-77"_s;
            car.m_sChassisNum = u"NAAP03"_s;
            car.m_sVIN = u"IRFC981V3DK123456"_s;
            car.m_sNumOfPlates = u"11 د 222 ایران 33"_s;
            car.m_sDocumentsDelivered = u"برگ سبز، سند"_s;
            car.m_sDesc = u"گلگیر تعویض"_s;
            car.m_oPicture.data = QByteArray(500, 'p');
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_owner = m_office->addPerson(u"سارا"_s, u"کریمی"_s, [](CTblPersons &person) {
            person.m_sFatherName = u"علی"_s;
            person.m_sIdentityNum = u"1234"_s;
            person.m_sIdentityCity = u"تبریز"_s;
            person.m_sNationalCode = u"0010000001"_s;
            person.m_sAddress = u"خیابان آزادی"_s;
            person.m_sTel = u"88776655"_s;
            person.m_sMobile = u"09121234567"_s;
            person.m_dateBirth = QDateTime(QDate(1980, 3, 20), QTime(0, 0), Qt::UTC);
        });
    }

    void pickedCarFillsTheVehicleAndItsOwnerTheFirstParty()
    {
        const int car = fullCar();
        const int key = m_office->addContract([](CTblAutomobilContracts &contract) { contract.m_sDengue = u"شش"_s; });
        auto dialog = opened(key);
        QVERIFY(dialog->carButton()->isEnabled());
        pick(*dialog, car);
        const std::pair<const char *, QString> wanted[] = {
            {"sAutomobilName", u"پژو 206"_s},
            {"sAutomobilType", u"سنگین"_s},
            {"sSystem", u"هاچ بک"_s},
            {"sBrigade", u"تیپ 5"_s},
            {"sModel", u"1398"_s},
            {"sColor", u"سفید"_s},
            {"sFuel", u"گازوئیل"_s},
            {"sNumOFAxles", u"2"_s},
            {"sNumOfWheels", u"6"_s},
            {"sNumOfEngines", u"E-77"_s},
            {"sChassisNum", u"NAAP03"_s},
            {"sVIN", u"IRFC981V3DK123456"_s},
            {"sNumOfPlates", u"11 د 222 ایران 33"_s},
            {"sDocumentsDelivered", u"برگ سبز، سند"_s},
            {"sDescMatter", u"گلگیر تعویض"_s},
            {"sDengue", u"شش"_s}, // no matter of the car
        };
        for (const auto &[column, text] : wanted)
            QCOMPARE(matter(*dialog, column), text);
        QCOMPARE(dialog->basePage()->firstParty()->personField()->personID(), m_owner);
        QCOMPARE(dialog->basePage()->firstParty()->name(), u"سارا کریمی"_s);
        QCOMPARE(firstParty(*dialog, u"نام پدر :"_s), u"علی"_s);
        QCOMPARE(firstParty(*dialog, u"شماره شناسنامه :"_s), u"1234"_s);
        QCOMPARE(firstParty(*dialog, u"محل صدور :"_s), u"تبریز"_s);
        QCOMPARE(firstParty(*dialog, u"کد ملي :"_s), u"0010000001"_s);
        QCOMPARE(firstParty(*dialog, u"آدرس :"_s), u"خیابان آزادی"_s);
        QCOMPARE(firstParty(*dialog, u"تلفن :"_s), u"88776655"_s);
        QCOMPARE(firstParty(*dialog, u"موبايل :"_s), u"09121234567"_s);
        QCOMPARE(firstParty(*dialog, u"تاريخ تولد :"_s), u"1358/12/30"_s);
    }

    void nothingIsSavedUntilTheContractIs()
    {
        const int car = fullCar();
        const int key = m_office->addContract([](CTblAutomobilContracts &contract) {
            contract.m_sName2 = u"خریدار"_s;
            contract.m_iPersonContract2 = int(PartyKind::Other);
            contract.m_dAmount = 1000;
        });
        const QString name =
            u"SELECT CONCAT(sAutomobilName,'|',iPersonFirstID) FROM AutomobilContracts WHERE iID=%1"_s.arg(key);
        auto dialog = opened(key);
        pick(*dialog, car);
        QCOMPARE(m_office->database().value(name), u"پراید|0"_s);
        dialog->accept();
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        QCOMPARE(m_office->database().value(name), u"پژو 206|%1"_s.arg(m_owner));
    }

    void cancelledPickChangesNothing()
    {
        fullCar();
        auto dialog = opened(m_office->addContract());
        pick(*dialog, 0);
        QCOMPARE(matter(*dialog, "sAutomobilName"), u"پراید"_s);
        QCOMPARE(dialog->basePage()->firstParty()->personField()->personID(), 0);
    }

    void carChosenBeforeIsPreselected()
    {
        m_office->addCar();
        const int car = fullCar();
        m_office->addCar();
        auto dialog = opened(m_office->addContract());
        QVERIFY(pick(*dialog, car) != car);
        // A cancelled pick does not forget it.
        QCOMPARE(pick(*dialog, 0), car);
        QCOMPARE(pick(*dialog, 0), car);
    }

    void carWithoutAnOwnerLeavesThePartyAsItIs_data()
    {
        QTest::addColumn<int>("owner");
        QTest::newRow("no owner") << 0;
        QTest::newRow("an owner who is gone") << 987654;
    }

    void carWithoutAnOwnerLeavesThePartyAsItIs()
    {
        QFETCH(int, owner);
        const int car = m_office->addCar([owner](Car &c) {
            c.m_iPersonID = owner;
            c.m_sNumOfPlates = u"99"_s;
        });
        auto dialog = opened(m_office->addContract());
        ContractPartyGroup *party = dialog->basePage()->firstParty();
        party->setKind(PartyKind::Other);
        party->personField()->nameEdit()->setText(u"دستی"_s);
        pick(*dialog, car);
        QCOMPARE(matter(*dialog, "sNumOfPlates"), u"99"_s);
        QCOMPARE(party->kind(), PartyKind::Other);
        QCOMPARE(party->name(), u"دستی"_s);
    }

    void ownerTakesThePlaceOfAPartyOfAnotherKind()
    {
        const int car = fullCar();
        auto dialog = opened(m_office->addContract());
        ContractPartyGroup *party = dialog->basePage()->firstParty();
        party->setKind(PartyKind::Other);
        party->personField()->nameEdit()->setText(u"دستی"_s);
        pick(*dialog, car);
        QCOMPARE(party->kind(), PartyKind::Ordinary);
        QCOMPARE(party->personField()->personID(), m_owner);
    }

    void secondCarLeavesNothingOfTheFirst()
    {
        const int first = fullCar();
        const int second = m_office->addCar([](Car &car) { car.m_sNumOfPlates = u"55"_s; });
        auto dialog = opened(m_office->addContract());
        pick(*dialog, first);
        pick(*dialog, second);
        QCOMPARE(matter(*dialog, "sNumOfPlates"), u"55"_s);
        for (const char *column : {"sAutomobilName", "sBrigade", "sModel", "sColor", "sVIN", "sChassisNum", "sNumOfEngines"})
            QCOMPARE(matter(*dialog, column), QString());
        // Kinds and fuels without a word leave what is there.
        QCOMPARE(matter(*dialog, "sFuel"), u"گازوئیل"_s);
        QCOMPARE(matter(*dialog, "sAutomobilType"), u"سنگین"_s);
    }

    // A name of the catalog and a value of the parameters can be longer than the contract's columns.
    void textThatTheContractDoesNotHoldWholeIsToldAndItsBeginningTaken()
    {
        const QString longName(45, QChar(u'ن'));
        const int brand = m_office->addBrand(longName);
        const int model = m_office->addModel(brand, longName);
        const int color = m_office->addItem(CTblItems::typeColor, QString(60, QChar(u'ر')));
        const int car = m_office->addCar([=, this](Car &c) {
            c.m_iPersonID = m_owner;
            c.m_iAutomobilType = brand;
            c.m_iModel = model;
            c.m_iColor = color;
            c.m_sNumOfPlates = u"۱۲ ب ۳۴۵"_s;
        });
        auto dialog = opened(m_office->addContract());
        pick(*dialog, car);
        QCOMPARE(matter(*dialog, "sAutomobilName"), longName + u' ' + longName.left(4));
        QCOMPARE(matter(*dialog, "sColor"), QString(50, QChar(u'ر')));
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"متن خودرو در این فیلدهای قرارداد جا نشد و کوتاه شد، لطفا بررسی کنید: نام اتومبيل، رنگ"_s});
        QCOMPARE(dialog->basePage()->firstParty()->personField()->personID(), m_owner);
        // What fits is nothing to speak of.
        pick(*dialog, fullCar());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void carIsReadWithoutItsPicture()
    {
        const int car = fullCar();
        const ObservedStatements statements({u"SELECT"_s});
        QVERIFY(loadCarForContract(car));
        QVERIFY(statements.taken().filter(u"oPicture"_s).isEmpty());
        QVERIFY(!loadCarForContract(car + 1));
    }
};

static const RegisteredTest<TestContractCopiedFromCar, KApplication> registeredContractCopiedFromCar;
#include "TestContractCopiedFromCar.moc"

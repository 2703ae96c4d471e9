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

namespace {

using Car = CTblAutomobilInformations;

QString matter(const CDlgAddAutomobilContract &dialog, const char *column)
{
    return dialog.matterPage()->form()->edit(QString::fromLatin1(column))->plainText();
}

QString firstParty(const CDlgAddAutomobilContract &dialog, const QString &label)
{
    for (const QLineEdit *edit : dialog.basePage()->firstParty()->findChildren<QLineEdit *>()) {
        if (edit->accessibleName() == label + QStringLiteral(" طرف اول"))
            return edit->text();
    }
    return QStringLiteral("no such field");
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
        const int brand = m_office->addBrand(QStringLiteral("پژو"));
        const int model = m_office->addModel(brand, QStringLiteral("206"));
        const int carClass = m_office->addClass(model, QStringLiteral("تیپ 5"));
        const int system = m_office->addItem(CTblItems::typeSystem, QStringLiteral("هاچ بک"));
        const int white = m_office->addItem(CTblItems::typeColor, QStringLiteral("سفید"));
        return m_office->addCar([=, this](Car &car) {
            car.m_iPersonID = m_owner;
            car.m_iAutomobilType = brand;
            car.m_iModel = model;
            car.m_iBrigade = carClass;
            car.m_iSystem = system;
            car.m_iColor = white;
            car.m_iYear = 1398;
            car.m_iUsageType = 2;
            car.m_iFuel = 4;
            car.m_iNumOFAxles = 2;
            car.m_iNumOfWheels = 6;
            car.m_sNumOfEngines = QStringLiteral("E-77");
            car.m_sChassisNum = QStringLiteral("NAAP03");
            car.m_sVIN = QStringLiteral("IRFC981V3DK123456");
            car.m_sNumOfPlates = QStringLiteral("11 د 222 ایران 33");
            car.m_sDocumentsDelivered = QStringLiteral("برگ سبز، سند");
            car.m_sDesc = QStringLiteral("گلگیر تعویض");
            car.m_oPicture.data = QByteArray(500, 'p');
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_owner = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"), [](CTblPersons &person) {
            person.m_sFatherName = QStringLiteral("علی");
            person.m_sIdentityNum = QStringLiteral("1234");
            person.m_sIdentityCity = QStringLiteral("تبریز");
            person.m_sNationalCode = QStringLiteral("0010000001");
            person.m_sAddress = QStringLiteral("خیابان آزادی");
            person.m_sTel = QStringLiteral("88776655");
            person.m_sMobile = QStringLiteral("09121234567");
            person.m_dateBirth = QDateTime(QDate(1980, 3, 20), QTime(0, 0), Qt::UTC);
        });
    }

    void pickedCarFillsTheVehicleAndItsOwnerTheFirstParty()
    {
        const int car = fullCar();
        const int key = m_office->addContract([](CTblAutomobilContracts &contract) { contract.m_sDengue = QStringLiteral("شش"); });
        auto dialog = opened(key);
        QVERIFY(dialog->carButton()->isEnabled());
        pick(*dialog, car);
        const std::pair<const char *, QString> wanted[] = {
            {"sAutomobilName", QStringLiteral("پژو 206")},
            {"sAutomobilType", QStringLiteral("سنگین")},
            {"sSystem", QStringLiteral("هاچ بک")},
            {"sBrigade", QStringLiteral("تیپ 5")},
            {"sModel", QStringLiteral("1398")},
            {"sColor", QStringLiteral("سفید")},
            {"sFuel", QStringLiteral("گازوئیل")},
            {"sNumOFAxles", QStringLiteral("2")},
            {"sNumOfWheels", QStringLiteral("6")},
            {"sNumOfEngines", QStringLiteral("E-77")},
            {"sChassisNum", QStringLiteral("NAAP03")},
            {"sVIN", QStringLiteral("IRFC981V3DK123456")},
            {"sNumOfPlates", QStringLiteral("11 د 222 ایران 33")},
            {"sDocumentsDelivered", QStringLiteral("برگ سبز، سند")},
            {"sDescMatter", QStringLiteral("گلگیر تعویض")},
            {"sDengue", QStringLiteral("شش")}, // no matter of the car
        };
        for (const auto &[column, text] : wanted)
            QCOMPARE(matter(*dialog, column), text);
        QCOMPARE(dialog->basePage()->firstParty()->personField()->personID(), m_owner);
        QCOMPARE(dialog->basePage()->firstParty()->name(), QStringLiteral("سارا کریمی"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("نام پدر :")), QStringLiteral("علی"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("شماره شناسنامه :")), QStringLiteral("1234"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("محل صدور :")), QStringLiteral("تبریز"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("کد ملي :")), QStringLiteral("0010000001"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("آدرس :")), QStringLiteral("خیابان آزادی"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("تلفن :")), QStringLiteral("88776655"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("موبايل :")), QStringLiteral("09121234567"));
        QCOMPARE(firstParty(*dialog, QStringLiteral("تاريخ تولد :")), QStringLiteral("1358/12/30"));
    }

    void nothingIsSavedUntilTheContractIs()
    {
        const int car = fullCar();
        const int key = m_office->addContract([](CTblAutomobilContracts &contract) {
            contract.m_sName2 = QStringLiteral("خریدار");
            contract.m_iPersonContract2 = int(PartyKind::Other);
            contract.m_dAmount = 1000;
        });
        const QString name =
            QStringLiteral("SELECT CONCAT(sAutomobilName,'|',iPersonFirstID) FROM AutomobilContracts WHERE iID=%1").arg(key);
        auto dialog = opened(key);
        pick(*dialog, car);
        QCOMPARE(m_office->database().value(name), QStringLiteral("پراید|0"));
        dialog->accept();
        QVERIFY2(!dialog->isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
        QCOMPARE(m_office->database().value(name), QStringLiteral("پژو 206|%1").arg(m_owner));
    }

    void cancelledPickChangesNothing()
    {
        fullCar();
        auto dialog = opened(m_office->addContract());
        pick(*dialog, 0);
        QCOMPARE(matter(*dialog, "sAutomobilName"), QStringLiteral("پراید"));
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
            c.m_sNumOfPlates = QStringLiteral("99");
        });
        auto dialog = opened(m_office->addContract());
        ContractPartyGroup *party = dialog->basePage()->firstParty();
        party->setKind(PartyKind::Other);
        party->personField()->nameEdit()->setText(QStringLiteral("دستی"));
        pick(*dialog, car);
        QCOMPARE(matter(*dialog, "sNumOfPlates"), QStringLiteral("99"));
        QCOMPARE(party->kind(), PartyKind::Other);
        QCOMPARE(party->name(), QStringLiteral("دستی"));
    }

    void ownerTakesThePlaceOfAPartyOfAnotherKind()
    {
        const int car = fullCar();
        auto dialog = opened(m_office->addContract());
        ContractPartyGroup *party = dialog->basePage()->firstParty();
        party->setKind(PartyKind::Other);
        party->personField()->nameEdit()->setText(QStringLiteral("دستی"));
        pick(*dialog, car);
        QCOMPARE(party->kind(), PartyKind::Ordinary);
        QCOMPARE(party->personField()->personID(), m_owner);
    }

    void secondCarLeavesNothingOfTheFirst()
    {
        const int first = fullCar();
        const int second = m_office->addCar([](Car &car) { car.m_sNumOfPlates = QStringLiteral("55"); });
        auto dialog = opened(m_office->addContract());
        pick(*dialog, first);
        pick(*dialog, second);
        QCOMPARE(matter(*dialog, "sNumOfPlates"), QStringLiteral("55"));
        for (const char *column : {"sAutomobilName", "sBrigade", "sModel", "sColor", "sVIN", "sChassisNum", "sNumOfEngines"})
            QCOMPARE(matter(*dialog, column), QString());
        // Kinds and fuels without a word leave what is there.
        QCOMPARE(matter(*dialog, "sFuel"), QStringLiteral("گازوئیل"));
        QCOMPARE(matter(*dialog, "sAutomobilType"), QStringLiteral("سنگین"));
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
            c.m_sNumOfPlates = QStringLiteral("۱۲ ب ۳۴۵");
        });
        auto dialog = opened(m_office->addContract());
        pick(*dialog, car);
        QCOMPARE(matter(*dialog, "sAutomobilName"), longName + u' ' + longName.left(4));
        QCOMPARE(matter(*dialog, "sColor"), QString(50, QChar(u'ر')));
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{QStringLiteral("متن خودرو در این فیلدهای قرارداد جا نشد و کوتاه شد، لطفا بررسی کنید: نام اتومبيل، رنگ")});
        QCOMPARE(dialog->basePage()->firstParty()->personField()->personID(), m_owner);
        // What fits is nothing to speak of.
        pick(*dialog, fullCar());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void carIsReadWithoutItsPicture()
    {
        const int car = fullCar();
        const ObservedStatements statements({QStringLiteral("SELECT")});
        QVERIFY(loadCarForContract(car));
        QVERIFY(statements.taken().filter(QStringLiteral("oPicture")).isEmpty());
        QVERIFY(!loadCarForContract(car + 1));
    }
};

static const RegisteredTest<TestContractCopiedFromCar, KApplication> registered;
#include "TestContractCopiedFromCar.moc"

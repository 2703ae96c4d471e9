// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractSaving.h"
#include "auto/contracts/figures/Commission.h"
#include "auto/contracts/parties/PartyEntering.h"
#include "auto/contracts/parties/PartyQuestions.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/OtherDesk.h"
#include "tests/support/RegisteredTest.h"

#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Contract = CTblAutomobilContracts;

const QString code = u"0499370899"_s; // one with a right check digit

QString refusalOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

}

// A buyer who was typed into a contract by hand becomes a person of the list.
class TestPartyEntering : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_seller = 0;
    int m_contract = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void run(const QString &statement) { m_office->database().run(statement); }

    std::optional<PartyEntering::Party> buyer() const
    {
        Contract contract;
        return contract.IsRecordExist(u"iID"_s, m_contract) ? PartyEntering::of(contract, 2) : std::nullopt;
    }

    int addBuyer(const QString &nationalCode = code)
    {
        return m_office->addPerson(u"مریم"_s, u"کریمی نژاد"_s, [&](CTblPersons &person) {
            person.m_sNationalCode = nationalCode;
            person.m_sMobile = u"09120000000"_s;
        });
    }

    QString stored() { return value(u"SELECT CONCAT_WS('/',iPersonSecondID,iPersonContract2,sName2,sMobile2,sTel2) FROM AutomobilContracts"_s); }
    // What the books say of a person, and whether everything balances.
    QString owes(int person)
    {
        return value(u"SELECT CONCAT_WS('/',ROUND(SUM(IF(iPersonID=%1,dBed-dBes,0))),ROUND(SUM(dBed-dBes))) FROM Docs"_s.arg(person));
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_seller = m_office->addPerson(u"رضا"_s, u"احمدی"_s);
        m_contract = m_office->addContract();
        const auto write = [this](Contract &contract) {
            contract.m_iPersonFirstID = m_seller;
            contract.m_sName1 = u"رضا احمدی"_s;
            contract.m_sName2 = u"مريم  كريمي نژاد"_s;
            contract.m_iPersonContract2 = static_cast<qint32>(PartyKind::Other);
            contract.m_sNationalId2 = code;
            contract.m_sMobile2 = u"09121112233"_s;
            contract.m_sTel2 = u"0211234567"_s;
            contract.m_sAddress2 = u"تهران"_s;
            contract.m_dCommission = 1000;
            contract.m_dTax2 = 90;
            contract.m_dateContract = GetDBSetting()->GetDBServerDate();
        };
        QVERIFY(ContractSaving::save({m_contract, 0, write}).docNum != 0);
    }

    void partyIsWhoeverIsNotInTheList_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<bool>("isParty");
        QTest::newRow("typed by hand") << u"iPersonContract2=2"_s << true;
        QTest::newRow("said to be in the list, and is not") << u"iPersonContract2=0"_s << true;
        QTest::newRow("the showroom") << u"iPersonContract2=1"_s << false;
        QTest::newRow("of the list") << u"iPersonSecondID=5"_s << false;
        QTest::newRow("nobody") << u"sName2=' '"_s << false;
    }

    void partyIsWhoeverIsNotInTheList()
    {
        QFETCH(QString, columns);
        run(u"UPDATE AutomobilContracts SET "_s + columns);
        QTEST(buyer().has_value(), "isParty");
    }

    void heBecomesThePersonInContractDocumentAndPlan()
    {
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,dAmount) VALUES(%1,0,500),(%2,0,500)"_s.arg(m_contract).arg(m_contract + 1));
        const int person = addBuyer();
        QCOMPARE(owes(person), u"0/0"_s);
        const QString document = value(u"SELECT CONCAT_WS('/',iDocNum,iFiscalYear) FROM AutomobilContracts"_s);
        QCOMPARE(PartyEntering::enter(*buyer(), person), 0);
        // What the list does not know of him stays as it was typed.
        QCOMPARE(stored(), u"%1/0/مریم کریمی نژاد/09120000000/0211234567"_s.arg(person));
        QCOMPARE(owes(person), u"1090/0"_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iDocNum,iFiscalYear) FROM AutomobilContracts"_s), document);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iPersonID ORDER BY iID) FROM AutomobilPayments"_s), u"%1,0"_s.arg(person));
        QVERIFY(!buyer());
    }

    void sellersEntryLeavesThePlanAlone()
    {
        run(u"UPDATE AutomobilContracts SET iPersonFirstID=0,iPersonContract1=2"_s);
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID) VALUES(%1,77)"_s.arg(m_contract));
        Contract contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, m_contract));
        PartyEntering::enter(*PartyEntering::of(contract, 1), m_seller);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iPersonFirstID,iPersonContract1) FROM AutomobilContracts"_s), u"%1/0"_s.arg(m_seller));
        QCOMPARE(value(u"SELECT iPersonID FROM AutomobilPayments"_s), u"77"_s);
    }

    void documentOfAnotherYearStaysAsItIs()
    {
        for (const QString &table : {u"AutomobilContracts"_s, u"Documents"_s, u"Docs"_s})
            run(u"UPDATE %1 SET iFiscalYear=iFiscalYear-1"_s.arg(table));
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID) VALUES(%1,0)"_s.arg(m_contract));
        const QString rows = u"SELECT GROUP_CONCAT(CONCAT_WS('/',iDocNum,iFiscalYear,iPersonID,dBed,dBes) ORDER BY iID) FROM Docs"_s;
        const QString before = value(rows);
        const int person = addBuyer();
        QCOMPARE(PartyEntering::enter(*buyer(), person), GetDBSetting()->FiscalYear() - 1);
        QCOMPARE(stored(), u"%1/0/مریم کریمی نژاد/09120000000/0211234567"_s.arg(person));
        QCOMPARE(value(u"SELECT iPersonID FROM AutomobilPayments"_s), QString::number(person));
        QCOMPARE(value(rows), before);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"1"_s);
    }

    // A contract without a document does not get one by this.
    void contractWithoutADocumentKeepsNone()
    {
        run(u"DELETE FROM Documents"_s);
        run(u"DELETE FROM Docs"_s);
        run(u"UPDATE AutomobilContracts SET iDocNum=0,iFiscalYear=0"_s);
        PartyEntering::enter(*buyer(), addBuyer());
        QCOMPARE(value(u"SELECT COUNT(*) FROM Documents"_s), u"0"_s);
    }

    void whatKeepsHimOutIsSaidAndNothingChanges_data()
    {
        QTest::addColumn<QString>("statement"); // after the user saw the contract
        QTest::addColumn<QString>("told");
        QTest::newRow("contract gone") << u"DELETE FROM AutomobilContracts"_s << u"حذف کرده است"_s;
        QTest::newRow("void") << u"UPDATE AutomobilContracts SET iStatus=1"_s << u"باطل شده"_s;
        QTest::newRow("archived") << u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s << u"بایگانی"_s;
        QTest::newRow("another name") << u"UPDATE AutomobilContracts SET sName2='دیگری'"_s << u"تغییر داده است"_s;
        QTest::newRow("person gone") << u"DELETE FROM Persons WHERE sFamily='کریمی نژاد'"_s << u"شخص دیگر وجود ندارد"_s;
        QTest::newRow("the seller himself") << u"UPDATE AutomobilContracts SET iPersonFirstID=(SELECT MAX(iID) FROM Persons)"_s << u"دو طرف معامله"_s;
        QTest::newRow("closed") << u"INSERT INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"_s << u"بسته"_s;
    }

    void whatKeepsHimOutIsSaidAndNothingChanges()
    {
        QFETCH(QString, statement);
        QFETCH(QString, told);
        const int person = addBuyer();
        const auto seen = *buyer();
        run(statement);
        const QString before = stored();
        const QString refusal = refusalOf([&] { PartyEntering::enter(seen, person); });
        QVERIFY2(refusal.contains(told), qPrintable(refusal));
        QCOMPARE(stored(), before);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Docs WHERE iPersonID=%1"_s.arg(person)), u"0"_s);
    }

    void changingContractsIsARight()
    {
        const int person = addBuyer();
        const auto seen = *buyer();
        m_office->logInAs(u"clerk"_s, u"AutomobilContracts"_s, KSecurity::allRights & ~KSecurity::Modify);
        QCOMPARE(refusalOf([&] { PartyEntering::enter(seen, person); }), KSecurity::refusalText(u"AutomobilContracts"_s, KSecurity::Modify));
    }

    // Both desks saw him as typed by hand: he is entered once, and the second is told by whom.
    void twoDesksEnterHimOnce()
    {
        const int person = addBuyer();
        const auto seen = *buyer();
        OtherDesk(*m_office, u"AutomobilContracts"_s).does([&] { PartyEntering::enter(seen, person); });
        const QString before = stored();
        const QString refusal = refusalOf([&] { PartyEntering::enter(seen, m_office->addPerson(u"مریم"_s, u"دوم"_s)); });
        OtherDesk::compareTold({refusal}, u"تغییر داده است"_s);
        QCOMPARE(stored(), before);
    }

    void failureInTheMiddleLeavesAllAsItWas()
    {
        run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID) VALUES(%1,0)"_s.arg(m_contract));
        const int person = addBuyer();
        const auto seen = *buyer();
        run(u"CREATE TRIGGER refuseParty BEFORE UPDATE ON AutomobilContracts FOR EACH ROW SIGNAL SQLSTATE '45000'"_s);
        QVERIFY_THROWS_EXCEPTION(CMySQLException, PartyEntering::enter(seen, person));
        run(u"DROP TRIGGER refuseParty"_s);
        QCOMPARE(owes(person), u"0/0"_s);
        QCOMPARE(value(u"SELECT iPersonID FROM AutomobilPayments"_s), u"0"_s);
    }

    // --- The questions ---

    void editorOpensWithWhatTheContractSays()
    {
        QStringList shown;
        TestOffice::whenModal("CDlgAddPerson", [&shown](QWidget *window) {
            for (const QString &label : {u"نام :"_s, u"نام خانوادگی :"_s, u"کد ملی :"_s, u"موبایل :"_s, u"تلفن :"_s, u"آدرس :"_s}) {
                for (const KEdit *edit : window->findChildren<KEdit *>()) {
                    if (edit->accessibleName() == label)
                        shown << edit->text();
                }
            }
            static_cast<QDialog *>(window)->accept();
        });
        const int person = PartyQuestions::enter(m_contract, 2, nullptr);
        QCOMPARE(shown, (QStringList{u"مریم"_s, u"کریمی نژاد"_s, code, u"09121112233"_s, u"0211234567"_s, u"تهران"_s}));
        QVERIFY(person > 0);
        QCOMPARE(stored(), u"%1/0/مریم کریمی نژاد/09121112233/0211234567"_s.arg(person));
        // Asked again, there is nobody to enter.
        g_pDlgYesNo->takeShown();
        QCOMPARE(PartyQuestions::enter(m_contract, 2, nullptr), 0);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    }

    void documentThatWasNotChangedIsTold()
    {
        const int year = GetDBSetting()->FiscalYear() - 1;
        run(u"UPDATE AutomobilContracts SET iFiscalYear=%1"_s.arg(year));
        TestOffice::whenModal("CDlgAddPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        g_pDlgMessage->takeShown();
        QVERIFY(PartyQuestions::enter(m_contract, 2, nullptr) > 0);
        const QStringList told = g_pDlgMessage->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(QString::number(year)) && told.constFirst().contains(u"مریم کریمی نژاد"_s), qPrintable(told.constFirst()));
    }

    void companyIsEnteredAsOne()
    {
        run(u"UPDATE AutomobilContracts SET sNationalId2='10380284790',sName2='شرکت نمونه پارس'"_s);
        TestOffice::whenModal("CDlgAddPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        QVERIFY(PartyQuestions::enter(m_contract, 2, nullptr) > 0);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iKind,sName,sFamily,sName2) FROM Persons WHERE sNationalCode='10380284790'"_s),
                 u"2/شرکت نمونه پارس/شرکت نمونه پارس"_s);
    }

    void knownPersonIsOfferedInsteadOfASecondOne_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("takesKnown");
        QTest::newRow("yes") << int(KMessageDialog::Yes) << true;
        QTest::newRow("cancel") << int(KMessageDialog::Cancel) << false;
    }

    void knownPersonIsOfferedInsteadOfASecondOne()
    {
        QFETCH(int, answer);
        QFETCH(bool, takesKnown);
        const int person = addBuyer();
        const QString before = stored();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
        QCOMPARE(PartyQuestions::enter(m_contract, 2, nullptr), takesKnown ? person : 0);
        const QStringList asked = g_pDlgYesNo->takeShown();
        QVERIFY2(asked.value(1).contains(u"مریم کریمی نژاد"_s) && asked.value(1).contains(code), qPrintable(asked.join(u'|')));
        QCOMPARE(stored() == before, !takesKnown);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Persons"_s), u"2"_s);
    }

    void notWantedNothingIsEntered_data()
    {
        QTest::addColumn<bool>("editor"); // refused in the editor, not before
        QTest::newRow("at once") << false;
        QTest::newRow("in the editor") << true;
    }

    void notWantedNothingIsEntered()
    {
        QFETCH(bool, editor);
        g_pDlgYesNo->answerNext(editor ? KMessageDialog::Yes : KMessageDialog::No);
        if (editor)
            TestOffice::whenModal("CDlgAddPerson", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        const QString before = stored();
        QCOMPARE(PartyQuestions::enter(m_contract, 2, nullptr), 0);
        QCOMPARE(stored(), before);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Persons"_s), u"1"_s);
    }

    void whoMayNotIsTold_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<int>("missing");
        QTest::newRow("change contracts") << u"AutomobilContracts"_s << int(KSecurity::Modify);
        QTest::newRow("add persons") << u"Persons"_s << int(KSecurity::Write);
    }

    void whoMayNotIsTold()
    {
        QFETCH(QString, form);
        QFETCH(int, missing);
        const int clerk = m_office->logInAs(u"clerk"_s, form, KSecurity::allRights & ~missing);
        const QString other = form == u"Persons"_s ? u"AutomobilContracts"_s : u"Persons"_s;
        KSecurity::setRights(clerk, other, KSecurity::allRights);
        KSecurity::forgetRights();
        QCOMPARE(PartyQuestions::enter(m_contract, 2, nullptr), 0);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(form, static_cast<KSecurity::Right>(missing))});
        KSecurity::setRights(clerk, other, 0);
    }
};

static const RegisteredTest<TestPartyEntering, KApplication> registeredPartyEntering;
#include "TestPartyEntering.moc"

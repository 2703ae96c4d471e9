// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/editor/ContractPartyGroup.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/office/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Dialog = CDlgAddAutomobilContract;
using Mode = ContractEditorMode;

KEdit *edit(const Dialog &dialog, const char *name)
{
    return dialog.basePage()->form()->edit(QString::fromLatin1(name));
}

}

// What opening the contract editor asks of the server, and what of it counts from when on.
class TestContractEditorOpening : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_seller = 0;
    int m_buyer = 0;

    int addContract(const std::function<void(CTblAutomobilContracts &)> &more = {})
    {
        return m_office->addContract([&](CTblAutomobilContracts &contract) {
            contract.m_iPersonFirstID = m_seller;
            contract.m_iPersonSecondID = m_buyer;
            contract.m_sName1 = u"نام پیشین فروشنده"_s;
            contract.m_sName2 = u"نام پیشین خریدار"_s;
            if (more)
                more(contract);
        });
    }

    static void store(double firstCeiling, double firstPercent)
    {
        ContractSettings settings;
        settings.taxPercent = 6;
        settings.dutyPercent = 3;
        settings.tiers.ceilings = {firstCeiling, 0, 0};
        settings.tiers.percents = {firstPercent, 0, 0};
        settings.save();
    }

    static std::unique_ptr<Dialog> opened(int key, Mode mode)
    {
        auto dialog = std::make_unique<Dialog>(key, mode);
        return dialog->load() ? std::move(dialog) : nullptr;
    }

    // The SELECTs from the call to the painted editor, which is then cancelled.
    static QStringList readBy(const std::function<void()> &call)
    {
        QStringList taken;
        const ObservedStatements observed({u"SELECT"_s});
        TestOffice::whenModal("CDlgAddAutomobilContract", [&](QWidget *window) {
            QVERIFY(QTest::qWaitForWindowExposed(window));
            QCoreApplication::processEvents();
            taken = observed.taken();
            static_cast<QDialog *>(window)->reject();
        });
        call();
        return taken;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_seller = m_office->addPerson(u"سارا"_s, u"کریمی"_s,
                                       [](CTblPersons &person) { person.m_sFatherName = u"حسن"_s; });
        m_buyer = m_office->addPerson(u"رضا"_s, u"احمدی"_s,
                                      [](CTblPersons &person) { person.m_sFatherName = u"علی"_s; });
        store(1'000'000, 2);
        // What the tables look like is read once in the life of the program.
        (void)opened(addContract(), Mode::Edit);
        m_office->database().run(u"DELETE FROM AutomobilContracts"_s);
    }

    void openingAnExistingContractReadsLittle_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("archived");
        QTest::addColumn<int>("most");
        const QString change = u"edit"_s;
        const QString show = u"show"_s;
        // With the custom fields, which a contract that is deleted meanwhile is saved anew with.
        QTest::newRow("edited") << change << false << 7;
        QTest::newRow("shown") << show << false << 4;
        QTest::newRow("edited, which shows an archived one") << change << true << 7;
        QTest::newRow("archived one shown") << show << true << 5;
    }

    void openingAnExistingContractReadsLittle()
    {
        QFETCH(QString, command);
        QFETCH(bool, archived);
        QFETCH(int, most);
        addContract([&](auto &contract) { contract.m_iArchiveUserID = archived ? 1 : 0; });
        CDlgAutomobilContracts page;
        if (archived)
            m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=0"_s);
        page.open();
        if (archived)
            m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s);
        page.list()->selectRow(0);
        const QStringList taken = readBy([&] { QVERIFY(page.runCommand(command)); });
        QVERIFY(!taken.isEmpty());
        QVERIFY2(taken.size() <= most, qPrintable(taken.join(u'\n')));
    }

    // The highest code, then what every opening reads. What the record is found by is read besides: the row, and its keys when it is added and
    // when it is taken out again.
    void newContractReadsItsSettingsOnce()
    {
        const QStringList taken = readBy([] { QCOMPARE(Dialog::NewContract(nullptr), 0); });
        QCOMPARE(taken.filter(u"Properties"_s).size(), 1);
        QVERIFY2(taken.size() <= 6, qPrintable(taken.join(u'\n')));
    }

    void bothPartiesAreThosePersons()
    {
        auto dialog = opened(addContract(), Mode::Edit);
        const ContractPartyGroup *first = dialog->basePage()->firstParty();
        const ContractPartyGroup *second = dialog->basePage()->secondParty();
        const auto father = [](const ContractPartyGroup *group, const QString &side) {
            for (const KEdit *line : group->findChildren<KEdit *>()) {
                if (line->accessibleName() == u"نام پدر : "_s + side)
                    return line->text();
            }
            return QString();
        };
        QCOMPARE(first->name(), u"سارا کریمی"_s);
        QCOMPARE(second->name(), u"رضا احمدی"_s);
        QCOMPARE(father(first, u"طرف اول"_s), u"حسن"_s);
        QCOMPARE(father(second, u"طرف دوم"_s), u"علی"_s);
    }

    void personThatIsGoneLeavesTheNameOfTheContract()
    {
        const int contract = addContract();
        m_office->database().run(u"DELETE FROM Persons WHERE iID=%1"_s.arg(m_seller));
        auto dialog = opened(contract, Mode::Edit);
        QCOMPARE(dialog->basePage()->firstParty()->name(), u"نام پیشین فروشنده"_s);
        QCOMPARE(dialog->basePage()->secondParty()->name(), u"رضا احمدی"_s);
    }

    void onePersonOnBothSidesIsShownTwice()
    {
        auto dialog = opened(addContract([this](auto &row) { row.m_iPersonSecondID = m_seller; }), Mode::Edit);
        QCOMPARE(dialog->basePage()->firstParty()->name(), u"سارا کریمی"_s);
        QCOMPARE(dialog->basePage()->secondParty()->name(), u"سارا کریمی"_s);
    }

    void settingOfAnotherUserCountsAtTheNextOpening()
    {
        const int contract = addContract();
        auto before = opened(contract, Mode::Edit);
        store(1'000'000, 5);
        auto after = opened(contract, Mode::Edit);
        for (const auto &[dialog, commission] : {std::pair(before.get(), 20000.0), std::pair(after.get(), 50000.0)}) {
            dialog->show();
            edit(*dialog, "dAmount")->selectAll();
            QTest::keyClicks(edit(*dialog, "dAmount"), u"1000000"_s);
            QCOMPARE(edit(*dialog, "dCommission")->number(), commission);
        }
    }

    void closingByAnotherUserCountsAtTheNextOpening()
    {
        const int contract = addContract([](auto &row) { row.m_iArchiveUserID = 1; });
        QVERIFY(!opened(contract, Mode::Show)->unarchiveButton()->isHidden());
        GetDBSetting()->SetClosedDB(true);
        QVERIFY(opened(contract, Mode::Show)->unarchiveButton()->isHidden());
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!opened(contract, Mode::Show)->unarchiveButton()->isHidden());
    }
};

static const RegisteredTest<TestContractEditorOpening, KApplication> registeredContractEditorOpening;

#include "TestContractEditorOpening.moc"

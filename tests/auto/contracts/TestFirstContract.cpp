// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/FirstContract.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/entries/KEdit.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What an office that begins is told before its first contract.
class TestFirstContract : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static void setTiers()
    {
        ContractSettings settings = ContractSettings::load();
        settings.tiers.ceilings[0] = 1000;
        settings.tiers.percents[0] = 1;
        settings.save();
    }
    static void setTax()
    {
        ContractSettings settings = ContractSettings::load();
        settings.taxPercent = 9;
        settings.save();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }

    void whatIsMissingIsNamed_data()
    {
        QTest::addColumn<bool>("tiers");
        QTest::addColumn<bool>("tax");
        QTest::addColumn<bool>("year");
        for (int set = 0; set < 8; ++set)
            QTest::addRow("%s%s%s", set & 1 ? "tiers " : "", set & 2 ? "tax " : "", set & 4 ? "year" : "") << bool(set & 1) << bool(set & 2) << bool(set & 4);
    }

    void whatIsMissingIsNamed()
    {
        QFETCH(bool, tiers);
        QFETCH(bool, tax);
        QFETCH(bool, year);
        if (tiers)
            setTiers();
        if (tax)
            setTax();
        if (year)
            GetDBSetting()->SetFiscalYear(1405);
        QVERIFY(FirstContract::mayBegin(nullptr)); // answered with yes
        const QString asked = g_pDlgYesNo->takeShown().join(u'|');
        QCOMPARE(asked.contains(u"پله‌های کمیسیون"_s), !tiers);
        QCOMPARE(asked.contains(u"درصد مالیات"_s), !tax);
        QCOMPARE(asked.contains(u"سال مالی"_s), !year);
    }

    void thirdTierThatIsOffIsNone()
    {
        ContractSettings settings = ContractSettings::load();
        settings.tiers.ceilings[2] = 1000;
        settings.tiers.percents[2] = 1;
        settings.save();
        QVERIFY(FirstContract::mayBegin(nullptr));
        QVERIFY(g_pDlgYesNo->takeShown().value(0).contains(u"پله‌های کمیسیون"_s));
    }

    void itIsSaidBeforeTheFirstContractOnly_data()
    {
        QTest::addColumn<bool>("saved");
        QTest::newRow("a contract is there") << true;
        QTest::newRow("another desk's editor is open on one") << false;
    }

    void itIsSaidBeforeTheFirstContractOnly()
    {
        QFETCH(bool, saved);
        const int key = m_office->addContract();
        if (!saved) {
            KTransaction adding;
            Placeholders::add({u"AutomobilContracts"_s, key}, u"x"_s);
            adding.commit();
        }
        QVERIFY(FirstContract::mayBegin(nullptr));
        QCOMPARE(g_pDlgYesNo->takeShown().isEmpty(), saved);
    }

    void noLeadsToTheSettingsAndThenOn()
    {
        GetDBSetting()->SetFiscalYear(1405);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        TestOffice::whenModal("CDlgAutomobilContractSetting", [](QWidget *window) {
            for (KEdit *edit : window->findChildren<KEdit *>()) {
                const QString name = edit->accessibleName();
                if (edit->accessibleDescription() == u"پله 1 کمیسیون"_s && !edit->isReadOnly())
                    edit->setNumber(name == u"%"_s ? 1 : 1000);
                else if (name == u"ماليات :"_s)
                    edit->setNumber(9);
            }
            static_cast<QDialog *>(window)->accept();
        });
        QVERIFY(FirstContract::mayBegin(nullptr));
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(ContractSettings::load().taxPercent, 9.0);
    }

    void whoGoesBackBeginsNoContract_data()
    {
        QTest::addColumn<bool>("settings"); // left there, not at the question
        QTest::newRow("at the question") << false;
        QTest::newRow("in the settings") << true;
    }

    void whoGoesBackBeginsNoContract()
    {
        QFETCH(bool, settings);
        g_pDlgYesNo->answerNext(settings ? KMessageDialog::No : KMessageDialog::Cancel);
        if (settings)
            TestOffice::whenModal("CDlgAutomobilContractSetting", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        CDlgAutomobilContracts page;
        page.open();
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"0"_s);
    }

    // The settings of contracts do not hold it: the user goes on, or back.
    void withoutAFiscalYearAloneTheUserGoesOnOrBack()
    {
        setTiers();
        setTax();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(!FirstContract::mayBegin(nullptr));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QVERIFY(FirstContract::mayBegin(nullptr));
    }
};

static const RegisteredTest<TestFirstContract, KApplication> registeredFirstContract;
#include "TestFirstContract.moc"

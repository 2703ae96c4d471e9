// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/PlanSheet.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/papers/CDlgPaper.h"
#include "suite/utility/values/Money.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/PaperProof.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>
#include <QTest>

// The page that both parties sign, against what the tables say by themselves.
class TestPlanPaper : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PlannedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void press()
    {
        CDlgCalcPayment window(m_contract->key, m_contract->buyer, 0);
        window.show();
        captioned<QPushButton>(window, u"برگه قرارداد"_s)->click();
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
        m_office->logInAsAdmin();
        m_contract = std::make_unique<PlannedContract>(*m_office, false, [](CTblAutomobilContracts &contract) {
            contract.m_sAutomobilName = u"پژو 207"_s;
            contract.m_sChassisNum = u"NAAM01"_s;
        });
        m_office->database().run(u"UPDATE AutomobilContracts SET iNum=45"_s);
        (void)g_pDlgWarning->takeShown();
    }

    void pageSaysWhatTheTablesSay()
    {
        m_contract->receive(1, 112);
        m_contract->receive(2, 50);
        const std::optional<PaperSheet> sheet = PlanSheet::read(m_contract->key, u"نمایشگاه"_s);
        QVERIFY(sheet);
        QStringList rows;
        double due = 0;
        for (const QList<PaperSheet::Cell> &row : sheet->rows) {
            rows.append(row.at(0).text + u'|' + row.at(2).text);
            QCOMPARE(row.at(3).text, amountInWords(row.at(2).amount) + u" ریال"_s);
            due += row.at(2).amount;
        }
        const QString plan = u"FROM AutomobilPayments WHERE iAutomobilContractID=%1"_s.arg(m_contract->key);
        QCOMPARE(rows.join(u' '), value(u"SELECT GROUP_CONCAT(CONCAT_WS('|',iNum,FORMAT(dAmount,0)) ORDER BY date,iID SEPARATOR ' ') "_s + plan));
        QCOMPARE(due, value(u"SELECT SUM(dAmount) "_s + plan).toDouble());
        QCOMPARE(sheet->rows.size(), 12);
        QCOMPARE(sheet->rows.at(0).at(1).text, shamsiText(QDate::fromString(value(u"SELECT MIN(DATE(date)) "_s + plan), Qt::ISODate)));
        QCOMPARE(sheet->totals.at(0).text, value(u"SELECT CONCAT(FORMAT(SUM(dAmount),0),' ریال') "_s + plan));
        QCOMPARE(sheet->totals.at(2).text, value(u"SELECT CONCAT(FORMAT(SUM(dAmount),0),' ریال') FROM Receipts"_s));
        QCOMPARE(sheet->totals.at(2).text, u"162 ریال"_s);
        QCOMPARE(sheet->marks.at(0).text, u"45"_s);
        QStringList names;
        for (const PaperSheet::Signature &signature : sheet->signatures)
            names.append(signature.name);
        QCOMPARE(names, (QStringList{u"رضا احمدی"_s, u"مریم کریمی"_s, u"نمایشگاه"_s}));
        QCOMPARE(sheet->facts.at(2).text + sheet->facts.at(4).text, u"پژو 207NAAM01"_s);
    }

    void goneContractAndOneWithoutPlanHaveNone()
    {
        QVERIFY(!PlanSheet::read(99999, {}));
        m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
        QVERIFY(!PlanSheet::read(m_contract->key, {}));
        press();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا نخست اقساط را ذخیره نمایید."_s});
    }

    void buttonShowsTheStoredPlan()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"plan.pdf"_s);
        TestOffice::whenModal("CDlgPaper", [&path](QWidget *window) {
            static_cast<CDlgPaper *>(window)->savePdf(path);
            static_cast<QDialog *>(window)->reject();
        });
        press();
        const QString text = PaperProof::textOf(path);
        QVERIFY2(text.contains(u"1,344"_s) && text.contains(u"45"_s) && text.contains(u"کریمی"_s), qPrintable(text));
    }

    void rights_data()
    {
        QTest::addColumn<int>("rights");
        QTest::addColumn<int>("missing");
        QTest::newRow("none") << int(KSecurity::Access) << int(KSecurity::Read);
        QTest::newRow("reads") << int(KSecurity::Access | KSecurity::Read) << int(KSecurity::PrintList);
    }
    void rights()
    {
        QFETCH(int, rights);
        QFETCH(int, missing);
        m_office->logInAs(u"clerk"_s, u"AutomobilContracts"_s, rights);
        press();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"AutomobilContracts"_s, static_cast<KSecurity::Right>(missing))});
    }
};

static const RegisteredTest<TestPlanPaper, KApplication> registeredPlanPaper;
#include "TestPlanPaper.moc"

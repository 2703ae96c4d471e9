// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/NamedWidget.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

const QString calculateButton = u"محاسبه اقساط"_s;
const QString saveButton = u"ذخيره اقساط"_s;
const QString deleteButton = u"حذف اقساط"_s;
const QString receiveButton = u"دريافت قسط"_s;

InstalmentTerms terms(int count = 12)
{
    return {1200, 1, RateUnit::Monthly, InterestMethod::WholePrincipal, count, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
}

}

class TestCDlgCalcPayment : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_person = 0;
    int m_contract = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    void storePlan()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms());
        dialog.calculate();
        dialog.savePlan();
    }

    static void receive(CDlgCalcPayment &dialog, int row)
    {
        dialog.list()->selectRow(row);
        TestOffice::whenModal("CDlgCashFromPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        dialog.receiveSelected();
    }

    // As another desk receives the plan's second instalment.
    int receiveElsewhere(int payment) const
    {
        return ReceiptPosting::save({.personID = m_person,
                                     .date = GetDBSetting()->GetDBServerDate(),
                                     .account = 110101,
                                     .parts = {{112, u"a"_s, InstalmentReceiving::purpose(m_contract, payment, 2)}}})
            .constFirst()
            .docNum;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
        m_person = m_office->addPerson(u"رضا"_s, u"احمدی"_s);
        m_contract = m_office->addContract([this](CTblAutomobilContracts &contract) {
            contract.m_iContractType = 2;
            contract.m_iPersonSecondID = m_person;
            contract.m_iDocNum = 7;
        });
    }

    void everyTextIsToTheLetterAndTheFirstChoicesStand()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 500);
        QCOMPARE(dialog.windowTitle(), u"محاسبه اقساط"_s);
        QStringList labels;
        for (const QLabel *label : dialog.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {u"مبلغ مانده فاکتور جهت تقسيط :"_s, u" شروع تاريخ :"_s, u"درصد بهره :"_s,
              u"تعداد اقساط :"_s, u"فاصله اقساط :"_s, u"جمع اقساط :"_s,
              u"بهره اضافه شده :"_s, u"مانده فاکتور قسطي :"_s,
              u"به دليل اينکه حداقل يکي از اقساط پرداخت شده، نمي توانيد  اقساط را تغيير دهيد."_s})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QStringList groups;
        for (const QGroupBox *group : dialog.findChildren<QGroupBox *>()) {
            if (!group->title().isEmpty())
                groups << group->title();
        }
        QCOMPARE(groups, QStringList{u"روش محاسبه بهره"_s});
        for (const QString &caption : {calculateButton, saveButton, deleteButton, u"چاپ"_s, u"بازگشت"_s})
            QVERIFY2(dialog.button(caption), qPrintable(caption));
        QStringList titles;
        for (int i = 0; i < 5; ++i)
            titles << dialog.list()->model()->headerData(i, Qt::Horizontal).toString();
        QCOMPARE(titles, (QStringList{u"ردیف"_s, u"تاریخ قسط"_s, u"شرح"_s, u"مبلغ قسط"_s, u"وضعیت"_s}));
        for (const QRadioButton *radio : dialog.findChildren<QRadioButton *>())
            QCOMPARE(radio->isChecked(), radio->text() == u"بازاري"_s);
        QStringList chosen;
        for (const QComboBox *combo : dialog.findChildren<QComboBox *>())
            chosen << combo->currentText();
        QCOMPARE(chosen, (QStringList{u"ماهانه"_s, u"ماه"_s}));
        QCOMPARE(dialog.terms().principal, 500.0);
        QVERIFY(!dialog.isNoteShown());
    }

    void calculatedPlanIsListedWithItsSums()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms());
        dialog.calculate();
        QCOMPARE(dialog.list()->count(), 12);
        QCOMPARE(dialog.list()->cellText(0, 0), u"1"_s);
        QCOMPARE(dialog.list()->cellText(0, 1), u"1405/02/01"_s);
        QCOMPARE(dialog.list()->cellText(0, 2), QString());
        QCOMPARE(dialog.list()->cellText(0, 3), u"112"_s);
        QCOMPARE(dialog.list()->cellText(0, 4), u"پرداخت نشده"_s);
        QCOMPARE(dialog.shownTotal(), 1344.0);
        QCOMPARE(dialog.shownInterest(), 144.0);
    }

    void wrongInputGivesItsOneWarningAndLeavesTheList_data()
    {
        QTest::addColumn<double>("principal");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("interval");
        QTest::addColumn<QString>("message");
        QTest::newRow("principal") << 0. << 0 << 0 << u"لطفا مبلغ مانده فاکتور جهت تقسیط را وارد نمایید."_s;
        QTest::newRow("count") << 10. << 0 << 0 << u"لطفا تعداد اقساط را وارد نمایید."_s;
        QTest::newRow("interval") << 10. << 2 << 0 << u"لطفا فاصله اقساط را وارد نمایید."_s;
    }

    void wrongInputGivesItsOneWarningAndLeavesTheList()
    {
        QFETCH(double, principal);
        QFETCH(int, count);
        QFETCH(int, interval);
        QFETCH(QString, message);
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms());
        dialog.calculate();
        InstalmentTerms wrong = terms(count);
        wrong.principal = principal;
        wrong.interval = interval;
        dialog.setTerms(wrong);
        dialog.calculate();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QCOMPARE(dialog.list()->count(), 12);
    }

    // Nothing is calculated with a number that the line does not show.
    void markedEntryStopsTheCalculation_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        const auto row = [](const QString &name, const char *typed, const QString &why) {
            QTest::newRow(typed) << name << QString::fromLatin1(typed) << name + u' ' + why;
        };
        row(u"درصد بهره :"_s, "250", u"مقدار باید بین 0 و 100 باشد."_s);
        row(u"تعداد اقساط :"_s, "1500", u"مقدار باید بین 0 و 1200 باشد."_s);
        row(u"فاصله اقساط :"_s, "5000", u"مقدار باید بین 0 و 3650 باشد."_s);
        row(u"مبلغ مانده فاکتور جهت تقسيط :"_s, "5000000000000000", u"مقدار باید بین 0 و 999,999,999,999,999 باشد."_s);
        row(u" شروع تاريخ :"_s, "1405/13/40", u"تاریخ نادرست است. نمونه : 1405/08/29"_s);
    }

    void markedEntryStopsTheCalculation()
    {
        QFETCH(QString, name);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms());
        dialog.calculate();
        dialog.show();
        auto *edit = named<QLineEdit>(dialog, name);
        QVERIFY(edit);
        edit->setText(typed);
        dialog.calculate();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{message});
        QCOMPARE(dialog.focusWidget(), edit);
        QCOMPARE(dialog.list()->count(), 12);
        QCOMPARE(dialog.shownTotal(), 1344.0);
    }

    void savingAnEmptyListIsRefused()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.savePlan();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"ابتدا باید دکمه محاسبه اقساط را بزنید."_s});
    }

    void savingAPlanOfAnotherPrincipalIsRefused()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms());
        dialog.calculate();
        InstalmentTerms changed = terms();
        changed.principal = 1300;
        dialog.setTerms(changed);
        dialog.savePlan();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"مبلغ مانده فاکتور با جمع مبالغ اقساط برابر نیست."_s});
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"0"_s);
    }

    void largePlanIsSavedInSpiteOfRounding()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        InstalmentTerms large = terms(37);
        large.principal = 98'765'432'109;
        large.rate = 1.7;
        dialog.setTerms(large);
        dialog.calculate();
        dialog.savePlan();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"37"_s);
    }

    void savedRowsHoldThePlan()
    {
        storePlan();
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE iAutomobilContractID=%1 AND iPersonID=%2 "
                       "AND iStatus=0 AND iMonths=1 AND iDays=0 AND dAmount=112"_s
                           .arg(m_contract)
                           .arg(m_person)),
                 u"12"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iNum ORDER BY iNum) FROM AutomobilPayments"_s),
                 u"1,2,3,4,5,6,7,8,9,10,11,12"_s);
        QCOMPARE(value(u"SELECT date FROM AutomobilPayments WHERE iNum=1"_s), u"2026-04-21 00:00:00"_s);
        QCOMPARE(value(u"SELECT iUserID FROM AutomobilPayments LIMIT 1"_s).toInt(), m_office->adminID());
        QVERIFY(!value(u"SELECT sDesc FROM AutomobilPayments LIMIT 1"_s).isEmpty());
    }

    void savingReplacesTheEarlierPlanOfThisContractOnly()
    {
        m_office->database().run(u"INSERT INTO AutomobilPayments (iAutomobilContractID,dAmount) VALUES(999,5)"_s);
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        InstalmentTerms days = terms(3);
        days.intervalUnit = IntervalUnit::Days;
        days.interval = 30;
        dialog.setTerms(days);
        dialog.calculate();
        dialog.savePlan();
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments WHERE iDays=30 AND iMonths=0"_s), u"3"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"4"_s);
    }

    void storedPlanIsShownWhenTheWindowOpensAgain()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        QCOMPARE(dialog.list()->count(), 12);
        QCOMPARE(dialog.shownTotal(), 1344.0);
        QVERIFY(qAbs(dialog.shownInterest() - 144) < 1e-6);
        QVERIFY(qAbs(dialog.terms().principal - 1200) < 1e-6);
        QCOMPARE(dialog.terms().count, 12);
        QCOMPARE(dialog.terms().interval, 1);
    }

    void storedPlanComesBackWithTheTermsItWasMadeOf_data()
    {
        QTest::addColumn<double>("rate");
        QTest::addColumn<bool>("yearly");
        QTest::addColumn<bool>("whole");
        QTest::addColumn<int>("interval");
        QTest::addColumn<bool>("days");
        QTest::addColumn<QString>("start");
        QTest::newRow("months, whole principal") << 2.5 << false << true << 1 << false << u"1405/01/15"_s;
        QTest::newRow("yearly rate, declining") << 23. << true << false << 2 << false << u"1405/06/31"_s;
        QTest::newRow("days") << 1.75 << false << true << 45 << true << u"1404/12/29"_s;
        QTest::newRow("from the last day of a leap year") << 3. << false << false << 1 << false << u"1403/12/30"_s;
        QTest::newRow("no interest") << 0. << false << true << 1 << false << u"1405/02/01"_s;
    }

    void storedPlanComesBackWithTheTermsItWasMadeOf()
    {
        QFETCH(double, rate);
        QFETCH(bool, yearly);
        QFETCH(bool, whole);
        QFETCH(int, interval);
        QFETCH(bool, days);
        QFETCH(QString, start);
        const InstalmentTerms made = {3'600'000'000, rate, yearly ? RateUnit::Yearly : RateUnit::Monthly,
                                      whole ? InterestMethod::WholePrincipal : InterestMethod::DecliningPrincipal, 7, interval,
                                      days ? IntervalUnit::Days : IntervalUnit::Months, parseShamsi(start)};
        {
            CDlgCalcPayment dialog(m_contract, m_person, 0);
            dialog.setTerms(made);
            dialog.calculate();
            dialog.savePlan();
        }
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        const InstalmentTerms again = dialog.terms();
        QVERIFY(qAbs(again.principal - made.principal) < 0.01);
        QCOMPARE(again.rate, made.rate);
        QCOMPARE(int(again.rateUnit), int(made.rateUnit));
        QCOMPARE(int(again.method), int(made.method));
        QCOMPARE(again.count, made.count);
        QCOMPARE(again.interval, made.interval);
        QCOMPARE(int(again.intervalUnit), int(made.intervalUnit));
        QCOMPARE(shamsiText(again.start), start);
    }

    void nothingIsReceivedForAContractThatWasNeverConfirmed()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iDocNum=0"_s);
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.list()->selectRow(0);
        QVERIFY(!dialog.button(receiveButton)->isEnabled());
        dialog.receiveSelected();
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    }

    void returningAsksBeforeItDropsAPlan()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.show();
        dialog.setTerms(terms());
        dialog.calculate();
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.button(u"بازگشت"_s)->click();
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.list()->count(), 12);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        dialog.button(u"بازگشت"_s)->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 2);
        // What is saved is not asked about.
        CDlgCalcPayment saved(m_contract, m_person, 0);
        saved.show();
        saved.setTerms(terms());
        saved.calculate();
        saved.savePlan();
        g_pDlgYesNo->takeShown();
        saved.button(u"بازگشت"_s)->click();
        QVERIFY(!saved.isVisible());
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
    }

    void wheelOverAUnitScrollsThePage()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.show();
        dialog.button(calculateButton)->setFocus();
        const InstalmentTerms before = dialog.terms();
        for (QComboBox *unit : dialog.findChildren<QComboBox *>()) {
            for (const int turn : {-120, 120}) {
                const QPointF middle = unit->rect().center();
                QWheelEvent wheel(middle, unit->mapToGlobal(middle), {}, QPoint(0, turn), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QCoreApplication::sendEvent(unit, &wheel);
            }
        }
        QCOMPARE(dialog.terms().rateUnit, before.rateUnit);
        QCOMPARE(dialog.terms().intervalUnit, before.intervalUnit);
    }

    void deletingAsksAndTakesThePlan()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        dialog.deletePlan();
        QCOMPARE(dialog.list()->count(), 12);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        dialog.deletePlan();
        QCOMPARE(dialog.list()->count(), 0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"0"_s);
    }

    void receivedInstalmentsHaveNoFractionsAndAreThePlansSum_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("received");
        QTest::addColumn<QStringList>("listed");
        QTest::newRow("no decimals") << 0 << u"333/333/334"_s << QStringList{u"333"_s, u"333"_s, u"334"_s};
        QTest::newRow("two decimals") << 2 << u"333.33/333.33/333.34"_s << QStringList{u"333.33"_s, u"333.33"_s, u"333.34"_s};
    }

    void receivedInstalmentsHaveNoFractionsAndAreThePlansSum()
    {
        QFETCH(int, decimals);
        QFETCH(QString, received);
        QFETCH(QStringList, listed);
        GetDBSetting()->SetMoneyDecimals(decimals);
        const auto back = qScopeGuard([] { GetDBSetting()->SetMoneyDecimals(0); });
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        InstalmentTerms thirds = terms(3);
        thirds.principal = 1000;
        thirds.rate = 0;
        dialog.setTerms(thirds);
        dialog.calculate();
        const auto amounts = [&dialog] {
            QStringList texts;
            for (int row = 0; row < dialog.list()->count(); ++row)
                texts << dialog.list()->cellText(row, 3);
            return texts;
        };
        QCOMPARE(amounts(), listed);
        dialog.savePlan();
        QCOMPARE(amounts(), listed);
        for (int row = 0; row < 3; ++row) {
            dialog.list()->selectRow(row);
            TestOffice::whenModal("CDlgCashFromPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
            dialog.receiveSelected();
        }
        QCOMPARE(value(u"SELECT GROUP_CONCAT(dAmount ORDER BY iID SEPARATOR '/') FROM Receipts"_s), received);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',SUM(dBed),SUM(dBes)) FROM Docs"_s), u"1000/1000"_s);
    }

    void receivedInstalmentIsPaidAndThePlanStaysAsItIs()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.list()->selectRow(1);
        TestOffice::whenModal("CDlgCashFromPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        dialog.receiveSelected();
        QCOMPARE(value(u"SELECT dAmount FROM Receipts"_s).toDouble(), 112.0);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',h.iKind,SUM(d.dBed),SUM(d.dBes)) FROM Receipts r JOIN Documents h "
                       "ON h.iNum=r.iDocNum AND h.iFiscalYear=r.iFiscalYear JOIN Docs d ON d.iDocNum=h.iNum "
                       "AND d.iFiscalYear=h.iFiscalYear GROUP BY r.iID"_s),
                 u"3/112/112"_s);
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments WHERE iNum=2"_s), u"1"_s);
        QCOMPARE(dialog.list()->cellText(1, 4), u"پرداخت شده"_s);
        QVERIFY(dialog.isNoteShown());
        for (const QString &caption : {calculateButton, saveButton, deleteButton, receiveButton})
            QVERIFY2(!dialog.button(caption)->isEnabled(), qPrintable(caption));
        dialog.calculate();
        dialog.savePlan();
        dialog.deletePlan();
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"12"_s);
        dialog.list()->selectRow(2);
        QVERIFY(dialog.button(receiveButton)->isEnabled());
    }

    void cancelledReceiptLeavesTheInstalmentUnpaid()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.list()->selectRow(0);
        TestOffice::whenModal("CDlgCashFromPerson", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        dialog.receiveSelected();
        QCOMPARE(value(u"SELECT SUM(iStatus) FROM AutomobilPayments"_s), u"0"_s);
        QVERIFY(!dialog.isNoteShown());
    }

    void overdueUnpaidRowsStandOut()
    {
        CDlgCalcPayment first(m_contract, m_person, 0);
        InstalmentTerms past = terms(2);
        past.start = GetDBSetting()->GetDBServerDate().date().addDays(-40);
        past.intervalUnit = IntervalUnit::Days;
        past.interval = 30;
        first.setTerms(past);
        first.calculate();
        first.savePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        auto standsOut = [&](int row) { return dialog.list()->model()->index(row, 1).data(Qt::ForegroundRole).isValid(); };
        QVERIFY(standsOut(0));
        QVERIFY(!standsOut(1));
    }

    void failureDuringTheInsertsLeavesTheEarlierPlan()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms(5));
        dialog.calculate();
        m_office->database().run(u"CREATE TRIGGER refuseThird BEFORE INSERT ON AutomobilPayments FOR EACH ROW "
                                 "IF NEW.iNum=3 THEN SIGNAL SQLSTATE '45000'; END IF"_s);
        bool raised = false;
        try {
            dialog.savePlan();
        } catch (const CMySQLException &) {
            raised = true;
        }
        m_office->database().run(u"DROP TRIGGER refuseThird"_s);
        QVERIFY(raised);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"12"_s);
        QCOMPARE(dialog.list()->count(), 5);
    }

    // --- Two desks ---

    void planThatAnotherDeskStoredMeanwhileIsReplacedOnlyWhenTheUserSaysSo_data()
    {
        QTest::addColumn<bool>("replaces");
        QTest::newRow("replaced") << true;
        QTest::newRow("left") << false;
    }

    void planThatAnotherDeskStoredMeanwhileIsReplacedOnlyWhenTheUserSaysSo()
    {
        QFETCH(bool, replaces);
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms(5));
        dialog.calculate();
        storePlan();
        g_pDlgMessage->takeShown();
        g_pDlgYesNo->answerNext(replaces ? KMessageDialog::Yes : KMessageDialog::No);
        dialog.savePlan();
        const QString asked = g_pDlgYesNo->takeShown().join(u'|');
        QVERIFY2(asked.contains(u"کاربر «مدیر»"_s) && asked.contains(u"برنامه شما جای آن ذخیره شود؟"_s), qPrintable(asked));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), replaces ? u"5"_s : u"12"_s);
        QCOMPARE(g_pDlgMessage->takeShown().size(), replaces ? 1 : 0);
        // What was calculated is still there.
        QCOMPARE(dialog.list()->count(), 5);
    }

    void planIsNotDeletedWhenAnotherDeskStoredAnotherMeanwhile()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        {
            CDlgCalcPayment other(m_contract, m_person, 0);
            other.setTerms(terms(5));
            other.calculate();
            other.savePlan();
        }
        dialog.deletePlan();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"5"_s);
        QCOMPARE(dialog.list()->count(), 5);
    }

    void planWithAnInstalmentPaidMeanwhileIsNotReplaced()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms(5));
        dialog.calculate();
        m_office->database().run(u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=2"_s);
        dialog.button(saveButton)->click();
        QVERIFY(g_pDlgWarning->takeShown().join(u'|').contains(u"دریافت شده است"_s));
        QCOMPARE(value(u"SELECT CONCAT_WS('/',COUNT(*),SUM(iStatus)) FROM AutomobilPayments"_s), u"12/1"_s);
        QCOMPARE(dialog.list()->count(), 5);
    }

    void planOfAContractThatIsGoneIsNotStored()
    {
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        dialog.setTerms(terms());
        dialog.calculate();
        m_office->database().run(u"DELETE FROM AutomobilContracts"_s);
        dialog.button(saveButton)->click();
        QVERIFY(g_pDlgWarning->takeShown().join(u'|').contains(u"این قرارداد را در این میان حذف کرده است"_s));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"0"_s);
    }

    void receiptSaysWhichInstalmentItIsFor()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        receive(dialog, 1);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',r.iTable,r.iRecordID,p.iNum) FROM Receipts r JOIN AutomobilPayments p ON p.iID=r.iPaymentID"_s),
                 u"69/%1/2"_s.arg(m_contract));
    }

    void instalmentThatTwoDesksReceiveIsReceivedOnce()
    {
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        // The other desk is quicker while this one's window is open.
        dialog.list()->selectRow(1);
        QStringList told;
        TestOffice::whenModal("CDlgCashFromPerson", [&](QWidget *window) {
            const int payment = value(u"SELECT iID FROM AutomobilPayments WHERE iNum=2"_s).toInt();
            receiveElsewhere(payment);
            auto *receipt = static_cast<QDialog *>(window);
            receipt->accept();
            told = g_pDlgWarning->takeShown();
            QVERIFY(receipt->isVisible());
            static_cast<KDialog *>(receipt)->cancel();
        });
        dialog.receiveSelected();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().startsWith(u"قسط شماره 2 را کاربر «مدیر» "_s), qPrintable(told.constFirst()));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"1"_s);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
        // The window knows by now.
        QCOMPARE(dialog.list()->cellText(1, 4), u"پرداخت شده"_s);
        QVERIFY(dialog.isNoteShown());
    }

    void receiptAndMarkAreSavedTogetherOrNotAtAll()
    {
        storePlan();
        const int payment = value(u"SELECT iID FROM AutomobilPayments WHERE iNum=2"_s).toInt();
        m_office->database().run(u"CREATE TRIGGER refuseMark BEFORE UPDATE ON AutomobilPayments FOR EACH ROW SIGNAL SQLSTATE '45000'"_s);
        const auto drop = qScopeGuard([this] { m_office->database().run(u"DROP TRIGGER refuseMark"_s); });
        QVERIFY_THROWS_EXCEPTION(CMySQLException, receiveElsewhere(payment));
        QCOMPARE(value(u"SELECT (SELECT COUNT(*) FROM Receipts)+(SELECT COUNT(*) FROM Documents)+(SELECT COUNT(*) FROM Docs)"_s), u"0"_s);
    }

    void instalmentOfAPlanThatWasReplacedIsNotReceived()
    {
        storePlan();
        const int payment = value(u"SELECT iID FROM AutomobilPayments WHERE iNum=2"_s).toInt();
        m_office->database().run(u"DELETE FROM AutomobilPayments"_s);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, receiveElsewhere(payment));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    }

    void planOnPaperHasItsTitleSumsAndRows()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iNum=45"_s);
        storePlan();
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        const ListReport report = dialog.planReport();
        QCOMPARE(report.group(), u"اقساط"_s);
        QCOMPARE(report.report(), u"اقساط فاکتور"_s);
        QCOMPARE(report.text(u"Title"_s), u"اقساط فاکتور ش 45 [رضا احمدی]"_s);
        QCOMPARE(report.text(u"LeftTop"_s), u"جمع اقساط : 1,344"_s);
        QCOMPARE(report.text(u"LeftBottom"_s),
                 u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
        QCOMPARE(report.text(u"Count"_s), u"تعداد : 12"_s);
        QCOMPARE(report.rows().size(), 12);
    }

    void printingNeedsItsRightAndIsNotRefusedByAPaidInstalment()
    {
        storePlan();
        m_office->database().run(u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=1"_s);
        CDlgCalcPayment dialog(m_contract, m_person, 0);
        QVERIFY(dialog.isNoteShown());
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&shown](QWidget *window) {
            shown = true;
            static_cast<QDialog *>(window)->reject();
        });
        dialog.button(u"چاپ"_s)->click();
        QVERIFY(shown);
        m_office->logInAs(u"clerk"_s, u"AutomobilContracts"_s, KSecurity::allRights & ~KSecurity::PrintList);
        dialog.button(u"چاپ"_s)->click();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(u"AutomobilContracts"_s, KSecurity::PrintList)});
    }

    void closedDatabaseAndReadOnlyRefuseChanges()
    {
        storePlan();
        GetDBSetting()->SetClosedDB(true);
        {
            CDlgCalcPayment dialog(m_contract, m_person, 0);
            dialog.list()->selectRow(0);
            for (const QString &caption : {calculateButton, saveButton, deleteButton, receiveButton})
                QVERIFY2(!dialog.button(caption)->isEnabled(), qPrintable(caption));
        }
        GetDBSetting()->SetClosedDB(false);
        CDlgCalcPayment shown(m_contract, m_person, 0);
        shown.setReadOnly(true);
        QVERIFY(!shown.button(calculateButton)->isEnabled());
    }
};

static const RegisteredTest<TestCDlgCalcPayment, KApplication> registeredCDlgCalcPayment;

#include "TestCDlgCalcPayment.moc"

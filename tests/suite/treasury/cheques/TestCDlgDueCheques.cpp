// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgDueCheques.h"

#include "suite/treasury/cheques/CDlgCheques.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KTabHost.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/FormDriver.h"
#include "tests/suite/treasury/cheques/ChequeOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QtTest>

#include <memory>

// The window of the cheques that are due.
class TestCDlgDueCheques : public QObject
{
    Q_OBJECT

    ChequeOffice m_office;
    int m_late = 0;

    int enter(const char *sayad, const QString &number, int inDays, CTblReceipts::Kind kind = CTblReceipts::received)
    {
        ReceiptPosting::Handover handover = m_office.handover(QString::fromLatin1(sayad), kind);
        handover.cheque->number = number;
        handover.cheque->due = GetDBSetting()->GetDBServerDate().addDays(inDays);
        return ChequeOffice::enter(handover);
    }

    static QDate today() { return GetDBSetting()->GetDBServerDate().date(); }

    static QString numbers(const CDlgDueCheques &window)
    {
        QStringList texts;
        for (int row = 0; row < window.list()->count(); ++row)
            texts.append(window.list()->cellText(row, 7));
        return texts.join(u' ');
    }

private Q_SLOTS:
    void init()
    {
        m_office.clear();
        m_late = enter("1111111111111112", u"11"_s, -3);
        enter("1111111111111113", u"12"_s, 0, CTblReceipts::paid);
        enter("1111111111111114", u"13"_s, 5);
        m_office.bring(enter("1111111111111115", u"14"_s, -9), ChequeState::Cleared);
    }

    void listsWhatIsOpenUpToTheDay()
    {
        CDlgDueCheques window(today());
        QCOMPARE(numbers(window), u"11 12"_s);
        QCOMPARE(window.list()->cellText(0, 1), u"دریافتی"_s);
        QCOMPARE(window.list()->cellText(0, 3), u"3"_s);
        QCOMPARE(window.list()->cellText(0, 4), u"رضا احمدی"_s);
        QCOMPARE(window.list()->cellText(0, 9), u"1,500"_s);
        QCOMPARE(window.list()->cellText(1, 1), u"پرداختی"_s);
        QVERIFY(window.list()->listModel()->rows().at(0).cells.at(3).warning);
        QVERIFY(!window.list()->listModel()->rows().at(1).cells.at(3).warning);
        QCOMPARE(window.totalsText(), u"تعداد : 2     جمع دریافتی : 1,500     جمع پرداختی : 1,500"_s);
        auto *upTo = FormDriver::field<KDateEdit>(&window, u"سررسید تا :"_s);
        upTo->setDate(today().addDays(5));
        window.refill();
        QCOMPARE(numbers(window), u"11 12 13"_s);
        upTo->setText(u"1405/13/1"_s);
        window.refill();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(numbers(window), u"11 12 13"_s);
        upTo->setDate(QDate());
        window.refill();
        QCOMPARE(numbers(window), u"11 12 13"_s);
    }

    void withoutAnyItSaysSo()
    {
        CDlgDueCheques window(today().addDays(-30));
        window.show();
        QCOMPARE(window.list()->count(), 0);
        QVERIFY(!FormDriver::button(&window, u"نمایش چک"_s)->isEnabled());
        QCOMPARE(window.findChild<KEmptyState *>()->sentence(), u"تا این روز چکی سررسید نشده است."_s);
    }

    void rowShowsItsCheque()
    {
        CDlgDueCheques window(today());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QString shown;
        Hand::inNextWindow([&shown](QDialog *dialog) { shown = QString::fromLatin1(dialog->metaObject()->className()); });
        QTest::keyClick(window.list(), Qt::Key_Return);
        QCOMPARE(shown, u"CDlgShowCheque"_s);
    }

    void registerIsOpenedAtTheCheque()
    {
        struct Host : KTabHost
        {
            void addPage(KDialogTabPage *page) override { shown.reset(qobject_cast<CDlgCheques *>(page)); }
            std::unique_ptr<CDlgCheques> shown;
        } host;
        GetDBSetting()->SetTabHost(&host);
        CDlgDueCheques window(today());
        window.show();
        FormDriver::click(&window, u"دفتر چک‌ها"_s);
        GetDBSetting()->SetTabHost(nullptr);
        QVERIFY(!window.isVisible());
        QVERIFY(host.shown);
        host.shown->open();
        QCOMPARE(host.shown->list()->currentKey(), m_late);
    }

    void rights()
    {
        GetDBSetting()->Login(m_office.office.clerk);
        KSecurity::forgetRights();
        CDlgDueCheques::Show(nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Cheques"_s, KSecurity::Access)});
        CDlgDueCheques window(today());
        window.print();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Cheques"_s, KSecurity::PrintList)});
        QVERIFY(FormDriver::everyInputHasAName(&window));
    }
};

static const RegisteredTest<TestCDlgDueCheques, QApplication> registeredCDlgDueCheques;
#include "TestCDlgDueCheques.moc"

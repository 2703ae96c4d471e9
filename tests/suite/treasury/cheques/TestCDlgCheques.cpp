// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgCheques.h"

#include "suite/treasury/cheques/CDlgChequeChange.h"
#include "suite/treasury/cheques/CDlgChequeHistory.h"
#include "suite/treasury/cheques/CDlgShowCheque.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/cheques/ChequeVoiding.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/treasury/cheques/ChequeOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>

class TestCDlgCheques : public QObject
{
    Q_OBJECT

    ChequeOffice m_office;
    int m_received = 0;
    int m_given = 0;

    static QString numbers(const CDlgCheques &page)
    {
        QStringList texts;
        for (int row = 0; row < page.list()->count(); ++row)
            texts.append(page.list()->cellText(row, u"number"));
        return texts.join(u' ');
    }

    int enter(const char *sayad, const QString &number, const QDateTime &due, CTblReceipts::Kind kind = CTblReceipts::received)
    {
        ReceiptPosting::Handover handover = m_office.handover(QString::fromLatin1(sayad), kind);
        handover.cheque->number = number;
        handover.cheque->due = due;
        return ChequeOffice::enter(handover);
    }

private Q_SLOTS:
    void init()
    {
        m_office.clear();
        const QDateTime today = GetDBSetting()->GetDBServerDate();
        m_received = enter("1111111111111112", u"11"_s, today.addDays(-3));
        m_given = enter("1111111111111113", u"12"_s, today.addDays(5), CTblReceipts::paid);
        m_office.bring(enter("1111111111111114", u"13"_s, today.addDays(-2)), ChequeState::Deposited);
        ChequeVoiding::makeVoid(enter("1111111111111115", u"14"_s, today.addDays(-1)), u"اشتباه"_s);
    }

    void rowTellsTheCheque()
    {
        CDlgCheques page;
        page.open();
        QCOMPARE(page.title(), u"چک‌ها"_s);
        QCOMPARE(numbers(page), u"12 13 11"_s);
        const KExtListCtrl *list = page.list();
        QCOMPARE(list->cellText(2, u"kind"), u"دریافتی"_s);
        QCOMPARE(list->cellText(2, u"sayad"), u"1111111111111112"_s);
        QCOMPARE(list->cellText(2, u"bank"), u"ملت"_s);
        QCOMPARE(list->cellText(2, u"branch"), u"ونک"_s);
        QCOMPARE(list->cellText(2, u"amount"), u"1,500"_s);
        QCOMPARE(list->cellText(2, u"person"), u"رضا احمدی"_s);
        QCOMPARE(list->cellText(2, u"for"), u"علی‌الحساب"_s);
        QCOMPARE(list->cellText(2, u"state"), u"نزد صندوق"_s);
        QCOMPARE(list->cellText(1, u"state"), u"در جریان وصول"_s);
        QCOMPARE(list->cellText(0, u"kind"), u"پرداختی"_s);
        QCOMPARE(list->cellText(0, u"state"), u"صادر شده"_s);
    }

    void overdueOnesStandOut()
    {
        CDlgCheques page;
        page.open();
        page.filters().set(u"voided", true);
        page.refill();
        QStringList warned;
        for (const KListModel::Row &row : page.list()->listModel()->rows()) {
            if (row.warning)
                warned.append(row.cells.at(page.list()->columnOf(u"number")).text);
        }
        QCOMPARE(warned.join(u' '), u"14 13 11"_s);
        m_office.bring(m_received, ChequeState::Cleared);
        page.refill();
        QVERIFY(!page.list()->listModel()->rows().constLast().warning);
    }

    void filters_data()
    {
        QTest::addColumn<std::function<void(CDlgCheques &)>>("ask");
        QTest::addColumn<QString>("found");
        using Ask = std::function<void(CDlgCheques &)>;
        const auto row = [](const char *name, const Ask &ask, const char *found) { QTest::newRow(name) << ask << QString::fromLatin1(found); };
        const auto set = [](const char *filter, const QVariant &value) {
            return [=](CDlgCheques &page) { page.filters().set(QString::fromLatin1(filter), value); };
        };
        const QDate today = QDate::currentDate();
        row("received", set("kind", 1), "13 11");
        row("given", set("kind", 2), "12");
        row("in hand", set("state", 1), "12 11");
        row("deposited", set("state", 2), "13");
        row("cleared", set("state", 3), "");
        row("void too", set("voided", true), "12 14 13 11");
        row("due and open", set("open", true), "13 11");
        row("due from", set("dueFrom", today), "12");
        row("due up to", set("dueTo", today.addDays(-3)), "11");
        row("Sayad number", set("sayad", u"1113"_s), "12");
        row("somebody else", set("person", 99999), "");
    }

    void filters()
    {
        QFETCH(std::function<void(CDlgCheques &)>, ask);
        CDlgCheques page;
        page.open();
        ask(page);
        page.refill();
        QTEST(numbers(page), "found");
    }

    void withoutTheRightThePageIsRefused()
    {
        KSecurity::setRights(m_office.office.clerk, ChequeChanging::rightsForm(), 0);
        GetDBSetting()->Login(m_office.office.clerk);
        CDlgCheques page;
        QVERIFY(!page.OnAccess());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(ChequeChanging::rightsForm(), KSecurity::Access)});
    }

    void closedDatabaseHidesTheCommands()
    {
        GetDBSetting()->SetClosedDB(true);
        CDlgCheques page;
        page.open();
        for (const char *command : {"newReceived", "newGiven", "change", "void"})
            QVERIFY2(!page.isOffered(QString::fromLatin1(command)), command);
        QVERIFY(page.isOffered(u"show"));
        QVERIFY(page.isOffered(u"history"));
    }

    void commandsNeedTheirRights_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("right");
        QTest::newRow("change") << u"change"_s << int(KSecurity::Modify);
        QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
        QTest::newRow("history") << u"history"_s << int(KSecurity::Read);
    }

    void commandsNeedTheirRights()
    {
        QFETCH(QString, command);
        QFETCH(int, right);
        KSecurity::setRights(m_office.office.clerk, ChequeChanging::rightsForm(), KSecurity::allRights & ~right);
        GetDBSetting()->Login(m_office.office.clerk);
        CDlgCheques page;
        page.open();
        page.runCommand(command);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(ChequeChanging::rightsForm(), static_cast<KSecurity::Right>(right))});
    }

    void stateIsChangedFromTheList()
    {
        CDlgCheques page;
        page.open();
        page.list()->selectKey(m_received);
        Hand::inNextWindow([](QDialog *window) {
            QVERIFY(qobject_cast<CDlgChequeChange *>(window));
            window->accept();
        });
        page.runCommand(u"change");
        QCOMPARE(page.list()->currentKey(), m_received);
        QCOMPARE(page.list()->cellText(page.list()->currentRow(), u"state"), u"در جریان وصول"_s);
    }

    void chequeAtItsEndIsTold()
    {
        m_office.bring(m_received, ChequeState::Cleared);
        CDlgCheques page;
        page.open();
        page.list()->selectKey(m_received);
        page.runCommand(u"change");
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY(told.constFirst().contains(u"وصول شده"_s));
    }

    void showAndHistoryOpenTheirWindows()
    {
        CDlgCheques page;
        page.open();
        page.list()->selectKey(m_given);
        int opened = 0;
        Hand::inNextWindow([&](QDialog *window) {
            opened += qobject_cast<CDlgShowCheque *>(window) != nullptr;
            const auto *sayad = Hand::named<KEdit>(window, u"شناسه صیادی :"_s);
            QVERIFY(sayad);
            QCOMPARE(sayad->plainText(), u"1111111111111113"_s);
            QVERIFY(sayad->isReadOnly());
        });
        page.runCommand(u"show");
        Hand::inNextWindow([&](QDialog *window) { opened += qobject_cast<CDlgChequeHistory *>(window) != nullptr; });
        page.runCommand(u"history");
        QCOMPARE(opened, 2);
    }

    void voidAsksForTheReason()
    {
        CDlgCheques page;
        page.open();
        page.list()->selectKey(m_received);
        Hand::inNextWindow([](QDialog *window) {
            QVERIFY(qobject_cast<CDlgVoiding *>(window));
            Hand::type(u"اشتباه"_s);
            window->accept();
        });
        page.runCommand(u"void");
        QCOMPARE(m_office.value(u"SELECT CONCAT_WS('/',c.iState,r.iStatus,r.sVoidReason) FROM Cheques c JOIN Receipts r ON r.iChequeID=c.iID WHERE c.iID=%1"_s.arg(m_received)),
                 u"6/1/اشتباه"_s);
        QCOMPARE(numbers(page), u"12 13"_s);
    }
};

static const RegisteredTest<TestCDlgCheques, QApplication> registeredCDlgCheques;
#include "TestCDlgCheques.moc"

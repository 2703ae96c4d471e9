// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/treasury/receipts/CDlgReceipts.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/Hand.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

// Instalments that are received in the window of receipts and made void in their list.
class TestVoidedInstalment : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PlannedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    double rest(int number) const { return m_contract->row(number).state().rest; }
    QString mark(int number) { return value(u"SELECT iStatus FROM AutomobilPayments WHERE iNum=%1"_s.arg(number)); }
    int receiptOf(int number) { return value(u"SELECT MAX(iID) FROM Receipts WHERE iPaymentID=%1"_s.arg(m_contract->row(number).id)).toInt(); }

    static void makeVoid(int receipt)
    {
        CDlgReceipts page;
        page.open();
        QVERIFY(page.list()->selectKey(receipt));
        Hand::inNextWindow([](QDialog *window) {
            named<KEdit>(*window, u"دلیل :"_s)->setText(u"مبلغ اشتباه بود"_s);
            window->accept();
        });
        QVERIFY(page.runCommand(u"void"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
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
        m_contract = std::make_unique<PlannedContract>(*m_office);
    }

    void voidedOneIsOpenAgainAndReceivedOnceMore()
    {
        const int receipt = m_contract->receive(3, 112);
        QCOMPARE(mark(3), u"1"_s);
        makeVoid(receipt);
        QCOMPARE(mark(3), u"0"_s);
        QCOMPARE(rest(3), 112.);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iStatus,sVoidReason) FROM Receipts WHERE iID=%1"_s.arg(receipt)), u"1|مبلغ اشتباه بود"_s);
        m_contract->receive(3, 112);
        QCOMPARE(mark(3), u"1"_s);
        QCOMPARE(value(u"SELECT SUM(dAmount) FROM Receipts WHERE iStatus=0"_s), u"112"_s);
    }

    void surplusGoesToTheNextAndIsVoidedByItself()
    {
        CDlgCashFromPerson window({.personID = m_contract->buyer, .amount = 150, .purpose = m_contract->purpose(2)});
        window.accept();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        const QStringList asked = g_pDlgYesNo->takeShown();
        QCOMPARE(asked.size(), 1);
        QVERIFY2(asked.constFirst().contains(u"قسط 3 "_s) && asked.constFirst().contains(u" : 38 "_s), qPrintable(asked.constFirst()));
        QCOMPARE(mark(2), u"1"_s);
        QCOMPARE(rest(3), 74.);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"2/0/0"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        makeVoid(receiptOf(3));
        QCOMPARE(mark(2), u"1"_s);
        QCOMPARE(rest(3), 112.);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"1/0/0"_s);
    }

    void surplusIsVoidedWithWhatItWasPartOf()
    {
        CDlgCashFromPerson window({.personID = m_contract->buyer, .amount = 150, .purpose = m_contract->purpose(2)});
        window.accept();
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        makeVoid(receiptOf(3));
        QCOMPARE(mark(2), u"0"_s);
        QCOMPARE(rest(2), 112.);
        QCOMPARE(rest(3), 112.);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"0/0/0"_s);
    }

    void openItemsOfTheBuyerAreOfferedInTheirOrder()
    {
        m_contract->receive(1, 112);
        CDlgCashFromPerson window({.personID = m_contract->buyer});
        auto *items = named<QComboBox>(window, u"بابت :"_s);
        QStringList instalments;
        for (int i = 0; i < items->count(); ++i) {
            if (items->itemText(i).startsWith(u"قسط"_s))
                instalments.append(items->itemText(i).section(u' ', 1, 1));
        }
        QCOMPARE(instalments.join(u' '), u"2 3 4 5 6 7 8 9 10 11 12"_s);
        items->setCurrentIndex(items->findText(u"قسط 2 "_s, Qt::MatchStartsWith));
        QCOMPARE(named<KEdit>(window, u"مبلغ :"_s)->text(), u"112"_s);
    }

    // The other desk is faster.
    void instalmentReceivedElsewhereIsTaken()
    {
        CDlgCashFromPerson window({.personID = m_contract->buyer, .purpose = m_contract->purpose(2)});
        window.show();
        m_contract->receive(2, 112);
        window.accept();
        QVERIFY(window.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(value(u"SELECT SUM(dAmount) FROM Receipts WHERE iStatus=0"_s), u"112"_s);
        window.cancel();
    }
};

static const RegisteredTest<TestVoidedInstalment, QApplication> registeredVoidedInstalment;
#include "TestVoidedInstalment.moc"

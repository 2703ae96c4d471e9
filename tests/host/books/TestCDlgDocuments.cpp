// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgDocuments.h"

#include "suite/db/connection/KTransaction.h"
#include "host/books/CDlgAddDocument.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KLinesView.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCDlgDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void latestDocumentStandsFirst();
    void columnsTellTheDocument();
    void rowsOfTheSelectedDocumentAreShown();
    void sameNumberOfAnotherYearIsAnotherDocument();
    void filters_data();
    void filters();
    void lastDayOfTheFilterCountsWhole();
    void anEmptyListShowsNoRows();
    void withoutTheRightThePageIsRefused();
    void newDocumentIsWrittenByHand();
    void documentWrittenByHandIsChanged();
    void documentWrittenByHandIsDeleted();
    void documentsOfTheProgramAreNotChangedHere_data();
    void documentsOfTheProgramAreNotChangedHere();
    void voidDocumentSaysSo();
    void rightsOfEachCommand_data();
    void rightsOfEachCommand();
    void closedDatabaseHidesTheCommands();
    void doubleClickGoesToTheRows();

private:
    static void writeByHand();
    static void showPage(CDlgDocuments &page);
    static void post(int year, int month, int day, int kind, const QString &desc, double amount);

    HostTestOffice m_office;
};

void TestCDlgDocuments::post(int year, int month, int day, int kind, const QString &desc, double amount)
{
    KTransaction transaction;
    const QDateTime date(ConvertToMiladi(year, month, day), QTime(10, 30), Qt::UTC);
    const int num = CTblDocuments::AddDoc(kind, date, desc, year);
    CTblDocs::AddRecords(num, year, {{Accounts::persons, 1, amount, 0, u"بدهی"_s}});
    CTblDocs::AddRecords(num, year, {{Accounts::commissionIncome, 0, 0, amount, u"درآمد"_s}});
    CTblDocuments::RequireBalanced(num, year);
    transaction.commit();
}

void TestCDlgDocuments::writeByHand()
{
    GetDBSetting()->SetFiscalYear(1405);
    ManualDocument document;
    document.date = QDateTime(ConvertToMiladi(1405, 3, 1), QTime(0, 0), Qt::UTC);
    document.rows = {{Accounts::cash, 0, 50, 0, {}}, {Accounts::bank, 0, 0, 50, {}}};
    document.save();
}

void TestCDlgDocuments::showPage(CDlgDocuments &page)
{
    page.resize(1000, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
}

void TestCDlgDocuments::init()
{
    m_office.fresh();
    m_office.database.run(u"INSERT INTO Persons(iID,iCode,sName2) VALUES(1,1,'علی رضایی')"_s);
    post(1404, 5, 1, Accounts::documentKindContract, u"مبایعه نامه ش :1"_s, 1000000);
    post(1405, 1, 20, Accounts::documentKindContract, u"مبایعه نامه ش :2"_s, 2500000);
    post(1405, 2, 10, Accounts::documentKindReceipt, u"دریافت 100% نقد"_s, 300000);
}

void TestCDlgDocuments::latestDocumentStandsFirst()
{
    CDlgDocuments page;
    page.open();
    QCOMPARE(page.list()->count(), 3);
    QCOMPARE(page.list()->cellText(0, u"year"), u"1405"_s);
    QCOMPARE(page.list()->cellText(0, u"number"), u"2"_s);
    QCOMPARE(page.list()->cellText(1, u"number"), u"1"_s);
    QCOMPARE(page.list()->cellText(2, u"year"), u"1404"_s);
}

void TestCDlgDocuments::columnsTellTheDocument()
{
    CDlgDocuments page;
    page.open();
    QCOMPARE(page.list()->cellText(1, u"date"), u"1405/01/20"_s);
    QCOMPARE(page.list()->cellText(1, u"kind"), u"قرارداد"_s);
    QCOMPARE(page.list()->cellText(1, u"description"), u"مبایعه نامه ش :2"_s);
    QCOMPARE(page.list()->cellText(1, u"amount"), u"2,500,000"_s);
    QCOMPARE(page.list()->cellText(1, u"user"), u"admin"_s);
    QCOMPARE(page.list()->cellText(0, u"kind"), u"دریافت"_s);
}

void TestCDlgDocuments::rowsOfTheSelectedDocumentAreShown()
{
    CDlgDocuments page;
    page.open();
    page.list()->selectRow(1);
    QCOMPARE(page.rowsList()->count(), 2);
    QStringList first;
    for (int column = 0; column < 7; ++column)
        first.append(page.rowsList()->cellText(0, column));
    QCOMPARE(first, (QStringList{
                        u"1"_s,
                        u"110301"_s,
                        u"اشخاص"_s,
                        u"علی رضایی"_s,
                        u"بدهی"_s,
                        u"2,500,000"_s,
                        QString(),
                    }));
    QCOMPARE(page.rowsList()->cellText(1, 2), u"درآمد کمیسیون"_s);
    QCOMPARE(page.rowsList()->cellText(1, 6), u"2,500,000"_s);
    QCOMPARE(page.totalsText(), u"جمع بدهکار : 2,500,000     جمع بستانکار : 2,500,000"_s);
}

void TestCDlgDocuments::sameNumberOfAnotherYearIsAnotherDocument()
{
    CDlgDocuments page;
    page.open();
    page.list()->selectRow(2);
    QCOMPARE(page.rowsList()->count(), 2);
    QCOMPARE(page.rowsList()->cellText(0, 5), u"1,000,000"_s);
    QCOMPARE(page.list()->cellText(2, u"amount"), u"1,000,000"_s);
}

void TestCDlgDocuments::filters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("found");
    QTest::newRow("number") << u"number"_s << "1" << 2;
    QTest::newRow("words") << u"description"_s << "نامه" << 2;
    QTest::newRow("percent sign is itself") << u"description"_s << "%" << 1;
    QTest::newRow("quote") << u"description"_s << "'" << 0;
    QTest::newRow("from a day") << u"from"_s << "1405/01/20" << 2;
    QTest::newRow("to a day") << u"to"_s << "1405/01/19" << 1;
}

void TestCDlgDocuments::filters()
{
    QFETCH(QString, filter);
    QFETCH(QString, value);
    CDlgDocuments page;
    page.open();
    auto *field = page.filters().control<QLineEdit>(filter);
    QVERIFY(field);
    field->setText(value);
    page.refill();
    QTEST(page.list()->count(), "found");

    field->clear();
    page.filters().set(u"year", 1404);
    page.refill();
    QCOMPARE(page.list()->count(), 1);
}

void TestCDlgDocuments::lastDayOfTheFilterCountsWhole()
{
    CDlgDocuments page;
    page.open();
    page.filters().set(u"to", ConvertToMiladi(1405, 1, 20));
    page.refill();
    QCOMPARE(page.list()->count(), 2);
}

void TestCDlgDocuments::anEmptyListShowsNoRows()
{
    CDlgDocuments page;
    page.open();
    page.filters().set(u"number", 77);
    page.refill();
    QCOMPARE(page.list()->count(), 0);
    QCOMPARE(page.rowsList()->count(), 0);
    QVERIFY(page.totalsText().isEmpty());
}

void TestCDlgDocuments::withoutTheRightThePageIsRefused()
{
    m_office.loginClerk();
    CDlgDocuments page;
    QVERIFY(!page.OnAccess());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Documents"_s, KSecurity::Access)});
}

void TestCDlgDocuments::newDocumentIsWrittenByHand()
{
    GetDBSetting()->SetFiscalYear(1405);
    CDlgDocuments page;
    showPage(page);
    Hand::inNextWindow([](QDialog *dialog) {
        auto *window = qobject_cast<CDlgAddDocument *>(dialog);
        QVERIFY(window);
        KLinesModel *rows = window->rowsView()->linesModel();
        rows->setData(rows->index(0, 0), u"110101"_s);
        rows->setData(rows->index(0, 3), 70.0);
        rows->setData(rows->index(1, 0), u"110201"_s);
        rows->setData(rows->index(1, 4), 70.0);
        window->accept();
    });
    QVERIFY(page.runCommand(u"new"));
    QCOMPARE(page.list()->count(), 4);
    const int row = page.list()->currentRow();
    QCOMPARE(page.list()->cellText(row, u"number"), u"3"_s);
    QCOMPARE(page.list()->cellText(row, u"kind"), u"دستی"_s);
    QCOMPARE(page.list()->cellText(row, u"amount"), u"70"_s);
    QCOMPARE(page.rowsList()->count(), 2);
}

void TestCDlgDocuments::documentWrittenByHandIsChanged()
{
    writeByHand();
    CDlgDocuments page;
    showPage(page);
    Hand::inNextWindow([](QDialog *dialog) {
        auto *window = qobject_cast<CDlgAddDocument *>(dialog);
        QVERIFY(window);
        KLinesModel *rows = window->rowsView()->linesModel();
        rows->setData(rows->index(0, 3), 90.0);
        rows->setData(rows->index(1, 4), 90.0);
        window->accept();
    });
    QVERIFY(page.runCommand(u"edit"));
    QCOMPARE(page.list()->cellText(0, u"number"), u"3"_s);
    QCOMPARE(page.list()->cellText(0, u"amount"), u"90"_s);
    QCOMPARE(page.rowsList()->cellText(0, 5), u"90"_s);
}

void TestCDlgDocuments::documentWrittenByHandIsDeleted()
{
    writeByHand();
    CDlgDocuments page;
    page.open();
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    page.runCommand(u"delete");
    QCOMPARE(page.list()->count(), 4);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    page.runCommand(u"delete");
    QCOMPARE(page.list()->count(), 3);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Docs WHERE iDocNum=3"_s), u"0"_s);
}

void TestCDlgDocuments::documentsOfTheProgramAreNotChangedHere_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("owner");
    QTest::newRow("receipt") << 0 << u"دریافت‌ها و پرداخت‌ها"_s;
    QTest::newRow("contract") << 1 << u"قرارداد"_s;
}

void TestCDlgDocuments::documentsOfTheProgramAreNotChangedHere()
{
    QFETCH(int, row);
    QFETCH(QString, owner);
    CDlgDocuments page;
    page.open();
    page.list()->selectRow(row);
    for (const QString &command : {u"edit"_s, u"delete"_s}) {
        page.runCommand(command);
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"این سند از «%1» ثبت شده است و فقط از همان‌جا تغییر می‌کند."_s.arg(owner)});
    }
    QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Docs"_s), u"6"_s);
}

void TestCDlgDocuments::voidDocumentSaysSo()
{
    CTblDocuments::VoidDoc(2, 1405);
    CDlgDocuments page;
    page.open();
    QCOMPARE(page.list()->cellText(0, u"kind"), u"دریافت (باطل)"_s);
    QCOMPARE(page.rowsList()->count(), 0);
}

void TestCDlgDocuments::rightsOfEachCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("right");
    QTest::newRow("add") << u"new"_s << int(KSecurity::Write);
    QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
    QTest::newRow("delete") << u"delete"_s << int(KSecurity::Delete);
}

void TestCDlgDocuments::rightsOfEachCommand()
{
    QFETCH(QString, command);
    QFETCH(int, right);
    writeByHand();
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, u"Documents"_s, KSecurity::allRights & ~right);
    CDlgDocuments page;
    page.open();
    page.runCommand(command);
    QCOMPARE(g_pDlgWarning->takeShown(),
             QStringList{KSecurity::refusalText(u"Documents"_s, static_cast<KSecurity::Right>(right))});
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Documents"_s), u"4"_s);
}

void TestCDlgDocuments::closedDatabaseHidesTheCommands()
{
    GetDBSetting()->SetClosedDB(true);
    CDlgDocuments page;
    page.open();
    for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s})
        QVERIFY(page.button(command)->isHidden());
}

void TestCDlgDocuments::doubleClickGoesToTheRows()
{
    CDlgDocuments page;
    page.resize(900, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Q_EMIT page.list()->rowActivated(page.list()->listModel()->keyAt(1));
    QTRY_VERIFY(page.rowsList()->hasFocus());
    QCOMPARE(page.rowsList()->cellText(0, 5), u"2,500,000"_s);
}

static const RegisteredTest<TestCDlgDocuments, QApplication> registeredCDlgDocuments;
#include "TestCDlgDocuments.moc"

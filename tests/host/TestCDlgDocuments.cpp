// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/CDlgDocuments.h"

#include "auto/db/KTransaction.h"
#include "suite/accounting/Accounts.h"
#include "suite/accounting/CTblDocs.h"
#include "suite/accounting/CTblDocuments.h"
#include "suite/accounting/KSecurity.h"
#include "suite/utility/KDateEdit.h"
#include "suite/utility/KEdit.h"
#include "suite/utility/KExtListCtrl.h"
#include "suite/utility/ShamsiDate.h"
#include "tests/host/HostTestOffice.h"

#include <QComboBox>
#include <QPushButton>
#include <QTest>

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
    void nothingCanBeChanged();
    void doubleClickGoesToTheRows();

private:
    static void post(int year, int month, int day, int kind, const QString &desc, double amount);

    HostTestOffice m_office;
};

namespace {

enum Column {
    Number = 1,
    Year = 2,
    Date = 3,
    Kind = 4,
    Description = 5,
    Amount = 6,
    User = 7
};

}

void TestCDlgDocuments::post(int year, int month, int day, int kind, const QString &desc, double amount)
{
    KTransaction transaction;
    const QDateTime date(ConvertToMiladi(year, month, day), QTime(10, 30), Qt::UTC);
    const int num = CTblDocuments::AddDoc(kind, date, desc, year);
    CTblDocs::AddRecord({num, year, Accounts::personsKol, Accounts::persons, 0, 1, amount, 0, QStringLiteral("بدهی")});
    CTblDocs::AddRecord({num, year, Accounts::incomeKol, Accounts::commissionIncome, 0, 0, 0, amount, QStringLiteral("درآمد")});
    CTblDocuments::RequireBalanced(num, year);
    transaction.commit();
}

void TestCDlgDocuments::init()
{
    m_office.fresh();
    m_office.database.run(QStringLiteral("INSERT INTO Persons(iID,iCode,sName2) VALUES(1,1,'علی رضایی')"));
    post(1404, 5, 1, Accounts::documentKindContract, QStringLiteral("مبایعه نامه ش :1"), 1000000);
    post(1405, 1, 20, Accounts::documentKindContract, QStringLiteral("مبایعه نامه ش :2"), 2500000);
    post(1405, 2, 10, Accounts::documentKindReceipt, QStringLiteral("دریافت 100% نقد"), 300000);
}

void TestCDlgDocuments::latestDocumentStandsFirst()
{
    CDlgDocuments page;
    page.open();
    QCOMPARE(page.list()->count(), 3);
    QCOMPARE(page.list()->cellText(0, Year), QStringLiteral("1405"));
    QCOMPARE(page.list()->cellText(0, Number), QStringLiteral("2"));
    QCOMPARE(page.list()->cellText(1, Number), QStringLiteral("1"));
    QCOMPARE(page.list()->cellText(2, Year), QStringLiteral("1404"));
}

void TestCDlgDocuments::columnsTellTheDocument()
{
    CDlgDocuments page;
    page.open();
    QCOMPARE(page.list()->cellText(1, Date), QStringLiteral("1405/01/20"));
    QCOMPARE(page.list()->cellText(1, Kind), QStringLiteral("قرارداد"));
    QCOMPARE(page.list()->cellText(1, Description), QStringLiteral("مبایعه نامه ش :2"));
    QCOMPARE(page.list()->cellText(1, Amount), QStringLiteral("2,500,000"));
    QCOMPARE(page.list()->cellText(1, User), QStringLiteral("admin"));
    QCOMPARE(page.list()->cellText(0, Kind), QStringLiteral("دریافت نقدی"));
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
                        QStringLiteral("1"),
                        QStringLiteral("110301"),
                        QStringLiteral("اشخاص"),
                        QStringLiteral("علی رضایی"),
                        QStringLiteral("بدهی"),
                        QStringLiteral("2,500,000"),
                        QString(),
                    }));
    QCOMPARE(page.rowsList()->cellText(1, 2), QStringLiteral("درآمد کمیسیون"));
    QCOMPARE(page.rowsList()->cellText(1, 6), QStringLiteral("2,500,000"));
    QCOMPARE(page.totalsText(), QStringLiteral("جمع بدهکار : 2,500,000     جمع بستانکار : 2,500,000"));
}

void TestCDlgDocuments::sameNumberOfAnotherYearIsAnotherDocument()
{
    CDlgDocuments page;
    page.open();
    page.list()->selectRow(2);
    QCOMPARE(page.rowsList()->count(), 2);
    QCOMPARE(page.rowsList()->cellText(0, 5), QStringLiteral("1,000,000"));
    QCOMPARE(page.list()->cellText(2, Amount), QStringLiteral("1,000,000"));
}

void TestCDlgDocuments::filters_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("found");
    QTest::newRow("number") << "شماره سند :"
                            << "1" << 2;
    QTest::newRow("words") << "شرح سند :"
                           << "نامه" << 2;
    QTest::newRow("percent sign is itself") << "شرح سند :"
                                            << "%" << 1;
    QTest::newRow("quote") << "شرح سند :"
                           << "'" << 0;
    QTest::newRow("from a day") << "از تاریخ :"
                                << "1405/01/20" << 2;
    QTest::newRow("to a day") << "تا تاریخ :"
                              << "1405/01/19" << 1;
}

void TestCDlgDocuments::filters()
{
    QFETCH(QString, label);
    QFETCH(QString, value);
    CDlgDocuments page;
    page.open();
    auto *field = HostTestOffice::named<QLineEdit>(page, label);
    QVERIFY(field);
    field->setText(value);
    page.refill();
    QTEST(page.list()->count(), "found");

    auto *year = HostTestOffice::named<QComboBox>(page, QStringLiteral("سال مالی :"));
    field->clear();
    year->setCurrentIndex(year->findText(QStringLiteral("1404")));
    page.refill();
    QCOMPARE(page.list()->count(), 1);
}

void TestCDlgDocuments::lastDayOfTheFilterCountsWhole()
{
    CDlgDocuments page;
    page.open();
    HostTestOffice::named<KDateEdit>(page, QStringLiteral("تا تاریخ :"))->setDate(ConvertToMiladi(1405, 1, 20));
    page.refill();
    QCOMPARE(page.list()->count(), 2);
}

void TestCDlgDocuments::anEmptyListShowsNoRows()
{
    CDlgDocuments page;
    page.open();
    HostTestOffice::named<KEdit>(page, QStringLiteral("شماره سند :"))->setNumber(77);
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
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("Documents"), KSecurity::Access)});
}

void TestCDlgDocuments::nothingCanBeChanged()
{
    CDlgDocuments page;
    page.open();
    for (const QPushButton *button : page.findChildren<QPushButton *>())
        QCOMPARE(button->text(), QStringLiteral("جستجو"));
}

void TestCDlgDocuments::doubleClickGoesToTheRows()
{
    CDlgDocuments page;
    page.resize(900, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Q_EMIT page.list()->rowActivated(page.list()->listModel()->keyAt(1));
    QTRY_VERIFY(page.rowsList()->hasFocus());
    QCOMPARE(page.rowsList()->cellText(0, 5), QStringLiteral("2,500,000"));
}

QTEST_MAIN(TestCDlgDocuments)
#include "TestCDlgDocuments.moc"

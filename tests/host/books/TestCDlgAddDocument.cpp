// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddDocument.h"

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KLinesView.h"
#include "tests/host/books/BooksOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

class TestCDlgAddDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newDocumentHasTwoEmptyRows();
    void wholeDocumentIsEnteredByKeyboard();
    void totalsTellTheDifference();
    void missingAmountIsPutIntoTheRow_data();
    void missingAmountIsPutIntoTheRow();
    void personIsPickedIntoItsCell();
    void storedDocumentIsShownAgainAndChanged();
    void refusals_data();
    void refusals();
    void accountThatIsNotInTheListIsRefused();
    void accountThatCannotTakeRowsAnyMoreIsMarked();
    void refusalOfTheBooksKeepsWhatWasTyped();
    void cancelSavesNothing();

private:
    static KLinesModel *rows(const CDlgAddDocument &window) { return window.rowsView()->linesModel(); }
    static QString shown(const CDlgAddDocument &window, int row, int column)
    {
        return rows(window)->index(row, column).data().toString();
    }
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }

    BooksOffice m_office;
};

namespace {

enum Column {
    Account,
    Person,
    Desc,
    Debit,
    Credit
};

const QString dateLabel = QStringLiteral("تاریخ :");

}

void TestCDlgAddDocument::init()
{
    m_office.open();
}

void TestCDlgAddDocument::newDocumentHasTwoEmptyRows()
{
    const CDlgAddDocument window({});
    QCOMPARE(window.windowTitle(), QStringLiteral("سند جدید"));
    QCOMPARE(rows(window)->rowCount(), 2);
    QVERIFY(window.document().rows.isEmpty());
    QVERIFY(window.totalsText().contains(QStringLiteral("تراز")));
}

void TestCDlgAddDocument::wholeDocumentIsEnteredByKeyboard()
{
    CDlgAddDocument window({});
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    named<KDateEdit>(window, dateLabel)->setDate(BooksOffice::day(3, 1).date());
    Hand::press(Qt::Key_Return);
    Hand::type(QStringLiteral("قبض آب"));
    Hand::press(Qt::Key_Return);
    QVERIFY(window.rowsView()->hasFocus());
    const auto type = [](const QString &text) {
        Hand::type(text);
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->hide();
        Hand::press(Qt::Key_Return);
    };
    for (const QString &text : {QStringLiteral("620101001"), QString(), QStringLiteral("قبض"), QStringLiteral("300"), QString(),
                                QStringLiteral("110101"), QString(), QStringLiteral("نقد"), QString(), QStringLiteral("300")})
        type(text);
    Hand::press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QVERIFY(!window.isVisible());
    QCOMPARE(value("SELECT CONCAT_WS('/',iNum,iFiscalYear,iKind,sDesc) FROM Documents"), QStringLiteral("1/1405/1/قبض آب"));
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',iHesabMoeenCode,iHesabTafsilyCode,dBed,dBes,sDesc) ORDER BY iID SEPARATOR "
                   "' ') FROM Docs"),
             QStringLiteral("620101/620101001/300/0/قبض 110101/0/0/300/نقد"));
}

void TestCDlgAddDocument::totalsTellTheDifference()
{
    CDlgAddDocument window(BooksOffice::document(300));
    rows(window)->setData(rows(window)->index(0, Debit), 450.0);
    QCOMPARE(window.totalsText(), QStringLiteral("جمع بدهکار : 450     جمع بستانکار : 300     اختلاف : 150"));
}

void TestCDlgAddDocument::missingAmountIsPutIntoTheRow_data()
{
    QTest::addColumn<double>("debit");
    QTest::addColumn<double>("credit");
    QTest::addColumn<QString>("cells");
    QTest::newRow("credit is missing") << 450.0 << 0.0 << QStringLiteral("|450");
    QTest::newRow("debit is missing") << 0.0 << 450.0 << QStringLiteral("450|");
    QTest::newRow("nothing is missing") << 0.0 << 0.0 << QStringLiteral("|");
}

void TestCDlgAddDocument::missingAmountIsPutIntoTheRow()
{
    QFETCH(double, debit);
    QFETCH(double, credit);
    ManualDocument document = BooksOffice::document(300);
    document.rows[0].debit = debit;
    document.rows[0].credit = credit;
    // What the row holds itself is replaced.
    document.rows[1].credit = 7;
    CDlgAddDocument window(document);
    window.rowsView()->goTo(1, Desc);
    named<QPushButton>(window, QStringLiteral("تراز در این ردیف"))->click();
    QTEST(shown(window, 1, Debit) + u'|' + shown(window, 1, Credit), "cells");
}

void TestCDlgAddDocument::personIsPickedIntoItsCell()
{
    CDlgAddDocument window({});
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    rows(window)->setData(rows(window)->index(0, Account), QStringLiteral("110301"));
    window.rowsView()->goTo(0, Person);
    QString picker;
    Hand::inNextWindow([&picker](QDialog *dialog) {
        picker = QString::fromLatin1(dialog->metaObject()->className());
        Hand::press(Qt::Key_Home);
        dialog->accept();
    });
    QTest::keyClick(window.rowsView(), Qt::Key_F4);
    QTRY_VERIFY(!picker.isEmpty());
    QTRY_COMPARE(window.rowsView()->currentIndex(), rows(window)->index(0, Person));
    QVERIFY(rows(window)->line(0).at(Person).key > 0);
    QVERIFY(!shown(window, 0, Person).isEmpty());
}

void TestCDlgAddDocument::storedDocumentIsShownAgainAndChanged()
{
    ManualDocument document = BooksOffice::document(300);
    document.rows.append({Accounts::persons, BooksOffice::ali, 50, 0, QStringLiteral("علی")});
    document.rows[1].credit = 350;
    document.save();
    CDlgAddDocument window(ManualDocument::load(document.num, document.fiscalYear));
    QCOMPARE(window.windowTitle(), QStringLiteral("سند شماره 1 سال مالی 1405"));
    QCOMPARE(shown(window, 0, Account), QStringLiteral("620101001 آب"));
    QCOMPARE(shown(window, 2, Person), QStringLiteral("علی رضایی"));
    QCOMPARE(window.document().rows, document.rows);
    rows(window)->removeLine(2);
    rows(window)->setData(rows(window)->index(1, Credit), 300.0);
    QVERIFY(window.OnOK());
    QCOMPARE(value("SELECT CONCAT_WS('/',COUNT(*),SUM(dBed),SUM(dBes)) FROM Docs"), QStringLiteral("2/300/300"));
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), QStringLiteral("1"));
}

void TestCDlgAddDocument::refusals_data()
{
    QTest::addColumn<std::function<void(ManualDocument &)>>("spoil");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QPoint>("cell");
    const auto row = [](const char *name, const std::function<void(ManualDocument &)> &spoil, const QString &message,
                        QPoint cell) { QTest::newRow(name) << spoil << message << cell; };
    row("no rows", [](ManualDocument &d) { d.rows.clear(); }, QStringLiteral("لطفا ردیف‌های سند را وارد نمایید."), {0, Account});
    row("no account", [](ManualDocument &d) { d.rows[1].account = 0; }, QStringLiteral("لطفا حساب ردیف 2 را انتخاب نمایید."),
        {1, Account});
    row("no person", [](ManualDocument &d) { d.rows[1].account = Accounts::persons; },
        QStringLiteral("لطفا شخص ردیف 2 را انتخاب نمایید."), {1, Person});
    row("needless person", [](ManualDocument &d) { d.rows[0].personID = BooksOffice::ali; },
        QStringLiteral("ردیف 1 روی حساب اشخاص نیست و شخص نمی‌گیرد."), {0, Person});
    row("no amount", [](ManualDocument &d) { d.rows[0].debit = d.rows[1].credit = 0; },
        QStringLiteral("لطفا بدهکار یا بستانکار ردیف 1 را وارد نمایید."), {0, Debit});
    row("both sides", [](ManualDocument &d) { d.rows[0].credit = 10; d.rows[0].debit = 310; },
        QStringLiteral("ردیف 1 یا بدهکار است یا بستانکار."), {0, Credit});
    row("does not balance", [](ManualDocument &d) { d.rows[0].debit = 301; },
        QStringLiteral("سند تراز نیست: بدهکار 301، بستانکار 300."), {1, Debit});
}

void TestCDlgAddDocument::refusals()
{
    QFETCH(std::function<void(ManualDocument &)>, spoil);
    QFETCH(QPoint, cell);
    ManualDocument document = BooksOffice::document(300);
    spoil(document);
    CDlgAddDocument window(document);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.accept();
    QVERIFY(window.isVisible());
    QTEST(g_pDlgWarning->takeShown().value(0), "message");
    QVERIFY(window.rowsView()->hasFocus());
    QCOMPARE(window.rowsView()->currentIndex(), rows(window)->index(cell.x(), cell.y()));
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), QStringLiteral("0"));
}

void TestCDlgAddDocument::accountThatIsNotInTheListIsRefused()
{
    CDlgAddDocument window(BooksOffice::document());
    rows(window)->setData(rows(window)->index(1, Account), QStringLiteral("کشتی"));
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("حساب «کشتی» در لیست حساب‌ها نیست.")});
    QCOMPARE(window.rowsView()->currentIndex(), rows(window)->index(1, Account));
}

void TestCDlgAddDocument::accountThatCannotTakeRowsAnyMoreIsMarked()
{
    BooksOffice::document().save();
    AccountChart::setActive(BooksOffice::water, false);
    CDlgAddDocument window(ManualDocument::load(1, BooksOffice::year));
    QCOMPARE(shown(window, 0, Account), QStringLiteral("620101001"));
    QVERIFY(rows(window)->index(0, Account).data(Qt::ForegroundRole).isValid());
    QVERIFY(!window.OnOK());
    QCOMPARE(value("SELECT SUM(dBed) FROM Docs"), QStringLiteral("300"));
}

void TestCDlgAddDocument::refusalOfTheBooksKeepsWhatWasTyped()
{
    ManualDocument early = BooksOffice::document();
    early.date = BooksOffice::day(1, 1).addDays(-1);
    CDlgAddDocument window(early);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("تاریخ سند پیش از تاریخ افتتاحیه سال مالی است.")});
    QCOMPARE(window.document().rows, early.rows);
    named<KDateEdit>(window, dateLabel)->setText(QStringLiteral("1405/13/1"));
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(window.num(), 0);
}

void TestCDlgAddDocument::cancelSavesNothing()
{
    CDlgAddDocument window(BooksOffice::document());
    window.show();
    window.reject();
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), QStringLiteral("0"));
}

static const RegisteredTest<TestCDlgAddDocument, QApplication> registered;
#include "TestCDlgAddDocument.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddDocument.h"

#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KLinesView.h"
#include "tests/host/books/BooksOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

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
    void dateAfterTheFiscalYearIsRefusedOnItsField();
    void cancelSavesNothing();
    void twoDesks_data() { TwoDesks::addCases(true); }
    void twoDesks();
    void conflictShowsTheRowsAsPeopleReadThem();

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

const QString dateLabel = u"تاریخ :"_s;

}

void TestCDlgAddDocument::init()
{
    m_office.open();
}

void TestCDlgAddDocument::newDocumentHasTwoEmptyRows()
{
    const CDlgAddDocument window({});
    QCOMPARE(window.windowTitle(), u"سند جدید"_s);
    QCOMPARE(rows(window)->rowCount(), 2);
    QVERIFY(window.document().rows.isEmpty());
    QVERIFY(window.totalsText().contains(u"تراز"_s));
}

void TestCDlgAddDocument::wholeDocumentIsEnteredByKeyboard()
{
    CDlgAddDocument window({});
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    named<KDateEdit>(window, dateLabel)->setDate(BooksOffice::day(3, 1).date());
    Hand::press(Qt::Key_Return);
    Hand::type(u"قبض آب"_s);
    Hand::press(Qt::Key_Return);
    QVERIFY(window.rowsView()->hasFocus());
    const auto type = [](const QString &text) {
        Hand::type(text);
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->hide();
        Hand::press(Qt::Key_Return);
    };
    for (const QString &text : {u"620101001"_s, QString(), u"قبض"_s, u"300"_s, QString(),
                                u"110101"_s, QString(), u"نقد"_s, QString(), u"300"_s})
        type(text);
    Hand::press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    QVERIFY(!window.isVisible());
    QCOMPARE(value("SELECT CONCAT_WS('/',iNum,iFiscalYear,iKind,sDesc) FROM Documents"), u"1/1405/1/قبض آب"_s);
    QCOMPARE(value("SELECT GROUP_CONCAT(CONCAT_WS('/',iHesabMoeenCode,iHesabTafsilyCode,dBed,dBes,sDesc) ORDER BY iID SEPARATOR "
                   "' ') FROM Docs"),
             u"620101/620101001/300/0/قبض 110101/0/0/300/نقد"_s);
}

void TestCDlgAddDocument::totalsTellTheDifference()
{
    CDlgAddDocument window(BooksOffice::document(300));
    rows(window)->setData(rows(window)->index(0, Debit), 450.0);
    QCOMPARE(window.totalsText(), u"جمع بدهکار : 450     جمع بستانکار : 300     اختلاف : 150"_s);
}

void TestCDlgAddDocument::missingAmountIsPutIntoTheRow_data()
{
    QTest::addColumn<double>("debit");
    QTest::addColumn<double>("credit");
    QTest::addColumn<QString>("cells");
    QTest::newRow("credit is missing") << 450.0 << 0.0 << u"|450"_s;
    QTest::newRow("debit is missing") << 0.0 << 450.0 << u"450|"_s;
    QTest::newRow("nothing is missing") << 0.0 << 0.0 << u"|"_s;
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
    named<QPushButton>(window, u"تراز در این ردیف"_s)->click();
    QTEST(shown(window, 1, Debit) + u'|' + shown(window, 1, Credit), "cells");
}

void TestCDlgAddDocument::personIsPickedIntoItsCell()
{
    CDlgAddDocument window({});
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    rows(window)->setData(rows(window)->index(0, Account), u"110301"_s);
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
    document.rows.append({Accounts::persons, BooksOffice::ali, 50, 0, u"علی"_s});
    document.rows[1].credit = 350;
    document.save();
    CDlgAddDocument window(ManualDocument::load(document.num, document.fiscalYear));
    QCOMPARE(window.windowTitle(), u"سند شماره 1 سال مالی 1405"_s);
    QCOMPARE(shown(window, 0, Account), u"620101001 آب"_s);
    QCOMPARE(shown(window, 2, Person), u"علی رضایی"_s);
    QCOMPARE(window.document().rows, document.rows);
    rows(window)->removeLine(2);
    rows(window)->setData(rows(window)->index(1, Credit), 300.0);
    QVERIFY(window.OnOK());
    QCOMPARE(value("SELECT CONCAT_WS('/',COUNT(*),SUM(dBed),SUM(dBes)) FROM Docs"), u"2/300/300"_s);
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"1"_s);
}

void TestCDlgAddDocument::refusals_data()
{
    QTest::addColumn<std::function<void(ManualDocument &)>>("spoil");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QPoint>("cell");
    const auto row = [](const char *name, const std::function<void(ManualDocument &)> &spoil, const QString &message,
                        QPoint cell) { QTest::newRow(name) << spoil << message << cell; };
    row("no rows", [](ManualDocument &d) { d.rows.clear(); }, u"لطفا ردیف‌های سند را وارد نمایید."_s, {0, Account});
    row("no account", [](ManualDocument &d) { d.rows[1].account = 0; }, u"لطفا حساب ردیف 2 را انتخاب نمایید."_s,
        {1, Account});
    row("no person", [](ManualDocument &d) { d.rows[1].account = Accounts::persons; },
        u"لطفا شخص ردیف 2 را انتخاب نمایید."_s, {1, Person});
    row("needless person", [](ManualDocument &d) { d.rows[0].personID = BooksOffice::ali; },
        u"ردیف 1 روی حساب اشخاص نیست و شخص نمی‌گیرد."_s, {0, Person});
    row("no amount", [](ManualDocument &d) { d.rows[0].debit = d.rows[1].credit = 0; },
        u"لطفا بدهکار یا بستانکار ردیف 1 را وارد نمایید."_s, {0, Debit});
    row("both sides", [](ManualDocument &d) { d.rows[0].credit = 10; d.rows[0].debit = 310; },
        u"ردیف 1 یا بدهکار است یا بستانکار."_s, {0, Credit});
    row("does not balance", [](ManualDocument &d) { d.rows[0].debit = 301; },
        u"سند تراز نیست: بدهکار 301، بستانکار 300."_s, {1, Debit});
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
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"0"_s);
}

void TestCDlgAddDocument::accountThatIsNotInTheListIsRefused()
{
    CDlgAddDocument window(BooksOffice::document());
    rows(window)->setData(rows(window)->index(1, Account), u"کشتی"_s);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"حساب «کشتی» در لیست حساب‌ها نیست."_s});
    QCOMPARE(window.rowsView()->currentIndex(), rows(window)->index(1, Account));
}

void TestCDlgAddDocument::accountThatCannotTakeRowsAnyMoreIsMarked()
{
    BooksOffice::document().save();
    AccountChart::setActive(BooksOffice::water, false);
    CDlgAddDocument window(ManualDocument::load(1, BooksOffice::year));
    QCOMPARE(shown(window, 0, Account), u"620101001"_s);
    QVERIFY(rows(window)->index(0, Account).data(Qt::ForegroundRole).isValid());
    QVERIFY(!window.OnOK());
    QCOMPARE(value("SELECT SUM(dBed) FROM Docs"), u"300"_s);
}

void TestCDlgAddDocument::refusalOfTheBooksKeepsWhatWasTyped()
{
    ManualDocument early = BooksOffice::document();
    early.date = BooksOffice::day(1, 1).addDays(-1);
    CDlgAddDocument window(early);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تاریخ سند پیش از تاریخ افتتاحیه سال مالی است."_s});
    QCOMPARE(window.document().rows, early.rows);
    named<KDateEdit>(window, dateLabel)->setText(u"1405/13/1"_s);
    QVERIFY(!window.OnOK());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(window.num(), 0);
}

void TestCDlgAddDocument::dateAfterTheFiscalYearIsRefusedOnItsField()
{
    ManualDocument late = BooksOffice::document();
    late.date = BooksOffice::day(12, 29).addDays(1);
    CDlgAddDocument window(late);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    named<KEdit>(window, u"شرح سند :"_s)->setFocus();
    window.accept();
    QVERIFY(window.isVisible());
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تاریخ سند پس از پایان سال مالی 1405 (1405/12/29) است."_s});
    QVERIFY(named<KDateEdit>(window, u"تاریخ :"_s)->hasFocus());
    QCOMPARE(window.num(), 0);
}

void TestCDlgAddDocument::cancelSavesNothing()
{
    CDlgAddDocument window(BooksOffice::document());
    window.show();
    window.reject();
    QCOMPARE(value("SELECT COUNT(*) FROM Documents"), u"0"_s);
}

void TestCDlgAddDocument::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    const auto other = [](const std::function<void(ManualDocument &)> &change) {
        ManualDocument theirs = ManualDocument::load(1, BooksOffice::year);
        change(theirs);
        theirs.save();
    };
    TwoDesks({
                 .reset = [] { BooksOffice::document(300).save(); },
                 .open = [] { return std::make_unique<CDlgAddDocument>(ManualDocument::load(1, BooksOffice::year)); },
                 .enter =
                     [](KDialog &window) {
                         auto &dialog = static_cast<CDlgAddDocument &>(window);
                         rows(dialog)->setData(rows(dialog)->index(0, Debit), 500.0);
                         rows(dialog)->setData(rows(dialog)->index(1, Credit), 500.0);
                     },
                 .changeOther = [&] { other([](ManualDocument &document) { document.desc = u"قبض"_s; }); },
                 .changeSame = [&] { other([](ManualDocument &document) { document.rows[0].description = u"برق"_s; }); },
                 .remove = [] { ManualDocument::remove(1, BooksOffice::year); },
                 .stored =
                     [&] {
                         return value("SELECT GROUP_CONCAT(CONCAT_WS('/',iNum,sDesc,(SELECT GROUP_CONCAT(CONCAT(dBed+dBes,sDesc) ORDER BY "
                                      "Docs.iID) FROM Docs WHERE iDocNum=iNum))) FROM Documents");
                     },
                 .merged = u"1/قبض/500آب,500نقد"_s,
                 .theirs = u"1/قبض دفتر/300برق,300نقد"_s,
                 .mine = u"1/قبض دفتر/500آب,500نقد"_s,
                 .renewed = u"1/قبض دفتر/500آب,500نقد"_s,
             })
        .check(what);
}

void TestCDlgAddDocument::conflictShowsTheRowsAsPeopleReadThem()
{
    BooksOffice::document(300).save();
    CDlgAddDocument window(ManualDocument::load(1, BooksOffice::year));
    ManualDocument theirs = ManualDocument::load(1, BooksOffice::year);
    theirs.rows[0].description = u"برق"_s;
    theirs.save();
    rows(window)->setData(rows(window)->index(0, Debit), 500.0);
    rows(window)->setData(rows(window)->index(1, Credit), 500.0);
    CDlgRowConflict::answerNext(CDlgRowConflict::Answer::GoBack);
    QVERIFY(!window.OnOK());
    const QString shown = CDlgRowConflict::takeShown().join(u'\n');
    QVERIFY2(shown.startsWith(u"ردیف‌ها: 620101001 آب آب بد 300 بس 0\n"_s), qPrintable(shown));
    QVERIFY2(shown.contains(u"620101001 آب برق بد 300 بس 0\n"_s), qPrintable(shown));
}

static const RegisteredTest<TestCDlgAddDocument, QApplication> registeredCDlgAddDocument;
#include "TestCDlgAddDocument.moc"

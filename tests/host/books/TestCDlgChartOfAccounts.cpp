// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgChartOfAccounts.h"

#include "host/books/CDlgAddAccount.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/host/books/BooksOffice.h"
#include "tests/support/Hand.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TwoDesks.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>

#include <functional>

using namespace Qt::StringLiterals;

class TestCDlgChartOfAccounts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void threeLevelsStandUnderEachOther();
    void balanceOfEachLevelWithItsNature_data();
    void balanceOfEachLevelWithItsNature();
    void balancesOfARange();
    void searchKeepsTheAccountsAbove_data();
    void searchKeepsTheAccountsAbove();
    void inactiveOnesAreLeftOutOnRequest();
    void entryThatIsNoDateIsRefused();
    void rangeThatEndsBeforeItBeginsIsRefused();
    void withoutTheRightThePageIsRefused();
    void rightsOfEachCommand_data();
    void rightsOfEachCommand();
    void closedDatabaseHidesTheCommands();
    void databaseClosedWhileThePageIsOpenIsNotChanged();
    void movingTheCursorAsksTheServerNothing();
    void commandsActOnTheSelectedAccountHoweverItWasSelected_data();
    void commandsActOnTheSelectedAccountHoweverItWasSelected();
    void withoutASelectionThereIsNothingToActOn();
    void treeIsReadAnewInItsPlace();
    void accountIsAddedBelowTheSelectedOne();
    void generalAccountIsAdded();
    void detailAccountsHaveNothingBelow();
    void refusedEntryKeepsTheWindow_data();
    void refusedEntryKeepsTheWindow();
    void rename();
    void deactivationIsUndone();
    void accountWithABalanceIsAskedAbout();
    void accountThatTheProgramPostsToStaysActive();
    void enterShowsTheSheetOfTheAccount();
    void treeGoesOnPaper();
    void twoDesks_data() { TwoDesks::addCases(true); }
    void twoDesks();
    void codeOfTwoDesksIsGivenOnce();

private:
    static QPushButton *button(const CDlgChartOfAccounts &page, const QString &caption)
    {
        return named<QPushButton>(page, caption);
    }
    static void showPage(CDlgChartOfAccounts &page);
    static QStringList shownCodes(const CDlgChartOfAccounts &page);
    QString value(const char *statement) { return m_office.database.value(QString::fromUtf8(statement)); }

    BooksOffice m_office;
};

namespace {

enum Column {
    Code,
    Name,
    Debit,
    Credit,
    Balance,
    Nature,
    State
};

const QString addGeneral = u"حساب کل جدید"_s;
const QString addBelow = u"زیرحساب جدید"_s;
const QString renameCaption = u"تغییر نام"_s;
const QString toggle = u"فعال / غیرفعال"_s;
const QString sheet = u"گردش حساب"_s;
const QString print = u"چاپ"_s;
const QString codeLabel = u"کد :"_s;
const QString nameLabel = u"نام :"_s;

void collectCodes(const QAbstractItemModel &model, const QModelIndex &parent, QStringList &codes)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        codes.append(index.data().toString());
        collectCodes(model, index, codes);
    }
}

}

void TestCDlgChartOfAccounts::init()
{
    m_office.open();
    InvoicePosting::save(m_office.invoice());
    BooksOffice::document(300).save();
}

void TestCDlgChartOfAccounts::showPage(CDlgChartOfAccounts &page)
{
    page.resize(1000, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
}

QStringList TestCDlgChartOfAccounts::shownCodes(const CDlgChartOfAccounts &page)
{
    QStringList codes;
    collectCodes(*page.tree()->model(), {}, codes);
    return codes;
}

void TestCDlgChartOfAccounts::threeLevelsStandUnderEachOther()
{
    CDlgChartOfAccounts page;
    page.refill();
    const QStringList codes = shownCodes(page);
    QCOMPARE(codes.mid(codes.indexOf(u"6201"_s)),
             (QStringList{u"6201"_s, u"620101"_s, u"620101001"_s}));
    QVERIFY(page.selectCode(BooksOffice::water));
    const QModelIndex detail = page.tree()->currentIndex();
    QCOMPARE(detail.parent().data().toString(), u"620101"_s);
    QCOMPARE(detail.parent().parent().data().toString(), u"6201"_s);
    QVERIFY(!detail.parent().parent().parent().isValid());
    QVERIFY(page.tree()->isExpanded(detail.parent()));
}

void TestCDlgChartOfAccounts::balanceOfEachLevelWithItsNature_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("cells");
    QTest::newRow("general, credit") << 4101 << u"درآمد خدمات|100|1,000|900|بس|فعال"_s;
    QTest::newRow("subsidiary, debit") << int(Accounts::saleDiscount) << u"تخفیف فروش خدمات|100||100|بد|فعال"_s;
    QTest::newRow("detail") << int(BooksOffice::water) << u"آب|300||300|بد|فعال"_s;
    QTest::newRow("nothing") << int(Accounts::bank) << u"بانک|||0|-|فعال"_s;
}

void TestCDlgChartOfAccounts::balanceOfEachLevelWithItsNature()
{
    QFETCH(int, code);
    CDlgChartOfAccounts page;
    page.refill();
    QStringList cells;
    for (int column = Name; column <= State; ++column)
        cells.append(page.cellText(code, column));
    QTEST(cells.join(u'|'), "cells");
}

void TestCDlgChartOfAccounts::balancesOfARange()
{
    CDlgChartOfAccounts page;
    named<KDateEdit>(page, u"مانده از تاریخ :"_s)->setDate(BooksOffice::day(2, 4).date());
    page.refill();
    QCOMPARE(page.cellText(4101, Credit), QString());
    QCOMPARE(page.cellText(6201, Debit), u"300"_s);
    named<KDateEdit>(page, u"تا تاریخ :"_s)->setDate(BooksOffice::day(2, 30).date());
    page.refill();
    QCOMPARE(page.cellText(6201, Debit), QString());
}

void TestCDlgChartOfAccounts::searchKeepsTheAccountsAbove_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("codes");
    QTest::newRow("a name of the third level") << u"آب"_s << u"6201 620101 620101001"_s;
    QTest::newRow("the beginning of a code") << u"2105"_s << u"2105 210501 210502"_s;
    QTest::newRow("a code in Persian digits") << u"۴۱۰۲۰۲"_s << u"4102 410202"_s;
    QTest::newRow("another spelling") << u"كميسيون"_s << u"4102 410202"_s;
    QTest::newRow("nothing of the chart") << u"کشتی"_s << QString();
}

void TestCDlgChartOfAccounts::searchKeepsTheAccountsAbove()
{
    QFETCH(QString, text);
    CDlgChartOfAccounts page;
    named<KEdit>(page, u"کد یا نام :"_s)->setText(text);
    page.refill();
    QTEST(shownCodes(page).join(u' '), "codes");
    QCOMPARE(page.countText(), u"تعداد : %1"_s.arg(shownCodes(page).size()));
}

void TestCDlgChartOfAccounts::inactiveOnesAreLeftOutOnRequest()
{
    AccountChart::add(AccountLevel::Moeen, 620105, u"قدیمی"_s, 6201);
    AccountChart::setActive(620105, false);
    CDlgChartOfAccounts page;
    page.refill();
    QCOMPARE(page.cellText(620105, State), u"غیرفعال"_s);
    named<QCheckBox>(page, u"نمایش غیرفعال‌ها"_s)->setChecked(false);
    page.refill();
    QVERIFY(!page.selectCode(620105));
    QVERIFY(page.selectCode(6201));
}

void TestCDlgChartOfAccounts::entryThatIsNoDateIsRefused()
{
    CDlgChartOfAccounts page;
    page.refill();
    const QStringList before = shownCodes(page);
    named<KDateEdit>(page, u"تا تاریخ :"_s)->setText(u"1405/13/1"_s);
    named<KEdit>(page, u"کد یا نام :"_s)->setText(u"آب"_s);
    page.refill();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(shownCodes(page), before);
}

void TestCDlgChartOfAccounts::rangeThatEndsBeforeItBeginsIsRefused()
{
    CDlgChartOfAccounts page;
    page.refill();
    const QStringList before = shownCodes(page);
    named<KDateEdit>(page, u"مانده از تاریخ :"_s)->setText(u"1405/03/02"_s);
    named<KDateEdit>(page, u"تا تاریخ :"_s)->setText(u"1405/03/01"_s);
    named<KEdit>(page, u"کد یا نام :"_s)->setText(u"آب"_s);
    page.refill();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"«مانده از تاریخ» بزرگتر از «تا تاریخ» است. لطفا اصلاح نمایید."_s});
    QCOMPARE(shownCodes(page), before);
}

void TestCDlgChartOfAccounts::withoutTheRightThePageIsRefused()
{
    m_office.loginClerk();
    CDlgChartOfAccounts page;
    QVERIFY(!page.OnAccess());
    QCOMPARE(g_pDlgWarning->takeShown(),
             QStringList{KSecurity::refusalText(u"ChartOfAccounts"_s, KSecurity::Access)});
}

void TestCDlgChartOfAccounts::rightsOfEachCommand_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("right");
    const QString chart = u"ChartOfAccounts"_s;
    QTest::newRow("general") << addGeneral << chart << int(KSecurity::Write);
    QTest::newRow("below") << addBelow << chart << int(KSecurity::Write);
    QTest::newRow("rename") << renameCaption << chart << int(KSecurity::Modify);
    QTest::newRow("toggle") << toggle << chart << int(KSecurity::Modify);
    QTest::newRow("print") << print << chart << int(KSecurity::PrintList);
    QTest::newRow("documents") << sheet << u"Documents"_s << int(KSecurity::Read);
}

void TestCDlgChartOfAccounts::rightsOfEachCommand()
{
    QFETCH(QString, command);
    QFETCH(QString, form);
    QFETCH(int, right);
    const int clerk = m_office.loginClerk();
    KSecurity::setRights(clerk, u"ChartOfAccounts"_s, KSecurity::allRights & ~right);
    CDlgChartOfAccounts page;
    page.refill();
    page.selectCode(620101);
    const QString refusal = KSecurity::refusalText(form, static_cast<KSecurity::Right>(right));
    QCOMPARE(button(page, command)->toolTip(), refusal);
    button(page, command)->click();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{refusal});
}

void TestCDlgChartOfAccounts::closedDatabaseHidesTheCommands()
{
    GetDBSetting()->SetClosedDB(true);
    CDlgChartOfAccounts page;
    page.refill();
    for (const QString &command : {addGeneral, addBelow, renameCaption, toggle})
        QVERIFY(button(page, command)->isHidden());
    QVERIFY(!button(page, sheet)->isHidden());
}

void TestCDlgChartOfAccounts::databaseClosedWhileThePageIsOpenIsNotChanged()
{
    CDlgChartOfAccounts page;
    showPage(page);
    page.selectCode(6201);
    GetDBSetting()->SetClosedDB(true);
    const QString before = value("SELECT GROUP_CONCAT(iCode,sName,iStatus) FROM HesabMoeen");
    for (const QString &command : {addGeneral, addBelow, renameCaption, toggle})
        button(page, command)->click();
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(value("SELECT GROUP_CONCAT(iCode,sName,iStatus) FROM HesabMoeen"), before);
    // The next reading takes the commands away.
    page.refill();
    QVERIFY(button(page, addGeneral)->isHidden());
}

void TestCDlgChartOfAccounts::movingTheCursorAsksTheServerNothing()
{
    CDlgChartOfAccounts page;
    showPage(page);
    QVERIFY(page.selectCode(6201));
    const ObservedStatements observed({QString()});
    QTest::keyClick(page.tree(), Qt::Key_Down);
    QCOMPARE(page.currentCode(), 620101);
    QTest::keyClick(page.tree(), Qt::Key_Down);
    QCOMPARE(page.currentCode(), int(BooksOffice::water));
    QVERIFY(!button(page, addBelow)->isEnabled());
    QTest::keyClick(page.tree(), Qt::Key_Home);
    QVERIFY(button(page, addBelow)->isEnabled());
    QCOMPARE(observed.taken(), QStringList());
}

void TestCDlgChartOfAccounts::commandsActOnTheSelectedAccountHoweverItWasSelected_data()
{
    using Select = std::function<void(QTreeView *, const QModelIndex &)>;
    QTest::addColumn<Select>("select");
    QTest::newRow("program") << Select([](QTreeView *tree, const QModelIndex &index) { tree->setCurrentIndex(index); });
    QTest::newRow("selection alone") << Select([](QTreeView *tree, const QModelIndex &index) {
        tree->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    });
    QTest::newRow("screen reader") << Select([](QTreeView *tree, const QModelIndex &index) {
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(tree);
        QVERIFY(reader->tableInterface());
        int row = 0;
        for (QModelIndex above = tree->indexAbove(index); above.isValid(); above = tree->indexAbove(above))
            ++row;
        QVERIFY(reader->tableInterface()->selectRow(row));
    });
    QTest::newRow("mouse") << Select([](QTreeView *tree, const QModelIndex &index) {
        tree->scrollTo(index);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(index).center());
    });
    QTest::newRow("keys") << Select([](QTreeView *tree, const QModelIndex &index) {
        QTest::keyClick(tree, Qt::Key_Home);
        while (tree->currentIndex().isValid() && tree->currentIndex() != index)
            QTest::keyClick(tree, Qt::Key_Down);
    });
}

void TestCDlgChartOfAccounts::commandsActOnTheSelectedAccountHoweverItWasSelected()
{
    using Select = std::function<void(QTreeView *, const QModelIndex &)>;
    QFETCH(Select, select);
    CDlgChartOfAccounts page;
    showPage(page);
    page.selectCode(BooksOffice::water);
    const QModelIndex general = page.tree()->model()->match(page.tree()->model()->index(0, 0), Qt::DisplayRole, u"6201"_s, 1,
                                                            Qt::MatchExactly | Qt::MatchRecursive)
                                    .value(0);
    QVERIFY(general.isValid());
    select(page.tree(), general);
    QCOMPARE(page.currentCode(), 6201);
    QVERIFY(button(page, addBelow)->isEnabled());
    Hand::inNextWindow([](QDialog *dialog) { QCOMPARE(named<KEdit>(*dialog, codeLabel)->text().left(4), u"6201"_s); });
    button(page, renameCaption)->click();
    // The cursor follows, so that the arrow keys go on from the account.
    QCOMPARE(page.tree()->currentIndex().siblingAtColumn(0), general);
}

void TestCDlgChartOfAccounts::withoutASelectionThereIsNothingToActOn()
{
    CDlgChartOfAccounts page;
    showPage(page);
    page.selectCode(BooksOffice::water);
    page.tree()->clearSelection();
    QCOMPARE(page.currentCode(), 0);
    for (const QString &command : {addBelow, renameCaption, toggle, sheet})
        QVERIFY(!button(page, command)->isEnabled());
}

void TestCDlgChartOfAccounts::treeIsReadAnewInItsPlace()
{
    for (int code = 620110; code < 620160; ++code)
        AccountChart::add(AccountLevel::Moeen, code, u"هزینه %1"_s.arg(code), 6201);
    CDlgChartOfAccounts page;
    showPage(page);
    page.selectCode(620120);
    QScrollBar *scroll = page.tree()->verticalScrollBar();
    scroll->setValue(scroll->maximum());
    const int top = scroll->value();
    QVERIFY(top > 0);
    m_office.database.run(u"UPDATE HesabMoeen SET sName='اجاره' WHERE iCode=620120"_s);
    page.refreshIfStale();
    QCOMPARE(page.cellText(620120, Name), u"اجاره"_s);
    QCOMPARE(page.currentCode(), 620120);
    QCOMPARE(scroll->value(), top);
}

void TestCDlgChartOfAccounts::accountIsAddedBelowTheSelectedOne()
{
    CDlgChartOfAccounts page;
    showPage(page);
    page.selectCode(6201);
    Hand::inNextWindow([](QDialog *dialog) {
        QCOMPARE(named<KEdit>(*dialog, codeLabel)->text(), u"620102"_s);
        Hand::type(u"اجاره"_s);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    QTest::keyClick(page.tree(), Qt::Key_Insert);
    QCOMPARE(page.currentCode(), 620102);
    QCOMPARE(page.cellText(620102, Name), u"اجاره"_s);
    QCOMPARE(page.tree()->currentIndex().parent().data().toString(), u"6201"_s);
}

void TestCDlgChartOfAccounts::generalAccountIsAdded()
{
    CDlgChartOfAccounts page;
    showPage(page);
    Hand::inNextWindow([](QDialog *dialog) {
        QVERIFY(named<KEdit>(*dialog, codeLabel)->hasFocus());
        Hand::type(u"6202"_s);
        Hand::press(Qt::Key_Return);
        Hand::type(u"هزینه‌های فروش"_s);
        Hand::press(Qt::Key_Return);
    });
    button(page, addGeneral)->click();
    QCOMPARE(page.currentCode(), 6202);
    QCOMPARE(value("SELECT sName FROM HesabKol WHERE iCode=6202"), u"هزینه‌های فروش"_s);
}

void TestCDlgChartOfAccounts::detailAccountsHaveNothingBelow()
{
    CDlgChartOfAccounts page;
    page.refill();
    page.selectCode(BooksOffice::water);
    QVERIFY(!button(page, addBelow)->isEnabled());
    page.selectCode(620101);
    QVERIFY(button(page, addBelow)->isEnabled());
}

void TestCDlgChartOfAccounts::refusedEntryKeepsTheWindow_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::newRow("no name") << u"620102"_s << QString() << u"لطفا نام حساب را وارد نمایید."_s << nameLabel;
    QTest::newRow("no code") << QString() << u"اجاره"_s << u"کد حساب معین باید شش رقم باشد."_s << codeLabel;
    QTest::newRow("letters") << u"6201x2"_s << u"اجاره"_s
                             << u"کد حساب معین باید شش رقم باشد."_s << codeLabel;
    QTest::newRow("another parent") << u"410299"_s << u"اجاره"_s
                                    << u"کد حساب باید با 6201 آغاز شود."_s << codeLabel;
    QTest::newRow("code is taken") << u"620101"_s << u"اجاره"_s
                                   << u"حساب 620101 وجود دارد."_s << codeLabel;
}

void TestCDlgChartOfAccounts::refusedEntryKeepsTheWindow()
{
    QFETCH(QString, code);
    QFETCH(QString, name);
    QFETCH(QString, focus);
    CDlgAddAccount window(AccountLevel::Moeen, 6201);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    named<KEdit>(window, codeLabel)->setText(code);
    named<KEdit>(window, nameLabel)->setText(name);
    window.accept();
    QVERIFY(window.isVisible());
    QTEST(g_pDlgWarning->takeShown().value(0), "message");
    QCOMPARE(Hand::focus()->accessibleName(), focus);
    QCOMPARE(named<KEdit>(window, nameLabel)->text(), name);
    QCOMPARE(value("SELECT COUNT(*) FROM HesabMoeen WHERE iHesabKolCode=6201"), u"1"_s);
}

void TestCDlgChartOfAccounts::rename()
{
    CDlgChartOfAccounts page;
    showPage(page);
    page.selectCode(BooksOffice::water);
    Hand::inNextWindow([](QDialog *dialog) {
        QVERIFY(named<KEdit>(*dialog, codeLabel)->isReadOnly());
        named<KEdit>(*dialog, nameLabel)->setText(u"آب و فاضلاب"_s);
        dialog->accept();
    });
    QTest::keyClick(page.tree(), Qt::Key_F2);
    QCOMPARE(page.cellText(BooksOffice::water, Name), u"آب و فاضلاب"_s);
    QCOMPARE(page.currentCode(), int(BooksOffice::water));
}

void TestCDlgChartOfAccounts::deactivationIsUndone()
{
    AccountChart::add(AccountLevel::Moeen, 620105, u"قدیمی"_s, 6201);
    CDlgChartOfAccounts page;
    page.refill();
    page.selectCode(620105);
    button(page, toggle)->click();
    QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    QCOMPARE(value("SELECT iStatus FROM HesabMoeen WHERE iCode=620105"), u"1"_s);
    QCOMPARE(page.cellText(620105, State), u"غیرفعال"_s);
    QCOMPARE(page.currentCode(), 620105);
    button(page, toggle)->click();
    QCOMPARE(value("SELECT iStatus FROM HesabMoeen WHERE iCode=620105"), u"0"_s);
}

void TestCDlgChartOfAccounts::accountWithABalanceIsAskedAbout()
{
    CDlgChartOfAccounts page;
    page.refill();
    page.selectCode(BooksOffice::water);
    g_pDlgYesNo->answerNext(KMessageDialog::No);
    button(page, toggle)->click();
    QVERIFY(g_pDlgYesNo->takeShown().value(0).contains(u"300 بد"_s));
    QCOMPARE(value("SELECT iStatus FROM HesabTafsily"), u"0"_s);
    g_pDlgYesNo->answerNext(KMessageDialog::Yes);
    button(page, toggle)->click();
    QCOMPARE(value("SELECT iStatus FROM HesabTafsily"), u"1"_s);
}

void TestCDlgChartOfAccounts::accountThatTheProgramPostsToStaysActive()
{
    CDlgChartOfAccounts page;
    page.refill();
    page.selectCode(Accounts::bank);
    button(page, toggle)->click();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"برنامه خودش روی این حساب سند می‌زند و غیرفعال نمی‌شود."_s});
    QCOMPARE(page.cellText(Accounts::bank, State), u"فعال"_s);
}

void TestCDlgChartOfAccounts::enterShowsTheSheetOfTheAccount()
{
    CDlgChartOfAccounts page;
    showPage(page);
    page.selectCode(Accounts::persons);
    int rows = 0;
    Hand::inNextWindow([&rows](QDialog *dialog) {
        if (const auto *window = qobject_cast<CDlgAccountDocs *>(dialog))
            rows = window->list()->count();
    });
    QTest::keyClick(page.tree(), Qt::Key_Return);
    QCOMPARE(rows, 1);
}

void TestCDlgChartOfAccounts::treeGoesOnPaper()
{
    CDlgChartOfAccounts page;
    showPage(page);
    QString shown;
    Hand::inNextWindow([&shown](QDialog *dialog) { shown = QString::fromLatin1(dialog->metaObject()->className()); });
    button(page, print)->click();
    QCOMPARE(shown, u"CDlgReportGenerator"_s);
}

void TestCDlgChartOfAccounts::twoDesks()
{
    QFETCH(TwoDesks::Case, what);
    const auto run = [this](const QString &statement) { m_office.database.run(statement); };
    TwoDesks({
                 .reset = [&] { run(u"INSERT IGNORE INTO HesabMoeen(iCode,sName,iHesabKolCode) VALUES(620130,'اجاره',6201)"_s); },
                 .open = [] { return std::make_unique<CDlgAddAccount>(620130); },
                 .enter = [](KDialog &window) { named<KEdit>(window, u"نام :"_s)->setText(u"اجاره دفتر"_s); },
                 .changeOther = [&] { run(u"UPDATE HesabMoeen SET iStatus=1 WHERE iCode=620130"_s); },
                 .changeSame = [&] { run(u"UPDATE HesabMoeen SET sName='اجاره انبار' WHERE iCode=620130"_s); },
                 .remove = [&] { run(u"DELETE FROM HesabMoeen WHERE iCode=620130"_s); },
                 .stored = [&] { return value("SELECT CONCAT_WS('/',sName,iStatus,iHesabKolCode) FROM HesabMoeen WHERE iCode=620130"); },
                 .merged = u"اجاره دفتر/1/6201"_s,
                 .theirs = u"اجاره انبار/0/6201"_s,
                 .mine = u"اجاره دفتر/0/6201"_s,
                 .renewed = u"اجاره دفتر/0/6201"_s,
             })
        .check(what);
}

void TestCDlgChartOfAccounts::codeOfTwoDesksIsGivenOnce()
{
    CDlgAddAccount first(AccountLevel::Moeen, 6201);
    CDlgAddAccount second(AccountLevel::Moeen, 6201);
    named<KEdit>(first, u"نام :"_s)->setText(u"تلفن"_s);
    named<KEdit>(second, u"نام :"_s)->setText(u"پست"_s);
    first.accept();
    second.accept();
    QCOMPARE(second.result(), int(QDialog::Rejected));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(value("SELECT COUNT(*) FROM HesabMoeen WHERE sName IN ('تلفن','پست')"), u"1"_s);
}

static const RegisteredTest<TestCDlgChartOfAccounts, QApplication> registeredCDlgChartOfAccounts;
#include "TestCDlgChartOfAccounts.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/ActionHindrance.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/frame/KCommandButton.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KNextRows.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString section = u"Sample"_s;

// Items beside their departments: a view that names every column by its table.
class ItemsJoined : public KMySQL
{
public:
    qint32 m_iID = 0;
    QString m_sName;

    QString GetTableName() const override { return u"Items"_s; }

protected:
    void DoFieldExchange() override
    {
        RFX_Long(u"it.iID", m_iID, u"");
        RFX_Text(u"it.sName", m_sName, u"نام");
    }
    QString fromClause() const override
    {
        return u"Items it LEFT OUTER JOIN Departments d ON (it.iStatus=d.iID OR d.iID=1)"_s;
    }
};

class SampleList final : public KListPage
{
public:
    explicit SampleList(KListTraits traits = {})
        : KListPage(u"نمونه"_s, u"InputParameters"_s, section)
        , m_traits(std::move(traits))
    {
        build();
    }

    int searches = 0;
    int added = 0;
    KSql typed; // a further clause, before the others

    bool keepsName = false; // a reset leaves the name that is asked for
    bool needsName = false; // the database refuses to be asked for every name

    void deleteCurrent() { deleteSelected(); }
    void dropRows() { emptyList(); }
    void resetFilter() override
    {
        if (!keepsName)
            KListPage::resetFilter();
    }

protected:
    QList<KListColumn> columnTable() const override
    {
        return {KListColumn::rowNumber(),
                {.key = u"name"_s, .title = u"نام"_s, .alignment = Qt::AlignRight, .sortKey = u"it.sName"_s, .column = u"it.sName"_s},
                {.key = u"title"_s, .title = u"عنوان"_s, .alignment = Qt::AlignRight, .sortKey = u"sTitle"_s}};
    }
    QList<KListFilter> filterTable() const override
    {
        using namespace FilterClauses;
        return {{.key = u"name"_s, .label = u"نام :"_s, .kind = KListFilter::Kind::Text, .place = {0, 0}, .clause = [this](const QVariant &name, int user) {
                     return needsName && name.toString().isEmpty() ? KSql(" AND it.sNowhere=1") : part("it.sName")(name, user);
                 },
                 .options = KListFilter::FindGoesHere},
                {.key = u"itemType"_s, .clause = always(" AND it.iType=7")},
                {.key = u"grouping"_s, .clause = always(" GROUP BY it.iID")}};
    }
    std::vector<KListCommand> commands() override
    {
        if (!m_traits.hasSearchButton)
            return {};
        return {
            {.id = u"add"_s, .caption = u"جدید"_s, .options = KListCommand::HiddenInReadOnly, .run = [this] { ++added; }, .shortcut = QKeySequence(Qt::Key_Insert), .needs = Write},
            {.id = u"remove"_s, .caption = u"حذف"_s, .options = KListCommand::NeedsRow, .run = [] {}, .shortcut = QKeySequence(QKeySequence::Delete), .needs = Delete},
            {.id = u"report"_s, .caption = u"گزارش"_s, .run = [] {}, .needs = Access, .needsForm = u"AutoFullReport"_s},
        };
    }
    KListTraits traits() const override { return m_traits; }
    std::unique_ptr<KMySQL> makeRecords() const override { return std::make_unique<ItemsJoined>(); }
    std::unique_ptr<KMySQL> makeRecord() const override { return std::make_unique<CTblItems>(); }
    void beginRows(KMySQL &) override { ++searches; }
    QString defaultSort() const override { return u"it.iID"_s; }
    KSql filterClauses() const override { return typed + KListPage::filterClauses(); }
    void activated(int) override { }

private:
    KListTraits m_traits;
};

QStringList names(const SampleList &page)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts << page.list()->cellText(row, u"name");
    return texts;
}

KEdit *rowLimit(const SampleList &page)
{
    for (KEdit *edit : page.findChildren<KEdit *>()) {
        if (edit->accessibleName() == u"تعداد نمايش :"_s)
            return edit;
    }
    return nullptr;
}

QPushButton *searchButton(const SampleList &page)
{
    for (QPushButton *button : page.findChildren<QPushButton *>()) {
        if (button->accessibleName() == u"جستجو"_s)
            return button;
    }
    return nullptr;
}

}

// What the lists share and the lists of one table and one order do not show: joined views, other traits.
class TestKListPage : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    void addItem(const QString &name, const QString &title)
    {
        m_office->database.run(
            u"INSERT INTO Items(iType,sName,sTitle) VALUES(7,'%1','%2')"_s.arg(name, title));
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        setSettingsFile({});
        m_office.reset();
    }
    void init()
    {
        m_office->database.run(u"DELETE FROM Items"_s);
        for (const QString &key : {u"Sort"_s, u"iLastCol"_s, u"iMaxRows"_s})
            WriteSetting(section, key, key == u"Sort"_s ? u"none"_s : QString());
        addItem(u"b"_s, u"2"_s);
        addItem(u"c"_s, u"1"_s);
        addItem(u"a"_s, u"3"_s);
        g_pDlgWarning->takeShown();
    }

    void aJoinedViewListsEachRecordOnce()
    {
        SampleList page;
        page.open();
        QCOMPARE(names(page), (QStringList{u"b"_s, u"c"_s, u"a"_s}));
    }

    void deletingWorksOnTheTablesOwnClass()
    {
        SampleList page;
        page.open();
        page.list()->selectRow(1);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page.deleteCurrent();
        QCOMPARE(names(page), (QStringList{u"b"_s, u"a"_s}));
        QCOMPARE(page.list()->cellText(1, u"row"), u"2"_s);
        QCOMPARE(m_office->database.value(u"SELECT GROUP_CONCAT(sName ORDER BY iID) FROM Items"_s),
                 u"b,a"_s);
        QCOMPARE(page.countText(), u"تعداد : 2"_s);
    }

    void afterDeletingTheLastRowTheNewLastOneIsSelected()
    {
        SampleList page;
        page.open();
        page.list()->selectRow(2);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page.deleteCurrent();
        QCOMPARE(page.list()->currentRow(), 1);
    }

    void aTitleMaySortByAColumnWithoutItsTable()
    {
        SampleList page;
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"title"));
        QCOMPARE(names(page), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
        page.OnClosing();
        SampleList again;
        again.open();
        QCOMPARE(again.sortExpression(), u"sTitle"_s);
        QCOMPARE(names(again), names(page));
    }

    // The next click on the title turns the order round, as it would have before the list was closed.
    void aStoredDescendingOrderIsTurnedRoundByTheNextClick()
    {
        WriteSetting(section, u"iLastCol"_s, 1);
        WriteSetting(section, u"Sort"_s, u"it.sName DESC"_s);
        SampleList page;
        page.open();
        QCOMPARE(names(page), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"name"));
        QCOMPARE(page.sortExpression(), u"it.sName"_s);
        QCOMPARE(names(page), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    }

    void anEmptyStoredOrderIsTheListsOwn_data()
    {
        QTest::addColumn<QString>("emptySort");
        QTest::addColumn<QString>("used");
        QTest::newRow("its own") << u"it.sTitle DESC"_s << u"it.sTitle DESC"_s;
        QTest::newRow("the default") << QString() << u"it.iID"_s;
    }

    void anEmptyStoredOrderIsTheListsOwn()
    {
        QFETCH(QString, emptySort);
        QFETCH(QString, used);
        WriteSetting(section, u"Sort"_s, QString());
        KListTraits traits;
        traits.emptySort = emptySort;
        SampleList page(traits);
        page.open();
        QCOMPARE(page.sortExpression(), used);
        page.OnClosing();
        // It is known again when it was stored.
        SampleList again(traits);
        again.open();
        QCOMPARE(again.sortExpression(), used);
    }

    void aStoredOrderOfNoColumnIsTheDefault_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("a statement") << u"it.sName; DROP TABLE Items"_s;
        QTest::newRow("a direction alone") << u" DESC"_s;
        QTest::newRow("twice downwards") << u"it.sName DESC DESC"_s;
    }

    void aStoredOrderOfNoColumnIsTheDefault()
    {
        QFETCH(QString, stored);
        WriteSetting(section, u"Sort"_s, stored);
        SampleList page;
        page.open();
        QCOMPARE(page.sortExpression(), u"it.iID"_s);
    }

    void aStoredLastColumnOutOfRangeBecomesOne_data()
    {
        QTest::addColumn<int>("stored");
        QTest::newRow("3") << 3;
        QTest::newRow("40") << 40;
        QTest::newRow("-1") << -1;
    }

    void aStoredLastColumnOutOfRangeBecomesOne()
    {
        QFETCH(int, stored);
        WriteSetting(section, u"iLastCol"_s, stored);
        SampleList page;
        page.open();
        QVERIFY(page.list()->model()->headerData(1, Qt::Horizontal).toString().endsWith(u'*'));
    }

    void aRowLimitOfZeroIsNoLimitWhereTheListSaysSo_data()
    {
        QTest::addColumn<int>("lowest");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("listed");
        QTest::addColumn<bool>("refused");
        QTest::newRow("0 is no limit") << 0 << u"0"_s << 3 << false;
        QTest::newRow("empty is 0") << 0 << QString() << 3 << false;
        QTest::newRow("2") << 0 << u"2"_s << 2 << false;
        QTest::newRow("0 is refused elsewhere") << 1 << u"0"_s << 1 << true;
        QTest::newRow("1 elsewhere") << 1 << u"1"_s << 1 << false;
    }

    void aRowLimitOfZeroIsNoLimitWhereTheListSaysSo()
    {
        QFETCH(int, lowest);
        QFETCH(QString, typed);
        QFETCH(int, listed);
        QFETCH(bool, refused);
        KListTraits traits;
        traits.lowestRowLimit = lowest;
        SampleList page(traits);
        page.open();
        page.setRowLimit(1);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        rowLimit(page)->setText(typed);
        searchButton(page)->click();
        QCOMPARE(page.list()->count(), listed);
        QCOMPARE(g_pDlgWarning->takeShown().size(), refused ? 1 : 0);
    }

    void aListWithoutARowLimitReadsAndStoresNone()
    {
        WriteSetting(section, u"iMaxRows"_s, 1);
        KListTraits traits;
        traits.hasRowLimit = false;
        SampleList page(traits);
        page.open();
        QVERIFY(!rowLimit(page));
        QCOMPARE(page.rowLimit(), 0);
        QCOMPARE(page.list()->count(), 3);
        page.OnClosing();
        QCOMPARE(ReadSetting(section, u"iMaxRows"_s, 0), 1);
    }

    void aListWithoutASearchButtonIsReadAnewByF5()
    {
        KListTraits traits;
        traits.hasRowLimit = false;
        traits.hasSearchButton = false;
        traits.filterTitle = u"انتخاب"_s;
        SampleList page(traits);
        QVERIFY(!searchButton(page));
        QCOMPARE(page.findChild<QGroupBox *>()->title(), u"انتخاب"_s);
        page.show();
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QCOMPARE(page.searches, 1);
        QTest::keyClick(page.list(), Qt::Key_F5);
        QCOMPARE(page.searches, 2);
    }

    void anEmptyListIsNotReadForAnotherOrder()
    {
        m_office->database.run(u"DELETE FROM Items"_s);
        SampleList page;
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"title"));
        QCOMPARE(page.searches, 1);
        QCOMPARE(page.sortExpression(), u"sTitle"_s);
    }

    void aListIsReadAnewWhenItsPageComesToTheFrontAfterAChange()
    {
        SampleList page;
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QCOMPARE(page.searches, 1);
        page.hide();
        page.show();
        QCOMPARE(page.searches, 1);
        page.hide();
        addItem(u"d"_s, u"4"_s);
        page.show();
        QCOMPARE(names(page), (QStringList{u"b"_s, u"c"_s, u"a"_s, u"d"_s}));
        QCOMPARE(page.searches, 2);
        page.hide();
        page.show();
        QCOMPARE(page.searches, 2);
    }

    // What is typed in the filter and not yet searched for is no filter of the list.
    void aListIsReadAnewWithTheFilterItShows()
    {
        SampleList page;
        page.show();
        page.typed = "it.sName='c' AND ";
        addItem(u"d"_s, u"4"_s);
        page.refreshIfStale();
        QCOMPARE(names(page).size(), 4);
        page.refill();
        QCOMPARE(names(page), QStringList{u"c"_s});
    }

    void aListReadAnewKeepsItsPlace_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("F5") << true;
        QTest::newRow("another page changed something") << false;
    }

    void aListReadAnewKeepsItsPlace()
    {
        QFETCH(bool, byKey);
        for (int i = 0; i < 200; ++i)
            addItem(u"n%1"_s.arg(i), {});
        SampleList page;
        page.resize(600, 400);
        page.show();
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        page.list()->selectRow(20);
        const int selected = page.list()->currentKey();
        QScrollBar *scroll = page.list()->verticalScrollBar();
        scroll->setValue(scroll->maximum() / 2);
        const int top = scroll->value();
        QVERIFY(top > 0);
        // A row before the selected one is gone.
        m_office->database.run(u"DELETE FROM Items WHERE sName='b'"_s);
        if (byKey)
            QTest::keyClick(page.list(), Qt::Key_F5);
        else
            page.refreshIfStale();
        QCOMPARE(page.list()->count(), 202);
        QCOMPARE(page.list()->currentKey(), selected);
        QCOMPARE(page.list()->currentRow(), 19);
        QCOMPARE(scroll->value(), top);
    }

    void aSelectedRecordThatIsGoneLeavesItsRow()
    {
        SampleList page;
        page.show();
        page.list()->selectRow(1);
        m_office->database.run(u"DELETE FROM Items WHERE sName='c'"_s);
        page.refreshIfStale();
        QCOMPARE(page.list()->currentRow(), 1);
        QCOMPARE(page.list()->cellText(1, u"name"), u"a"_s);
    }

    void aLimitThatCutsSaysSo()
    {
        for (int i = 0; i < 1300; ++i)
            addItem(u"n%1"_s.arg(i), {});
        SampleList page;
        page.open();
        QCOMPARE(page.countText(), u"تعداد : 1000 از 1,303"_s);
        page.list()->selectRow(2);
        page.deleteCurrent();
        QCOMPARE(page.countText(), u"تعداد : 999 از 1,302"_s);
        page.setRowLimit(1302);
        page.refill();
        QCOMPARE(page.countText(), u"تعداد : 1302"_s);
    }

    void theLineAtTheEndFetchesTheNextRows()
    {
        for (int i = 0; i < 7; ++i)
            addItem(u"n%1"_s.arg(i), u"4"_s);
        SampleList page;
        page.setRowLimit(4);
        page.open();
        page.setRowLimit(4);
        page.refill();
        page.show();
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QCOMPARE(page.countText(), u"تعداد : 4 از 10"_s);
        QCOMPARE(page.nextRows()->text(), u"نمایش 4 ردیف بعدی"_s);
        page.list()->selectRow(3);
        page.list()->setFocus();
        QTest::keyClick(page.list(), Qt::Key_Down);
        QVERIFY(page.nextRows()->hasFocus());
        QTest::keyClick(page.nextRows(), Qt::Key_Up);
        QVERIFY(page.list()->hasFocus());
        QTest::keyClick(page.list(), Qt::Key_PageDown);
        QTest::keyClick(page.nextRows(), Qt::Key_Return);
        QCOMPARE(page.list()->count(), 8);
        QCOMPARE(page.list()->currentRow(), 4);
        QCOMPARE(page.list()->cellText(7, u"row"), u"8"_s);
        QCOMPARE(page.countText(), u"تعداد : 8 از 10"_s);
        QCOMPARE(page.nextRows()->text(), u"نمایش 2 ردیف بعدی"_s);
        QVERIFY(page.nextRows()->hasFocus());
        QTest::keyClick(page.nextRows(), Qt::Key_Space);
        QCOMPARE(names(page), (QStringList{u"b"_s, u"c"_s, u"a"_s, u"n0"_s, u"n1"_s, u"n2"_s, u"n3"_s, u"n4"_s, u"n5"_s, u"n6"_s}));
        QCOMPARE(page.countText(), u"تعداد : 10"_s);
        QVERIFY(!page.nextRows()->isVisible());
        QVERIFY(page.list()->hasFocus());
        // A search begins with the first rows again.
        page.refill();
        QCOMPARE(page.list()->count(), 4);
    }

    void aListReadAnewKeepsTheRowsThatWereFetched()
    {
        for (int i = 0; i < 7; ++i)
            addItem(u"n%1"_s.arg(i), {});
        SampleList page;
        page.open();
        page.setRowLimit(3);
        page.refill();
        page.nextRows()->click();
        m_office->database.run(u"UPDATE Items SET sName='new' WHERE sName='n2'"_s);
        page.refresh();
        QCOMPARE(names(page), (QStringList{u"b"_s, u"c"_s, u"a"_s, u"n0"_s, u"n1"_s, u"new"_s}));
        page.nextRows()->click();
        QCOMPARE(names(page).mid(6), (QStringList{u"n3"_s, u"n4"_s, u"n5"_s}));
    }

    // Another desk's row that has come to stand behind is shown there alone; the last one, which is gone, hinders nothing.
    void nextRowsAreThoseOfNow()
    {
        for (int i = 0; i < 7; ++i)
            addItem(u"n%1"_s.arg(i), {});
        SampleList page;
        page.open();
        page.setRowLimit(4);
        page.refill();
        // Once turns the order round, twice back.
        Q_EMIT page.list()->columnClicked(1);
        Q_EMIT page.list()->columnClicked(1);
        QCOMPARE(names(page), (QStringList{u"a"_s, u"b"_s, u"c"_s, u"n0"_s}));
        m_office->database.run(u"DELETE FROM Items WHERE sName='n0'"_s);
        m_office->database.run(u"UPDATE Items SET sName='n2b' WHERE sName='b'"_s);
        page.nextRows()->click();
        QCOMPARE(names(page), (QStringList{u"a"_s, u"c"_s, u"n0"_s, u"n1"_s, u"n2"_s, u"n2b"_s, u"n3"_s}));
        QCOMPARE(page.list()->cellText(6, u"row"), u"7"_s);
    }

    void nextRowsThatCannotBeReadLeaveTheListAsItWas()
    {
        for (int i = 0; i < 7; ++i)
            addItem(u"n%1"_s.arg(i), {});
        SampleList page;
        page.open();
        page.setRowLimit(4);
        page.refill();
        m_office->database.run(u"RENAME TABLE Items TO ItemsAway"_s);
        page.nextRows()->click();
        m_office->database.run(u"RENAME TABLE ItemsAway TO Items"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(page.list()->count(), 4);
        page.nextRows()->click();
        QCOMPARE(page.list()->count(), 8);
        QCOMPARE(names(page).mid(4, 2), (QStringList{u"n1"_s, u"n2"_s}));
    }

    void manyRowsAreCountedBeside()
    {
        for (int i = 0; i < 12; ++i)
            addItem(u"n%1"_s.arg(i), {});
        KListCount::setAtOnce(5);
        SampleList page;
        page.open();
        page.setRowLimit(4);
        page.refill();
        QCOMPARE(page.countText(), u"تعداد : 4 از بیش از 9"_s);
        QTRY_COMPARE(page.countText(), u"تعداد : 4 از 15"_s);
        page.nextRows()->click();
        // What is on its way is not waited for.
        page.refill();
        KListCount::setAtOnce(5000);
        page.refill();
        QCOMPARE(page.countText(), u"تعداد : 4 از 15"_s);
    }

    void aDatabaseClosedMeanwhileHidesTheCommands()
    {
        SampleList page;
        page.show();
        QVERIFY(!page.button(u"add")->isHidden());
        GetDBSetting()->SetClosedDB(true);
        page.refreshIfStale();
        QVERIFY(page.button(u"add")->isHidden());
        GetDBSetting()->SetClosedDB(false);
        page.refreshIfStale();
        QVERIFY(!page.button(u"add")->isHidden());
    }

    void anEmptyTableOffersItsFirstRow()
    {
        m_office->database.run(u"DELETE FROM Items"_s);
        SampleList page;
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        const KEmptyState *empty = page.emptyState();
        QVERIFY(empty->isVisible());
        QCOMPARE(empty->sentence(), u"هنوز ردیفی ثبت نشده است."_s);
        QCOMPARE(empty->button()->text(), u"جدید"_s);
        empty->button()->click();
        QCOMPARE(page.added, 1);
        // Where nothing may be added, nothing is offered.
        GetDBSetting()->SetClosedDB(true);
        page.refresh();
        QVERIFY(empty->isVisible());
        QVERIFY(!empty->button());
        GetDBSetting()->SetClosedDB(false);
        addItem(u"d"_s, u"4"_s);
        page.refresh();
        QVERIFY(!empty->isVisible());
    }

    void aFilterThatFindsNothingCanBeCleared()
    {
        SampleList page;
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QVERIFY(!page.emptyState()->isVisible());
        page.filters().set(u"name", u"zzz"_s);
        searchButton(page)->click();
        QVERIFY(page.emptyState()->isVisible());
        QCOMPARE(page.emptyState()->sentence(), u"با این فیلتر چیزی یافت نشد."_s);
        QCOMPARE(page.emptyState()->button()->text(), u"پاک کردن فیلتر"_s);
        page.emptyState()->button()->setFocus();
        QTest::keyClick(page.emptyState()->button(), Qt::Key_Space);
        QCOMPARE(page.list()->count(), 3);
        QVERIFY(!page.emptyState()->isVisible());
        QCOMPARE(page.focusWidget(), page.list());
        QVERIFY(page.filters().value(u"name").toString().isEmpty());
    }

    // A reset that keeps part of the filter would leave the list as empty as it was.
    void whatAResetKeepsIsClearedToo()
    {
        SampleList page;
        page.keepsName = true;
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        page.filters().set(u"name", u"zzz"_s);
        page.refill();
        page.emptyState()->button()->click();
        QCOMPARE(page.list()->count(), 3);
    }

    void deletingTheLastRowLeavesAnEmptyTable()
    {
        m_office->database.run(u"DELETE FROM Items WHERE sName<>'a'"_s);
        SampleList page;
        page.open();
        page.list()->selectRow(0);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page.deleteCurrent();
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(!page.emptyState()->isHidden());
        QCOMPARE(page.emptyState()->sentence(), u"هنوز ردیفی ثبت نشده است."_s);
    }

    void whetherTheTableIsEmptyIsAskedOnce()
    {
        SampleList page;
        page.open();
        const ObservedStatements counts({u"SELECT COUNT("_s});
        for (const QString &name : {u"z"_s, u"zz"_s, u"zzz"_s}) {
            page.filters().set(u"name", name);
            page.refill();
        }
        QCOMPARE(page.emptyState()->sentence(), u"با این فیلتر چیزی یافت نشد."_s);
        QCOMPARE(counts.taken().size(), 1);
        // Read anew, it may be another table by now.
        m_office->database.run(u"DELETE FROM Items"_s);
        page.refresh();
        QCOMPARE(page.emptyState()->sentence(), u"هنوز ردیفی ثبت نشده است."_s);
        QCOMPARE(counts.taken().size(), 2);
        // A row that came meanwhile is known from the list.
        addItem(u"d"_s, u"4"_s);
        page.filters().reset();
        page.refill();
        page.filters().set(u"name", u"z"_s);
        page.refill();
        QCOMPARE(page.emptyState()->sentence(), u"با این فیلتر چیزی یافت نشد."_s);
    }

    void anEmptyTableIsNotCountedWithoutAFilter()
    {
        m_office->database.run(u"DELETE FROM Items"_s);
        SampleList page;
        const ObservedStatements counts({u"SELECT COUNT("_s});
        page.open();
        page.refresh();
        QCOMPARE(page.emptyState()->sentence(), u"هنوز ردیفی ثبت نشده است."_s);
        QCOMPARE(counts.taken(), QStringList());
    }

    void aListFillsWhereTheCountFails()
    {
        SampleList page;
        page.open();
        page.needsName = true;
        page.filters().set(u"name", u"zzz"_s);
        page.refill();
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(page.countText(), u"تعداد : 0"_s);
        QCOMPARE(page.emptyState()->sentence(), u"با این فیلتر چیزی یافت نشد."_s);
        // So does the list whose last row is deleted.
        page.filters().set(u"name", u"c"_s);
        page.refill();
        page.list()->selectRow(0);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page.deleteCurrent();
        QCOMPARE(page.countText(), u"تعداد : 0"_s);
        QVERIFY(!page.button(u"remove")->isEnabled());
        QCOMPARE(page.emptyState()->sentence(), u"با این فیلتر چیزی یافت نشد."_s);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    }

    void aListThatHasNotBeenFilledSaysNothing()
    {
        SampleList page;
        QVERIFY(page.emptyState()->isHidden());
        page.open();
        page.dropRows();
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(page.emptyState()->isHidden());
    }

    void tabGoesFromTheListToTheOfferInIt()
    {
        m_office->database.run(u"DELETE FROM Items"_s);
        SampleList page;
        page.show();
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        page.list()->setFocus();
        QTest::keyClick(page.list(), Qt::Key_Tab);
        QCOMPARE(page.focusWidget(), page.emptyState()->button());
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
        QCOMPARE(page.focusWidget(), page.button(u"add"));
    }

    void aCommandWithoutItsRightLooksDisabledAndSaysWhy()
    {
        GetDBSetting()->Login(m_office->clerk);
        KSecurity::setRights(m_office->clerk, u"InputParameters"_s, KSecurity::Access | KSecurity::Delete);
        SampleList page;
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        page.list()->selectRow(0);
        const auto *add = static_cast<KCommandButton *>(page.button(u"add"));
        const auto *remove = static_cast<KCommandButton *>(page.button(u"remove"));
        const auto *report = static_cast<KCommandButton *>(page.button(u"report"));
        QVERIFY(add->isHindered());
        QCOMPARE(add->toolTip(), KSecurity::refusalText(u"InputParameters"_s, KSecurity::Write));
        QCOMPARE(add->accessibleDescription(), add->toolTip());
        QVERIFY(!remove->isHindered());
        QCOMPARE(remove->toolTip(), QKeySequence(QKeySequence::Delete).toString(QKeySequence::NativeText));
        QCOMPARE(report->toolTip(), KSecurity::refusalText(u"AutoFullReport"_s, KSecurity::Access));
        // It can be pressed, and the command then refuses by itself.
        QVERIFY(add->isEnabled());
        QVERIFY(page.runCommand(u"add"));
        QCOMPARE(page.added, 1);
        // In a menu too.
        KSecurity::setRights(m_office->clerk, u"InputParameters"_s, KSecurity::Access);
        page.refresh();
        page.list()->selectRow(0);
        page.commandLine()->showRowMenu(page.mapToGlobal(QPoint()));
        auto *menu = page.list()->findChild<CommandMenu *>();
        QVERIFY(menu && menu->actions().size() == 1);
        QCOMPARE(ActionHindrance::of(*menu->actions().constFirst()), KSecurity::refusalText(u"InputParameters"_s, KSecurity::Delete));
        QVERIFY(menu->actions().constFirst()->isEnabled());
        menu->close();
        // Rights given meanwhile count when the list is read anew.
        KSecurity::setRights(m_office->clerk, u"InputParameters"_s, KSecurity::allRights);
        page.refresh();
        QVERIFY(!add->isHindered());
        GetDBSetting()->Login(m_office->admin);
    }

    void deletingWhileARowIsChosenIsTheListsOwnDecision_data()
    {
        QTest::addColumn<bool>("deletes");
        QTest::newRow("most") << false;
        QTest::newRow("asked") << true;
    }

    void deletingWhileARowIsChosenIsTheListsOwnDecision()
    {
        QFETCH(bool, deletes);
        KListTraits traits;
        traits.deletesInSelectMode = deletes;
        SampleList page(traits);
        page.setSelectMode(true);
        page.open();
        page.list()->selectRow(0);
        g_pDlgYesNo->takeShown();
        page.deleteCurrent();
        QCOMPARE(g_pDlgYesNo->takeShown().size(), deletes ? 1 : 0);
        QCOMPARE(page.list()->count(), deletes ? 2 : 3);
    }

    void layoutIsKeptUnderTheNameThatTheListGives()
    {
        KListTraits traits;
        traits.layoutSetting = u"Elsewhere\\List"_s;
        {
            SampleList page(traits);
            page.open();
            page.list()->header()->resizeSection(1, 123);
        }
        QVERIFY(!ReadSetting(u"Elsewhere\\List\\Users\\admin"_s, u"sWidths"_s, QString()).isEmpty());
        QVERIFY(ReadSetting(u"Sample\\List"_s, u"sWidths"_s, QString()).isEmpty());
    }
};

static const RegisteredTest<TestKListPage, QApplication> registeredKListPage;
#include "TestKListPage.moc"

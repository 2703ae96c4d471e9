// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString section = QStringLiteral("Sample");

// Items beside their departments: a view that names every column by its table.
class ItemsJoined : public KMySQL
{
public:
    qint32 m_iID = 0;
    QString m_sName;

    QString GetTableName() const override { return QStringLiteral("Items"); }

protected:
    void DoFieldExchange() override
    {
        RFX_Long(u"it.iID", m_iID, u"");
        RFX_Text(u"it.sName", m_sName, u"نام");
    }
    QString fromClause() const override
    {
        return QStringLiteral("Items it LEFT OUTER JOIN Departments d ON (it.iStatus=d.iID OR d.iID=1)");
    }
};

class SampleList final : public KListPage
{
public:
    explicit SampleList(KListTraits traits = {})
        : KListPage(QStringLiteral("نمونه"), QStringLiteral("InputParameters"), section)
        , m_traits(std::move(traits))
    {
        build();
    }

    int searches = 0;

    void deleteCurrent() { deleteSelected(); }

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
        return {{.key = u"name"_s, .label = u"نام :"_s, .kind = KListFilter::Kind::Text, .place = {0, 0}, .options = KListFilter::FindGoesHere},
                {.key = u"itemType"_s, .clause = always(" AND it.iType=7")},
                {.key = u"grouping"_s, .clause = always(" GROUP BY it.iID")}};
    }
    std::vector<KListCommand> commands() override { return {}; }
    KListTraits traits() const override { return m_traits; }
    std::unique_ptr<KMySQL> makeRecords() const override { return std::make_unique<ItemsJoined>(); }
    std::unique_ptr<KMySQL> makeRecord() const override { return std::make_unique<CTblItems>(); }
    void beginRows() override { ++searches; }
    QString defaultSort() const override { return QStringLiteral("it.iID"); }
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
        if (edit->accessibleName() == QStringLiteral("تعداد نمايش :"))
            return edit;
    }
    return nullptr;
}

QPushButton *searchButton(const SampleList &page)
{
    const QList<QPushButton *> buttons = page.findChildren<QPushButton *>();
    return buttons.isEmpty() ? nullptr : buttons.constFirst();
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
            QStringLiteral("INSERT INTO Items(iType,sName,sTitle) VALUES(7,'%1','%2')").arg(name, title));
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
        m_office->database.run(QStringLiteral("DELETE FROM Items"));
        for (const QString &key : {QStringLiteral("Sort"), QStringLiteral("iLastCol"), QStringLiteral("iMaxRows")})
            WriteSetting(section, key, key == QStringLiteral("Sort") ? QStringLiteral("none") : QString());
        addItem(QStringLiteral("b"), QStringLiteral("2"));
        addItem(QStringLiteral("c"), QStringLiteral("1"));
        addItem(QStringLiteral("a"), QStringLiteral("3"));
        g_pDlgWarning->takeShown();
    }

    void aJoinedViewListsEachRecordOnce()
    {
        SampleList page;
        page.open();
        QCOMPARE(names(page), (QStringList{QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")}));
    }

    void deletingWorksOnTheTablesOwnClass()
    {
        SampleList page;
        page.open();
        page.list()->selectRow(1);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page.deleteCurrent();
        QCOMPARE(names(page), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
        QCOMPARE(m_office->database.value(QStringLiteral("SELECT GROUP_CONCAT(sName ORDER BY iID) FROM Items")),
                 QStringLiteral("b,a"));
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 2"));
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
        QCOMPARE(names(page), (QStringList{QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")}));
        page.OnClosing();
        SampleList again;
        again.open();
        QCOMPARE(again.sortExpression(), QStringLiteral("sTitle"));
        QCOMPARE(names(again), names(page));
    }

    // The next click on the title turns the order round, as it would have before the list was closed.
    void aStoredDescendingOrderIsTurnedRoundByTheNextClick()
    {
        WriteSetting(section, QStringLiteral("iLastCol"), 1);
        WriteSetting(section, QStringLiteral("Sort"), QStringLiteral("it.sName DESC"));
        SampleList page;
        page.open();
        QCOMPARE(names(page), (QStringList{QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")}));
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"name"));
        QCOMPARE(page.sortExpression(), QStringLiteral("it.sName"));
        QCOMPARE(names(page), (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    }

    void anEmptyStoredOrderIsTheListsOwn_data()
    {
        QTest::addColumn<QString>("emptySort");
        QTest::addColumn<QString>("used");
        QTest::newRow("its own") << QStringLiteral("it.sTitle DESC") << QStringLiteral("it.sTitle DESC");
        QTest::newRow("the default") << QString() << QStringLiteral("it.iID");
    }

    void anEmptyStoredOrderIsTheListsOwn()
    {
        QFETCH(QString, emptySort);
        QFETCH(QString, used);
        WriteSetting(section, QStringLiteral("Sort"), QString());
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
        QTest::newRow("a statement") << QStringLiteral("it.sName; DROP TABLE Items");
        QTest::newRow("a direction alone") << QStringLiteral(" DESC");
        QTest::newRow("twice downwards") << QStringLiteral("it.sName DESC DESC");
    }

    void aStoredOrderOfNoColumnIsTheDefault()
    {
        QFETCH(QString, stored);
        WriteSetting(section, QStringLiteral("Sort"), stored);
        SampleList page;
        page.open();
        QCOMPARE(page.sortExpression(), QStringLiteral("it.iID"));
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
        WriteSetting(section, QStringLiteral("iLastCol"), stored);
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
        QTest::newRow("0 is no limit") << 0 << QStringLiteral("0") << 3 << false;
        QTest::newRow("empty is 0") << 0 << QString() << 3 << false;
        QTest::newRow("2") << 0 << QStringLiteral("2") << 2 << false;
        QTest::newRow("0 is refused elsewhere") << 1 << QStringLiteral("0") << 1 << true;
        QTest::newRow("1 elsewhere") << 1 << QStringLiteral("1") << 1 << false;
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
        WriteSetting(section, QStringLiteral("iMaxRows"), 1);
        KListTraits traits;
        traits.hasRowLimit = false;
        SampleList page(traits);
        page.open();
        QVERIFY(!rowLimit(page));
        QCOMPARE(page.rowLimit(), 0);
        QCOMPARE(page.list()->count(), 3);
        page.OnClosing();
        QCOMPARE(ReadSetting(section, QStringLiteral("iMaxRows"), 0), 1);
    }

    void aListWithoutASearchButtonIsReadAnewByF5()
    {
        KListTraits traits;
        traits.hasRowLimit = false;
        traits.hasSearchButton = false;
        traits.filterTitle = QStringLiteral("انتخاب");
        SampleList page(traits);
        QVERIFY(!searchButton(page));
        QCOMPARE(page.findChild<QGroupBox *>()->title(), QStringLiteral("انتخاب"));
        page.show();
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QCOMPARE(page.searches, 1);
        QTest::keyClick(page.list(), Qt::Key_F5);
        QCOMPARE(page.searches, 2);
    }

    void anEmptyListIsNotReadForAnotherOrderUnlessItSaysSo_data()
    {
        QTest::addColumn<bool>("sortsWithoutRows");
        QTest::addColumn<int>("searches");
        QTest::newRow("most") << false << 1;
        QTest::newRow("asked") << true << 2;
    }

    void anEmptyListIsNotReadForAnotherOrderUnlessItSaysSo()
    {
        QFETCH(bool, sortsWithoutRows);
        QFETCH(int, searches);
        m_office->database.run(QStringLiteral("DELETE FROM Items"));
        KListTraits traits;
        traits.sortsWithoutRows = sortsWithoutRows;
        SampleList page(traits);
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"title"));
        QCOMPARE(page.searches, searches);
        QCOMPARE(page.sortExpression(), QStringLiteral("sTitle"));
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
        traits.layoutSetting = QStringLiteral("Elsewhere\\List");
        {
            SampleList page(traits);
            page.open();
            page.list()->header()->resizeSection(1, 123);
        }
        QVERIFY(!ReadSetting(QStringLiteral("Elsewhere\\List"), QStringLiteral("sWidths"), QString()).isEmpty());
        QVERIFY(ReadSetting(QStringLiteral("Sample\\List"), QStringLiteral("sWidths"), QString()).isEmpty());
    }
};

static const RegisteredTest<TestKListPage, QApplication> registered;
#include "TestKListPage.moc"

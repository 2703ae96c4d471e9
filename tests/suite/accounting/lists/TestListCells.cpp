// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KNextRows.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QLineEdit>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = 600;

// Counts for which rows it is asked to make cells.
class CountingList final : public KListPage
{
public:
    CountingList()
        : KListPage(u"نمونه"_s, u"InputParameters"_s, u"Counting"_s)
    {
        build();
        setRowLimit(rowCount);
    }

    QSet<int> made;        // keys
    bool completes = false;

    using KListPage::recordDeleted;

protected:
    QList<KListColumn> columnTable() const override
    {
        const auto counting = [this](KMySQL &record, int) {
            const_cast<CountingList *>(this)->made.insert(static_cast<CTblItems &>(record).m_iID);
            return KListColumn::Cell{u"خانه %1"_s.arg(static_cast<CTblItems &>(record).m_sName)};
        };
        const auto odd = [](KMySQL &record) { return static_cast<CTblItems &>(record).m_iStatus % 2 == 1; };
        return {KListColumn::rowNumber(),
                {.key = u"name"_s, .title = u"نام"_s, .column = u"sName"_s},
                {.key = u"counted"_s, .title = u"خانه"_s, .cell = counting, .reads = {u"sName"_s}},
                {.key = u"status"_s, .title = u"مقدار"_s, .column = u"iStatus"_s, .sums = true, .counts = odd, .warns = odd}};
    }
    KListTraits traits() const override { return {}; }
    std::vector<KListCommand> commands() override { return {}; }
    std::unique_ptr<KMySQL> makeRecords() const override { return std::make_unique<CTblItems>(); }
    bool isWarning(KMySQL &record) const override { return static_cast<CTblItems &>(record).m_sName == u"نام 500"_s; }
    bool completesRows() const override { return completes; }
    void completeRows(QVector<KListModel::Row> &rows) override
    {
        for (KListModel::Row &row : rows)
            row.cells[1].text += u'+';
    }
    void activated(int) override { }
};

}

// The cells of a list are made when its rows are seen, and nothing that it says of all of them needs more.
class TestListCells : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static std::unique_ptr<CountingList> shown(bool completes = false)
    {
        auto page = std::make_unique<CountingList>();
        page->completes = completes;
        page->setRowLimit(rowCount);
        page->resize(1000, 600);
        page->show();
        page->setRowLimit(rowCount);
        page->refill();
        QCoreApplication::processEvents();
        return page;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_office = std::make_unique<TestOffice>();
        m_office->database.run(u"DELETE FROM Items"_s);
        m_office->database.run(u"INSERT INTO Items(iType,iStatus,sName,sTitle) SELECT 7,seq,CONCAT('نام ',seq),'' FROM seq_1_to_600"_s);
    }
    void cleanupTestCase()
    {
        setSettingsFile({});
        m_office.reset();
    }

    void onlyRowsInSightGetTheirCells()
    {
        const auto page = shown();
        KExtListCtrl &list = *page->list();
        QCOMPARE(list.count(), rowCount);
        const auto first = page->made.size();
        QVERIFY2(first < rowCount / 2, qPrintable(QString::number(first)));
        QCOMPARE(list.listModel()->sums(3), (QList<std::pair<QString, double>>{{QString(), 300.0 * 300.0}})); // of odd numbers
        QCOMPARE(list.listModel()->longestFigure(0), u"600"_s);
        QCOMPARE(list.listModel()->longestFigure(3), u"600"_s);
        QCOMPARE(page->made.size(), first);
        list.selectRow(rowCount - 1);
        QCOMPARE(list.cellText(rowCount - 1, u"counted"), u"خانه نام 600"_s);
        QCOMPARE(list.cellText(rowCount - 1, u"row"), u"600"_s);
        QVERIFY(page->made.size() < first + rowCount / 4);
    }

    void aRowSeenLateStandsOutAsOneSeenAtOnce()
    {
        const auto page = shown();
        const KListModel &model = *page->list()->listModel();
        QVERIFY(model.index(499, 1).data(Qt::ForegroundRole).isValid());
        QVERIFY(!model.index(497, 1).data(Qt::ForegroundRole).isValid());
        QVERIFY(model.index(496, 3).data(Qt::ForegroundRole).isValid()); // 497 is odd
    }

    void whatIsLookedForIsFoundInRowsThatNobodyHasSeen()
    {
        const auto page = shown();
        page->bar()->quickFilter()->setText(u"خانه نام 577"_s);
        QCOMPARE(page->list()->count(), 1);
        QCOMPARE(page->list()->cellText(0, u"status"), u"577"_s);
        QCOMPARE(page->list()->cellText(0, u"row"), u"1"_s);
        page->bar()->widen();
        QCOMPARE(page->list()->cellText(576, u"row"), u"577"_s);
    }

    void rowsBehindARemovedOneAreCountedAnewBeforeTheyAreSeen()
    {
        const auto page = shown();
        const int key = page->list()->listModel()->keyAt(300);
        page->recordDeleted(key);
        QCOMPARE(page->list()->count(), rowCount - 1);
        QCOMPARE(page->list()->cellText(300, u"row"), u"301"_s);
        QCOMPARE(page->list()->cellText(300, u"name"), u"نام 302"_s);
        QCOMPARE(page->list()->listModel()->sums(3).constFirst().second, 300.0 * 300.0 - 301);
    }

    // What another desk writes meanwhile comes with the next reading, to all rows at once.
    void rowsSayWhatWasRead()
    {
        const auto page = shown();
        m_office->database.run(u"UPDATE Items SET sName='دیگر' WHERE iStatus=550"_s);
        QCOMPARE(page->list()->cellText(549, u"name"), u"نام 550"_s);
        page->refill();
        QCOMPARE(page->list()->cellText(549, u"name"), u"دیگر"_s);
        m_office->database.run(u"UPDATE Items SET sName='نام 550' WHERE iStatus=550"_s);
    }

    void whatIsReadBehindHasCellsOfItsOwn()
    {
        const auto page = shown();
        page->setRowLimit(200);
        page->refill();
        page->nextRows()->click();
        QCOMPARE(page->list()->count(), 400);
        QCOMPARE(page->list()->cellText(150, u"name"), u"نام 151"_s);
        QCOMPARE(page->list()->cellText(350, u"name"), u"نام 351"_s);
        QCOMPARE(page->list()->cellText(350, u"row"), u"351"_s);
        QCOMPARE(page->list()->listModel()->longestFigure(3).size(), 3);
    }

    void aListThatAddsToItsRowsHasAllOfThem()
    {
        const auto page = shown(true);
        QCOMPARE(page->made.size(), rowCount);
        QCOMPARE(page->list()->cellText(450, u"name"), u"نام 451+"_s);
    }

    void rowsOnPaperHaveTheirCells()
    {
        const auto page = shown();
        const QVector<KListModel::Row> rows = page->list()->listModel()->rows();
        QCOMPARE(rows.size(), rowCount);
        QCOMPARE(page->made.size(), rowCount);
        for (int row = 0; row < rows.size(); ++row)
            QCOMPARE(rows.at(row).cells.at(1).text, u"نام %1"_s.arg(row + 1));
    }
};

static const RegisteredTest<TestListCells, QApplication> registeredListCells;
#include "TestListCells.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/ListSums.h"

#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Amounts by kind; the row of code 0 is void.
class ListOfAmounts final : public KListPage
{
public:
    ListOfAmounts()
        : KListPage(u"نمونه"_s, u"InputParameters"_s, u"Amounts"_s)
    {
        build();
    }

    using KListPage::deleteSelected;

protected:
    QList<KListColumn> columnTable() const override
    {
        const auto amount = [](KMySQL &record, int) { return KListColumn::money(static_cast<CTblItems &>(record).m_iStatus * 1000.0); };
        const auto isValid = [](KMySQL &record) { return static_cast<CTblItems &>(record).m_sTitle != u"void"_s; };
        return {KListColumn::rowNumber(),
                {.key = u"name"_s, .title = u"نوع"_s, .column = u"sName"_s},
                {.key = u"amount"_s, .title = u"مبلغ"_s, .cell = amount, .reads = {u"iStatus"_s, u"sTitle"_s}, .sums = true, .counts = isValid},
                {.key = u"byKind"_s, .title = u"مبلغ نوع"_s, .cell = amount, .reads = {u"iStatus"_s}, .optional = true, .sums = true, .sumsBy = u"name"_s}};
    }
    std::vector<KListCommand> commands() override { return {}; }
    std::unique_ptr<KMySQL> makeRecords() const override { return std::make_unique<CTblItems>(); }
    void activated(int) override { }
};

QString sumsOf(const KListPage &page)
{
    const auto *sums = page.findChild<ListSums *>();
    return sums->isHidden() ? QString() : sums->text().replace(QChar(QChar::Nbsp), u' ');
}

void click(const KExtListCtrl &list, int row, Qt::KeyboardModifiers keys, Qt::MouseButton button = Qt::LeftButton)
{
    const QRect cell = list.visualRect(list.model()->index(row, 1));
    QTest::mouseClick(list.viewport(), button, keys, cell.center());
}

}

// What the amounts of a list come to, of all its rows and of those that are marked.
class TestListSums : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static std::unique_ptr<ListOfAmounts> shown()
    {
        auto page = std::make_unique<ListOfAmounts>();
        page->resize(1000, 600);
        page->show();
        return page;
    }
    static QString inUnits(const QString &text) { return text + u' ' + GetDBSetting()->MoneyUnitName(); }

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
        m_office->database.run(u"INSERT INTO Items(iType,iStatus,sName,sTitle) VALUES(7,1,'فروش',''),(7,2,'خرید',''),(7,4,'فروش',''),(7,8,'فروش','void')"_s);
        WriteSetting(u"Amounts\\List\\Users\\admin"_s, u"sShown"_s, QString());
        WriteSetting(u"Amounts\\List\\Users\\admin"_s, u"sHidden"_s, QString());
    }

    void theRowsInSightAreSummedUp()
    {
        const auto page = shown();
        QCOMPARE(sumsOf(*page), inUnits(u"جمع مبلغ : 7,000"_s));
        page->bar()->quickFilter()->setText(u"فروش"_s);
        QCOMPARE(sumsOf(*page), inUnits(u"جمع مبلغ : 5,000"_s));
        page->bar()->quickFilter()->setText(u"هیچ"_s);
        QCOMPARE(sumsOf(*page), QString());
    }

    void whatIsOffIsNotSummedUpAndKindsAreParted()
    {
        const auto page = shown();
        page->list()->setColumnShown(u"byKind", true);
        QCOMPARE(sumsOf(*page).simplified(),
                 (inUnits(u"جمع مبلغ : 7,000"_s) + u' ' + inUnits(u"جمع مبلغ نوع (فروش) : 13,000"_s) + u' ' + inUnits(u"جمع مبلغ نوع (خرید) : 2,000"_s)));
        page->list()->setColumnShown(u"amount", false);
        QVERIFY(!sumsOf(*page).contains(u"7,000"_s));
    }

    // Commands stay with the current row, which the other marks do not change.
    void markedRowsAreSummedUpBesides()
    {
        const auto page = shown();
        KExtListCtrl &list = *page->list();
        click(list, 0, Qt::NoModifier);
        click(list, 2, Qt::ControlModifier);
        QCOMPARE(list.markedRows(), (QList<int>{0, 2}));
        QCOMPARE(list.currentRow(), 2);
        QCOMPARE(sumsOf(*page).simplified(), inUnits(u"جمع مبلغ : 7,000"_s) + u' ' + inUnits(u"2 ردیف نشان‌شده، مبلغ : 5,000"_s));
        // The current one is no longer marked.
        click(list, 2, Qt::ControlModifier);
        QCOMPARE(list.currentRow(), 0);
        QVERIFY(!sumsOf(*page).contains(u"نشان"_s));
        // A plain click marks one.
        click(list, 3, Qt::ShiftModifier);
        QVERIFY(list.markedRows().size() > 1);
        click(list, 1, Qt::NoModifier);
        QCOMPARE(list.markedRows(), QList<int>{1});
    }

    void keysMarkTooAndCopyWhatIsMarked()
    {
        const auto page = shown();
        KExtListCtrl &list = *page->list();
        list.selectRow(0);
        QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(list.markedRows(), (QList<int>{0, 1}));
        QCOMPARE(list.currentRow(), 1);
        QTest::keySequence(&list, QKeySequence::Copy);
        QCOMPARE(QApplication::clipboard()->text(), u"1\tفروش\t1,000\n2\tخرید\t2,000"_s);
        QTest::keySequence(&list, QKeySequence::SelectAll);
        QCOMPARE(list.markedRows().size(), 4);
        QTest::keyClick(&list, Qt::Key_Up);
        QCOMPARE(list.markedRows().size(), 1);
    }

    // A right click on a marked row is about that row alone.
    void aRightClickOnAMarkedRowMeansThatRow()
    {
        const auto page = shown();
        KExtListCtrl &list = *page->list();
        click(list, 0, Qt::NoModifier);
        click(list, 2, Qt::ShiftModifier);
        QList<int> told;
        connect(&list, &KExtListCtrl::rowRightClicked, &list, [&](int key) { told.append(key); });
        click(list, 1, Qt::NoModifier, Qt::RightButton);
        QCOMPARE(told, QList<int>{list.listModel()->keyAt(1)});
        QCOMPARE(list.currentRow(), 1);
    }

    void whoChoosesOneRowMarksNoOthers()
    {
        auto page = std::make_unique<ListOfAmounts>();
        page->setSelectMode(true);
        page->resize(1000, 600);
        page->show();
        click(*page->list(), 0, Qt::NoModifier);
        click(*page->list(), 2, Qt::ControlModifier);
        QCOMPARE(page->list()->markedRows(), QList<int>{2});
    }
};

static const RegisteredTest<TestListSums, QApplication> registeredListSums;
#include "TestListSums.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListBar.h"

#include "suite/accounting/lists/CDlgListColumns.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

class ListWithBar final : public KListPage
{
public:
    ListWithBar()
        : KListPage(u"نمونه"_s, u"InputParameters"_s, u"WithBar"_s)
    {
        build();
    }

    int opened = 0; // key of the row

    using KListPage::selectListed;
    QString countOnPaper() const { return listReport().text(u"Count"_s); }

protected:
    QList<KListColumn> columnTable() const override
    {
        return {KListColumn::rowNumber(), {.key = u"name"_s, .title = u"نام"_s, .sortKey = u"sName"_s, .column = u"sName"_s}, {.key = u"title"_s, .title = u"عنوان"_s, .column = u"sTitle"_s}};
    }
    QList<KListFilter> filterTable() const override
    {
        return {{.key = u"name"_s, .label = u"نام :"_s, .kind = KListFilter::Kind::Text, .place = {0, 0}, .clause = FilterClauses::part("sName"), .options = KListFilter::FindGoesHere}};
    }
    std::vector<KListCommand> commands() override { return {}; }
    std::unique_ptr<KMySQL> makeRecords() const override { return std::make_unique<CTblItems>(); }
    KListReport reportSpec() const override { return {u"نمونه"_s, u"گروه"_s, u"گزارش"_s}; }
    void activated(int key) override { opened = key; }
};

QToolButton *crossOf(const KListPage &page)
{
    for (QToolButton *button : page.findChildren<QToolButton *>()) {
        if (button->accessibleName() == u"برداشتن شرط"_s)
            return button;
    }
    return nullptr;
}

}

// The line above the rows, and what a list was asked for besides its filter.
class TestKListBar : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static std::unique_ptr<ListWithBar> shown()
    {
        auto page = std::make_unique<ListWithBar>();
        page->resize(1000, 600);
        page->show();
        page->activateWindow();
        return page;
    }
    // As one types: the test library's keys are Latin.
    static void type(const KListPage &page, const QString &words)
    {
        page.bar()->quickFilter()->setFocus();
        page.bar()->quickFilter()->selectAll();
        page.bar()->quickFilter()->insert(words);
    }
    static QString found(const KListPage &page)
    {
        for (const QLabel *label : page.bar()->findChildren<QLabel *>()) {
            if (!label->text().isEmpty())
                return label->text();
        }
        return {};
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
        m_office->database.run(u"INSERT INTO Items(iType,sName,sTitle) VALUES(7,'علي','1'),(7,'رضا','2'),(7,'علیرضا','3')"_s);
        WriteSetting(u"WithBar\\List\\Users\\admin"_s, u"sOrder"_s, QString());
    }

    void typingNarrowsWithoutAskingTheDatabase()
    {
        const auto page = shown();
        QCOMPARE(found(*page), QString());
        const ObservedStatements statements({u"SELECT"_s});
        type(*page, u"علی"_s);
        QCOMPARE(page->list()->count(), 2);
        QCOMPARE(found(*page), u"2 ردیف از 3"_s);
        QCOMPARE(page->countText(), u"تعداد : 2"_s);
        QCOMPARE(page->countOnPaper(), u"تعداد : 2"_s);
        QTest::keyClick(page->bar()->quickFilter(), Qt::Key_Escape);
        QCOMPARE(page->list()->count(), 3);
        QCOMPARE(found(*page), QString());
        QVERIFY2(statements.taken().filter(u" FROM Items"_s).isEmpty(), qPrintable(statements.taken().join(u'\n')));
    }

    void theRowsAreReachedFromThere()
    {
        const auto page = shown();
        page->bar()->quickFilter()->setFocus();
        page->list()->selectRow(0);
        QTest::keyClick(page->bar()->quickFilter(), Qt::Key_Down);
        QCOMPARE(page->list()->currentRow(), 1);
        QTest::keyClick(page->bar()->quickFilter(), Qt::Key_Return);
        QCOMPARE(page->opened, page->list()->currentKey());
        // Without a word Escape is the window's.
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        escape.ignore();
        QApplication::sendEvent(page->bar()->quickFilter(), &escape);
        QVERIFY(!escape.isAccepted());
    }

    void whoChoosesARowTypesAtOnce()
    {
        auto page = std::make_unique<ListWithBar>();
        page->setSelectMode(true);
        page->show();
        page->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(page.get()));
        QCOMPARE(page->focusWidget(), page->bar()->quickFilter());
        QSignalSpy chosen(page.get(), &KDialogTabPage::okRequested);
        type(*page, u"رضا"_s);
        QTest::keyClick(page->bar()->quickFilter(), Qt::Key_Return);
        QCOMPARE(chosen.count(), 1);
        QVERIFY(page->OnOK() && page->chosenKey() == page->list()->currentKey());
    }

    void wordsThatFindNothingCanBeTakenAway()
    {
        const auto page = shown();
        type(*page, u"سمند"_s);
        QVERIFY(page->emptyState()->isVisible());
        Q_EMIT page->emptyState()->pressed();
        QVERIFY(!page->emptyState()->isVisible());
        QCOMPARE(page->list()->count(), 3);
        QCOMPARE(page->bar()->quickFilter()->text(), QString());
    }

    void aRowThatIsToBeSelectedComesIntoSight()
    {
        const auto page = shown();
        type(*page, u"علی"_s);
        const int hidden = m_office->database.value(u"SELECT iID FROM Items WHERE sTitle='2'"_s).toInt();
        page->selectListed(hidden);
        QCOMPARE(page->list()->currentKey(), hidden);
        type(*page, u"علی"_s);
        page->selectListed(hidden + 1000);
        QCOMPARE(page->bar()->quickFilter()->text(), u"علی"_s);
        // Another order narrows anew.
        type(*page, u"رضا"_s);
        QCOMPARE(page->list()->cellText(0, u"name"), u"رضا"_s);
        Q_EMIT page->list()->columnClicked(1);
        QCOMPARE(page->list()->count(), 2);
        QCOMPARE(page->list()->cellText(0, u"name"), u"علیرضا"_s);
    }

    void whatWasAskedBesidesTheFilterHasACross()
    {
        const auto page = shown();
        KListRequest request;
        request.condition = "sTitle='2'";
        request.conditionText = u"عنوان دوم"_s;
        type(*page, u"علی"_s);
        page->setRequest(request);
        QCOMPARE(page->list()->count(), 1);
        QToolButton *cross = crossOf(*page);
        QVERIFY(cross && cross->isVisible());
        QVERIFY(cross->toolTip().contains(request.conditionText));
        QVERIFY(cross->focusPolicy() & Qt::TabFocus);
        QTest::keyClick(cross, Qt::Key_Space);
        QVERIFY(!cross->isVisible());
        QCOMPARE(page->list()->count(), 3);
    }

    // By the keyboard what dragging the titles is by the mouse.
    void theWindowOfTheColumnsOrdersAndHidesThem()
    {
        const auto page = shown();
        CDlgListColumns window(page->list(), page.get());
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.columns(), Qt::Key_Down);
        QTest::keyClick(window.columns(), Qt::Key_Up, Qt::ControlModifier);
        QCOMPARE(window.columns()->model()->index(0, 0).data().toString(), u"نام"_s);
        QTest::keyClick(window.columns(), Qt::Key_Up, Qt::ControlModifier);
        window.columns()->setCurrentIndex(window.columns()->model()->index(2, 0));
        QTest::keyClick(window.columns(), Qt::Key_Space);
        window.accept();
        QCOMPARE(page->list()->columnOrder(), (QList<int>{1, 0, 2}));
        QVERIFY(!page->list()->isColumnShown(u"title"));
        CDlgListColumns again(page->list(), page.get());
        auto *columns = static_cast<QStandardItemModel *>(again.columns()->model());
        QCOMPARE(columns->item(2)->checkState(), Qt::Unchecked);
        for (int row = 0; row < 2; ++row)
            columns->item(row)->setCheckState(Qt::Unchecked);
        again.accept();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        again.cancel();
        page->list()->resetColumns();
    }
};

static const RegisteredTest<TestKListBar, QApplication> registeredKListBar;
#include "TestKListBar.moc"

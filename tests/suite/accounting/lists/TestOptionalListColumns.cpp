// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/utility/frame/CommandMenu.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A list whose last column is off at first: one that reads a column of the record that no other reads.
class ListWithFurtherColumn final : public KListPage
{
public:
    ListWithFurtherColumn()
        : KListPage(u"نمونه"_s, u"InputParameters"_s, u"Further"_s)
    {
        build();
    }

    ListReport report() const { return listReport(); }

protected:
    QList<KListColumn> columnTable() const override
    {
        return {KListColumn::rowNumber(),
                {.key = u"name"_s, .title = u"نام"_s, .column = u"sName"_s},
                {.key = u"title"_s, .title = u"عنوان"_s, .column = u"sTitle"_s, .emptyText = u"-"_s, .optional = true}};
    }
    std::vector<KListCommand> commands() override
    {
        return {{.id = u"show"_s, .caption = u"نمايش"_s, .options = KListCommand::NeedsRow, .run = [] {}},
                {.id = u"remove"_s, .caption = u"حذف"_s, .options = KListCommand::NeedsRow, .run = [] {}, .shortcut = QKeySequence(QKeySequence::Delete)}};
    }
    std::unique_ptr<KMySQL> makeRecords() const override { return std::make_unique<CTblItems>(); }
    KListReport reportSpec() const override { return {u"نمونه"_s, u"گروه"_s, u"گزارش"_s}; }
    void activated(int) override { }
};

QStringList titlesOf(const ListReport &report)
{
    QStringList titles;
    for (const ListReport::ShownColumn &shown : report.shownColumns())
        titles << report.columns().at(shown.column).title;
    return titles;
}

}

// Columns of a list page that are off until the user switches them on.
class TestOptionalListColumns : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    static QString readBy(const std::function<void()> &work)
    {
        const ObservedStatements statements({u"SELECT"_s});
        work();
        return statements.taken().filter(u" FROM Items"_s).value(0);
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
        m_office->database.run(u"INSERT INTO Items(iType,sName,sTitle) VALUES(7,'a','1'),(7,'b','2')"_s);
        WriteSetting(u"Further\\List"_s, u"sShown"_s, QString());
    }

    void whatIsOffIsNotRead()
    {
        ListWithFurtherColumn page;
        const QString off = readBy([&] { page.open(); });
        QVERIFY2(off.contains(u"sName"_s) && !off.contains(u"sTitle"_s), qPrintable(off));
        QCOMPARE(page.list()->cellText(0, u"title"), QString());
        const QString on = readBy([&] { page.list()->setColumnShown(u"title", true); });
        QVERIFY2(on.contains(u"sTitle"_s), qPrintable(on));
        QCOMPARE(page.list()->cellText(1, u"title"), u"2"_s);
        const QString again = readBy([&] { page.list()->setColumnShown(u"title", false); });
        QVERIFY2(!again.contains(u"sTitle"_s), qPrintable(again));
        QCOMPARE(page.list()->cellText(1, u"title"), QString());
    }

    void oneThatTheUserHadOnIsReadAtOnce()
    {
        ListWithFurtherColumn().list()->setColumnShown(u"title", true);
        ListWithFurtherColumn page;
        page.open();
        QCOMPARE(page.list()->cellText(0, u"title"), u"1"_s);
    }

    void switchingKeepsTheSelectedRow()
    {
        ListWithFurtherColumn page;
        page.open();
        page.list()->selectRow(1);
        const int key = page.list()->currentKey();
        page.list()->setColumnShown(u"title", true);
        QCOMPARE(page.list()->currentKey(), key);
        // A list that was never filled reads nothing.
        ListWithFurtherColumn unopened;
        QCOMPARE(readBy([&] { unopened.list()->setColumnShown(u"title", false); }), QString());
    }

    // Paper, PDF and spreadsheet are made of the report.
    void whatIsOffIsNotPrinted()
    {
        ListWithFurtherColumn page;
        page.open();
        QCOMPARE(titlesOf(page.report()), (QStringList{u"ردیف"_s, u"نام"_s}));
        page.list()->setColumnShown(u"title", true);
        ListReport report = page.report();
        QCOMPARE(titlesOf(report), (QStringList{u"ردیف"_s, u"نام"_s, u"عنوان"_s}));
        // Nor by a layout that names it.
        const ReportLayout all = report.layout();
        page.list()->setColumnShown(u"title", false);
        ListReport without = page.report();
        without.setLayout(all);
        QCOMPARE(titlesOf(without), (QStringList{u"ردیف"_s, u"نام"_s}));
    }

    void theRowsMenuOffersThemBeforeWhatRemoves()
    {
        ListWithFurtherColumn page;
        page.open();
        page.list()->selectRow(0);
        page.commandLine()->showRowMenu(QPoint());
        auto *menu = page.list()->findChild<CommandMenu *>();
        QVERIFY(menu);
        QStringList texts;
        QMenu *columns = nullptr;
        for (const QAction *action : menu->actions()) {
            texts << action->text();
            columns = action->menu() ? action->menu() : columns;
        }
        QCOMPARE(texts, (QStringList{u"نمايش"_s, {}, KExtListCtrl::optionalColumnsName(), {}, u"حذف"_s}));
        QVERIFY(columns && columns->actions().size() == 1);
        columns->actions().constFirst()->trigger();
        QVERIFY(page.list()->isColumnShown(u"title"));
        menu->close();
        // Asked for again, it is ticked.
        page.commandLine()->showRowMenu(QPoint());
        QCOMPARE(columns->actions().size(), 1);
        QVERIFY(columns->actions().constFirst()->isChecked());
        menu->close();
    }
};

static const RegisteredTest<TestOptionalListColumns, QApplication> registeredOptionalListColumns;
#include "TestOptionalListColumns.moc"

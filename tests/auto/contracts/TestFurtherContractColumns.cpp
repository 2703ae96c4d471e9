// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/ContractListTest.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include "suite/accounting/lists/KListBar.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

// Columns of the list of contracts that are off at first.
class TestFurtherContractColumns : public ContractListTest
{
    Q_OBJECT

    static inline const QStringList further = {u"code"_s, u"amount"_s, u"commission"_s, u"car"_s, u"plate"_s};

    static QString sums(const CDlgAutomobilContracts &page)
    {
        for (const QLabel *label : page.list()->parentWidget()->findChildren<QLabel *>()) {
            if (label->text().startsWith(u"جمع"_s))
                return label->text().replace(QChar(QChar::Nbsp), u' ');
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init()
    {
        begin();
        addNamed(u"a"_s, [](Contract &contract) {
            contract.m_iCode = 71;
            contract.m_dAmount = 5'000'000;
            contract.m_dCommission = 40'000;
            contract.m_sAutomobilName = u"پژو 206"_s;
            contract.m_sNumOfPlates = u"77 ط 999 ایران 11"_s;
        });
        addNamed(u"void"_s, [](Contract &contract) {
            contract.m_iCode = 72;
            contract.m_dAmount = 3'000'000;
            contract.m_iStatus = 1;
        });
    }

    void theyAreOffAndNotRead()
    {
        CDlgAutomobilContracts page;
        const ObservedStatements statements({u"SELECT"_s});
        page.open();
        for (const QString &column : further)
            QVERIFY2(!page.list()->isColumnShown(column) && page.list()->columnOf(column) > 11, qPrintable(column));
        for (const QString &column : {u"sAutomobilName"_s, u"sNumOfPlates"_s, u"dAmount"_s, u"dCommission"_s})
            QVERIFY2(statements.taken().filter(column).isEmpty(), qPrintable(column));
    }

    void theyShowSortAndAreSummedUp()
    {
        CDlgAutomobilContracts page;
        page.filters().set(u"inactive", true);
        page.open();
        QCOMPARE(sums(page), QString());
        for (const QString &column : further)
            page.list()->setColumnShown(column, true);
        QStringList cells;
        for (const QString &column : further)
            cells << page.list()->cellText(0, column);
        QCOMPARE(cells, (QStringList{u"71"_s, u"5,000,000"_s, u"40,000"_s, u"پژو 206"_s, u"77 ط 999 ایران 11"_s}));
        const QModelIndex amount = page.list()->model()->index(0, page.list()->columnOf(u"amount"));
        QCOMPARE(amount.data(KListModel::SortRole).toDouble(), 5'000'000.0);
        for (const QString &column : further) {
            const int title = page.list()->columnOf(column);
            Q_EMIT page.list()->columnClicked(title);
            QVERIFY2(headerText(page, title).endsWith(KListModel::sortMark()), qPrintable(column));
            QCOMPARE(page.list()->count(), 2);
        }
        // A void contract's amounts count nowhere.
        QVERIFY2(sums(page).contains(u"5,000,000"_s) && sums(page).contains(u"40,000"_s) && !sums(page).contains(u"8,000,000"_s), qPrintable(sums(page)));
        page.bar()->quickFilter()->setText(u"۷۷ط۹۹۹"_s);
        QCOMPARE(page.list()->count(), 1);
        page.list()->resetColumns();
    }

    // The order may be that of a column that was switched off since.
    void theMarkStandsOnATitleInSight()
    {
        WriteSetting(section, u"iLastCol"_s, 13);
        CDlgAutomobilContracts page;
        page.open();
        QVERIFY(headerText(page, 1).endsWith(KListModel::sortMark()));
    }
};

static const RegisteredTest<TestFurtherContractColumns, QApplication> registeredFurtherContractColumns;
#include "TestFurtherContractColumns.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The contract list with 10,000 rows from the search button to the painted list, names included: against one JOIN of the
// shown columns plus a bare model on the same view; and a QSqlTableModel on a database view of the same columns.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/SqlPeer.h"
#include "bench/Trial.h"

#include "auto/words/WordLists.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QComboBox>
#include <QTreeView>

#include <mysql.h>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const int contractCount = Trial::size(10'000);
constexpr int shownColumns = 10;

class BareModel : public QAbstractTableModel
{
public:
    using Row = std::array<QString, shownColumns>;

    void setRows(std::vector<Row> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }
    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(m_rows.size()); }
    int columnCount(const QModelIndex & = {}) const override { return shownColumns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return m_rows[static_cast<size_t>(index.row())][static_cast<size_t>(index.column())];
    }

private:
    std::vector<Row> m_rows;
};

const QByteArray shownRows =
    "SELECT c.iContractType,p.sName2 AS sFirst,q.sName2 AS sSecond,c.iDocNum,c.sExplain,c.dateContract,c.dateExpiration,c.sDesc,"
    "c.iArchiveUserID FROM AutomobilContracts c LEFT JOIN Persons p ON p.iID=c.iPersonFirstID "
    "LEFT JOIN Persons q ON q.iID=c.iPersonSecondID ORDER BY c.iCode LIMIT 10000";

CDlgAutomobilContracts *page = nullptr;
QTreeView *bareView = nullptr;
BareModel *bareModel = nullptr;
SqlPeer::List *peerList = nullptr;

QString dateText(const char *cell)
{
    return cell ? shamsiText(QDate::fromString(QString::fromLatin1(cell, 10), Qt::ISODate)) : QString();
}

void contractList(benchmark::State &state)
{
    for (auto _ : state) {
        page->refill();
        page->list()->viewport()->repaint();
        QCoreApplication::processEvents();
        if (page->list()->count() != contractCount)
            state.SkipWithError("wrong number of rows");
    }
}

void joinAndBareModel(benchmark::State &state)
{
    const QByteArray &statement = shownRows;
    MYSQL *connection = KConnection::forThread().handle();
    for (auto _ : state) {
        if (mysql_real_query(connection, statement.constData(), static_cast<unsigned long>(statement.size())) != 0)
            state.SkipWithError(mysql_error(connection));
        MYSQL_RES *result = mysql_store_result(connection);
        std::vector<BareModel::Row> rows;
        rows.reserve(contractCount);
        while (MYSQL_ROW row = mysql_fetch_row(result)) {
            rows.push_back({QString::number(rows.size() + 1),
                            WordLists::textAt(WordLists::contractTypes(), QByteArray(row[0]).toInt()),
                            QString::fromUtf8(row[1]), QString::fromUtf8(row[2]), QString::fromUtf8(row[3]),
                            QString::fromUtf8(row[4]), dateText(row[5]), dateText(row[6]), QString::fromUtf8(row[7]),
                            row[8][0] == '0' ? u"-"_s : u"بلی"_s});
        }
        mysql_free_result(result);
        bareModel->setRows(std::move(rows));
        bareView->viewport()->repaint();
        QCoreApplication::processEvents();
    }
}

void sqlTableModel(benchmark::State &state)
{
    for (auto _ : state) {
        if (peerList->fill() != contractCount)
            state.SkipWithError("wrong number of rows");
    }
}

void showAll(QWidget *window)
{
    window->resize(1366, 700);
    window->show();
    QCoreApplication::processEvents();
}

int statementsOfOneFill()
{
    int count = 0;
    KConnection::setStatementObserver([&count](const QString &) { ++count; });
    page->refill();
    KConnection::setStatementObserver({});
    return count;
}

}

BENCHMARK(joinAndBareModel)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(sqlTableModel)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(contractList)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(contractCount);

    WriteSetting(u"AutomobilContracts"_s, u"iMaxRows"_s, 1);
    CDlgAutomobilContracts contracts;
    page = &contracts;
    showAll(page);
    contracts.filters().set(u"archive", 0);
    contracts.filters().set(u"returned", 0);
    contracts.filters().set(u"inactive", true);

    const long idle = currentMemory();
    resetPeakMemory();
    contracts.setRowLimit(contractCount);
    contracts.refill();
    contracts.list()->viewport()->repaint();
    const long peak = peakMemory() - idle;

    BareModel model;
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setRootIsDecorated(false);
    view.setAlternatingRowColors(true);
    view.setModel(&model);
    bareModel = &model;
    bareView = &view;
    showAll(&view);

    SqlPeer::List peer(u"BenchContractList"_s, QString::fromUtf8(shownRows));
    peerList = &peer;

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const int statements = statementsOfOneFill();
    std::printf("statements of one fill: %d (at most 3)\n", statements);
    std::printf("peak memory over the idle window while filling: %.1f MiB\n", static_cast<double>(peak) / 1024);
    return reporter.finish() && statements <= 3 ? 0 : 1;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The car list with 10,000 cars, a picture stored with each, from the search button to the painted list, names included:
// against one JOIN of the shown columns plus a bare model on the same view. Counts what the server sends for one fill, beside
// the bytes of the pictures that it must not send.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/SqlPeer.h"
#include "bench/Trial.h"

#include "auto/words/WordLists.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QTreeView>

#include <mysql.h>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const int carCount = Trial::size(10'000);
const int contractsOfTheOffice = Trial::size(3'000); // a third as many cars, two thirds as many persons
constexpr int copies = 10;
constexpr int shownColumns = 17;
constexpr int plateColumn = 7;

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
    "SELECT b.sName2 AS sBuyer,ai.bSold,o.sName2 AS sOwner,cb.sName AS sBrand,cm.sName AS sModel,cc.sName AS sClass,ai.sNumOfPlates,"
    "ai.iYear,ai.dateIntroduction,ai.iUsageType,it.sName AS sColor,ai.iFuel,ai.dAmount,ai.sDocumentsDeficit,ai.sFractionalParts,"
    "ai.iArchiveUserID FROM AutomobilInformations ai "
    "LEFT JOIN Persons b ON b.iID=ai.iPersonBuyerID LEFT JOIN Persons o ON o.iID=ai.iPersonID "
    "LEFT JOIN CarBrands cb ON cb.iID=ai.iAutomobilType LEFT JOIN CarModels cm ON cm.iID=ai.iModel "
    "LEFT JOIN CarClasses cc ON cc.iID=ai.iBrigade LEFT JOIN Items it ON it.iID=ai.iColor ORDER BY ai.iCode LIMIT 10000";

CDlgAutomobilInformations *page = nullptr;
QTreeView *bareView = nullptr;
BareModel *bareModel = nullptr;
SqlPeer::List *peerList = nullptr;

void run(const QString &statement)
{
    CTblTemp temp;
    temp.Open(true, false, true);
    temp.ExecuteQuery(statement.toUtf8().constData(), true, true);
}

qint64 value(const QString &statement, int column = 0)
{
    CTblTemp temp;
    temp.Open(true, false, true);
    temp.ExecuteQuery(statement.toUtf8().constData(), true, true);
    return temp.GetTextFieldValue(column).toLongLong();
}

// The office's cars ten times over, each with a picture.
void multiplyCars()
{
    CTblTemp columns;
    columns.Open(true, false, true);
    columns.ExecuteQuery("SELECT GROUP_CONCAT(COLUMN_NAME ORDER BY ORDINAL_POSITION) FROM information_schema.COLUMNS WHERE"
                         " TABLE_SCHEMA=DATABASE() AND TABLE_NAME='AutomobilInformations' AND"
                         " EXTRA NOT LIKE '%GENERATED%' AND COLUMN_NAME NOT IN ('iID','iCode')");
    const QString names = columns.GetTextFieldValue(0);
    run(u"UPDATE AutomobilInformations SET oPicture=(SELECT p FROM (SELECT oPicture p FROM AutomobilInformations WHERE"
        " oPicture IS NOT NULL LIMIT 1) one) WHERE oPicture IS NULL"_s);
    const qint64 cars = value(u"SELECT COUNT(*) FROM AutomobilInformations"_s);
    for (int copy = 1; copy < copies; ++copy)
        run(u"INSERT INTO AutomobilInformations (iCode,%1) SELECT iCode+%2,%1 FROM AutomobilInformations WHERE iCode<=%3"_s
                .arg(names)
                .arg(copy * cars)
                .arg(cars));
}

QString text(const char *cell)
{
    return QString::fromUtf8(cell);
}

QString orDash(const char *cell)
{
    return cell ? QString::fromUtf8(cell) : u"-"_s;
}

BareModel::Row shownRow(size_t number, MYSQL_ROW row)
{
    return {QString::number(number),
            orDash(row[0]),
            row[1][0] == '0' ? u"-"_s : u"فروخته شده"_s,
            orDash(row[2]),
            orDash(row[3]),
            text(row[4]),
            text(row[5]),
            text(row[6]),
            text(row[7]),
            row[8] ? shamsiText(QDate::fromString(QString::fromLatin1(row[8], 10), Qt::ISODate)) : QString(),
            WordLists::textAt(WordLists::usageTypes(), QByteArray(row[9]).toInt()),
            orDash(row[10]),
            WordLists::textAt(WordLists::fuelTypes(), QByteArray(row[11]).toInt()),
            DToMoney(QByteArray(row[12]).toDouble()),
            text(row[13]),
            text(row[14]),
            row[15][0] == '0' ? u"-"_s : u"بلی"_s};
}

void carList(benchmark::State &state)
{
    for (auto _ : state) {
        page->refill();
        page->list()->viewport()->repaint();
        QCoreApplication::processEvents();
        if (page->list()->count() != carCount)
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
        rows.reserve(carCount);
        while (MYSQL_ROW row = mysql_fetch_row(result))
            rows.push_back(shownRow(rows.size() + 1, row));
        mysql_free_result(result);
        bareModel->setRows(std::move(rows));
        bareView->viewport()->repaint();
        QCoreApplication::processEvents();
        if (bareModel->rowCount() != carCount)
            state.SkipWithError("wrong number of rows");
    }
}

void sqlTableModel(benchmark::State &state)
{
    for (auto _ : state) {
        if (peerList->fill() != carCount)
            state.SkipWithError("wrong number of rows");
    }
}

void showAll(QWidget *window)
{
    window->resize(1366, 700);
    window->show();
    QCoreApplication::processEvents();
}

struct Fill
{
    int statements = 0;
    int namingPictures = 0;
    qint64 bytesSent = 0; // by the server, over this connection
};

Fill observedFill()
{
    const QString sent = u"SHOW SESSION STATUS LIKE 'Bytes_sent'"_s;
    Fill fill;
    const qint64 before = value(sent, 1);
    KConnection::setStatementObserver([&fill](const QString &statement) {
        ++fill.statements;
        fill.namingPictures += statement.contains(u"oPicture"_s) ? 1 : 0;
    });
    page->refill();
    KConnection::setStatementObserver({});
    fill.bytesSent = value(sent, 1) - before;
    return fill;
}

bool reportPictures()
{
    const Fill fill = observedFill();
    const qint64 pictured = value(u"SELECT COUNT(*) FROM AutomobilInformations WHERE OCTET_LENGTH(oPicture)>0"_s);
    const qint64 pictures = value(u"SELECT SUM(OCTET_LENGTH(oPicture)) FROM AutomobilInformations"_s);
    std::printf("statements of one fill: %d (at most 5), of which %d name pictures\n", fill.statements, fill.namingPictures);
    std::printf("bytes the server sent for it: %.2f MiB; bytes of the %lld pictures stored: %.2f MiB\n",
                static_cast<double>(fill.bytesSent) / 1024 / 1024, static_cast<long long>(pictured),
                static_cast<double>(pictures) / 1024 / 1024);
    return fill.statements <= 5 && fill.namingPictures == 0 && pictured == carCount && fill.bytesSent < carCount * 500LL
        && pictures > 10 * fill.bytesSent;
}

}

BENCHMARK(joinAndBareModel)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(sqlTableModel)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(carList)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(contractsOfTheOffice);
    multiplyCars();

    WriteSetting(u"AutomobilInformations"_s, u"iMaxRows"_s, 1);
    CDlgAutomobilInformations cars;
    page = &cars;
    showAll(page);
    cars.filters().set(u"archive", 0);
    cars.filters().set(u"inactive", true);
    cars.setRowLimit(carCount);

    BareModel model;
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setRootIsDecorated(false);
    view.setAlternatingRowColors(true);
    view.setModel(&model);
    view.setColumnHidden(plateColumn, true);
    bareModel = &model;
    bareView = &view;
    showAll(&view);

    SqlPeer::List peer(u"BenchCarList"_s, QString::fromUtf8(shownRows));
    peerList = &peer;

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reportPictures() && reporter.finish() ? 0 : 1;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The car list as cards, 10,000 of them, each with a picture stored: from the key that turns a page to the cards painted, with what they
// show read. Against a bare view of icons over a bare model, whose page reads names, figures and small pictures of its cars in one
// statement; plates, drawn cars and the demands that a car fits it does without. Counts what the server sends for a page beside the bytes of the whole pictures, which it must not send.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/cars/register/gallery/CarGallery.h"
#include "auto/cars/register/gallery/CarThumbnails.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/image/Thumbnails.h"
#include "suite/utility/lists/KCardView.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"

#include <QAbstractListModel>
#include <QListView>
#include <QPixmap>
#include <QScrollBar>

#include <mysql.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const int carCount = Trial::size(10'000);
const int contractsOfTheOffice = Trial::size(3'000);
constexpr int copies = 10;
constexpr int pages = 20; // turned one after the other

CDlgAutomobilInformations *page = nullptr;

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

// The office's cars ten times over, each with a picture and its small one.
void multiplyCars()
{
    CTblTemp columns;
    columns.Open(true, false, true);
    columns.ExecuteQuery("SELECT GROUP_CONCAT(COLUMN_NAME ORDER BY ORDINAL_POSITION) FROM information_schema.COLUMNS WHERE"
                         " TABLE_SCHEMA=DATABASE() AND TABLE_NAME='AutomobilInformations' AND EXTRA NOT LIKE '%GENERATED%' AND COLUMN_NAME NOT IN ('iID','iCode')");
    const QString names = columns.GetTextFieldValue(0);
    run(u"UPDATE AutomobilInformations SET oPicture=(SELECT p FROM (SELECT oPicture p FROM AutomobilInformations WHERE oPicture IS NOT NULL LIMIT 1) one)"
        " WHERE oPicture IS NULL"_s);
    const qint64 cars = value(u"SELECT COUNT(*) FROM AutomobilInformations"_s);
    Thumbnails::build(CarThumbnails::source());
    for (int copy = 1; copy < copies; ++copy)
        run(u"INSERT INTO AutomobilInformations (iCode,%1) SELECT iCode+%2,%1 FROM AutomobilInformations WHERE iCode<=%3"_s.arg(names).arg(copy * cars).arg(cars));
    run(u"INSERT IGNORE INTO Thumbnails(iTable,iRecordID,iPictureID,oPicture) SELECT %1,ai.iID,0,(SELECT oPicture FROM Thumbnails WHERE LENGTH(oPicture)>0 LIMIT 1)"
        " FROM AutomobilInformations ai"_s.arg(CarThumbnails::source().recordKind));
}

// Nothing but keys is held; a page reads what it shows.
class BareModel : public QAbstractListModel
{
public:
    struct Car
    {
        QString text;
        QPixmap picture;
    };

    void setKeys(const QList<qint32> &keys)
    {
        beginResetModel();
        m_keys = keys;
        endResetModel();
    }
    void read(int first, int last)
    {
        m_cars.clear();
        QStringList keys;
        for (int row = first; row <= qMin<int>(last, m_keys.size() - 1); ++row)
            keys.append(QString::number(m_keys.at(row)));
        const QByteArray statement = (u"SELECT ai.iID,CONCAT(COALESCE(b.sName,''),' ',COALESCE(m.sName,''),'\n',ai.iYear,' ',COALESCE(i.sName,''),' ',ai.iFunction,'\n',ai.dAmount,"
                                      "'\n',ai.sNumOfPlates),t.oPicture FROM AutomobilInformations ai LEFT JOIN CarBrands b ON b.iID=ai.iAutomobilType LEFT JOIN CarModels m ON "
                                      "m.iID=ai.iModel LEFT JOIN Items i ON i.iID=ai.iColor LEFT JOIN Thumbnails t ON t.iTable=%1 AND t.iRecordID=ai.iID AND t.iPictureID=0 "
                                      "WHERE ai.iID IN ("_s.arg(CarThumbnails::source().recordKind)
                                      + keys.join(u',') + u')')
                                         .toUtf8();
        MYSQL *connection = KConnection::forThread().handle();
        if (mysql_real_query(connection, statement.constData(), static_cast<unsigned long>(statement.size())) != 0)
            qFatal("%s", mysql_error(connection));
        MYSQL_RES *result = mysql_store_result(connection);
        while (MYSQL_ROW row = mysql_fetch_row(result)) {
            const unsigned long *lengths = mysql_fetch_lengths(result);
            Car car{QString::fromUtf8(row[1]), {}};
            if (row[2])
                car.picture.loadFromData(reinterpret_cast<const uchar *>(row[2]), static_cast<uint>(lengths[2]));
            m_cars.insert(QByteArray(row[0]).toInt(), car);
        }
        mysql_free_result(result);
    }
    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : static_cast<int>(m_keys.size()); }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const auto car = m_cars.constFind(m_keys.at(index.row()));
        if (car == m_cars.cend())
            return {};
        if (role == Qt::DisplayRole)
            return car->text;
        return role == Qt::DecorationRole ? QVariant(car->picture) : QVariant();
    }

private:
    QList<qint32> m_keys;
    QHash<qint32, Car> m_cars;
};

BareModel *bareModel = nullptr;
QListView *bareView = nullptr;

// From the top, one screen after the other.
template <class View, class Read>
void turn(View &view, const Read &read)
{
    view.verticalScrollBar()->setValue(0);
    for (int turned = 0; turned < pages; ++turned) {
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + view.viewport()->height());
        read();
        view.viewport()->repaint();
        QCoreApplication::processEvents();
    }
}

void gallery(benchmark::State &state)
{
    KCardView &cards = *page->gallery()->cards();
    for (auto _ : state) {
        // Forgets what it knows, so that each page is read.
        state.PauseTiming();
        page->refill();
        QCoreApplication::processEvents();
        state.ResumeTiming();
        turn(cards, [] { QCoreApplication::processEvents(); });
        if (cards.model()->rowCount() != carCount)
            state.SkipWithError("wrong number of cards");
    }
}

void bareIcons(benchmark::State &state)
{
    for (auto _ : state) {
        turn(*bareView, [] {
            const QRect room = bareView->viewport()->rect();
            const int first = bareView->indexAt(QPoint(room.right() - 100, 20)).row();
            bareModel->read(qMax(0, first), qMax(0, first) + 11);
        });
        if (bareModel->rowCount() != carCount)
            state.SkipWithError("wrong number of cards");
    }
}

bool reportPictures()
{
    const QString sent = u"SHOW SESSION STATUS LIKE 'Bytes_sent'"_s;
    page->refill();
    QCoreApplication::processEvents();
    const qint64 before = value(sent, 1);
    int statements = 0;
    int whole = 0;
    KConnection::setStatementObserver([&](const QString &statement) {
        ++statements;
        whole += statement.contains(u"ai.oPicture"_s) ? 1 : 0;
    });
    turn(*page->gallery()->cards(), [] { QCoreApplication::processEvents(); });
    KConnection::setStatementObserver({});
    const double bytes = static_cast<double>(value(sent, 1) - before);
    const double pictures = static_cast<double>(value(u"SELECT SUM(OCTET_LENGTH(oPicture)) FROM AutomobilInformations"_s));
    std::printf("statements of %d pages: %d (at most %d), of which %d name whole pictures\n", pages, statements, 2 * pages + 2, whole);
    std::printf("bytes the server sent for them: %.2f MiB; bytes of the whole pictures: %.2f MiB\n", bytes / 1024 / 1024, pictures / 1024 / 1024);
    return whole == 0 && statements > 0 && statements <= 2 * pages + 2;
}

}

BENCHMARK(bareIcons)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(gallery)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(contractsOfTheOffice);
    multiplyCars();

    CDlgAutomobilInformations cars;
    page = &cars;
    cars.resize(1366, 900);
    cars.show();
    QCoreApplication::processEvents();
    cars.filters().set(u"archive", 0);
    cars.filters().set(u"inactive", true);
    cars.setRowLimit(carCount);
    cars.refill();
    cars.gallery()->showCards(true);
    QCoreApplication::processEvents();
    if (cars.list()->count() != carCount)
        qFatal("%d cars, not %d", cars.list()->count(), carCount);

    BareModel model;
    QList<qint32> keys;
    for (int row = 0; row < carCount; ++row)
        keys.append(cars.list()->listModel()->keyAt(row));
    model.setKeys(keys);
    QListView view;
    view.setLayoutDirection(Qt::RightToLeft);
    view.setWrapping(true);
    view.setFlow(QListView::LeftToRight);
    view.setUniformItemSizes(true);
    view.setResizeMode(QListView::Adjust);
    view.setVerticalScrollMode(QListView::ScrollPerPixel);
    view.setIconSize(QSize(150, 112));
    view.setModel(&model);
    bareModel = &model;
    bareView = &view;
    view.resize(cars.gallery()->cards()->size());
    view.setGridSize(cars.gallery()->cards()->gridSize());
    view.show();
    QCoreApplication::processEvents();

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reportPictures() && reporter.finish() ? 0 : 1;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalExportRow.h"
#include "auto/reports/season/SeasonalExport.h"
#include "auto/reports/season/SeasonalRow.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Column = SeasonalRow::Column;

// A row of its own as the list shows it.
QStringList ownRow()
{
    QStringList cells(SeasonalRow::ColumnCount);
    cells[Column::RowNumber] = u"7"_s;
    cells[Column::Serial] = u"3"_s;
    cells[Column::Description] = u"مبایعه نامه"_s;
    cells[Column::Returned] = u"خیر"_s;
    cells[Column::Amount] = u"1,250,000"_s;
    cells[Column::Tax] = u"112,500"_s;
    cells[Column::PersonKind] = u"حقیقی"_s;
    cells[Column::PostalCode] = u"1234567890"_s;
    cells[Column::AreaCode] = u"021"_s;
    cells[Column::Telephone] = u"22334455"_s;
    cells[Column::Address] = u"تهران، خیابان ولی‌عصر"_s;
    cells[Column::Name] = u"علی"_s;
    cells[Column::Family] = u"رضایی"_s;
    cells[Column::EconomicCode] = u"411111111111"_s;
    cells[Column::NationalCode] = u"0012345679"_s;
    cells[Column::PartyKind] = u"5"_s;
    cells[Column::Zone] = u"99"_s;
    cells[Column::ProvinceCode] = u"23"_s;
    cells[Column::CityCode] = u"8"_s;
    cells[Column::IsSmallSum] = u"خیر"_s;
    cells[Column::Discount] = u"10,000.5"_s;
    cells[Column::Total] = u"1,352,499.5"_s;
    cells[Column::Code] = u"1042"_s;
    cells[Column::Date] = u"1404/05/12"_s;
    cells[Column::Duties] = u"0"_s;
    cells[Column::Payment] = u"نقد"_s;
    cells[Column::Heading] = u"خدمت"_s;
    cells[Column::DocumentNumber] = u"55"_s;
    cells[Column::DocumentDate] = u"1404/05/13"_s;
    cells[Column::GoodsKind] = u"12"_s;
    return cells;
}

}

class TestSeasonalExportRow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowOfItsOwnGetsEveryValue()
    {
        const SeasonalExportRow expected{
            .goodsKind = 12,
            .description = u"مبایعه نامه"_s,
            .sequence = 3,
            .isReturned = false,
            .amount = u"1250000"_s,
            .tax = u"112500"_s,
            .duties = u"0"_s,
            .discount = u"10000.5"_s,
            .personKind = 1,
            .postalCode = u"1234567890"_s,
            .areaCode = u"021"_s,
            .telephone = u"22334455"_s,
            .address = u"تهران، خیابان ولی‌عصر"_s,
            .name = u"علی"_s,
            .family = u"رضایی"_s,
            .economicCode = u"411111111111"_s,
            .nationalCode = u"0012345679"_s,
            .partyKind = 5,
            .provinceCode = 23,
            .cityCode = 8,
            .contractCode = u"1042"_s,
            .contractDate = u"1404/05/12"_s,
            .documentDate = u"1404/05/13"_s,
        };
        QVERIFY(SeasonalExportRow::fromCells(ownRow()) == expected);
    }

    void columnsThatAreNeverWrittenChangeNothing_data()
    {
        QTest::addColumn<int>("column");
        for (const int column : {0, 16, 19, 21, 25, 26, 27})
            QTest::addRow("column %d", column) << column;
    }

    void columnsThatAreNeverWrittenChangeNothing()
    {
        QFETCH(int, column);
        QStringList cells = ownRow();
        cells[column] = u"777"_s;
        QVERIFY(SeasonalExportRow::fromCells(cells) == SeasonalExportRow::fromCells(ownRow()));
    }

    // So that the test above cannot pass because nothing is read at all.
    void everyOtherColumnIsWritten_data()
    {
        QTest::addColumn<int>("column");
        for (int column = 0; column < SeasonalRow::ColumnCount; ++column) {
            if (!QList<int>{0, 16, 19, 21, 25, 26, 27}.contains(column))
                QTest::addRow("column %d", column) << column;
        }
    }

    void everyOtherColumnIsWritten()
    {
        QFETCH(int, column);
        QStringList cells = ownRow();
        cells[column] = column == Column::Returned ? u"بلی"_s : u"777"_s;
        QVERIFY(!(SeasonalExportRow::fromCells(cells) == SeasonalExportRow::fromCells(ownRow())));
    }

    void summedRowGetsOnlyItsSeven()
    {
        QStringList cells = ownRow();
        cells[Column::Serial].clear();
        cells[Column::Returned] = u"بلی"_s;
        const SeasonalExportRow expected{
            .description = u"مبایعه نامه"_s,
            .isReturned = true,
            .amount = u"1250000"_s,
            .tax = u"112500"_s,
            .duties = u"0"_s,
            .discount = u"10000.5"_s,
            .family = u"رضایی"_s,
        };
        QVERIFY(SeasonalExportRow::fromCells(cells) == expected);
    }

    // As the report itself makes it.
    void summedRowOfTheReport()
    {
        SeasonalRow sum;
        sum.source = SeasonalRow::Source::SmallSum;
        sum.amount = 3'000'000;
        sum.tax = 270'000;
        sum.discount = 5'000;
        const SeasonalExportRow row = SeasonalExportRow::fromCells(sum.texts());
        QCOMPARE(row.description, u" "_s);
        QCOMPARE(row.family, u" "_s);
        QCOMPARE(row.amount, u"3000000"_s);
        QCOMPARE(row.tax, u"270000"_s);
        QCOMPARE(row.discount, u"5000"_s);
        QCOMPARE(row.duties, u"0"_s);
        QVERIFY(!row.sequence && !row.goodsKind && !row.personKind && !row.contractCode);
    }

    void sequenceNumberOf1000000001IsWrittenAs0_1000000000AsIs_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::addColumn<int>("sequence");
        QTest::newRow("1") << u"1"_s << 1;
        QTest::newRow("999999999") << u"999999999"_s << 999'999'999;
        QTest::newRow("1000000000") << u"1000000000"_s << 1'000'000'000;
        QTest::newRow("1000000001") << u"1000000001"_s << 0;
        QTest::newRow("beyond 32 bits") << u"5000000000"_s << 0;
        QTest::newRow("beyond any") << QString(400, u'9') << 0;
        QTest::newRow("no number") << u"الف"_s << 0;
        QTest::newRow("blank") << u" "_s << 0;
    }

    void sequenceNumberOf1000000001IsWrittenAs0_1000000000AsIs()
    {
        QFETCH(QString, cell);
        QFETCH(int, sequence);
        QStringList cells = ownRow();
        cells[Column::Serial] = cell;
        const std::optional<int> written = SeasonalExportRow::fromCells(cells).sequence;
        QVERIFY(written);
        QCOMPARE(*written, sequence);
    }

    void personKindIsLeftAsItWasByOtherTexts_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::addColumn<int>("kind"); // 0: none
        QTest::newRow("natural") << u"حقیقی"_s << 1;
        QTest::newRow("legal") << u"حقوقی"_s << 2;
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("with Arabic letters") << u"حقيقي"_s << 0;
        QTest::newRow("digit") << u"1"_s << 0;
    }

    void personKindIsLeftAsItWasByOtherTexts()
    {
        QFETCH(QString, cell);
        QFETCH(int, kind);
        QStringList cells = ownRow();
        cells[Column::PersonKind] = cell;
        QCOMPARE(SeasonalExportRow::fromCells(cells).personKind.value_or(0), kind);
    }

    void returnedOnlyByItsWord_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::addColumn<bool>("returned");
        QTest::newRow("yes") << u"بلی"_s << true;
        QTest::newRow("no") << u"خیر"_s << false;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("with a blank") << u"بلی "_s << false;
    }

    void returnedOnlyByItsWord()
    {
        QFETCH(QString, cell);
        QFETCH(bool, returned);
        QStringList cells = ownRow();
        cells[Column::Returned] = cell;
        QCOMPARE(SeasonalExportRow::fromCells(cells).isReturned, returned);
    }

    void numberWrittenAsText_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QString>("text");
        QTest::newRow("grouped") << u"16,400,000"_s << u"16400000"_s;
        QTest::newRow("beyond 32 bits") << u"123,456,789,012"_s << u"123456789012"_s;
        QTest::newRow("negative") << u"-1,000"_s << u"-1000"_s;
        QTest::newRow("decimals") << u"0.50"_s << u"0.5"_s;
        QTest::newRow("Persian digits") << u"۱۲۳"_s << u"123"_s;
        QTest::newRow("empty") << QString() << u"0"_s;
        QTest::newRow("blank") << u" "_s << u"0"_s;
        QTest::newRow("no number") << u"-"_s << u"0"_s;
    }

    void numberWrittenAsText()
    {
        QFETCH(QString, cell);
        QFETCH(QString, text);
        QStringList cells = ownRow();
        for (const int column : {Column::Amount, Column::Tax, Column::Duties, Column::Discount, Column::Code})
            cells[column] = cell;
        const SeasonalExportRow row = SeasonalExportRow::fromCells(cells);
        QCOMPARE(row.amount, text);
        QCOMPARE(row.tax, text);
        QCOMPARE(row.duties, text);
        QCOMPARE(row.discount, text);
        QCOMPARE(row.contractCode.value_or(QString()), text);
    }

    void rowWhoseCellsAreEmptyStillGivesARecord_data()
    {
        QTest::addColumn<QStringList>("cells");
        QTest::newRow("empty cells") << QStringList(SeasonalRow::ColumnCount);
        QTest::newRow("no cells") << QStringList();
    }

    void rowWhoseCellsAreEmptyStillGivesARecord()
    {
        QFETCH(QStringList, cells);
        SeasonalExportRow expected;
        expected.amount = expected.tax = expected.duties = expected.discount = u"0"_s;
        QVERIFY(SeasonalExportRow::fromCells(cells) == expected);
    }

    void codesOfAnEmptyPartyAreZero()
    {
        QStringList cells(SeasonalRow::ColumnCount);
        cells[Column::Serial] = u"1"_s;
        const SeasonalExportRow row = SeasonalExportRow::fromCells(cells);
        QCOMPARE(row.partyKind.value_or(-1), 0);
        QCOMPARE(row.provinceCode.value_or(-1), 0);
        QCOMPARE(row.cityCode.value_or(-1), 0);
        QCOMPARE(row.goodsKind.value_or(-1), 0);
        QVERIFY(row.address && row.address->isEmpty());
        QVERIFY(!row.personKind);
    }

    void fileNameTellsKindYearAndSeason_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("year");
        QTest::addColumn<int>("season");
        QTest::addColumn<QString>("name");
        QTest::newRow("sales of summer") << 0 << u"1404"_s << 1 << u"Foroosh_Fasly_1404_2.mdb"_s;
        QTest::newRow("sales of spring") << 0 << u"1399"_s << 0 << u"Foroosh_Fasly_1399_1.mdb"_s;
        QTest::newRow("purchases of winter") << 1 << u"1404"_s << 3 << u"Kharid_Fasly_1404_4.mdb"_s;
        QTest::newRow("year as typed") << 1 << u"04"_s << 2 << u"Kharid_Fasly_04_3.mdb"_s;
    }

    void fileNameTellsKindYearAndSeason()
    {
        QFETCH(int, kind);
        QFETCH(QString, year);
        QFETCH(int, season);
        QTEST(SeasonalExport::fileName(static_cast<SeasonalExport::Kind>(kind), year, season), "name");
    }
};

static const RegisteredTest<TestSeasonalExportRow> registeredSeasonalExportRow;
#include "TestSeasonalExportRow.moc"

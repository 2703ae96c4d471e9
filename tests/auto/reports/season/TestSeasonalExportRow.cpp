// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalExportRow.h"
#include "auto/reports/season/SeasonalExport.h"
#include "auto/reports/season/SeasonalRow.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

namespace {

using Column = SeasonalRow::Column;

// A row of its own as the list shows it.
QStringList ownRow()
{
    QStringList cells(SeasonalRow::ColumnCount);
    cells[Column::RowNumber] = QStringLiteral("7");
    cells[Column::Serial] = QStringLiteral("3");
    cells[Column::Description] = QStringLiteral("مبایعه نامه");
    cells[Column::Returned] = QStringLiteral("خیر");
    cells[Column::Amount] = QStringLiteral("1,250,000");
    cells[Column::Tax] = QStringLiteral("112,500");
    cells[Column::PersonKind] = QStringLiteral("حقیقی");
    cells[Column::PostalCode] = QStringLiteral("1234567890");
    cells[Column::AreaCode] = QStringLiteral("021");
    cells[Column::Telephone] = QStringLiteral("22334455");
    cells[Column::Address] = QStringLiteral("تهران، خیابان ولی‌عصر");
    cells[Column::Name] = QStringLiteral("علی");
    cells[Column::Family] = QStringLiteral("رضایی");
    cells[Column::EconomicCode] = QStringLiteral("411111111111");
    cells[Column::NationalCode] = QStringLiteral("0012345679");
    cells[Column::PartyKind] = QStringLiteral("5");
    cells[Column::Zone] = QStringLiteral("99");
    cells[Column::ProvinceCode] = QStringLiteral("23");
    cells[Column::CityCode] = QStringLiteral("8");
    cells[Column::IsSmallSum] = QStringLiteral("خیر");
    cells[Column::Discount] = QStringLiteral("10,000.5");
    cells[Column::Total] = QStringLiteral("1,352,499.5");
    cells[Column::Code] = QStringLiteral("1042");
    cells[Column::Date] = QStringLiteral("1404/05/12");
    cells[Column::Duties] = QStringLiteral("0");
    cells[Column::Payment] = QStringLiteral("نقد");
    cells[Column::Heading] = QStringLiteral("خدمت");
    cells[Column::DocumentNumber] = QStringLiteral("55");
    cells[Column::DocumentDate] = QStringLiteral("1404/05/13");
    cells[Column::GoodsKind] = QStringLiteral("12");
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
            .description = QStringLiteral("مبایعه نامه"),
            .sequence = 3,
            .isReturned = false,
            .amount = QStringLiteral("1250000"),
            .tax = QStringLiteral("112500"),
            .duties = QStringLiteral("0"),
            .discount = QStringLiteral("10000.5"),
            .personKind = 1,
            .postalCode = QStringLiteral("1234567890"),
            .areaCode = QStringLiteral("021"),
            .telephone = QStringLiteral("22334455"),
            .address = QStringLiteral("تهران، خیابان ولی‌عصر"),
            .name = QStringLiteral("علی"),
            .family = QStringLiteral("رضایی"),
            .economicCode = QStringLiteral("411111111111"),
            .nationalCode = QStringLiteral("0012345679"),
            .partyKind = 5,
            .provinceCode = 23,
            .cityCode = 8,
            .contractCode = QStringLiteral("1042"),
            .contractDate = QStringLiteral("1404/05/12"),
            .documentDate = QStringLiteral("1404/05/13"),
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
        cells[column] = QStringLiteral("777");
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
        cells[column] = column == Column::Returned ? QStringLiteral("بلی") : QStringLiteral("777");
        QVERIFY(!(SeasonalExportRow::fromCells(cells) == SeasonalExportRow::fromCells(ownRow())));
    }

    void summedRowGetsOnlyItsSeven()
    {
        QStringList cells = ownRow();
        cells[Column::Serial].clear();
        cells[Column::Returned] = QStringLiteral("بلی");
        const SeasonalExportRow expected{
            .description = QStringLiteral("مبایعه نامه"),
            .isReturned = true,
            .amount = QStringLiteral("1250000"),
            .tax = QStringLiteral("112500"),
            .duties = QStringLiteral("0"),
            .discount = QStringLiteral("10000.5"),
            .family = QStringLiteral("رضایی"),
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
        QCOMPARE(row.description, QStringLiteral(" "));
        QCOMPARE(row.family, QStringLiteral(" "));
        QCOMPARE(row.amount, QStringLiteral("3000000"));
        QCOMPARE(row.tax, QStringLiteral("270000"));
        QCOMPARE(row.discount, QStringLiteral("5000"));
        QCOMPARE(row.duties, QStringLiteral("0"));
        QVERIFY(!row.sequence && !row.goodsKind && !row.personKind && !row.contractCode);
    }

    void sequenceNumberOf1000000001IsWrittenAs0_1000000000AsIs_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::addColumn<int>("sequence");
        QTest::newRow("1") << QStringLiteral("1") << 1;
        QTest::newRow("999999999") << QStringLiteral("999999999") << 999'999'999;
        QTest::newRow("1000000000") << QStringLiteral("1000000000") << 1'000'000'000;
        QTest::newRow("1000000001") << QStringLiteral("1000000001") << 0;
        QTest::newRow("beyond 32 bits") << QStringLiteral("5000000000") << 0;
        QTest::newRow("beyond any") << QString(400, u'9') << 0;
        QTest::newRow("no number") << QStringLiteral("الف") << 0;
        QTest::newRow("blank") << QStringLiteral(" ") << 0;
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
        QTest::newRow("natural") << QStringLiteral("حقیقی") << 1;
        QTest::newRow("legal") << QStringLiteral("حقوقی") << 2;
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("with Arabic letters") << QStringLiteral("حقيقي") << 0;
        QTest::newRow("digit") << QStringLiteral("1") << 0;
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
        QTest::newRow("yes") << QStringLiteral("بلی") << true;
        QTest::newRow("no") << QStringLiteral("خیر") << false;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("with a blank") << QStringLiteral("بلی ") << false;
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
        QTest::newRow("grouped") << QStringLiteral("16,400,000") << QStringLiteral("16400000");
        QTest::newRow("beyond 32 bits") << QStringLiteral("123,456,789,012") << QStringLiteral("123456789012");
        QTest::newRow("negative") << QStringLiteral("-1,000") << QStringLiteral("-1000");
        QTest::newRow("decimals") << QStringLiteral("0.50") << QStringLiteral("0.5");
        QTest::newRow("Persian digits") << QStringLiteral("۱۲۳") << QStringLiteral("123");
        QTest::newRow("empty") << QString() << QStringLiteral("0");
        QTest::newRow("blank") << QStringLiteral(" ") << QStringLiteral("0");
        QTest::newRow("no number") << QStringLiteral("-") << QStringLiteral("0");
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
        expected.amount = expected.tax = expected.duties = expected.discount = QStringLiteral("0");
        QVERIFY(SeasonalExportRow::fromCells(cells) == expected);
    }

    void codesOfAnEmptyPartyAreZero()
    {
        QStringList cells(SeasonalRow::ColumnCount);
        cells[Column::Serial] = QStringLiteral("1");
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
        QTest::newRow("sales of summer") << 0 << QStringLiteral("1404") << 1 << QStringLiteral("Foroosh_Fasly_1404_2.mdb");
        QTest::newRow("sales of spring") << 0 << QStringLiteral("1399") << 0 << QStringLiteral("Foroosh_Fasly_1399_1.mdb");
        QTest::newRow("purchases of winter") << 1 << QStringLiteral("1404") << 3 << QStringLiteral("Kharid_Fasly_1404_4.mdb");
        QTest::newRow("year as typed") << 1 << QStringLiteral("04") << 2 << QStringLiteral("Kharid_Fasly_04_3.mdb");
    }

    void fileNameTellsKindYearAndSeason()
    {
        QFETCH(int, kind);
        QFETCH(QString, year);
        QFETCH(int, season);
        QTEST(SeasonalExport::fileName(static_cast<SeasonalExport::Kind>(kind), year, season), "name");
    }
};

static const RegisteredTest<TestSeasonalExportRow> registered;
#include "TestSeasonalExportRow.moc"

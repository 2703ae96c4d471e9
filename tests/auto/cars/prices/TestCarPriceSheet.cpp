// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/CarPriceSheet.h"
#include "tests/support/PaperProof.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QBuffer>
#include <QtTest>

namespace {

QByteArray pictureOf(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(0x2b, 0x5d, 0x8c));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

CarPriceSheet::Source offered()
{
    return {.code = 1507, .name = u"پژو 207 پانوراما"_s, .picture = pictureOf(1600, 1000), .year = 1402, .color = u"سفید صدفی"_s, .fuel = u"بنزین"_s, .kilometres = 43500, .body = u"بدون رنگ"_s, .insurance = u"تا پایان سال"_s, .facilities = u"سقف شیشه‌ای، دوربین عقب، گرمکن صندلی"_s, .price = 987654321, .moneyUnit = u"تومان"_s};
}

}

class TestCarPriceSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sheetSaysWhatIsOffered();
    void withoutPriceThePenHasItsPlace();
    void picturesOfAnyShapeLeaveOnePage_data();
    void picturesOfAnyShapeLeaveOnePage();
};

void TestCarPriceSheet::sheetSaysWhatIsOffered()
{
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        const PaperProof proof(CarPriceSheet::of(offered()), size);
        const QString text = proof.text();
        for (const QString &word : {u"1507"_s, u"207"_s, u"پانوراما"_s, u"1402"_s, u"صدفی"_s, u"43,500"_s, u"987,654,321"_s, u"تومان"_s, u"میلیون"_s, u"دوربین"_s})
            QVERIFY2(text.contains(word), qPrintable(word + u"\n"_s + text));
        QCOMPARE(proof.scanned(), u"CAR-1507"_s);
        QCOMPARE(proof.pageCount(), 1);
    }
}

void TestCarPriceSheet::withoutPriceThePenHasItsPlace()
{
    CarPriceSheet::Source source = offered();
    source.price = 0;
    const PaperProof proof(CarPriceSheet::of(source), SheetPages::Size::A4);
    QVERIFY(proof.text().contains(u"قیمت"_s));
    QVERIFY2(!proof.text().contains(u"حروف"_s), qPrintable(proof.text()));
    QCOMPARE(proof.pageCount(), 1);
}

void TestCarPriceSheet::picturesOfAnyShapeLeaveOnePage_data()
{
    QTest::addColumn<QByteArray>("picture");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("no picture") << QByteArray("hostile");
    QTest::newRow("wide") << pictureOf(2000, 50);
    QTest::newRow("tall") << pictureOf(50, 2000);
}

void TestCarPriceSheet::picturesOfAnyShapeLeaveOnePage()
{
    QFETCH(QByteArray, picture);
    CarPriceSheet::Source source = offered();
    source.picture = picture;
    for (const SheetPages::Size size : {SheetPages::Size::A5, SheetPages::Size::A4}) {
        const PaperProof proof(CarPriceSheet::of(source), size);
        QCOMPARE(proof.pageCount(), 1);
        QCOMPARE(proof.scanned(), u"CAR-1507"_s);
    }
}

static const RegisteredTest<TestCarPriceSheet, QApplication> registeredCarPriceSheet;
#include "TestCarPriceSheet.moc"

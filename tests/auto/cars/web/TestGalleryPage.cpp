// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryPage.h"
#include "tests/support/RegisteredTest.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString hostile = u"<script>alert(1)</script>\" onload='x' & %1 %2"_s;

QString page(const GalleryCar &car, bool withPrices = true)
{
    return QString::fromUtf8(GalleryPage::made({u"نمایشگاه"_s, u"021-1234 5678"_s, {}, u"تومان"_s, withPrices}, {car}));
}

}

class TestGalleryPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data()
    {
        QTest::addColumn<GalleryCar>("car");
        QTest::addColumn<QString>("name");
        QTest::newRow("all parts") << GalleryCar{.brand = u"پژو"_s, .model = u"206"_s, .trim = u"تیپ 2"_s} << u"پژو 206 تیپ 2"_s;
        QTest::newRow("the model names its brand") << GalleryCar{.brand = u"پژو"_s, .model = u"پژو 206"_s} << u"پژو 206"_s;
        QTest::newRow("no class") << GalleryCar{.brand = u"پژو"_s, .model = u"206"_s} << u"پژو 206"_s;
        QTest::newRow("nothing known") << GalleryCar{} << u"خودرو"_s;
    }
    void names()
    {
        QFETCH(GalleryCar, car);
        QTEST(car.name(), "name");
    }

    void pricesAreShown_data()
    {
        QTest::addColumn<double>("price");
        QTest::addColumn<bool>("withPrices");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("figure");
        QTest::newRow("priced") << 1234567890.0 << true << u">۱٬۲۳۴٬۵۶۷٬۸۹۰ تومان<"_s << u"data-price=\"1234567890\""_s;
        QTest::newRow("three digits") << 950.0 << true << u">۹۵۰ تومان<"_s << u"data-price=\"950\""_s;
        QTest::newRow("no price") << 0.0 << true << u">توافقی<"_s << u"data-price=\"\""_s;
        QTest::newRow("prices not wished") << 950.0 << false << u">توافقی<"_s << u"data-price=\"\""_s;
    }
    void pricesAreShown()
    {
        QFETCH(double, price);
        QFETCH(bool, withPrices);
        QFETCH(QString, text);
        QFETCH(QString, figure);
        const QString html = page({.brand = u"پژو"_s, .price = price}, withPrices);
        QVERIFY(html.contains(text));
        QVERIFY(html.contains(figure));
        QCOMPARE(html.contains(u"id=\"priceFrom\""_s), withPrices);
    }

    // Whatever a text holds, the page has the one script and the attributes that it was written with.
    void hostileTextsStayTexts()
    {
        const GalleryCar car{.brand = hostile, .model = hostile, .trim = hostile, .color = hostile, .fuel = hostile, .pictures = {{hostile, hostile}}};
        const QString html = QString::fromUtf8(GalleryPage::made({hostile, hostile, hostile, hostile, true}, {car}));
        QCOMPARE(html.count(u"<script"_s), 1);
        QCOMPARE(html.count(u"</script"_s), 1);
        QVERIFY(!html.contains(u" onload='"_s));
        QVERIFY(!html.contains(u"\" onload"_s));
        QVERIFY(html.contains(u"%1 %2"_s));
        QVERIFY(html.contains(u"&lt;script&gt;alert(1)"_s));
    }

    void nothingIsLoadedFromElsewhere()
    {
        const QString html = page({.brand = u"پژو"_s, .pictures = {{u"1-s.jpg"_s, u"1-l.jpg"_s}}});
        static const QRegularExpression address(u"(src|href)=\"([^\"]*)\""_s);
        QStringList addresses;
        for (auto found = address.globalMatch(html); found.hasNext();)
            addresses.append(found.next().captured(2));
        QCOMPARE(addresses, QStringList({u"tel:02112345678"_s, u"1-l.jpg"_s, u"1-s.jpg"_s}));
        QVERIFY(!html.contains(u"://"_s));
        QVERIFY(!html.contains(u"url("_s));
        QVERIFY(!html.contains(u"@import"_s));
    }

    void brandsAreOfferedOnce()
    {
        const GalleryCar car{.brand = u"پژو"_s};
        const QString html = QString::fromUtf8(GalleryPage::made({u"نمایشگاه"_s, {}, {}, u"تومان"_s, true}, {car, car, {.brand = u"سایپا"_s}, {}}));
        QCOMPARE(html.count(u"<option>پژو</option>"_s), 1);
        QCOMPARE(html.count(u"<option>"_s), 2);
        QCOMPARE(html.count(u"<li class=\"car\""_s), 4);
    }

    void everyPictureIsNamedAndThePageSaysItsLanguage()
    {
        const QString html = page({.brand = u"پژو"_s, .pictures = {{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}}});
        QVERIFY(html.contains(u"<html lang=\"fa\" dir=\"rtl\">"_s));
        QVERIFY(html.contains(u"alt=\"پژو، تصویر ۲\""_s));
        QCOMPARE(html.count(u"<img "_s), html.count(u" alt=\"پژو"_s));
    }
};

static const RegisteredTest<TestGalleryPage> registeredGalleryPage;
#include "TestGalleryPage.moc"

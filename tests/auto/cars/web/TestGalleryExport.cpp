// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryCars.h"
#include "auto/cars/web/GalleryExport.h"
#include "auto/cars/web/GalleryFolder.h"
#include "auto/cars/web/PublicCars.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "tests/office/TestOffice.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;

const QByteArray placeMark = "N35 41 21 E51 23 20";

// As a telephone writes it: an Exif block with the place, and a comment.
QByteArray photograph(int width, int height, int orientation = 1)
{
    QByteArray jpeg = PictureFiles::withExif(PictureFiles::jpeg(width, height), orientation);
    const QByteArray said = "GPS " + placeMark;
    QByteArray comment("\xFF\xFE", 2);
    comment += char(0);
    comment += char(said.size() + 2);
    return jpeg.left(2) + comment + said + jpeg.mid(2);
}

QImage decoded(const QByteArray &bytes)
{
    return QImage::fromData(bytes);
}

}

// The page of cars in a folder: what is gathered, and that nothing else is.
class TestGalleryExport : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_dir;
    int m_brand = 0;
    int m_model = 0;
    int m_class = 0;
    int m_color = 0;

    QString target() const { return m_dir->filePath(u"web"_s); }
    void run(const QString &statement) { m_office->database().run(statement); }
    int addShown(const std::function<void(Car &)> &set = {})
    {
        const int key = m_office->addCar([&](Car &car) {
            car.m_iAutomobilType = m_brand;
            car.m_iModel = m_model;
            car.m_iBrigade = m_class;
            car.m_iColor = m_color;
            car.m_iYear = 1399;
            car.m_dAmount = 1'250'000'000;
            if (set)
                set(car);
        });
        PublicCars::set({key}, true);
        return key;
    }
    void addPicture(int car, int order, const QByteArray &bytes)
    {
        run(u"INSERT INTO Pictures(iTable,iRecordID,iOrder,sName,oPicture) VALUES(68,%1,%2,'کارت خودرو رضایی.jpg',X'%3')"_s.arg(car).arg(order).arg(QString::fromLatin1(bytes.toHex())));
    }
    static GalleryHead head(bool withPrices = true) { return {u"نمایشگاه مهر"_s, u"021-1234"_s, u"تهران"_s, u"تومان"_s, withPrices}; }
    GalleryExport::Written exported(bool withPrices = true) { return GalleryExport::write(target(), head(withPrices)); }
    static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString page() const { return QString::fromUtf8(content(target() + u"/index.html"_s)); }
    QStringList files() const { return QDir(target()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    // All that a visitor of the web space could read, the names of the files among it.
    QByteArray everything() const
    {
        QByteArray all;
        for (const QString &name : files())
            all += name.toUtf8() + '\n' + content(target() + u'/' + name) + '\n';
        return all;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        run(u"DELETE FROM Pictures"_s);
        m_dir = std::make_unique<QTemporaryDir>();
        m_brand = m_office->addBrand(u"پژو"_s);
        m_model = m_office->addModel(m_brand, u"206"_s);
        m_class = m_office->addClass(m_model, u"تیپ 2"_s);
        m_color = m_office->addItem(1, u"سفید"_s);
    }

    void pageShowsWhatAStrangerMaySee()
    {
        addShown([](Car &car) {
            car.m_iFuel = 1;
            car.m_iFunction = 82000;
        });
        const GalleryExport::Written written = exported();
        QCOMPARE(written.cars, 1);
        QCOMPARE(written.page, target() + u"/index.html"_s);
        for (const QString &text : {u"پژو 206 تیپ 2"_s, u"سفید"_s, u"۱۳۹۹"_s, u"۸۲٬۰۰۰ کیلومتر"_s, u"۱٬۲۵۰٬۰۰۰٬۰۰۰ تومان"_s, u"نمایشگاه مهر"_s, u"تهران"_s})
            QVERIFY2(page().contains(text), qPrintable(text));
        QCOMPARE(written.bytes, QFileInfo(written.page).size());
        exported(false);
        QVERIFY(page().contains(u"توافقی"_s));
        QVERIFY(!everything().contains("1250000000"));
        QVERIFY(!page().contains(u"۱٬۲۵۰٬۰۰۰٬۰۰۰"_s));
    }

    // Every text and every amount of the car but the price, the owner, the buyer, a custom field, a note, a file's name: none of it is in
    // any byte that is written.
    void nothingPrivateIsInAnyByte()
    {
        QStringList secrets;
        const int owner = m_office->addPerson(u"نهانی‌نام"_s, u"نهانی‌فامیل"_s, [](CTblPersons &) {});
        secrets << u"نهانی"_s << u"رضایی"_s;
        const int key = addShown([&](Car &car) {
            int number = 7'113'000;
            for (const KMySQL::Column &column : car.columns()) {
                if (column.kind == KColumn::Kind::Text) {
                    const QString secret = u"%1نه%2"_s.arg(QString(column.name).at(1)).arg(number++);
                    column.setValue(secret);
                    secrets << secret;
                } else if (column.kind == KColumn::Kind::Double && column.name != u"dAmount"_s) {
                    column.setValue(double(number));
                    secrets << QString::number(number++);
                }
            }
            car.m_iPersonID = owner;
            car.m_iPersonBuyerID = owner;
        });
        QVERIFY(secrets.size() > 30);
        run(u"UPDATE AutomobilInformations SET iCode=8675309 WHERE iID=%1"_s.arg(key));
        run(u"INSERT INTO CustomFieldRecords(iTable,iRecordID,iFieldID,sValue) VALUES(68,%1,1,'نهانی‌فیلد')"_s.arg(key));
        run(u"INSERT INTO FollowUps(iTable,iRecordID,iKind,sNote) VALUES(68,%1,1,'نهانی‌یادداشت')"_s.arg(key));
        run(u"INSERT INTO FileDocs(iTable,iRecordID,sName,oData) VALUES(68,%1,'نهانی.pdf','نهانی')"_s.arg(key));
        secrets << u"8675309"_s;
        addPicture(key, 1, photograph(400, 300));
        const GalleryExport::Written written = exported();
        QCOMPARE(written.cars, 1);
        QCOMPARE(written.pictures, 1);
        const QByteArray all = everything();
        QVERIFY(all.contains(u"پژو 206 تیپ 2"_s.toUtf8()));
        for (const QString &secret : std::as_const(secrets))
            QVERIFY2(!all.contains(secret.toUtf8()), qPrintable(secret));
        // Nor in the digits that a page writes.
        for (QString shown = page(); const QString &secret : std::as_const(secrets)) {
            QString persian;
            for (const QChar c : secret)
                persian += c.isDigit() ? QChar(0x06F0 + c.digitValue()) : c;
            QVERIFY2(!shown.remove(u'٬').contains(persian), qPrintable(secret));
        }
    }

    void carsThatAreNotOnOfferAreNowhere_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("sold") << u"UPDATE AutomobilInformations SET bSold=1 WHERE iID=%1"_s;
        QTest::newRow("archived") << u"UPDATE AutomobilInformations SET iArchiveUserID=1 WHERE iID=%1"_s;
        QTest::newRow("inactive") << u"UPDATE AutomobilInformations SET iStatus=1 WHERE iID=%1"_s;
        QTest::newRow("not ticked") << u"DELETE FROM PublicCars WHERE iCarID=%1"_s;
        QTest::newRow("deleted") << u"DELETE FROM AutomobilInformations WHERE iID=%1"_s;
    }
    void carsThatAreNotOnOfferAreNowhere()
    {
        QFETCH(QString, what);
        addShown();
        const int other = addShown([&](Car &car) {
            car.m_iAutomobilType = m_office->addBrand(u"رنو"_s);
            car.m_iModel = 0;
            car.m_dAmount = 777'000'001;
        });
        addPicture(other, 1, photograph(600, 400));
        exported();
        QVERIFY(everything().contains("777000001"));
        QCOMPARE(files().size(), 4);
        run(what.arg(other));
        exported();
        QVERIFY(!everything().contains("777000001"));
        QVERIFY(!page().contains(u"رنو"_s));
        // Its pictures are gone with it.
        QCOMPARE(files(), (QStringList{GalleryFolder::listName(), u"index.html"_s}));
    }

    // Whoever sells a car while the pictures are written does not read of it in the page.
    void soldMeanwhileIsLeftOut()
    {
        const int stays = addShown();
        const int sold = addShown([](Car &car) { car.m_dAmount = 777'000'001; });
        addPicture(stays, 1, photograph(600, 400));
        addPicture(sold, 1, photograph(640, 400));
        const GalleryExport::Written written = GalleryExport::write(target(), head(), [&](int, int) {
            run(u"UPDATE AutomobilInformations SET bSold=1 WHERE iID=%1"_s.arg(sold));
            return true;
        });
        QCOMPARE(written.cars, 1);
        QVERIFY(!everything().contains("777000001"));
        QCOMPARE(files().size(), 4);
        QCOMPARE(written.pictures, 1);
    }

    // Upright, in two sizes, without what the camera wrote into the file.
    void picturesAreWrittenAnew()
    {
        const int key = addShown();
        const QByteArray stored = photograph(1600, 1200, 6);
        QVERIFY(stored.contains("Exif") && stored.contains(placeMark));
        addPicture(key, 1, stored);
        exported();
        int found = 0;
        for (const QString &name : files().filter(u".jpg"_s)) {
            const QByteArray bytes = content(target() + u'/' + name);
            QVERIFY(!bytes.contains("Exif") && !bytes.contains("GPS") && !bytes.contains(placeMark) && !bytes.contains("Camera"));
            const QSize size = decoded(bytes).size();
            QVERIFY2(size == QSize(960, 1280) || size == QSize(240, 320), qPrintable(u"%1x%2"_s.arg(size.width()).arg(size.height())));
            ++found;
        }
        QCOMPARE(found, 2);
    }

    void picturesStandInTheOrderOfTheEditor()
    {
        const int key = addShown([](Car &car) { car.m_oPicture.data = PictureFiles::jpeg(100, 50); });
        addPicture(key, 2, PictureFiles::jpeg(300, 50));
        addPicture(key, 1, PictureFiles::jpeg(200, 50));
        exported();
        QList<int> widths;
        static const QRegularExpression large(u"<a href=\"([^\"]*\\.jpg)\""_s);
        const QString html = page();
        for (auto match = large.globalMatch(html); match.hasNext();)
            widths.append(decoded(content(target() + u'/' + match.next().captured(1))).width());
        QCOMPARE(widths, (QList<int>{100, 200, 300}));
    }

    void onlySoManyPicturesOfACar()
    {
        const int key = addShown();
        for (int order = 1; order <= GalleryExport::mostPictures + 2; ++order)
            addPicture(key, order, PictureFiles::jpeg(100 + order, 50));
        QCOMPARE(exported().pictures, GalleryExport::mostPictures);
        QCOMPARE(page().count(u"<img "_s), GalleryExport::mostPictures);
    }

    void brokenPicturesAreLeftOut()
    {
        const int key = addShown([](Car &car) { car.m_oPicture.data = "no picture"; });
        addPicture(key, 1, PictureFiles::jpeg(100, 50));
        const GalleryExport::Written written = exported();
        QCOMPARE(written.unreadable, 1);
        QCOMPARE(written.pictures, 1);
    }

    // The same picture of two cars is one file; a picture that stays keeps its name.
    void picturesAreNamedByWhatTheyHold()
    {
        addPicture(addShown(), 1, photograph(600, 400));
        addPicture(addShown(), 1, photograph(600, 400));
        exported();
        const QStringList before = files();
        QCOMPARE(before.size(), 4);
        addPicture(addShown(), 1, photograph(620, 400));
        exported();
        QCOMPARE(files().size(), 6);
        for (const QString &name : before)
            QVERIFY(files().contains(name));
    }

    // Only the pictures cost a statement each.
    void statementsDoNotGrowWithTheCars()
    {
        const auto statements = [&] {
            const ObservedStatements observed({u"SELECT"_s});
            exported();
            return observed.taken().size();
        };
        addShown();
        const auto one = statements();
        for (int i = 0; i < 20; ++i)
            addShown();
        QCOMPARE(statements(), one);
    }

    void stoppedLeavesTheOld()
    {
        const int key = addShown();
        exported();
        const QByteArray before = everything();
        addPicture(key, 1, photograph(600, 400));
        addPicture(key, 2, photograph(620, 400));
        int asked = 0;
        QVERIFY_THROWS_EXCEPTION(GalleryExport::Stopped, GalleryExport::write(target(), head(), [&](int done, int total) {
                                     Q_ASSERT(total == 3 && done == asked);
                                     return ++asked < 2;
                                 }));
        QCOMPARE(asked, 2);
        QCOMPARE(everything(), before);
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList{u"web"_s});
    }

    void anOfficeWithoutPublicCarsWritesAnEmptyPage()
    {
        m_office->addCar();
        QCOMPARE(exported().cars, 0);
        QVERIFY(!page().contains(u"<li class=\"car\""_s));
    }
};

static const RegisteredTest<TestGalleryExport, QApplication> registeredGalleryExport;
#include "TestGalleryExport.moc"

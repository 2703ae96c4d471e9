// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarThumbnails.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/subjects/AutoWindows.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/image/ThumbnailBuilding.h"
#include "suite/image/Thumbnails.h"
#include "tests/office/TestOffice.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/RegisteredTest.h"

#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

using Car = CTblAutomobilInformations;

// The small pictures of cars, which stand beside the whole ones and go with them.
class TestCarThumbnails : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    // Of the car; empty where there is no row, "0" for one that is empty.
    QString lengthOf(int car) { return value(u"SELECT LENGTH(oPicture) FROM Thumbnails WHERE iTable=%1 AND iRecordID=%2 AND iPictureID=0"_s.arg(Car::recordKind).arg(car)); }

    void setPicture(int car, const QByteArray &bytes)
    {
        Car record;
        QVERIFY(record.IsRecordExist(u"iID"_s, car));
        record.Edit();
        record.m_oPicture.data = bytes;
        record.Update(true);
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_office = std::make_unique<TestOffice>();
        AutoWindows::enter();
    }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->database().run(u"DELETE FROM Thumbnails"_s);
    }

    void pictureIsBoundedAndOnWhite()
    {
        const QImage wide = QImage::fromData(Thumbnails::made(PictureFiles::jpeg(1600, 400)));
        QCOMPARE(wide.size(), QSize(Thumbnails::maxWidth, Thumbnails::maxWidth / 4));
        const QImage small = QImage::fromData(Thumbnails::made(PictureFiles::jpeg(60, 40)));
        QCOMPARE(small.size(), QSize(60, 40));
        QImage clear(40, 40, QImage::Format_ARGB32);
        clear.fill(Qt::transparent);
        const QColor ground = QImage::fromData(Thumbnails::made(PictureFiles::written(clear, "png"))).pixelColor(20, 20);
        QVERIFY(ground.lightness() > 250);
        QVERIFY(Thumbnails::made("no picture at all").isEmpty());
        QVERIFY(Thumbnails::made({}).isEmpty());
    }

    void itFollowsThePicture()
    {
        const int car = m_office->addCar();
        QCOMPARE(lengthOf(car), QString());
        setPicture(car, PictureFiles::jpeg(800, 600));
        const QString first = lengthOf(car);
        QVERIFY(first.toInt() > 100);
        setPicture(car, PictureFiles::jpeg(100, 100));
        QVERIFY(lengthOf(car).toInt() > 100 && lengthOf(car) != first);
        setPicture(car, {});
        QCOMPARE(lengthOf(car), u"0"_s);
    }

    void changeOfSomethingElseLeavesIt()
    {
        const int car = m_office->addCar();
        setPicture(car, PictureFiles::jpeg(80, 60));
        m_office->database().run(u"UPDATE Thumbnails SET oPicture='kept'"_s);
        Car record;
        QVERIFY(record.IsRecordExist(u"iID"_s, car));
        record.Edit();
        record.m_dAmount = 5;
        record.Update(true);
        QCOMPARE(value(u"SELECT oPicture FROM Thumbnails"_s), u"kept"_s);
    }

    void bothAreKeptOrNeither()
    {
        const int car = m_office->addCar();
        try {
            KTransaction unit;
            setPicture(car, PictureFiles::jpeg(80, 60));
            throw 1;
        } catch (int) {
        }
        QCOMPARE(lengthOf(car), QString());
        QCOMPARE(value(u"SELECT LENGTH(oPicture) FROM AutomobilInformations WHERE iID=%1"_s.arg(car)).toInt(), 0);
    }

    void itGoesWithTheCar()
    {
        const int car = m_office->addCar();
        setPicture(car, PictureFiles::jpeg(80, 60));
        Car record;
        QVERIFY(record.IsRecordExist(u"iID"_s, car));
        record.Delete();
        QCOMPARE(value(u"SELECT COUNT(*) FROM Thumbnails"_s), u"0"_s);
    }

    void olderPicturesAreMadeUpForOnce()
    {
        const QList<int> cars{m_office->addCar(), m_office->addCar(), m_office->addCar()};
        const QString picture = QString::fromLatin1(PictureFiles::jpeg(80, 60).toHex());
        m_office->database().run(u"UPDATE AutomobilInformations SET oPicture=x'%1' WHERE iID=%2"_s.arg(picture).arg(cars.at(0)));
        m_office->database().run(u"UPDATE AutomobilInformations SET oPicture='broken' WHERE iID=%1"_s.arg(cars.at(1)));
        Thumbnails::build(CarThumbnails::source());
        QVERIFY(lengthOf(cars.at(0)).toInt() > 100);
        QCOMPARE(lengthOf(cars.at(1)), u"0"_s);
        QCOMPARE(lengthOf(cars.at(2)), u"0"_s);
        // Nothing is left to do, also for what cannot be shown.
        qint32 before = std::numeric_limits<qint32>::max();
        QVERIFY(!Thumbnails::buildStep(CarThumbnails::source(), before));
        QCOMPARE(before, std::numeric_limits<qint32>::max());
    }

    void manyAreMadeInSteps()
    {
        constexpr int cars = Thumbnails::recordsPerStep + 3;
        for (int car = 0; car < cars; ++car)
            m_office->addCar();
        qint32 before = std::numeric_limits<qint32>::max();
        QVERIFY(Thumbnails::buildStep(CarThumbnails::source(), before));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Thumbnails"_s).toInt(), Thumbnails::recordsPerStep);
        QVERIFY(!Thumbnails::buildStep(CarThumbnails::source(), before));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Thumbnails"_s).toInt(), cars);
    }

    void theyAreMadeBesideTheWork()
    {
        const int car = m_office->addCar();
        m_office->database().run(u"UPDATE AutomobilInformations SET oPicture=x'%1'"_s.arg(QString::fromLatin1(PictureFiles::jpeg(80, 60).toHex())));
        ThumbnailBuilding building(CarThumbnails::source());
        QSignalSpy made(&building, &ThumbnailBuilding::made);
        building.start();
        QVERIFY(made.wait(20'000));
        QCOMPARE(made.constFirst().constFirst().value<QList<qint32>>(), QList<qint32>{car});
        QVERIFY(lengthOf(car).toInt() > 100);
    }

    // The other desk makes them for all.
    void oneDeskAtATimeMakesThem()
    {
        m_office->addCar();
        const std::unique_ptr<KLease> other = KLease::tryTake(u"thumbnails"_s, u"other desk"_s);
        QVERIFY(other);
        {
            ThumbnailBuilding building(CarThumbnails::source());
            building.start();
        }
        QCOMPARE(value(u"SELECT COUNT(*) FROM Thumbnails"_s), u"0"_s);
    }
};

static const RegisteredTest<TestCarThumbnails, KApplication> registeredCarThumbnails;
#include "TestCarThumbnails.moc"

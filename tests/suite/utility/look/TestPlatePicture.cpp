// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/PlatePicture.h"

#include "suite/utility/look/HostColors.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QImage>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString plateOfACar = u"12 ب 345 ایران 67"_s;

QImage painted(PlatePicture &picture, const QSize &size)
{
    picture.resize(size);
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    picture.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

// The columns in which anything was painted.
struct Extent
{
    int from = -1;
    int to = -1;
};

Extent extentOf(const QImage &image)
{
    Extent extent;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (qAlpha(image.pixel(x, y)) == 0)
                continue;
            extent.from = extent.from < 0 ? x : extent.from;
            extent.to = x;
        }
    }
    return extent;
}

bool isBlue(QRgb pixel)
{
    return qBlue(pixel) > 100 && qRed(pixel) < 60;
}

}

class TestPlatePicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { HostColors::setLook(HostColors::Look::Light); }

    void itsNameIsThePlateAndNothingIsShownOfAnotherText()
    {
        PlatePicture picture;
        QVERIFY(!picture.isPlate());
        picture.setText(u"۶۷ ایران ۳۴۵ ب ۱۲"_s);
        QVERIFY(picture.isPlate());
        QCOMPARE(picture.accessibleName(), plateOfACar);
        QVERIFY(extentOf(painted(picture, picture.sizeHint())).from >= 0);
        picture.setText(u"تهران 12345"_s);
        QVERIFY(!picture.isPlate());
        QCOMPARE(picture.accessibleName(), QString());
        QCOMPARE(extentOf(painted(picture, picture.sizeHint())).from, -1);
    }

    void partsFillInWhileAPlateIsTyped()
    {
        PlatePicture picture;
        picture.setText(u"12 ب 34"_s);
        QVERIFY(!picture.isPlate());
        QCOMPARE(picture.accessibleName(), QString());
        const QImage half = painted(picture, picture.sizeHint());
        QVERIFY(extentOf(half).from >= 0);
        picture.setText(u"12 ب 345"_s);
        QVERIFY(painted(picture, picture.sizeHint()) != half);
    }

    // So that nothing moves while a plate is typed.
    void itKeepsItsRoom()
    {
        PlatePicture picture;
        const QSize before = picture.sizeHint();
        picture.setText(plateOfACar);
        QCOMPARE(picture.sizeHint(), before);
        QCOMPARE(before, QSize(138, 30));
    }

    // The band with the flag stands at the left in a window from right to left as well, and the ground is white in the dark.
    void itRunsFromTheLeftAndIsLight_data()
    {
        QTest::addColumn<int>("direction");
        QTest::addColumn<int>("look");
        QTest::newRow("right to left, light") << int(Qt::RightToLeft) << int(HostColors::Look::Light);
        QTest::newRow("right to left, dark") << int(Qt::RightToLeft) << int(HostColors::Look::Dark);
        QTest::newRow("left to right, dark") << int(Qt::LeftToRight) << int(HostColors::Look::Dark);
    }

    void itRunsFromTheLeftAndIsLight()
    {
        QFETCH(int, direction);
        QFETCH(int, look);
        HostColors::setLook(HostColors::Look(look));
        PlatePicture picture;
        picture.setLayoutDirection(Qt::LayoutDirection(direction));
        picture.setText(plateOfACar);
        const QImage image = painted(picture, picture.sizeHint());
        QVERIFY(isBlue(image.pixel(8, 26)));
        QVERIFY(!isBlue(image.pixel(130, 26)));
        QCOMPARE(image.pixel(40, 4), qRgb(255, 255, 255));
    }

    // At the leading edge of wider room, smaller in narrower room.
    void itIsNeverCut()
    {
        PlatePicture picture;
        picture.setLayoutDirection(Qt::RightToLeft);
        picture.setText(plateOfACar);
        const Extent wide = extentOf(painted(picture, {200, 30}));
        QCOMPARE(wide.to, 199);
        QVERIFY2(wide.from >= 60 && wide.from <= 63, qPrintable(QString::number(wide.from)));
        const Extent narrow = extentOf(painted(picture, {100, 30}));
        QVERIFY(narrow.from <= 1 && narrow.to >= 98);
        QVERIFY(isBlue(painted(picture, {100, 30}).pixel(6, 23)));
    }
};

static const RegisteredTest<TestPlatePicture, QApplication> registeredPlatePicture;
#include "TestPlatePicture.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureIntake.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/RegisteredTest.h"

#include <QColorSpace>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using Refusal = PictureIntake::Refusal;
Q_DECLARE_METATYPE(Refusal)

class TestPictureIntake : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threeKindsAreTaken_data();
    void threeKindsAreTaken();
    void kindIsToldByTheContentsNotByTheName();
    void othersAreRefusedAsTheWrongKind_data();
    void othersAreRefusedAsTheWrongKind();
    void largerPicturesAreScaledDownNeverUp_data();
    void largerPicturesAreScaledDownNeverUp();
    void pictureIsTurnedUpright_data();
    void pictureIsTurnedUpright();
    void nothingButPixelsIsKept();
    void wideColoursBecomeThoseOfAScreen();
    void opaqueBecomesJpegAndAlphaBecomesPng();
    void alphaChannelWithoutTransparencyBecomesJpeg();
    void whatAServerWouldRefuseIsMadeSmaller();
    void headerOfABombIsRefusedBeforeItIsDecoded_data();
    void headerOfABombIsRefusedBeforeItIsDecoded();
    void brokenPicturesAreRefused_data();
    void brokenPicturesAreRefused();
    void thumbnailsEndIsNotThePicturesEnd();
    void twentyMebibytesAreTakenAndOneByteMoreIsNot();
    void pixelsInMemoryAreTaken();
    void filesThatAreNoneAreUnreadable();
    void limitOfTheDecodersIsPutBack();
    void storedPictureIsShownAsItWasWritten();
    void storedRubbishGivesNoPicture();

private:
    static bool isReddish(QColor color) { return color.red() > 150 && color.blue() < 100; }
    static bool isBluish(QColor color) { return color.blue() > 150 && color.red() < 100; }
};

void TestPictureIntake::threeKindsAreTaken_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("JPEG") << QByteArray("jpeg");
    QTest::newRow("PNG") << QByteArray("png");
    QTest::newRow("WebP") << QByteArray("webp");
}

void TestPictureIntake::threeKindsAreTaken()
{
    QFETCH(QByteArray, format);
    const auto result =
        PictureIntake::fromData(PictureFiles::written(PictureFiles::redAndBlue(64, 48), format.constData()));
    QCOMPARE(result.refusal, Refusal::None);
    QCOMPARE(result.image.size(), QSize(64, 48));
    QVERIFY(isReddish(result.image.pixelColor(8, 24)));
    QVERIFY(isBluish(result.image.pixelColor(56, 24)));
    QVERIFY(result.bytes.startsWith("\xFF\xD8\xFF"));
}

void TestPictureIntake::kindIsToldByTheContentsNotByTheName()
{
    QTemporaryDir folder;
    const auto write = [&](const QString &name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the file could not be written");
        return file.fileName();
    };
    const QByteArray picture = PictureFiles::written(PictureFiles::redAndBlue(20, 20), "png");
    const QString misnamed = write(u"letter.docx"_s, picture);
    QCOMPARE(PictureIntake::fromFile(misnamed).refusal, Refusal::None);
    const QString bitmap = write(u"car.jpg"_s, PictureFiles::written(PictureFiles::redAndBlue(20, 20), "bmp"));
    QCOMPARE(PictureIntake::fromFile(bitmap).refusal, Refusal::WrongKind);
    QVERIFY(PictureIntake::fromFile(bitmap).bytes.isEmpty());
}

void TestPictureIntake::othersAreRefusedAsTheWrongKind_data()
{
    QTest::addColumn<QByteArray>("data");
    const QImage image = PictureFiles::redAndBlue(20, 20);
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("این تصویر نیست");
    QTest::newRow("BMP") << PictureFiles::written(image, "bmp");
    QTest::newRow("XPM") << PictureFiles::written(image, "xpm");
    QTest::newRow("SVG") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    QTest::newRow("GIF") << QByteArray("GIF89a\x01\0\x01\0\0\0\0;", 14);
    QTest::newRow("RIFF that is a sound") << QByteArray("RIFF\x24\0\0\0WAVEfmt ", 16);
}

void TestPictureIntake::othersAreRefusedAsTheWrongKind()
{
    QFETCH(QByteArray, data);
    const auto result = PictureIntake::fromData(data);
    QCOMPARE(result.refusal, Refusal::WrongKind);
    QVERIFY(result.image.isNull());
}

void TestPictureIntake::largerPicturesAreScaledDownNeverUp_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("kept");
    QTest::newRow("small stays small") << QSize(40, 30) << QSize(40, 30);
    QTest::newRow("exactly 1600") << QSize(1600, 900) << QSize(1600, 900);
    QTest::newRow("one more") << QSize(1601, 100) << QSize(1600, 100);
    QTest::newRow("wide") << QSize(3200, 1000) << QSize(1600, 500);
    QTest::newRow("high") << QSize(1000, 4000) << QSize(400, 1600);
    QTest::newRow("a strip keeps a pixel") << QSize(5000, 1) << QSize(1600, 1);
}

void TestPictureIntake::largerPicturesAreScaledDownNeverUp()
{
    QFETCH(QSize, size);
    QFETCH(QSize, kept);
    const QImage image = PictureFiles::redAndBlue(size.width(), size.height());
    for (const char *format : {"jpeg", "png", "webp"}) {
        const auto result = PictureIntake::fromData(PictureFiles::written(image, format));
        QCOMPARE(result.refusal, Refusal::None);
        QCOMPARE(result.image.size(), kept);
        QCOMPARE(QImage::fromData(result.bytes).size(), kept);
    }
    QCOMPARE(PictureIntake::fromImage(image).image.size(), kept);
}

void TestPictureIntake::pictureIsTurnedUpright_data()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("red");
    // Of a picture 80 wide and 40 high whose left half is red.
    QTest::newRow("1 as it is") << 1 << QSize(80, 40) << QPoint(10, 20);
    QTest::newRow("2 mirrored") << 2 << QSize(80, 40) << QPoint(70, 20);
    QTest::newRow("3 upside down") << 3 << QSize(80, 40) << QPoint(70, 20);
    QTest::newRow("6 to be turned right") << 6 << QSize(40, 80) << QPoint(20, 10);
    QTest::newRow("8 to be turned left") << 8 << QSize(40, 80) << QPoint(20, 70);
}

void TestPictureIntake::pictureIsTurnedUpright()
{
    QFETCH(int, orientation);
    QFETCH(QSize, size);
    QFETCH(QPoint, red);
    const auto result = PictureIntake::fromData(PictureFiles::withExif(PictureFiles::jpeg(80, 40), orientation));
    QCOMPARE(result.refusal, Refusal::None);
    QCOMPARE(result.image.size(), size);
    QVERIFY(isReddish(result.image.pixelColor(red)));
    QVERIFY(isBluish(result.image.pixelColor(QPoint(size.width() - 1, size.height() - 1) - red)));
    // A large one is turned too, after it was scaled.
    const auto large = PictureIntake::fromData(PictureFiles::withExif(PictureFiles::jpeg(3200, 1600), orientation));
    QCOMPARE(large.image.size(), size * 20);
}

void TestPictureIntake::nothingButPixelsIsKept()
{
    const QByteArray source = PictureFiles::withExif(PictureFiles::jpeg(80, 40), 6);
    QVERIFY(source.contains("Camera"));
    const auto photo = PictureIntake::fromData(source);
    QVERIFY(!photo.bytes.contains("Camera"));
    QVERIFY(!photo.bytes.contains("Exif"));

    QImage texts = QImage(20, 20, QImage::Format_ARGB32);
    texts.fill(QColor(1, 2, 3, 100));
    texts.setText(u"Comment"_s, u"SecretPlace"_s);
    texts.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    const QByteArray png = PictureFiles::written(texts, "png");
    QVERIFY(png.contains("SecretPlace") && png.contains("iCCP"));
    for (const auto &result : {PictureIntake::fromData(png), PictureIntake::fromImage(texts)}) {
        QVERIFY(result.bytes.startsWith("\x89PNG"));
        QVERIFY(!result.bytes.contains("SecretPlace"));
        QVERIFY(!result.bytes.contains("iCCP"));
        QVERIFY(result.image.textKeys().isEmpty());
    }
}

void TestPictureIntake::wideColoursBecomeThoseOfAScreen()
{
    QImage wide(10, 10, QImage::Format_RGB32);
    wide.fill(QColor(200, 100, 100));
    wide.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    const auto result = PictureIntake::fromData(PictureFiles::written(wide, "png"));
    const QColor kept = result.image.pixelColor(5, 5);
    QVERIFY2(kept.red() > 205 && kept.green() < 98, qPrintable(kept.name()));
}

void TestPictureIntake::opaqueBecomesJpegAndAlphaBecomesPng()
{
    QVERIFY(PictureIntake::fromData(PictureFiles::written(PictureFiles::redAndBlue(30, 30), "png")).bytes.startsWith("\xFF\xD8\xFF"));
    const auto clear = PictureIntake::fromData(PictureFiles::seeThroughPng(30, 30));
    QVERIFY(clear.bytes.startsWith("\x89PNG"));
    QCOMPARE(clear.image.pixelColor(15, 15).alpha(), 0);
    QCOMPARE(QImage::fromData(clear.bytes).pixelColor(15, 15).alpha(), 0);
    const auto large = PictureIntake::fromData(PictureFiles::seeThroughPng(2000, 1000));
    QVERIFY(large.bytes.startsWith("\x89PNG"));
    QCOMPARE(large.image.size(), QSize(1600, 800));
}

void TestPictureIntake::alphaChannelWithoutTransparencyBecomesJpeg()
{
    const QImage opaque = PictureFiles::redAndBlue(30, 30).convertToFormat(QImage::Format_ARGB32);
    QVERIFY(opaque.hasAlphaChannel());
    QVERIFY(PictureIntake::fromData(PictureFiles::written(opaque, "png")).bytes.startsWith("\xFF\xD8\xFF"));
}

void TestPictureIntake::whatAServerWouldRefuseIsMadeSmaller()
{
    // Noise: no picture is harder to pack.
    QImage noise(1600, 800, QImage::Format_ARGB32);
    quint32 seed = 1;
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, seed = seed * 1664525 + 1013904223);
    QVERIFY(PictureFiles::written(noise, "png").size() > PictureIntake::maxKeptBytes);
    const auto result = PictureIntake::fromImage(noise);
    QCOMPARE(result.refusal, Refusal::None);
    QVERIFY(result.bytes.startsWith("\x89PNG"));
    QVERIFY(result.bytes.size() <= PictureIntake::maxKeptBytes);
    QCOMPARE(QImage::fromData(result.bytes).size(), result.image.size());
    QCOMPARE(result.image.width(), 2 * result.image.height());
    QVERIFY(result.image.width() > 600);
}

void TestPictureIntake::headerOfABombIsRefusedBeforeItIsDecoded_data()
{
    QTest::addColumn<quint32>("width");
    QTest::addColumn<quint32>("height");
    QTest::addColumn<Refusal>("refusal");
    QTest::newRow("a square of 900 megapixels") << 30000U << 30000U << Refusal::TooManyPixels;
    QTest::newRow("one line too many") << 1024U << 65537U << Refusal::TooManyPixels;
    QTest::newRow("more than an int holds") << 100000U << 100000U << Refusal::TooManyPixels;
    // Within the bound it is only broken: it lacks the pixels that it promises.
    QTest::newRow("within the bound") << 5000U << 5000U << Refusal::Broken;
    QTest::newRow("what a telephone of 50 megapixels takes") << 8192U << 6144U << Refusal::Broken;
    QTest::newRow("what a telephone of 64 megapixels takes") << 9248U << 6936U << Refusal::Broken;
}

void TestPictureIntake::headerOfABombIsRefusedBeforeItIsDecoded()
{
    QFETCH(quint32, width);
    QFETCH(quint32, height);
    QFETCH(Refusal, refusal);
    const QByteArray bomb = PictureFiles::pngPromising(width, height);
    QVERIFY(bomb.size() < 200);
    QCOMPARE(PictureIntake::fromData(bomb).refusal, refusal);
    QVERIFY(PictureIntake::decode(bomb).isNull());
}

void TestPictureIntake::brokenPicturesAreRefused_data()
{
    QTest::addColumn<QByteArray>("data");
    const QImage image = PictureFiles::redAndBlue(300, 200);
    for (const char *format : {"jpeg", "png", "webp"}) {
        const QByteArray whole = PictureFiles::written(image, format);
        QTest::addRow("%s without its end", format) << whole.left(whole.size() / 2);
        QTest::addRow("%s of its first bytes", format) << whole.left(16);
    }
    const QByteArray whole = PictureFiles::written(image, "jpeg");
    QTest::newRow("jpeg without its last two bytes") << whole.chopped(2);
    QByteArray scrambled = PictureFiles::written(image, "png");
    scrambled[scrambled.size() / 2] = static_cast<char>(scrambled.at(scrambled.size() / 2) ^ 0x55);
    QTest::newRow("png with a wrong byte") << scrambled;
}

void TestPictureIntake::brokenPicturesAreRefused()
{
    QFETCH(QByteArray, data);
    const auto result = PictureIntake::fromData(data);
    QCOMPARE(result.refusal, Refusal::Broken);
    QVERIFY(result.bytes.isEmpty());
}

void TestPictureIntake::thumbnailsEndIsNotThePicturesEnd()
{
    const QByteArray thumbnail = PictureFiles::jpeg(16, 16);
    QByteArray segment("\xFF\xE2", 2);
    const auto length = static_cast<int>(thumbnail.size()) + 2;
    segment += char(length >> 8);
    segment += char(length & 0xFF);
    const QByteArray picture = PictureFiles::jpeg(300, 200);
    const QByteArray both = picture.left(2) + segment + thumbnail + picture.mid(2);
    QCOMPARE(PictureIntake::fromData(both).image.size(), QSize(300, 200));
    QCOMPARE(PictureIntake::fromData(both.chopped(2)).refusal, Refusal::Broken);
}

void TestPictureIntake::twentyMebibytesAreTakenAndOneByteMoreIsNot()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(u"large.jpg"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray picture = PictureFiles::jpeg(40, 30);
    file.write(picture + QByteArray(PictureIntake::maxBytes - picture.size(), 'x'));
    file.flush();
    QCOMPARE(file.size(), qint64(20) * 1024 * 1024);
    QCOMPARE(PictureIntake::fromFile(file.fileName()).refusal, Refusal::None);
    file.write("x");
    file.flush();
    QCOMPARE(PictureIntake::fromFile(file.fileName()).refusal, Refusal::TooManyBytes);
}

void TestPictureIntake::pixelsInMemoryAreTaken()
{
    const auto result = PictureIntake::fromImage(PictureFiles::redAndBlue(30, 20));
    QCOMPARE(result.refusal, Refusal::None);
    QCOMPARE(QImage::fromData(result.bytes).size(), QSize(30, 20));
    QCOMPARE(PictureIntake::fromImage(QImage()).refusal, Refusal::Broken);
    const QImage huge(65537, 1024, QImage::Format_Mono);
    QVERIFY(!huge.isNull());
    QCOMPARE(PictureIntake::fromImage(huge).refusal, Refusal::TooManyPixels);
}

void TestPictureIntake::filesThatAreNoneAreUnreadable()
{
    QTemporaryDir folder;
    QCOMPARE(PictureIntake::fromFile(folder.path()).refusal, Refusal::Unreadable);
    QCOMPARE(PictureIntake::fromFile(folder.filePath(u"nowhere.png"_s)).refusal, Refusal::Unreadable);
    QCOMPARE(PictureIntake::fromFile({}).refusal, Refusal::Unreadable);
}

void TestPictureIntake::limitOfTheDecodersIsPutBack()
{
    const int before = QImageReader::allocationLimit();
    QCOMPARE(PictureIntake::fromData(PictureFiles::jpeg(40, 30)).refusal, Refusal::None);
    QCOMPARE(QImageReader::allocationLimit(), before);
}

void TestPictureIntake::storedPictureIsShownAsItWasWritten()
{
    const auto result = PictureIntake::fromData(PictureFiles::seeThroughPng(60, 40));
    QCOMPARE(PictureIntake::decode(result.bytes), result.image);
}

void TestPictureIntake::storedRubbishGivesNoPicture()
{
    QVERIFY(PictureIntake::decode({}).isNull());
    QVERIFY(PictureIntake::decode("rubbish").isNull());
    QVERIFY(PictureIntake::decode(PictureFiles::jpeg(300, 200).left(400)).isNull());
}

static const RegisteredTest<TestPictureIntake, QCoreApplication> registeredPictureIntake;
#include "TestPictureIntake.moc"

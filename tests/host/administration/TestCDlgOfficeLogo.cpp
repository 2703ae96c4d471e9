// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgOfficeLogo.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/papers/SheetPages.h"
#include "suite/crm/persons/CompanyLogo.h"
#include "suite/crm/persons/OfficeLetterhead.h"
#include "suite/image/KStaticImage.h"
#include "tests/host/HostTestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QImage picture(int width, int height, QColor colour = Qt::darkGreen)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

void paste(CDlgOfficeLogo &dialog, const QImage &image)
{
    QMimeData data;
    data.setImageData(image);
    QVERIFY(dialog.box()->takeMimeData(&data));
}

}

class TestCDlgOfficeLogo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.fresh(); }
    void pictureBecomesTheLogo();
    void largePictureIsMadeSmall_data();
    void largePictureIsMadeSmall();
    void emptiedBoxTakesTheLogoAway();
    void cancelChangesNothing();
    void untouchedLogoIsNotWritten();
    void otherDeskHasChangedItMeanwhile_data();
    void otherDeskHasChangedItMeanwhile();
    void pressedTwiceIsWrittenOnce();
    void closedDatabaseKeepsItsLogo();
    void whatIsNoLogoIsRefused_data();
    void whatIsNoLogoIsRefused();
    void changeIsInTheHistory();
    void papersCarryIt();

private:
    HostTestOffice m_office;
};

void TestCDlgOfficeLogo::pictureBecomesTheLogo()
{
    QCOMPARE(CompanyLogo::read().bytes, QByteArray());
    CDlgOfficeLogo dialog;
    QVERIFY(dialog.box()->isEmpty());
    paste(dialog, picture(120, 90));
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    const CompanyLogo logo = CompanyLogo::read();
    QVERIFY(logo.id > 0);
    QCOMPARE(CompanyLogo::widthOf(logo.bytes), 120);
    QCOMPARE(CompanyLogo::heightOf(logo.bytes), 90);
    QCOMPARE(QImage::fromData(logo.bytes).pixelColor(5, 5), QColor(Qt::darkGreen));

    CDlgOfficeLogo again;
    QCOMPARE(again.box()->bytes(), logo.bytes);
    QVERIFY(!again.box()->isModified());
}

void TestCDlgOfficeLogo::papersCarryIt()
{
    const auto inkOf = [] {
        const SheetPages pages({PaperSheet{.title = u"نامه"_s}}, OfficeLetterhead::read(), SheetPages::Size::A5);
        QImage page(pages.paperSize().toSize() / 4, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        painter.scale(0.25, 0.25);
        pages.paint(painter, 0);
        painter.end();
        int ink = 0;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                ink += page.pixelColor(x, y) == Qt::darkGreen ? 1 : 0;
        return ink;
    };
    QCOMPARE(inkOf(), 0);
    CompanyLogo::save(CDlgOfficeLogo::asLogo(picture(120, 90)), 0);
    // Sixteen millimetres wide at 150 dots an inch.
    QVERIFY2(inkOf() > 80 * 60, qPrintable(QString::number(inkOf())));
}

void TestCDlgOfficeLogo::largePictureIsMadeSmall_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("kept");
    QTest::newRow("wide") << QSize(1200, 300) << QSize(600, 150);
    QTest::newRow("high") << QSize(300, 1500) << QSize(120, 600);
    QTest::newRow("small enough") << QSize(600, 10) << QSize(600, 10);
}

void TestCDlgOfficeLogo::largePictureIsMadeSmall()
{
    QFETCH(QSize, size);
    QFETCH(QSize, kept);
    const QByteArray bytes = CDlgOfficeLogo::asLogo(picture(size.width(), size.height()));
    QCOMPARE(QSize(CompanyLogo::widthOf(bytes), CompanyLogo::heightOf(bytes)), kept);
    // Noise is what a PNG cannot pack.
    QImage noise = picture(600, 600);
    QRandomGenerator random(7);
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, random.generate());
    const QByteArray packed = CDlgOfficeLogo::asLogo(noise);
    QVERIFY(!packed.isEmpty() && packed.size() <= CompanyLogo::maxBytes);
}

void TestCDlgOfficeLogo::emptiedBoxTakesTheLogoAway()
{
    CompanyLogo::save(CDlgOfficeLogo::asLogo(picture(10, 10)), 0);
    CDlgOfficeLogo dialog;
    QVERIFY(dialog.box()->clear());
    dialog.accept();
    QCOMPARE(CompanyLogo::read().id, 0);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Pictures"_s), u"0"_s);
}

void TestCDlgOfficeLogo::cancelChangesNothing()
{
    CDlgOfficeLogo dialog;
    paste(dialog, picture(10, 10));
    dialog.cancel();
    QCOMPARE(CompanyLogo::read().id, 0);
}

void TestCDlgOfficeLogo::untouchedLogoIsNotWritten()
{
    CompanyLogo::save(CDlgOfficeLogo::asLogo(picture(10, 10)), 0);
    const qint32 before = CompanyLogo::read().id;
    CDlgOfficeLogo dialog;
    dialog.accept();
    QCOMPARE(CompanyLogo::read().id, before);
}

void TestCDlgOfficeLogo::otherDeskHasChangedItMeanwhile_data()
{
    QTest::addColumn<bool>("hadOne");
    QTest::addColumn<bool>("hasOne");
    QTest::newRow("put one there") << false << true;
    QTest::newRow("another one") << true << true;
    QTest::newRow("took it away") << true << false;
}

void TestCDlgOfficeLogo::otherDeskHasChangedItMeanwhile()
{
    QFETCH(bool, hadOne);
    QFETCH(bool, hasOne);
    if (hadOne)
        CompanyLogo::save(CDlgOfficeLogo::asLogo(picture(10, 10)), 0);
    CDlgOfficeLogo dialog;
    paste(dialog, picture(20, 20));
    const QByteArray theirs = hasOne ? CDlgOfficeLogo::asLogo(picture(30, 30)) : QByteArray();
    CompanyLogo::save(theirs, CompanyLogo::read().id);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.accept());
    QCOMPARE(CompanyLogo::read().bytes, theirs);
    // Nothing that was entered is lost.
    QVERIFY(dialog.box()->isModified());
}

void TestCDlgOfficeLogo::pressedTwiceIsWrittenOnce()
{
    CDlgOfficeLogo dialog;
    paste(dialog, picture(10, 10));
    dialog.accept();
    const qint32 first = CompanyLogo::read().id;
    QVERIFY(first > 0);
    dialog.accept();
    QCOMPARE(CompanyLogo::read().id, first);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Changes WHERE sTable='Properties:Company'"_s), u"1"_s);
}

void TestCDlgOfficeLogo::closedDatabaseKeepsItsLogo()
{
    CDlgOfficeLogo dialog;
    paste(dialog, picture(10, 10));
    m_office.database.run(u"INSERT INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"_s);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, dialog.accept());
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CompanyLogo::save(CDlgOfficeLogo::asLogo(picture(10, 10)), 0));
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Pictures"_s), u"0"_s);
}

void TestCDlgOfficeLogo::whatIsNoLogoIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = CDlgOfficeLogo::asLogo(picture(10, 10));
    QByteArray wide = good;
    wide[18] = 9; // 9 times 256 pixels and more
    QTest::newRow("no picture") << QByteArray("text");
    QTest::newRow("a JPEG") << QByteArray("\xff\xd8\xff\xe0 and more of it, and still more");
    QTest::newRow("cut off in its head") << good.left(20);
    QTest::newRow("too wide") << wide;
    QTest::newRow("too many bytes") << good + QByteArray(CompanyLogo::maxBytes, 'x');
}

void TestCDlgOfficeLogo::whatIsNoLogoIsRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, CompanyLogo::save(bytes, 0));
    // Nor is it taken from a database that another program has written.
    m_office.database.run(u"INSERT INTO Pictures(iTable,iRecordID,iOrder,oPicture) VALUES(0,0,1,X'%1')"_s.arg(QString::fromLatin1(bytes.left(4000).toHex())));
    if (bytes.size() < 4000)
        QCOMPARE(CompanyLogo::read().bytes, QByteArray());
}

void TestCDlgOfficeLogo::changeIsInTheHistory()
{
    CompanyLogo::save(CDlgOfficeLogo::asLogo(picture(10, 12)), 0);
    const QString noted = m_office.database.value(u"SELECT CONCAT(sTable,' ',sValues) FROM Changes ORDER BY iID DESC LIMIT 1"_s);
    QVERIFY2(noted.startsWith(u"Properties:Company"_s) && noted.contains(u"10×12"_s), qPrintable(noted));
}

static const RegisteredTest<TestCDlgOfficeLogo, QApplication> registeredOfficeLogo;
#include "TestCDlgOfficeLogo.moc"

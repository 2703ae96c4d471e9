// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/image/KStaticImage.h"
#include "suite/utility/look/HostColors.h"
#include "tests/support/Hand.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/RegisteredTest.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestKStaticImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void emptyBoxSaysWhatToDo();
    void fileIsTakenAndTold();
    void refusedFileLeavesTheBoxAsItWas_data();
    void refusedFileLeavesTheBoxAsItWas();
    void keysOnAnEmptyBoxAskForAFile_data();
    void keysOnAnEmptyBoxAskForAFile();
    void doubleClickOnAnEmptyBoxAsksForAFile();
    void pasteTakesImageData();
    void pasteTakesAFileAddress();
    void pasteOfSeveralFilesIsRefused();
    void pasteOfAnAddressOfTheNetworkFetchesNothing();
    void pasteWithoutAPictureIsTold();
    void copyGivesThePicture();
    void deleteEmptiesTheBox();
    void readOnlyBoxTakesNothing();
    void dropOfImageDataAndOfOneFile();
    void dropOfSomethingElseIsNotAccepted();
    void enterOnAFilledBoxShowsItLargeAndEscCloses();
    void savedBytesAreThoseThatAreShown();
    void brokenStoredPictureIsShownAsSuchAndNotLost();
    void brokenStoredPictureMayBeReplaced();
    void loadingIsNoChange();
    void menuOffersWhatIsPossible();
    void screenReaderLearnsNameStateAndAction();
    void pictureKeepsItsAspectAndIsSharpOnEveryScreen();
    void smallPictureIsNotBlownUp();
    void frameTellsWhatTheBoxTakes_data();
    void frameTellsWhatTheBoxTakes();

private:
    static void show(KStaticImage &box);
    QString file(const QString &name, const QByteArray &bytes) const;
    static QStringList menuOf(KStaticImage &box, bool enabledOnly);

    QTemporaryDir m_folder;
};

void TestKStaticImage::initTestCase()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestKStaticImage::init()
{
    g_pDlgWarning->answerAll(false);
    g_pDlgWarning->answerAll(true);
    QApplication::clipboard()->clear();
}

void TestKStaticImage::show(KStaticImage &box)
{
    box.resize(240, 180);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    box.setFocus();
}

QString TestKStaticImage::file(const QString &name, const QByteArray &bytes) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the file could not be written");
    return file.fileName();
}

void TestKStaticImage::emptyBoxSaysWhatToDo()
{
    KStaticImage box;
    QVERIFY(box.isEmpty() && !box.isBroken() && !box.isModified());
    QVERIFY(box.stateText().contains(u"دوبار کلیک"_s));
    box.setReadOnly(true);
    QCOMPARE(box.stateText(), u"بدون تصویر"_s);
}

void TestKStaticImage::fileIsTakenAndTold()
{
    KStaticImage box;
    QSignalSpy changed(&box, &KStaticImage::changed);
    QVERIFY(box.takeFile(file(u"car.jpg"_s, PictureFiles::jpeg(80, 40))));
    QCOMPARE(changed.count(), 1);
    QVERIFY(box.isModified());
    QCOMPARE(box.image().size(), QSize(80, 40));
}

void TestKStaticImage::refusedFileLeavesTheBoxAsItWas_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("told");
    QTest::newRow("a broken picture") << PictureFiles::jpeg(200, 100).left(600) << "خراب";
    QTest::newRow("a wrong kind") << PictureFiles::written(PictureFiles::redAndBlue(9, 9), "bmp") << "JPEG یا PNG یا WebP";
    QTest::newRow("too many bytes") << QByteArray(PictureIntake::maxBytes + 1, 'x') << "20 مگابایت";
    QTest::newRow("too many pixels") << PictureFiles::pngPromising(20000, 20000) << "64 مگاپیکسل";
}

void TestKStaticImage::refusedFileLeavesTheBoxAsItWas()
{
    QFETCH(QByteArray, data);
    QFETCH(QString, told);
    KStaticImage box;
    QVERIFY(box.takeFile(file(u"good.jpg"_s, PictureFiles::jpeg(80, 40))));
    const QByteArray before = box.bytes();
    QSignalSpy changed(&box, &KStaticImage::changed);
    QVERIFY(!box.takeFile(file(u"bad.jpg"_s, data)));
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown.constFirst().contains(told), qPrintable(shown.constFirst()));
    QCOMPARE(box.bytes(), before);
    QCOMPARE(box.image().size(), QSize(80, 40));
    QCOMPARE(changed.count(), 0);
}

void TestKStaticImage::keysOnAnEmptyBoxAskForAFile_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Enter") << Qt::Key_Return;
    QTest::newRow("Enter of the number pad") << Qt::Key_Enter;
    QTest::newRow("Space") << Qt::Key_Space;
}

void TestKStaticImage::keysOnAnEmptyBoxAskForAFile()
{
    QFETCH(Qt::Key, key);
    KStaticImage box;
    show(box);
    const QString path = file(u"chosen.png"_s, PictureFiles::seeThroughPng(30, 20));
    Hand::inNextWindow([&](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        QVERIFY(files);
        files->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(path);
        static_cast<QDialog *>(files)->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open)->click();
    });
    QTest::keyClick(&box, key);
    QCOMPARE(box.image().size(), QSize(30, 20));
}

void TestKStaticImage::doubleClickOnAnEmptyBoxAsksForAFile()
{
    KStaticImage box;
    show(box);
    bool asked = false;
    Hand::inNextWindow([&](QDialog *dialog) { asked = qobject_cast<QFileDialog *>(dialog) != nullptr; });
    QTest::mouseDClick(&box, Qt::LeftButton);
    QVERIFY(asked);
    QVERIFY(box.isEmpty());
}

void TestKStaticImage::pasteTakesImageData()
{
    KStaticImage box;
    show(box);
    QApplication::clipboard()->setImage(PictureFiles::redAndBlue(50, 40));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(box.image().size(), QSize(50, 40));

    auto *encoded = new QMimeData;
    encoded->setData(u"image/jpeg"_s, PictureFiles::withExif(PictureFiles::jpeg(80, 40), 6));
    QApplication::clipboard()->setMimeData(encoded);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(box.image().size(), QSize(40, 80));
}

void TestKStaticImage::pasteTakesAFileAddress()
{
    KStaticImage box;
    show(box);
    auto *address = new QMimeData;
    address->setUrls({QUrl::fromLocalFile(file(u"تصویر خودرو.webp"_s,
                                               PictureFiles::written(PictureFiles::redAndBlue(70, 30), "webp")))});
    QApplication::clipboard()->setMimeData(address);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(box.image().size(), QSize(70, 30));
}

void TestKStaticImage::pasteOfSeveralFilesIsRefused()
{
    KStaticImage box;
    QMimeData two;
    const QUrl url = QUrl::fromLocalFile(file(u"one.jpg"_s, PictureFiles::jpeg(20, 20)));
    two.setUrls({url, QUrl::fromLocalFile(m_folder.filePath(u"two.jpg"_s))});
    QVERIFY(!box.takeMimeData(&two));
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"هر بار فقط یک تصویر پذیرفته می شود."_s});
    QVERIFY(box.isEmpty());
}

void TestKStaticImage::pasteOfAnAddressOfTheNetworkFetchesNothing()
{
    KStaticImage box;
    QMimeData address;
    address.setUrls({QUrl(u"http://127.0.0.1:9/car.jpg"_s)});
    QVERIFY(!box.takeMimeData(&address));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QVERIFY(box.isEmpty());
    // A browser sends the picture along with its address.
    address.setImageData(PictureFiles::redAndBlue(20, 10));
    QVERIFY(box.takeMimeData(&address));
    QCOMPARE(box.image().size(), QSize(20, 10));
}

void TestKStaticImage::pasteWithoutAPictureIsTold()
{
    KStaticImage box;
    show(box);
    QApplication::clipboard()->setText(u"متن"_s);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تصویری برای چسباندن وجود ندارد."_s});
    QVERIFY(box.isEmpty() && !box.isModified());
}

void TestKStaticImage::copyGivesThePicture()
{
    KStaticImage box;
    show(box);
    QVERIFY(box.takeFile(file(u"c.png"_s, PictureFiles::seeThroughPng(30, 20))));
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(30, 20));
    QCOMPARE(QApplication::clipboard()->image().pixelColor(15, 10).alpha(), 0);
}

void TestKStaticImage::deleteEmptiesTheBox()
{
    KStaticImage box;
    show(box);
    QVERIFY(box.takeFile(file(u"d.jpg"_s, PictureFiles::jpeg(30, 20))));
    QSignalSpy changed(&box, &KStaticImage::changed);
    QTest::keyClick(&box, Qt::Key_Delete);
    QVERIFY(box.isEmpty() && box.isModified());
    QCOMPARE(changed.count(), 1);
    // Nothing is left to delete.
    QTest::keyClick(&box, Qt::Key_Delete);
    QCOMPARE(changed.count(), 1);
}

void TestKStaticImage::readOnlyBoxTakesNothing()
{
    KStaticImage box;
    const QByteArray stored = PictureFiles::jpeg(30, 20);
    box.load(stored);
    box.setReadOnly(true);
    show(box);
    QSignalSpy changed(&box, &KStaticImage::changed);
    QApplication::clipboard()->setImage(PictureFiles::redAndBlue(50, 40));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QVERIFY(!box.takeFile(file(u"r.jpg"_s, PictureFiles::jpeg(9, 9))));
    QVERIFY(!box.clear());
    QVERIFY(!box.acceptDrops());
    QCOMPARE(box.bytes(), stored);
    QCOMPARE(changed.count(), 0);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    // What it holds can still be copied.
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->image().size(), QSize(30, 20));
}

void TestKStaticImage::dropOfImageDataAndOfOneFile()
{
    KStaticImage box;
    show(box);
    const auto drop = [&box](const QMimeData &data) {
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&box, &enter);
        QVERIFY(enter.isAccepted());
        QCOMPARE(enter.dropAction(), Qt::CopyAction);
        QDropEvent event(QPointF(20, 20), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&box, &event);
        QCOMPARE(event.dropAction(), Qt::CopyAction);
    };
    QMimeData image;
    image.setImageData(PictureFiles::redAndBlue(50, 40));
    drop(image);
    QCOMPARE(box.image().size(), QSize(50, 40));
    QMimeData one;
    one.setUrls({QUrl::fromLocalFile(file(u"drop.jpg"_s, PictureFiles::jpeg(60, 20)))});
    drop(one);
    QCOMPARE(box.image().size(), QSize(60, 20));

    QMimeData bad;
    bad.setUrls({QUrl::fromLocalFile(file(u"drop.txt"_s, "text"))});
    drop(bad);
    // The source of the drop is released before the message.
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QCOMPARE(box.image().size(), QSize(60, 20));
}

void TestKStaticImage::dropOfSomethingElseIsNotAccepted()
{
    KStaticImage box;
    show(box);
    QMimeData text;
    text.setText(u"متن"_s);
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&box, &enter);
    QVERIFY(!enter.isAccepted());
}

void TestKStaticImage::enterOnAFilledBoxShowsItLargeAndEscCloses()
{
    KStaticImage box;
    box.setAccessibleName(u"تصویر خودرو :"_s);
    box.load(PictureFiles::jpeg(1200, 300));
    box.setReadOnly(true);
    show(box);
    int windows = 0;
    const auto look = [&](QDialog *dialog) {
        ++windows;
        QCOMPARE(dialog->windowTitle(), u"تصویر خودرو"_s);
        dialog->resize(800, 800);
        const QImage shown = dialog->grab().toImage();
        // As wide as the window, a quarter as high, in the middle of what the commands leave.
        QVERIFY(shown.pixelColor(5, 370).red() > 150);
        QVERIFY(shown.pixelColor(795, 370).blue() > 150);
        QCOMPARE(shown.pixelColor(5, 200), shown.pixelColor(795, 540));
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
    };
    Hand::inNextWindow(look);
    QTest::keyClick(&box, Qt::Key_Return);
    Hand::inNextWindow(look);
    QTest::mouseDClick(&box, Qt::LeftButton);
    QCOMPARE(windows, 2);
}

void TestKStaticImage::savedBytesAreThoseThatAreShown()
{
    KStaticImage box;
    KLongBinary value;
    value.data = "before";
    SaveKStaticImageToLongBinary(box, value);
    QVERIFY(value.isEmpty());
    QVERIFY(box.takeFile(file(u"s.jpg"_s, PictureFiles::jpeg(2000, 1000))));
    SaveKStaticImageToLongBinary(box, value);
    QCOMPARE(QImage::fromData(value.data).size(), QSize(1600, 800));

    KStaticImage next;
    LoadKStaticImageFromLongBinary(next, value);
    QCOMPARE(next.bytes(), value.data);
    QCOMPARE(next.image().size(), QSize(1600, 800));
    LoadKStaticImageFromLongBinary(next, {});
    QVERIFY(next.isEmpty() && next.image().isNull());
}

void TestKStaticImage::brokenStoredPictureIsShownAsSuchAndNotLost()
{
    const KLongBinary stored{QByteArray("no picture at all")};
    KStaticImage box;
    LoadKStaticImageFromLongBinary(box, stored);
    QVERIFY(box.isBroken() && !box.isEmpty());
    QVERIFY(box.stateText().contains(u"قابل نمایش نیست"_s));
    KLongBinary saved;
    SaveKStaticImageToLongBinary(box, saved);
    QCOMPARE(saved, stored);
    // A refused picture does not cost it either.
    QVERIFY(!box.takeFile(file(u"x.txt"_s, "text")));
    SaveKStaticImageToLongBinary(box, saved);
    QCOMPARE(saved, stored);
}

void TestKStaticImage::brokenStoredPictureMayBeReplaced()
{
    KStaticImage box;
    box.load("no picture at all");
    QVERIFY(box.takeFile(file(u"new.jpg"_s, PictureFiles::jpeg(20, 20))));
    QVERIFY(!box.isBroken());
    box.load("no picture at all");
    QVERIFY(box.clear());
    QVERIFY(box.isEmpty());
}

void TestKStaticImage::loadingIsNoChange()
{
    KStaticImage box;
    QSignalSpy changed(&box, &KStaticImage::changed);
    // Also one that was stored larger than pictures are kept today stays as it is.
    const QByteArray large = PictureFiles::jpeg(2000, 1000);
    box.load(large);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!box.isModified());
    QCOMPARE(box.bytes(), large);
}

QStringList TestKStaticImage::menuOf(KStaticImage &box, bool enabledOnly)
{
    QStringList entries;
    QTimer::singleShot(0, &box, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (const QAction *action : menu->actions())
            if (!action->isSeparator() && (!enabledOnly || action->isEnabled()))
                entries.append(action->text());
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, box.rect().center(), box.mapToGlobal(box.rect().center()));
    QApplication::sendEvent(&box, &event);
    return entries;
}

void TestKStaticImage::menuOffersWhatIsPossible()
{
    KStaticImage box;
    show(box);
    const QString choose = u"انتخاب تصویر از فایل"_s;
    QCOMPARE(menuOf(box, true), QStringList{choose});
    box.load(PictureFiles::jpeg(30, 20));
    QApplication::clipboard()->setImage(PictureFiles::redAndBlue(5, 5));
    const QStringList all{u"نمایش بزرگ"_s, u"کپی"_s, choose, u"چسباندن"_s,
                          u"حذف تصویر"_s};
    QCOMPARE(menuOf(box, true), all);
    box.setReadOnly(true);
    QCOMPARE(menuOf(box, false), all.mid(0, 2));
}

void TestKStaticImage::screenReaderLearnsNameStateAndAction()
{
    KStaticImage box;
    box.setAccessibleName(u"تصویر خودرو"_s);
    show(box);
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&box);
    QCOMPARE(reader->role(), QAccessible::Graphic);
    QCOMPARE(reader->text(QAccessible::Name), u"تصویر خودرو"_s);
    QCOMPARE(reader->text(QAccessible::Description), box.stateText());
    QVERIFY(reader->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    bool asked = false;
    Hand::inNextWindow([&](QDialog *dialog) { asked = qobject_cast<QFileDialog *>(dialog) != nullptr; });
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_VERIFY(asked);
}

void TestKStaticImage::pictureKeepsItsAspectAndIsSharpOnEveryScreen()
{
    KStaticImage box;
    box.load(PictureFiles::jpeg(1200, 300));
    box.resize(212, 212);
    for (const qreal ratio : {1.0, 2.0}) {
        QImage shown(box.size() * ratio, QImage::Format_RGB32);
        shown.setDevicePixelRatio(ratio);
        box.render(&shown);
        const auto at = [&](int x, int y) { return shown.pixelColor(int(x * ratio), int(y * ratio)); };
        // 200 wide and 50 high in the middle: red and blue there, neither above it.
        QVERIFY(at(20, 106).red() > 150 && at(190, 106).blue() > 150);
        QVERIFY(at(20, 85).red() > 150);
        QCOMPARE(at(20, 70), at(190, 140));
    }
}

void TestKStaticImage::smallPictureIsNotBlownUp()
{
    KStaticImage box;
    box.load(PictureFiles::jpeg(40, 40));
    box.resize(200, 200);
    const QImage shown = box.grab().toImage();
    QVERIFY(shown.pixelColor(90, 100).red() > 150 && shown.pixelColor(110, 100).blue() > 150);
    QCOMPARE(shown.pixelColor(60, 100), shown.pixelColor(140, 100));
}

void TestKStaticImage::frameTellsWhatTheBoxTakes_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void TestKStaticImage::frameTellsWhatTheBoxTakes()
{
    using Role = HostColors::Role;
    QFETCH(bool, dark);
    HostColors::setLook(dark ? HostColors::Look::Dark : HostColors::Look::Light);
    const auto back = qScopeGuard([] { HostColors::setLook(HostColors::Look::Light); });
    QWidget window;
    auto *other = new QLineEdit(&window);
    auto *box = new KStaticImage(&window);
    box->setGeometry(0, 40, 200, 100);
    window.resize(200, 140);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto at = [box](int x) { return box->grab().toImage().pixelColor(x, 50); };
    other->setFocus();
    QCOMPARE(at(0), HostColors::of(Role::Edge));
    QCOMPARE(at(3), HostColors::of(Role::Surface));
    box->setFocus();
    QCOMPARE(at(0), HostColors::of(Role::Accent));
    QCOMPARE(at(1), HostColors::of(Role::Accent));
    box->setReadOnly(true);
    QCOMPARE(at(0), HostColors::of(Role::Accent));
    other->setFocus();
    QCOMPARE(at(0), HostColors::of(Role::Sunken));
}

static const RegisteredTest<TestKStaticImage, QApplication> registeredKStaticImage;
#include "TestKStaticImage.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/image/CDlgCameraFolder.h"
#include "suite/image/KStaticImage.h"
#include "suite/image/PictureStrip.h"
#include "suite/image/PictureThumbs.h"
#include "suite/utility/values/KSettings.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/RegisteredTest.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// The strip by itself, with the box beside it and no record behind it.
class TestPictureStrip : public QObject
{
    Q_OBJECT

    struct Window : QWidget
    {
        KStaticImage *box = new KStaticImage(this);
        PictureStrip *strip = new PictureStrip(box, this);

        Window()
        {
            strip->setGeometry(0, 0, 400, 200);
            resize(700, 200);
            box->setGeometry(400, 0, 240, 180);
            show();
        }
        PictureThumbs &thumbs() const { return *strip->thumbs(); }
        QString names() const
        {
            QStringList names;
            for (const auto &picture : strip->change().wanted)
                names.append(picture.name);
            return names.join(u' ');
        }
    };

    QTemporaryDir m_folder;

    QString file(const QString &name, const QByteArray &bytes) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the file could not be written");
        return file.fileName();
    }

    QStringList files(const QStringList &names) const
    {
        QStringList paths;
        for (const QString &name : names)
            paths.append(file(name, PictureFiles::jpeg(40, 30)));
        return paths;
    }

    static QString told()
    {
        QCoreApplication::processEvents();
        return g_pDlgWarning->takeShown().join(u"||"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        setSettingsFile(m_folder.filePath(u"settings.ini"_s));
    }

    void init()
    {
        g_pDlgWarning->answerAll(true);
        g_pDlgWarning->takeShown();
        QApplication::clipboard()->clear();
    }

    void manyFilesAtOnceStandInTheirOrder()
    {
        Window window;
        QVERIFY(window.strip->takeFiles(files({u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s})));
        QVERIFY(!window.box->isEmpty());
        QCOMPARE(window.names(), u"b.jpg c.jpg"_s);
        QCOMPARE(told(), QString());
    }

    void hostileFilesAreToldInOneMessageAndTheOthersTaken_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("told");
        QTest::newRow("a text") << QByteArray("no picture") << u"از نوع پذیرفته شده نیست"_s;
        QTest::newRow("nothing") << QByteArray() << u"از نوع پذیرفته شده نیست"_s;
        QTest::newRow("cut off") << PictureFiles::jpeg(400, 300).left(900) << u"خراب"_s;
        QTest::newRow("a program in a picture's name") << QByteArray("MZ\x90\0\3\0\0\0", 8) << u"از نوع پذیرفته شده نیست"_s;
        QTest::newRow("drawn by commands") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>") << u"از نوع پذیرفته شده نیست"_s;
        QTest::newRow("too large a file") << (PictureFiles::jpeg(40, 30) + QByteArray(PictureIntake::maxBytes, 'x')) << u"20 مگابایت"_s;
    }

    void hostileFilesAreToldInOneMessageAndTheOthersTaken()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, told);
        Window window;
        const QStringList paths{files({u"a.jpg"_s}).constFirst(), file(u"bad.jpg"_s, bytes), files({u"c.jpg"_s}).constFirst(), m_folder.filePath(u"missing.jpg"_s)};
        QVERIFY(window.strip->takeFiles(paths));
        QCOMPARE(window.names(), u"c.jpg"_s);
        const QString message = TestPictureStrip::told();
        QVERIFY2(message.contains(told) && message.contains(u"bad.jpg"_s) && message.contains(u"missing.jpg: فایل تصویر خوانده نشد."_s) && !message.contains(u"||"_s), qPrintable(message));
    }

    void moreThanTheLimitAreToldOnce()
    {
        Window window;
        const QString path = files({u"a.jpg"_s}).constFirst();
        QVERIFY(window.strip->takeFiles(QStringList(RecordPictures::most + 4, path)));
        QCOMPARE(window.strip->count(), RecordPictures::most);
        const QString message = told();
        QVERIFY2(message.contains(u"بیش از 30 تصویر"_s) && message.contains(u"3 تصویر افزوده نشد"_s), qPrintable(message));
        QVERIFY(!window.strip->takeFiles({path}));
        window.strip->undo();
        QCOMPARE(window.strip->count(), 0);
        QVERIFY(window.box->isEmpty());
    }

    void keysOrderRemoveAndTakeBack()
    {
        Window window;
        window.strip->takeFiles(files({u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s, u"d.jpg"_s}));
        PictureThumbs &thumbs = window.thumbs();
        thumbs.setFocus();
        thumbs.setCurrentRow(0);
        QTest::keyClick(&thumbs, Qt::Key_Left, Qt::ControlModifier);
        QCOMPARE(window.names(), u"c.jpg b.jpg d.jpg"_s);
        QTest::keyClick(&thumbs, Qt::Key_Left, Qt::ControlModifier);
        QCOMPARE(window.names(), u"c.jpg d.jpg b.jpg"_s);
        QTest::keyClick(&thumbs, Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(window.names(), u"c.jpg b.jpg d.jpg"_s);
        QTest::keyClick(&thumbs, Qt::Key_Delete);
        QCOMPARE(window.names(), u"c.jpg d.jpg"_s);
        QTest::keyClick(&thumbs, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(window.names(), u"c.jpg a.jpg"_s);
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(&thumbs, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(window.names(), u"b.jpg c.jpg d.jpg"_s);
    }

    void draggedPictureGoesWhereItIsLetGo_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("upon");    // the picture below the mouse
        QTest::addColumn<double>("part"); // of its width from where one begins to read; beyond 1 in the gap behind it
        QTest::addColumn<QString>("names");
        QTest::newRow("behind the next") << 0 << 1 << 0.8 << u"c.jpg b.jpg d.jpg"_s;
        QTest::newRow("before the first") << 2 << 0 << 0.2 << u"d.jpg b.jpg c.jpg"_s;
        QTest::newRow("between two") << 2 << 0 << 1.01 << u"b.jpg d.jpg c.jpg"_s;
        QTest::newRow("where it was") << 1 << 1 << 0.4 << u"b.jpg c.jpg d.jpg"_s;
        QTest::newRow("behind the last") << 0 << 2 << 1.2 << u"c.jpg d.jpg b.jpg"_s;
    }

    void draggedPictureGoesWhereItIsLetGo()
    {
        QFETCH(int, from);
        QFETCH(int, upon);
        QFETCH(double, part);
        Window window;
        window.strip->setGeometry(0, 0, 690, 200);
        window.strip->takeFiles(files({u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s, u"d.jpg"_s}));
        PictureThumbs &thumbs = window.thumbs();
        const QRect target = thumbs.visualItemRect(thumbs.item(upon));
        Q_EMIT thumbs.moveAsked(from, thumbs.rowBefore(QPoint(target.right() - int(part * target.width()), target.center().y())));
        QTEST(window.names(), "names");
        const QString before = u"b.jpg c.jpg d.jpg"_s;
        if (window.names() != before)
            window.strip->undo();
        QCOMPARE(window.names(), before);
    }

    // Right is before left.
    void arrowsWalkAsOneReads()
    {
        Window window;
        window.strip->takeFiles(files({u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}));
        PictureThumbs &thumbs = window.thumbs();
        QVERIFY(thumbs.visualItemRect(thumbs.item(0)).left() > thumbs.visualItemRect(thumbs.item(1)).left());
        thumbs.setFocus();
        thumbs.setCurrentRow(0);
        QTest::keyClick(&thumbs, Qt::Key_Left);
        QCOMPARE(thumbs.currentRow(), 1);
        QTest::keyClick(&thumbs, Qt::Key_Right);
        QCOMPARE(thumbs.currentRow(), 0);
    }

    void dropAndPasteAdd()
    {
        Window window;
        QMimeData several;
        QList<QUrl> urls;
        for (const QString &path : files({u"a.jpg"_s, u"b.jpg"_s}))
            urls.append(QUrl::fromLocalFile(path));
        several.setUrls(urls);
        const auto drop = [&several](QWidget *target) {
            QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &several, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &enter);
            QVERIFY(enter.isAccepted());
            QDropEvent event(QPointF(20, 20), Qt::CopyAction, &several, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &event);
        };
        drop(window.thumbs().viewport());
        QCOMPARE(window.names(), u"b.jpg"_s);
        // On the box too, which takes one alone by itself.
        drop(window.box);
        QCOMPARE(window.names(), u"b.jpg a.jpg b.jpg"_s);
        QApplication::clipboard()->setImage(PictureFiles::redAndBlue(50, 40));
        window.thumbs().setFocus();
        QTest::keyClick(&window.thumbs(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(window.strip->count(), 4);
        QCOMPARE(told(), QString());
    }

    void readOnlyStripTakesNothing()
    {
        Window window;
        window.strip->takeFiles(files({u"a.jpg"_s, u"b.jpg"_s}));
        window.strip->setReadOnly(true);
        QVERIFY(!window.strip->takeFiles(files({u"c.jpg"_s})));
        QTest::keyClick(&window.thumbs(), Qt::Key_Delete);
        window.strip->undo();
        QCOMPARE(window.names(), u"b.jpg"_s);
        for (const QPushButton *button : window.strip->findChildren<QPushButton *>())
            QVERIFY(!button->isVisible());
    }

    void screenReaderLearnsEachName()
    {
        Window window;
        window.strip->takeFiles(files({u"a.jpg"_s, u"b.jpg"_s}));
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(&window.thumbs());
        QVERIFY(reader);
        QCOMPARE(reader->text(QAccessible::Name), u"تصویرهای دیگر"_s);
        QCOMPARE(reader->childCount(), 1);
        QCOMPARE(reader->child(0)->text(QAccessible::Name), u"b.jpg"_s);
    }

    void cameraFolderOffersTheNewestFirstAndGivesTheTicked()
    {
        const QTemporaryDir camera;
        const QDateTime now = QDateTime::currentDateTime();
        for (int age = 0; age < 3; ++age) {
            QFile file(camera.filePath(u"IMG%1.jpg"_s.arg(age)));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(PictureFiles::jpeg(40, 30));
            file.flush();
            QVERIFY(file.setFileTime(now.addDays(-age), QFileDevice::FileModificationTime));
        }
        CDlgCameraFolder dialog;
        dialog.setFolder(camera.path());
        dialog.show();
        PictureThumbs &thumbs = *dialog.thumbs();
        QCOMPARE(thumbs.count(), 3);
        QCOMPARE(thumbs.item(0)->toolTip(), u"IMG0.jpg"_s);
        dialog.accept();
        QVERIFY(dialog.isVisible());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تصویری انتخاب نشده است."_s});
        thumbs.setCurrentRow(0);
        QTest::keyClick(&thumbs, Qt::Key_Return);
        QTest::mouseClick(thumbs.viewport(), Qt::LeftButton, {}, thumbs.visualItemRect(thumbs.item(2)).center());
        QCOMPARE(dialog.ticked(), (QStringList{camera.filePath(u"IMG2.jpg"_s), camera.filePath(u"IMG0.jpg"_s)}));
        dialog.accept();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(CDlgCameraFolder::rememberedFolder(), camera.path());
    }
};

static const RegisteredTest<TestPictureStrip, QApplication> registeredPictureStrip;

#include "TestPictureStrip.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/image/CDlgPictureViewer.h"
#include "suite/image/PictureCanvas.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

class TestCDlgPictureViewer : public QObject
{
    Q_OBJECT

    static QList<CDlgPictureViewer::Picture> three()
    {
        return {{{}, [] { return PictureFiles::jpeg(400, 200); }},
                {u"پشت.jpg"_s, [] { return PictureFiles::seeThroughPng(30, 60); }},
                {u"gone.jpg"_s, [] { return QByteArray(); }}};
    }

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }

    void keysWalkAsOneReads_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<int>("place");
        QTest::newRow("left") << QList<int>{Qt::Key_Left} << 1;
        QTest::newRow("left, right") << QList<int>{Qt::Key_Left, Qt::Key_Right} << 0;
        QTest::newRow("not before the first") << QList<int>{Qt::Key_Right} << 0;
        QTest::newRow("end") << QList<int>{Qt::Key_End} << 2;
        QTest::newRow("not behind the last") << QList<int>{Qt::Key_End, Qt::Key_Left} << 2;
        QTest::newRow("end, home") << QList<int>{Qt::Key_End, Qt::Key_Home} << 0;
        QTest::newRow("pages") << QList<int>{Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageUp} << 1;
    }

    void keysWalkAsOneReads()
    {
        QFETCH(QList<int>, keys);
        QFETCH(int, place);
        CDlgPictureViewer viewer(three(), u"عکس :"_s, 0, nullptr);
        viewer.show();
        QVERIFY(QTest::qWaitForWindowActive(&viewer));
        QCOMPARE(viewer.windowTitle(), u"عکس"_s);
        for (const int key : keys)
            QTest::keyClick(&viewer, Qt::Key(key));
        QCOMPARE(viewer.current(), place);
        QVERIFY(viewer.place().endsWith(u"%1 از 3"_s.arg(place + 1)));
        QCOMPARE(viewer.place().contains(u".jpg"_s), place > 0);
    }

    void keysAndWheelZoom()
    {
        CDlgPictureViewer viewer(three(), u"عکس"_s, 0, nullptr);
        viewer.show();
        QVERIFY(QTest::qWaitForWindowActive(&viewer));
        PictureCanvas &canvas = *viewer.canvas();
        const QRect fitted = canvas.pictureRect();
        QCOMPARE(fitted.width(), canvas.width());
        QTest::keyClick(&viewer, Qt::Key_Minus);
        QCOMPARE(canvas.pictureRect(), fitted);
        QTest::keyClick(&viewer, Qt::Key_Plus);
        QVERIFY(canvas.pictureRect().width() > fitted.width());
        QTest::keyClick(&viewer, Qt::Key_Minus);
        QCOMPARE(canvas.pictureRect(), fitted);
        const auto wheel = [&](int turn) {
            QWheelEvent event(QPointF(10, 10), canvas.mapToGlobal(QPointF(10, 10)), {}, {0, turn}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&canvas, &event);
        };
        for (int i = 0; i < 40; ++i)
            wheel(120);
        QVERIFY(canvas.pictureRect().width() <= canvas.image().width() * 8);
        QVERIFY(canvas.pictureRect().contains(canvas.rect()));
        // Not beyond its own edge.
        QTest::mousePress(&canvas, Qt::LeftButton, {}, {100, 100});
        QTest::mouseMove(&canvas, {600, 300});
        QVERIFY(canvas.pictureRect().contains(canvas.rect()));
        QTest::keyClick(&viewer, Qt::Key_0);
        QCOMPARE(canvas.pictureRect(), fitted);
    }

    void nextPictureFitsAgain()
    {
        CDlgPictureViewer viewer(three(), u"عکس"_s, 0, nullptr);
        viewer.show();
        viewer.canvas()->enlarge();
        viewer.goTo(1);
        QVERIFY(viewer.canvas()->isFitted());
    }

    void goneOrBrokenPictureIsSaidAndOffersNothing()
    {
        CDlgPictureViewer viewer({{{}, [] { return QByteArray("broken"); }}}, u"عکس"_s, 0, nullptr);
        viewer.show();
        QVERIFY(viewer.canvas()->image().isNull());
        for (const QPushButton *button : viewer.findChildren<QPushButton *>())
            QCOMPARE(button->isVisible() && button->isEnabled(), button->text() == u"بازگشت"_s);
        viewer.chooseFileAndSave();
        viewer.print();
    }

    void escLeavesTheFullScreenAndThenTheWindow()
    {
        CDlgPictureViewer viewer(three(), u"عکس"_s, 0, nullptr);
        viewer.show();
        QVERIFY(QTest::qWaitForWindowActive(&viewer));
        QTest::keyClick(&viewer, Qt::Key_F11);
        QVERIFY(viewer.isFullScreen());
        QTest::keyClick(&viewer, Qt::Key_Escape);
        QVERIFY(viewer.isVisible() && !viewer.isFullScreen());
        QTest::keyClick(&viewer, Qt::Key_Escape);
        QVERIFY(!viewer.isVisible());
    }

    void savedFileIsWhatIsStored()
    {
        const QTemporaryDir folder;
        CDlgPictureViewer viewer(three(), u"خودرو 12/3"_s, 1, nullptr);
        QCOMPARE(viewer.fileName(), u"پشت.png"_s);
        QVERIFY(viewer.saveAs(folder.filePath(viewer.fileName())));
        QFile file(folder.filePath(u"پشت.png"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), PictureFiles::seeThroughPng(30, 60));
        viewer.goTo(0);
        QCOMPARE(viewer.fileName(), u"خودرو 12_3 1.jpg"_s);
        g_pDlgWarning->answerAll(true);
        g_pDlgWarning->takeShown();
        QVERIFY(!viewer.saveAs(folder.filePath(u"missing/a.jpg"_s)));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }
};

static const RegisteredTest<TestCDlgPictureViewer, QApplication> registeredPictureViewer;

#include "TestCDlgPictureViewer.moc"

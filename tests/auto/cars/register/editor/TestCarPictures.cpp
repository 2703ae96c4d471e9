// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/image/KStaticImage.h"
#include "suite/image/PictureStrip.h"
#include "tests/auto/cars/register/editor/CarEditorOffice.h"
#include "tests/office/OtherDesk.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/RegisteredTest.h"

#include <QMimeData>

using namespace Qt::StringLiterals;

// The several pictures of a car, from the editor to the tables, at one desk and at two.
class TestCarPictures : public QObject
{
    Q_OBJECT

    using Car = CTblAutomobilInformations;
    using Dialog = CDlgAddAutomobilInformation;

    std::unique_ptr<CarEditorOffice> m_office;
    std::unique_ptr<OtherDesk> m_other;
    int m_car = 0;

    static PictureStrip &strip(const Dialog &dialog) { return *dialog.basePage()->furtherPictures(); }
    static KStaticImage &box(const Dialog &dialog) { return *dialog.basePage()->picture(); }
    std::unique_ptr<Dialog> opened(EditorMode mode = EditorMode::Edit) { return CarEditorOffice::opened(m_car, mode); }

    static QImage colour(Qt::GlobalColor color)
    {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(color);
        return image;
    }

    static void add(Dialog &dialog, Qt::GlobalColor color)
    {
        QMimeData copied;
        copied.setImageData(colour(color));
        QVERIFY(strip(dialog).takeMimeData(&copied));
    }

    static QString letterOf(const QByteArray &bytes)
    {
        const QColor color = PictureIntake::decode(bytes).pixelColor(20, 15);
        return bytes.isEmpty() ? u"-"_s : color.red() > 200 ? (color.green() > 200 ? u"Y"_s : u"R"_s)
            : color.green() > 200                           ? u"G"_s
                                                            : u"B"_s;
    }

    // A letter for each picture as it is stored, the car's own first: R G B Y, - without one.
    QString stored()
    {
        QString letters = letterOf(RecordPictures::bytes(Car::recordKind, m_car, 0)) + u'|';
        for (const auto &picture : RecordPictures::further(Car::recordKind, m_car))
            letters += letterOf(RecordPictures::bytes(Car::recordKind, m_car, picture.id));
        return letters;
    }

    void save(Dialog &dialog)
    {
        dialog.accept();
        QVERIFY2(!dialog.isVisible(), qPrintable(g_pDlgWarning->takeShown().join(u'|')));
    }

    // Red is the car's own, green and blue follow.
    void fillCar()
    {
        auto dialog = opened();
        for (const Qt::GlobalColor color : {Qt::red, Qt::green, Qt::blue})
            add(*dialog, color);
        save(*dialog);
        QCOMPARE(stored(), u"R|GB"_s);
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<CarEditorOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->begin();
        m_office->database().run(u"DELETE FROM Pictures"_s);
        m_other = std::make_unique<OtherDesk>(*m_office, u"AutomobilInformations"_s);
        m_car = m_office->addOwnedCar([this](Car &car) { car.m_iUserID = m_office->adminID(); });
        g_pDlgWarning->takeShown();
        g_pDlgMessage->takeShown();
    }

    void firstAddedIsTheCarsOwn() { fillCar(); }

    void commandsAreSaved_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("result");
        QTest::newRow("made first") << u"first 1"_s << u"B|GR"_s;
        QTest::newRow("made first and back") << u"first 1,first 1"_s << u"R|GB"_s;
        QTest::newRow("two made first") << u"first 0,first 1"_s << u"B|RG"_s;
        QTest::newRow("moved") << u"move 1 0"_s << u"R|BG"_s;
        QTest::newRow("removed") << u"remove 0"_s << u"R|B"_s;
        QTest::newRow("removed and taken back") << u"remove 0,undo"_s << u"R|GB"_s;
        QTest::newRow("made first and taken back") << u"first 0,undo"_s << u"R|GB"_s;
        QTest::newRow("box emptied, then made first") << u"empty,first 0"_s << u"G|B"_s;
        QTest::newRow("box emptied") << u"empty"_s << u"-|GB"_s;
        QTest::newRow("box emptied and another added") << u"empty,add"_s << u"Y|GB"_s;
        QTest::newRow("made first, then another in the box") << u"first 0,paste"_s << u"Y|RB"_s;
        QTest::newRow("removed all") << u"remove 1,remove 0"_s << u"R|"_s;
        QTest::newRow("nothing there") << u"first 7,move 0 9,remove -1"_s << u"R|GB"_s;
    }

    void commandsAreSaved()
    {
        QFETCH(QString, command);
        QFETCH(QString, result);
        fillCar();
        auto dialog = opened();
        for (const QString &line : command.split(u',')) {
            const QStringList words = line.split(u' ');
            const int row = words.value(1).toInt();
            if (words.first() == u"first")
                strip(*dialog).makeFirst(row);
            else if (words.first() == u"move")
                strip(*dialog).move(row, words.value(2).toInt());
            else if (words.first() == u"remove")
                strip(*dialog).remove(row);
            else if (words.first() == u"undo")
                strip(*dialog).undo();
            else if (words.first() == u"empty")
                box(*dialog).clear();
            else if (words.first() == u"add")
                add(*dialog, Qt::yellow);
            else
                box(*dialog).replace(PictureFiles::written(colour(Qt::yellow), "PNG"));
        }
        save(*dialog);
        QCOMPARE(stored(), result);
    }

    void picturesOfBothDesksStay()
    {
        fillCar();
        auto mine = opened();
        m_other->saves([this] { return opened(); }, [](Dialog &there) { add(there, Qt::yellow); });
        strip(*mine).remove(0);
        add(*mine, Qt::red);
        save(*mine);
        QCOMPARE(stored(), u"R|BYR"_s);
        OtherDesk::compareTold(g_pDlgMessage->takeShown(), u"تصویرهای این خودرو را در این میان تغییر داده است"_s);
    }

    // What is taken from the other desk in the box costs no picture of the strip.
    void otherFirstPictureCostsNoneOfTheStrip_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("result");
        QTest::newRow("theirs") << int(CDlgRowConflict::Answer::TakeTheirs) << u"Y|RBG"_s;
        QTest::newRow("mine") << int(CDlgRowConflict::Answer::TakeMine) << u"G|RB"_s;
    }

    void otherFirstPictureCostsNoneOfTheStrip()
    {
        QFETCH(int, answer);
        QFETCH(QString, result);
        fillCar();
        auto mine = opened();
        m_other->saves([this] { return opened(); }, [](Dialog &there) { box(there).replace(PictureFiles::written(colour(Qt::yellow), "PNG")); });
        strip(*mine).makeFirst(0);
        CDlgRowConflict::answerNext(CDlgRowConflict::Answer(answer));
        save(*mine);
        QCOMPARE(stored(), result);
    }

    void carThatIsGoneKeepsItsPicturesAsANewOne()
    {
        fillCar();
        auto mine = opened();
        QTRY_VERIFY(strip(*mine).isRead());
        add(*mine, Qt::yellow);
        m_other->does([this] {
            Car car;
            CarEditorOffice::load(car, m_car).Delete();
        });
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Pictures"_s), u"0"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        save(*mine);
        m_car = mine->key();
        QCOMPARE(stored(), u"R|GBY"_s);
    }

    void carArchivedMeanwhileKeepsWhatItHad()
    {
        fillCar();
        auto mine = opened();
        add(*mine, Qt::yellow);
        m_other->does([] { Car::archive(1, GetDBSetting()->GetUserID()); });
        mine->accept();
        QVERIFY(mine->isVisible());
        QCOMPARE(strip(*mine).count(), 3);
        QCOMPARE(stored(), u"R|GB"_s);
        OtherDesk::compareTold(g_pDlgWarning->takeShown(), u"بایگانی کرده است."_s);
    }

    // The row is written before its pictures: nothing of it stays where they are refused.
    void refusedPicturesKeepTheWholeCarAsItWas()
    {
        fillCar();
        auto mine = opened();
        for (int i = 0; i < 20; ++i)
            add(*mine, Qt::yellow);
        mine->basePage()->form()->edit(u"sDesc"_s)->setText(u"توضیح"_s);
        m_other->saves([this] { return opened(); }, [](Dialog &there) {
            for (int i = 0; i < 20; ++i)
                add(there, Qt::blue); });
        mine->accept();
        QVERIFY(mine->isVisible());
        QVERIFY2(g_pDlgWarning->takeShown().join(u'|').contains(u"بیش از 30 تصویر"_s), "one message");
        QCOMPARE(strip(*mine).count(), 22);
        QCOMPARE(m_office->database().value(u"SELECT IFNULL(sDesc,'') FROM AutomobilInformations"_s), QString());
        QCOMPARE(RecordPictures::further(Car::recordKind, m_car).size(), 22);
    }

    void pressedTwiceSavesOnce()
    {
        auto mine = opened();
        add(*mine, Qt::red);
        add(*mine, Qt::green);
        mine->accept();
        mine->accept();
        QCOMPARE(stored(), u"R|G"_s);
    }

    void givenUpEditorLeavesNothing()
    {
        fillCar();
        auto mine = opened();
        add(*mine, Qt::yellow);
        strip(*mine).remove(0);
        QVERIFY(mine->holdsTypedWork());
        mine->cancel();
        QCOMPARE(stored(), u"R|GB"_s);
    }

    void shownCarOffersNoCommands()
    {
        fillCar();
        const auto shown = opened(EditorMode::Show);
        QCOMPARE(strip(*shown).count(), 2);
        strip(*shown).remove(0);
        strip(*shown).makeFirst(0);
        QMimeData copied;
        copied.setImageData(colour(Qt::blue));
        QVERIFY(!strip(*shown).takeMimeData(&copied));
        QCOMPARE(strip(*shown).count(), 2);
        for (const QPushButton *button : strip(*shown).findChildren<QPushButton *>())
            QVERIFY(!button->isVisible());
    }

    void historySaysWhatWasAddedAndRemoved()
    {
        fillCar();
        m_office->database().run(u"DELETE FROM Changes"_s);
        auto mine = opened();
        strip(*mine).remove(0);
        add(*mine, Qt::yellow);
        save(*mine);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Changes WHERE sTable='AutomobilInformations' AND iRecordID=%1"_s.arg(m_car)), u"1"_s);
    }
};

static const RegisteredTest<TestCarPictures, KApplication> registeredCarPictures;

#include "TestCarPictures.moc"

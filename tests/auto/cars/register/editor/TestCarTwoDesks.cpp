// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/image/KStaticImage.h"
#include "tests/auto/cars/register/editor/CarEditorOffice.h"
#include "tests/office/OtherDesk.h"
#include "tests/support/RegisteredTest.h"

#include <QBuffer>

using namespace Qt::StringLiterals;

// Two desks with the same car open.
class TestCarTwoDesks : public QObject
{
    Q_OBJECT

    using Car = CTblAutomobilInformations;
    using Dialog = CDlgAddAutomobilInformation;
    using Answer = CDlgRowConflict::Answer;

    std::unique_ptr<CarEditorOffice> m_office;
    int m_car = 0;

    static KEdit *base(const Dialog &dialog, const char *name) { return dialog.basePage()->form()->edit(QString::fromLatin1(name)); }
    static KEdit *sale(const Dialog &dialog, const char *name) { return dialog.salePage()->form()->edit(QString::fromLatin1(name)); }

    std::unique_ptr<Dialog> opened() { return CarEditorOffice::opened(m_car); }

    std::unique_ptr<OtherDesk> m_other;

    void savedThere(const std::function<void(Dialog &)> &enter)
    {
        m_other->saves([this] { return opened(); }, enter);
    }

    QString stored(const char *columns) { return m_other->stored("AutomobilInformations", columns); }

    static QByteArray picture(Qt::GlobalColor color)
    {
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(color);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
            qFatal("the picture could not be made");
        return bytes;
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<CarEditorOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->begin();
        m_other = std::make_unique<OtherDesk>(*m_office, u"AutomobilInformations"_s);
        m_car = m_office->addOwnedCar([this](Car &car) {
            car.m_iUserID = m_office->adminID();
            car.m_dSoldAmount = 1000;
            car.m_dPurchasePriceOfOwner = 700;
            car.m_dProfitAndLoss = 300;
        });
    }

    void whatOnlyOneDeskChangedStays()
    {
        auto mine = opened();
        savedThere([](Dialog &there) {
            base(there, "sNumOfPlates")->setText(u"12ب345"_s);
            base(there, "dAmount")->setNumber(500);
        });
        base(*mine, "sDesc")->setText(u"توضیح"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("sNumOfPlates,dAmount,sDesc"), u"12ب345/500/توضیح"_s);
        QVERIFY(CDlgRowConflict::takeShown().isEmpty());
    }

    void pictureOfTheOtherDeskStays()
    {
        auto mine = opened();
        const QByteArray red = picture(Qt::red);
        savedThere([&](Dialog &there) { there.basePage()->picture()->load(red); });
        base(*mine, "sDesc")->setText(u"توضیح"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        Car car;
        QCOMPARE(CarEditorOffice::load(car, m_car).m_oPicture.data, red);
    }

    void pictureThatBothChangedIsShown()
    {
        auto mine = opened();
        const QByteArray red = picture(Qt::red);
        const QByteArray blue = picture(Qt::blue);
        savedThere([&](Dialog &there) { there.basePage()->picture()->load(red); });
        mine->basePage()->picture()->load(blue);
        int pictures = 0;
        TestOffice::whenModal("CDlgRowConflict", [&](QWidget *window) {
            for (const QLabel *label : window->findChildren<QLabel *>())
                pictures += label->pixmap(Qt::ReturnByValue).isNull() ? 0 : 1;
            QVERIFY(named<QLabel>(*window, u"عکس، هنگام باز شدن: (خالی)"_s));
            named<QPushButton>(*window, u"تغییر من بماند"_s)->click();
        });
        mine->accept();
        QCOMPARE(pictures, 2);
        QVERIFY(!mine->isVisible());
        Car car;
        QCOMPARE(CarEditorOffice::load(car, m_car).m_oPicture.data, blue);
    }

    // A profit that nobody saw must not come of two halves.
    void amountsOfTheProfitAreOneField_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("amounts");
        QTest::newRow("theirs") << int(Answer::TakeTheirs) << u"1000/700/50/250"_s;
        QTest::newRow("mine") << int(Answer::TakeMine) << u"1200/700/0/500"_s;
        QTest::newRow("back") << int(Answer::GoBack) << u"1000/700/50/250"_s;
    }

    void amountsOfTheProfitAreOneField()
    {
        QFETCH(int, answer);
        QFETCH(QString, amounts);
        auto mine = opened();
        savedThere([](Dialog &there) { sale(there, "dAutomobilExpenses")->setNumber(50); });
        sale(*mine, "dSoldAmount")->setNumber(1200);
        CDlgRowConflict::answerNext(Answer(answer));
        mine->accept();
        QVERIFY(!CDlgRowConflict::takeShown().isEmpty());
        QCOMPARE(stored("dSoldAmount,dPurchasePriceOfOwner,dAutomobilExpenses,dProfitAndLoss"), amounts);
        QCOMPARE(mine->isVisible(), Answer(answer) == Answer::GoBack);
    }

    void ownerAndBuyerOfTwoDesksAreAsked()
    {
        auto mine = opened();
        savedThere([this](Dialog &there) { there.salePage()->buyer()->setPersonID(m_office->buyer); });
        mine->basePage()->owner()->setPersonID(m_office->buyer);
        CDlgRowConflict::answerNext(Answer::GoBack);
        mine->accept();
        QVERIFY(mine->isVisible());
        QCOMPARE(CDlgRowConflict::takeShown(), (QStringList{u"مالک: سارا کریمی | سارا کریمی | رضا احمدی"_s, u"خریدار:  | رضا احمدی | "_s}));
        QCOMPARE(m_office->database().value(u"SELECT iPersonID<>iPersonBuyerID FROM AutomobilInformations"_s), u"1"_s);
    }

    void modelOfOneDeskDoesNotMeetTheBrandOfTheOther()
    {
        m_office->database().run(u"UPDATE AutomobilInformations SET iAutomobilType=%1,iModel=%2"_s.arg(m_office->peugeot).arg(m_office->model206));
        auto mine = opened();
        m_office->database().run(u"UPDATE AutomobilInformations SET iModel=%1"_s.arg(m_office->modelPars));
        mine->basePage()->form()->setKey(u"iAutomobilType"_s, m_office->saipa);
        CDlgRowConflict::answerNext(Answer::TakeTheirs);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QVERIFY(CDlgRowConflict::takeShown().contains(u"نوع خودرو: پژو | پژو | سایپا"_s));
        QCOMPARE(stored("iAutomobilType,iModel"), u"%1/%2"_s.arg(m_office->peugeot).arg(m_office->modelPars));
    }

    // Values that the other desk added after this window's drop-downs were filled are told by their names too.
    void valueThatTheOtherDeskAddedIsToldByItsName_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("caption");
        QTest::newRow("colour") << u"iColor"_s << u"رنگ"_s;
        QTest::newRow("country") << u"iCountry"_s << u"کشور"_s;
        QTest::newRow("source") << u"iSource"_s << u"ماخذ"_s;
        QTest::newRow("body") << u"iBodyStatus"_s << u"وضعيت بدنه"_s;
        QTest::newRow("system") << u"iSystem"_s << u"سيستم"_s;
        QTest::newRow("engine") << u"iVolumCylinders"_s << u"حجم سيلندر"_s;
        QTest::newRow("customs") << u"iCustomsClearance"_s << u"گمرک ترخيصي"_s;
    }

    void valueThatTheOtherDeskAddedIsToldByItsName()
    {
        QFETCH(QString, column);
        QFETCH(QString, caption);
        const int before = m_office->addItem(99, u"پیشین"_s);
        const int mine = m_office->addItem(99, u"مال من"_s);
        m_office->database().run(u"UPDATE AutomobilInformations SET %1=%2"_s.arg(column).arg(before));
        auto dialog = opened();
        const int added = m_office->addItem(99, u"تازه"_s);
        m_office->database().run(u"UPDATE AutomobilInformations SET %1=%2"_s.arg(column).arg(added));
        const bool isSale = column == u"iCustomsClearance"_s;
        (isSale ? dialog->salePage()->form() : dialog->basePage()->form())->setKey(column, mine);
        CDlgRowConflict::answerNext(Answer::TakeTheirs);
        dialog->accept();
        const QString shown = CDlgRowConflict::takeShown().join(u'|');
        QVERIFY2(shown.startsWith(caption + u": "_s) && shown.contains(u"تازه"_s), qPrintable(shown));
        QCOMPARE(m_office->database().value(u"SELECT %1 FROM AutomobilInformations"_s.arg(column)).toInt(), added);
    }

    // Another desk gave the car another code; the line that shows it is not written.
    void codeThatIsOnlyShownIsNotWritten()
    {
        auto mine = opened();
        m_office->database().run(u"UPDATE AutomobilInformations SET iCode=77"_s);
        base(*mine, "sDesc")->setText(u"توضیح"_s);
        mine->accept();
        QVERIFY(!mine->isVisible());
        QCOMPARE(stored("iCode,sDesc"), u"77/توضیح"_s);
    }

    void carThatIsGoneIsSavedAsANewOne()
    {
        auto mine = opened();
        base(*mine, "sDesc")->setText(u"توضیح"_s);
        mine->basePage()->picture()->load(picture(Qt::green));
        m_office->addOwnedCar();
        m_other->does([this] {
            Car car;
            CarEditorOffice::load(car, m_car).Delete();
        });
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        mine->accept();
        OtherDesk::compareTold(g_pDlgYesNo->takeShown(), u"این خودرو را در این میان حذف کرده است."_s);
        QVERIFY(!mine->isVisible());
        Car car;
        CarEditorOffice::load(car, mine->key());
        QCOMPARE(car.m_iCode, 3);
        QCOMPARE(car.m_sDesc, u"توضیح"_s);
        QCOMPARE(car.m_iPersonID, m_office->owner);
        QCOMPARE(car.m_dProfitAndLoss, 300.0);
        QCOMPARE(car.m_oPicture.data, picture(Qt::green));
    }

    void carArchivedMeanwhileIsNotSaved()
    {
        auto mine = opened();
        base(*mine, "sDesc")->setText(u"توضیح"_s);
        m_other->does([] { Car::archive(1, GetDBSetting()->GetUserID()); });
        mine->accept();
        QVERIFY(mine->isVisible());
        OtherDesk::compareTold(g_pDlgWarning->takeShown(), u"این خودرو را در این میان بایگانی کرده است."_s);
        QCOMPARE(m_office->database().value(u"SELECT sDesc IS NULL OR sDesc='' FROM AutomobilInformations"_s), u"1"_s);
    }

    void carThatAnotherDeskTookOutOfTheArchiveIsSaid()
    {
        m_office->database().run(u"UPDATE AutomobilInformations SET iArchiveUserID=1"_s);
        auto mine = CarEditorOffice::opened(m_car, EditorMode::Show);
        m_office->database().run(u"UPDATE AutomobilInformations SET iArchiveUserID=0"_s);
        mine->unarchiveButton()->click();
        QVERIFY(!mine->isVisible());
        QVERIFY(mine->refreshNeeded());
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این خودرو در این میان از بایگانی خارج شده است."_s});
    }

    void pressedTwiceSavesOnce()
    {
        m_office->database().run(u"DELETE FROM Changes"_s);
        auto mine = opened();
        base(*mine, "sDesc")->setText(u"توضیح"_s);
        mine->accept();
        mine->accept();
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Changes WHERE sTable='AutomobilInformations'"_s), u"1"_s);
    }
};

static const RegisteredTest<TestCarTwoDesks, KApplication> registeredCarTwoDesks;

#include "TestCarTwoDesks.moc"

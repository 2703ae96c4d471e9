// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/tour/Tour.h"

#include "auto/CAutoDBSetting.h"
#include "auto/subjects/AutoFirstSteps.h"
#include "auto/today/AutoToday.h"
#include "host/demo/DemoData.h"
#include "host/desk/MainWindow.h"
#include "host/desk/WorkArea.h"
#include "host/manual/ManualPages.h"
#include "host/tour/TourOffer.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

// The tour through the real main window of a demo office.
class TestTour : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
    int m_manager = 0;
    int m_nobody = 0;

    void workAs(int user)
    {
        m_window.reset();
        GetDBSetting()->Login(user);
        setSettingsFile(m_folder.filePath(u"%1.ini"_s.arg(++m_settings)));
        m_window = std::make_unique<MainWindow>(DataFolder(m_folder.path()), GetAutoDBSetting());
        m_window->setWindowState(Qt::WindowNoState);
        m_window->resize(1360, 740);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    static void press(const Tour &tour, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTRY_VERIFY(tour.card() && tour.card()->isActiveWindow() && tour.card()->focusWidget());
        QTest::keyClick(tour.card()->focusWidget(), key, modifiers);
    }

    TourRing *ring() const
    {
        for (TourRing *ring : m_window->findChildren<TourRing *>()) {
            if (ring->isVisible())
                return ring;
        }
        return nullptr;
    }

    int m_settings = 0;

private Q_SLOTS:
    void initTestCase()
    {
        CTblUsers::setHashCost(CTblUsers::leastCost());
        prepareModuleTables(m_database);
        DemoData::fill(60);
        AutoToday::enter();
        AutoFirstSteps::enter();
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
            dialog->answerAll(true);
        m_manager = m_database.value(u"SELECT MIN(iID) FROM Users"_s).toInt();
        m_nobody = CTblUsers::create(u"tourist"_s, u"tourist1"_s, u"رهگذر"_s, false);
    }

    void init() { workAs(m_manager); }

    void cleanup()
    {
        m_window.reset();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
    }

    void cleanupTestCase()
    {
        GetDBSetting()->Logout();
        setSettingsFile({});
    }

    void tenStepsEachWithItsWords()
    {
        const QList<TourStep> &steps = TourSteps::all();
        QCOMPARE(steps.size(), 10);
        const ManualPages manual;
        QSet<QString> titles;
        for (const TourStep &step : steps) {
            titles.insert(step.title);
            QVERIFY(!step.title.isEmpty() && !step.control.isEmpty());
            const auto sentences = step.text.count(u'.');
            QVERIFY2(sentences >= 2 && sentences <= 4, qPrintable(step.title));
            QVERIFY2(manual.has(step.manual), qPrintable(step.manual));
            const auto isForm = [&](const KSecurity::Form &form) { return form.name == step.form; };
            QVERIFY2(step.form.isEmpty() || std::any_of(KSecurity::forms().begin(), KSecurity::forms().end(), isForm), qPrintable(step.form));
        }
        QCOMPARE(titles.size(), steps.size());
    }

    void everyStepFindsItsControlByKeys()
    {
        const auto changes = KConnection::changesOfThread();
        Tour tour(*m_window);
        tour.start();
        QCOMPARE(tour.count(), 10);
        for (int number = 1; number <= 10; ++number) {
            QCOMPARE(tour.step(), number);
            const TourStep &step = TourSteps::all().at(number - 1);
            QTRY_VERIFY2(tour.place().isControl(), qPrintable(step.control));
            QTRY_VERIFY2(ring(), qPrintable(step.control));
            const QRect rect = tour.place().rect();
            QVERIFY2(!rect.isEmpty() && m_window->rect().contains(rect), qPrintable(step.control));
            QTRY_VERIFY(ring()->geometry().contains(tour.place().rect() & ring()->parentWidget()->rect()));
            QVERIFY(tour.card()->accessibleDescription().contains(u"گام %1 از 10"_s.arg(number)));
            QVERIFY(tour.card()->accessibleDescription().contains(step.text));
            QVERIFY(tour.card()->focusWidget()->accessibleDescription().contains(step.title));
            QVERIFY(m_window->screen()->availableGeometry().contains(tour.card()->frameGeometry()));
            if (number < 10)
                press(tour, Qt::Key_Return);
        }
        // Enter ends it where there is nothing more.
        press(tour, Qt::Key_Return);
        QTRY_VERIFY(!tour.isRunning());
        QVERIFY(!ring());
        QCOMPARE(KConnection::changesOfThread(), changes);
    }

    void keysLeadBackAndOut()
    {
        Tour tour(*m_window);
        tour.start();
        press(tour, Qt::Key_Return);
        press(tour, Qt::Key_Return);
        QCOMPARE(tour.step(), 3);
        press(tour, Qt::Key_Right, Qt::AltModifier);
        QTRY_COMPARE(tour.step(), 2);
        press(tour, Qt::Key_Escape);
        QTRY_VERIFY(!tour.isRunning());
        QCOMPARE(tour.step(), 0);
        QVERIFY(!ring());
    }

    void noStepBeforeTheFirst()
    {
        Tour tour(*m_window);
        tour.start();
        QTRY_VERIFY(tour.card()->isActiveWindow());
        QVERIFY(!Hand::named<QPushButton>(tour.card(), u"قبلی"_s)->isEnabled());
        QVERIFY(QMetaObject::invokeMethod(tour.card(), "previous"));
        QCOMPARE(tour.step(), 1);
        QVERIFY(tour.isRunning());
    }

    void aClosedPageIsOpenedByTheNextStep()
    {
        Tour tour(*m_window);
        tour.start();
        press(tour, Qt::Key_Return);
        press(tour, Qt::Key_Return);
        QVERIFY(ring());
        m_window->workArea()->closeAll();
        QTRY_VERIFY(!ring());
        QVERIFY(tour.isRunning());
        press(tour, Qt::Key_Return);
        QCOMPARE(tour.step(), 4);
        QVERIFY(tour.place().isControl() && ring());
    }

    void theRingFollowsItsControl()
    {
        Tour tour(*m_window);
        tour.start();
        press(tour, Qt::Key_Return);
        press(tour, Qt::Key_Return);
        const QRect before = ring()->geometry();
        m_window->resize(1000, 640);
        QTRY_VERIFY(ring()->geometry() != before);
        QTRY_VERIFY(ring()->geometry().intersects(tour.place().rect()));
    }

    void startedAgainItBeginsAnew()
    {
        Tour tour(*m_window);
        tour.start();
        press(tour, Qt::Key_Return);
        CDlgTour *card = tour.card();
        tour.start();
        QCOMPARE(tour.step(), 1);
        QCOMPARE(tour.card(), card);
    }

    void whoMayNotOpenAPageIsNotLedThere()
    {
        workAs(m_nobody);
        Tour tour(*m_window);
        tour.start();
        QCOMPARE(tour.count(), 2);
        QVERIFY(tour.card()->accessibleDescription().contains(u"گام 1 از 2"_s));
        press(tour, Qt::Key_Return);
        QCOMPARE(tour.step(), 2);
        QVERIFY(tour.place().isControl());
    }

    void withoutTheModuleItsStepsAreLeftOut()
    {
        m_window = std::make_unique<MainWindow>(DataFolder(m_folder.path()), nullptr);
        m_window->show();
        Tour tour(*m_window);
        tour.start();
        QCOMPARE(tour.count(), 6);
    }

    void offeredOnceToEachUser()
    {
        Tour tour(*m_window);
        tour.offerOnce();
        auto *offer = m_window->findChild<TourOffer *>();
        QVERIFY(offer && offer->isVisible());
        Hand::named<QPushButton>(offer, u"نمی‌خواهم"_s)->click();
        QTRY_VERIFY(!m_window->findChild<TourOffer *>());
        QVERIFY(!tour.isRunning());
        tour.offerOnce();
        QVERIFY(!m_window->findChild<TourOffer *>());
        GetDBSetting()->Login(m_nobody);
        tour.offerOnce();
        offer = m_window->findChild<TourOffer *>();
        QVERIFY(offer);
        Hand::named<QPushButton>(offer, u"شروع گشت"_s)->click();
        QVERIFY(tour.isRunning());
        QTRY_VERIFY(!m_window->findChild<TourOffer *>());
    }

    void theManualsPageOfTheStepIsAskedFor()
    {
        Tour tour(*m_window);
        QSignalSpy asked(&tour, &Tour::manualWanted);
        tour.start();
        Hand::named<QPushButton>(tour.card(), u"در راهنما"_s)->click();
        QCOMPARE(asked.size(), 1);
        QCOMPARE(asked.constFirst().constFirst().toString(), TourSteps::all().constFirst().manual);
    }

    void theWindowClosesDuringIt()
    {
        Tour tour(*m_window);
        tour.start();
        QVERIFY(m_window->close());
        QVERIFY(!tour.isRunning());
    }
};

static const RegisteredTest<TestTour, KApplication> registeredTour;

#include "TestTour.moc"

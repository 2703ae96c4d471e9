// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/cars/register/gallery/CarCards.h"
#include "auto/cars/register/gallery/CarFace.h"
#include "auto/cars/register/gallery/CarGallery.h"
#include "auto/cars/register/gallery/CarThumbnails.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/image/Thumbnails.h"
#include "suite/utility/lists/KCardView.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"
#include "tests/office/TestOffice.h"
#include "tests/suite/image/PictureFiles.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Page = CDlgAutomobilInformations;

constexpr int linesOfCards = 3;

}

// The car list as cards: the same rows, filter, order, selection and commands as the table beside it.
class TestCarGallery : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QWidget> m_window;
    QTemporaryDir m_settings;

    int add(const QString &plate, const std::function<void(Car &)> &set = {})
    {
        return m_office->addCar([&](Car &car) {
            car.m_sNumOfPlates = plate;
            car.m_dateIntroduction = QDateTime(QDate::currentDate(), QTime(), Qt::UTC);
            if (set)
                set(car);
        });
    }

    // Named by their numbers, in their order.
    QList<int> addSome(int cars)
    {
        QList<int> keys;
        for (int number = 1; number <= cars; ++number)
            keys.append(add(QString::number(number), [&](Car &car) { car.m_dAmount = 1'000'000.0 * ((number * 7) % 11 + 1); }));
        return keys;
    }

    Page &shownPage(bool select = false)
    {
        m_window = std::make_unique<QWidget>();
        auto *page = new Page(m_window.get());
        page->setSelectMode(select);
        auto *layout = new QVBoxLayout(m_window.get());
        layout->addWidget(page);
        m_window->resize(LookSizes::scaled(1300), LookSizes::scaled(800));
        m_window->show();
        page->setFocus();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("the page did not become active");
        return *page;
    }

    Page &shownGallery(bool select = false)
    {
        Page &page = shownPage(select);
        QTest::mouseClick(switchTo(page, u"کارت"_s), Qt::LeftButton);
        QCoreApplication::processEvents();
        return page;
    }

    static QPushButton *switchTo(const Page &page, const QString &text)
    {
        for (QPushButton *button : page.bar()->findChildren<QPushButton *>()) {
            if (button->accessibleName() == text)
                return button;
        }
        qFatal("the bar has no such button");
    }

    static QString plateAt(const Page &page, int row) { return page.list()->cellText(row, u"plate"); }
    static QString selectedPlate(const Page &page) { return plateAt(page, page.list()->currentRow()); }
    static int columnsOf(const KCardView &cards)
    {
        int columns = 1;
        while (columns < cards.model()->rowCount() && cards.cardRect(columns).top() == cards.cardRect(0).top())
            ++columns;
        return columns;
    }

private Q_SLOTS:
    void initTestCase()
    {
        setSettingsFile(m_settings.filePath(u"settings.ini"_s));
        m_office = std::make_unique<TestOffice>();
    }
    void cleanupTestCase()
    {
        m_office.reset();
        setSettingsFile({});
    }
    void init() { m_office->clear(); }
    void cleanup()
    {
        m_window.reset();
        WriteSetting(u"AutomobilInformations\\Gallery\\Users\\"_s + GetDBSetting()->GetUserName(), u"bCards"_s, 0);
    }

    void switchShowsTheSameRowsAndIsKept()
    {
        addSome(5);
        Page &page = shownPage();
        QVERIFY(!page.gallery()->isShown());
        QVERIFY(page.list()->isVisible());
        QTest::mouseClick(switchTo(page, u"کارت"_s), Qt::LeftButton);
        QVERIFY(page.gallery()->cards()->isVisible());
        QVERIFY(!page.list()->isVisible());
        QVERIFY(page.gallery()->cards()->hasFocus());
        QCOMPARE(page.gallery()->cards()->model()->rowCount(), 5);
        QVERIFY(!page.bar()->columnsButton()->isVisible());
        Page &again = shownPage();
        QVERIFY(again.gallery()->isShown());
        QVERIFY(again.gallery()->cards()->isVisible());
        QTest::mouseClick(switchTo(again, u"کارت"_s), Qt::LeftButton);
        QVERIFY(!switchTo(again, u"جدول"_s)->isChecked());
        QVERIFY(again.gallery()->isShown() && switchTo(again, u"کارت"_s)->isChecked());
        QTest::mouseClick(switchTo(again, u"جدول"_s), Qt::LeftButton);
        QVERIFY(again.list()->isVisible());
        QVERIFY(again.list()->hasFocus());
        // As a screen reader switches.
        switchTo(again, u"کارت"_s)->toggle();
        QVERIFY(again.gallery()->isShown());
        QVERIFY(!switchTo(again, u"جدول"_s)->isChecked());
        switchTo(again, u"جدول"_s)->toggle();
        QVERIFY(!switchTo(again, u"کارت"_s)->isChecked());
        QVERIFY(!shownPage().gallery()->isShown());
    }

    void cardsFillTheLineAndNoneIsNarrow()
    {
        addSome(9);
        const KCardView &cards = *shownGallery().gallery()->cards();
        const int columns = columnsOf(cards);
        QVERIFY(columns >= 3);
        for (int row = 0; row < 9; ++row) {
            QVERIFY(cards.cardRect(row).width() >= LookSizes::scaled(300));
            QVERIFY(cards.viewport()->rect().left() <= cards.cardRect(row).left() && cards.cardRect(row).right() <= cards.viewport()->rect().right());
        }
        // The first one leads, at the right.
        QVERIFY(cards.cardRect(0).left() > cards.cardRect(1).left());
        QVERIFY(cards.cardRect(columns).top() > cards.cardRect(0).bottom());
    }

    void arrowKeysGoToTheNeighbours()
    {
        Page &page = (addSome(10), shownGallery());
        KCardView &cards = *page.gallery()->cards();
        const int columns = columnsOf(cards);
        const auto after = [&](Qt::Key key) {
            QTest::keyClick(&cards, key);
            return page.list()->currentRow();
        };
        QCOMPARE(page.list()->currentRow(), 0);
        QCOMPARE(after(Qt::Key_Left), 1);
        QCOMPARE(after(Qt::Key_Right), 0);
        QCOMPARE(after(Qt::Key_Right), 0);
        QCOMPARE(after(Qt::Key_Down), columns);
        QCOMPARE(after(Qt::Key_Up), 0);
        QCOMPARE(after(Qt::Key_Up), 0);
        QCOMPARE(after(Qt::Key_End), 9);
        QCOMPARE(after(Qt::Key_Down), 9);
        QCOMPARE(after(Qt::Key_Left), 9);
        QCOMPARE(after(Qt::Key_Home), 0);
        for (int step = 0; step < columns; ++step)
            QTest::keyClick(&cards, Qt::Key_Left);
        QCOMPARE(page.list()->currentRow(), columns);
        for (int line = 0; line < linesOfCards; ++line)
            QTest::keyClick(&cards, Qt::Key_Down);
        // Into the last line, which may be shorter.
        QCOMPARE(page.list()->currentRow() / columns, 9 / columns);
    }

    void selectionIsTheTablesAndComesBackWithIt()
    {
        addSome(6);
        Page &page = shownPage();
        page.list()->selectRow(4);
        page.gallery()->showCards(true);
        KCardView &cards = *page.gallery()->cards();
        QCOMPARE(cards.currentIndex().row(), 4);
        QTest::mouseClick(cards.viewport(), Qt::LeftButton, {}, cards.cardRect(2).center());
        QCOMPARE(page.list()->currentRow(), 2);
        page.refill();
        QCOMPARE(cards.currentIndex().row(), 2);
        QVERIFY(cards.selectionModel()->isSelected(cards.currentIndex()));
        page.list()->selectRow(-1);
        QVERIFY(cards.selectionModel()->selectedIndexes().isEmpty());
    }

    void keysOfTheListWorkOnCards()
    {
        addSome(3);
        Page &page = shownGallery();
        KCardView &cards = *page.gallery()->cards();
        QTest::keyClick(&cards, Qt::Key_Left);
        QString title;
        TestOffice::whenModal("CDlgAddAutomobilInformation", [&](QWidget *window) {
            title = window->windowTitle();
            static_cast<QDialog *>(window)->reject();
        });
        QTest::keyClick(&cards, Qt::Key_Return);
        QCOMPARE(title, u"گالري اتومبيل - نمایش"_s);
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        TestOffice::whenModal("CDlgAddAutomobilInformation", [&](QWidget *window) {
            title = window->windowTitle();
            static_cast<QDialog *>(window)->reject();
        });
        QTest::keyClick(&cards, Qt::Key_F2);
        QVERIFY(title != u"گالري اتومبيل - نمایش"_s);
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QTest::keyClick(&cards, Qt::Key_Delete);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(cards.model()->rowCount(), 2);
        QCOMPARE(m_office->database().value(u"SELECT GROUP_CONCAT(sNumOfPlates ORDER BY iID) FROM AutomobilInformations"_s), u"1,3"_s);
        QVERIFY(cards.hasFocus());
        QCOMPARE(selectedPlate(page), u"3"_s);
    }

    void doubleClickShowsAndItsCommandsAct()
    {
        addSome(3);
        Page &page = shownGallery();
        KCardView &cards = *page.gallery()->cards();
        QStringList titles;
        const auto close = [&](QWidget *window) {
            titles.append(window->windowTitle());
            static_cast<QDialog *>(window)->reject();
        };
        TestOffice::whenModal("CDlgAddAutomobilInformation", close);
        QTest::mouseDClick(cards.viewport(), Qt::LeftButton, {}, cards.cardRect(1).topLeft() + QPoint(20, 20));
        // A double click needs its press to select.
        QCOMPARE(titles.size(), 1);
        TestOffice::whenModal("CDlgAddAutomobilInformation", close);
        QTest::mouseClick(cards.viewport(), Qt::LeftButton, {}, cards.commandRect(2, u"edit").center());
        QCOMPARE(titles.size(), 2);
        QCOMPARE(selectedPlate(page), u"3"_s);
        QSignalSpy menus(page.list(), &KExtListCtrl::rowMenuRequested);
        // The menu would wait for its user.
        QObject::disconnect(page.list(), &KExtListCtrl::rowMenuRequested, page.commandLine(), nullptr);
        QTest::mouseClick(cards.viewport(), Qt::LeftButton, {}, cards.commandRect(1, u"menu").center());
        QCOMPARE(menus.size(), 1);
        QCOMPARE(selectedPlate(page), u"2"_s);
        QTest::keyClick(&cards, Qt::Key_Menu);
        QCOMPARE(menus.size(), 2);
    }

    void whoMayWriteNoContractIsToldSo()
    {
        addSome(1);
        m_office->logInAs(u"clerk"_s, u"AutomobilInformations"_s, KSecurity::Access);
        KCardView &cards = *shownGallery().gallery()->cards();
        QTest::mouseClick(cards.viewport(), Qt::LeftButton, {}, cards.commandRect(0, u"contract").center());
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void closedOfficeOffersNoChange()
    {
        addSome(1);
        m_office->database().run(u"REPLACE INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"_s);
        const KCardView &cards = *shownGallery().gallery()->cards();
        QVERIFY(cards.commandRect(0, u"edit").isEmpty());
        QVERIFY(cards.commandRect(0, u"contract").isEmpty());
        m_office->database().run(u"DELETE FROM Properties WHERE sSection='Database' AND sKey='bClosed'"_s);
    }

    void carIsPickedFromItsCard()
    {
        addSome(3);
        Page &page = shownGallery(true);
        KCardView &cards = *page.gallery()->cards();
        QSignalSpy confirmed(&page, &Page::okRequested);
        QTest::keyClick(&cards, Qt::Key_Left);
        QTest::keyClick(&cards, Qt::Key_Return);
        QCOMPARE(confirmed.size(), 1);
        QVERIFY(page.OnOK());
        QCOMPARE(page.chosenKey(), page.list()->currentKey());
        QCOMPARE(selectedPlate(page), u"2"_s);
    }

    void quickFilterNarrowsTheCards()
    {
        addSome(3);
        add(u"wanted"_s);
        Page &page = shownGallery();
        KCardView &cards = *page.gallery()->cards();
        page.bar()->quickFilter()->setText(u"wan"_s);
        QCOMPARE(cards.model()->rowCount(), 1);
        QCOMPARE(plateAt(page, 0), u"wanted"_s);
        page.bar()->quickFilter()->setText(u"nothing of the kind"_s);
        QVERIFY(!cards.isVisible());
        QVERIFY(page.emptyState()->isVisible());
        page.bar()->quickFilter()->clear();
        QVERIFY(cards.isVisible());
        QCOMPARE(cards.model()->rowCount(), 4);
    }

    void orderIsChosenBesideTheCards()
    {
        addSome(4);
        Page &page = shownGallery();
        QComboBox &order = *page.gallery()->orderChoice();
        const auto amounts = [&page] {
            QStringList cells;
            for (int row = 0; row < page.list()->count(); ++row)
                cells.append(page.list()->cellText(row, u"amount").remove(u','));
            return cells;
        };
        QCOMPARE(order.currentIndex(), -1);
        order.setCurrentIndex(order.findText(u"مبلغ"_s));
        Q_EMIT order.activated(order.currentIndex());
        QCOMPARE(amounts(), (QStringList{u"4000000"_s, u"7000000"_s, u"8000000"_s, u"11000000"_s}));
        QTest::mouseClick(switchTo(page, u"وارونه کردن ترتیب"_s), Qt::LeftButton);
        QCOMPARE(amounts(), (QStringList{u"11000000"_s, u"8000000"_s, u"7000000"_s, u"4000000"_s}));
        QCOMPARE(order.currentText(), u"مبلغ"_s);
    }

    void cardIsNamedByTitleAndPlate()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"206"_s);
        add(u"12 ب 345 ایران 67"_s, [&](Car &car) {
            car.m_iAutomobilType = brand;
            car.m_iModel = model;
        });
        add(u"second"_s);
        KCardView &cards = *shownGallery().gallery()->cards();
        QAccessibleInterface *list = QAccessible::queryAccessibleInterface(&cards);
        QVERIFY(list);
        QCOMPARE(list->text(QAccessible::Name), u"کارت‌های گالري اتومبيل"_s);
        QCOMPARE(list->childCount(), 2);
        QCOMPARE(list->child(0)->text(QAccessible::Name), u"پژو 206، 12 ب 345 ایران 67"_s);
        QCOMPARE(list->child(1)->text(QAccessible::Name), u"خودرو، second"_s);
    }

    // --- What is read for the cards ---

    void cardsInSightAreReadInTwoStatementsAndNoWholePicture()
    {
        addSome(40);
        Page &page = shownGallery();
        const ObservedStatements read({u"SELECT"_s, u"(SELECT"_s});
        page.refill();
        const qsizetype filled = read.taken().size();
        QCoreApplication::processEvents();
        const QStringList statements = read.taken().mid(filled);
        QCOMPARE(statements.size(), 2);
        for (const QString &statement : read.taken())
            QVERIFY2(!statement.contains(u"ai.oPicture"), qPrintable(statement));
        // Those far below are not.
        QVERIFY(!statements.constFirst().contains(u','
                                                  + QString::number(page.list()->listModel()->keyAt(39))
                                                  + u')'));
        // What is known is not read again.
        page.gallery()->readCards();
        QCOMPARE(read.taken().size(), filled + 2);
        page.gallery()->cards()->scrollToBottom();
        QTRY_COMPARE(read.taken().size(), filled + 4);
    }

    void pictureStandsOnTheCard()
    {
        const int red = add(u"red"_s);
        QImage image(300, 200, QImage::Format_RGB32);
        image.fill(QColor(220, 30, 30));
        m_office->database().run(u"UPDATE AutomobilInformations SET oPicture=x'%1' WHERE iID=%2"_s.arg(QString::fromLatin1(PictureFiles::written(image, "png").toHex())).arg(red));
        Thumbnails::build(CarThumbnails::source());
        KCardView &cards = *shownGallery().gallery()->cards();
        QCoreApplication::processEvents();
        const QRect card = cards.cardRect(0);
        const QColor middle = cards.viewport()->grab().toImage().pixelColor(QPoint(card.center().x(), card.top() + card.height() / 4));
        QVERIFY2(middle.red() > 180 && middle.green() < 80 && middle.blue() < 80, qPrintable(middle.name()));
    }

    void stateIsWhatTheOfficeShouldKnowFirst_data()
    {
        using State = CarCard::State;
        QTest::addColumn<int>("days");
        QTest::addColumn<bool>("sold");
        QTest::addColumn<bool>("archived");
        QTest::addColumn<int>("demands");
        QTest::addColumn<int>("state");
        QTest::newRow("new") << 0 << false << false << 0 << int(State::Available);
        QTest::newRow("wanted") << 3 << false << false << 2 << int(State::Wanted);
        QTest::newRow("one day too few") << 44 << false << false << 0 << int(State::Available);
        QTest::newRow("standing") << 45 << false << false << 2 << int(State::Standing);
        QTest::newRow("not yet long") << 89 << false << false << 0 << int(State::Standing);
        QTest::newRow("standing long") << 90 << false << false << 0 << int(State::StandingLong);
        QTest::newRow("sold") << 90 << true << false << 2 << int(State::Sold);
        QTest::newRow("archived") << 90 << true << true << 2 << int(State::Archived);
        QTest::newRow("day to come") << -2 << false << false << 0 << int(State::Available);
    }

    void stateIsWhatTheOfficeShouldKnowFirst()
    {
        QFETCH(int, days);
        QFETCH(bool, sold);
        QFETCH(bool, archived);
        QFETCH(int, demands);
        QFETCH(int, state);
        const QDate today(2026, 5, 1);
        const CarCard card{.sold = sold, .archived = archived, .introduced = today.addDays(-days), .demands = demands};
        QCOMPARE(int(card.state(45, today)), state);
    }

    void demandsThatACarFitsAreCounted()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        const int car = add(u"a"_s, [&](Car &c) { c.m_iAutomobilType = brand; });
        const int sold = add(u"b"_s, [&](Car &c) {
            c.m_iAutomobilType = brand;
            c.m_bSold = 1;
        });
        const auto demand = [&](int type, const QDate &until) {
            m_office->addDemand([&](CTblAutomobilDemands &d) {
                d.m_iPersonID = person;
                d.m_iAutomobilType = type;
                d.m_dateMaxTimeNeed = until.isValid() ? QDateTime(until, QTime(), Qt::UTC) : QDateTime();
            });
        };
        const QDate today = QDate::currentDate();
        demand(brand, {});
        demand(brand, today.addDays(5));
        demand(brand, today.addDays(-5)); // over
        demand(0, {});                    // asks for nothing
        demand(m_office->addBrand(u"سمند"_s), {});
        const QHash<qint32, CarCard> cards = CarCards::read({car, sold, 987654}, true, today);
        QCOMPARE(cards.size(), 2);
        QCOMPARE(cards.value(car).demands, 2);
        QCOMPARE(cards.value(sold).demands, 0);
        QCOMPARE(CarCards::read({car}, false, today).value(car).demands, 0);
    }

    void carThatManyAskForTakesNoRoomOfAnother()
    {
        const int wanted = m_office->addBrand(u"پژو"_s);
        const int other = m_office->addBrand(u"سمند"_s);
        m_office->database().run(u"INSERT INTO AutomobilDemands(iAutomobilType,iStatus,iArchiveUserID) SELECT %1,0,0 FROM seq_1_to_3100"_s.arg(wanted));
        m_office->database().run(u"INSERT INTO AutomobilDemands(iAutomobilType,iStatus,iArchiveUserID) SELECT %1,0,0 FROM seq_1_to_2"_s.arg(other));
        const int many = add(u"a"_s, [&](Car &c) { c.m_iAutomobilType = wanted; });
        const int few = add(u"b"_s, [&](Car &c) { c.m_iAutomobilType = other; });
        const ObservedStatements read({u"SELECT"_s, u"(SELECT"_s});
        const QHash<qint32, CarCard> cards = CarCards::read({many, few}, true, QDate::currentDate());
        QCOMPARE(read.taken().size(), 2);
        QVERIFY(cards.value(many).moreDemands);
        QCOMPARE(cards.value(many).demands, 1500);
        QVERIFY(!cards.value(few).moreDemands);
        QCOMPARE(cards.value(few).demands, 2);
        m_office->database().run(u"DELETE FROM AutomobilDemands"_s);
    }

    void soldCarSaysHowLongItStood_data()
    {
        QTest::addColumn<bool>("sold");
        QTest::addColumn<QString>("soldOn");
        QTest::addColumn<QString>("text");
        QTest::newRow("sold later") << true << u"2026-04-11"_s << u"فروش در 10 روز"_s;
        QTest::newRow("sold at once") << true << u"2026-04-01"_s << u"فروش در همان روز"_s;
        QTest::newRow("sold before it came") << true << u"2026-03-01"_s << QString();
        QTest::newRow("nobody knows when") << true << QString() << QString();
        QTest::newRow("not sold after all") << false << u"2026-04-11"_s << u"30 روز"_s;
    }

    void soldCarSaysHowLongItStood()
    {
        QFETCH(bool, sold);
        QFETCH(QString, soldOn);
        const int car = add(u"a"_s, [&](Car &c) {
            c.m_bSold = sold;
            c.m_dateIntroduction = QDateTime(QDate(2026, 4, 1), QTime(), Qt::UTC);
            c.m_dateBuy = QDateTime(QDate::fromString(soldOn, Qt::ISODate), QTime(), Qt::UTC);
        });
        const QDate today(2026, 5, 1);
        QTEST(CarFace::daysText(CarCards::read({car}, false, today).value(car), today), "text");
    }

    void whatCannotBeReadIsToldOnce()
    {
        addSome(3);
        Page &page = shownGallery();
        m_office->database().run(u"RENAME TABLE Thumbnails TO ThumbnailsAway"_s);
        page.refill();
        QCoreApplication::processEvents();
        page.gallery()->readCards();
        m_office->database().run(u"RENAME TABLE ThumbnailsAway TO Thumbnails"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size() + g_pDlgMessage->takeShown().size(), 1);
        // The rows are there all the same, and the next reading brings the rest.
        QCOMPARE(page.gallery()->cards()->model()->rowCount(), 3);
        const ObservedStatements read({u"SELECT"_s});
        page.refill();
        QCoreApplication::processEvents();
        QVERIFY(read.taken().size() >= 2);
    }
};

static const RegisteredTest<TestCarGallery, KApplication> registeredCarGallery;
#include "TestCarGallery.moc"

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/WorkArea.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include <stdexcept>

using namespace Qt::StringLiterals;

class TestWorkArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startPageStandsWhileNothingIsOpen();
    void startPageKeepsItsTab();
    void startPageStaysFirstWhenTabsAreDrawnAbout();
    void pagesBecomeTabs();
    void titleFollowsThePage();
    void closingTellsThePageOnceAndDestroysIt();
    void pageMayAskToBeClosed();
    void keysCloseAndWalkThroughThePages();
    void pageThatCannotStoreItsSettingsStillCloses();
    void closeAllLeavesNoPageAlive();
    void openPageComesToTheFront();
    void otherPagesOfAKindAreNumbered();
    void pageStaysWhileAModalWindowIsOpen();
};

namespace {

class Page : public KDialogTabPage
{
public:
    explicit Page(const QString &title, int *closings = nullptr)
        : m_closings(closings)
    {
        setTitle(title);
        auto *column = new QVBoxLayout(this);
        column->addWidget(m_edit = new QLineEdit(this));
    }
    void OnClosing() override
    {
        if (m_closings)
            ++*m_closings;
        if (m_fails)
            throw std::runtime_error("no room for settings");
    }

    void refresh() override { ++m_refreshed; }

    QLineEdit *m_edit = nullptr;
    bool m_fails = false;
    int m_refreshed = 0;

private:
    int *m_closings;
};

QTabWidget *tabs(const WorkArea &area)
{
    return area.findChild<QTabWidget *>();
}

}

void TestWorkArea::startPageStandsWhileNothingIsOpen()
{
    auto *start = new QLabel(u"start"_s);
    WorkArea area(start);
    QCOMPARE(tabs(area)->currentWidget(), start);
    area.addPage(new Page(u"one"_s));
    QVERIFY(tabs(area)->currentWidget() != start);
    area.closeCurrent();
    QCOMPARE(tabs(area)->currentWidget(), start);
    area.closeCurrent();
    QCOMPARE(area.count(), 0);
    QCOMPARE(tabs(area)->currentWidget(), start);
}

void TestWorkArea::startPageKeepsItsTab()
{
    auto *start = new QLabel(u"start"_s);
    start->setAccessibleName(u"begin"_s);
    WorkArea area(start);
    for (const QString &title : {u"one"_s, u"two"_s})
        area.addPage(new Page(title));
    QCOMPARE(tabs(area)->tabText(0), u"begin"_s);
    const QTabBar *bar = tabs(area)->tabBar();
    for (const QTabBar::ButtonPosition side : {QTabBar::LeftSide, QTabBar::RightSide})
        QVERIFY(!bar->tabButton(0, side));
    QVERIFY(bar->tabButton(1, QTabBar::LeftSide) || bar->tabButton(1, QTabBar::RightSide));
    // It comes to the front while pages stay open, and nothing closes it.
    area.showStartPage();
    QVERIFY(!area.currentPage());
    QCOMPARE(area.count(), 2);
    area.closeCurrent();
    Q_EMIT tabs(area)->tabCloseRequested(0);
    QCOMPARE(area.count(), 2);
    QCOMPARE(tabs(area)->count(), 3);
    QCOMPARE(area.page(0)->title(), u"one"_s);
    QVERIFY(!area.page(2));
    QVERIFY(!area.page(-1));
    // An open page comes to the front from there as well.
    area.setCurrent(1);
    QCOMPARE(area.currentPage()->title(), u"two"_s);
}

void TestWorkArea::startPageStaysFirstWhenTabsAreDrawnAbout()
{
    auto *start = new QLabel(u"start"_s);
    WorkArea area(start);
    for (const QString &title : {u"one"_s, u"two"_s})
        area.addPage(new Page(title));
    area.resize(600, 300);
    area.show();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    QTabBar *bar = tabs(area)->tabBar();
    const QPoint from = bar->tabRect(2).center();
    const QPoint to = bar->tabRect(0).center();
    QTest::mousePress(bar, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 10; ++step)
        QTest::mouseMove(bar, from + (to - from) * step / 10);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, to);
    QTRY_COMPARE(tabs(area)->indexOf(start), 0);
    QCOMPARE(area.count(), 2);
    QVERIFY(area.page(0) && area.page(1));
}

void TestWorkArea::pagesBecomeTabs()
{
    WorkArea area(new QWidget);
    area.addPage(new Page(u"one"_s));
    auto *two = new Page(u"two"_s);
    area.addPage(two);
    QCOMPARE(area.count(), 2);
    QCOMPARE(area.currentPage(), two);
    QCOMPARE(tabs(area)->tabText(1), u"one"_s);
    QVERIFY(tabs(area)->tabsClosable());
}

void TestWorkArea::titleFollowsThePage()
{
    WorkArea area(new QWidget);
    auto *page = new Page(u"one"_s);
    area.addPage(page);
    page->setTitle(u"renamed"_s);
    QCOMPARE(tabs(area)->tabText(1), u"renamed"_s);
}

void TestWorkArea::closingTellsThePageOnceAndDestroysIt()
{
    int closings = 0;
    WorkArea area(new QWidget);
    const QPointer<Page> page = new Page(u"one"_s, &closings);
    area.addPage(page);
    Q_EMIT tabs(area)->tabCloseRequested(1);
    QCOMPARE(closings, 1);
    QTRY_VERIFY(!page);
    QCOMPARE(closings, 1);
}

void TestWorkArea::pageMayAskToBeClosed()
{
    WorkArea area(new QWidget);
    const QPointer<Page> page = new Page(u"one"_s);
    area.addPage(page);
    area.addPage(new Page(u"two"_s));
    Q_EMIT page->closeRequested();
    Q_EMIT page->closeRequested();
    QTRY_VERIFY(!page);
    QCOMPARE(area.count(), 1);
    QCOMPARE(area.currentPage()->title(), u"two"_s);
}

void TestWorkArea::keysCloseAndWalkThroughThePages()
{
    WorkArea area(new QWidget);
    for (const QString &title : {u"one"_s, u"two"_s, u"three"_s})
        area.addPage(new Page(title));
    area.show();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    const auto press = [&area](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(static_cast<Page *>(area.currentPage())->m_edit, key, modifiers);
    };
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(area.currentPage()->title(), u"one"_s);
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(area.currentPage()->title(), u"two"_s);
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(area.currentPage()->title(), u"one"_s);
    press(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(area.count(), 2);
    QCOMPARE(area.currentPage()->title(), u"two"_s);
    press(Qt::Key_Home, Qt::AltModifier);
    QVERIFY(!area.currentPage());
    QTest::keyClick(&area, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(area.currentPage()->title(), u"two"_s);
    area.showStartPage();
    QTest::keyClick(&area, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(area.currentPage()->title(), u"three"_s);
}

void TestWorkArea::pageThatCannotStoreItsSettingsStillCloses()
{
    g_pDlgWarning->answerAll(true);
    WorkArea area(new QWidget);
    const QPointer<Page> page = new Page(u"one"_s);
    page->m_fails = true;
    area.addPage(page);
    area.closeCurrent();
    QTRY_VERIFY(!page);
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    g_pDlgWarning->answerAll(false);
}

void TestWorkArea::closeAllLeavesNoPageAlive()
{
    int closings = 0;
    WorkArea area(new QWidget);
    const QPointer<Page> one = new Page(u"one"_s, &closings);
    const QPointer<Page> two = new Page(u"two"_s, &closings);
    area.addPage(one);
    area.addPage(two);
    area.closeAll();
    QVERIFY(!one);
    QVERIFY(!two);
    QCOMPARE(closings, 2);
    QCOMPARE(area.count(), 0);
}

void TestWorkArea::openPageComesToTheFront()
{
    WorkArea area(new QWidget);
    int opened = 0;
    const auto cars = [&] {
        ++opened;
        area.addPage(new Page(u"cars"_s));
    };
    const auto persons = [&area] { area.addPage(new Page(u"persons"_s)); };
    area.open(u"cars"_s, false, cars);
    area.open(u"persons"_s, false, persons);
    QCOMPARE(area.currentPage()->title(), u"persons"_s);
    area.open(u"cars"_s, false, cars);
    QCOMPARE(opened, 1);
    QCOMPARE(area.count(), 2);
    QCOMPARE(area.currentPage()->title(), u"cars"_s);
    QCOMPARE(static_cast<Page *>(area.currentPage())->m_refreshed, 1);
    area.closeCurrent();
    area.open(u"cars"_s, false, cars);
    QCOMPARE(opened, 2);
}

void TestWorkArea::otherPagesOfAKindAreNumbered()
{
    WorkArea area(new QWidget);
    const auto open = [&area](const QString &title, bool another) {
        area.open(title, another, [&] { area.addPage(new Page(title)); });
    };
    const auto texts = [&area] {
        QStringList shown;
        for (int index = 0; index < area.count(); ++index)
            shown.append(tabs(area)->tabText(index + 1));
        return shown;
    };
    open(u"cars"_s, false);
    open(u"cars"_s, true);
    open(u"persons"_s, true);
    open(u"cars"_s, true);
    QCOMPARE(texts(), (QStringList{u"cars"_s, u"cars (2)"_s, u"persons"_s, u"cars (3)"_s}));
    // The page used last is the one that comes back.
    area.setCurrent(1);
    area.setCurrent(2);
    open(u"cars"_s, false);
    QCOMPARE(tabs(area)->currentIndex(), 2);
    area.currentPage()->setTitle(u"cars of today"_s);
    QCOMPARE(tabs(area)->tabText(2), u"cars of today (2)"_s);
    // A number that is free again is used again.
    area.closeCurrent();
    open(u"cars"_s, true);
    QCOMPARE(texts(), (QStringList{u"cars"_s, u"persons"_s, u"cars (3)"_s, u"cars (2)"_s}));
}

// A screen reader's command reaches the tab past a modal window that stands on the page's own code.
void TestWorkArea::pageStaysWhileAModalWindowIsOpen()
{
    int closings = 0;
    WorkArea area(new QWidget);
    const QPointer<Page> page = new Page(u"one"_s, &closings);
    area.addPage(page);
    QDialog dialog(page);
    dialog.setModal(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    Q_EMIT tabs(area)->tabCloseRequested(1);
    QTest::qWait(0);
    QCOMPARE(closings, 0);
    QCOMPARE(area.count(), 1);
    dialog.close();
    Q_EMIT tabs(area)->tabCloseRequested(1);
    QCOMPARE(closings, 1);
}

static const RegisteredTest<TestWorkArea, QApplication> registeredWorkArea;
#include "TestWorkArea.moc"

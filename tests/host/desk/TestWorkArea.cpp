// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/WorkArea.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include <stdexcept>

class TestWorkArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startPageStandsWhileNothingIsOpen();
    void pagesBecomeTabs();
    void titleFollowsThePage();
    void closingTellsThePageOnceAndDestroysIt();
    void pageMayAskToBeClosed();
    void keysCloseAndWalkThroughThePages();
    void pageThatCannotStoreItsSettingsStillCloses();
    void closeAllLeavesNoPageAlive();
    void pageOfATypeIsFoundAgain();
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

    QLineEdit *m_edit = nullptr;
    bool m_fails = false;

private:
    int *m_closings;
};

class OtherPage : public KDialogTabPage
{
    Q_OBJECT
};

QTabWidget *tabs(const WorkArea &area)
{
    return area.findChild<QTabWidget *>();
}

}

void TestWorkArea::startPageStandsWhileNothingIsOpen()
{
    auto *start = new QLabel(QStringLiteral("start"));
    WorkArea area(start);
    QCOMPARE(area.currentWidget(), start);
    area.addPage(new Page(QStringLiteral("one")));
    QVERIFY(area.currentWidget() != start);
    area.closeCurrent();
    QCOMPARE(area.currentWidget(), start);
    area.closeCurrent();
    QCOMPARE(area.count(), 0);
}

void TestWorkArea::pagesBecomeTabs()
{
    WorkArea area(new QWidget);
    area.addPage(new Page(QStringLiteral("one")));
    auto *two = new Page(QStringLiteral("two"));
    area.addPage(two);
    QCOMPARE(area.count(), 2);
    QCOMPARE(area.currentPage(), two);
    QCOMPARE(tabs(area)->tabText(0), QStringLiteral("one"));
    QVERIFY(tabs(area)->tabsClosable());
}

void TestWorkArea::titleFollowsThePage()
{
    WorkArea area(new QWidget);
    auto *page = new Page(QStringLiteral("one"));
    area.addPage(page);
    page->setTitle(QStringLiteral("renamed"));
    QCOMPARE(tabs(area)->tabText(0), QStringLiteral("renamed"));
}

void TestWorkArea::closingTellsThePageOnceAndDestroysIt()
{
    int closings = 0;
    WorkArea area(new QWidget);
    const QPointer<Page> page = new Page(QStringLiteral("one"), &closings);
    area.addPage(page);
    Q_EMIT tabs(area)->tabCloseRequested(0);
    QCOMPARE(closings, 1);
    QTRY_VERIFY(!page);
    QCOMPARE(closings, 1);
}

void TestWorkArea::pageMayAskToBeClosed()
{
    WorkArea area(new QWidget);
    const QPointer<Page> page = new Page(QStringLiteral("one"));
    area.addPage(page);
    area.addPage(new Page(QStringLiteral("two")));
    Q_EMIT page->closeRequested();
    Q_EMIT page->closeRequested();
    QTRY_VERIFY(!page);
    QCOMPARE(area.count(), 1);
    QCOMPARE(area.currentPage()->title(), QStringLiteral("two"));
}

void TestWorkArea::keysCloseAndWalkThroughThePages()
{
    WorkArea area(new QWidget);
    for (const QString &title : {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")})
        area.addPage(new Page(title));
    area.show();
    QVERIFY(QTest::qWaitForWindowActive(&area));
    const auto press = [&area](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(static_cast<Page *>(area.currentPage())->m_edit, key, modifiers);
    };
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(area.currentPage()->title(), QStringLiteral("one"));
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(area.currentPage()->title(), QStringLiteral("two"));
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(area.currentPage()->title(), QStringLiteral("one"));
    press(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(area.count(), 2);
    QCOMPARE(area.currentPage()->title(), QStringLiteral("two"));
}

void TestWorkArea::pageThatCannotStoreItsSettingsStillCloses()
{
    g_pDlgWarning->answerAll(true);
    WorkArea area(new QWidget);
    const QPointer<Page> page = new Page(QStringLiteral("one"));
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
    const QPointer<Page> one = new Page(QStringLiteral("one"), &closings);
    const QPointer<Page> two = new Page(QStringLiteral("two"), &closings);
    area.addPage(one);
    area.addPage(two);
    area.closeAll();
    QVERIFY(!one);
    QVERIFY(!two);
    QCOMPARE(closings, 2);
    QCOMPARE(area.count(), 0);
}

void TestWorkArea::pageOfATypeIsFoundAgain()
{
    WorkArea area(new QWidget);
    QVERIFY(!area.showExisting<OtherPage>());
    area.addPage(new OtherPage);
    area.addPage(new Page(QStringLiteral("two")));
    QVERIFY(area.showExisting<OtherPage>());
    QVERIFY(qobject_cast<OtherPage *>(area.currentPage()));
}

static const RegisteredTest<TestWorkArea, QApplication> registered;
#include "TestWorkArea.moc"

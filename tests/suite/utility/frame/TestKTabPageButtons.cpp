// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KTabPageButtons.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

class TestKTabPageButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_tabs.reset(); }
    void theFirstPageIsCurrent();
    void withoutPages();
    void aClickShowsItsPage();
    void aClickOnTheCurrentButtonKeepsItPressed();
    void keys_data();
    void keys();
    void keysFromADropDown_data() { keys_data(); }
    void keysFromADropDown();
    void keysFromBesideThePages();
    void arrowsOnTheButtons();
    void disabledPagesArePassedOver();
    void disablingTheCurrentPageLeavesIt();
    void aPageThatIsNotShownIsAsIfNotAdded();
    void positionsThatDoNotExist();
    void titlesAreTheButtonsNames();
    void screenReaderPressesATab();
    void buttonsComeBeforeThePagesWithTab();

private:
    std::unique_ptr<KTabPageButtons> m_tabs;
    QList<QLineEdit *> m_fields;
};

void TestKTabPageButtons::init()
{
    m_tabs = std::make_unique<KTabPageButtons>();
    m_tabs->setLayoutDirection(Qt::RightToLeft);
    m_fields.clear();
    for (const QString &title :
         {u"اطلاعات پایه"_s, u"مورد معامله"_s, u"پیوست"_s}) {
        auto *page = new QWidget;
        m_fields.append(new QLineEdit(page));
        (new QVBoxLayout(page))->addWidget(m_fields.last());
        m_tabs->addPage(page, title);
    }
    m_tabs->show();
    m_tabs->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tabs.get()));
}

void TestKTabPageButtons::theFirstPageIsCurrent()
{
    QCOMPARE(m_tabs->count(), 3);
    QCOMPARE(m_tabs->currentIndex(), 0);
    QVERIFY(m_tabs->button(0)->isChecked());
    QVERIFY(m_fields[0]->isVisible());
    QVERIFY(!m_fields[1]->isVisible());
    // The row runs from right to left.
    QVERIFY(m_tabs->button(0)->x() > m_tabs->button(1)->x());
}

void TestKTabPageButtons::withoutPages()
{
    KTabPageButtons empty;
    QCOMPARE(empty.currentIndex(), -1);
    QVERIFY(!empty.currentPage());
    empty.nextPage();
    empty.setCurrentIndex(0);
    QCOMPARE(empty.currentIndex(), -1);
}

void TestKTabPageButtons::aClickShowsItsPage()
{
    QSignalSpy changed(m_tabs.get(), &KTabPageButtons::currentChanged);
    QTest::mouseClick(m_tabs->button(2), Qt::LeftButton);
    QCOMPARE(m_tabs->currentIndex(), 2);
    QVERIFY(m_fields[2]->isVisible());
    QVERIFY(!m_tabs->button(0)->isChecked());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().toInt(), 2);
}

void TestKTabPageButtons::aClickOnTheCurrentButtonKeepsItPressed()
{
    QSignalSpy changed(m_tabs.get(), &KTabPageButtons::currentChanged);
    QTest::mouseClick(m_tabs->button(0), Qt::LeftButton);
    QVERIFY(m_tabs->button(0)->isChecked());
    QCOMPARE(changed.size(), 0);
}

void TestKTabPageButtons::keys_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("to");
    using M = Qt::KeyboardModifiers;
    const M control = Qt::ControlModifier;
    QTest::newRow("Ctrl+Tab") << 0 << Qt::Key_Tab << control << 1;
    QTest::newRow("Ctrl+Tab round the end") << 2 << Qt::Key_Tab << control << 0;
    QTest::newRow("Ctrl+Shift+Tab") << 1 << Qt::Key_Backtab << M(control | Qt::ShiftModifier) << 0;
    QTest::newRow("Ctrl+Shift+Tab round the start") << 0 << Qt::Key_Tab << M(control | Qt::ShiftModifier) << 2;
    QTest::newRow("Ctrl+PageDown") << 1 << Qt::Key_PageDown << control << 2;
    QTest::newRow("Ctrl+PageUp") << 1 << Qt::Key_PageUp << control << 0;
    QTest::newRow("PageDown alone") << 1 << Qt::Key_PageDown << M() << 1;
}

void TestKTabPageButtons::keys()
{
    QFETCH(int, from);
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    m_tabs->setCurrentIndex(from);
    m_fields[from]->setFocus();
    QTest::keyClick(m_fields[from], key, modifiers);
    QTEST(m_tabs->currentIndex(), "to");
    QVERIFY(m_tabs->button(m_tabs->currentIndex())->isChecked());
}

// A drop-down takes each of these keys for itself, to search its entries or to go through them.
void TestKTabPageButtons::keysFromADropDown()
{
    QFETCH(int, from);
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    m_tabs->setCurrentIndex(from);
    auto *choice = new QComboBox(m_tabs->page(from));
    choice->addItems({u"پژو"_s, u"سمند"_s});
    choice->show();
    choice->setFocus();
    QTest::keyClick(choice, key, modifiers);
    QTEST(m_tabs->currentIndex(), "to");
    QCOMPARE(choice->currentIndex(), modifiers == Qt::NoModifier ? 1 : 0);
}

void TestKTabPageButtons::keysFromBesideThePages()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(m_tabs.get());
    const auto takenBack = qScopeGuard([this] { m_tabs->setParent(nullptr); });
    auto *confirm = new QPushButton(u"تاييد"_s);
    layout->addWidget(confirm);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    confirm->setFocus();
    QTest::keyClick(confirm, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(m_tabs->currentIndex(), 1);
    QTest::keyClick(confirm, Qt::Key_PageUp, Qt::ControlModifier);
    QCOMPARE(m_tabs->currentIndex(), 0);
    QVERIFY(confirm->hasFocus());
}

void TestKTabPageButtons::arrowsOnTheButtons()
{
    m_tabs->button(0)->setFocus();
    QTest::keyClick(m_tabs->button(0), Qt::Key_Left);
    QCOMPARE(m_tabs->currentIndex(), 1);
    QVERIFY(m_tabs->button(1)->hasFocus());
    QTest::keyClick(m_tabs->button(1), Qt::Key_Right);
    QCOMPARE(m_tabs->currentIndex(), 0);
}

void TestKTabPageButtons::disabledPagesArePassedOver()
{
    m_tabs->setPageEnabled(1, false);
    m_tabs->nextPage();
    QCOMPARE(m_tabs->currentIndex(), 2);
    m_tabs->previousPage();
    QCOMPARE(m_tabs->currentIndex(), 0);
    m_tabs->setCurrentIndex(1);
    QCOMPARE(m_tabs->currentIndex(), 0);
    QVERIFY(m_tabs->button(0)->isChecked());
}

void TestKTabPageButtons::disablingTheCurrentPageLeavesIt()
{
    m_tabs->setPageEnabled(0, false);
    QCOMPARE(m_tabs->currentIndex(), 1);
}

void TestKTabPageButtons::aPageThatIsNotShownIsAsIfNotAdded()
{
    m_tabs->setCurrentIndex(1);
    m_tabs->setPageShown(1, false);
    QVERIFY(!m_tabs->button(1)->isVisible());
    QCOMPARE(m_tabs->currentIndex(), 2);
    m_tabs->setCurrentIndex(1);
    QCOMPARE(m_tabs->currentIndex(), 2);
    m_tabs->previousPage();
    QCOMPARE(m_tabs->currentIndex(), 0);
    m_tabs->setPageShown(1, true);
    QVERIFY(m_tabs->button(1)->isVisible());
    m_tabs->nextPage();
    QCOMPARE(m_tabs->currentIndex(), 1);
    m_tabs->setPageShown(7, true);
    QCOMPARE(m_tabs->count(), 3);
}

void TestKTabPageButtons::positionsThatDoNotExist()
{
    m_tabs->setCurrentIndex(3);
    m_tabs->setCurrentIndex(-1);
    m_tabs->setPageEnabled(7, false);
    m_tabs->setPageTitle(7, u"x"_s);
    QCOMPARE(m_tabs->currentIndex(), 0);
    QVERIFY(!m_tabs->page(3));
    QVERIFY(!m_tabs->button(3));
}

void TestKTabPageButtons::titlesAreTheButtonsNames()
{
    m_tabs->setPageTitle(1, u"فایل ها"_s);
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(m_tabs->button(1));
    QCOMPARE(reader->text(QAccessible::Name), u"فایل ها"_s);
    QCOMPARE(m_tabs->button(1)->text(), u"فایل ها"_s);
}

void TestKTabPageButtons::screenReaderPressesATab()
{
    QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(m_tabs->button(1));
    QVERIFY(reader && reader->actionInterface());
    QCOMPARE(reader->role(), QAccessible::PageTab);
    QVERIFY(!reader->state().selected);
    reader->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(m_tabs->currentIndex(), 1);
    QVERIFY(reader->state().selected);
    m_tabs->setPageEnabled(2, false);
    reader = QAccessible::queryAccessibleInterface(m_tabs->button(2));
    QVERIFY(!reader->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
}

void TestKTabPageButtons::buttonsComeBeforeThePagesWithTab()
{
    m_tabs->setCurrentIndex(1);
    QList<QWidget *> order;
    QWidget *next = m_tabs.get();
    do {
        if (next->focusPolicy() != Qt::NoFocus)
            order.append(next);
        next = next->nextInFocusChain();
    } while (next != m_tabs.get());
    QCOMPARE(order,
             (QList<QWidget *>{m_tabs->button(0), m_tabs->button(1), m_tabs->button(2), m_fields[0], m_fields[1],
                               m_fields[2]}));
    // As in every row of tabs, the pressed one alone is a stop.
    m_tabs->button(1)->setFocus();
    QTest::keyClick(m_tabs->button(1), Qt::Key_Tab);
    QVERIFY(m_fields[1]->hasFocus());
    QTest::keyClick(m_fields[1], Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(m_tabs->button(1)->hasFocus());
}

static const RegisteredTest<TestKTabPageButtons, QApplication> registeredKTabPageButtons;
#include "TestKTabPageButtons.moc"

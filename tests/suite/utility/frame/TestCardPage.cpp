// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookSizes.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListView>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A window of two cards with a number of fields in the second one.
class CardWindow : public KDialog
{
public:
    CardWindow(int width, int fields)
    {
        auto *page = new CardPage(width, this);
        addLabelled(page->addForm(u"اول"_s), u"کد :"_s, new KEdit(this));
        FormGrid *grid = page->addForm(u"دوم"_s);
        for (int i = 0; i < fields; ++i)
            addLabelled(grid, u"فیلد %1 :"_s.arg(i), new KEdit(this));
        setContent(page, createButtons());
    }
};

QRect placeIn(const QWidget &window, const QWidget *widget)
{
    return {widget->mapTo(&window, QPoint()), widget->size()};
}

}

class TestCardPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowIsAsWideAsAskedAndShowsAllOfItsCards();
    void largerFontMakesAWiderWindow();
    void cardsHaveTheSameEdges();
    void tooManyFieldsScrollAboveTheButtons();
    void listTakesTheHeightThatIsLeft();
};

void TestCardPage::windowIsAsWideAsAskedAndShowsAllOfItsCards()
{
    CardWindow window(480, 6);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.width(), LookSizes::scaled(480));
    QCOMPARE(window.findChild<QScrollArea *>()->verticalScrollBar()->maximum(), 0);
    for (const KEdit *edit : window.findChildren<KEdit *>())
        QVERIFY2(window.rect().contains(placeIn(window, edit)), qPrintable(edit->accessibleName()));
}

void TestCardPage::largerFontMakesAWiderWindow()
{
    const QFont font = QApplication::font();
    const int ordinary = CardPage(480).sizeHint().width();
    QFont large = font;
    large.setPointSizeF(font.pointSizeF() * 2);
    QApplication::setFont(large);
    const int enlarged = CardPage(480).sizeHint().width();
    QApplication::setFont(font);
    QVERIFY2(enlarged > ordinary, qPrintable(u"%1 %2"_s.arg(ordinary).arg(enlarged)));
}

void TestCardPage::cardsHaveTheSameEdges()
{
    CardWindow window(480, 3);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QList<QGroupBox *> cards = window.findChildren<QGroupBox *>();
    QCOMPARE(cards.size(), 2);
    QCOMPARE(cards.at(0)->x(), cards.at(1)->x());
    QCOMPARE(cards.at(0)->width(), cards.at(1)->width());
    QVERIFY(cards.at(1)->y() > cards.at(0)->geometry().bottom());
    // From the right edge of the card: the first field of each begins on one line.
    const auto edge = [&window](const QString &name) { return placeIn(window, named<KEdit>(window, name)).right(); };
    QCOMPARE(edge(u"کد :"_s), edge(u"فیلد 0 :"_s));
}

void TestCardPage::tooManyFieldsScrollAboveTheButtons()
{
    CardWindow window(480, 80);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QSize room = window.screen()->availableSize();
    QVERIFY(window.width() <= room.width() && window.height() <= room.height());
    QVERIFY(window.findChild<QScrollArea *>()->verticalScrollBar()->maximum() > 0);
    for (const QPushButton *button : window.findChildren<QPushButton *>())
        QVERIFY(window.rect().contains(placeIn(window, button)));
    // Whoever goes to the last field sees it.
    KEdit *last = named<KEdit>(window, u"فیلد 79 :"_s);
    last->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(!last->visibleRegion().isEmpty());
}

void TestCardPage::listTakesTheHeightThatIsLeft()
{
    CardPage page(480);
    page.addForm();
    const KListCard *list = page.addList(new QListView);
    auto *below = new QPushButton(u"فرمان"_s);
    page.addLine()->addWidget(below);
    page.resize(480, 600);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    QVERIFY(list->height() > 400);
    QVERIFY(placeIn(page, below).top() > list->geometry().bottom());
    QVERIFY(placeIn(page, below).bottom() > 560 && page.rect().contains(placeIn(page, below)));
}

static const RegisteredTest<TestCardPage, QApplication> registeredCardPage;
#include "TestCardPage.moc"

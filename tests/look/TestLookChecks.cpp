// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/ClippedTexts.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "tests/look/FocusWalk.h"
#include "tests/look/GridEdges.h"
#include "tests/look/Placement.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabBar>
#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString words = u"تعهدات مربوط به طرف دوم"_s;
const QString figure = u"2,818,800"_s;

using Find = QStringList (*)(const QWidget &);
// Puts one thing into a window of 400 by 300, as it should be or with the fault.
using Plant = std::function<void(QWidget &window, bool faulty)>;

struct Planted
{
    const char *name;
    Find find;
    Plant plant;
    QString said; // part of what the check says about it
};

// A stop of the Tab key that paints nothing for the focus, or a ring.
class Stop : public QWidget
{
public:
    Stop(QWidget *parent, bool showsFocus)
        : QWidget(parent)
        , m_showsFocus(showsFocus)
    {
        setFocusPolicy(Qt::StrongFocus);
    }

    void keepTab(bool keeps) { m_keepsTab = keeps; }

protected:
    bool focusNextPrevChild(bool next) override { return m_keepsTab || QWidget::focusNextPrevChild(next); }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (m_showsFocus && hasFocus())
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    bool m_showsFocus;
    bool m_keepsTab = false;
};

// A line whose frame says nothing: the caret and the selected text alone change.
class BareLine : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    static BareLine *make(QWidget *parent, bool faulty)
    {
        auto *line = new BareLine(figure, parent);
        line->setFrame(!faulty);
        line->setTextMargins(8, 4, 8, 4);
        return line;
    }
};

template <class Widget>
Widget *place(Widget *widget, const QRect &rect, const QString &name = {})
{
    widget->setGeometry(rect);
    widget->setAccessibleName(name);
    return widget;
}

// A list of one row and one column of that width.
QTreeWidget *list(QWidget &window, const QString &title, const QString &cell, int width)
{
    auto *tree = place(new QTreeWidget(&window), {10, 10, 380, 200}, u"list"_s);
    tree->setRootIsDecorated(false);
    tree->setColumnCount(2);
    tree->setHeaderLabels({title, u"-"_s});
    new QTreeWidgetItem(tree, {cell, u"-"_s});
    tree->header()->setMinimumSectionSize(10);
    tree->header()->setStretchLastSection(true);
    tree->header()->resizeSection(0, width);
    return tree;
}

std::vector<Planted> clippedTexts()
{
    const Find find = &ClippedTexts::in;
    return {
        {"label", find, [](QWidget &window, bool faulty) { place(new QLabel(words, &window), {10, 10, faulty ? 60 : 300, 30}); }, u"QLabel"_s},
        {"low label", find, [](QWidget &window, bool faulty) { place(new QLabel(words, &window), {10, 10, 300, faulty ? 8 : 30}); }, u"high"_s},
        {"wrapping label", find,
         [](QWidget &window, bool faulty) {
             auto *label = place(new QLabel(words, &window), {10, 10, 70, faulty ? 20 : 200});
             label->setWordWrap(true);
         },
         u"high"_s},
        {"button", find, [](QWidget &window, bool faulty) { place(new QPushButton(words, &window), {10, 10, faulty ? 80 : 300, 30}); }, u"QPushButton"_s},
        {"check box", find, [](QWidget &window, bool faulty) { place(new QCheckBox(words, &window), {10, 10, faulty ? 80 : 300, 30}); }, u"QCheckBox"_s},
        {"title of a group", find, [](QWidget &window, bool faulty) { place(new QGroupBox(words, &window), {10, 10, faulty ? 80 : 300, 60}); }, u"QGroupBox"_s},
        {"drop-down", find,
         [](QWidget &window, bool faulty) { place(new QComboBox(&window), {10, 10, faulty ? 80 : 300, 30})->addItem(words); }, u"QComboBox"_s},
        {"figure in a line", find, [](QWidget &window, bool faulty) { place(new QLineEdit(figure, &window), {10, 10, faulty ? 40 : 300, 30}); }, figure},
        {"figure in a line with a tip", find,
         [](QWidget &window, bool faulty) { place(new QLineEdit(figure, &window), {10, 10, faulty ? 40 : 300, 30})->setToolTip(figure); }, figure},
        {"words in a line", find,
         [](QWidget &window, bool faulty) {
             auto *line = place(new QLineEdit(words, &window), {10, 10, 40, 30});
             line->setToolTip(faulty ? QString() : words);
             line->setFocusPolicy(Qt::NoFocus);
         },
         words},
        {"tab", find,
         [](QWidget &window, bool faulty) {
             auto *tabs = place(new QTabBar(&window), {10, 10, faulty ? 120 : 380, 30});
             tabs->setUsesScrollButtons(false);
             tabs->setElideMode(Qt::ElideRight);
             tabs->addTab(u"-"_s);
             tabs->addTab(words);
             tabs->setExpanding(false);
         },
         u"QTabBar"_s},
        {"menu", find,
         [](QWidget &window, bool faulty) {
             auto *menus = place(new QMenuBar(&window), {0, 0, faulty ? 160 : 380, 30});
             for (int i = 0; i < 2; ++i)
                 menus->addMenu(words);
         },
         u"QMenuBar"_s},
        {"title of a column", find, [](QWidget &window, bool faulty) { list(window, words, u"-"_s, faulty ? 60 : 250); }, u"QHeaderView"_s},
        {"figure in a column", find, [](QWidget &window, bool faulty) { list(window, u"-"_s, figure, faulty ? 30 : 250); }, figure},
        {"words in a column", find,
         [](QWidget &window, bool faulty) {
             list(window, u"-"_s, words, 60)->topLevelItem(0)->setToolTip(0, faulty ? QString() : words);
         },
         words},
    };
}

std::vector<Planted> placement()
{
    const Find reach = &Placement::outOfReach;
    const auto scrolled = [](QWidget &window, const QSize &size) {
        auto *area = place(new QScrollArea(&window), {10, 10, 200, 200});
        auto *page = place(new QWidget, QRect(QPoint(), size), u"page"_s);
        page->resize(size);
        area->setWidget(page);
        return area;
    };
    return {
        {"beyond the window", reach, [](QWidget &window, bool faulty) { place(new QPushButton(&window), {faulty ? 350 : 300, 10, 80, 30}, u"out"_s); }, u"out"_s},
        {"beyond the group", reach,
         [](QWidget &window, bool faulty) {
             auto *group = place(new QGroupBox(&window), {10, 10, 200, 60});
             place(new QLabel(words, group), {10, faulty ? 50 : 20, 150, 30});
         },
         words},
        {"sideways", reach, [=](QWidget &window, bool faulty) { scrolled(window, {faulty ? 300 : 150, 400}); }, u"sideways"_s},
        {"below what scrolls", reach,
         [=](QWidget &window, bool faulty) {
             scrolled(window, {150, 400})->setVerticalScrollBarPolicy(faulty ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
         },
         u"nobody can scroll"_s},
        {"page without height", reach, [=](QWidget &window, bool faulty) { scrolled(window, {150, 400})->resize(200, faulty ? 20 : 200); }, u"of its height"_s},
        {"buttons that scroll", reach,
         [=](QWidget &window, bool faulty) {
             const QScrollArea *area = scrolled(window, {150, 400});
             auto *buttons = place(new QDialogButtonBox(QDialogButtonBox::Ok, faulty ? area->widget() : &window), {0, 220, 120, 40}, u"buttons"_s);
             buttons->show();
         },
         u"can be scrolled out of sight"_s},
        {"overlap", &Placement::overlaps,
         [](QWidget &window, bool faulty) {
             place(new QLabel(words, &window), {10, 10, 200, 30});
             place(new QLineEdit(&window), {faulty ? 190 : 220, 10, 100, 30}, u"line"_s);
         },
         u"cover each other"_s},
        {"larger than the screen", &Placement::beyondScreen,
         [](QWidget &window, bool faulty) { window.resize(faulty ? window.screen()->availableGeometry().size() : QSize(400, 300)); }, u"the screen has"_s},
    };
}

// Layouts put everything where it belongs; the fault is what a window does to it afterwards.
std::vector<Planted> grid()
{
    const auto page = [](QWidget &window) {
        window.resize(1300, 400);
        auto *stack = new CardStack(&window);
        for (const QString &name : {u"first"_s, u"second"_s}) {
            auto *card = new QGroupBox(name, &window);
            auto *grid = new FormGrid(card);
            for (int field = 1; field <= 3; ++field)
                grid->addField(new QLabel(name, card), nullptr, place(new QLineEdit(card), {}, name + QString::number(field)), field);
            stack->addCard(card);
        }
        window.show();
        QCoreApplication::processEvents();
    };
    const auto move = [page](QWidget &window, const QString &field, const QMargins &by) {
        page(window);
        for (auto *line : window.findChildren<QLineEdit *>()) {
            if (line->accessibleName() == field)
                line->setGeometry(line->geometry().marginsAdded(by));
        }
    };
    return {
        {"field begins beside its column", &GridEdges::fields, [=](QWidget &window, bool faulty) { move(window, u"first2"_s, {0, 0, faulty ? -5 : 0, 0}); },
         u"first2» begins at"_s},
        {"field ends beside its column", &GridEdges::fields, [=](QWidget &window, bool faulty) { move(window, u"second2"_s, {faulty ? -5 : 0, 0, 0, 0}); },
         u"second2» ends at"_s},
        {"card that is narrower", &GridEdges::cards,
         [=](QWidget &window, bool faulty) {
             page(window);
             auto *card = window.findChildren<QGroupBox *>().constLast();
             card->move(card->x() - (faulty ? 3 : 0), card->y());
         },
         u"row of QGroupBox"_s},
        {"columns of its own", &GridEdges::cards,
         [=](QWidget &window, bool faulty) {
             page(window);
             window.findChildren<QGroupBox *>().constLast()->layout()->setContentsMargins(faulty ? 100 : 15, 7, 15, 9);
         },
         u"is none of"_s},
    };
}

QStringList walked(const QWidget &window)
{
    return FocusWalk::faults(const_cast<QWidget &>(window));
}

std::vector<Planted> focus()
{
    const auto pair = [](QWidget &window, const QString &first, const QString &second, const QPoint &to) {
        auto *group = place(new QGroupBox(&window), {0, 0, 380, 200});
        place(new QPushButton(first, group), {200, 40, 100, 30});
        place(new QPushButton(second, group), QRect(to, QSize(100, 30)));
    };
    return {
        {"no ring", &walked,
         [](QWidget &window, bool faulty) {
             place(new Stop(&window, !faulty), {10, 10, 100, 30}, u"bare"_s);
             place(new Stop(&window, true), {10, 50, 100, 30}, u"ringed"_s);
         },
         u"bare» looks the same"_s},
        {"caret alone", &walked,
         [](QWidget &window, bool faulty) {
             place(BareLine::make(&window, faulty), {10, 10, 200, 40}, u"line"_s);
             place(new Stop(&window, true), {10, 60, 100, 30}, u"ringed"_s);
         },
         u"line» looks the same"_s},
        {"Tab that is kept", &walked,
         [](QWidget &window, bool faulty) {
             place(new Stop(&window, true), {10, 10, 100, 30}, u"greedy"_s)->keepTab(faulty);
             place(new Stop(&window, true), {10, 50, 100, 30}, u"ringed"_s);
         },
         u"does not lead on"_s},
        {"from left to right", &walked, [=](QWidget &window, bool faulty) { pair(window, u"one"_s, u"two"_s, {faulty ? 310 : 50, 40}); }, u"stands behind"_s},
        {"from below", &walked, [=](QWidget &window, bool faulty) { pair(window, u"one"_s, u"two"_s, {200, faulty ? 0 : 80}); }, u"stands behind"_s},
        {"foot first", &walked,
         [](QWidget &window, bool faulty) {
             const auto addField = [&] { place(new Stop(&window, true), {10, 10, 100, 30}, u"field"_s); };
             if (!faulty)
                 addField();
             place(new QDialogButtonBox(&window), {10, 100, 120, 40})->addButton(u"close"_s, QDialogButtonBox::ActionRole);
             if (faulty)
                 addField();
         },
         u"after the buttons"_s},
    };
}

}

Q_DECLARE_METATYPE(Planted)

// A check that cannot fail proves nothing: each is shown a window without its fault, and the same with it.
class TestLookChecks : public QObject
{
    Q_OBJECT

    static QStringList found(const Planted &planted, bool faulty)
    {
        QWidget window;
        window.setLayoutDirection(Qt::RightToLeft);
        window.resize(400, 300);
        planted.plant(window, faulty);
        if (!window.isVisible())
            window.show();
        if (!QTest::qWaitForWindowActive(&window))
            QTest::qFail("the window did not come up", __FILE__, __LINE__);
        QCoreApplication::processEvents();
        return planted.find(window);
    }

private Q_SLOTS:
    void faultIsFound_data()
    {
        QTest::addColumn<Planted>("planted");
        for (const std::vector<Planted> &each : {clippedTexts(), placement(), grid(), focus()}) {
            for (const Planted &planted : each)
                QTest::newRow(planted.name) << planted;
        }
    }

    void faultIsFound()
    {
        QFETCH(Planted, planted);
        const QStringList without = found(planted, false);
        QVERIFY2(without.isEmpty(), qPrintable(without.join(u'\n')));
        const QStringList with = found(planted, true);
        QVERIFY2(!with.isEmpty() && with.constFirst().contains(planted.said), qPrintable(with.join(u'\n')));
    }
};

static const RegisteredTest<TestLookChecks, QApplication> registeredLookChecks;

#include "TestLookChecks.moc"

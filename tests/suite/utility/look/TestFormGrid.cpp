// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Card
{
    explicit Card(QWidget *page = nullptr, FormGrid::Extent extent = FormGrid::Extent::Full)
        : box(new QWidget(page))
        , grid(new FormGrid(box, extent))
    {
        box->setLayoutDirection(Qt::RightToLeft);
    }

    QLineEdit *add(const QString &caption, int span = 1) const
    {
        auto *line = new QLineEdit(box);
        addLabelled(grid, caption, line, span);
        return line;
    }

    QWidget *box;
    FormGrid *grid;
};

// Shows the card at that width of what is inside its margins.
void show(const Card &card, int inside)
{
    const QMargins margins = card.grid->contentsMargins();
    card.box->resize(inside + margins.left() + margins.right(), 600);
    card.box->show();
    card.grid->activate();
}

QRect onCard(const QWidget *widget, const QWidget *card)
{
    return {widget->mapTo(card, QPoint()), widget->size()};
}

const QLabel *labelOf(const QWidget *control)
{
    for (const QLabel *label : control->parentWidget()->findChildren<QLabel *>()) {
        if (label->buddy() == control)
            return label;
    }
    return nullptr;
}

}

class TestFormGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsComeFromTheRoom_data()
    {
        QTest::addColumn<bool>("half");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("columns");
        QTest::newRow("a wide page") << false << 1136 << 8;
        QTest::newRow("just less") << false << 1135 << 4;
        QTest::newRow("a notebook at 125 %") << false << 656 << 4;
        QTest::newRow("narrow") << false << 655 << 2;
        QTest::newRow("half of a wide page") << true << 544 << 4;
        QTest::newRow("a half alone on a wide page") << true << 1200 << 4;
        QTest::newRow("a narrow half") << true << 543 << 2;
    }
    void columnsComeFromTheRoom()
    {
        QFETCH(bool, half);
        QFETCH(int, width);
        const Card card(nullptr, half ? FormGrid::Extent::Half : FormGrid::Extent::Full);
        QTEST(card.grid->columnsFor(width), "columns");
        delete card.box;
    }

    void labelsStandAboveTheirControlsFromTheRight()
    {
        const Card card;
        QLineEdit *first = card.add(u"کد :"_s);
        QLineEdit *second = card.add(u"تاريخ :"_s);
        show(card, 1136);
        const QRect one = onCard(first, card.box);
        const QRect two = onCard(second, card.box);
        QVERIFY(two.right() < one.left());
        QCOMPARE(one.top(), two.top());
        QCOMPARE(one.width(), two.width());
        const QRect label = onCard(labelOf(first), card.box);
        QCOMPARE(label.right(), one.right());
        QVERIFY(label.bottom() < one.top());
        delete card.box;
    }

    // The edges of every field are those of columns, whatever it spans.
    void edgesLieOnTheColumns_data()
    {
        QTest::addColumn<int>("width");
        QTest::newRow("8") << 1203;
        QTest::newRow("4") << 777;
        QTest::newRow("2") << 417;
    }
    void edgesLieOnTheColumns()
    {
        QFETCH(int, width);
        const Card card;
        QList<QLineEdit *> fields;
        for (const int span : {1, 2, 1, 3, 4, 6, 1, 8})
            fields.append(card.add(u"برچسب %1 :"_s.arg(span), span));
        show(card, width);
        const auto columns = card.grid->columns();
        QSet<int> from;
        QSet<int> to;
        for (const auto &column : columns) {
            from.insert(column.from);
            to.insert(column.to);
        }
        const int leading = card.box->width() - card.grid->contentsMargins().right();
        for (const QLineEdit *field : fields) {
            const QRect rect = onCard(field, card.box);
            QVERIFY(from.contains(leading - rect.right() - 1));
            QVERIFY(to.contains(leading - rect.left()));
        }
        delete card.box;
    }

    void whatDoesNotFitBeginsTheNextRow()
    {
        const Card card;
        QLineEdit *first = card.add(u"یک :"_s, 6);
        QLineEdit *second = card.add(u"دو :"_s, 4);
        QLineEdit *third = card.add(u"سه :"_s, 4);
        show(card, 1136);
        QVERIFY(second->y() > first->y());
        QCOMPARE(third->y(), second->y());
        delete card.box;
    }

    void hiddenFieldsTakeNoRoom()
    {
        const Card card;
        QLineEdit *first = card.add(u"یک :"_s, 4);
        QLineEdit *hidden = card.add(u"دو :"_s, 4);
        QLineEdit *last = card.add(u"سه :"_s, 4);
        show(card, 1136);
        QVERIFY(last->y() > first->y());
        const int height = card.grid->heightForWidth(card.box->width());
        hidden->hide();
        card.grid->activate();
        QCOMPARE(last->y(), first->y());
        QVERIFY(card.grid->heightForWidth(card.box->width()) < height);
        delete card.box;
    }

    void noteGoesWithItsControl()
    {
        const Card card;
        QLineEdit *field = card.add(u"یک :"_s);
        show(card, 1136);
        const FieldNote *note = FieldNote::of(field);
        QVERIFY(note->isVisible());
        field->hide();
        card.grid->activate();
        QVERIFY(!note->isVisible());
        field->show();
        card.grid->activate();
        QVERIFY(note->isVisible());
        delete card.box;
    }

    void anErrorMovesNothing()
    {
        const Card card;
        QLineEdit *field = card.add(u"کد :"_s, 2);
        show(card, 656);
        const QRect before = field->geometry();
        const int height = card.grid->heightForWidth(card.box->width());
        auto *note = card.box->findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(note);
        for (QLabel *label : card.box->findChildren<QLabel *>())
            label->setText(label->text() + u" رقم کنترل درست نیست."_s);
        card.grid->activate();
        QCOMPARE(field->geometry(), before);
        QCOMPARE(card.grid->heightForWidth(card.box->width()), height);
        delete card.box;
    }

    void cellsWithoutALabelStandInTheLineOfTheControls()
    {
        const Card card;
        QLineEdit *field = card.add(u"مبلغ :"_s, 2);
        auto *words = new QLabel(u"هشت میلیارد"_s, card.box);
        card.grid->addCell(words, 2);
        show(card, 1136);
        QCOMPARE(onCard(words, card.box).center().y(), onCard(field, card.box).center().y());
        delete card.box;
    }

    void cardsSideBySideShareTheColumnsOfAWideCard()
    {
        QWidget page;
        page.setLayoutDirection(Qt::RightToLeft);
        const Card wide(&page);
        const Card left(&page, FormGrid::Extent::Half);
        const Card right(&page, FormGrid::Extent::Half);
        QList<QLineEdit *> fields;
        QList<QLineEdit *> halves;
        for (int i = 0; i < 8; ++i) {
            fields.append(wide.add(u"برچسب :"_s));
            halves.append((i < 4 ? left : right).add(u"برچسب :"_s));
        }
        auto *stack = new CardStack(&page);
        stack->addCard(wide.box);
        stack->addPair(left.box, right.box);
        for (const int width : {1200, 1333, 1366, 1920}) {
            page.resize(width, 700);
            page.show();
            stack->activate();
            for (const Card &card : {wide, left, right})
                card.grid->activate();
            for (int i = 0; i < 8; ++i) {
                const QRect one = onCard(fields.at(i), &page);
                const QRect other = onCard(halves.at(i), &page);
                QVERIFY2(qAbs(one.left() - other.left()) <= 1 && qAbs(one.right() - other.right()) <= 1, qPrintable(u"%1: %2"_s.arg(width).arg(i)));
            }
        }
        page.resize(1199, 700);
        stack->activate();
        QVERIFY(right.box->y() > left.box->y());
        QCOMPARE(right.box->width(), wide.box->width());
    }

    void heightOfAPageFollowsItsWidth()
    {
        QWidget page;
        const Card first(&page, FormGrid::Extent::Half);
        const Card second(&page, FormGrid::Extent::Half);
        first.add(u"یک :"_s);
        second.add(u"دو :"_s);
        auto *stack = new CardStack(&page);
        stack->addPair(first.box, second.box);
        QVERIFY(stack->heightForWidth(800) > stack->heightForWidth(1300));
        second.box->hide();
        QCOMPARE(stack->heightForWidth(800), stack->heightForWidth(1300));
    }

    void nestedLayoutsGoWithTheirCard()
    {
        const Card card;
        auto *line = new QHBoxLayout;
        line->addWidget(new QLineEdit(card.box));
        card.grid->addField(nullptr, nullptr, line, 2);
        delete card.box;
    }
};

static const RegisteredTest<TestFormGrid, QApplication> registeredFormGrid;
#include "TestFormGrid.moc"

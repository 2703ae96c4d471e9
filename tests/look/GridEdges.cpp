// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/GridEdges.h"

#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "tests/look/WindowParts.h"

#include <QAbstractButton>
#include <QLabel>
#include <QWidget>

#include <algorithm>
#include <cstdlib>
#include <set>

using namespace Qt::StringLiterals;

namespace {

// Equal columns of a width that does not divide by their number.
constexpr int unevenness = 1;

template <class Layout>
QList<Layout *> layoutsOf(const QWidget &window)
{
    QList<Layout *> found;
    QList<const QWidget *> places{&window};
    const QList<QWidget *> parts = WindowParts::of(window);
    places.append({parts.cbegin(), parts.cend()});
    for (const QWidget *place : std::as_const(places)) {
        if (!place->layout())
            continue;
        if (auto *layout = dynamic_cast<Layout *>(place->layout()))
            found.append(layout);
        found.append(place->layout()->findChildren<Layout *>());
    }
    return found;
}

struct Span
{
    int from = 0;
    int to = 0;
};

// From the leading edge of the widget that the layout lays out.
Span leading(const QRect &rect, const QWidget &card)
{
    if (card.isRightToLeft())
        return {card.width() - rect.right() - 1, card.width() - rect.left()};
    return {rect.left(), rect.right() + 1};
}

// Columns are counted from the inner edge of the card.
int columnsBegin(const FormGrid &grid)
{
    return leading(grid.contentsRect(), *grid.parentWidget()).from;
}

bool isClose(int one, int other)
{
    return std::abs(one - other) <= unevenness;
}

bool isShown(const QLayoutItem &item)
{
    return !item.isEmpty() && !item.geometry().isEmpty();
}

QString nameOf(QLayoutItem &item)
{
    if (item.widget())
        return WindowParts::name(*item.widget());
    QLayout *layout = item.layout();
    for (int i = 0; layout && i < layout->count(); ++i) {
        if (isShown(*layout->itemAt(i)))
            return nameOf(*layout->itemAt(i));
    }
    return u"something"_s;
}

class GridCheck
{
public:
    GridCheck(FormGrid &grid, QStringList &faults)
        : m_grid(grid)
        , m_columns(grid.columns())
        , m_faults(faults)
    {
    }

    void look()
    {
        for (int i = 0; i < m_grid.count(); ++i) {
            if (isShown(*m_grid.itemAt(i)))
                lookAt(*m_grid.itemAt(i));
        }
    }

private:
    bool begins(int at) const
    {
        return std::ranges::any_of(m_columns, [at](const FormGrid::Column &column) { return isClose(column.from, at); });
    }
    bool ends(int at) const
    {
        return std::ranges::any_of(m_columns, [at](const FormGrid::Column &column) { return isClose(column.to, at); });
    }

    void lookAt(QLayoutItem &item)
    {
        const int begin = columnsBegin(m_grid);
        const Span inCard = leading(item.geometry(), *m_grid.parentWidget());
        const Span span{inCard.from - begin, inCard.to - begin};
        const auto *label = qobject_cast<const QLabel *>(item.widget());
        const bool isNote = label && label->inherits("ElidedLabel");
        // What is said beside a label begins where that ends.
        if (!isNote && !begins(span.from))
            add(item, u"begins at %1"_s.arg(span.from));
        // A command is as wide as its caption, a picture as it is drawn.
        const QWidget *widget = item.widget();
        const bool hasOwnWidth = widget && (qobject_cast<const QAbstractButton *>(widget) || widget->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed);
        const bool isField = (!label || isNote) && !hasOwnWidth;
        if (isField && !ends(span.to))
            add(item, u"ends at %1"_s.arg(span.to));
    }

    void add(QLayoutItem &item, const QString &what)
    {
        QStringList columns;
        for (const FormGrid::Column &column : m_columns)
            columns.append(u"%1-%2"_s.arg(column.from).arg(column.to));
        m_faults.append(u"%1 %2, off the columns %3 of %4"_s.arg(nameOf(item), what, columns.join(u' '), WindowParts::name(*m_grid.parentWidget())));
    }

    FormGrid &m_grid;
    std::vector<FormGrid::Column> m_columns;
    QStringList &m_faults;
};

// The cards that a page shows, from its layout.
QList<QWidget *> cardsOf(const CardStack &stack)
{
    QList<QWidget *> cards;
    for (int i = 0; i < stack.count(); ++i) {
        QWidget *card = stack.itemAt(i)->widget();
        if (card && isShown(*stack.itemAt(i)))
            cards.append(card);
    }
    return cards;
}

// Every row of cards begins and ends where the page does.
void lookAtEdges(const CardStack &stack, const QList<QWidget *> &cards, QStringList &faults)
{
    const QWidget &page = *stack.parentWidget();
    Span widest{page.width(), 0};
    for (const QWidget *card : cards) {
        const Span span = leading(card->geometry(), page);
        widest = {std::min(widest.from, span.from), std::max(widest.to, span.to)};
    }
    for (const QWidget *card : cards) {
        Span row = leading(card->geometry(), page);
        for (const QWidget *other : cards) {
            if (other->y() == card->y()) {
                const Span span = leading(other->geometry(), page);
                row = {std::min(row.from, span.from), std::max(row.to, span.to)};
            }
        }
        if (!isClose(row.from, widest.from) || !isClose(row.to, widest.to))
            faults.append(u"the row of %1 goes from %2 to %3, the page's cards from %4 to %5"_s.arg(WindowParts::name(*card)).arg(row.from).arg(row.to).arg(widest.from).arg(widest.to));
    }
}

// The card with the most columns rules all others.
void lookAtColumns(const CardStack &stack, const QList<QWidget *> &cards, QStringList &faults)
{
    const QWidget &page = *stack.parentWidget();
    QList<std::pair<const QWidget *, std::vector<Span>>> all;
    for (const QWidget *card : cards) {
        const auto *grid = dynamic_cast<const FormGrid *>(card->layout());
        if (!grid)
            continue;
        const int begin = leading(card->geometry(), page).from + columnsBegin(*grid);
        std::vector<Span> columns;
        for (const FormGrid::Column &column : grid->columns())
            columns.push_back({begin + column.from, begin + column.to});
        all.append({card, columns});
    }
    const auto most = std::ranges::max_element(all, {}, [](const auto &entry) { return entry.second.size(); });
    for (const auto &[card, columns] : std::as_const(all)) {
        for (const Span &column : columns) {
            const bool fits = std::ranges::any_of(most->second, [&](const Span &other) { return isClose(other.from, column.from); })
                && std::ranges::any_of(most->second, [&](const Span &other) { return isClose(other.to, column.to); });
            if (!fits)
                faults.append(u"column %1-%2 of %3 is none of %4"_s.arg(column.from).arg(column.to).arg(WindowParts::name(*card), WindowParts::name(*most->first)));
        }
    }
}

}

QStringList GridEdges::fields(const QWidget &window)
{
    QStringList faults;
    for (FormGrid *grid : layoutsOf<FormGrid>(window))
        GridCheck(*grid, faults).look();
    return faults;
}

QStringList GridEdges::cards(const QWidget &window)
{
    QStringList faults;
    for (const CardStack *stack : layoutsOf<CardStack>(window)) {
        const QList<QWidget *> cards = cardsOf(*stack);
        lookAtEdges(*stack, cards, faults);
        lookAtColumns(*stack, cards, faults);
    }
    return faults;
}

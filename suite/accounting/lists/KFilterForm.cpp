// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KFilterForm.h"

#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QWidget>

#include <algorithm>
#include <numeric>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

bool isShown(const KListFilter &filter)
{
    return filter.place.row >= 0;
}

// The key of the filter that ends the range which this one begins; empty where it begins none.
QString endOfRange(const QString &key)
{
    if (key == u"from")
        return u"to"_s;
    return key.endsWith(u"From") ? key.chopped(4) + u"To"_s : QString();
}

// As the controls are seen, those not shown last.
std::vector<qsizetype> inPlaces(const QList<KListFilter> &filters)
{
    std::vector<qsizetype> order(static_cast<size_t>(filters.size()));
    std::iota(order.begin(), order.end(), qsizetype(0));
    const auto place = [&filters](qsizetype index) {
        const KListFilter &filter = filters.at(index);
        return std::tuple(!isShown(filter), filter.place.row, filter.place.column);
    };
    std::stable_sort(order.begin(), order.end(), [&place](qsizetype left, qsizetype right) { return place(left) < place(right); });
    return order;
}

}

KFilterForm::KFilterForm(QList<KListFilter> filters, const KFilterControl::Maker &makePerson, QGridLayout *grid, QObject *parent)
    : QObject(parent)
    , m_filters(std::move(filters))
    , m_items(static_cast<size_t>(m_filters.size()))
{
    for (const qsizetype index : inPlaces(m_filters))
        add(index, makePerson, grid);
}

void KFilterForm::add(qsizetype index, const KFilterControl::Maker &makePerson, QGridLayout *grid)
{
    const KListFilter &filter = m_filters.at(index);
    Item &item = m_items[static_cast<size_t>(index)];
    if (filter.kind == KListFilter::Kind::Always)
        return;
    const bool isPerson = filter.kind == KListFilter::Kind::Person;
    Q_ASSERT_X(!isPerson || makePerson, "KFilterForm", "the list's traits make no person field");
    item.control = isPerson ? makePerson(filter, grid->parentWidget()) : KFilterControl::make(filter, grid->parentWidget());
    QWidget *control = item.control.widget;
    nameControl(control, filter.accessibleName.isEmpty() ? filter.label : filter.accessibleName);
    if (filter.initial.isValid())
        item.control.set(filter.initial);
    if (isShown(filter))
        place(filter, item, grid);
    else
        control->hide();
}

// A label stands close to its control, and apart from the control before it.
void KFilterForm::place(const KListFilter &filter, Item &item, QGridLayout *grid)
{
    const auto &[row, column, span] = filter.place;
    QWidget *control = item.control.widget;
    if (filter.kind != KListFilter::Kind::Flag) {
        item.label = addLabelled(grid, row, column, filter.label, control, span);
        LookFonts::apply(item.label, LookFonts::Use::Label);
        if (column > 0)
            item.label->setContentsMargins(0, 0, LookSizes::gutter, 0);
    } else if (column == 0) {
        grid->addWidget(control, row, column, 1, span);
    } else {
        auto *line = new QHBoxLayout;
        line->setContentsMargins(0, 0, LookSizes::gutter, 0);
        line->addWidget(control);
        grid->addLayout(line, row, column, 1, span);
    }
}

qsizetype KFilterForm::indexOf(QStringView key) const
{
    const auto found =
        std::find_if(m_filters.cbegin(), m_filters.cend(), [key](const KListFilter &filter) { return filter.key == key; });
    Q_ASSERT_X(found != m_filters.cend(), "KFilterForm", "no such filter");
    return found - m_filters.cbegin();
}

QVariant KFilterForm::valueAt(qsizetype index) const
{
    const KListFilter &filter = m_filters.at(index);
    const KFilterControl &control = m_items[static_cast<size_t>(index)].control;
    const bool asksAsAtFirst = !control.widget || (m_selectMode && (filter.options & KListFilter::HiddenInSelect));
    return asksAsAtFirst ? filter.initial : control.value();
}

QVariant KFilterForm::value(QStringView key) const
{
    return valueAt(indexOf(key));
}

KFilterValues KFilterForm::values() const
{
    KFilterValues values;
    for (qsizetype i = 0; i < m_filters.size(); ++i)
        values.insert(m_filters.at(i).key, valueAt(i));
    return values;
}

KFilterValues KFilterForm::enteredValues() const
{
    KFilterValues values;
    for (qsizetype i = 0; i < m_filters.size(); ++i) {
        if (isChangeable(i))
            values.insert(m_filters.at(i).key, valueAt(i));
    }
    return values;
}

bool KFilterForm::enter(const KFilterValues &values)
{
    reset();
    qsizetype entered = 0;
    for (qsizetype i = 0; i < m_filters.size(); ++i) {
        const auto value = values.constFind(m_filters.at(i).key);
        if (value == values.cend() || !isChangeable(i))
            continue;
        m_items[static_cast<size_t>(i)].control.set(*value);
        ++entered;
    }
    return entered == values.size();
}

void KFilterForm::set(QStringView key, const QVariant &value)
{
    const KFilterControl &control = m_items[static_cast<size_t>(indexOf(key))].control;
    Q_ASSERT_X(control.widget, "KFilterForm", "a filter without a control");
    control.set(value);
}

void KFilterForm::reset()
{
    for (qsizetype i = 0; i < m_filters.size(); ++i) {
        const KListFilter &filter = m_filters.at(i);
        const KFilterControl &control = m_items[static_cast<size_t>(i)].control;
        if (!control.widget || (filter.options & KListFilter::KeptByReset))
            continue;
        if (filter.options & KListFilter::ReadByReset)
            control.readChoices();
        control.set(filter.initial);
    }
}

// A check box shows more while it is ticked. What the user cannot change stays as it is.
QVariant KFilterForm::widestAt(qsizetype index) const
{
    if (!isChangeable(index))
        return valueAt(index);
    const KListFilter &filter = m_filters.at(index);
    if (filter.kind != KListFilter::Kind::Flag)
        return {};
    // Most show more when they are ticked, some less.
    const auto asksNothing = [&](bool ticked) { return !filter.clause || filter.clause(ticked, 0).isEmpty(); };
    return asksNothing(true) || !asksNothing(false);
}

void KFilterForm::widen()
{
    for (qsizetype i = 0; i < m_filters.size(); ++i) {
        if (isChangeable(i))
            m_items[static_cast<size_t>(i)].control.set(widestAt(i));
    }
}

KSql KFilterForm::widestCondition(int userID) const
{
    KFilterValues values;
    for (qsizetype i = 0; i < m_filters.size(); ++i)
        values.insert(m_filters.at(i).key, widestAt(i));
    return KListFilter::condition(m_filters, values, userID);
}

bool KFilterForm::isChangeable(qsizetype index) const
{
    const KListFilter &filter = m_filters.at(index);
    return m_items[static_cast<size_t>(index)].control.widget && isShown(filter) && !(m_selectMode && (filter.options & KListFilter::HiddenInSelect));
}

QStringList KFilterForm::asked() const
{
    using Kind = KListFilter::Kind;
    QStringList conditions;
    for (const qsizetype index : inPlaces(m_filters)) {
        const KFilterControl &control = m_items[static_cast<size_t>(index)].control;
        const QString asked = control.asked && isChangeable(index) ? control.asked() : QString();
        if (asked.isEmpty())
            continue;
        const KListFilter &filter = m_filters.at(index);
        const bool speaksForItself = filter.kind == Kind::Choice || filter.kind == Kind::Flag;
        const QString &label = filter.accessibleName.isEmpty() ? filter.label : filter.accessibleName;
        conditions.append(speaksForItself ? asked : label + u' ' + asked);
    }
    return conditions;
}

bool KFilterForm::hasManyLines() const
{
    return std::any_of(m_filters.cbegin(), m_filters.cend(), [](const KListFilter &filter) { return filter.place.row > 0; });
}

void KFilterForm::readChoices(QStringView key)
{
    m_items[static_cast<size_t>(indexOf(key))].control.readChoices();
}

void KFilterForm::setSelectMode(bool on)
{
    m_selectMode = on;
    for (qsizetype i = 0; i < m_filters.size(); ++i) {
        if (!isShown(m_filters.at(i)) || !(m_filters.at(i).options & KListFilter::HiddenInSelect))
            continue;
        const Item &item = m_items[static_cast<size_t>(i)];
        item.control.widget->setVisible(!on);
        if (item.label)
            item.label->setVisible(!on);
    }
}

std::optional<RangeProblem> KFilterForm::backwardsRange() const
{
    for (qsizetype i = 0; i < m_filters.size(); ++i) {
        const QString to = endOfRange(m_filters.at(i).key);
        const auto end = std::find_if(m_filters.cbegin(), m_filters.cend(), [&to](const KListFilter &filter) { return filter.key == to; });
        if (to.isEmpty() || end == m_filters.cend())
            continue;
        QWidget *from = m_items[static_cast<size_t>(i)].control.widget;
        if (const QString error = rangeError(from, control(to)); !error.isEmpty())
            return RangeProblem{from, error};
    }
    return std::nullopt;
}

KSql KFilterForm::condition(int userID) const
{
    return KListFilter::condition(m_filters, values(), userID);
}

QWidget *KFilterForm::control(QStringView key) const
{
    return m_items[static_cast<size_t>(indexOf(key))].control.widget;
}

QWidget *KFilterForm::findControl() const
{
    for (qsizetype i = 0; i < m_filters.size(); ++i) {
        if (m_filters.at(i).options & KListFilter::FindGoesHere)
            return m_items[static_cast<size_t>(i)].control.widget;
    }
    return nullptr;
}

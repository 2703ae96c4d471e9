// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/OptionalColumns.h"

#include <QHeaderView>
#include <QMenu>
#include <QTreeView>

#include <algorithm>

#include "suite/utility/lists/KListModel.h"
#include "suite/utility/lists/ListSettings.h"

using namespace Qt::StringLiterals;

namespace {

const QString shownSetting = u"sShown"_s;
const QString hiddenSetting = u"sHidden"_s;

// A column that can be switched on, now or ever.
bool canBeOn(const KListModel::Column &column)
{
    return column.shownWidth() > 0;
}

}

OptionalColumns::OptionalColumns(QTreeView *list, const KListModel *columns, const ListSettings &settings)
    : QObject(list)
    , m_list(list)
    , m_columns(columns)
    , m_settings(settings)
{
    list->header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list->header(), &QHeaderView::customContextMenuRequested, this,
            [this](const QPoint &point) { showMenu(m_list->header()->viewport()->mapToGlobal(point)); });
}

QString OptionalColumns::name()
{
    return u"ستون‌های دیگر"_s;
}

bool OptionalColumns::exist() const
{
    return std::ranges::any_of(m_columns->columns(), [](const KListModel::Column &column) { return column.isOffAtFirst() && canBeOn(column); });
}

bool OptionalColumns::isShown(int column) const
{
    const KListModel::Column &asked = m_columns->columns().at(column);
    return canBeOn(asked) && (asked.isOffAtFirst() ? m_on.contains(asked.key) : !m_off.contains(asked.key));
}

bool OptionalColumns::isSwitchable(int column) const
{
    const KListModel::Column asked = m_columns->columns().value(column);
    if (asked.key.isEmpty() || !canBeOn(asked) || !(asked.isOffAtFirst() || m_isArrangeable))
        return false;
    if (!isShown(column))
        return true;
    for (int other = 0; other < m_columns->columns().size(); ++other) {
        if (other != column && isShown(other))
            return true;
    }
    return false;
}

void OptionalColumns::apply()
{
    for (int column = 0; column < m_columns->columns().size(); ++column)
        m_list->header()->setSectionHidden(column, !isShown(column));
}

void OptionalColumns::read()
{
    m_on = m_settings.read(shownSetting).split(u',', Qt::SkipEmptyParts);
    m_off = m_settings.read(hiddenSetting).split(u',', Qt::SkipEmptyParts);
    // A list that shows nothing could not be mended: its titles have the menu.
    const auto &columns = m_columns->columns();
    if (std::ranges::none_of(columns, [this, &columns](const KListModel::Column &column) { return isShown(int(&column - columns.constData())); }))
        m_off.clear();
}

void OptionalColumns::keep() const
{
    m_settings.write(shownSetting, m_on.join(u','));
    m_settings.write(hiddenSetting, m_off.join(u','));
}

void OptionalColumns::switchColumn(int column, bool on)
{
    if (!isSwitchable(column) || isShown(column) == on)
        return;
    const KListModel::Column &asked = m_columns->columns().at(column);
    QStringList &keys = asked.isOffAtFirst() ? m_on : m_off;
    if (on == asked.isOffAtFirst())
        keys.append(asked.key);
    else
        keys.removeAll(asked.key);
    keep();
    Q_EMIT switched(column, on);
}

void OptionalColumns::reset()
{
    m_on.clear();
    m_off.clear();
    keep();
    apply();
}

void OptionalColumns::addEntry(QMenu *menu, int column)
{
    QAction *action = menu->addAction(m_columns->columns().at(column).title);
    action->setCheckable(true);
    action->setChecked(isShown(column));
    action->setEnabled(isSwitchable(column));
    connect(action, &QAction::triggered, this, [this, column](bool on) { switchColumn(column, on); });
}

void OptionalColumns::addTo(QMenu *menu)
{
    const QVector<KListModel::Column> &columns = m_columns->columns();
    for (int column = 0; column < columns.size(); ++column) {
        if (columns.at(column).isOffAtFirst() && canBeOn(columns.at(column)))
            addEntry(menu, column);
    }
}

void OptionalColumns::showMenu(const QPoint &place)
{
    if (!exist() && !m_isArrangeable)
        return;
    if (!m_menu) {
        m_menu = new QMenu(name(), m_list);
        m_menu->setAccessibleName(name());
    }
    m_menu->clear();
    if (m_isArrangeable) {
        const QHeaderView *titles = m_list->header();
        for (int visual = 0; visual < titles->count(); ++visual) {
            const int column = titles->logicalIndex(visual);
            if (canBeOn(m_columns->columns().at(column)) && !m_columns->columns().at(column).key.isEmpty())
                addEntry(m_menu, column);
        }
        m_menu->addSeparator();
        m_menu->addAction(u"ترتیب ستون‌ها ..."_s, this, &OptionalColumns::orderAsked);
        m_menu->addAction(u"بازگشت به حالت نخست"_s, this, &OptionalColumns::resetAsked);
    } else {
        addTo(m_menu);
    }
    m_menu->popup(place);
    m_menu->setActiveAction(m_menu->actions().constFirst());
}

void OptionalColumns::showMenu()
{
    const QWidget *titles = m_list->header()->viewport();
    showMenu(titles->mapToGlobal(titles->rect().bottomRight()));
}

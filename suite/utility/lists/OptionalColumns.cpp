// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/OptionalColumns.h"

#include <QHeaderView>
#include <QMenu>
#include <QTreeView>

#include <algorithm>

#include "suite/utility/lists/KListModel.h"
#include "suite/utility/values/KSettings.h"

using namespace Qt::StringLiterals;

namespace {

const QString shownSetting = u"sShown"_s;

}

OptionalColumns::OptionalColumns(QTreeView *list, const KListModel *columns)
    : QObject(list)
    , m_list(list)
    , m_columns(columns)
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
    return std::ranges::any_of(m_columns->columns(), &KListModel::Column::optional);
}

bool OptionalColumns::isShown(int column) const
{
    const KListModel::Column &asked = m_columns->columns().at(column);
    return asked.width > 0 && (!asked.optional || m_on.contains(asked.key));
}

void OptionalColumns::apply()
{
    for (int column = 0; column < m_columns->columns().size(); ++column)
        m_list->header()->setSectionHidden(column, !isShown(column));
}

void OptionalColumns::setSettingName(const QString &name)
{
    m_settingName = name;
    m_on = ReadSetting(name, shownSetting, QString()).split(u',', Qt::SkipEmptyParts);
}

void OptionalColumns::switchColumn(int column, bool on)
{
    const KListModel::Column asked = m_columns->columns().value(column);
    if (!asked.optional || m_on.contains(asked.key) == on)
        return;
    if (on)
        m_on.append(asked.key);
    else
        m_on.removeAll(asked.key);
    if (!m_settingName.isEmpty())
        WriteSetting(m_settingName, shownSetting, m_on.join(u','));
    Q_EMIT switched(column, on);
}

void OptionalColumns::addTo(QMenu *menu)
{
    const QVector<KListModel::Column> &columns = m_columns->columns();
    for (int column = 0; column < columns.size(); ++column) {
        if (!columns.at(column).optional)
            continue;
        QAction *action = menu->addAction(columns.at(column).title);
        action->setCheckable(true);
        action->setChecked(isShown(column));
        connect(action, &QAction::triggered, this, [this, column](bool on) { switchColumn(column, on); });
    }
}

void OptionalColumns::showMenu(const QPoint &place)
{
    if (!exist())
        return;
    if (!m_menu) {
        m_menu = new QMenu(name(), m_list);
        m_menu->setAccessibleName(name());
    }
    m_menu->clear();
    addTo(m_menu);
    m_menu->popup(place);
    m_menu->setActiveAction(m_menu->actions().constFirst());
}

void OptionalColumns::showMenu()
{
    const QWidget *titles = m_list->header()->viewport();
    showMenu(titles->mapToGlobal(titles->rect().bottomRight()));
}

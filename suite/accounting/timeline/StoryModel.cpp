// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/StoryModel.h"

#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

QString monthText(const QDate &date)
{
    const ShamsiDate day = GetShamsi(date);
    return day.isValid() ? u"%1 %2"_s.arg(shamsiMonthName(day.month)).arg(day.year) : u"بدون تاریخ"_s;
}

// As a screen reader says it, and as the tip of a cut line.
QString wholeText(const StoryEvent &event)
{
    QStringList words{StoryModel::dayText(event), StoryModel::timeText(event), event.title, event.line, event.user};
    words.removeAll(QString());
    return words.join(u"، "_s);
}

}

StoryModel::StoryModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

void StoryModel::setEvents(const QList<StoryEvent> &events)
{
    beginResetModel();
    m_events = events;
    m_rows.clear();
    QString month;
    for (int i = 0; i < m_events.size(); ++i) {
        const QString next = monthText(m_events.at(i).when.date());
        if (next != month)
            m_rows.append({next, -1});
        month = next;
        m_rows.append({{}, i});
    }
    endResetModel();
}

const StoryEvent *StoryModel::event(const QModelIndex &index) const
{
    const Row row = m_rows.value(index.row());
    return index.isValid() && row.event >= 0 ? &m_events.at(row.event) : nullptr;
}

bool StoryModel::endsMonth(const QModelIndex &index) const
{
    return index.row() + 1 >= m_rows.size() || m_rows.at(index.row() + 1).event < 0;
}

int StoryModel::rowOf(const StoryEvent &event) const
{
    for (int i = 0; i < m_rows.size(); ++i) {
        const StoryEvent *one = this->event(index(i));
        if (one && one->when == event.when && one->table == event.table && one->key == event.key && one->title == event.title)
            return i;
    }
    return -1;
}

QString StoryModel::dayText(const StoryEvent &event)
{
    const ShamsiDate day = GetShamsi(event.when.date());
    return day.isValid() ? u"%1 %2"_s.arg(day.day).arg(shamsiMonthName(day.month)) : QString();
}

// What was kept as a day has no time.
QString StoryModel::timeText(const StoryEvent &event)
{
    const QTime time = event.when.time();
    return time == QTime(0, 0) ? QString() : time.toString(u"HH:mm"_s);
}

int StoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant StoryModel::data(const QModelIndex &index, int role) const
{
    const bool asText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
    if (!asText || !index.isValid())
        return {};
    const StoryEvent *told = event(index);
    return told ? wholeText(*told) : m_rows.at(index.row()).month;
}

// A month cannot be chosen, and the keys pass over it.
Qt::ItemFlags StoryModel::flags(const QModelIndex &index) const
{
    return event(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::ItemFlags(Qt::ItemNeverHasChildren);
}

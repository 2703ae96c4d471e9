// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StoryEvent.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QAbstractListModel>
#include <QList>

// The events of a story, newest first, below the months that they are of.
class TZACCOUNTINGDATA_EXPORT StoryModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit StoryModel(QObject *parent = nullptr);

    void setEvents(const QList<StoryEvent> &events);
    // Null for the heading of a month.
    const StoryEvent *event(const QModelIndex &index) const;
    // Whether the event is the last one below its month.
    bool endsMonth(const QModelIndex &index) const;
    // The row of the event that tells of the same as that one; -1: there is none.
    int rowOf(const StoryEvent &event) const;

    // "24 آذر", and "10:12".
    static QString dayText(const StoryEvent &event);
    static QString timeText(const StoryEvent &event);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Row
    {
        QString month; // of a heading
        int event = -1;
    };

    QList<StoryEvent> m_events;
    QList<Row> m_rows;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStyledItemDelegate>

class StoryModel;

// Paints a story: the day, a spot with the sort of event, what happened, and who did it; a line leads from spot to spot.
class StoryDelegate : public QStyledItemDelegate
{
public:
    explicit StoryDelegate(const StoryModel *story, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintMonth(QPainter &painter, const QStyleOptionViewItem &option, const QString &month) const;
    void paintSpot(QPainter &painter, const QRect &column, const QModelIndex &index) const;
    void paintWords(QPainter &painter, const QRect &room, const QModelIndex &index) const;

    const StoryModel *m_story;
};

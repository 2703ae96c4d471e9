// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStyledItemDelegate>

// Paints what was found: titles of groups with the way to all of them, hits with their icon, what was typed marked in them, and the key that
// opens the chosen one.
class SearchHitDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setTyped(const QString &typed) { m_typed = typed; }
    // Where a title's "همه" stands in the row.
    static QRect allRect(const QStyleOptionViewItem &option);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintTitle(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintHit(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintMarked(QPainter &painter, const QRect &rect, const QFont &font, const QColor &ink, const QString &text) const;

    QString m_typed;
};

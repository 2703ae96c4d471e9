// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>
#include <QObject>
#include <QPoint>

#include <optional>

class QModelIndex;
class QPainter;
class QRect;
class QTreeView;

// The mark "⋮" at the end of a list's row, which opens the row's commands: on the selected row, and on the one under the pointer.
// Part of KExtListCtrl, whose view it follows.
class RowMenuMark : public QObject
{
    Q_OBJECT

public:
    explicit RowMenuMark(QTreeView *list);

    static QString name();

    // At first it is not.
    void setOffered(bool offered);
    bool isOffered() const { return m_offered; }
    // Whether it stands at the end of that column's cells, in a list that shows all its columns.
    bool standsIn(int column) const;
    // Where the mark of that row stands in the viewport: at its end, also in a list that is scrolled sideways.
    QRect place(const QModelIndex &row) const;
    // Whether the row is the one that the commands are about; others may be marked beside it.
    bool isCurrent(const QModelIndex &row) const;
    // Over the row's cells.
    void paint(QPainter &painter, const QModelIndex &row) const;
    // Other rows may be under the pointer now, which itself has not moved.
    void rowsMoved();

Q_SIGNALS:
    // The mark of the selected row was clicked.
    void clicked();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOnMark(const QPoint &point) const;
    void followPointer();

    QTreeView *m_list;
    QIcon m_onSelected;
    QIcon m_onHovered;
    bool m_offered = false;
    std::optional<QPoint> m_pointer; // in the viewport; none while it is elsewhere
    int m_hoveredRow = -1;
    int m_pressedRow = -1;
};

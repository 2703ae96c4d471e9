// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include "suite/utility/TzUtilityExport.h"

class QAbstractItemView;
class QHBoxLayout;
class QStackedLayout;

// A list and the line at its foot, which counts and sums up its rows, as one card. While the list has the focus the card shows it.
class TZUTILITY_EXPORT KListCard : public QWidget
{
    Q_OBJECT

public:
    // Takes the list in.
    explicit KListCard(QAbstractItemView *list, QWidget *parent = nullptr);

    // Adds a text to the line at the foot, which is there from the first one on. One that takes the room left goes on below where
    // that ends.
    void addToFoot(QWidget *text, bool takesRoom = false);
    // Below the rows and above that line.
    void addBelowRows(QWidget *line);

    // Another view of the same rows, which stands in the list's place while it is the shown one.
    void addView(QAbstractItemView *view);
    // The list itself or one that was added.
    void showView(QAbstractItemView *view);
    QAbstractItemView *shownView() const { return m_shown; }

Q_SIGNALS:
    void viewAdded(QAbstractItemView *view);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QAbstractItemView *m_list;
    QAbstractItemView *m_shown;
    QStackedLayout *m_views;
    QHBoxLayout *m_foot = nullptr;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPushButton>

#include "suite/utility/TzUtilityExport.h"

class QAbstractItemView;

// The line that a list which its row limit has cut ends in: pressed, it fetches the next rows. The arrow keys go from the last row to it and
// back, as if it were a row.
class TZUTILITY_EXPORT KNextRows : public QPushButton
{
    Q_OBJECT

public:
    // Not shown at first.
    explicit KNextRows(QWidget *parent = nullptr);

    // Goes from this view's last row; the view is one that shows the list, and gets the focus back.
    void follow(QAbstractItemView *view);
    // rows: that it fetches; 0: there are none, and it goes.
    void offer(qint64 rows);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QAbstractItemView *shownView() const;

    QList<QAbstractItemView *> m_views;
};

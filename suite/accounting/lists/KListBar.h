// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QWidget>

class KExtListCtrl;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

// The line between a filter and its list: narrows the rows in sight while one types, and has the commands of the list's view.
class TZACCOUNTING_EXPORT KListBar : public QWidget
{
    Q_OBJECT

public:
    explicit KListBar(KExtListCtrl *list, QWidget *page);

    // What narrows the rows. Up and Down go through them from there, Enter opens the selected one, Escape takes it away.
    QLineEdit *quickFilter() const { return m_quick; }
    bool isNarrowed() const;
    // Shows all rows again.
    void widen();
    // The rows have changed: how many of them are in sight.
    void updateFound();
    QPushButton *columnsButton() const { return m_columns; }
    // Behind the quick filter, from the end of the line.
    void addView(QWidget *control);

Q_SIGNALS:
    void narrowed();
    // Enter, with a row selected.
    void rowActivated(int key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void narrow();
    bool takeKey(int key);

    KExtListCtrl *m_list;
    QHBoxLayout *m_line;
    QLineEdit *m_quick;
    QLabel *m_found;
    QPushButton *m_columns;
};

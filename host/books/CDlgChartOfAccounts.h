// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/books/ChartRows.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/KDialogTabPage.h"

#include <QKeySequence>

class KDateEdit;
class KEdit;
class QCheckBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QStandardItem;
class QStandardItemModel;
class QTreeView;

// The chart of accounts as a tree of its three levels, with the balance of each account within a range of dates.
class CDlgChartOfAccounts : public KDialogTabPage, protected KSecurity
{
    Q_OBJECT

public:
    explicit CDlgChartOfAccounts(QWidget *parent = nullptr);
    ~CDlgChartOfAccounts() override;

    bool OnAccess() override;
    void refresh() override;

    QTreeView *tree() const { return m_tree; }
    // 0 when none is selected.
    int currentCode() const;
    // False when the tree does not show the account.
    bool selectCode(int code);
    // The text of one column of an account; empty when the tree does not show it.
    QString cellText(int code, int column) const;
    QString countText() const;

public Q_SLOTS:
    // Reads accounts and balances anew; an entry that is no date is reported and leaves the tree as it was.
    void refill();
    void addGeneral();
    // Below the selected account.
    void addBelow();
    void rename();
    void toggleActive();
    void showDocuments();
    void print();

protected:
    void showEvent(QShowEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildFilter();
    QWidget *buildCommands();
    QPushButton *addCommand(QHBoxLayout *row, const QString &caption, const QString &icon, const QKeySequence &shortcut,
                            void (CDlgChartOfAccounts::*run)(), KSecurity::Right needs, const QString &form = {});
    // Runs a command; an error it throws is reported once and the page stays as it is.
    void guarded(void (CDlgChartOfAccounts::*command)());
    void showRows();
    void fitColumns();
    void takeSelection();
    // Does not query the database: it follows the selection.
    void updateCommands();
    const ChartRows::Row *currentRow() const;
    QStandardItem *findItem(int code) const;
    bool mayChange() const;

    QList<ChartRows::Row> m_rows;  // of the chart
    QList<ChartRows::Row> m_shown; // the ones that the tree shows
    QTreeView *m_tree;
    QStandardItemModel *m_model;
    KEdit *m_text = nullptr;
    KDateEdit *m_from = nullptr;
    KDateEdit *m_to = nullptr;
    QCheckBox *m_inactive = nullptr;
    QLabel *m_count = nullptr;
    QPushButton *m_addBelow = nullptr;
    QPushButton *m_rename = nullptr;
    QPushButton *m_toggle = nullptr;
    QPushButton *m_documents = nullptr;
    QList<QPushButton *> m_changing;
    bool m_opened = false;
    bool m_closed = false; // the database, when the accounts were read
};

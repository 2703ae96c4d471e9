// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/catalog/CatalogEntries.h"

#include <QWidget>

class KEdit;
class KExtListCtrl;
class QHBoxLayout;
class QLabel;
class QPushButton;

// One level of the car catalog on the screen: the filter, the list with its count, and the buttons of the level. It knows
// nothing of the other levels or the database; its signals say what the user wants.
class CatalogPanel : public QWidget
{
    Q_OBJECT

public:
    // The heading is the list's column and the name of what its buttons act on; the section keeps the list's columns.
    CatalogPanel(const QString &heading, const QString &section, QWidget *parent = nullptr);

    QString heading() const { return m_heading; }
    KExtListCtrl *list() const { return m_list; }
    KEdit *filter() const { return m_filter; }
    QPushButton *addButton() const { return m_add; }
    QPushButton *editButton() const { return m_edit; }
    QPushButton *deleteButton() const { return m_delete; }

    // What is typed into the filter, in standard letters and safe inside quotes.
    QString namePart() const;
    // Emits no signal.
    void clearFilter();

    // Shows the entries and their count; none is selected.
    void setEntries(const QVector<CatalogEntries::Entry> &entries);
    // No entries, no count and nothing to add to: no parent is selected.
    void clear();

    // Shown buttons have their icons.
    void showCommands(bool addAndDelete, bool edit);

Q_SIGNALS:
    void filterEdited();
    void addRequested();
    void editRequested();
    void deleteRequested();
    // 0: nothing is selected any more.
    void currentKeyChanged(int key);
    // Double click on the list or Enter on a row of it.
    void activated();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPushButton *makeButton(const QString &caption, const QKeySequence &shortcut, QWidget *shortcutOwner, QHBoxLayout *row);
    void updateButtons();

    QString m_heading;
    KEdit *m_filter;
    KExtListCtrl *m_list;
    QLabel *m_count;
    QPushButton *m_add;
    QPushButton *m_edit;
    QPushButton *m_delete;
};

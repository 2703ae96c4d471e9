// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QStringList>

class KListModel;
class QHeaderView;
class QMenu;
class QPoint;
class QTreeView;

// The columns of a list that are off until its user switches them on, in a menu of the titles. Part of KExtListCtrl, whose titles
// it follows; which ones are on is kept with the list's layout.
class OptionalColumns : public QObject
{
    Q_OBJECT

public:
    OptionalColumns(QTreeView *list, const KListModel *columns);

    static QString name();

    bool exist() const;
    // Also of the other columns: false for one of no width.
    bool isShown(int column) const;
    // Hides the titles of what is not shown, and shows the others.
    void apply();
    // Section of the user's settings; takes what is kept there.
    void setSettingName(const QString &name);
    // Nothing for a column that is not optional.
    void switchColumn(int column, bool on);

    // An entry for each, ticked while it is on.
    void addTo(QMenu *menu);
    // The menu alone, with its upper right corner at that place of the screen. Nothing without such columns.
    void showMenu(const QPoint &place);
    // Where it stands when the keyboard asks for it.
    void showMenu();

Q_SIGNALS:
    void switched(int column, bool on);

private:
    QTreeView *m_list;
    const KListModel *m_columns;
    QMenu *m_menu = nullptr; // made when it is needed
    QString m_settingName;
    QStringList m_on; // their keys
};

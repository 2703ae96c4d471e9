// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QStringList>

class KListModel;
class ListSettings;
class QHeaderView;
class QMenu;
class QPoint;
class QTreeView;

// The columns of a list that its user has switched on or off, and the menu of the titles for that. Part of KExtListCtrl, whose titles
// it follows; what was switched is kept with the list's layout.
class OptionalColumns : public QObject
{
    Q_OBJECT

public:
    // The settings outlive it.
    OptionalColumns(QTreeView *list, const KListModel *columns, const ListSettings &settings);

    static QString name();

    // Whether some are off at first.
    bool exist() const;
    // From now on the others can be switched too, by their keys, and the menu leads to the order of the columns and back to how the list
    // was at first.
    void setArrangeable() { m_isArrangeable = true; }
    bool isArrangeable() const { return m_isArrangeable; }
    // Also of columns that cannot be switched: false for one of no width.
    bool isShown(int column) const;
    // Whether the user may switch it now; the last one that is shown stays.
    bool isSwitchable(int column) const;
    // Hides the titles of what is not shown, and shows the others.
    void apply();
    // Takes what the settings hold.
    void read();
    // Nothing for a column that is not switchable.
    void switchColumn(int column, bool on);
    // As the list was at first.
    void reset();

    // An entry for each that is off at first, ticked while it is on.
    void addTo(QMenu *menu);
    // The whole menu, with its upper right corner at that place of the screen. Nothing where it would be empty.
    void showMenu(const QPoint &place);
    // Where it stands when the keyboard asks for it.
    void showMenu();

Q_SIGNALS:
    void switched(int column, bool on);
    void orderAsked();
    void resetAsked();

private:
    void addEntry(QMenu *menu, int column);
    void keep() const;

    QTreeView *m_list;
    const KListModel *m_columns;
    const ListSettings &m_settings;
    QMenu *m_menu = nullptr; // made when it is needed
    QStringList m_on;        // keys of those that are off at first
    QStringList m_off;       // of the others
    bool m_isArrangeable = false;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/desk/MainWindow.h"
#include "tests/support/TestDatabase.h"

#include <QScopedValueRollback>
#include <QTemporaryDir>

#include <memory>

class KListPage;
class QAction;

// The demo office with its main window, as its user sees it after the login. It also holds what the demo office leaves out:
// reminders, fields of the office's own, files of a contract, and names and amounts as long as they come.
class LookOffice
{
public:
    LookOffice();
    ~LookOffice();

    MainWindow &window() const { return *m_window; }
    DataFolder folder() const { return DataFolder(m_folder.path()); }
    // What the query finds first, for whoever opens a window; empty, or 0, without a row.
    QString text(const QString &query)
    {
        const QScopedValueRollback asking(m_isAsking, true);
        return m_database.value(query);
    }
    int number(const QString &query) { return text(query).toInt(); }
    // Whether the statement of this moment is one of those, and none of the program's.
    bool isAsking() const { return m_isAsking; }

    // The entry of a menu; null when there is none.
    QAction *entry(const QString &text) const;
    // Opens the page of that entry, if it is not open, with its first row selected.
    KListPage *list(const QString &text) const;
    // All pages are closed, so that the start page is shown.
    void clear() const;

private:
    void fill();
    void makeSearchable();
    void fillLong();
    void fillCheques();

    TestDatabase m_database;
    bool m_isAsking = false;
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSqlDatabase>
#include <QTreeView>

#include <functional>
#include <memory>

class QSqlTableModel;

// Qt's own classes for databases, on the database that the benchmark's connection 0 has.
namespace SqlPeer {

// Opened at the first call.
QSqlDatabase database();
// Reads all rows forward, every cell as text; how many rows there were.
int read(const QString &statement);

// A list of a database view, as a program would make it of Qt's classes alone: QSqlTableModel in a QTreeView.
class List
{
public:
    // Makes the view of that name from the statement.
    List(const QString &name, const QString &statement);
    ~List();
    List(const List &) = delete;
    List &operator=(const List &) = delete;

    // Reads all rows anew and paints those in sight; how many there are.
    int fill();

private:
    std::unique_ptr<QSqlTableModel> m_model;
    QTreeView m_view;
};

}

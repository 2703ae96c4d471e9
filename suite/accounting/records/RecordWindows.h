// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/lists/KListRequest.h"
#include "suite/accounting/office/KSecurity.h"

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>

class QWidget;

// What can be done with a record besides opening it: a receipt from a person, a contract from a car.
struct RecordAction
{
    QString id; // plain English, unique among those of the kind
    QString text;
    QString icon;
    QString form;                             // of KSecurity
    KSecurity::Right right = KSecurity::Read; // that the user must hold on the form
    std::function<void(qint32 key, QWidget *parent)> run;
    std::function<bool(qint32 key)> isOffered = {}; // asked when the record is chosen; empty: of every record
};

// The windows of a kind of record, by which anything that names a record leads to it: a hit of a search, a line of the start page or of a
// timeline, a twin.
struct RecordWindow
{
    QString table;
    QString form; // of KSecurity: who may read there may open it; empty: everybody
    QString icon;
    // Shows the record, or edits it, in its own window, to a user who may, and while it is there.
    std::function<void(qint32 key, bool edits, QWidget *parent)> open;
    // Opens a page of the work area with the list of the kind, as asked. Empty: the kind has no list.
    std::function<void(const KListRequest &request)> list = {};
    QList<RecordAction> actions = {};
};

// The kinds whose windows this program has. The suite's are entered at the start, the module's while it is loaded.
class TZACCOUNTING_EXPORT RecordWindows
{
public:
    // Replaces one of the same table.
    static void enter(RecordWindow window);
    static void remove(const QString &table);
    // Null for a table that nobody has entered.
    static const RecordWindow *of(const QString &table);
    // Whether the user may open records of the table. False for one that nobody has entered.
    static bool mayOpen(const QString &table);
    // Nothing for a table that nobody has entered. A user without the right, or a record that is gone, is told, and so is what is thrown.
    static void open(const QString &table, qint32 key, bool edits, QWidget *parent);
    static void openList(const QString &table, const KListRequest &request);
    // An action on records of a table whose windows a lower floor enters, behind those of its own; replaces one of the same id. It stays while
    // the windows of the table are entered anew.
    static void addAction(const QString &table, RecordAction action);
    static void removeAction(const QString &table, const QString &id);
    // Runs one of actionsOf. What is thrown is reported.
    static void run(const RecordAction &action, qint32 key, QWidget *parent);
    // Those that the user may run on the record, in their order.
    static QList<RecordAction> actionsOf(const QString &table, qint32 key);
};

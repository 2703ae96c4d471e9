// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/office/KSecurity.h"

#include <QKeySequence>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class KCommandButton;
class QHBoxLayout;
class QPushButton;
class QSpacerItem;

// A button of a list page.
struct KListCommand
{
    enum Option {
        NeedsRow = 1,         // enabled exactly while a row is selected
        HiddenInReadOnly = 2, // not shown in read-only mode and on a closed database
        HiddenInSelect = 4,   // not shown in select mode
        NotDisplayed = 8,     // exists, but is never shown
        StartsGroup = 32,     // a gap before it
        PrintsList = 64,      // the button has a menu beside it: the other ways to take the list out
        BesideSearch = 128    // stands beside the search button, not among the commands below the list
    };

    QString id;      // plain English, unique in the list: code and tests name the command by it
    QString caption; // also its accessible name
    int options = 0;
    std::function<void()> run;
    QKeySequence shortcut = {};
    QString icon = {}; // resource path
    // A button whose right the user lacks looks disabled; the command itself checks the right. None: for everybody.
    std::optional<KSecurity::Right> needs = {};
    QString needsForm = {}; // form of the right; empty: the list's own
};

// The line of commands below a list: the button of each, its shortcut, and which are shown and enabled.
class TZACCOUNTING_EXPORT KListCommands : public QWidget
{
    Q_OBJECT

public:
    // What the commands stand among.
    struct Surroundings
    {
        QWidget *list = nullptr;                                   // Delete belongs to it, and the focus when a button loses it
        QHBoxLayout *searchRow = nullptr;                          // null: no command stands beside the search button
        std::function<QWidget *(QWidget *parent)> makePrintMenu;   // the arrow of a command that prints the list
        std::function<void(const std::function<void()> &)> guard; // runs a command and reports what it throws
        QString form = {};                                         // whose rights the commands need
    };

    KListCommands(std::vector<KListCommand> commands, Surroundings around, QWidget *page);

    // Adds a widget behind the commands, at the end of the line.
    void addAtEnd(QWidget *widget);
    // Also takes the user's rights anew.
    void setMode(bool changeBlocked, bool select);
    void setRowSelected(bool selected);

    // Null when no command has the id.
    QPushButton *button(QStringView id) const;
    // Runs the command as its button would, if it may run now. False when it may not.
    bool run(QStringView id) const;

private:
    struct Entry
    {
        KListCommand command;
        KCommandButton *button = nullptr;
        QWidget *menu = nullptr;    // the arrow beside it
        QSpacerItem *gap = nullptr; // before it, where a group starts
    };

    void add(KListCommand command);
    void addShortcut(const KListCommand &command, KCommandButton *button);
    QString hindrance(const KListCommand &command) const;

    Surroundings m_around;
    QHBoxLayout *m_line;
    std::vector<Entry> m_entries;
};

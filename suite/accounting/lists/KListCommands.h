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
class KExtListCtrl;
class QHBoxLayout;
class QMenu;
class QPushButton;
class QSpacerItem;

// A button of a list page.
struct KListCommand
{
    enum Option {
        NeedsRow = 1,         // enabled exactly while a row is selected; also in the row's menu
        HiddenInReadOnly = 2, // not offered in read-only mode and on a closed database
        HiddenInSelect = 4,   // not offered in select mode
        NotDisplayed = 8,     // exists, but is never offered
        StartsGroup = 32,     // a gap before it
        PrintsList = 64,      // the button has a menu beside it: the other ways to take the list out
        BesideSearch = 128,   // stands beside the search button, not among the commands below the list
        InRowMenu = 256       // with NeedsRow: in the row's menu only, so that the line keeps its room for the others
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
    // Of a command that switches something on and off: whether it is on for the marked rows, asked as the row's menu comes up, which shows
    // it ticked then. Empty: it switches nothing.
    std::function<bool()> isOn = {};

    // Adds a row: the one whose key is Insert.
    bool isAdding() const { return shortcut == QKeySequence(Qt::Key_Insert); }
    // Takes the row away: the one whose key is Delete.
    bool isRemoving() const { return shortcut == QKeySequence(QKeySequence::Delete); }
};

// The line of commands below a list: the button of each, its shortcut, and which are offered and enabled. Those that do not fit the
// width go, from the end, into the menu of a button "بیشتر"; their shortcuts work all the same. The commands of the selected row
// are also in its menu.
class TZACCOUNTING_EXPORT KListCommands : public QWidget
{
    Q_OBJECT

public:
    // What the commands stand among.
    struct Surroundings
    {
        KExtListCtrl *list = nullptr;                             // Delete belongs to it, and the focus when a button loses it
        QHBoxLayout *searchRow = nullptr;                         // null: no command stands beside the search button
        std::function<QWidget *(QWidget *parent)> makePrintMenu;  // the arrow of a command that prints the list
        std::function<void(const std::function<void()> &)> guard; // runs a command and reports what it throws
        QString form = {};                                        // whose rights the commands need
    };

    KListCommands(std::vector<KListCommand> commands, Surroundings around, QWidget *page);
    ~KListCommands() override;

    // Also takes the user's rights anew.
    void setMode(bool changeBlocked, bool select);
    void setRowSelected(bool selected);

    // Null when no command has the id. A button in the menu "بیشتر" is hidden.
    QPushButton *button(QStringView id) const;
    // Whether the command is there for the user, as a button or in the menu "بیشتر".
    bool isOffered(QStringView id) const;
    // The buttons of the commands that the user does not have now.
    QList<const QPushButton *> withheld() const;
    // Runs the command as its button would, if it may run now. False when it may not.
    bool run(QStringView id) const;
    // The command that adds a row, while it is offered; else null.
    const KListCommand *adding() const;

    // The button of the menu; null until some do not fit, hidden while all fit again.
    QPushButton *moreButton() const;
    // Shows the menu of the selected row, with its upper left corner at that place of the screen.
    void showRowMenu(const QPoint &place);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Entry
    {
        KListCommand command;
        KCommandButton *button = nullptr;
        QWidget *menu = nullptr;    // the arrow beside it
        QSpacerItem *gap = nullptr; // before it, where it is the first of its group in sight
        int group = 0;
        bool inLine = true; // neither beside the search button nor in the row's menu only
        bool offered = true;
        bool fits = true;

        bool inMenuOnly() const { return command.options & KListCommand::InRowMenu; }
    };

    void add(KListCommand command);
    void addShortcut(const KListCommand &command, KCommandButton *button);
    void buildMore();
    QString hindrance(const KListCommand &command) const;
    const Entry *entry(QStringView id) const;

    int widthOf(const Entry &entry, const Entry *before) const;
    int fullWidth() const;
    void arrange();
    void showEntries();
    void fillMore();
    void addAction(QMenu *menu, const Entry &entry) const;
    void addColumnMenu();

    Surroundings m_around;
    QHBoxLayout *m_line;
    // Made when they are needed.
    KCommandButton *m_more = nullptr;
    QMenu *m_moreMenu = nullptr;
    QMenu *m_rowMenu = nullptr;
    QMenu *m_columnMenu = nullptr; // in the menu of the row
    std::vector<Entry> m_entries;
    bool m_hasPlace = false; // whether the page has given it one
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/lists/KListModel.h"

#include <QKeySequence>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class KEdit;
class KExtListCtrl;
class KMySQL;
class QGridLayout;
class QHBoxLayout;
class QLabel;
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

    QString caption; // also its accessible name
    int options = 0;
    std::function<void()> run;
    QKeySequence shortcut = {};
    QString icon = {}; // resource path
};

// How a list goes on paper.
struct KListReport
{
    QString title;
    QString group; // the office keeps its layouts under group and report; no report: the list is not printed
    QString report;
    QVector<std::pair<QString, QString>> texts = {}; // further text elements by name; see ListReport
};

// What the archive command of a list says and asks for.
struct KArchiveTexts
{
    QString rightForm; // form whose access right allows archiving
    QString refused;
    QString alreadyArchived;
    QString done;
};

// Where a list differs from most. What stands here is how most lists are.
struct KListTraits
{
    QString layoutSetting = {};  // settings section of the columns' widths and order; empty: the list's section + "\\List"
    QString emptySort = {};      // order while the stored one is an empty text; empty: defaultSort()
    bool hasRowLimit = true;     // false: every row is fetched and no limit is kept
    int lowestRowLimit = 1;      // 0: that many means without a limit
    bool hasSearchButton = true; // false: the filter's own controls refill the list
    int searchColumn = 0;        // column of the filter's last line from which row limit and search stand; 0: on a line below
    QString filterTitle = QStringLiteral("فيلتر جستجو");
    bool sortsWithoutRows = false; // true: a title's click asks the database for its order even while the list is empty
    bool deletesInSelectMode = false;
};

// Base page of the lists: filter, rows of one record set, commands. It owns what all lists share: the settings (row limit,
// last column, sort), the sort mark and direction, keeping the selection, the count label, which commands are shown and
// enabled, archiving and deleting. A list derives from it with its tables (columns, commands) and its few own steps, and
// calls build() at the end of its constructor.
//
// Modes are set before the page is first shown. A closed database acts like read-only mode.
class TZACCOUNTING_EXPORT KListPage : public KDialogTabPage, protected KSecurity
{
    Q_OBJECT

public:
    // The form names the rights; the section the user's settings.
    KListPage(const QString &title, const QString &form, const QString &section, QWidget *parent = nullptr);
    ~KListPage() override;

    void setReadOnlyMode(bool on) { m_readOnlyMode = on; }
    // For picking one row; a key to preselect, 0 for none.
    void setSelectMode(bool on, int preselectedKey = 0);
    bool isSelectMode() const { return m_selectMode; }
    // Key of the row that OK took in select mode, before that the preselected one.
    int chosenKey() const { return m_chosenKey; }

    // Reads the settings and fills the list; done by itself when the page is first shown.
    void open();
    // Reads the rows anew with the filter as it stands. Throws CMySQLException: the list then keeps the rows it had.
    void refill();
    // Runs the command with that caption as its button would, if it may run now. False when it may not.
    bool runCommand(const QString &caption);

    KExtListCtrl *list() const { return m_list; }
    QPushButton *button(const QString &caption) const;
    QString countText() const;
    QString sortExpression() const { return m_sort; }
    // 0: no limit.
    int rowLimit() const;
    // Of the next fill, up to 10000, as the user would type it.
    void setRowLimit(int rows);

    bool OnAccess() override;
    bool OnOK() override;
    void OnClosing() override;

protected:
    // --- What a list is made of ---
    virtual QVector<KListModel::Column> listColumns() const = 0;
    virtual std::vector<KListCommand> commands() = 0;
    // The filter's controls, in the grid of its group box; the base adds the row limit and the search button behind them.
    virtual void buildFilters(QGridLayout *grid) = 0;
    virtual KListTraits traits() const { return {}; }
    // What the list reads.
    virtual std::unique_ptr<KMySQL> makeRecords() const = 0;
    // What deleting and archiving work on, loaded by its key: a list over a joined view gives the table's own class.
    virtual std::unique_ptr<KMySQL> makeRecord() const;
    // Columns that the rows need; empty fetches all.
    virtual QStringList fetchedColumns() const { return {}; }
    // The run of clauses, each beginning with " AND "; the base takes the first " AND " off.
    virtual QString filterClauses() const = 0;
    // The row of the record that the set stands on; numbers count from 1.
    virtual KListModel::Row makeRow(KMySQL &record, int number) = 0;
    // Called before the first makeRow and after the last, for names looked up for the whole list at once.
    virtual void beginRows() { }
    virtual void completeRows(QVector<KListModel::Row> &) { }
    virtual QString defaultSort() const { return QStringLiteral("iID"); }
    virtual int defaultLastColumn() const { return 1; }
    // A selected record is gone from the table. The list takes its row off; one that is to be read anew calls refill().
    virtual void recordDeleted(int key);
    virtual void activated(int key) = 0;  // double click or Enter on a row, outside select mode
    virtual void opening() { }            // once, before the first fill; what it throws keeps the list from being filled
    virtual void modeApplied() { }        // the mode is known: shows and hides the list's own controls
    virtual void emptyAreaActivated() { } // double click beside the rows, outside select mode
    virtual void rightClicked(int) { }
    // A list with a report has a print command (printCommand) among its commands.
    virtual KListReport reportSpec() const { return {}; }
    // Select mode: takes what the caller wants to know of the row besides its key.
    virtual void chose(int) { }
    virtual QWidget *firstFilterControl() const = 0;

    // --- What the base offers to it ---
    void build();
    // Read-only mode, or a database that was closed when the page was opened: nothing to change is offered.
    bool isReadOnly() const { return m_readOnlyMode || m_closed; }
    // Read-only mode, or a database that is closed now, which is asked: for a command that is about to change something.
    bool isChangeBlocked() const;
    bool isOpened() const { return m_opened; }
    // Loads the selected row by its key; false without a selection or when the row has vanished.
    bool loadSelected(KMySQL &record) const;
    // Asks, deletes through the record's own Delete, then recordDeleted. Nothing without the right, nor in select mode unless
    // the list's traits say so.
    void deleteSelected();
    // Runs the statement on the selected record unless it is archived already; statement takes the loaded record.
    void archiveSelected(const KArchiveTexts &texts, const std::function<void(KMySQL &)> &archive);
    // "چاپ" (Ctrl+P): the list as it stands, in the report's window; in the menu beside it PDF, spreadsheet and layout.
    KListCommand printCommand(int options = KListCommand::HiddenInSelect);
    // The report of the list as it stands: its rows and columns, the texts of reportSpec(), the print date ("LeftBottom") and
    // the count ("Count"), in the stored layout when there is one.
    ListReport listReport() const;
    // Runs work; an error it lets through is reported once and the page stays as it is.
    void guarded(const std::function<void()> &work);
    // Adds label and control to the filter grid with accessible name and buddy.
    static void addFilter(QGridLayout *grid, int row, int column, const QString &label, QWidget *control, int span = 1);

    // Selects the row with that key; without such a row the selection stays.
    void selectListed(int key);
    // Takes all rows off the list, as if nothing had been found.
    void emptyList();

    void showEvent(QShowEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void buildFilterBox();
    void buildSearchRow(QGridLayout *grid);
    void buildCommands();
    QWidget *buildPrintMenu();
    void printList();
    void withReport(const std::function<void(ListReport &)> &work);
    void addShortcut(const KListCommand &command, QPushButton *button);
    void applyMode();
    bool checkFilter();
    void search();
    void readSettings();
    void readOrder();
    bool isSortable() const;
    void firstFill();
    void updateCommands();
    void sortBy(int column);
    bool isKnownSort(const QString &sort) const;
    void markColumn(int column, bool marked);
    QVector<KListModel::Row> readRows(const QString &sort);
    void restoreSelection(int rememberedRow);
    void updateCount();

    struct Command
    {
        KListCommand command;
        QPushButton *button = nullptr;
        QWidget *menu = nullptr;    // the arrow beside it
        QSpacerItem *gap = nullptr; // before it, where a group starts
    };

    QString m_section;
    KListTraits m_traits;
    bool m_readOnlyMode = false;
    bool m_closed = false; // the database, when the page was opened
    bool m_selectMode = false;
    bool m_opened = false;
    bool m_exchangingRows = false;
    int m_chosenKey = 0;
    int m_lastColumn = 1;
    bool m_descending = false;
    QString m_sort;
    std::unique_ptr<KMySQL> m_records;
    QVector<KListModel::Column> m_columns;
    std::vector<Command> m_commands;
    KExtListCtrl *m_list = nullptr;
    KEdit *m_rowLimit = nullptr;
    QLabel *m_count = nullptr;
    QWidget *m_filterBox = nullptr;
    QHBoxLayout *m_searchRow = nullptr;
    QWidget *m_commandRow = nullptr;
};

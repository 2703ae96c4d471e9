// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KFilterForm.h"
#include "suite/accounting/lists/KListAsking.h"
#include "suite/accounting/lists/KListColumn.h"
#include "suite/accounting/lists/KListCommands.h"
#include "suite/accounting/lists/KListCount.h"
#include "suite/accounting/lists/KListFilterBox.h"
#include "suite/accounting/lists/KListFoot.h"
#include "suite/accounting/lists/KListOrder.h"
#include "suite/accounting/lists/KListPrinting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/KDialogTabPage.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

class KEmptyState;
class KExtListCtrl;
class KListBar;
class KListCard;
class KMySQL;
class KNextRows;
class SavedFilterMenu;
class QGridLayout;
class QPushButton;

// What the archive command of a list says and asks for.
struct KArchiveTexts
{
    QString rightForm; // form whose access right allows archiving
    QString refused;
    QString alreadyArchived;
    QString done;
};

// Base page of the lists: filter, rows of one record set, commands. A list derives from it with three tables (columns, filters,
// commands) and its few own steps, and calls build() at the end of its constructor. Code and tests name a column, a filter and
// a command by its key. The page owns what all lists share: the settings (row limit, last column, sort), the sort mark and
// direction, keeping the selection, the count label, which commands are shown and enabled, archiving and deleting.
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
    // Key of the row that OK took in select mode; until then, the preselected one.
    int chosenKey() const { return m_chosenKey; }

    // What the list shows first, before it is first shown or after; the page then opens as asked, and where it is open, is filled anew.
    void setRequest(const KListRequest &request);
    // What is asked besides the filters; empty words where nothing is.
    const KListRequest &request() const { return m_asking.request(); }
    // Takes that condition away; the rows are read anew.
    void dropRequestedCondition();

    // Asks what a filter that was kept asks (SavedFilterText), and nothing else.
    void takeFilter(const QString &kept);

    // Reads the settings and fills the list; done by itself when the page is first shown.
    void open();
    // Reads the rows anew with the filter as it stands. Throws CMySQLException: the list then keeps the rows it had.
    void refill();
    // Reads anew what the list shows, with the filter that it was filled with, and whether the database is closed. The selected
    // record and the rows in sight stay so. What is thrown is reported.
    void refresh() override;
    // Reads anew and selects the record, for one that has come back; nothing where the list shows records of another table.
    void showRecord(const QString &table, int key);
    // Resets the filter to that of a new page, except for what its table keeps.
    virtual void resetFilter() { filters().reset(); }
    // Runs the command with that id as its button would, if it may run now. False when it may not.
    bool runCommand(QStringView id) { return m_commands->run(id); }

    KExtListCtrl *list() const { return m_list; }
    KFilterForm &filters() const { return m_filterBox->filters(); }
    // Hidden also where it is offered in the menu "بیشتر"; see isOffered.
    QPushButton *button(QStringView id) const { return m_commands->button(id); }
    // Whether the user has the command in the mode that the page is in, as a button or in that menu.
    bool isOffered(QStringView id) const { return m_commands->isOffered(id); }
    KListFilterBox *filterBox() const { return m_filterBox; }
    KListCommands *commandLine() const { return m_commands; }
    // Between the filter and the rows.
    KListBar *bar() const { return m_bar; }
    // The rows and what stands at their foot.
    KListCard *card() const { return m_card; }
    // Null for a list whose filter the user cannot change.
    SavedFilterMenu *savedFilters() const { return m_savedFilters; }
    // What the list says instead of rows; hidden while it has some.
    KEmptyState *emptyState() const { return m_foot->emptyState(); }
    // Shown while the row limit keeps rows back.
    KNextRows *nextRows() const { return m_next; }
    QString countText() const;
    QString sortExpression() const { return m_order.sort(); }
    // 0: no limit.
    int rowLimit() const { return m_filterBox->rowLimit(); }
    // For the next fill, up to 10000, as if typed by the user.
    void setRowLimit(int rows) { m_filterBox->setRowLimit(rows); }

    bool OnAccess() override;
    bool OnOK() override;
    void OnClosing() override;

protected:
    // --- What a list is made of ---
    virtual QList<KListColumn> columnTable() const = 0;
    virtual QList<KListFilter> filterTable() const { return {}; }
    virtual std::vector<KListCommand> commands() = 0;
    virtual KListTraits traits() const { return {}; }
    // What the list reads.
    virtual std::unique_ptr<KMySQL> makeRecords() const = 0;
    // What deleting and archiving work on, loaded by its key: a list over a joined view returns the table's own class.
    virtual std::unique_ptr<KMySQL> makeRecord() const;
    // What the list shows besides its filters' controls in the grid of the filter box; the row limit and the search button come
    // behind it.
    virtual void buildFilters(QGridLayout *) { }
    // The condition of the rows; a run of clauses may begin with " AND ".
    virtual KSql filterClauses() const;
    // A row that stands out: what is overdue or void.
    virtual bool isWarning(KMySQL &) const { return false; }
    // Called before the first row is made, also of rows that are read behind those that the list has (isReadingOn). They may be gone through; the
    // set stands on its first row again afterwards.
    virtual void beginRows(KMySQL &) { }
    // Whether the list adds to all rows at once as it stands now (completeRows): then their cells are made at once, and else when they are first
    // seen. Cells that are made later say what the record holds and nothing else that is read.
    virtual bool completesRows() const { return false; }
    // Called after the last row has its names.
    virtual void completeRows(QVector<KListModel::Row> &) { }
    // The rows in sight have changed, for a list that sums them up itself (hasOwnTotals).
    virtual void showTotals(const QVector<KListModel::Row> &) { }
    virtual QString defaultSort() const { return u"iID"_s; }
    virtual int defaultLastColumn() const { return 1; }
    // Before the user is asked: throws what keeps the record from being deleted.
    virtual void requireDeletable(KMySQL &) { }
    // Deletes the record, which holds the row as it was when the user was asked. What RowDeleting::Refused says is shown; the
    // list then shows the row as it is now, or no longer.
    virtual void deleteRecord(KMySQL &asked);
    // A selected record is gone from the table. The list removes its row; a list that must be read anew calls refill().
    virtual void recordDeleted(int key);
    virtual void activated(int key) = 0;  // double click or Enter on a row, outside select mode
    virtual void opening() { }            // once, before the first fill; what it throws keeps the list from being filled
    virtual void modeApplied() { }        // the mode is known: shows and hides the list's own controls
    virtual void emptyAreaActivated() { } // double click beside the rows, outside select mode
    virtual void rightClicked(int) { }
    // A list with a report has a print command (printCommand) among its commands.
    virtual KListReport reportSpec() const { return {}; }
    // Select mode: takes what the caller needs to know about the row besides its key.
    virtual void chose(int) { }
    // The control that Ctrl+F moves to from the quick filter; null: it stays there.
    virtual QWidget *firstFilterControl() const { return filters().findControl(); }

    // --- What the base offers to it ---
    void build();
    // The record columns that the column table reads, but for the optional columns that are off.
    virtual QStringList fetchedColumns() const;
    // The row of a record besides those that are listed, with its names.
    KListModel::Row rowOf(KMySQL &record, int number) const;
    // Read-only mode, or a database that was closed when the page was opened or refreshed: nothing to change is offered.
    bool isReadOnly() const { return m_readOnlyMode || m_closed; }
    // Read-only mode, or a database that is closed now (this is queried): for a command that is about to change something.
    bool isChangeBlocked() const;
    bool isOpened() const { return m_opened; }
    // Whether the rows that are made now stand behind those that the list shows.
    bool isReadingOn() const { return m_asking.isReadingOn(); }
    // Loads the selected row by its key; false without a selection or when the row has vanished.
    bool loadSelected(KMySQL &record) const;
    // requireDeletable, asks, deleteRecord, then recordDeleted. Nothing without the right, nor in select mode unless the list's traits say so.
    void deleteSelected();
    // Runs the statement on the selected record unless it is archived already; statement takes the loaded record.
    void archiveSelected(const KArchiveTexts &texts, const std::function<void(KMySQL &)> &archive);
    // "print": "چاپ" (Ctrl+P), the list as it stands in the report's window; in the menu beside it PDF, spreadsheet and layout.
    KListCommand printCommand(int options = KListCommand::HiddenInSelect);
    // The report of the list as it stands.
    ListReport listReport() const;
    // Runs work; an error it lets through is reported once and the page stays as it is.
    void guarded(const std::function<void()> &work);

    // Selects the row with that key; without such a row the selection stays.
    // One that the quick filter keeps out of sight comes into sight.
    void selectListed(int key);
    // Removes all rows from the list, as if nothing had been found.
    void emptyList();

    void showEvent(QShowEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void connectList();
    void takeShownColumns();
    void showOtherColumns();
    void buildFilterBox();
    void buildBar();
    void find();
    void buildCard();
    void buildCommands();
    KListCommand storyCommand();
    KListCommand historyCommand();
    void withReport(const std::function<void(ListReport &)> &work);
    void search();
    void searchInPlace();
    void takeDatabaseState();
    int columnInOrder() const;
    void firstFill();
    // The filter's clauses, and what was asked besides them.
    KSql asked() const;
    void takeRequest();
    void fill(const KSql &filter, int limit);
    void readNext();
    void readFurther();
    int nextCount() const;
    void fillInPlace(const KSql &filter);
    void updateCommands();
    void sortBy(int column);
    KMySQL &records();
    QVector<KListModel::Row> readRows(const KSql &filter, int limit);
    QVector<KListModel::Row> makeRows(int first);
    void expectCount();
    void countLeftOut();
    void restoreSelection(int rememberedRow);
    void updateCount();
    bool hasFurtherRows();
    KListFoot::Emptiness emptiness() const;
    void updateEmptyState();
    void mendEmptiness();

    QString m_section;
    KListTraits m_traits;
    bool m_readOnlyMode = false;
    bool m_closed = false; // the database, when the page was opened or refreshed
    bool m_selectMode = false;
    bool m_opened = false;
    bool m_exchangingRows = false;
    int m_chosenKey = 0;
    KListAsking m_asking;
    std::optional<KSql> m_filledWith; // the filter of the rows; none while there are none to refresh
    int m_filledLimit = 0;            // the limit that it was filled with
    KListCount m_count;               // of the rows that it kept out
    bool m_isTableEmpty = false;      // the last fill found no row with any filter
    KListOrder m_order;
    std::shared_ptr<KMySQL> m_records; // made when it is needed
    QList<KListColumn> m_columnTable;
    QList<KListColumn> m_readTable; // the same, with nothing to read for the columns that are not shown
    KListPrinting m_printing;
    KExtListCtrl *m_list = nullptr;
    KListFilterBox *m_filterBox = nullptr;
    KListBar *m_bar = nullptr;
    KListCard *m_card = nullptr;
    SavedFilterMenu *m_savedFilters = nullptr;
    KListCommands *m_commands = nullptr;
    KListFoot *m_foot = nullptr;
    KNextRows *m_next = nullptr;
};

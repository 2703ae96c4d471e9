// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListPage.h"

#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/changes/RecordStory.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/lists/CDlgListColumns.h"
#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/lists/KListFoot.h"
#include "suite/accounting/lists/KListRows.h"
#include "suite/accounting/lists/RowArchiving.h"
#include "suite/accounting/lists/SavedFilterMenu.h"
#include "suite/accounting/lists/SavedFilterText.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/frame/TabOrder.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/lists/KNextRows.h"
#include "suite/utility/look/LookSizes.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What was asked before is asked again where rows that were read do not come into the list.
class KeptAsking
{
public:
    explicit KeptAsking(KListAsking &asking)
        : m_asking(asking)
        , m_before(asking)
    {
    }
    ~KeptAsking()
    {
        if (m_isKept)
            m_asking = m_before;
    }
    KeptAsking(const KeptAsking &) = delete;
    KeptAsking &operator=(const KeptAsking &) = delete;
    void giveUp() { m_isKept = false; }

private:
    KListAsking &m_asking;
    KListAsking m_before;
    bool m_isKept = true;
};

}

KListPage::KListPage(const QString &title, const QString &form, const QString &section, QWidget *parent)
    : KDialogTabPage(parent)
    , m_section(section)
    , m_printing([this](const KListPrinting::Work &work) { withReport(work); }, this)
{
    setTitle(title);
    SetFormName(form);
    CheckSecurity();
}

KListPage::~KListPage() = default;

void KListPage::setSelectMode(bool on, int preselectedKey)
{
    m_selectMode = on;
    // Who chooses one row marks no others.
    if (m_foot && m_foot->hasSums())
        m_list->setSelectionMode(on ? QAbstractItemView::SingleSelection : QAbstractItemView::ExtendedSelection);
    m_chosenKey = preselectedKey;
    filters().setSelectMode(on);
}

void KListPage::build()
{
    OfficeSettings::expect();
    m_traits = traits();
    m_asking.setHasPlaceholders(m_traits.hasPlaceholders);
    m_columnTable = m_readTable = columnTable();
    const QVector<KListModel::Column> columns = KListRows::shown(m_columnTable, records());
    m_order = KListOrder(m_section, columns, {defaultSort(), m_traits.emptySort, defaultLastColumn()});
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(title());
    m_list->setColumns(columns);
    m_list->setColumnsArrangeable();
    m_list->setLayoutUser(GetDBSetting()->GetUserName());
    m_list->SetSettingName(m_traits.layoutSetting.isEmpty() ? m_section + u"\\List"_s : m_traits.layoutSetting);
    takeShownColumns();

    buildFilterBox();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    layout->setSpacing(LookSizes::unit);
    layout->addWidget(m_filterBox);
    buildBar();
    layout->addWidget(m_bar);
    buildCard();
    layout->addWidget(m_card, 1);
    buildCommands();
    layout->addWidget(m_commands);
    tabInLayoutOrder(this);
    connectList();
}

void KListPage::buildCard()
{
    m_card = new KListCard(m_list, this);
    m_foot = new KListFoot(m_card, m_list, m_traits);
    connect(m_foot, &KListFoot::mendAsked, this, [this] { guarded([this] { mendEmptiness(); }); });
    m_next = new KNextRows(m_card);
    m_card->addBelowRows(m_next);
    m_next->follow(m_list);
    connect(m_card, &KListCard::viewAdded, m_next, &KNextRows::follow);
    connect(m_next, &QPushButton::clicked, this, &KListPage::readNext);
    connect(&m_count, &KListCount::counted, this, &KListPage::updateCount);
}

void KListPage::connectList()
{
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &KListPage::updateCommands);
    connect(m_list, &KExtListCtrl::columnClicked, this, &KListPage::sortBy);
    connect(m_list, &KExtListCtrl::shownColumnsChanged, this, &KListPage::showOtherColumns);
    connect(m_list, &KExtListCtrl::rowRightClicked, this, [this](int key) { guarded([&] { rightClicked(key); }); });
    connect(m_list, &KExtListCtrl::emptyAreaActivated, this, [this] {
        if (!m_selectMode)
            guarded([&] { emptyAreaActivated(); });
    });
    const auto activate = [this](int key) {
        if (m_selectMode)
            Q_EMIT okRequested();
        else
            guarded([&] { activated(key); });
    };
    connect(m_list, &KExtListCtrl::rowActivated, this, activate);
    connect(m_bar, &KListBar::rowActivated, this, activate);
}

void KListPage::buildBar()
{
    m_bar = new KListBar(m_list, this);
    connect(m_bar, &KListBar::narrowed, this, &KListPage::updateCount);
    if (!filters().enteredValues().isEmpty()) {
        m_savedFilters = new SavedFilterMenu(m_filterBox, m_section, FormName(), this);
        connect(m_savedFilters, &SavedFilterMenu::chosen, this, &KListPage::takeFilter);
        m_bar->addView(m_savedFilters);
    }
    connect(m_list, &KExtListCtrl::columnOrderAsked, this, [this] { CDlgListColumns::Show(m_list, this); });
}

void KListPage::takeFilter(const QString &kept)
{
    const SavedFilterText::Read read = SavedFilterText::read(filters().filters(), kept);
    m_asking.setRequest({});
    m_filterBox->setRequested({});
    m_bar->widen();
    const bool isWhole = filters().enter(read.values) && !read.isPartly;
    m_asking.forgetFurtherRows();
    search();
    if (!isWhole)
        g_pDlgMessage->Show(u"برخی از شرط‌های این فیلتر دیگر در این فهرست نیست و به کار نرفت."_s, this);
}

// Ctrl+F: the rows in sight first; pressed there, the filter that asks the database.
void KListPage::find()
{
    QWidget *filter = firstFilterControl();
    if (!m_bar->quickFilter()->hasFocus() || !filter) {
        m_bar->quickFilter()->setFocus(Qt::ShortcutFocusReason);
        m_bar->quickFilter()->selectAll();
        return;
    }
    m_filterBox->open();
    filter->setFocus(Qt::ShortcutFocusReason);
}

// An optional column that is off keeps its place in the rows, empty.
void KListPage::takeShownColumns()
{
    if (!m_list->hasOptionalColumns())
        return;
    m_records.reset(); // it fetches other columns now
    m_readTable = m_columnTable;
    for (int column = 0; column < m_readTable.size(); ++column) {
        if (m_readTable.at(column).optional && !m_list->isColumnShown(column))
            m_readTable[column] = {.key = m_columnTable.at(column).key, .title = m_columnTable.at(column).title};
    }
}

void KListPage::showOtherColumns()
{
    takeShownColumns();
    if (m_filledWith)
        guarded([this] { fillInPlace(*m_filledWith); });
    else
        m_foot->refreshSums();
}

void KListPage::buildFilterBox()
{
    m_filterBox = new KListFilterBox(
        m_traits, filterTable(), [this](QGridLayout *grid) { buildFilters(grid); }, this);
    connect(m_filterBox, &KListFilterBox::searchAsked, this, &KListPage::search);
    auto *find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, this, &KListPage::find);
    connect(m_filterBox, &KListFilterBox::requestDropped, this, &KListPage::dropRequestedCondition);
    auto *fold = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(fold, &QShortcut::activated, m_filterBox, &KListFilterBox::toggle);
    auto *refresh = new QShortcut(QKeySequence(Qt::Key_F5), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(refresh, &QShortcut::activated, this, &KListPage::searchInPlace);
}

void KListPage::search()
{
    if (m_filterBox->checkEntries())
        guarded([this] { refill(); });
}

void KListPage::searchInPlace()
{
    if (!m_filterBox->checkEntries())
        return;
    guarded([this] {
        takeDatabaseState();
        m_asking.forgetFurtherRows();
        fillInPlace(asked());
        m_filterBox->takeConditions();
    });
}

void KListPage::refresh()
{
    if (!m_opened)
        return;
    guarded([this] {
        takeDatabaseState();
        m_asking.forgetFurtherRows();
        if (m_filledWith)
            fillInPlace(*m_filledWith);
    });
}

// It may have been closed, or opened again, while the list was open.
void KListPage::takeDatabaseState()
{
    m_closed = GetDBSetting()->IsClosedDB();
    m_commands->setMode(isReadOnly(), m_selectMode);
    updateCommands();
    updateEmptyState();
}

void KListPage::buildCommands()
{
    std::vector<KListCommand> all = commands();
    if (RecordStory::isOffered(records().GetTableName()))
        all.push_back(storyCommand());
    if (RecordHistory::isOffered(records().GetTableName()))
        all.push_back(historyCommand());
    m_commands = new KListCommands(std::move(all),
                                   {m_list, m_filterBox->searchRow(), [this](QWidget *parent) { return m_printing.makeMenu(parent, [this] { return !m_closed; }); },
                                    [this](const std::function<void()> &work) { guarded(work); },
                                    FormName()},
                                   this);
}

KListCommand KListPage::storyCommand()
{
    return {u"story"_s, RecordStory::caption(), KListCommand::NeedsRow | KListCommand::InRowMenu | KListCommand::HiddenInSelect, [this] { RecordStory::show(records().GetTableName(), m_list->currentKey(), this); },
            QKeySequence(Qt::CTRL | Qt::Key_T), u":/icons/calendar.svg"_s};
}

KListCommand KListPage::historyCommand()
{
    return {u"history"_s, RecordHistory::caption(), KListCommand::NeedsRow | KListCommand::InRowMenu | KListCommand::HiddenInSelect, [this] { RecordHistory::show(records().GetTableName(), m_list->currentKey(), this); },
            QKeySequence(Qt::CTRL | Qt::Key_H), u":/icons/history.svg"_s};
}

KListCommand KListPage::printCommand(int options)
{
    return {u"print"_s, u"چاپ"_s, options | KListCommand::PrintsList, [this] { m_printing.print(); },
            QKeySequence(QKeySequence::Print), u":/icons/print.svg"_s, PrintList};
}

ListReport KListPage::listReport() const
{
    return KListPrinting::report(reportSpec(), m_list, countText());
}

void KListPage::withReport(const std::function<void(ListReport &)> &work)
{
    guarded([&] {
        if (!CheckPrintListSecurity())
            return;
        ListReport report = listReport();
        work(report);
    });
}

void KListPage::open()
{
    if (m_opened)
        return;
    m_opened = true;
    m_filterBox->readRowLimit(m_section);
    m_filterBox->readFolding(m_section);
    m_order.read();
    m_list->setSortMark(columnInOrder());
    takeDatabaseState();
    modeApplied();
    opening();
    takeRequest();
    firstFill();
    if (m_selectMode)
        selectListed(m_chosenKey);
    else if (request().selected > 0)
        selectListed(request().selected);
    setFocus(Qt::OtherFocusReason);
}

// What is off at first has the mark while it is in sight and the rows stand in its order.
int KListPage::columnInOrder() const
{
    const QVector<KListModel::Column> &columns = m_list->listModel()->columns();
    for (int column = 0; column < columns.size(); ++column) {
        const QString &key = columns.at(column).sortKey;
        if (columns.at(column).optional && !key.isEmpty() && key == KSortOrder::sortKey(m_order.sort()) && m_list->isColumnShown(column))
            return column;
    }
    return m_order.markedColumn();
}

// An order that an earlier program stored may be one that the table no longer knows. The list opens all the same; what only
// the database can say is said once.
void KListPage::firstFill()
{
    if (!records().canSortBy(KSql::order(m_order.sort())))
        m_order.setDefault();
    try {
        refill();
    } catch (const CMySQLException &error) {
        if (error.category() != CMySQLException::Category::BadStatement || m_order.isDefault())
            throw;
        m_order.setDefault();
        refill();
        KErrorBoundary::report(std::current_exception(), this);
    }
}

void KListPage::showEvent(QShowEvent *event)
{
    KDialogTabPage::showEvent(event);
    guarded([this] { open(); });
}

// Focusing the page means focusing its rows. (A focus proxy would do that too, but Tab would then meet it on its way round and
// never come to the filter again.)
void KListPage::focusInEvent(QFocusEvent *event)
{
    // Who chooses one of the rows looks for it first, and goes through them from there.
    (m_selectMode ? static_cast<QWidget *>(m_bar->quickFilter()) : m_list)->setFocus(event->reason());
}

// Enter has searched by now; it is not also the answer to the window that holds the page.
void KListPage::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && m_filterBox->isAncestorOf(focusWidget()))
        event->accept();
    else
        KDialogTabPage::keyPressEvent(event);
}

bool KListPage::isChangeBlocked() const
{
    return m_readOnlyMode || GetDBSetting()->IsClosedDB();
}

void KListPage::updateCommands()
{
    // While the rows are exchanged none is selected, and a button disabled for that moment would lose the focus.
    if (!m_exchangingRows)
        m_commands->setRowSelected(m_list->currentRow() >= 0);
}

void KListPage::refill()
{
    fill(asked(), rowLimit());
    m_filterBox->takeConditions();
}

void KListPage::fill(const KSql &filter, int limit)
{
    const KWaitCursor wait;
    const int remembered = m_list->currentRow();
    // The rows are complete before the list drops those it shows, so an error leaves the list as it was.
    noteReading();
    QVector<KListModel::Row> rows = readRows(filter, limit);
    m_filledWith = filter;
    m_filledLimit = rowLimit();
    m_list->setUpdatesEnabled(false);
    m_exchangingRows = true;
    m_list->setRows(std::move(rows));
    restoreSelection(remembered);
    m_exchangingRows = false;
    m_list->setUpdatesEnabled(true);
    updateCommands();
    updateCount();
}

void KListPage::fillInPlace(const KSql &filter)
{
    const int key = m_list->currentKey();
    const int top = m_list->verticalScrollBar()->value();
    // As many as the user has fetched by and by.
    const int limit = rowLimit();
    fill(filter, limit > 0 ? qMax(limit, int(m_asking.readSoFar())) : limit);
    // A record that is gone leaves the selection to the row in its place.
    if (m_list->listModel()->rowOfKey(key) >= 0)
        m_list->selectKey(key);
    m_list->verticalScrollBar()->setValue(top);
}

KMySQL &KListPage::records()
{
    if (!m_records) {
        m_records = makeRecords();
        if (!m_traits.readsWholeRecords)
            m_records->SetColumns(fetchedColumns());
    }
    return *m_records;
}

QStringList KListPage::fetchedColumns() const
{
    return KListRows::fetched(m_readTable);
}

KListModel::Row KListPage::rowOf(KMySQL &record, int number) const
{
    return KListRows::row(m_readTable, record, number);
}

KSql KListPage::filterClauses() const
{
    return filters().condition(GetDBSetting()->GetUserID());
}

KSql KListPage::asked() const
{
    return m_asking.asked(filterClauses());
}

void KListPage::setRequest(const KListRequest &request)
{
    m_asking.setRequest(request);
    m_filterBox->setRequested(request.conditionText);
    if (!m_opened)
        return;
    guarded([this] {
        m_bar->widen();
        takeRequest();
        m_asking.forgetFurtherRows();
        refill();
        selectListed(this->request().selected);
    });
}

// A list that is asked for some of its records hides none of them behind a filter that the request does not name.
void KListPage::takeRequest()
{
    if (request().filters.isEmpty() && request().condition.isEmpty())
        return;
    filters().widen();
    for (auto value = request().filters.cbegin(); value != request().filters.cend(); ++value)
        filters().set(value.key(), value.value());
}

void KListPage::dropRequestedCondition()
{
    m_asking.setRequest({});
    m_filterBox->setRequested({});
    guarded([this] {
        m_asking.forgetFurtherRows();
        refill();
    });
}

QVector<KListModel::Row> KListPage::readRows(const KSql &filter, int limit)
{
    KMySQL &set = records();
    KeptAsking kept(m_asking);
    m_asking.open(set, filter, KSql::order(m_order.sort()), limit);
    const KReadAhead reading(set.database());
    expectCount();
    beginRows(set);
    QVector<KListModel::Row> rows = makeRows(1);
    m_isTableEmpty = rows.isEmpty() && !hasFurtherRows();
    if (!rows.isEmpty())
        m_asking.noteRows();
    countLeftOut();
    kept.giveUp();
    // It is the rows' now, until the last of them has its cells.
    m_records.reset();
    return rows;
}

bool KListPage::hasFurtherRows()
{
    return m_asking.hasFurtherRows(records(), filterClauses(), filters().widestCondition(GetDBSetting()->GetUserID()), !filters().filters().isEmpty());
}

// Together with the names of the rows.
void KListPage::expectCount()
{
    if (m_asking.isCut())
        KListCount::expect(records(), m_asking.readSoFar());
}

void KListPage::countLeftOut()
{
    if (m_asking.isCut())
        m_count.count(records(), m_asking.readSoFar());
    else
        m_count.forget();
}

void KListPage::readNext()
{
    guarded([this] { readFurther(); });
}

// The next rows of the same filter in the same order. What goes wrong leaves the list as it was, with the same rows to fetch.
void KListPage::readFurther()
{
    if (!m_filledWith || !m_asking.isCut())
        return;
    const KWaitCursor wait;
    KMySQL &set = records();
    KeptAsking kept(m_asking);
    m_asking.openNext(set, m_filledLimit);
    const int shown = m_list->listModel()->allRows();
    const KReadAhead reading(set.database());
    expectCount();
    beginRows(set);
    QVector<KListModel::Row> rows = makeRows(shown + 1);
    countLeftOut();
    kept.giveUp();
    m_records.reset();
    const int first = rows.isEmpty() ? 0 : rows.constFirst().key;
    m_list->appendRows(std::move(rows));
    if (m_list->listModel()->rowOfKey(first) >= 0)
        m_list->selectKey(first);
    updateCommands();
    updateCount();
}

int KListPage::nextCount() const
{
    if (!m_asking.isCut() || m_count.leftOut() == 0)
        return 0;
    return int(qMin<qint64>(m_filledLimit, m_count.leftOut()));
}

QVector<KListModel::Row> KListPage::makeRows(int first)
{
    QVector<KListModel::Row> rows = KListRows::read(m_readTable, m_records, first, [this](KMySQL &record) { return isWarning(record); });
    if (!completesRows())
        return rows;
    for (KListModel::Row &row : rows)
        row.makeCells();
    completeRows(rows);
    return rows;
}

void KListPage::restoreSelection(int rememberedRow)
{
    const int last = m_list->count() - 1;
    if (last >= 0)
        m_list->selectRow(qBound(0, rememberedRow, last));
}

void KListPage::selectListed(int key)
{
    if (m_list->listModel()->rowOfKey(key) < 0 && m_bar->isNarrowed()) {
        const QString words = m_bar->quickFilter()->text();
        m_bar->widen();
        if (m_list->listModel()->rowOfKey(key) < 0)
            m_bar->quickFilter()->setText(words);
    }
    if (m_list->listModel()->rowOfKey(key) >= 0)
        m_list->selectKey(key);
}

void KListPage::showRecord(const QString &table, int key)
{
    if (!m_opened || makeRecord()->GetTableName() != table)
        return;
    refresh();
    selectListed(key);
    m_list->setFocus(Qt::OtherFocusReason);
}

void KListPage::emptyList()
{
    m_list->setRows({});
    m_filledWith.reset();
    m_asking.forgetRows();
    m_count.forget();
    updateCommands();
    updateCount();
}

void KListPage::updateCount()
{
    m_foot->tellRows(m_bar->isNarrowed() ? 0 : m_count.leftOut(), m_count.isAtLeast());
    m_next->offer(nextCount());
    m_bar->updateFound();
    if (m_traits.hasOwnTotals)
        showTotals(m_list->listModel()->rows());
    updateEmptyState();
}

// None for a list that has not been filled: nobody knows what is in its table.
KListFoot::Emptiness KListPage::emptiness() const
{
    using Emptiness = KListFoot::Emptiness;
    if (!m_filledWith || m_list->count() > 0)
        return Emptiness::None;
    if (m_list->listModel()->allRows() > 0)
        return Emptiness::Narrowed;
    return m_isTableEmpty ? Emptiness::Bare : Emptiness::Filtered;
}

void KListPage::updateEmptyState()
{
    m_foot->tellEmptiness(emptiness(), m_commands->adding());
}

// What a list's own reset keeps may be what leaves nothing over.
void KListPage::mendEmptiness()
{
    const KListFoot::Emptiness reason = emptiness();
    if (reason == KListFoot::Emptiness::Narrowed)
        return m_bar->widen();
    if (reason == KListFoot::Emptiness::Bare) {
        if (const KListCommand *adding = m_commands->adding())
            m_commands->run(adding->id);
        return;
    }
    resetFilter();
    refill();
    if (emptiness() == KListFoot::Emptiness::Filtered) {
        filters().widen();
        refill();
    }
}

void KListPage::sortBy(int column)
{
    const KListOrder before = m_order;
    if (!m_order.click(column))
        return;
    // A title that cannot sort asks the database nothing.
    if (!records().canSortBy(KSql::order(m_order.sort()))) {
        m_order = before;
        return;
    }
    guarded([&] {
        try {
            if (m_list->listModel()->allRows() > 0)
                refill();
        } catch (...) {
            // A refused order is not kept: the list shows what it showed, in the order it had.
            m_order = before;
            throw;
        }
        m_list->setSortMark(column);
    });
}

bool KListPage::loadSelected(KMySQL &record) const
{
    const int key = m_list->currentKey();
    return key > 0 && record.IsRecordExist(u"iID"_s, key);
}

void KListPage::deleteSelected()
{
    if ((m_selectMode && !m_traits.deletesInSelectMode) || isChangeBlocked() || !CheckDeletionSecurity())
        return;
    const std::unique_ptr<KMySQL> record = makeRecord();
    const int key = m_list->currentKey();
    if (!loadSelected(*record)) {
        if (key > 0)
            recordDeleted(key);
        return;
    }
    requireDeletable(*record);
    if (g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    try {
        deleteRecord(*record);
    } catch (const RowDeleting::Refused &refused) {
        g_pDlgWarning->Show(refused.userMessage(), this);
        if (!refused.isGone())
            return refill();
    }
    recordDeleted(key);
}

void KListPage::deleteRecord(KMySQL &asked)
{
    RowDeleting::run(asked);
}

std::unique_ptr<KMySQL> KListPage::makeRecord() const
{
    return makeRecords();
}

void KListPage::recordDeleted(int key)
{
    const int row = m_list->currentRow();
    m_exchangingRows = true;
    m_list->removeKey(key);
    restoreSelection(row);
    m_exchangingRows = false;
    m_asking.forgetFurtherRows();
    updateCommands();
    updateCount();
    if (m_list->listModel()->allRows() > 0)
        return;
    m_isTableEmpty = !hasFurtherRows();
    updateEmptyState();
}

void KListPage::archiveSelected(const KArchiveTexts &texts, const std::function<void(KMySQL &)> &archive)
{
    if (isChangeBlocked())
        return;
    if (!IsGranted(texts.rightForm, KSecurity::Access)) {
        g_pDlgWarning->Show(texts.refused, this);
        return;
    }
    const int key = m_list->currentKey();
    if (key <= 0)
        return;
    const std::unique_ptr<KMySQL> record = makeRecord();
    try {
        const bool archived = RowArchiving::run(*record, key, archive);
        (archived ? g_pDlgMessage : g_pDlgWarning)->Show(archived ? texts.done : texts.alreadyArchived, this);
    } catch (const RowChanged &gone) {
        g_pDlgWarning->Show(gone.userMessage(), this);
    }
    refill();
}

void KListPage::guarded(const std::function<void()> &work)
{
    KErrorBoundary::guarded(this, work);
}

QString KListPage::countText() const
{
    return m_foot->countText();
}

bool KListPage::OnAccess()
{
    return CheckAccessSecurity(1);
}

bool KListPage::OnOK()
{
    if (!m_selectMode)
        return true;
    const int key = m_list->currentKey();
    if (key <= 0)
        return false;
    m_chosenKey = key;
    chose(m_list->currentRow());
    return true;
}

void KListPage::OnClosing()
{
    if (!m_opened)
        return;
    m_order.write();
    m_filterBox->writeRowLimit(m_section);
}

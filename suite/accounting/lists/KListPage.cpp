// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListPage.h"

#include "suite/db/KMySQL.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/frame/TabOrder.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QString sortMark = QStringLiteral("*");
const QString descendingSuffix = QStringLiteral(" DESC");
const QString clauseStart = QStringLiteral(" AND ");
constexpr int groupGap = 12;
constexpr int defaultRowLimit = 1000;
constexpr int highestRowLimit = 10000;

}

KListPage::KListPage(const QString &title, const QString &form, const QString &section, QWidget *parent)
    : KDialogTabPage(parent)
    , m_section(section)
{
    setTitle(title);
    SetFormName(form);
    CheckSecurity();
}

KListPage::~KListPage() = default;

void KListPage::setSelectMode(bool on, int preselectedKey)
{
    m_selectMode = on;
    m_chosenKey = preselectedKey;
}

void KListPage::build()
{
    m_traits = traits();
    m_columns = listColumns();
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(title());
    m_list->setColumns(m_columns);
    m_list->SetSettingName(m_traits.layoutSetting.isEmpty() ? m_section + QStringLiteral("\\List") : m_traits.layoutSetting);

    buildFilterBox();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_filterBox);
    layout->addWidget(m_list, 1);
    buildCommands();
    layout->addWidget(m_commandRow);
    tabInLayoutOrder(this);

    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &KListPage::updateCommands);
    connect(m_list, &KExtListCtrl::columnClicked, this, &KListPage::sortBy);
    connect(m_list, &KExtListCtrl::rowRightClicked, this, [this](int key) { guarded([&] { rightClicked(key); }); });
    connect(m_list, &KExtListCtrl::emptyAreaActivated, this, [this] {
        if (!m_selectMode)
            guarded([&] { emptyAreaActivated(); });
    });
    connect(m_list, &KExtListCtrl::rowActivated, this, [this](int key) {
        if (m_selectMode)
            Q_EMIT okRequested();
        else
            guarded([&] { activated(key); });
    });
}

void KListPage::buildFilterBox()
{
    auto *box = new QGroupBox(m_traits.filterTitle, this);
    m_filterBox = box;
    auto *grid = new QGridLayout(box);
    buildFilters(grid);
    if (m_traits.hasRowLimit || m_traits.hasSearchButton)
        buildSearchRow(grid);

    auto *find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, this, [this] { firstFilterControl()->setFocus(Qt::ShortcutFocusReason); });
    auto *refresh = new QShortcut(QKeySequence(Qt::Key_F5), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(refresh, &QShortcut::activated, this, &KListPage::search);
}

void KListPage::buildSearchRow(QGridLayout *grid)
{
    auto *last = new QHBoxLayout;
    m_searchRow = last;
    if (m_traits.hasRowLimit) {
        m_rowLimit = new KEdit(KEdit::Kind::Integer, m_filterBox);
        m_rowLimit->setRange(m_traits.lowestRowLimit, highestRowLimit);
        m_rowLimit->setMaximumWidth(m_rowLimit->fontMetrics().averageCharWidth() * 14);
        auto *label = new QLabel(QStringLiteral("تعداد نمايش :"), m_filterBox);
        label->setBuddy(m_rowLimit);
        m_rowLimit->setAccessibleName(label->text());
        last->addWidget(label);
        last->addWidget(m_rowLimit);
    }
    last->addStretch(1);
    if (m_traits.hasSearchButton) {
        auto *button = new QPushButton(QIcon(QStringLiteral(":/icons/search.svg")), QStringLiteral("جستجو"), m_filterBox);
        button->setAccessibleName(button->text());
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, &KListPage::search);
        last->addWidget(button);
        // Enter in a filter searches.
        for (QLineEdit *edit : m_filterBox->findChildren<QLineEdit *>())
            connect(edit, &QLineEdit::returnPressed, button, &QPushButton::click);
    }
    const bool ownLine = m_traits.searchColumn == 0;
    grid->addLayout(last, grid->rowCount() - (ownLine ? 0 : 1), m_traits.searchColumn, 1, -1);
}

void KListPage::search()
{
    if (checkFilter())
        guarded([this] { refill(); });
}

void KListPage::buildCommands()
{
    m_commandRow = new QWidget(this);
    auto *row = new QHBoxLayout(m_commandRow);
    row->setContentsMargins(0, 0, 0, 0);
    for (KListCommand &command : commands()) {
        const bool besideSearch = m_searchRow && (command.options & KListCommand::BesideSearch);
        QHBoxLayout *place = besideSearch ? m_searchRow : row;
        auto *button = new QPushButton(QIcon(command.icon), command.caption, besideSearch ? m_filterBox : m_commandRow);
        button->setAccessibleName(command.caption);
        // Enter presses the button that has the focus.
        button->setAutoDefault(true);
        if (command.options & KListCommand::NotDisplayed)
            button->hide();
        QSpacerItem *gap = nullptr;
        if (command.options & KListCommand::StartsGroup)
            place->addSpacerItem(gap = new QSpacerItem(groupGap, 0));
        place->addWidget(button);
        QWidget *menu = command.options & KListCommand::PrintsList ? buildPrintMenu() : nullptr;
        if (menu)
            row->addWidget(menu);
        connect(button, &QPushButton::clicked, this, [this, run = command.run] { guarded(run); });
        if (!command.shortcut.isEmpty())
            addShortcut(command, button);
        m_commands.push_back({std::move(command), button, menu, gap});
    }
    row->addStretch(1);
    m_count = new QLabel(QStringLiteral("تعداد : -"), m_commandRow);
    row->addWidget(m_count);
}

QWidget *KListPage::buildPrintMenu()
{
    auto *arrow = new QToolButton(m_commandRow);
    arrow->setArrowType(Qt::DownArrow);
    arrow->setFocusPolicy(Qt::TabFocus);
    arrow->setToolTip(QStringLiteral("خروجی های دیگر"));
    arrow->setAccessibleName(arrow->toolTip());
    auto *menu = new QMenu(arrow);
    auto add = [&](const QString &caption, const QString &icon, const std::function<void(ListReport &)> &work) {
        return menu->addAction(QIcon(icon), caption, this, [this, work] { withReport(work); });
    };
    menu->addAction(QIcon(QStringLiteral(":/icons/print.svg")), QStringLiteral("پیش نمایش چاپ"), this,
                    [this] { guarded([this] { printList(); }); });
    add(QStringLiteral("ذخیره PDF"), QStringLiteral(":/icons/save.svg"),
        [this](ListReport &report) { CDlgReportGenerator::askAndSavePdf(report, this); });
    add(QStringLiteral("صفحه گسترده"), QStringLiteral(":/icons/document.svg"),
        [this](ListReport &report) { CDlgReportGenerator::askAndSaveSpreadsheet(report, this); });
    QAction *arrange = add(QStringLiteral("چیدمان گزارش"), QStringLiteral(":/icons/settings.svg"),
                           [this](ListReport &report) { CDlgReportGenerator::arrange(report, this); });
    // A layout is data of the office.
    connect(menu, &QMenu::aboutToShow, arrange, [this, arrange] { arrange->setVisible(!m_closed); });
    // Not set as the button's menu: the style would draw a second arrow.
    connect(arrow, &QToolButton::clicked, menu,
            [arrow, menu] { menu->popup(arrow->mapToGlobal(QPoint(0, -menu->sizeHint().height()))); });
    return arrow;
}

KListCommand KListPage::printCommand(int options)
{
    return {QStringLiteral("چاپ"), options | KListCommand::PrintsList, [this] { printList(); }, QKeySequence(QKeySequence::Print),
            QStringLiteral(":/icons/print.svg")};
}

ListReport KListPage::listReport() const
{
    const KListReport spec = reportSpec();
    ListReport report(spec.group, spec.report);
    report.setText(QStringLiteral("LeftBottom"), QStringLiteral("تاریخ چاپ : ") + shamsiText(QDate::currentDate()));
    report.setText(QStringLiteral("Count"), countText());
    report.setText(QStringLiteral("Title"), spec.title);
    for (const auto &[element, text] : spec.texts)
        report.setText(element, text);
    report.setTable(QStringLiteral("List"), m_list);
    if (!report.loadLayout())
        report.buildStandard(spec.title);
    return report;
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

void KListPage::printList()
{
    withReport([this](ListReport &report) {
        CDlgReportGenerator generator(report, this);
        generator.ShowReport();
    });
}

void KListPage::addShortcut(const KListCommand &command, QPushButton *button)
{
    // Delete belongs to the entry line while one has the focus, so it acts on the list alone.
    QWidget *owner = command.shortcut == QKeySequence(QKeySequence::Delete) ? static_cast<QWidget *>(m_list) : this;
    auto *shortcut = new QShortcut(command.shortcut, owner, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, button, [button] {
        if (!button->isHidden())
            button->click();
    });
    button->setToolTip(command.shortcut.toString(QKeySequence::NativeText));
}

void KListPage::addFilter(QGridLayout *grid, int row, int column, const QString &label, QWidget *control, int span)
{
    auto *text = new QLabel(label, grid->parentWidget());
    text->setBuddy(control);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(label);
    grid->addWidget(text, row, column);
    grid->addWidget(control, row, column + 1, 1, span);
}

void KListPage::open()
{
    if (m_opened)
        return;
    m_opened = true;
    readSettings();
    m_closed = GetDBSetting()->IsClosedDB();
    applyMode();
    updateCommands();
    opening();
    firstFill();
    if (m_selectMode)
        selectListed(m_chosenKey);
    setFocus(Qt::OtherFocusReason);
}

// An order that an earlier program stored may be one that the table no longer knows. That is said once; the list opens
// all the same.
void KListPage::firstFill()
{
    try {
        refill();
    } catch (const CMySQLException &error) {
        if (error.category() != CMySQLException::Category::BadStatement || m_sort == defaultSort())
            throw;
        m_sort = defaultSort();
        refill();
        KErrorBoundary::report(std::current_exception(), this);
    }
}

void KListPage::showEvent(QShowEvent *event)
{
    KDialogTabPage::showEvent(event);
    guarded([this] { open(); });
}

// Who goes to the page means its rows. (A focus proxy would do that too, but Tab would then meet it on its way round and
// never come to the filter again.)
void KListPage::focusInEvent(QFocusEvent *event)
{
    m_list->setFocus(event->reason());
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

// An entry that is no date or no row limit would be left out, and the list would show what nobody asked for.
bool KListPage::checkFilter()
{
    for (QLineEdit *line : m_filterBox->findChildren<QLineEdit *>()) {
        QString error;
        if (const auto *edit = qobject_cast<KEdit *>(line))
            error = edit->entryError();
        else if (const auto *date = qobject_cast<KDateEdit *>(line))
            error = date->entryError();
        if (error.isEmpty())
            continue;
        g_pDlgWarning->Show(line->accessibleName() + u' ' + error, this);
        line->setFocus(Qt::TabFocusReason);
        return false;
    }
    return true;
}

void KListPage::readSettings()
{
    if (m_rowLimit)
        m_rowLimit->setNumber(
            qBound(m_traits.lowestRowLimit, ReadSetting(m_section, QStringLiteral("iMaxRows"), defaultRowLimit), highestRowLimit));
    if (isSortable())
        readOrder();
    else
        m_sort = defaultSort();
}

void KListPage::readOrder()
{
    m_lastColumn = ReadSetting(m_section, QStringLiteral("iLastCol"), defaultLastColumn());
    if (m_lastColumn < 0 || m_lastColumn >= m_columns.size())
        m_lastColumn = defaultLastColumn();
    m_sort = ReadSetting(m_section, QStringLiteral("Sort"), defaultSort());
    if (m_sort.isEmpty())
        m_sort = m_traits.emptySort;
    // The expression goes into the statement, so one that no column of this list gives is not taken from a file.
    if (!isKnownSort(m_sort))
        m_sort = defaultSort();
    m_descending = m_sort.endsWith(descendingSuffix);
    markColumn(m_lastColumn, true);
}

bool KListPage::isSortable() const
{
    return std::any_of(m_columns.cbegin(), m_columns.cend(), [](const auto &column) { return !column.sortKey.isEmpty(); });
}

bool KListPage::isKnownSort(const QString &sort) const
{
    QStringList known = {defaultSort(), m_traits.emptySort};
    for (const KListModel::Column &column : m_columns)
        known << column.sortKey;
    known.removeAll(QString());
    return known.contains(sort)
        || (sort.endsWith(descendingSuffix) && known.contains(sort.chopped(descendingSuffix.size())));
}

void KListPage::applyMode()
{
    const bool blocked = isReadOnly();
    bool isFirst = true;
    for (const Command &entry : m_commands) {
        const int options = entry.command.options;
        const bool hidden = (options & KListCommand::NotDisplayed) || (blocked && (options & KListCommand::HiddenInReadOnly))
            || (m_selectMode && (options & KListCommand::HiddenInSelect));
        entry.button->setVisible(!hidden);
        if (entry.menu)
            entry.menu->setVisible(!hidden);
        // A gap parts two groups: there is none before the first that is shown.
        if (entry.gap)
            entry.gap->changeSize(hidden || isFirst ? 0 : groupGap, 0);
        isFirst = isFirst && hidden;
    }
    m_commandRow->layout()->invalidate();
    modeApplied();
}

bool KListPage::isChangeBlocked() const
{
    return m_readOnlyMode || GetDBSetting()->IsClosedDB();
}

void KListPage::updateCommands()
{
    // While the rows are exchanged none is selected, and a button disabled for that moment would lose the focus.
    if (m_exchangingRows)
        return;
    const bool rowSelected = m_list->currentRow() >= 0;
    for (const Command &entry : m_commands) {
        const int options = entry.command.options;
        const bool enabled = rowSelected || !(options & KListCommand::NeedsRow);
        if (!enabled && focusWidget() == entry.button)
            m_list->setFocus(Qt::OtherFocusReason);
        entry.button->setEnabled(enabled);
    }
}

void KListPage::refill()
{
    const KWaitCursor wait;
    const int remembered = m_list->currentRow();
    // The rows are complete before the list gives up those it shows, so an error leaves the list as it was.
    QVector<KListModel::Row> rows = readRows(m_sort);
    m_list->setUpdatesEnabled(false);
    m_exchangingRows = true;
    m_list->setRows(std::move(rows));
    restoreSelection(remembered);
    m_exchangingRows = false;
    m_list->setUpdatesEnabled(true);
    updateCommands();
    updateCount();
}

QVector<KListModel::Row> KListPage::readRows(const QString &sort)
{
    QString filter = filterClauses();
    if (filter.startsWith(clauseStart))
        filter.remove(0, clauseStart.size());
    if (!m_records) {
        m_records = makeRecords();
        m_records->SetColumns(fetchedColumns());
    }
    m_records->m_filter = filter;
    m_records->m_sort = sort;
    m_records->SetLimit(rowLimit());
    m_records->Open(true, true, true);

    QVector<KListModel::Row> rows;
    rows.reserve(m_records->GetRecordsCount());
    beginRows();
    for (int number = 1; !m_records->IsEOF(); ++number) {
        rows.append(makeRow(*m_records, number));
        m_records->MoveNext();
    }
    completeRows(rows);
    // The rows hold all that the list shows; the record set need not keep a second copy of them.
    m_records->Close();
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
    if (m_list->listModel()->rowOfKey(key) >= 0)
        m_list->selectKey(key);
}

void KListPage::emptyList()
{
    m_list->setRows({});
    updateCommands();
    updateCount();
}

void KListPage::updateCount()
{
    m_count->setText(SuiteMessages::count(m_list->count()));
}

void KListPage::markColumn(int column, bool marked)
{
    m_list->setColumnTitle(column, marked ? m_columns.at(column).title + sortMark : m_columns.at(column).title);
}

void KListPage::sortBy(int column)
{
    const QString key = m_columns.value(column).sortKey;
    if (key.isEmpty())
        return;
    const bool descend = column == m_lastColumn && !m_descending;
    const QString sort = descend ? key + descendingSuffix : key;
    const QString sortBefore = m_sort;
    guarded([&] {
        m_sort = sort;
        try {
            if (m_list->count() > 0 || m_traits.sortsWithoutRows)
                refill();
        } catch (...) {
            // A refused order is not kept: the list shows what it showed, in the order it had.
            m_sort = sortBefore;
            throw;
        }
        markColumn(m_lastColumn, false);
        m_lastColumn = column;
        m_descending = descend;
        markColumn(column, true);
    });
}

bool KListPage::loadSelected(KMySQL &record) const
{
    const int key = m_list->currentKey();
    return key > 0 && record.IsRecordExist(QStringLiteral("iID"), key, 0, QString());
}

void KListPage::deleteSelected()
{
    if ((m_selectMode && !m_traits.deletesInSelectMode) || isChangeBlocked() || !CheckDeletionSecurity())
        return;
    const std::unique_ptr<KMySQL> record = makeRecord();
    const int key = m_list->currentKey();
    if (!loadSelected(*record) || g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    record->Delete();
    recordDeleted(key);
}

std::unique_ptr<KMySQL> KListPage::makeRecord() const
{
    return makeRecords();
}

void KListPage::recordDeleted(int key)
{
    const int row = m_list->currentRow();
    m_list->removeKey(key);
    restoreSelection(row);
    updateCommands();
    updateCount();
}

void KListPage::archiveSelected(const KArchiveTexts &texts, const std::function<void(KMySQL &)> &archive)
{
    if (isChangeBlocked())
        return;
    if (!IsGranted(texts.rightForm, KSecurity::Access)) {
        g_pDlgWarning->Show(texts.refused, this);
        return;
    }
    const std::unique_ptr<KMySQL> record = makeRecord();
    if (!loadSelected(*record))
        return;
    if (record->value(u"iArchiveUserID").toInt() != 0) {
        g_pDlgWarning->Show(texts.alreadyArchived, this);
        return;
    }
    archive(*record);
    g_pDlgMessage->Show(texts.done, this);
    refill();
}

void KListPage::guarded(const std::function<void()> &work)
{
    try {
        work();
    } catch (...) {
        KErrorBoundary::report(std::current_exception(), this);
    }
}

bool KListPage::runCommand(const QString &caption)
{
    QPushButton *found = button(caption);
    if (!found || found->isHidden() || !found->isEnabled())
        return false;
    found->click();
    return true;
}

QPushButton *KListPage::button(const QString &caption) const
{
    for (const Command &entry : m_commands) {
        if (entry.command.caption == caption)
            return entry.button;
    }
    return nullptr;
}

QString KListPage::countText() const
{
    return m_count->text();
}

int KListPage::rowLimit() const
{
    return m_rowLimit ? m_rowLimit->integer() : 0;
}

void KListPage::setRowLimit(int rows)
{
    Q_ASSERT(m_rowLimit);
    m_rowLimit->setNumber(rows);
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
    if (isSortable()) {
        WriteSetting(m_section, QStringLiteral("iLastCol"), m_lastColumn);
        WriteSetting(m_section, QStringLiteral("Sort"), m_sort);
    }
    if (m_rowLimit && m_rowLimit->isEntryValid())
        WriteSetting(m_section, QStringLiteral("iMaxRows"), rowLimit());
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/history/CDlgHistory.h"

#include "suite/accounting/changes/RecordHistory.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/history/CTblChanges.h"
#include "suite/accounting/history/HistoryFilter.h"
#include "suite/accounting/history/HistoryMerge.h"
#include "suite/accounting/history/HistoryRows.h"
#include "suite/accounting/history/HistoryWords.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QSet>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Of the room that both have.
constexpr int listShare = 65;
constexpr int detailsShare = 35;
constexpr int leastDetails = 3; // rows

// Texts that completeRows sets, because they come for all rows at once.
KListColumn::Cell filledLater(KMySQL &, int)
{
    return {};
}

KListColumn::Cell momentCell(const QVariant &value)
{
    const QDateTime when = value.toDateTime();
    return {shamsiText(when.date()) + when.time().toString(u" HH:mm:ss"_s), when};
}

KListColumn textColumn(const QString &key, const QString &title, int width)
{
    return {.key = key, .title = title, .width = width, .alignment = Qt::AlignRight, .cell = &filledLater};
}

QVector<KListModel::Column> detailColumns()
{
    return {{u"مشخصه"_s, Qt::AlignRight, 110}, {u"پیش از تغییر"_s, Qt::AlignRight, 200}, {u"پس از تغییر"_s, Qt::AlignRight, 200}};
}

}

CDlgHistory::CDlgHistory(QWidget *parent)
    : CDlgHistory({}, 0, parent)
{
}

CDlgHistory::CDlgHistory(const QString &table, qint32 key, QWidget *parent)
    : KListPage(RecordHistory::caption(), {}, u"History"_s, parent)
    , m_table(table)
    , m_key(key)
{
    if (!m_table.isEmpty())
        setTitle(u"%1: %2"_s.arg(RecordHistory::caption(), RecordSubjects::nameOf(m_table, m_key)));
    build();
    buildDetails();
}

CDlgHistory::~CDlgHistory() = default;

void CDlgHistory::Show(const QString &table, qint32 key, QWidget *parent)
{
    KDialogHolder window(new CDlgHistory(table, key), parent, QString(), u"بازگشت"_s);
    window.resize(LookSizes::scaled(1180), LookSizes::scaled(640));
    window.SetSettingName(u"History\\Window"_s);
    window.exec();
}

// Everything is for administrators; the history of one record for those who may read the record.
bool CDlgHistory::OnAccess()
{
    const bool granted = m_table.isEmpty() ? GetDBSetting()->IsAdmin() : RecordHistory::isOffered(m_table);
    if (!granted)
        g_pDlgWarning->Show(m_table.isEmpty() ? u"تاریخچه همه رکوردها را تنها مدیر می‌بیند."_s : u"شما اجازه دیدن تاریخچه این رکورد را ندارید."_s, this);
    return granted;
}

void CDlgHistory::buildDetails()
{
    m_details = new KExtListCtrl(this);
    m_details->setAccessibleName(u"جزئیات تغییر"_s);
    m_details->setColumns(detailColumns());
    m_details->SetSettingName(u"History\\Details"_s);
    auto *card = new KListCard(m_details, this);
    m_details->setMinimumHeight(LookSizes::scaled(LookSizes::titleRow + leastDetails * LookSizes::row));
    auto *column = static_cast<QVBoxLayout *>(layout());
    const int place = column->indexOf(commandLine());
    column->setStretch(place - 1, listShare);
    column->insertWidget(place, card, detailsShare);
    setTabOrder(list(), m_details);
    connect(list(), &KExtListCtrl::currentKeyChanged, this, &CDlgHistory::showDetails);
    connect(m_details, &KExtListCtrl::rowActivated, this, &CDlgHistory::showWhole);
}

QList<KListColumn> CDlgHistory::columnTable() const
{
    QList<KListColumn> columns{
        KListColumn::rowNumber(),
        {.key = u"when"_s, .title = u"تاریخ و ساعت"_s, .width = 85, .sortKey = u"iID"_s, .column = u"date"_s, .show = &momentCell, .reads = {u"sTable"_s, u"iRecordID"_s, u"iKind"_s, u"iUserID"_s, u"sComputer"_s, u"sValues"_s}},
        textColumn(u"user"_s, u"کاربر"_s, 60),
    };
    if (GetDBSetting()->IsAdmin())
        columns.append(textColumn(u"computer"_s, u"رایانه"_s, 60));
    columns.append({textColumn(u"kind"_s, u"نوع رکورد"_s, 70), textColumn(u"title"_s, u"رکورد"_s, 110), textColumn(u"action"_s, u"تغییر"_s, 60), textColumn(u"changes"_s, u"شرح تغییر"_s, 320)});
    return columns;
}

QList<KListFilter> CDlgHistory::filterTable() const
{
    return HistoryFilter::table(m_table.isEmpty() ? KSql() : HistoryRows::ofRecord(m_table, m_key));
}

std::vector<KListCommand> CDlgHistory::commands()
{
    return {printCommand()};
}

KListTraits CDlgHistory::traits() const
{
    // The filter of everything has a line that is not full.
    return {.searchColumn = m_table.isEmpty() ? 2 : 0, .readsWholeRecords = true, .emptyIcon = u":/icons/history.svg"_s, .emptyText = u"هنوز تغییری ثبت نشده است."_s};
}

std::unique_ptr<KMySQL> CDlgHistory::makeRecords() const
{
    return std::make_unique<CTblChanges>();
}

KListReport CDlgHistory::reportSpec() const
{
    return {.title = title(), .group = u"History"_s, .report = u"List"_s};
}

// The newest first; keys grow with time.
QString CDlgHistory::defaultSort() const
{
    return u"iID DESC"_s;
}

bool CDlgHistory::isWarning(KMySQL &record) const
{
    m_read.append(HistoryRows::entryOf(static_cast<const CTblChanges &>(record)));
    return false;
}

void CDlgHistory::beginRows(KMySQL &)
{
    m_read.clear();
}

// The cells of one save's notes become one row.
void CDlgHistory::completeRows(QVector<KListModel::Row> &rows)
{
    QSet<qint32> listed;
    for (const HistoryEntry &entry : std::as_const(m_read))
        listed.insert(entry.id);
    if (rowLimit() > 0 && m_read.size() >= rowLimit())
        HistoryRows::addBefore(m_read);
    // What the last row in the list belongs to is not listed once more.
    if (isReadingOn())
        HistoryRows::addBehind(m_read);
    else
        m_entries.clear();
    QList<HistoryEntry> entries = HistoryMerge::of(m_read);
    entries.removeIf([&listed](const HistoryEntry &entry) { return !listed.contains(entry.id); });
    HistoryRows::complete(entries);
    m_read.clear();
    for (const HistoryEntry &entry : std::as_const(entries))
        m_entries.insert(entry.id, entry);
    rows.removeIf([this](const KListModel::Row &row) { return !m_entries.contains(row.key); });
    int number = isReadingOn() ? list()->listModel()->allRows() : 0;
    for (KListModel::Row &row : rows) {
        const HistoryEntry &entry = m_entries[row.key];
        const std::pair<QStringView, QString> texts[] = {{u"user", entry.user}, {u"computer", entry.change.computer}, {u"kind", entry.kind}, {u"title", entry.title}, {u"action", entry.action}, {u"changes", HistoryWords::sentence(entry)}};
        for (const auto &[key, text] : texts) {
            if (const int column = list()->columnOf(key); column >= 0)
                row.cells[column] = {text};
        }
        row.cells[0] = {QString::number(++number), number};
        row.warning = entry.change.kind == KChange::Kind::SignInFailed;
    }
}

void CDlgHistory::showDetails(int key)
{
    QVector<KListModel::Row> rows;
    for (const HistoryEntry::Line &line : m_entries.value(key).lines)
        rows.append({static_cast<int>(rows.size()) + 1, {{line.caption}, {line.before.simplified()}, {line.after.simplified()}}});
    m_details->setRows(std::move(rows));
}

void CDlgHistory::activated(int)
{
    m_details->setFocus(Qt::OtherFocusReason);
    m_details->selectRow(0);
}

// A text that is longer than its cell.
void CDlgHistory::showWhole()
{
    const int position = m_details->currentKey() - 1;
    const QList<HistoryEntry::Line> lines = m_entries.value(list()->currentKey()).lines;
    if (position < 0 || position >= lines.size())
        return;
    const HistoryEntry::Line &line = lines.at(position);
    g_pDlgMessage->Show(u"%1\n\nپیش از تغییر:\n%2\n\nپس از تغییر:\n%3"_s.arg(line.caption, line.before.isEmpty() ? HistoryWords::nothing() : line.before, line.after.isEmpty() ? HistoryWords::nothing() : line.after), this);
}

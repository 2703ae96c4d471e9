// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/recovery/CDlgBin.h"

#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/bin/CTblBin.h"
#include "suite/accounting/bin/RecordPackage.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/recovery/BinFilter.h"
#include "suite/accounting/recovery/CDlgBinEntry.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/lists/KExtListCtrl.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A record that has so few days left is about to be lost.
constexpr int fewDays = 7;

KListColumn::Cell kindCell(const QVariant &table)
{
    const RecordSubject *subject = RecordSubjects::of(table.toString());
    return {subject ? subject->kind : table.toString()};
}

KListColumn::Cell clockCell(const QVariant &date)
{
    return {date.toDateTime().time().toString(u"HH:mm"_s)};
}

}

CDlgBin::CDlgBin(QWidget *parent)
    : KListPage(u"سطل بازیافت"_s, {}, u"Bin"_s, parent)
{
    build();
}

CDlgBin::~CDlgBin() = default;

bool CDlgBin::mayOpen()
{
    const QList<const RecordParts *> all = BinnedRecords::all();
    return GetDBSetting()->IsAdmin() || std::ranges::any_of(all, [](const RecordParts *parts) { return KSecurity::IsGranted(parts->form, Delete); });
}

bool CDlgBin::OnAccess()
{
    KSecurity::forgetRights();
    if (mayOpen())
        return true;
    g_pDlgWarning->Show(u"سطل بازیافت را کسی می‌بیند که اجازه حذف دارد."_s);
    return false;
}

QList<KListColumn> CDlgBin::columnTable() const
{
    constexpr auto right = Qt::AlignRight;
    const auto left = [this](const QVariant &date) {
        const int days = daysLeft(date.toDateTime());
        return KListColumn::Cell{QString::number(days), days};
    };
    const auto isShort = [this](KMySQL &record) { return daysLeft(static_cast<const CTblBin &>(record).m_date) <= fewDays; };
    return {
        KListColumn::rowNumber(),
        {.key = u"date"_s, .title = u"تاریخ حذف"_s, .width = 50, .sortKey = u"date"_s, .column = u"date"_s},
        {.key = u"time"_s, .title = u"ساعت"_s, .width = 35, .column = u"date"_s, .show = clockCell},
        {.key = u"user"_s, .title = u"کاربر"_s, .width = 60, .alignment = right, .sortKey = u"iUserID"_s, .lookup = u"iUserID"_s, .emptyText = u"-"_s},
        {.key = u"kind"_s, .title = u"نوع"_s, .width = 60, .alignment = right, .sortKey = u"sTable"_s, .column = u"sTable"_s, .show = kindCell},
        {.key = u"title"_s, .title = u"عنوان"_s, .width = 150, .alignment = right, .sortKey = u"sTitle"_s, .column = u"sTitle"_s, .emptyText = u"-"_s},
        {.key = u"contents"_s, .title = u"به همراه"_s, .width = 150, .alignment = right},
        {.key = u"left"_s, .title = u"روز مانده"_s, .width = 40, .sortKey = u"date"_s, .column = u"date"_s, .show = left, .warns = isShort},
    };
}

QList<KListFilter> CDlgBin::filterTable() const
{
    return BinFilter::filters([] { return BinFilter::users(); });
}

KListTraits CDlgBin::traits() const
{
    return {.searchColumn = 2, .emptyIcon = u":/icons/delete.svg"_s, .emptyText = u"سطل بازیافت خالی است."_s};
}

std::vector<KListCommand> CDlgBin::commands()
{
    using C = KListCommand;
    constexpr int change = C::NeedsRow | C::HiddenInReadOnly;
    std::vector<KListCommand> all{
        {.id = u"restore"_s, .caption = u"بازگردانی"_s, .options = change, .run = [this] { restoreSelected(); }, .shortcut = QKeySequence(Qt::CTRL | Qt::Key_U), .icon = u":/icons/refresh.svg"_s},
        {.id = u"show"_s, .caption = u"جزئیات"_s, .options = C::NeedsRow, .run = [this] { showSelected(); }, .shortcut = QKeySequence(Qt::Key_F3), .icon = u":/icons/show.svg"_s},
    };
    if (GetDBSetting()->IsAdmin()) {
        all.push_back({.id = u"delete"_s, .caption = u"حذف همیشگی"_s, .options = change | C::StartsGroup, .run = [this] { removeSelected(); }, .shortcut = QKeySequence(QKeySequence::Delete), .icon = u":/icons/delete.svg"_s});
        all.push_back({.id = u"empty"_s, .caption = u"خالی کردن سطل"_s, .options = C::HiddenInReadOnly, .run = [this] { removeAll(); }, .icon = u":/icons/delete.svg"_s});
        all.push_back(printCommand(C::StartsGroup));
    }
    return all;
}

KListReport CDlgBin::reportSpec() const
{
    return {u"سطل بازیافت"_s, u"مدیریت"_s, u"سطل بازیافت"_s};
}

std::unique_ptr<KMySQL> CDlgBin::makeRecords() const
{
    return std::make_unique<CTblBin>();
}

// As the user's rights stand now.
KSql CDlgBin::filterClauses() const
{
    const KSql asked = KListPage::filterClauses();
    const KSql own = BinFilter::own();
    return asked.isEmpty() ? own.withoutStart(" AND ") : asked + own;
}

QString CDlgBin::defaultSort() const
{
    return u"date DESC"_s;
}

void CDlgBin::beginRows(KMySQL &)
{
    m_now = GetDBSetting()->GetDBServerDate();
    m_days = Bin::days();
}

int CDlgBin::daysLeft(const QDateTime &deleted) const
{
    return std::max(0, static_cast<int>(m_now.date().daysTo(deleted.date().addDays(m_days))));
}

// One statement for all rows.
void CDlgBin::completeRows(QVector<KListModel::Row> &rows)
{
    if (rows.isEmpty())
        return;
    QList<int> keys;
    for (const KListModel::Row &row : std::as_const(rows))
        keys.append(row.key);
    QHash<int, QString> tables;
    QHash<int, QList<std::pair<QString, int>>> counts;
    CTblTemp query;
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT b.iID,b.sTable,r.sTable,COUNT(DISTINCT r.iRecordID) FROM Bin b JOIN BinRows r ON r.iBinID=b.iID"
                                       " WHERE b.iID IN (%1) GROUP BY b.iID,r.sTable",
                                       KSql::list(keys)));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        tables.insert(query.GetLongFieldValue(0), query.GetTextFieldValue(1));
        counts[query.GetLongFieldValue(0)].append({query.GetTextFieldValue(2), query.GetLongFieldValue(3)});
    }
    const int column = list()->columnOf(u"contents");
    for (KListModel::Row &row : rows) {
        const QString words = RecordPackage::contentsOf(tables.value(row.key), counts.value(row.key));
        row.cells[column] = {words.isEmpty() ? u"-"_s : words};
    }
}

void CDlgBin::activated(int)
{
    showSelected();
}

std::optional<Bin::Entry> CDlgBin::selectedEntry() const
{
    const int key = list()->currentKey();
    return key > 0 ? Bin::entry(key) : std::nullopt;
}

void CDlgBin::restoreSelected()
{
    if (isChangeBlocked())
        return;
    const std::optional<Bin::Entry> entry = selectedEntry();
    if (!entry) {
        g_pDlgWarning->Show(u"این ردیف دیگر در سطل بازیافت نیست؛ کاربر دیگری آن را بازگردانده یا حذف کرده است."_s, this);
        return refill();
    }
    g_pDlgMessage->Show(BinRestoring::run(*entry).message, this);
    refill();
}

void CDlgBin::showSelected()
{
    if (const std::optional<Bin::Entry> entry = selectedEntry())
        CDlgBinEntry(*entry, this).exec();
    else
        refill();
}

void CDlgBin::removeSelected()
{
    const std::optional<Bin::Entry> entry = selectedEntry();
    if (isChangeBlocked() || !entry)
        return;
    if (g_pDlgYesNo->Ask(u"%1 برای همیشه حذف می‌شود و دیگر بازنمی‌گردد. حذف شود؟"_s.arg(entry->name()), this) != KMessageDialog::Yes)
        return;
    static_cast<void>(Bin::remove(entry->id));
    recordDeleted(entry->id);
}

void CDlgBin::removeAll()
{
    if (isChangeBlocked())
        return;
    if (g_pDlgYesNo->Ask(u"همه ردیف‌های سطل بازیافت برای همیشه حذف می‌شوند و دیگر بازنمی‌گردند. سطل خالی شود؟"_s, this) != KMessageDialog::Yes)
        return;
    const int removed = Bin::removeAll();
    refill();
    g_pDlgMessage->Show(u"%1 ردیف برای همیشه حذف شد."_s.arg(removed), this);
}

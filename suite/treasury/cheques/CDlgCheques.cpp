// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgCheques.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/PersonFilter.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/treasury/cheques/CDlgChequeChange.h"
#include "suite/treasury/cheques/CDlgChequeHistory.h"
#include "suite/treasury/cheques/CDlgShowCheque.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/cheques/ChequeFilter.h"
#include "suite/treasury/cheques/ChequeVoiding.h"
#include "suite/utility/lists/KExtListCtrl.h"

using namespace Qt::StringLiterals;

namespace {

KListColumn::Cell chequeKindCell(const QVariant &kind)
{
    return {kind.toInt() == CTblReceipts::paid ? u"پرداختی"_s : u"دریافتی"_s, kind};
}

KListColumn::Cell chequeStateCell(const CTblCheques &cheque)
{
    return {ChequeStates::name(static_cast<ChequeState>(cheque.m_iState), cheque.m_iKind == CTblReceipts::paid), cheque.m_iState};
}

}

CDlgCheques::CDlgCheques(QWidget *parent)
    : KListPage(u"چک‌ها"_s, ChequeChanging::rightsForm(), u"Cheques"_s, parent)
{
    build();
}

void CDlgCheques::showCheque(int chequeID)
{
    auto *page = new CDlgCheques;
    page->m_wanted = chequeID;
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

QList<KListColumn> CDlgCheques::columnTable() const
{
    constexpr auto right = Qt::AlignRight;
    const auto counts = [](KMySQL &record) { return ChequeStates::counts(static_cast<ChequeState>(static_cast<const CTblCheques &>(record).m_iState)); };
    return {
        KListColumn::rowNumber(30),
        {.key = u"kind"_s, .title = u"نوع"_s, .width = 45, .sortKey = u"iKind"_s, .column = u"iKind"_s, .show = chequeKindCell},
        {.key = u"sayad"_s, .title = u"شناسه صیادی"_s, .width = 85, .sortKey = u"sSayad"_s, .column = u"sSayad"_s, .isCode = true},
        {.key = u"number"_s, .title = u"شماره چک"_s, .width = 60, .sortKey = u"sNumber"_s, .column = u"sNumber"_s, .isCode = true},
        {.key = u"bank"_s, .title = u"بانک"_s, .width = 60, .alignment = right, .sortKey = u"sBank"_s, .column = u"sBank"_s},
        {.key = u"branch"_s, .title = u"شعبه"_s, .width = 60, .alignment = right, .sortKey = u"sBranch"_s, .column = u"sBranch"_s},
        {.key = u"amount"_s, .title = u"مبلغ"_s, .width = 75, .alignment = right, .sortKey = u"dAmount"_s, .column = u"dAmount"_s, .reads = {u"iState"_s}, .sums = true, .sumsBy = u"kind"_s, .counts = counts},
        {.key = u"due"_s, .title = u"سررسید"_s, .width = 55, .sortKey = u"dateDue"_s, .column = u"dateDue"_s},
        {.key = u"drawer"_s, .title = u"صادرکننده"_s, .width = 80, .alignment = right, .sortKey = u"sDrawer"_s, .column = u"sDrawer"_s},
        {.key = u"person"_s, .title = u"از / به"_s, .width = 90, .alignment = right, .lookup = u"iPersonID"_s},
        {.key = u"for"_s, .title = u"بابت"_s, .width = 130, .alignment = right, .sortKey = u"sFor"_s, .column = u"sFor"_s, .emptyText = u"علی‌الحساب"_s},
        {.key = u"state"_s, .title = u"وضعیت"_s, .width = 65, .sortKey = u"iState"_s, .cell = KListColumn::of<CTblCheques>(chequeStateCell), .reads = {u"iState"_s, u"iKind"_s}},
        {.key = u"endorsed"_s, .title = u"خرج شده به"_s, .width = 80, .alignment = right, .lookup = u"iEndorsedID"_s, .optional = true},
    };
}

QList<KListFilter> CDlgCheques::filterTable() const
{
    return chequeFilters();
}

KListTraits CDlgCheques::traits() const
{
    return {.makePerson = personFilter(), .emptyIcon = u":/icons/receipt.svg"_s, .emptyText = u"هنوز چکی ثبت نشده است."_s};
}

std::vector<KListCommand> CDlgCheques::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    const QString receipts = u"Receipts"_s;
    return {
        {u"newReceived"_s, u"چک دریافتی جدید"_s, C::HiddenInReadOnly, [this] { addCheque(CTblReceipts::received); },
         QKeySequence(Qt::Key_Insert), u":/icons/new.svg"_s, Write, receipts},
        {u"newGiven"_s, u"چک پرداختی جدید"_s, C::HiddenInReadOnly, [this] { addCheque(CTblReceipts::paid); },
         QKeySequence(Qt::SHIFT | Qt::Key_Insert), u":/icons/new.svg"_s, Write, receipts},
        {u"change"_s, u"تغییر وضعیت"_s, onRow, [this] { changeState(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"void"_s, u"ابطال"_s, onRow, [this] { voidCheque(); }, QKeySequence(Qt::Key_Delete), u":/icons/delete.svg"_s, Delete, receipts},
        {u"show"_s, u"نمایش"_s, C::NeedsRow, [this] { showSelected(); }, {}, u":/icons/show.svg"_s, Read},
        {u"history"_s, u"گردش چک"_s, C::NeedsRow, [this] { showHistory(); }, QKeySequence(Qt::CTRL | Qt::Key_H), u":/icons/document.svg"_s, Read},
        printCommand(C::StartsGroup),
    };
}

std::unique_ptr<KMySQL> CDlgCheques::makeRecords() const
{
    return std::make_unique<CTblCheques>();
}

void CDlgCheques::beginRows(KMySQL &)
{
    m_today = GetDBSetting()->GetDBServerDate().date();
}

// Void, or overdue and not collected.
bool CDlgCheques::isWarning(KMySQL &record) const
{
    const auto &cheque = static_cast<const CTblCheques &>(record);
    const auto state = static_cast<ChequeState>(cheque.m_iState);
    return state == ChequeState::Void || (ChequeStates::isOpen(state) && cheque.m_dateDue.isValid() && cheque.m_dateDue.date() < m_today);
}

QString CDlgCheques::defaultSort() const
{
    return u"dateDue DESC"_s;
}

int CDlgCheques::defaultLastColumn() const
{
    constexpr int due = 7;
    return due;
}

// One cheque of its own, whatever its state: the filter says so, and the user can widen it.
void CDlgCheques::opening()
{
    CTblCheques cheque;
    if (m_wanted == 0 || !cheque.IsRecordExist(u"iID"_s, m_wanted))
        return;
    filters().set(u"sayad", cheque.m_sSayad);
    filters().set(u"voided", true);
}

void CDlgCheques::activated(int)
{
    runCommand(u"show");
}

void CDlgCheques::emptyAreaActivated()
{
    runCommand(u"newReceived");
}

KListReport CDlgCheques::reportSpec() const
{
    return {u"چک‌ها"_s, u"Cheques"_s, u"List"_s};
}

void CDlgCheques::addCheque(CTblReceipts::Kind kind)
{
    if (isChangeBlocked())
        return;
    const auto posted = CDlgCashFromPerson::run({.kind = kind, .method = CTblReceipts::cheque}, this);
    if (posted.isEmpty())
        return;
    refill();
    selectListed(posted.constFirst().chequeID);
}

void CDlgCheques::changeState()
{
    if (isChangeBlocked() || !CheckModifySecurity())
        return;
    if (CDlgChequeChange::run(list()->currentKey(), this))
        refresh();
}

void CDlgCheques::showSelected()
{
    CDlgShowCheque::Show(list()->currentKey(), this);
}

void CDlgCheques::showHistory()
{
    if (CDlgChequeHistory::Show(list()->currentKey(), this))
        refresh();
}

void CDlgCheques::voidCheque()
{
    const int key = list()->currentKey();
    CTblCheques cheque;
    if (isChangeBlocked() || !loadSelected(cheque))
        return;
    const QString question = u"%1 با دریافت یا پرداخت آن باطل می‌شود و سند آن خالی می‌شود."_s.arg(ChequeChanging::nameOf(cheque));
    if (CDlgVoiding::run(
            u"ابطال چک"_s, question, [key](const QString &reason) { ChequeVoiding::makeVoid(key, reason); }, this))
        refresh();
}

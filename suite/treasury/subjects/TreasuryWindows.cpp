// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/subjects/TreasuryWindows.h"

#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/treasury/cheques/CDlgChequeChange.h"
#include "suite/treasury/cheques/CDlgChequeHistory.h"
#include "suite/treasury/cheques/CDlgCheques.h"
#include "suite/treasury/cheques/CDlgShowCheque.h"
#include "suite/treasury/followups/CDlgNote.h"
#include "suite/treasury/receipts/CDlgReceipts.h"
#include "suite/treasury/receipts/CDlgShowReceipt.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/treasury/receiving/ReceiptPaper.h"
#include "suite/treasury/records/CTblReceipts.h"

using namespace Qt::StringLiterals;

namespace {

const QString receipts = u"Receipts"_s;
const QString cheques = u"Cheques"_s;

template <class Page>
void showList(const KListRequest &request)
{
    auto *page = new Page;
    page->setRequest(request);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

// A receipt is never changed: it is taken back, from its own window.
void openReceipt(qint32 key, bool, QWidget *parent)
{
    CDlgShowReceipt::Show(key, parent);
}

void openCheque(qint32 key, bool edits, QWidget *parent)
{
    if (edits)
        CDlgChequeChange::run(key, parent);
    else
        CDlgShowCheque::Show(key, parent);
}

void showStatement(qint32 key, QWidget *parent)
{
    CTblReceipts receipt;
    if (receipt.IsRecordExist(u"iID"_s, key))
        CDlgAccountDocs::ShowPerson(receipt.m_iPersonID, parent);
}

void showDocument(qint32 key, QWidget *parent)
{
    CTblReceipts receipt;
    if (receipt.IsRecordExist(u"iID"_s, key))
        CDlgShowDocument::Show(receipt.m_iDocNum, receipt.m_iFiscalYear, parent);
}

RecordAction passing(const QString &id, const QString &text, CTblReceipts::Kind kind)
{
    return {.id = id,
            .text = text,
            .icon = u":/icons/money.svg"_s,
            .form = receipts,
            .right = KSecurity::Write,
            .run = [kind](qint32 person, QWidget *parent) { CDlgCashFromPerson::run({.kind = kind, .personID = person}, parent); }};
}

}

void TreasuryWindows::enter()
{
    RecordWindows::enter({.table = u"FollowUps"_s, .form = {}, .icon = u":/icons/edit.svg"_s, .open = [](qint32 key, bool, QWidget *parent) { CDlgNote::edit(key, parent); }});
    CDlgNote::offer(u"Persons"_s, RecordKind::Person, u"Persons"_s);
    RecordWindows::enter({.table = receipts,
                          .form = receipts,
                          .icon = u":/icons/receipt.svg"_s,
                          .open = &openReceipt,
                          .list = &showList<CDlgReceipts>,
                          .actions = {{.id = u"print"_s, .text = u"چاپ رسید"_s, .icon = u":/icons/print.svg"_s, .form = receipts, .run = [](qint32 key, QWidget *parent) { ReceiptPaper::show({key}, parent); }},
                                      {.id = u"document"_s, .text = u"نمایش سند"_s, .icon = u":/icons/document.svg"_s, .form = u"Documents"_s, .run = &showDocument},
                                      {.id = u"statement"_s, .text = u"صورتحساب"_s, .icon = u":/icons/table.svg"_s, .form = receipts, .run = &showStatement}}});
    RecordWindows::enter({.table = cheques,
                          .form = cheques,
                          .icon = u":/icons/money.svg"_s,
                          .open = &openCheque,
                          .list = &showList<CDlgCheques>,
                          .actions = {{.id = u"change"_s, .text = u"تغییر وضعیت"_s, .icon = u":/icons/edit.svg"_s, .form = cheques, .right = KSecurity::Modify, .run = [](qint32 key, QWidget *parent) { CDlgChequeChange::run(key, parent); }},
                                      {.id = u"history"_s, .text = u"گردش چک"_s, .icon = u":/icons/history.svg"_s, .form = cheques, .run = [](qint32 key, QWidget *parent) { CDlgChequeHistory::Show(key, parent); }}}});
    RecordWindows::addAction(u"Persons"_s, passing(u"receipt"_s, u"دریافت از این شخص"_s, CTblReceipts::received));
    RecordWindows::addAction(u"Persons"_s, passing(u"payment"_s, u"پرداخت به این شخص"_s, CTblReceipts::paid));
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgChequeHistory.h"

#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

KSecurity historySecurity()
{
    KSecurity security;
    security.SetFormName(ChequeChanging::rightsForm());
    return security;
}

QVector<KListModel::Column> historyColumns()
{
    return {{u"ردیف"_s, Qt::AlignCenter, 26},
            {u"تاریخ"_s, Qt::AlignCenter, 50, {}, true},
            {u"رویداد"_s, Qt::AlignRight, 80},
            {u"توضیح"_s, Qt::AlignRight, 170},
            {u"شماره سند"_s, Qt::AlignCenter, 45},
            {u"کاربر"_s, Qt::AlignRight, 50},
            {u"وضعیت"_s, Qt::AlignRight, 40},
            {u"برگرداندن"_s, Qt::AlignRight, 140}};
}

KListModel::Row historyRow(int number, const ChequeHistory::Entry &entry)
{
    KListModel::Row row{number,
                        {{QString::number(number), number},
                         {shamsiText(entry.date.date()), entry.date.date()},
                         {entry.what},
                         {entry.detail},
                         entry.docNum > 0 ? KListModel::Cell{QString::number(entry.docNum), entry.docNum} : KListModel::Cell{u"-"_s},
                         {entry.user},
                         {entry.isVoid ? u"باطل"_s : u"معتبر"_s},
                         {entry.voiding}}};
    row.warning = entry.isVoid;
    return row;
}

}

CDlgChequeHistory::CDlgChequeHistory(int chequeID, QWidget *parent)
    : KDialog(parent)
    , m_chequeID(chequeID)
    , m_closed(GetDBSetting()->IsClosedDB())
{
    CTblCheques cheque;
    if (cheque.IsRecordExist(u"iID"_s, chequeID))
        setWindowTitle(u"گردش %1"_s.arg(ChequeChanging::nameOf(cheque)));
    SetSettingName(u"ChequeHistory"_s);
    build();
    resize(LookSizes::scaled(980), LookSizes::scaled(420));
    refill();
    m_list->setFocus();
}

bool CDlgChequeHistory::Show(int chequeID, QWidget *parent)
{
    if (!historySecurity().CheckReadSecurity())
        return false;
    if (ChequeChanging::seen(chequeID).chequeID == 0) {
        g_pDlgWarning->Show(u"این چک دیگر وجود ندارد."_s, parent);
        return false;
    }
    CDlgChequeHistory window(chequeID, parent);
    window.exec();
    return window.isChanged();
}

void CDlgChequeHistory::build()
{
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(u"گردش چک"_s);
    m_list->setColumns(historyColumns());
    m_list->SetSettingName(u"ChequeHistory\\List"_s);
    connect(m_list, &KExtListCtrl::rowActivated, this, [this](int key) { KErrorBoundary::guarded(this, [&] { showDocument(key); }); });
    auto *page = new CardPage(980, this);
    page->addList(m_list);
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    QPushButton *document = addButton(footer(), u"نمایش سند"_s, u":/icons/document.svg"_s);
    connect(document, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { showDocument(m_list->currentKey()); }); });
    m_undo = addButton(footer(), u"برگرداندن آخرین تغییر"_s, u":/icons/delete.svg"_s);
    connect(m_undo, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { undoLast(); }); });
}

void CDlgChequeHistory::refill()
{
    const KWaitCursor wait;
    m_seen = ChequeChanging::seen(m_chequeID);
    m_entries = ChequeHistory::of(m_chequeID);
    QVector<KListModel::Row> rows;
    for (const ChequeHistory::Entry &entry : std::as_const(m_entries))
        rows.append(historyRow(static_cast<int>(rows.size()) + 1, entry));
    m_list->setRows(std::move(rows));
    m_list->selectRow(m_list->count() - 1);
    m_undo->setEnabled(m_seen.lastChange != 0 && !m_closed && historySecurity().CheckDeletionSecurity(0));
}

void CDlgChequeHistory::showDocument(int key)
{
    if (key < 1 || key > m_entries.size())
        return;
    const ChequeHistory::Entry entry = m_entries.at(key - 1);
    if (entry.docNum == 0)
        g_pDlgWarning->Show(u"این تغییر سندی ندارد."_s, this);
    else
        CDlgShowDocument::Show(entry.docNum, entry.fiscalYear, this);
}

void CDlgChequeHistory::undoLast()
{
    if (m_seen.lastChange == 0 || !historySecurity().CheckDeletionSecurity())
        return;
    const QString question = u"آخرین تغییر وضعیت این چک («%1») برمی‌گردد و سند آن خالی می‌شود."_s.arg(
        ChequeStates::name(m_seen.state));
    const bool done = CDlgVoiding::run(
        u"برگرداندن آخرین تغییر"_s, question, [this](const QString &reason) { ChequeChanging::undoLast(m_seen, reason); }, this);
    m_changed = m_changed || done;
    refill();
}

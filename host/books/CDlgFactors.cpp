// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgFactors.h"

#include "host/books/CDlgAddFactor.h"
#include "host/books/InvoiceFilter.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/InvoicePaper.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/PersonFilter.h"
#include "suite/utility/lists/KExtListCtrl.h"

using namespace Qt::StringLiterals;

namespace {

QString typeName(int type)
{
    return type == CTblFactors::purchase ? u"خرید"_s : u"فروش"_s;
}

KListColumn::Cell typeCell(const QVariant &type)
{
    return {typeName(type.toInt())};
}

KListColumn::Cell statusCell(const QVariant &status)
{
    return {status.toInt() == CTblFactors::voided ? u"باطل"_s : u"معتبر"_s, status};
}

QList<KListFilter::Choice> typeChoices()
{
    QList<KListFilter::Choice> choices = {{u"همه"_s, 0}};
    for (const int type : {CTblFactors::sale, CTblFactors::purchase})
        choices.append({typeName(type), type});
    return choices;
}

KListColumn::Cell owedCell(const CTblFactors &invoice)
{
    return KListColumn::money(invoice.m_dAmount - invoice.m_dDiscount + invoice.m_dTax + invoice.m_dImposition);
}

}

CDlgFactors::CDlgFactors(QWidget *parent)
    : KListPage(u"فاکتورها"_s, u"Factors"_s, u"Factors"_s, parent)
{
    build();
}

QList<KListColumn> CDlgFactors::columnTable() const
{
    const auto isValid = [](KMySQL &record) { return static_cast<const CTblFactors &>(record).m_iStatus != CTblFactors::voided; };
    return {
        KListColumn::rowNumber(30),
        {.key = u"number"_s, .title = u"شماره"_s, .width = 45, .sortKey = u"iID"_s, .column = u"iID"_s},
        {.key = u"type"_s, .title = u"نوع"_s, .width = 40, .sortKey = u"iType"_s, .column = u"iType"_s, .show = typeCell},
        {.key = u"date"_s, .title = u"تاریخ"_s, .width = 55, .sortKey = u"date"_s, .column = u"date"_s},
        {.key = u"person"_s, .title = u"شخص"_s, .width = 110, .alignment = Qt::AlignRight, .lookup = u"iPersonID"_s},
        {.key = u"description"_s, .title = u"شرح"_s, .width = 110, .alignment = Qt::AlignRight, .sortKey = u"sDesc"_s, .column = u"sDesc"_s},
        {.key = u"amount"_s, .title = u"مبلغ"_s, .width = 70, .alignment = Qt::AlignRight, .sortKey = u"dAmount"_s, .column = u"dAmount"_s},
        {.key = u"discount"_s, .title = u"تخفیف"_s, .width = 55, .alignment = Qt::AlignRight, .sortKey = u"dDiscount"_s, .column = u"dDiscount"_s},
        {.key = u"tax"_s, .title = u"مالیات"_s, .width = 55, .alignment = Qt::AlignRight, .sortKey = u"dTax"_s, .column = u"dTax"_s},
        {.key = u"duty"_s, .title = u"عوارض"_s, .width = 55, .alignment = Qt::AlignRight, .sortKey = u"dImposition"_s, .column = u"dImposition"_s},
        {.key = u"owed"_s, .title = u"قابل پرداخت"_s, .width = 75, .alignment = Qt::AlignRight, .sortKey = u"dAmount-dDiscount+dTax+dImposition"_s, .cell = KListColumn::of<CTblFactors>(owedCell), .reads = {u"iStatus"_s}, .sums = true, .sumsBy = u"type"_s, .counts = isValid},
        {.key = u"document"_s, .title = u"شماره سند"_s, .width = 45, .sortKey = u"iDocNum"_s, .column = u"iDocNum"_s},
        {.key = u"status"_s, .title = u"وضعیت"_s, .width = 40, .sortKey = u"iStatus"_s, .column = u"iStatus"_s, .show = statusCell},
    };
}

QList<KListFilter> CDlgFactors::filterTable() const
{
    return invoiceFilters(typeChoices);
}

KListTraits CDlgFactors::traits() const
{
    return {.searchColumn = 6, .readsWholeRecords = true, .makePerson = personFilter(), .emptyIcon = u":/icons/receipt.svg"_s};
}

std::vector<KListCommand> CDlgFactors::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"newSale"_s, u"فروش جدید"_s, C::HiddenInReadOnly, [this] { addInvoice(CTblFactors::sale); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s, Write},
        {u"newPurchase"_s, u"خرید جدید"_s, C::HiddenInReadOnly, [this] { addInvoice(CTblFactors::purchase); },
         QKeySequence(Qt::SHIFT | Qt::Key_Insert), u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ویرایش"_s, onRow, [this] { editInvoice(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"void"_s, u"ابطال"_s, onRow, [this] { voidInvoice(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
        {u"show"_s, u"نمایش"_s, C::NeedsRow, [this] { showInvoice(); }, {}, u":/icons/show.svg"_s, Read},
        {u"showDocument"_s, u"نمایش سند"_s, C::NeedsRow | C::StartsGroup, [this] { showDocument(); }, {}, u":/icons/document.svg"_s, Read, u"Documents"_s},
        {u"printInvoice"_s, u"چاپ فاکتور"_s, C::NeedsRow | C::StartsGroup, [this] { InvoicePaper::show(list()->currentKey(), this); }, {}, u":/icons/print.svg"_s, PrintList},
        printCommand(),
    };
}

std::unique_ptr<KMySQL> CDlgFactors::makeRecords() const
{
    return std::make_unique<CTblFactors>();
}

bool CDlgFactors::isWarning(KMySQL &record) const
{
    return static_cast<const CTblFactors &>(record).m_iStatus == CTblFactors::voided;
}

QString CDlgFactors::defaultSort() const
{
    return u"iID DESC"_s;
}

void CDlgFactors::activated(int)
{
    if (!runCommand(u"edit"))
        runCommand(u"show");
}

void CDlgFactors::emptyAreaActivated()
{
    runCommand(u"newSale");
}

KListReport CDlgFactors::reportSpec() const
{
    return {u"فاکتورها"_s, u"Factors"_s, u"List"_s};
}

void CDlgFactors::addInvoice(int type)
{
    if (isChangeBlocked() || !CheckWriteSecurity())
        return;
    Invoice invoice;
    invoice.type = type;
    CDlgAddFactor dialog(invoice, false, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    refill();
    selectListed(dialog.num());
}

void CDlgFactors::editInvoice()
{
    const int num = list()->currentKey();
    if (isChangeBlocked() || !CheckModifySecurity())
        return;
    const Invoice invoice = InvoicePosting::load(num);
    if (invoice.num == 0)
        return;
    const QString refusal = InvoicePosting::changeRefusal(num);
    if (!refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, this);
        return;
    }
    CDlgAddFactor dialog(invoice, false, this);
    if (dialog.exec() == QDialog::Accepted)
        refill();
}

void CDlgFactors::showInvoice()
{
    if (!CheckReadSecurity())
        return;
    const Invoice invoice = InvoicePosting::load(list()->currentKey());
    if (invoice.num != 0)
        CDlgAddFactor(invoice, true, this).exec();
}

void CDlgFactors::voidInvoice()
{
    const int num = list()->currentKey();
    if (isChangeBlocked() || !CheckDeletionSecurity())
        return;
    const QString refusal = InvoicePosting::voidRefusal(num);
    if (!refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, this);
        return;
    }
    const QString question =
        u"فاکتور شماره %1 باطل می‌شود، سند آن خالی می‌شود و دیگر تغییر نمی‌کند. ادامه می‌دهید؟"_s.arg(num);
    if (g_pDlgYesNo->Ask(question, this) == KMessageDialog::No)
        return;
    InvoicePosting::makeVoid(num);
    refill();
}

void CDlgFactors::showDocument()
{
    CTblFactors invoice;
    if (loadSelected(invoice))
        CDlgShowDocument::Show(invoice.m_iDocNum, invoice.m_iFiscalYear, this);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgFactors.h"

#include "suite/db/KLookup.h"
#include "host/books/CDlgAddFactor.h"
#include "host/books/InvoiceFilter.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>

namespace {

constexpr int personColumn = 4;

const QString newSaleCaption = QStringLiteral("فروش جدید");
const QString editCaption = QStringLiteral("ویرایش");
const QString showCaption = QStringLiteral("نمایش");

QString typeName(int type)
{
    return type == CTblFactors::purchase ? QStringLiteral("خرید") : QStringLiteral("فروش");
}

KListModel::Cell numberCell(int value)
{
    return {QString::number(value), value};
}

KListModel::Cell moneyCell(double amount)
{
    return {DToMoney(amount), amount};
}

double owed(const CTblFactors &invoice)
{
    return invoice.m_dAmount - invoice.m_dDiscount + invoice.m_dTax + invoice.m_dImposition;
}

}

CDlgFactors::CDlgFactors(QWidget *parent)
    : KListPage(QStringLiteral("فاکتورها"), QStringLiteral("Factors"), QStringLiteral("Factors"), parent)
{
    build();
}

QVector<KListModel::Column> CDlgFactors::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignHCenter, 30, {}},
        {QStringLiteral("شماره"), Qt::AlignHCenter, 45, QStringLiteral("iID")},
        {QStringLiteral("نوع"), Qt::AlignHCenter, 40, QStringLiteral("iType")},
        {QStringLiteral("تاریخ"), Qt::AlignHCenter, 55, QStringLiteral("date"), true},
        {QStringLiteral("شخص"), Qt::AlignRight, 110, {}},
        {QStringLiteral("شرح"), Qt::AlignRight, 110, QStringLiteral("sDesc")},
        {QStringLiteral("مبلغ"), Qt::AlignRight, 70, QStringLiteral("dAmount")},
        {QStringLiteral("تخفیف"), Qt::AlignRight, 55, QStringLiteral("dDiscount")},
        {QStringLiteral("مالیات"), Qt::AlignRight, 55, QStringLiteral("dTax")},
        {QStringLiteral("عوارض"), Qt::AlignRight, 55, QStringLiteral("dImposition")},
        {QStringLiteral("قابل پرداخت"), Qt::AlignRight, 75, QStringLiteral("dAmount-dDiscount+dTax+dImposition")},
        {QStringLiteral("شماره سند"), Qt::AlignHCenter, 45, QStringLiteral("iDocNum")},
        {QStringLiteral("وضعیت"), Qt::AlignHCenter, 40, QStringLiteral("iStatus")},
    };
}

std::vector<KListCommand> CDlgFactors::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {QStringLiteral("newSale"), newSaleCaption, C::HiddenInReadOnly, [this] { addInvoice(CTblFactors::sale); }, QKeySequence(Qt::Key_Insert),
         QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("newPurchase"), QStringLiteral("خرید جدید"), C::HiddenInReadOnly, [this] { addInvoice(CTblFactors::purchase); },
         QKeySequence(Qt::SHIFT | Qt::Key_Insert), QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), editCaption, onRow, [this] { editInvoice(); }, QKeySequence(Qt::Key_F2), QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("void"), QStringLiteral("ابطال"), onRow, [this] { voidInvoice(); }, QKeySequence(Qt::Key_Delete),
         QStringLiteral(":/icons/delete.svg")},
        {QStringLiteral("show"), showCaption, C::NeedsRow, [this] { showInvoice(); }, {}, QStringLiteral(":/icons/show.svg")},
        {QStringLiteral("showDocument"), QStringLiteral("نمایش سند"), C::NeedsRow | C::StartsGroup, [this] { showDocument(); }, {}, QStringLiteral(":/icons/document.svg")},
        printCommand(C::StartsGroup),
    };
}

void CDlgFactors::buildFilters(QGridLayout *grid)
{
    m_person = new KPersonField(QStringLiteral("شخص :"), this);
    m_type = new QComboBox(this);
    m_type->addItem(QStringLiteral("همه"), 0);
    for (const int type : {CTblFactors::sale, CTblFactors::purchase})
        m_type->addItem(typeName(type), type);
    m_from = new KDateEdit(this);
    m_to = new KDateEdit(this);
    m_voided = new QCheckBox(QStringLiteral("نمایش باطل شده‌ها"), this);
    m_voided->setAccessibleName(m_voided->text());
    addFilter(grid, 0, 0, QStringLiteral("شخص :"), m_person);
    addFilter(grid, 0, 2, QStringLiteral("نوع :"), m_type);
    addFilter(grid, 0, 4, QStringLiteral("از تاریخ :"), m_from);
    addFilter(grid, 0, 6, QStringLiteral("تا تاریخ :"), m_to);
    grid->addWidget(m_voided, 0, 8);
    grid->setColumnStretch(1, 1);
}

std::unique_ptr<KMySQL> CDlgFactors::makeRecords() const
{
    return std::make_unique<CTblFactors>();
}

QString CDlgFactors::filterClauses() const
{
    return invoiceFilter({!m_voided->isChecked(), m_person->personID(), m_type->currentData().toInt(), m_from->dateTime(),
                          m_to->dateTime()});
}

QString CDlgFactors::defaultSort() const
{
    return QStringLiteral("iID DESC");
}

void CDlgFactors::beginRows()
{
    m_personIDs.clear();
}

KListModel::Row CDlgFactors::makeRow(KMySQL &record, int number)
{
    const auto &invoice = static_cast<const CTblFactors &>(record);
    const bool voided = invoice.m_iStatus == CTblFactors::voided;
    m_personIDs.append(invoice.m_iPersonID);
    return {invoice.m_iID,
            {
                numberCell(number),
                numberCell(invoice.m_iID),
                {typeName(invoice.m_iType)},
                {shamsiText(invoice.m_date.date()), invoice.m_date},
                {},
                {invoice.m_sDesc},
                moneyCell(invoice.m_dAmount),
                moneyCell(invoice.m_dDiscount),
                moneyCell(invoice.m_dTax),
                moneyCell(invoice.m_dImposition),
                moneyCell(owed(invoice)),
                numberCell(invoice.m_iDocNum),
                {voided ? QStringLiteral("باطل") : QStringLiteral("معتبر"), invoice.m_iStatus},
            },
            voided};
}

void CDlgFactors::completeRows(QVector<KListModel::Row> &rows)
{
    const QHash<int, QString> persons = KLookup::names(QStringLiteral("Persons"), QStringLiteral("iID"),
                                                       QStringLiteral("sName2"), m_personIDs);
    for (qsizetype index = 0; index < rows.size(); ++index)
        rows[index].cells[personColumn] = {persons.value(m_personIDs.at(index))};
}

void CDlgFactors::activated(int)
{
    if (!runCommand(editCaption))
        runCommand(showCaption);
}

void CDlgFactors::emptyAreaActivated()
{
    runCommand(newSaleCaption);
}

QWidget *CDlgFactors::firstFilterControl() const
{
    return m_person;
}

KListReport CDlgFactors::reportSpec() const
{
    return {QStringLiteral("فاکتورها"), QStringLiteral("Factors"), QStringLiteral("List")};
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
    const QString refusal = InvoicePosting::changeRefusal(num);
    if (!refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, this);
        return;
    }
    const QString question =
        QStringLiteral("فاکتور شماره %1 باطل می‌شود، سند آن خالی می‌شود و دیگر تغییر نمی‌کند. ادامه می‌دهید؟").arg(num);
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

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receipts/CDlgReceipts.h"

#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/persons/PersonFilter.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/treasury/receiving/ReceiptPaper.h"
#include "suite/treasury/receipts/CDlgShowReceipt.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/receiving/ReceiptDetails.h"
#include "suite/treasury/receipts/ReceiptFilter.h"
#include "suite/treasury/receipts/VoidingTogether.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/values/Money.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

QString receiptsTitle()
{
    return u"دریافت‌ها و پرداخت‌ها"_s;
}

KListColumn::Cell kindCell(const QVariant &kind)
{
    return {CTblReceipts::kindName(kind.toInt()), kind};
}

KListColumn::Cell methodCell(const QVariant &method)
{
    return {CTblReceipts::methodName(method.toInt())};
}

KListColumn::Cell stateCell(const QVariant &status)
{
    return {CTblReceipts::statusName(status.toInt()), status};
}

QList<KListFilter::Choice> kindChoices()
{
    return {{u"همه"_s, 0},
            {CTblReceipts::kindName(CTblReceipts::received), CTblReceipts::received + 1},
            {CTblReceipts::kindName(CTblReceipts::paid), CTblReceipts::paid + 1}};
}

QList<KListFilter::Choice> methodChoices()
{
    QList<KListFilter::Choice> choices{{u"همه"_s, 0}};
    for (const int method : {CTblReceipts::cash, CTblReceipts::bank, CTblReceipts::card, CTblReceipts::cheque})
        choices.append({CTblReceipts::methodName(method), method});
    return choices;
}

// What happens, with what came with the same cheque and with what the user chose to take back together.
QString voidText(const ReceiptDetails &receipt, const QList<int> &keys)
{
    const QString kind = CTblReceipts::kindName(receipt.kind);
    QString text = u"%1 شماره %2 به مبلغ %3 %4 (%5) باطل می‌شود: شماره و ردیف آن می‌ماند، سند آن برمی‌گردد و آنچه با آن تسویه شده بود دوباره باز می‌شود."_s
                       .arg(kind, QString::number(receipt.number), DToMoney(receipt.amount), OfficeSettings::read().moneyUnitName(), receipt.person);
    if (keys.size() > 1)
        text += u"\nبا آن شماره %1 نیز باطل می‌شود."_s.arg(VoidingTogether::numbersText(keys.mid(1)));
    if (receipt.chequeID != 0)
        text += u"\nچک آن و هر %1 دیگری که با همین چک ثبت شده است نیز باطل می‌شود."_s.arg(kind);
    return text;
}

}

CDlgReceipts::CDlgReceipts(QWidget *parent)
    : KListPage(receiptsTitle(), u"Receipts"_s, u"Receipts"_s, parent)
    , m_sums(new QLabel)
{
    build();
    if (auto *card = qobject_cast<KListCard *>(list()->parentWidget()))
        card->addToFoot(m_sums);
}

QString CDlgReceipts::sumsText() const
{
    return m_sums->text();
}

QList<KListColumn> CDlgReceipts::columnTable() const
{
    const auto isValid = [](KMySQL &record) { return static_cast<const CTblReceipts &>(record).m_iStatus == CTblReceipts::valid; };
    return {
        KListColumn::rowNumber(30),
        {.key = u"number"_s, .title = u"شماره"_s, .width = 45, .sortKey = u"iID"_s, .column = u"iID"_s},
        {.key = u"kind"_s, .title = u"نوع"_s, .width = 45, .sortKey = u"iKind"_s, .column = u"iKind"_s, .show = kindCell},
        {.key = u"date"_s, .title = u"تاریخ"_s, .width = 55, .sortKey = u"date"_s, .column = u"date"_s},
        {.key = u"person"_s, .title = u"شخص"_s, .width = 105, .alignment = Qt::AlignRight, .lookup = u"iPersonID"_s},
        {.key = u"amount"_s, .title = u"مبلغ"_s, .width = 75, .alignment = Qt::AlignRight, .sortKey = u"dAmount"_s, .column = u"dAmount"_s, .reads = {u"iStatus"_s}, .sums = true, .sumsBy = u"kind"_s, .counts = isValid},
        {.key = u"method"_s, .title = u"روش"_s, .width = 40, .sortKey = u"iMethod"_s, .column = u"iMethod"_s, .show = methodCell},
        {.key = u"for"_s, .title = u"بابت"_s, .width = 120, .alignment = Qt::AlignRight, .sortKey = u"sFor"_s, .column = u"sFor"_s, .emptyText = u"علی‌الحساب"_s},
        {.key = u"description"_s, .title = u"شرح"_s, .width = 120, .alignment = Qt::AlignRight, .sortKey = u"sDesc"_s, .column = u"sDesc"_s},
        {.key = u"document"_s, .title = u"شماره سند"_s, .width = 50, .sortKey = u"iDocNum"_s, .column = u"iDocNum"_s},
        {.key = u"status"_s, .title = u"وضعیت"_s, .width = 45, .sortKey = u"iStatus"_s, .column = u"iStatus"_s, .show = stateCell},
        {.key = u"user"_s, .title = u"کاربر"_s, .width = 55, .lookup = u"iUserID"_s},
    };
}

QList<KListFilter> CDlgReceipts::filterTable() const
{
    return receiptFilters(kindChoices, methodChoices);
}

KListTraits CDlgReceipts::traits() const
{
    return {.searchColumn = 6, .hasOwnTotals = true, .makePerson = personFilter(), .emptyIcon = u":/icons/receipt.svg"_s};
}

std::vector<KListCommand> CDlgReceipts::commands()
{
    using C = KListCommand;
    return {
        {u"newReceipt"_s, u"دریافت جدید"_s, C::HiddenInReadOnly, [this] { add(CTblReceipts::received); }, QKeySequence(Qt::Key_Insert), u":/icons/new.svg"_s, Write},
        {u"newPayment"_s, u"پرداخت جدید"_s, C::HiddenInReadOnly, [this] { add(CTblReceipts::paid); }, QKeySequence(Qt::SHIFT | Qt::Key_Insert), u":/icons/new.svg"_s, Write},
        {u"void"_s, u"ابطال"_s, C::NeedsRow | C::HiddenInReadOnly, [this] { voidReceipt(); }, QKeySequence(Qt::Key_Delete), u":/icons/delete.svg"_s, Delete},
        {u"show"_s, u"نمایش"_s, C::NeedsRow, [this] { showReceipt(); }, {}, u":/icons/show.svg"_s, Read},
        {u"printReceipt"_s, u"چاپ رسید"_s, C::NeedsRow, [this] { printReceipt(); }, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P), u":/icons/print.svg"_s, Read},
        {u"showDocument"_s, u"نمایش سند"_s, C::NeedsRow | C::StartsGroup, [this] { showDocument(); }, {}, u":/icons/document.svg"_s, Read, u"Documents"_s},
        {u"statement"_s, u"صورتحساب"_s, C::NeedsRow, [this] { showStatement(); }, QKeySequence(Qt::Key_F6), u":/icons/table.svg"_s, Read},
        printCommand(C::StartsGroup),
    };
}

std::unique_ptr<KMySQL> CDlgReceipts::makeRecords() const
{
    return std::make_unique<CTblReceipts>();
}

bool CDlgReceipts::isWarning(KMySQL &record) const
{
    return static_cast<const CTblReceipts &>(record).m_iStatus != CTblReceipts::valid;
}

void CDlgReceipts::showTotals(const QVector<KListModel::Row> &rows)
{
    const int amount = list()->columnOf(u"amount");
    const int kind = list()->columnOf(u"kind");
    const int status = list()->columnOf(u"status");
    double received = 0;
    double paid = 0;
    for (const KListModel::Row &row : rows) {
        if (row.cells.at(status).value.toInt() != CTblReceipts::valid)
            continue;
        (row.cells.at(kind).value.toInt() == CTblReceipts::paid ? paid : received) += row.cells.at(amount).value.toDouble();
    }
    m_sums->setText(u"جمع دریافت : %1     جمع پرداخت : %2"_s.arg(DToMoney(received), DToMoney(paid)));
}

QString CDlgReceipts::defaultSort() const
{
    return u"iID DESC"_s;
}

void CDlgReceipts::activated(int)
{
    runCommand(u"show");
}

void CDlgReceipts::emptyAreaActivated()
{
    runCommand(u"newReceipt");
}

KListReport CDlgReceipts::reportSpec() const
{
    return {receiptsTitle(), u"Receipts"_s, u"List"_s};
}

void CDlgReceipts::add(CTblReceipts::Kind kind)
{
    const QList<ReceiptPosting::Posted> posted = CDlgCashFromPerson::run({.kind = kind}, this);
    if (posted.isEmpty())
        return;
    refill();
    selectListed(posted.constFirst().receiptID);
}

void CDlgReceipts::showReceipt()
{
    CDlgShowReceipt::Show(list()->currentKey(), this);
}

void CDlgReceipts::printReceipt()
{
    ReceiptPaper::show({list()->currentKey()}, this);
}

void CDlgReceipts::showDocument()
{
    CTblReceipts receipt;
    if (loadSelected(receipt))
        CDlgShowDocument::Show(receipt.m_iDocNum, receipt.m_iFiscalYear, this);
}

void CDlgReceipts::showStatement()
{
    CTblReceipts receipt;
    if (loadSelected(receipt))
        CDlgAccountDocs::ShowPerson(receipt.m_iPersonID, this);
}

void CDlgReceipts::voidReceipt()
{
    const int id = list()->currentKey();
    if (isChangeBlocked() || !CheckDeletionSecurity())
        return;
    const std::optional<ReceiptDetails> receipt = ReceiptDetails::read(id);
    if (receipt && receipt->isVoid()) {
        g_pDlgWarning->Show(u"%1 شماره %2 باطل شده است (%3)."_s.arg(CTblReceipts::kindName(receipt->kind), QString::number(id), receipt->voidText()), this);
        refill();
        return;
    }
    if (const QString refusal = ReceiptPosting::voidRefusal(id); !refusal.isEmpty()) {
        g_pDlgWarning->Show(refusal, this);
        return;
    }
    const std::optional<QList<int>> keys = VoidingTogether::ask(id, this);
    if (!keys)
        return;
    const QString title = u"ابطال %1"_s.arg(CTblReceipts::kindName(receipt ? receipt->kind : CTblReceipts::received));
    const QString text = receipt ? voidText(*receipt, *keys) : QString();
    if (CDlgVoiding::run(
            title, text, [&keys](const QString &reason) { ReceiptPosting::makeVoid(*keys, reason); }, this))
        refill();
}

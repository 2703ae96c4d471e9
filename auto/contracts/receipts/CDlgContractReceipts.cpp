// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/CDlgContractReceipts.h"

#include "auto/contracts/parties/ContractSide.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/db/records/KLookup.h"
#include "suite/treasury/receipts/VoidingTogether.h"
#include "suite/treasury/receiving/ReceiptPaper.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

KSecurity receiptSecurity()
{
    KSecurity security;
    security.SetFormName(u"Receipts"_s);
    return security;
}

QVector<KListModel::Column> receiptColumns()
{
    return {{u"ردیف"_s, Qt::AlignCenter, 26},
            {u"تاریخ"_s, Qt::AlignCenter, 50, {}, true},
            {u"نوع"_s, Qt::AlignCenter, 50},
            {u"شخص"_s, Qt::AlignRight, 90},
            {u"طرف"_s, Qt::AlignCenter, 55},
            {u"مبلغ"_s, Qt::AlignRight, 65},
            {u"روش"_s, Qt::AlignCenter, 45},
            {u"شرح"_s, Qt::AlignRight, 140},
            {u"شماره سند"_s, Qt::AlignCenter, 45},
            {u"وضعیت"_s, Qt::AlignRight, 50},
            {u"ابطال"_s, Qt::AlignRight, 150}};
}

QString stateOf(const ContractReceipts::Entry &entry)
{
    return entry.receiptID == 0 ? u"بدون سند"_s : CTblReceipts::statusName(entry.status);
}

// Who made it void, when and why.
QString voidingOf(const ContractReceipts::Entry &entry)
{
    if (!entry.isVoid())
        return {};
    return u"%1، %2: %3"_s.arg(CTblUsers::GetName(entry.voidUserID), shamsiText(entry.voidDate.date()), entry.voidReason);
}

KListModel::Row rowOf(int number, const ContractReceipts::Entry &entry, const QString &person)
{
    KListModel::Row row{number,
                        {{QString::number(number), number},
                         {shamsiText(entry.date.date()), entry.date.date()},
                         {CTblReceipts::kindName(entry.kind)},
                         {person},
                         {entry.side == 0 ? u"-"_s : ContractSide::nameOf(entry.side)},
                         {DToMoney(entry.amount), entry.amount},
                         {CTblReceipts::methodName(entry.method)},
                         {entry.description},
                         entry.docNum > 0 ? KListModel::Cell{QString::number(entry.docNum), entry.docNum} : KListModel::Cell{},
                         {stateOf(entry)},
                         {voidingOf(entry)}}};
    row.warning = !entry.counts();
    return row;
}

}

CDlgContractReceipts::CDlgContractReceipts(int contractID, QWidget *parent)
    : KDialog(parent)
    , m_contractID(contractID)
{
    const OfficeSettings settings = OfficeSettings::read();
    m_moneyUnit = settings.moneyUnitName();
    m_closed = settings.isClosed();
    SetSettingName(u"AutomobilContracts\\Receipts"_s);
    build();
    resize(LookSizes::scaled(1180), LookSizes::scaled(480));
    if (load())
        m_list->selectRow(0);
    m_list->setFocus();
}

CDlgContractReceipts::~CDlgContractReceipts() = default;

void CDlgContractReceipts::Show(int contractID, QWidget *parent)
{
    CTblAutomobilContracts contract;
    if (receiptSecurity().CheckReadSecurity() && contract.IsRecordExist(u"iID"_s, contractID))
        CDlgContractReceipts(contractID, parent).exec();
}

void CDlgContractReceipts::offer(const KAccountingError &refused, int contractID, QWidget *parent)
{
    const QString question = refused.userMessage() + u"\nدریافت‌های این قرارداد برای ابطال نشان داده شود؟"_s;
    if (g_pDlgYesNo->Ask(question, parent) != KMessageDialog::No)
        Show(contractID, parent);
}

void CDlgContractReceipts::build()
{
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(u"دریافت‌های قرارداد"_s);
    m_list->setColumns(receiptColumns());
    m_list->SetSettingName(u"AutomobilContracts\\ReceiptList"_s);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CDlgContractReceipts::updateButton);
    m_total = new QLabel(this);
    m_reason = new KEdit(this);
    m_reason->setMaxLength(CTblReceipts::longestReason);
    m_void = new QPushButton(LookIcons::icon(u":/icons/delete.svg"_s, HostColors::Role::Danger), u"ابطال دریافت"_s, this);
    m_void->setAccessibleName(m_void->text());
    m_void->setAutoDefault(false);
    LookMarks::setButton(m_void, LookMarks::Button::Small);
    connect(m_void, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { voidSelected(); }); });

    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    auto *received = new KListCard(m_list, content);
    received->addToFoot(m_total);
    cards->addCard(received, true);
    cards->addCard(buildVoiding());
    QDialogButtonBox *buttons = createButtons(QString(), u"بازگشت"_s);
    m_paper = buttons->addButton(u"چاپ رسید"_s, QDialogButtonBox::ActionRole);
    m_paper->setIcon(LookIcons::icon(u":/icons/receipt.svg"_s));
    m_paper->setAccessibleName(m_paper->text());
    connect(m_paper, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { printSelected(); }); });
    m_print = buttons->addButton(u"چاپ"_s, QDialogButtonBox::ActionRole);
    m_print->setIcon(LookIcons::icon(u":/icons/print.svg"_s));
    m_print->setAccessibleName(m_print->text());
    connect(m_print, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { print(); }); });
    setContent(content, buttons);
}

QWidget *CDlgContractReceipts::buildVoiding()
{
    auto *box = new QGroupBox(this);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_reason, 1);
    line->addWidget(m_void);
    QLabel *label = labelFor(u"دلیل ابطال :"_s, m_reason);
    (new FormGrid(box, FormGrid::Extent::Half))->addField(label, new FieldNote(m_reason), line, 4);
    return box;
}

// False when the contract is gone; the list is then empty.
bool CDlgContractReceipts::load()
{
    const KWaitCursor wait;
    CTblAutomobilContracts contract;
    const bool isThere = contract.IsRecordExist(u"iID"_s, m_contractID);
    m_entries = isThere ? ContractReceipts::list(contract) : QList<ContractReceipts::Entry>();
    if (isThere)
        setWindowTitle(u"دریافت‌های قرارداد شماره %1"_s.arg(contract.number()));
    QList<int> persons;
    for (const ContractReceipts::Entry &entry : std::as_const(m_entries))
        persons.append(entry.personID);
    const QHash<int, QString> names = KLookup::names<CTblReceipts>(u"iPersonID", persons);
    QVector<KListModel::Row> rows;
    for (const ContractReceipts::Entry &entry : std::as_const(m_entries))
        rows.append(rowOf(static_cast<int>(rows.size()) + 1, entry, names.value(entry.personID)));
    m_list->setRows(std::move(rows));
    m_total->setText(totals());
    updateButton();
    return isThere;
}

// Payments are named where there are some.
QString CDlgContractReceipts::totals() const
{
    QString text = u"جمع دریافت‌های معتبر : %1 %2"_s.arg(DToMoney(ContractReceipts::sum(m_entries)), m_moneyUnit);
    if (const double paid = ContractReceipts::sum(m_entries, CTblReceipts::paid); paid > 0)
        text += u"، جمع پرداخت‌های معتبر : %1 %2"_s.arg(DToMoney(paid), m_moneyUnit);
    return text;
}

ListReport CDlgContractReceipts::report() const
{
    ListReport report(u"گالری اتومبیل"_s, u"دریافت‌های قرارداد"_s);
    report.setText(u"LeftTop"_s, m_total->text());
    report.setText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
    report.setText(u"Count"_s, SuiteMessages::count(m_list->count()));
    report.setTable(u"List"_s, m_list);
    if (!report.loadLayout())
        report.buildStandard(windowTitle());
    report.setText(u"Title"_s, windowTitle());
    return report;
}

void CDlgContractReceipts::print()
{
    if (receiptSecurity().CheckPrintListSecurity())
        CDlgReportGenerator(report(), this).ShowReport();
}

// On the paper that the user may give away; of an instalment without a receipt there is none.
void CDlgContractReceipts::printSelected()
{
    if (const ContractReceipts::Entry *entry = selected(); entry && entry->receiptID != 0)
        ReceiptPaper::show({entry->receiptID}, this);
}

void CDlgContractReceipts::refill()
{
    const int row = m_list->currentRow();
    load();
    m_list->selectRow(qMin(row, m_list->count() - 1));
}

const ContractReceipts::Entry *CDlgContractReceipts::selected() const
{
    const int number = m_list->currentKey();
    return number > 0 && number <= m_entries.size() ? &m_entries.at(number - 1) : nullptr;
}

void CDlgContractReceipts::updateButton()
{
    const ContractReceipts::Entry *entry = selected();
    m_paper->setEnabled(entry && entry->receiptID != 0);
    m_void->setEnabled(entry && !entry->isVoid() && !m_closed && receiptSecurity().CheckDeletionSecurity(0));
}

QString CDlgContractReceipts::totalText() const
{
    return m_total->text();
}

bool CDlgContractReceipts::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus();
    return false;
}

// A document of an earlier fiscal year is reversed, so that what becomes of it is not promised here.
QString CDlgContractReceipts::voidingQuestion(const ContractReceipts::Entry &entry) const
{
    const QString amount = DToMoney(entry.amount) + u' ' + m_moneyUnit;
    if (entry.receiptID == 0)
        return u"قسط %1 دوباره پرداخت نشده می‌شود. ادامه می‌دهید؟"_s.arg(amount);
    return u"%1 %2 باطل می‌شود، سند آن برگردانده می‌شود و این کار برگشت ندارد. ادامه می‌دهید؟"_s.arg(CTblReceipts::kindName(entry.kind), amount);
}

void CDlgContractReceipts::voidSelected()
{
    const ContractReceipts::Entry *chosen = selected();
    if (!chosen || chosen->isVoid() || !receiptSecurity().CheckDeletionSecurity())
        return;
    if (m_reason->text().trimmed().isEmpty()) {
        refuse(u"لطفا دلیل ابطال را وارد نمایید."_s, m_reason);
        return;
    }
    const ContractReceipts::Entry entry = *chosen;
    if (g_pDlgYesNo->Ask(voidingQuestion(entry), this) == KMessageDialog::No)
        return;
    const std::optional<QList<int>> keys = entry.receiptID != 0 ? VoidingTogether::ask(entry.receiptID, this) : QList<int>();
    if (!keys)
        return;
    try {
        if (keys->size() > 1)
            ReceiptPosting::makeVoid(*keys, m_reason->text());
        else
            ContractReceipts::makeVoid(m_contractID, entry, m_reason->text());
        m_reason->clear();
    } catch (const KAccountingError &error) {
        refuse(error.userMessage(), m_list);
    }
    refill();
}

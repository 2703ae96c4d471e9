// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cheques/CDlgContractCheques.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/treasury/receiving/CDlgCashFromPerson.h"
#include "suite/treasury/cheques/CDlgShowCheque.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/cheques/ChequeSeries.h"
#include "suite/treasury/cheques/ChequeVoiding.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
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

KSecurity chequeSecurity()
{
    KSecurity security;
    security.SetFormName(ChequeChanging::rightsForm());
    return security;
}

QVector<KListModel::Column> chequeColumns()
{
    return {{.title = u"ردیف"_s, .alignment = Qt::AlignCenter, .width = 26},
            {.title = u"شناسه صیادی"_s, .alignment = Qt::AlignCenter, .width = 85, .isCode = true},
            {.title = u"شماره چک"_s, .alignment = Qt::AlignCenter, .width = 60, .isCode = true},
            {.title = u"بانک"_s, .width = 60},
            {.title = u"شعبه"_s, .width = 60},
            {.title = u"سررسید"_s, .alignment = Qt::AlignCenter, .width = 52, .isDate = true},
            {.title = u"مبلغ"_s, .width = 70},
            {.title = u"بابت"_s, .width = 120},
            {.title = u"وضعیت"_s, .width = 72}};
}

KListModel::Row chequeRow(int number, const ContractCheques::Row &cheque)
{
    KListModel::Row row{number,
                        {{QString::number(number), number},
                         {cheque.cheque.sayad},
                         {cheque.cheque.number},
                         {cheque.cheque.bank},
                         {cheque.cheque.branch},
                         {shamsiText(cheque.cheque.due.date()), cheque.cheque.due.date()},
                         {DToMoney(cheque.amount), cheque.amount},
                         {cheque.purpose},
                         {ChequeStates::name(cheque.state)}}};
    row.warning = !ChequeStates::counts(cheque.state);
    return row;
}

}

CDlgContractCheques::CDlgContractCheques(const CTblAutomobilContracts &contract, bool readOnly, QWidget *parent)
    : KDialog(parent)
    , m_contract(std::make_unique<CTblAutomobilContracts>(contract.database()))
    , m_readOnly(readOnly)
{
    const OfficeSettings settings = OfficeSettings::read({}, contract.database());
    m_moneyUnit = settings.moneyUnitName();
    m_readOnly = m_readOnly || settings.isClosed();
    m_contract->IsRecordExist(u"iID"_s, contract.m_iID);
    setWindowTitle(u"چک‌های قرارداد شماره %1"_s.arg(contract.number()));
    SetSettingName(u"AutomobilContracts\\Cheques"_s);
    build();
    resize(LookSizes::scaled(960), LookSizes::scaled(480));
    refill();
    m_list->selectRow(0);
    if (m_readOnly)
        m_list->setFocus();
    else
        m_add->setFocus();
}

CDlgContractCheques::~CDlgContractCheques() = default;

void CDlgContractCheques::Show(const CTblAutomobilContracts &contract, bool readOnly, QWidget *parent)
{
    if (chequeSecurity().CheckReadSecurity())
        CDlgContractCheques(contract, readOnly, parent).exec();
}

QPushButton *CDlgContractCheques::command(const QString &caption, const QString &icon, void (CDlgContractCheques::*run)())
{
    auto *button = new QPushButton(LookIcons::icon(icon), caption, this);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    LookMarks::setButton(button, LookMarks::Button::Small);
    connect(button, &QPushButton::clicked, this, [this, run] { KErrorBoundary::guarded(this, [this, run] { (this->*run)(); }); });
    return button;
}

void CDlgContractCheques::build()
{
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(u"چک‌های قرارداد"_s);
    m_list->setColumns(chequeColumns());
    m_list->SetSettingName(u"AutomobilContracts\\ChequeList"_s);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CDlgContractCheques::updateButtons);
    connect(m_list, &KExtListCtrl::rowActivated, this, [this] { KErrorBoundary::guarded(this, [this] { showSelected(); }); });
    m_total = new QLabel(this);

    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    cards->addCard(buildEntering());
    auto *listed = new KListCard(m_list, content);
    listed->addToFoot(m_total);
    cards->addCard(listed, true);
    setContent(content, createButtons(QString(), u"بازگشت"_s));
}

QWidget *CDlgContractCheques::buildEntering()
{
    auto *box = new QGroupBox(this);
    m_purpose = new KDropDown(box);
    m_add = command(u"چک جدید"_s, u":/icons/new.svg"_s, &CDlgContractCheques::addCheque);
    m_next = command(u"چک بعدی"_s, u":/icons/new.svg"_s, &CDlgContractCheques::addNext);
    m_next->setToolTip(u"شماره و سررسید یک ماه پس از آخرین چک"_s);
    m_void = command(u"ابطال چک"_s, u":/icons/delete.svg"_s, &CDlgContractCheques::voidSelected);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_purpose, 1);
    for (QPushButton *button : {m_add, m_next, m_void})
        line->addWidget(button);
    QLabel *label = labelFor(u"بابت :"_s, m_purpose);
    (new FormGrid(box, FormGrid::Extent::Half))->addField(label, new FieldNote(m_purpose), line, 4);
    box->setVisible(!m_readOnly);
    return box;
}

void CDlgContractCheques::refill()
{
    const KWaitCursor wait;
    const int row = m_list->currentRow();
    m_rows = ContractCheques::list(m_contract->m_iID, m_contract->database());
    QVector<KListModel::Row> rows;
    double sum = 0;
    for (const ContractCheques::Row &cheque : std::as_const(m_rows))
        rows.append(chequeRow(static_cast<int>(rows.size()) + 1, cheque));
    const QList<MatterCheques::Part> parts = ContractCheques::ofPrice(m_rows);
    for (const MatterCheques::Part &part : parts)
        sum += part.amount;
    m_list->setRows(std::move(rows));
    m_list->selectRow(qMin(row, m_list->count() - 1));
    m_total->setText(u"چک‌های بهای معامله : %1 فقره، %2 %3"_s.arg(QString::number(parts.size()), DToMoney(sum), m_moneyUnit));
    fillPurposes();
    updateButtons();
}

// What was chosen stays; once it is paid whole, the next of its kind.
void CDlgContractCheques::fillPurposes()
{
    const int at = m_purpose->currentIndex();
    const ReceiptPurpose before = at < 0 ? ReceiptPurpose() : m_items.at(at).purpose;
    m_items = ContractCheques::purposes(*m_contract);
    m_purpose->clear();
    int chosen = 0;
    bool isFound = false;
    for (const OpenItem &item : std::as_const(m_items)) {
        m_purpose->addItem(item.rest > 0 ? u"%1 (مانده %2)"_s.arg(item.purpose.text, DToMoney(item.rest)) : item.purpose.text);
        const bool isSame = item.purpose.what == before.what && item.purpose.paymentID == before.paymentID;
        if (isSame || (!isFound && chosen == 0 && before.what == ReceiptPurpose::Instalment && item.purpose.what == before.what))
            chosen = m_purpose->count() - 1;
        isFound = isFound || isSame;
    }
    m_purpose->setCurrentIndex(chosen);
}

const ContractCheques::Row *CDlgContractCheques::selected() const
{
    const int number = m_list->currentKey();
    return number > 0 && number <= m_rows.size() ? &m_rows.at(number - 1) : nullptr;
}

const ContractCheques::Row *CDlgContractCheques::last() const
{
    for (qsizetype index = m_rows.size() - 1; index >= 0; --index) {
        if (m_rows.at(index).state != ChequeState::Void)
            return &m_rows.at(index);
    }
    return nullptr;
}

void CDlgContractCheques::updateButtons()
{
    const bool mayEnter = !m_readOnly && KSecurity::IsGranted(u"Receipts"_s, KSecurity::Write);
    const ContractCheques::Row *row = selected();
    m_add->setEnabled(mayEnter);
    m_next->setEnabled(mayEnter && last());
    m_void->setEnabled(!m_readOnly && row && row->state == ChequeState::InHand && KSecurity::IsGranted(u"Receipts"_s, KSecurity::Delete));
}

QString CDlgContractCheques::totalText() const
{
    return m_total->text();
}

// amount 0: what is left of the chosen purpose.
void CDlgContractCheques::enter(const Cheque &cheque, double amount)
{
    const OpenItem item = m_items.at(qMax(0, m_purpose->currentIndex()));
    const auto posted = CDlgCashFromPerson::run({.kind = CTblReceipts::received,
                                                 .personID = m_contract->m_iPersonSecondID,
                                                 .amount = amount > 0 ? amount : item.rest,
                                                 .desc = u"چک بابت %1"_s.arg(item.purpose.text),
                                                 .purpose = item.purpose,
                                                 .method = CTblReceipts::cheque,
                                                 .cheque = cheque,
                                                 // What is paid by cheque is what the plan is then made without.
                                                 .spreads = item.purpose.what != ReceiptPurpose::Price},
                                                this);
    if (posted.isEmpty())
        return;
    refill();
    m_list->selectRow(m_list->count() - 1);
    m_next->setFocus();
}

void CDlgContractCheques::addCheque()
{
    Cheque cheque;
    cheque.due = m_items.at(qMax(0, m_purpose->currentIndex())).due;
    enter(cheque, 0);
}

void CDlgContractCheques::addNext()
{
    const ContractCheques::Row *before = last();
    if (!before)
        return;
    const OpenItem &item = m_items.at(qMax(0, m_purpose->currentIndex()));
    Cheque cheque = ChequeSeries::next(before->cheque);
    const bool isInstalment = item.purpose.what == ReceiptPurpose::Instalment;
    if (isInstalment && item.due.isValid())
        cheque.due = item.due;
    enter(cheque, isInstalment ? item.rest : before->amount);
}

void CDlgContractCheques::showSelected()
{
    if (const ContractCheques::Row *row = selected())
        CDlgShowCheque::Show(row->id, this);
}

void CDlgContractCheques::voidSelected()
{
    const ContractCheques::Row *row = selected();
    if (!row || m_readOnly)
        return;
    const int key = row->id;
    const QString question = u"چک %1 با دریافت آن باطل می‌شود و سند آن خالی می‌شود."_s.arg(row->cheque.sayad);
    if (CDlgVoiding::run(
            u"ابطال چک"_s, question, [key](const QString &reason) { ChequeVoiding::makeVoid(key, reason); }, this))
        refill();
}

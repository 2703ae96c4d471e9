// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgChequeChange.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/treasury/records/CTblChequeChanges.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/ReceiptOwners.h"
#include "suite/treasury/receiving/ReceiptSpread.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

const QString goneCheque = u"این چک دیگر وجود ندارد."_s;

}

CDlgChequeChange::CDlgChequeChange(int chequeID, QWidget *parent)
    : KDialog(parent)
    , m_seen{chequeID}
    , m_cheque(new KEdit)
    , m_state(new KEdit)
    , m_newState(new KDropDown)
    , m_date(new KDateEdit)
    , m_account(new KDropDown)
    , m_person(new KPersonField(u"به شخص :"_s))
    , m_for(new KDropDown)
    , m_desc(new KEdit)
{
    setWindowTitle(u"تغییر وضعیت چک"_s);
    SetSettingName(u"ChequeChange"_s);
    build();
    m_date->setDate(GetDBSetting()->GetDBServerDate().date());
    load();
    connect(m_newState, &QComboBox::currentIndexChanged, this, &CDlgChequeChange::showStep);
    connect(m_person, &KPersonField::changed, this, &CDlgChequeChange::fillPurposes);
    m_newState->setFocus();
}

bool CDlgChequeChange::run(int chequeID, QWidget *parent)
{
    CTblCheques cheque;
    if (!cheque.IsRecordExist(u"iID"_s, chequeID)) {
        g_pDlgWarning->Show(goneCheque, parent);
        return false;
    }
    const auto state = static_cast<ChequeState>(cheque.m_iState);
    const bool given = cheque.m_iKind == CTblReceipts::paid;
    if (ChequeStates::following(state, given).isEmpty()) {
        const QString hint = state == ChequeState::Void ? QString() : u" برای برگرداندن آخرین تغییر، «گردش چک» را باز کنید."_s;
        g_pDlgWarning->Show(u"این چک «%1» است و وضعیت دیگری نمی‌گیرد."_s.arg(ChequeStates::name(state, given)) + hint, parent);
        return false;
    }
    return CDlgChequeChange(chequeID, parent).exec() == Accepted;
}

void CDlgChequeChange::build()
{
    m_cheque->setReadOnly(true);
    m_state->setReadOnly(true);
    m_desc->setMaxLength(CTblChequeChanges::longestDescription);
    auto *page = new CardPage(640, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"چک :"_s, m_cheque, 4);
    addLabelled(grid, u"وضعیت کنونی :"_s, m_state);
    addLabelled(grid, u"وضعیت جدید :"_s, m_newState);
    addLabelled(grid, u"تاریخ :"_s, m_date);
    m_accountLabel = addLabelled(grid, u"حساب :"_s, m_account);
    m_personLabel = labelFor(u"به شخص :"_s, m_person);
    m_personLabel->setBuddy(m_person->nameEdit());
    grid->addField(m_personLabel, new FieldNote(m_person->nameEdit()), m_person, 2);
    m_forLabel = addLabelled(grid, u"بابت :"_s, m_for, 2);
    addLabelled(grid, u"شرح :"_s, m_desc, 4);
    setContent(page, createButtons());
}

// The cheque as it is now; what was entered stays where the cheque still allows it.
void CDlgChequeChange::load()
{
    CTblCheques cheque;
    m_seen = ChequeChanging::seen(m_seen.chequeID);
    if (!cheque.IsRecordExist(u"iID"_s, m_seen.chequeID))
        return;
    m_given = cheque.m_iKind == CTblReceipts::paid;
    m_deposited = cheque.m_iAccount;
    m_amount = cheque.m_dAmount;
    m_cheque->setText(u"%1، سررسید %2، مبلغ %3 %4"_s.arg(ChequeChanging::nameOf(cheque), shamsiText(cheque.m_dateDue.date()), DToMoney(cheque.m_dAmount),
                                                         OfficeSettings::read().moneyUnitName()));
    m_cheque->setCursorPosition(0);
    m_state->setText(ChequeStates::name(m_seen.state, m_given));
    fillStates();
    showStep();
}

void CDlgChequeChange::fillStates()
{
    const QVariant before = m_newState->currentData();
    const QSignalBlocker quiet(m_newState);
    m_newState->clear();
    const QList<ChequeState> states = ChequeStates::following(m_seen.state, m_given);
    for (const ChequeState state : states)
        m_newState->addItem(ChequeStates::name(state, m_given), static_cast<int>(state));
    if (before.isValid())
        m_newState->setCurrentIndex(m_newState->findData(before));
}

ChequeState CDlgChequeChange::chosen() const
{
    // Void is offered to nobody: nothing is chosen.
    return m_newState->currentIndex() < 0 ? ChequeState::Void : static_cast<ChequeState>(m_newState->currentData().toInt());
}

void CDlgChequeChange::showStep()
{
    const ChequeState to = chosen();
    const bool toAccount = ChequeStates::needsAccount(m_seen.state, to) && to != ChequeState::Void;
    for (QWidget *widget : {static_cast<QWidget *>(m_accountLabel), static_cast<QWidget *>(m_account)})
        widget->setVisible(toAccount);
    for (QWidget *widget : {static_cast<QWidget *>(m_personLabel), static_cast<QWidget *>(m_person), static_cast<QWidget *>(m_forLabel), static_cast<QWidget *>(m_for)})
        widget->setVisible(ChequeStates::needsPerson(to));
    fillAccounts();
    fillPurposes();
    const bool stopsCounting = to != ChequeState::Void && ChequeStates::counts(m_seen.state) && !ChequeStates::counts(to);
    FieldNote::of(m_newState)->setOwnText(stopsCounting ? u"آنچه با این چک پرداخت شده بود دوباره باز می‌شود."_s : QString());
}

// A bank collects and pays; only a received cheque can become cash.
void CDlgChequeChange::fillAccounts()
{
    const int before = m_account->currentIndex() < 0 ? m_deposited : m_account->currentData().toInt();
    const bool withCash = chosen() == ChequeState::Cleared && !m_given;
    m_account->clear();
    CTblHesabMoeen set;
    set.m_filter = KSql::formatted("iStatus=0 AND iHesabKolCode IN (%1,%2)", int(Accounts::bankKol), withCash ? int(Accounts::cashKol) : int(Accounts::bankKol));
    set.m_sort = "iHesabKolCode DESC,iCode";
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        m_account->addItem(set.m_sName, set.m_iCode);
    m_account->setCurrentIndex(qMax(0, m_account->findData(before)));
}

// What the endorsee has to get, the first of it chosen; last, nothing in particular.
void CDlgChequeChange::fillPurposes()
{
    m_items = m_person->personID() > 0 && chosen() == ChequeState::Endorsed ? ReceiptOwners::openItems(m_person->personID(), CTblReceipts::paid) : QList<OpenItem>();
    m_for->clear();
    for (const OpenItem &item : std::as_const(m_items))
        m_for->addItem(u"%1 (مانده %2)"_s.arg(item.purpose.text, DToMoney(item.rest)));
    m_for->addItem(u"علی‌الحساب"_s);
    m_for->setCurrentIndex(0);
}

// What the cheque is more than the chosen item's rest goes on to the next ones.
QList<ReceiptPosting::Part> CDlgChequeChange::pays() const
{
    const int at = m_for->currentIndex();
    QList<ReceiptPosting::Part> parts;
    if (at < 0 || at >= m_items.size())
        return parts;
    for (const ReceiptSpread::Share &share : ReceiptSpread::of(m_amount, m_items.at(at).purpose, m_items))
        parts.append({share.amount, {}, share.purpose});
    return parts;
}

QWidget *CDlgChequeChange::fieldOf(const QString &column) const
{
    if (column == u"date")
        return m_date;
    if (column == u"iAccount")
        return m_account;
    return column == u"iEndorsedID" ? static_cast<QWidget *>(m_person) : m_newState;
}

bool CDlgChequeChange::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus();
    return false;
}

bool CDlgChequeChange::OnOK()
{
    if (!m_date->isEntryValid())
        return refuse(m_date->entryError(), m_date);
    try {
        ChequeChanging::change({.seen = m_seen,
                                .to = chosen(),
                                .date = m_date->dateTime(),
                                .account = m_account->currentData().toInt(),
                                .endorsedID = m_person->personID(),
                                .desc = m_desc->text(),
                                .pays = pays()});
    } catch (const FieldRefused &refusal) {
        return refuse(refusal.userMessage(), fieldOf(refusal.column()));
    } catch (const KAccountingError &error) {
        refuse(error.userMessage(), m_newState);
        load();
        return false;
    }
    return true;
}

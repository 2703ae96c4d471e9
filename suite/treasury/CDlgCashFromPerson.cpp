// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/CDlgCashFromPerson.h"

#include "suite/db/KLookup.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/treasury/ReceiptPosting.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestDescription = 500;

}

CDlgCashFromPerson::CDlgCashFromPerson(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose)
    : KDialog(parent)
    , m_settings(OfficeSettings::read())
    , m_personID(personID)
    , m_purpose(purpose)
    , m_person(new KEdit)
    , m_amount(new KEdit(KEdit::Kind::Money))
    , m_words(new AmountWords)
    , m_desc(new KEdit)
    , m_date(new KDateEdit)
    , m_account(new KDropDown)
{
    setWindowTitle(u"دریافت نقدی"_s);
    SetSettingName(u"CashFromPerson"_s);
    build();
    m_person->setText(KLookup::name<CTblReceipts>(u"iPersonID", personID));
    m_person->setCursorPosition(0);
    // What is received is what the line shows.
    m_amount->setNumber(roundToDecimals(amount, m_settings.moneyDecimals()));
    m_desc->setText(desc);
    m_date->setDate(m_settings.serverTime().date());
    fillAccounts();
    showWords(m_amount->number());
    m_amount->setFocus();
}

CDlgCashFromPerson::~CDlgCashFromPerson() = default;

bool CDlgCashFromPerson::receive(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose)
{
    return CDlgCashFromPerson(personID, amount, desc, parent, purpose).exec() == Accepted;
}

void CDlgCashFromPerson::build()
{
    m_person->setReadOnly(true);
    m_desc->setMaxLength(longestDescription);
    m_words->setObjectName(u"amountInWords"_s);
    m_words->setMinimumHeight(LookSizes::scaled(LookSizes::labelLine));

    auto *unit = new QLabel(m_settings.moneyUnitName());
    LookFonts::applyHint(unit);
    auto *amountLine = new QHBoxLayout;
    amountLine->setSpacing(LookSizes::unit);
    amountLine->addWidget(m_amount, 1);
    amountLine->addWidget(unit);

    auto *page = new CardPage(560, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"شخص :"_s, m_person);
    grid->addField(labelFor(u"مبلغ :"_s, m_amount), new FieldNote(m_amount), amountLine, 1);
    grid->addLine(m_words);
    addLabelled(grid, u"شرح :"_s, m_desc, 4);
    addLabelled(grid, u"تاریخ :"_s, m_date);
    addLabelled(grid, u"دریافت در :"_s, m_account);
    setContent(page, createButtons());
    connect(m_amount, &KEdit::numberChanged, this, &CDlgCashFromPerson::showWords);
}

void CDlgCashFromPerson::fillAccounts()
{
    CTblHesabMoeen set;
    set.m_filter = KSql::formatted("iStatus=0 AND iHesabKolCode IN (%1,%2)", int(Accounts::cashKol), int(Accounts::bankKol));
    set.m_sort = "iCode";
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        m_account->addItem(set.m_sName, set.m_iCode);
}

void CDlgCashFromPerson::showWords(double amount)
{
    m_words->showAmount(amount, m_settings.moneyUnitName());
}

bool CDlgCashFromPerson::OnOK()
{
    auto refuse = [this](const QString &why, QWidget *field) {
        g_pDlgWarning->Show(why, this);
        field->setFocus();
        return false;
    };
    if (!m_amount->isEntryValid())
        return refuse(m_amount->entryError(), m_amount);
    if (m_amount->number() <= 0 || IsEquals(m_amount->number(), 0))
        return refuse(u"لطفا مبلغ را وارد نمایید."_s, m_amount);
    if (!m_date->isEntryValid())
        return refuse(m_date->entryError(), m_date);
    if (!m_date->dateTime().isValid())
        return refuse(u"لطفا تاریخ را وارد نمایید."_s, m_date);
    try {
        const int account = m_account->currentData().toInt();
        m_docNum = ReceiptPosting::save({.personID = m_personID,
                                         .date = m_date->dateTime(),
                                         .method = Accounts::kolOf(account) == Accounts::cashKol ? CTblReceipts::cash : CTblReceipts::bank,
                                         .account = account,
                                         .parts = {{m_amount->number(), m_desc->text(), m_purpose}}})
                       .constFirst()
                       .docNum;
    } catch (const KAccountingError &error) {
        return refuse(error.userMessage(), m_date);
    }
    return true;
}

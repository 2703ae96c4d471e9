// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/CDlgCashFromPerson.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/treasury/receiving/ReceiptPaper.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/receiving/ChequeFields.h"
#include "suite/treasury/receiving/MoneyOnAccount.h"
#include "suite/treasury/receiving/OpenItemField.h"
#include "suite/treasury/receiving/ReceiptSpread.h"
#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString settingName = u"CashFromPerson"_s;
const QString printKey = u"bPrint"_s;

QString onAccount()
{
    return u"علی‌الحساب"_s;
}

// Settlements and instalments are received in cash unless the user says otherwise, and the window says so.
QString titleOf(const CDlgCashFromPerson::Start &start)
{
    const bool isCash = start.kind == CTblReceipts::received && start.personID != 0 && start.method == CTblReceipts::cash;
    return isCash ? u"دریافت نقدی"_s : CTblReceipts::kindName(start.kind);
}

// What the user reads as the thing that is paid.
QString textOf(const ReceiptPurpose &purpose)
{
    return purpose.text.isEmpty() ? onAccount() : purpose.text;
}

}

CDlgCashFromPerson::CDlgCashFromPerson(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose)
    : CDlgCashFromPerson(Start{.personID = personID, .amount = amount, .desc = desc, .purpose = purpose}, parent)
{
}

CDlgCashFromPerson::CDlgCashFromPerson(const Start &start, QWidget *parent)
    : KDialog(parent)
    , m_settings(OfficeSettings::read())
    , m_start(start)
    , m_person(new KPersonField(u"شخص :"_s))
    , m_for(new OpenItemField(start.kind))
    , m_amount(new KEdit(KEdit::Kind::Money))
    , m_words(new AmountWords)
    , m_desc(new KEdit)
    , m_date(new KDateEdit)
    , m_method(new KDropDown)
    , m_account(new KDropDown)
    , m_cheque(new ChequeFields)
    , m_print(new QCheckBox(u"چاپ رسید پس از ثبت"_s))
{
    setWindowTitle(titleOf(start));
    build();
    connectFields();
    begin();
}

CDlgCashFromPerson::~CDlgCashFromPerson() = default;

bool CDlgCashFromPerson::receive(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose)
{
    return !open({.personID = personID, .amount = amount, .desc = desc, .purpose = purpose}, parent).isEmpty();
}

QList<ReceiptPosting::Posted> CDlgCashFromPerson::run(const Start &start, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(u"Receipts"_s);
    if (!security.CheckWriteSecurity())
        return {};
    if (GetDBSetting()->IsClosedDB()) {
        g_pDlgWarning->Show(OfficeSettings::closedMessage(), parent);
        return {};
    }
    return open(start, parent);
}

QList<ReceiptPosting::Posted> CDlgCashFromPerson::open(const Start &start, QWidget *parent)
{
    CDlgCashFromPerson dialog(start, parent);
    if (dialog.exec() != Accepted)
        return {};
    // What goes wrong on the way to the paper takes nothing back.
    KErrorBoundary::guarded(parent, [&dialog] { dialog.printIfWanted(); });
    return dialog.posted();
}

int CDlgCashFromPerson::docNum() const
{
    return m_posted.isEmpty() ? 0 : m_posted.constFirst().docNum;
}

void CDlgCashFromPerson::build()
{
    const bool isPaid = m_start.kind == CTblReceipts::paid;
    m_desc->setMaxLength(CTblReceipts::longestDescription);
    m_words->setObjectName(u"amountInWords"_s);
    m_words->setMinimumHeight(LookSizes::scaled(LookSizes::labelLine));

    m_page = new CardPage(640, this);
    FormGrid *grid = m_page->addForm();
    addLabelled(grid, u"شخص :"_s, m_person, 2);
    addLabelled(grid, u"بابت :"_s, m_for, 2);
    grid->addField(labelFor(u"مبلغ :"_s, m_amount), new FieldNote(m_amount), buildAmount(), 2);
    grid->addLine(m_words);
    addLabelled(grid, u"شرح :"_s, m_desc, 4);
    addLabelled(grid, u"تاریخ :"_s, m_date);
    addLabelled(grid, u"روش :"_s, m_method);
    m_accountLabel = addLabelled(grid, isPaid ? u"پرداخت از :"_s : u"دریافت در :"_s, m_account, 2);
    m_page->cards()->addCard(m_cheque);
    setContent(m_page, createButtons());
    footer()->addWidget(m_print);
    m_print->setAccessibleName(m_print->text());
    m_print->setChecked(ReadSetting(settingName, printKey, 0) != 0);
}

QHBoxLayout *CDlgCashFromPerson::buildAmount()
{
    auto *unit = new QLabel(m_settings.moneyUnitName());
    LookFonts::applyHint(unit);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit);
    line->addWidget(m_amount, 1);
    line->addWidget(unit);
    return line;
}

void CDlgCashFromPerson::connectFields()
{
    connect(m_person, &KPersonField::changed, this, &CDlgCashFromPerson::personChosen);
    connect(m_for, &QComboBox::currentIndexChanged, this, &CDlgCashFromPerson::itemChosen);
    connect(m_amount, &KEdit::numberChanged, this, &CDlgCashFromPerson::showWords);
    connect(m_method, &QComboBox::currentIndexChanged, this, &CDlgCashFromPerson::methodChosen);
}

void CDlgCashFromPerson::begin()
{
    const bool isPersonKnown = m_start.personID != 0;
    m_person->setPersonID(m_start.personID);
    m_person->setButtonsVisible(!isPersonKnown);
    for (const CTblReceipts::Method method : {CTblReceipts::cash, CTblReceipts::bank, CTblReceipts::card, CTblReceipts::cheque})
        m_method->addItem(CTblReceipts::methodName(method), method);
    m_method->setCurrentIndex(std::max(0, m_method->findData(int(m_start.method))));
    m_date->setDate(m_settings.serverTime().date());
    m_cheque->setCheque(m_start.cheque);
    m_desc->setText(m_start.desc);
    // What is received is what the line shows.
    m_amount->setNumber(roundToDecimals(m_start.amount, m_settings.moneyDecimals()));
    if (m_start.purpose.recordKind != 0)
        m_for->setFixed(m_start.purpose, m_start.desc);
    personChosen();
    methodChosen();
    showWords(m_amount->number());
    if (isPersonKnown)
        m_amount->setFocus();
    else
        m_person->setFocus();
}

void CDlgCashFromPerson::personChosen()
{
    m_cheque->setDrawerHint(m_person->name());
    showOnAccount();
    // An amount that somebody else asks for, and without saying what for, stays on account.
    const bool isAsked = m_start.amount > 0;
    m_for->setPerson(m_person->personID(), isAsked ? OpenItemField::Proposal::OnAccount : OpenItemField::Proposal::FirstDue);
}

// What the person has handed over already, and was for nothing yet, is seen before more is taken.
void CDlgCashFromPerson::showOnAccount()
{
    const double sum = m_person->personID() > 0 ? MoneyOnAccount::of(m_person->personID()) : 0;
    const QString text = u"علی‌الحساب %1: %2 %3"_s.arg(sum > 0 ? u"دریافت شده"_s : u"پرداخت شده"_s, DToMoney(std::abs(sum)), m_settings.moneyUnitName());
    FieldNote::of(m_person)->setOwnText(IsEquals(sum, 0) ? QString() : text);
}

void CDlgCashFromPerson::itemChosen()
{
    const ReceiptPurpose chosen = m_for->purpose();
    const OpenItem *item = m_for->item();
    showRest();
    if (!m_for->isChosen())
        return;
    describe(chosen.recordKind != 0 ? u"بابت %1"_s.arg(chosen.text)
                                    : u"%1 %2"_s.arg(CTblReceipts::kindName(m_start.kind), onAccount()));
    // What the user typed stays.
    const bool isProposed = m_amount->number() <= 0 || IsEquals(m_amount->number(), m_proposedAmount);
    const bool wasProposed = m_proposedAmount > 0;
    if (!isProposed || (!item && !wasProposed))
        return;
    m_proposedAmount = item ? roundToDecimals(item->rest, m_settings.moneyDecimals()) : 0;
    if (item)
        m_amount->setNumber(m_proposedAmount);
    else
        m_amount->clear();
}

void CDlgCashFromPerson::describe(const QString &text)
{
    if (!m_desc->text().isEmpty() && m_desc->text() != m_proposedDesc)
        return;
    m_proposedDesc = text.left(CTblReceipts::longestDescription);
    m_desc->setText(m_proposedDesc);
    m_desc->setCursorPosition(0);
}

void CDlgCashFromPerson::showRest()
{
    QStringList texts;
    if (const OpenItem *item = m_for->item()) {
        texts.append(u"مانده %1 %2"_s.arg(DToMoney(item->rest), m_settings.moneyUnitName()));
        if (item->due.isValid())
            texts.append(u"سررسید %1"_s.arg(shamsiText(item->due.date())));
    }
    FieldNote::of(m_for)->setOwnText(texts.join(u"، "_s));
}

void CDlgCashFromPerson::showWords(double amount)
{
    m_words->showAmount(amount, m_settings.moneyUnitName());
}

CTblReceipts::Method CDlgCashFromPerson::method() const
{
    return static_cast<CTblReceipts::Method>(m_method->currentData().toInt());
}

void CDlgCashFromPerson::methodChosen()
{
    const bool byCheque = method() == CTblReceipts::cheque;
    m_cheque->setVisible(byCheque);
    m_account->setVisible(!byCheque);
    m_accountLabel->setVisible(!byCheque);
    fillAccounts();
    followFields();
}

// The fields of the cheque come and go, and the window with them. The area in which they scroll keeps the height it once asked for.
void CDlgCashFromPerson::followFields()
{
    if (!isVisible())
        return;
    const int around = height() - m_page->parentWidget()->height();
    const int room = screen()->availableGeometry().height();
    resize(width(), std::min(around + m_page->sizeHint().height(), room));
    const int below = frameGeometry().bottom() - screen()->availableGeometry().bottom();
    if (below > 0)
        move(x(), std::max(screen()->availableGeometry().top(), y() - below));
}

void CDlgCashFromPerson::fillAccounts()
{
    const int before = m_account->currentData().toInt();
    m_account->clear();
    CTblHesabMoeen set;
    set.m_filter = KSql::formatted("iStatus=0 AND iHesabKolCode=%1", method() == CTblReceipts::cash ? Accounts::cashKol : Accounts::bankKol);
    set.m_sort = "iCode";
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        m_account->addItem(set.m_sName, set.m_iCode);
    m_account->setCurrentIndex(std::max(0, m_account->findData(before)));
}

bool CDlgCashFromPerson::refuse(const QString &why, QWidget *field)
{
    g_pDlgWarning->Show(why, this);
    field->setFocus();
    return false;
}

QWidget *CDlgCashFromPerson::fieldOf(const QString &column) const
{
    const std::pair<QString, QWidget *> fields[] = {
        {u"iPersonID"_s, m_person}, {u"dAmount"_s, m_amount}, {u"date"_s, m_date}, {u"iAccount"_s, m_account}};
    for (const auto &[name, field] : fields) {
        if (name == column)
            return field;
    }
    QWidget *ofCheque = m_cheque->fieldOf(column);
    return ofCheque ? ofCheque : m_amount;
}

// What a field itself refuses; the rest is refused where it is saved.
bool CDlgCashFromPerson::checkEntries()
{
    if (m_person->personID() == 0)
        return refuse(u"لطفا شخص را انتخاب نمایید."_s, m_person);
    if (!m_for->isChosen())
        return refuse(u"آنچه انتخاب شده بود دیگر باز نیست. لطفا «بابت» را انتخاب نمایید."_s, m_for);
    if (!m_amount->isEntryValid())
        return refuse(m_amount->entryError(), m_amount);
    if (m_amount->number() <= 0 || IsEquals(m_amount->number(), 0))
        return refuse(u"لطفا مبلغ را وارد نمایید."_s, m_amount);
    if (!m_date->isEntryValid())
        return refuse(m_date->entryError(), m_date);
    if (!m_date->dateTime().isValid())
        return refuse(u"لطفا تاریخ را وارد نمایید."_s, m_date);
    QWidget *field = nullptr;
    if (method() != CTblReceipts::cheque)
        return true;
    const QString problem = m_cheque->problem(&field);
    return problem.isEmpty() || refuse(problem, field);
}

bool CDlgCashFromPerson::isWanted(const QString &question, QWidget *field)
{
    if (g_pDlgYesNo->Ask(question, this) == KMessageDialog::Yes)
        return true;
    field->setFocus();
    return false;
}

// A day that is rarely meant. What the fiscal year refuses is refused where it is saved.
bool CDlgCashFromPerson::areDatesWanted()
{
    const QDate day = m_date->date();
    const QDate today = GetDBSetting()->GetDBServerDate().date();
    const QString kind = CTblReceipts::kindName(m_start.kind);
    if (!m_settings.fiscalYearRefusal(day, kind).isEmpty())
        return true;
    if (day > today && !isWanted(u"تاریخ %1 (%2) پس از امروز (%3) است. آیا با همین تاریخ ثبت شود؟"_s.arg(kind, shamsiText(day), shamsiText(today)), m_date))
        return false;
    const QDate due = m_cheque->cheque().due.date();
    if (method() != CTblReceipts::cheque || !due.isValid() || due >= day)
        return true;
    return isWanted(u"سررسید چک (%1) پیش از تاریخ %2 (%3) است. آیا با همین سررسید ثبت شود؟"_s.arg(shamsiText(due), kind, shamsiText(day)),
                    m_cheque->fieldOf(u"dateDue"_s));
}

// More than the one thing still owes goes on to others, which the user must want.
bool CDlgCashFromPerson::mayGoOn(double surplus)
{
    const QString unit = m_settings.moneyUnitName();
    QString question = u"مبلغ %1 %2 بیشتر از مانده «%3» است. آیا مازاد چنین ثبت شود؟"_s.arg(DToMoney(surplus), unit, m_for->currentText());
    const QList<ReceiptSpread::Share> spread = shares();
    for (qsizetype i = 1; i < spread.size(); ++i)
        question += u"\n%1 : %2 %3"_s.arg(textOf(spread.at(i).purpose), DToMoney(spread.at(i).amount), unit);
    if (g_pDlgYesNo->Ask(question, this) == KMessageDialog::Yes)
        return true;
    m_amount->setFocus();
    m_amount->selectAll();
    return false;
}

QList<ReceiptSpread::Share> CDlgCashFromPerson::shares() const
{
    if (!m_start.spreads)
        return {{m_amount->number(), m_for->purpose()}};
    return ReceiptSpread::of(m_amount->number(), m_for->purpose(), m_for->items());
}

QList<ReceiptPosting::Part> CDlgCashFromPerson::parts() const
{
    QList<ReceiptPosting::Part> parts;
    for (const ReceiptSpread::Share &share : shares()) {
        const QString desc = parts.isEmpty() ? m_desc->text() : u"مازاد %1، بابت %2"_s.arg(m_for->currentText(), textOf(share.purpose));
        parts.append({share.amount, desc.left(CTblReceipts::longestDescription), share.purpose});
    }
    return parts;
}

ReceiptPosting::Handover CDlgCashFromPerson::handover() const
{
    ReceiptPosting::Handover handover{.kind = m_start.kind,
                                      .personID = m_person->personID(),
                                      .date = m_date->dateTime(),
                                      .method = method(),
                                      .parts = parts()};
    if (method() == CTblReceipts::cheque) {
        handover.cheque = m_cheque->cheque();
        if (handover.cheque->drawer.isEmpty() && m_start.kind == CTblReceipts::received)
            handover.cheque->drawer = m_person->name().left(CTblCheques::longestDrawer);
    } else {
        handover.account = m_account->currentData().toInt();
    }
    return handover;
}

bool CDlgCashFromPerson::OnOK()
{
    if (!checkEntries() || !areDatesWanted())
        return false;
    const double surplus = m_start.spreads ? ReceiptSpread::surplus(m_amount->number(), m_for->purpose(), m_for->items()) : 0;
    if (surplus > 0 && !mayGoOn(surplus))
        return false;
    try {
        m_posted = ReceiptPosting::save(handover());
    } catch (const FieldRefused &refused) {
        return refuse(refused.userMessage(), fieldOf(refused.column()));
    } catch (const KAccountingError &error) {
        refuse(error.userMessage(), m_amount);
        // Another desk may have received for the same.
        m_for->reload();
        return false;
    }
    WriteSetting(settingName, printKey, m_print->isChecked() ? 1 : 0);
    return true;
}

void CDlgCashFromPerson::printIfWanted()
{
    if (!m_print->isChecked())
        return;
    QList<int> keys;
    for (const ReceiptPosting::Posted &posted : std::as_const(m_posted))
        keys.append(posted.receiptID);
    ReceiptPaper::show(keys, parentWidget());
}

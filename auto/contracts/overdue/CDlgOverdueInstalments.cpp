// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/CDlgOverdueInstalments.h"

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/InstalmentFollowUp.h"
#include "auto/contracts/instalments/InstalmentQuestions.h"
#include "auto/contracts/instalments/InstalmentState.h"
#include "auto/contracts/instalments/LateFee.h"
#include "auto/contracts/overdue/CTblDueInstalments.h"
#include "auto/contracts/overdue/DueDays.h"
#include "auto/contracts/overdue/OverdueFilter.h"
#include "auto/db/CTblAutomobilPayments.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/messages/CDlgMessageToPerson.h"
#include "suite/crm/messages/MessageRows.h"
#include "suite/crm/persons/PersonFilter.h"
#include "suite/treasury/cheques/CDlgDueCheques.h"
#include "suite/treasury/followups/CDlgFollowUp.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/values/Money.h"

#include <QLabel>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString deskForm = InstalmentFollowUp::form();
const QString contractForm = u"AutomobilContracts"_s;

// A cell that is empty where there is nothing, so that the eye finds what there is.
KListColumn::Cell amountCell(double amount)
{
    return IsEquals(amount, 0) ? KListColumn::Cell{{}, 0.0} : KListColumn::money(amount);
}

QDate officeToday()
{
    return GetDBSetting()->GetDBServerDate().date();
}

// Each once.
QList<int> contractsOf(CTblDueInstalments &instalments)
{
    QSet<int> contracts;
    for (; !instalments.IsEOF(); instalments.MoveNext())
        contracts.insert(instalments.m_iContractID);
    if (!contracts.isEmpty())
        instalments.MoveTo(0);
    return contracts.values();
}

}

CDlgOverdueInstalments::CDlgOverdueInstalments(QWidget *parent)
    : KListPage(u"اقساط و سررسیدها"_s, deskForm, u"OverdueInstalments"_s, parent)
    , m_total(new QLabel)
{
    build();
    m_total->setObjectName(u"total"_s);
    if (auto *card = qobject_cast<KListCard *>(list()->parentWidget()))
        card->addToFoot(m_total);
}

CDlgOverdueInstalments::~CDlgOverdueInstalments() = default;

void CDlgOverdueInstalments::showContract(int number)
{
    auto *page = new CDlgOverdueInstalments;
    page->filters().set(u"span", int(DueDays::AllOpen));
    page->filters().set(u"contract", number);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

QList<KListColumn> CDlgOverdueInstalments::columnTable() const
{
    using I = CTblDueInstalments;
    constexpr auto right = Qt::AlignRight;
    const auto days = [this](const I &row) { return KListColumn::number(DueDays::overdue(row.m_date.date(), m_today)); };
    const auto person = [](const I &row) { return KListColumn::Cell{row.payer()}; };
    const auto phone = [](const I &row) { return KListColumn::Cell{row.telephone()}; };
    const auto contract = [](const I &row) { return KListColumn::number(row.contractNumber()); };
    const auto amount = [this](const I &row) { return KListColumn::money(amountOf(row).toReceive); };
    const auto received = [this](const I &row) { return amountCell(amountOf(row).received); };
    const auto rest = [this](const I &row) { return KListColumn::money(restOf(row)); };
    const auto fee = [this](const I &row) { return amountCell(lateFeeOf(row)); };
    // What is late stands out in the figures that say so.
    const auto isOverdue = [this](KMySQL &record) {
        return DueDays::overdue(static_cast<const I &>(record).m_date.date(), m_today) > 0;
    };
    const auto promiseIsOver = [this](KMySQL &record) {
        const QDate promised = static_cast<const I &>(record).m_datePromised.date();
        return promised.isValid() && promised < m_today;
    };
    return {
        KListColumn::rowNumber(30),
        {.key = u"due"_s, .title = u"سررسید"_s, .width = 55, .sortKey = u"ap.date"_s, .column = u"ap.date"_s, .warns = isOverdue},
        {.key = u"days"_s, .title = u"روز تأخیر"_s, .width = 40, .cell = KListColumn::of<I>(days), .warns = isOverdue},
        {.key = u"person"_s, .title = u"شخص"_s, .width = 100, .alignment = right, .sortKey = u"p.sName2"_s, .cell = KListColumn::of<I>(person)},
        {.key = u"mobile"_s, .title = u"موبایل"_s, .width = 62, .sortKey = u"p.sMobile"_s, .cell = KListColumn::of<I>(phone)},
        {.key = u"contract"_s, .title = u"شماره قرارداد"_s, .width = 50, .sortKey = u"ac.iCode"_s, .cell = KListColumn::of<I>(contract)},
        {.key = u"car"_s, .title = u"خودرو"_s, .width = 80, .alignment = right, .sortKey = u"ac.sAutomobilName"_s, .column = u"ac.sAutomobilName"_s},
        {.key = u"number"_s, .title = u"قسط"_s, .width = 30, .sortKey = u"ap.iNum"_s, .column = u"ap.iNum"_s},
        {.key = u"amount"_s, .title = u"مبلغ قسط"_s, .width = 70, .alignment = right, .sortKey = u"ap.dAmount"_s, .cell = KListColumn::of<I>(amount)},
        {.key = u"received"_s, .title = u"دریافت شده"_s, .width = 70, .alignment = right, .cell = KListColumn::of<I>(received)},
        {.key = u"rest"_s, .title = u"مانده"_s, .width = 70, .alignment = right, .cell = KListColumn::of<I>(rest), .sums = true, .warns = isOverdue},
        {.key = u"lateFee"_s, .title = u"جریمه دیرکرد"_s, .width = 60, .alignment = right, .cell = KListColumn::of<I>(fee)},
        {.key = u"note"_s, .title = u"آخرین تماس"_s, .width = 110, .alignment = right, .sortKey = u"fu.sNote"_s, .column = u"fu.sNote"_s},
        {.key = u"promised"_s, .title = u"وعده پرداخت"_s, .width = 55, .sortKey = u"fu.datePromised"_s, .column = u"fu.datePromised"_s, .warns = promiseIsOver},
    };
}

QList<KListFilter> CDlgOverdueInstalments::filterTable() const
{
    QList<KListFilter> filters = overdueFilters(&officeToday);
    filters.prepend({.key = u"counts"_s, .clause = [](const QVariant &, int) { return CTblDueInstalments::condition(); }});
    return filters;
}

KListTraits CDlgOverdueInstalments::traits() const
{
    KListTraits traits;
    traits.hasOwnTotals = true;
    traits.hasRowLimit = false; // its sums are those of all that is asked for
    traits.searchColumn = 6;
    traits.readsWholeRecords = true;
    traits.makePerson = personFilter();
    traits.emptyIcon = u":/icons/calendar.svg"_s;
    traits.emptyText = u"هیچ قسط پرداخت نشده‌ای نیست."_s;
    return traits;
}

std::vector<KListCommand> CDlgOverdueInstalments::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"receive"_s, u"دریافت قسط"_s, onRow, [this] { receive(); }, QKeySequence(Qt::Key_F7), u":/icons/receipt.svg"_s, Write, u"Receipts"_s},
        {u"followUp"_s, u"پیگیری"_s, onRow, [this] { followUp(); }, QKeySequence(Qt::Key_F4), u":/icons/reminder.svg"_s, Write},
        {u"message"_s, u"متن پیام"_s, C::NeedsRow, [this] { CDlgMessageToPerson::run(u"instalment"_s, MessageRows::marked(*list()), this); }, QKeySequence(Qt::CTRL | Qt::Key_M), u":/icons/edit.svg"_s, Read},
        {u"showContract"_s, u"نمایش قرارداد"_s, C::NeedsRow | C::StartsGroup, [this] { showRecord(); }, QKeySequence(Qt::Key_F3), u":/icons/show.svg"_s, Read, contractForm},
        {u"plan"_s, u"اقساط قرارداد"_s, C::NeedsRow, [this] { showPlan(); }, {}, u":/icons/calendar.svg"_s, Read, contractForm},
        {u"statement"_s, u"صورتحساب"_s, C::NeedsRow, [this] { showStatement(); }, QKeySequence(Qt::Key_F6), u":/icons/document.svg"_s},
        {u"cheques"_s, u"چک‌های سررسید"_s, 0, [this] { CDlgDueCheques::Show(this); }, {}, u":/icons/table.svg"_s, Access, u"Cheques"_s},
        printCommand(C::StartsGroup),
    };
}

std::unique_ptr<KMySQL> CDlgOverdueInstalments::makeRecords() const
{
    return std::make_unique<CTblDueInstalments>();
}

void CDlgOverdueInstalments::beginRows(KMySQL &records)
{
    const OfficeSettings office = OfficeSettings::read({ContractSettings::section()});
    m_today = office.serverTime().date();
    m_decimals = office.moneyDecimals();
    m_settings = ContractSettings::of(office);
    m_amounts = DueAmounts::read(contractsOf(static_cast<CTblDueInstalments &>(records)), m_decimals);
}

void CDlgOverdueInstalments::showTotals(const QVector<KListModel::Row> &rows)
{
    const int rest = list()->columnOf(u"rest");
    const int days = list()->columnOf(u"days");
    double open = 0;
    double overdue = 0;
    for (const KListModel::Row &row : rows) {
        open += row.cells.at(rest).value.toDouble();
        if (row.cells.at(days).value.toInt() > 0)
            overdue += row.cells.at(rest).value.toDouble();
    }
    m_total->setText(u"جمع مانده : %1     معوق : %2"_s.arg(DToMoney(open), DToMoney(overdue)));
}

DueAmounts::Amount CDlgOverdueInstalments::amountOf(const CTblDueInstalments &instalment) const
{
    return m_amounts.value(instalment.m_iID);
}

double CDlgOverdueInstalments::restOf(const CTblDueInstalments &instalment) const
{
    const DueAmounts::Amount amount = amountOf(instalment);
    return InstalmentState::of(amount.toReceive, amount.received, false).rest;
}

double CDlgOverdueInstalments::lateFeeOf(const CTblDueInstalments &instalment) const
{
    return LateFee::of(restOf(instalment), DueDays::overdue(instalment.m_date.date(), m_today), m_settings.lateFeePercent,
                       m_settings.lateFeeGrace, m_decimals);
}

void CDlgOverdueInstalments::activated(int)
{
    if (!runCommand(u"receive"))
        runCommand(u"showContract");
}

KListReport CDlgOverdueInstalments::reportSpec() const
{
    return {u"اقساط و سررسیدها"_s, u"گالری اتومبیل"_s, u"اقساط و سررسیدها"_s, {{u"Total"_s, totalText()}}};
}

// As the table has it now: another desk may have made a new plan since the list was filled.
CDlgOverdueInstalments::Chosen CDlgOverdueInstalments::chosen()
{
    CTblAutomobilPayments payment;
    if (loadSelected(payment))
        return {payment.m_iID, payment.m_iAutomobilContractID, payment.m_iPersonID, payment.m_iNum};
    if (list()->currentKey() > 0) {
        g_pDlgWarning->Show(u"این قسط دیگر در برنامه اقساط قرارداد نیست. فهرست دوباره خوانده شد."_s, this);
        refill();
    }
    return {};
}

void CDlgOverdueInstalments::receive()
{
    const Chosen row = chosen();
    if (row.paymentID == 0 || isChangeBlocked() || !InstalmentQuestions::receive(row.contractID, row.paymentID, this))
        return;
    refill();
    // Once it is paid its row is gone, and the next command must not be about the person who moved into its place.
    list()->selectKey(row.paymentID);
}

void CDlgOverdueInstalments::followUp()
{
    const Chosen row = chosen();
    if (row.paymentID == 0 || isChangeBlocked())
        return;
    const int shown = list()->currentRow();
    const QString about = u"%1     %2     قسط شماره %3 قرارداد %4     سررسید %5     مانده %6"_s
                              .arg(list()->cellText(shown, u"person"), list()->cellText(shown, u"mobile"), QString::number(row.number),
                                   list()->cellText(shown, u"contract"), list()->cellText(shown, u"due"), list()->cellText(shown, u"rest"));
    if (CDlgFollowUp::run(InstalmentFollowUp::subject(row.contractID, row.paymentID, row.number), about, this))
        refill();
}

void CDlgOverdueInstalments::showRecord()
{
    KSecurity contracts;
    contracts.SetFormName(contractForm);
    const Chosen row = chosen();
    bool changed = false;
    if (row.contractID > 0 && contracts.CheckReadSecurity())
        CDlgAddAutomobilContract::ShowContract(row.contractID, changed, this);
    if (changed)
        refill();
}

void CDlgOverdueInstalments::showPlan()
{
    KSecurity contracts;
    contracts.SetFormName(contractForm);
    const Chosen row = chosen();
    if (row.contractID == 0 || !contracts.CheckReadSecurity())
        return;
    CDlgCalcPayment::Run(row.contractID, row.personID, 0, this, isReadOnly() || !IsGranted(contractForm, Modify));
    refill();
}

void CDlgOverdueInstalments::showStatement()
{
    const Chosen row = chosen();
    if (row.paymentID > 0 && row.personID == 0)
        g_pDlgMessage->Show(u"خریدار این قرارداد در فهرست اشخاص نیست و صورتحسابی ندارد."_s, this);
    CDlgAccountDocs::ShowPerson(row.personID, this);
}

QString CDlgOverdueInstalments::totalText() const
{
    return m_total->text();
}

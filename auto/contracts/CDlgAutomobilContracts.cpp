// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"

#include "auto/contracts/CDlgAutomobilContractSetting.h"
#include "auto/contracts/ContractFilter.h"
#include "auto/contracts/cars/CarSale.h"
#include "auto/contracts/FirstContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/overdue/CDlgOverdueInstalments.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/printing/ContractFilingDialogs.h"
#include "auto/contracts/printing/ContractPrintingDialogs.h"
#include "auto/contracts/receipts/CDlgContractReceipts.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/contracts/receipts/SettlementQuestions.h"
#include "auto/contracts/templates/CDlgContractTemplates.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/LeftPlaceholders.h"
#include "auto/lists/WordCells.h"
#include "auto/reports/charts/CDlgCharts.h"
#include "auto/reports/income/CDlgAutoFullReport.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/messages/CDlgMessageToPerson.h"
#include "suite/crm/messages/MessageRows.h"
#include "suite/crm/persons/PersonFilter.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/utility/lists/KExtListCtrl.h"

using namespace Qt::StringLiterals;

namespace {

QString receivedKey(int side)
{
    return side == ContractSide::seller ? u"receivedSeller"_s : u"receivedBuyer"_s;
}

// The amounts of a void contract count nowhere.
bool isInForce(KMySQL &record)
{
    return static_cast<const CTblAutomobilContracts &>(record).m_iStatus == 0;
}

// What is over stands out while the contract still counts.
bool isExpired(KMySQL &record)
{
    const auto &contract = static_cast<const CTblAutomobilContracts &>(record);
    const QDate day = contract.m_dateExpiration.date();
    return contract.m_iArchiveUserID == 0 && contract.m_iStatus == 0 && day.isValid() && day < QDate::currentDate();
}

}

CDlgAutomobilContracts::CDlgAutomobilContracts(QWidget *parent)
    : KListPage(u"قرارداد"_s, u"AutomobilContracts"_s, u"AutomobilContracts"_s, parent)
    , m_printing(contractPrintingDialogs(this))
{
    build();
}

CDlgAutomobilContracts::~CDlgAutomobilContracts() = default;

QList<KListColumn> CDlgAutomobilContracts::columnTable() const
{
    return {
        KListColumn::rowNumber(),
        {.key = u"type"_s, .title = u"نوع قرارداد"_s, .sortKey = u"iContractType"_s, .column = u"iContractType"_s, .show = wordCells(WordLists::contractTypes())},
        // A party that is not in the list of persons is shown by the name in the contract.
        {.key = u"seller"_s, .title = u"فروشنده"_s, .alignment = Qt::AlignRight, .column = u"sName1"_s, .lookup = u"iPersonFirstID"_s},
        {.key = u"buyer"_s, .title = u"خریدار"_s, .alignment = Qt::AlignRight, .column = u"sName2"_s, .lookup = u"iPersonSecondID"_s},
        {.key = u"document"_s, .title = u"شماره سند"_s, .sortKey = u"iDocNum"_s, .column = u"iDocNum"_s},
        {.key = u"explanation"_s, .title = u"شرح قرارداد"_s, .width = 150, .alignment = Qt::AlignRight, .sortKey = u"sExplain"_s, .column = u"sExplain"_s},
        {.key = u"contractDate"_s, .title = u"تاریخ عقد"_s, .sortKey = u"dateContract"_s, .column = u"dateContract"_s},
        {.key = u"expirationDate"_s, .title = u"تاریخ انقضاء"_s, .sortKey = u"dateExpiration"_s, .column = u"dateExpiration"_s, .reads = {u"iArchiveUserID"_s, u"iStatus"_s}, .warns = isExpired},
        {.key = u"description"_s, .title = u"توضیحات"_s, .width = 150, .alignment = Qt::AlignRight, .sortKey = u"sDesc"_s, .column = u"sDesc"_s},
        {.key = u"archived"_s, .title = u"وضعیت بایگانی"_s, .width = 50, .alignment = Qt::AlignRight, .sortKey = u"iArchiveUserID"_s, .column = u"iArchiveUserID"_s, .show = KListColumn::yesOrDash},
        receivedColumn(ContractSide::seller),
        receivedColumn(ContractSide::buyer),
        {.key = u"code"_s, .title = u"کد قرارداد"_s, .width = 45, .sortKey = u"iCode"_s, .column = u"iCode"_s, .optional = true},
        {.key = u"amount"_s, .title = u"مبلغ"_s, .sortKey = u"dAmount"_s, .column = u"dAmount"_s, .reads = {u"iStatus"_s}, .optional = true, .sums = true, .counts = isInForce},
        {.key = u"commission"_s, .title = u"کمیسیون"_s, .width = 70, .sortKey = u"dCommission"_s, .column = u"dCommission"_s, .reads = {u"iStatus"_s}, .optional = true, .sums = true, .counts = isInForce},
        {.key = u"car"_s, .title = u"خودرو"_s, .alignment = Qt::AlignRight, .sortKey = u"sAutomobilName"_s, .column = u"sAutomobilName"_s, .optional = true},
        {.key = u"plate"_s, .title = u"پلاک"_s, .width = 70, .sortKey = u"sNumOfPlates"_s, .column = u"sNumOfPlates"_s, .isCode = true, .optional = true},
    };
}

// How much of what that side owes has been received: the cell holds what it owes until all rows are there.
KListColumn CDlgAutomobilContracts::receivedColumn(int side) const
{
    const auto charged = [this, side](KMySQL &record, int) {
        return KListColumn::money(ContractDues::charged(static_cast<const CTblAutomobilContracts &>(record), side, m_levySeparate));
    };
    return {.key = receivedKey(side), .title = u"دریافت از "_s + ContractSide::nameOf(side), .width = 60, .cell = charged, .reads = ContractDues::chargedColumns(), .optional = true};
}

bool CDlgAutomobilContracts::completesRows() const
{
    return list()->isColumnShown(receivedKey(ContractSide::seller)) || list()->isColumnShown(receivedKey(ContractSide::buyer));
}

void CDlgAutomobilContracts::beginRows(KMySQL &)
{
    if (completesRows())
        m_levySeparate = ContractSettings::load().levySeparate;
}

void CDlgAutomobilContracts::completeRows(QVector<KListModel::Row> &rows)
{
    QList<int> sides{ContractSide::seller, ContractSide::buyer};
    sides.removeIf([this](int side) { return !list()->isColumnShown(receivedKey(side)); });
    QList<int> contracts;
    for (const KListModel::Row &row : std::as_const(rows))
        contracts.append(row.key);
    const QHash<int, ContractDues::Sides> received = ContractDues::received(contracts);
    for (KListModel::Row &row : rows) {
        const ContractDues::Sides ofRow = received.value(row.key);
        for (const int side : std::as_const(sides)) {
            KListModel::Cell &cell = row.cells[list()->columnOf(receivedKey(side))];
            cell = {ContractDues::Due{cell.value.toDouble(), ofRow.at(static_cast<std::size_t>(side - 1))}.inWords()};
        }
    }
}

QList<KListFilter> CDlgAutomobilContracts::filterTable() const
{
    return contractFilters();
}

KListTraits CDlgAutomobilContracts::traits() const
{
    KListTraits traits;
    traits.hasPlaceholders = true;
    traits.makePerson = personFilter(u"..."_s);
    traits.searchColumn = 6; // after the check box, which saves the list a line of height
    traits.emptyIcon = u":/icons/contract.svg"_s;
    traits.emptyText = u"هنوز قراردادی ثبت نشده است."_s;
    return traits;
}

std::vector<KListCommand> CDlgAutomobilContracts::commands()
{
    using C = KListCommand;
    constexpr int onRow = C::NeedsRow | C::HiddenInReadOnly;
    return {
        {u"reset"_s, u"پيش فرض"_s, C::NotDisplayed, [this] { resetFilter(); }},
        {u"new"_s, u"جديد"_s, C::HiddenInReadOnly, [this] { addContract(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ويرايش"_s, onRow, [this] { editContract(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"delete"_s, u"حذف"_s, onRow, [this] { deleteContract(); }, QKeySequence(Qt::Key_Delete),
         u":/icons/delete.svg"_s, Delete},
        {u"show"_s, u"نمايش"_s, onRow, [this] { showSelected(); }, {}, u":/icons/show.svg"_s, Read},
        {u"archive"_s, u"بايگاني شد"_s, onRow, [this] { archiveContract(); }, {}, u":/icons/archive.svg"_s, Access, u"AutomobilContractArchive"_s},
        printCommand(C::HiddenInSelect | C::StartsGroup),
        {u"printContract"_s, u"چاپ قرارداد "_s, onRow, [this] { printContract(); }, {}, u":/icons/print.svg"_s, Read},
        {u"settleSeller"_s, u"تسويه با فروشنده"_s, onRow | C::StartsGroup, [this] { settle(ContractSide::seller); }, {}, u":/icons/receipt.svg"_s, Write, u"Receipts"_s},
        {u"settleBuyer"_s, u"تسويه با خريدار"_s, onRow, [this] { settle(ContractSide::buyer); }, {}, u":/icons/receipt.svg"_s, Write, u"Receipts"_s},
        {u"settings"_s, u"تنظيمات"_s, C::StartsGroup, [this] { editSettings(); }, {}, u":/icons/settings.svg"_s},
        {u"fullReport"_s, u"گزارش جامع"_s, 0, [this] { CDlgAutoFullReport::Show(this); }, {}, u":/icons/money.svg"_s, Access, u"AutoFullReport"_s},
        {u"charts"_s, u"نمودارها"_s, C::HiddenInSelect | C::BesideSearch, [this] { CDlgCharts::Show(this); }, {}, u":/icons/table.svg"_s, Access, u"AutoFullReport"_s},
        {u"receipts"_s, u"دریافت‌های قرارداد"_s, C::NeedsRow | C::HiddenInSelect | C::InRowMenu, [this] { showReceipts(); }, {}, u":/icons/receipt.svg"_s, Read, u"Receipts"_s},
        {u"sellerStatement"_s, u"صورتحساب فروشنده"_s, C::NeedsRow | C::InRowMenu, [this] { showStatement(ContractSide::seller); }, {}, u":/icons/document.svg"_s},
        {u"buyerStatement"_s, u"صورتحساب خریدار"_s, C::NeedsRow | C::InRowMenu, [this] { showStatement(ContractSide::buyer); }, {}, u":/icons/document.svg"_s},
        {u"overdue"_s, u"سررسیدهای قرارداد"_s, C::NeedsRow | C::HiddenInSelect | C::InRowMenu, [this] { showOverdue(); }, {}, u":/icons/calendar.svg"_s, Access, u"AutomobilPayments"_s},
        {u"message"_s, u"متن پیام"_s, C::NeedsRow | C::HiddenInSelect | C::InRowMenu, [this] { CDlgMessageToPerson::run(u"contract"_s, MessageRows::marked(*list()), this); }, {}, u":/icons/edit.svg"_s, Read},
        {u"templates"_s, u"قالب‌های قرارداد"_s, C::NeedsRow | C::HiddenInSelect | C::InRowMenu, [this] { CDlgContractTemplates::Show(this); }, {}, u":/icons/document.svg"_s, Read},
        {u"filePrinted"_s, u"بایگانی PDF قرارداد"_s, C::NeedsRow | C::HiddenInSelect | C::InRowMenu, [this] { filePrinted(); }, {}, u":/icons/archive.svg"_s, Modify},
    };
}

void CDlgAutomobilContracts::opening()
{
    if (!isReadOnly())
        LeftPlaceholders::remove();
}

std::unique_ptr<KMySQL> CDlgAutomobilContracts::makeRecords() const
{
    return std::make_unique<CTblAutomobilContracts>();
}

void CDlgAutomobilContracts::addContract()
{
    const KReadAhead reading;
    FirstContract::expect();
    CDlgAddAutomobilContract::expectSettings();
    if (isChangeBlocked() || !CheckWriteSecurity() || !FirstContract::mayBegin(this))
        return;
    const int key = CDlgAddAutomobilContract::NewContract(this);
    if (key == 0)
        return;
    refill();
    selectListed(key);
}

void CDlgAutomobilContracts::editContract()
{
    CTblAutomobilContracts contract;
    contract.SetColumns({u"iArchiveUserID"_s});
    const KReadAhead reading;
    CDlgAddAutomobilContract::expectEdit(list()->currentKey());
    if (isChangeBlocked() || !CheckModifySecurity() || !loadSelected(contract))
        return;
    if (contract.m_iArchiveUserID != 0)
        showContract(contract.m_iID);
    else if (CDlgAddAutomobilContract::EditContract(contract.m_iID, false, this))
        refill();
}

void CDlgAutomobilContracts::showSelected()
{
    if (list()->currentKey() > 0 && CheckReadSecurity())
        showContract(list()->currentKey());
}

void CDlgAutomobilContracts::showContract(int key)
{
    bool changed = false;
    CDlgAddAutomobilContract::ShowContract(key, changed, this);
    if (changed)
        refill();
}

void CDlgAutomobilContracts::archiveContract()
{
    archiveSelected({u"AutomobilContractArchive"_s, u"شما اجازه بایگانی کردن تقاضا را ندارید."_s,
                     u"این تقاضا قبلا بایگانی شده است."_s, u"بایگانی شد."_s},
                    [](KMySQL &record) {
                        CTblAutomobilContracts::archive(static_cast<CTblAutomobilContracts &>(record).m_iCode,
                                                        GetDBSetting()->GetUserID());
                    });
}

// A printed contract shows all that the contract holds, so it needs the right to see one.
void CDlgAutomobilContracts::printContract()
{
    if (list()->currentKey() > 0 && CheckReadSecurity())
        m_printing.print(list()->currentKey());
}

// What it reads is asked for as by printing, what it adds by the work itself.
void CDlgAutomobilContracts::filePrinted()
{
    if (list()->currentKey() > 0 && !isChangeBlocked() && CheckReadSecurity() && CheckModifySecurity())
        ContractFilingDialogs::run(list()->currentKey(), this);
}

void CDlgAutomobilContracts::settle(int side)
{
    if (SettlementQuestions::settle(list()->currentKey(), side, this))
        refresh();
}

void CDlgAutomobilContracts::showReceipts()
{
    CDlgContractReceipts::Show(list()->currentKey(), this);
    refresh();
}

void CDlgAutomobilContracts::showStatement(int side)
{
    CTblAutomobilContracts contract;
    if (!loadSelected(contract))
        return;
    const int person = side == ContractSide::seller ? contract.m_iPersonFirstID : contract.m_iPersonSecondID;
    if (person == 0)
        g_pDlgMessage->Show(u"این طرف قرارداد در فهرست اشخاص نیست و صورتحسابی ندارد."_s, this);
    CDlgAccountDocs::ShowPerson(person, this);
}

void CDlgAutomobilContracts::showOverdue()
{
    CTblAutomobilContracts contract;
    if (loadSelected(contract))
        CDlgOverdueInstalments::showContract(contract.number());
}

void CDlgAutomobilContracts::editSettings()
{
    CDlgAutomobilContractSetting dialog(this);
    dialog.exec();
}

void CDlgAutomobilContracts::activated(int key)
{
    if (CheckReadSecurity())
        showContract(key);
}

void CDlgAutomobilContracts::emptyAreaActivated()
{
    addContract();
}

// A right click on a row is a shortcut for deleting it, after the question.
void CDlgAutomobilContracts::rightClicked(int)
{
    deleteContract();
}

void CDlgAutomobilContracts::deleteContract()
{
    const int key = list()->currentKey();
    try {
        deleteSelected();
    } catch (const ContractDeleting::MoneyReceived &received) {
        CDlgContractReceipts::offer(received, key, this);
    }
}

void CDlgAutomobilContracts::requireDeletable(KMySQL &record)
{
    const auto &contract = static_cast<CTblAutomobilContracts &>(record);
    ContractDeleting::requireOfThisYear(contract);
    ContractDeleting::requireNothingReceived(contract);
}

void CDlgAutomobilContracts::deleteRecord(KMySQL &asked)
{
    auto &contract = static_cast<CTblAutomobilContracts &>(asked);
    // Whoever deletes a contract by mistake and takes it back has not lost the sale by that; so it is asked, not done.
    const bool takesBack = CarSale::soldBy(contract) != 0 && KSecurity::IsGranted(u"AutomobilInformations"_s, KSecurity::Modify)
        && g_pDlgYesNo->Ask(u"صفحه فروش خودروی این قرارداد از آن پر شده است. آن هم خالی شود و خودرو دوباره برای فروش باشد؟"_s, this) == KMessageDialog::Yes;
    ContractDeleting::run(contract, [&contract, takesBack] {
        if (takesBack)
            CarSale::takeBack(contract);
    });
}

KListReport CDlgAutomobilContracts::reportSpec() const
{
    return {u"لیست قراردادها"_s, u"گالری اتومبیل"_s, u"لیست قراردادها"_s};
}

void CDlgAutomobilContracts::chose(int row)
{
    m_chosenNumber = list()->cellText(row, u"type").toInt();
    m_chosenName = list()->cellText(row, u"seller");
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/AutoWindows.h"

#include "auto/cars/demands/CDlgAutomobilDemands.h"
#include "auto/cars/demands/editor/CDlgAddAutomobilDemand.h"
#include "auto/cars/demands/editor/CDlgMatchingDemands.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/register/editor/CDlgMatchingCars.h"
#include "auto/cars/register/gallery/CarThumbnails.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/FirstContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/overdue/CDlgOverdueInstalments.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/printing/ContractPrintingDialogs.h"
#include "auto/contracts/receipts/CDlgContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblAutomobilPayments.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/timeline/CDlgStory.h"
#include "suite/image/CDlgPictureViewer.h"
#include "suite/treasury/followups/CDlgNote.h"

using namespace Qt::StringLiterals;

namespace {

const QString contracts = u"AutomobilContracts"_s;
const QString cars = u"AutomobilInformations"_s;
const QString demands = u"AutomobilDemands"_s;
constexpr int carKind = CTblAutomobilInformations::recordKind;
const QString instalments = u"AutomobilPayments"_s;

template <class Page>
void showList(const KListRequest &request)
{
    auto *page = new Page;
    page->setRequest(request);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

// Who refers to nobody has no statement.
template <class Record>
int personOf(qint32 key, const QString &column)
{
    Record record;
    record.SetColumns({column});
    return record.IsRecordExist(u"iID"_s, key) ? record.value(column).toInt() : 0;
}

template <class Record>
RecordAction statementOf(const QString &id, const QString &text, const QString &column)
{
    return {.id = id,
            .text = text,
            .icon = u":/icons/document.svg"_s,
            .form = u"Documents"_s,
            .run = [column](qint32 key, QWidget *parent) { CDlgAccountDocs::ShowPerson(personOf<Record>(key, column), parent); },
            .isOffered = [column](qint32 key) { return personOf<Record>(key, column) != 0; }};
}

void openContract(qint32 key, bool edits, QWidget *parent)
{
    bool refresh = false;
    if (edits)
        CDlgAddAutomobilContract::EditContract(key, false, parent);
    else
        CDlgAddAutomobilContract::ShowContract(key, refresh, parent);
}

void openCar(qint32 key, bool edits, QWidget *parent)
{
    bool refresh = false;
    if (edits)
        CDlgAddAutomobilInformation::EditCar(key, false, parent);
    else
        CDlgAddAutomobilInformation::ShowCar(key, refresh, parent);
}

void openDemand(qint32 key, bool edits, QWidget *parent)
{
    bool refresh = false;
    if (edits)
        CDlgAddAutomobilDemand::EditDemand(key, refresh, parent);
    else
        CDlgAddAutomobilDemand::ShowDemand(key, refresh, parent);
}

void showInstalments(qint32 key, QWidget *)
{
    CTblAutomobilContracts contract;
    if (contract.IsRecordExist(u"iID"_s, key))
        CDlgOverdueInstalments::showContract(contract.number());
}

void beginContract(qint32 car, QWidget *parent)
{
    GetDBSetting()->RequireOpenDB();
    if (FirstContract::mayBegin(parent))
        CDlgAddAutomobilContract::NewContract(parent, car);
}

void enterContractWindows()
{
    RecordWindows::enter({.table = contracts,
                          .form = contracts,
                          .icon = u":/icons/contract.svg"_s,
                          .open = &openContract,
                          .list = &showList<CDlgAutomobilContracts>,
                          .actions = {{.id = u"print"_s, .text = u"چاپ قرارداد"_s, .icon = u":/icons/print.svg"_s, .form = contracts, .run = [](qint32 key, QWidget *parent) { ContractPrinting(contractPrintingDialogs(parent)).print(key); }},
                                      {.id = u"receipts"_s, .text = u"دریافت‌های قرارداد"_s, .icon = u":/icons/receipt.svg"_s, .form = u"Receipts"_s, .run = &CDlgContractReceipts::Show},
                                      {.id = u"overdue"_s, .text = u"سررسیدهای قرارداد"_s, .icon = u":/icons/calendar.svg"_s, .form = u"AutomobilPayments"_s, .right = KSecurity::Access, .run = &showInstalments},
                                      statementOf<CTblAutomobilContracts>(u"sellerStatement"_s, u"صورتحساب فروشنده"_s, u"iPersonFirstID"_s),
                                      statementOf<CTblAutomobilContracts>(u"buyerStatement"_s, u"صورتحساب خریدار"_s, u"iPersonSecondID"_s)}});
}

void enterCarWindows()
{
    RecordWindows::enter({.table = cars,
                          .form = cars,
                          .icon = u":/icons/car.svg"_s,
                          .open = &openCar,
                          .list = &showList<CDlgAutomobilInformations>,
                          .actions = {{.id = u"contract"_s, .text = u"قرارداد از این خودرو"_s, .icon = u":/icons/contract.svg"_s, .form = contracts, .right = KSecurity::Write, .run = &beginContract},
                                      {.id = u"matchingDemands"_s, .text = u"متقاضیان"_s, .icon = u":/icons/users.svg"_s, .form = demands, .right = KSecurity::Access, .run = [](qint32 car, QWidget *parent) { CDlgMatchingDemands::Show(car, parent); }},
                                      statementOf<CTblAutomobilInformations>(u"ownerStatement"_s, u"صورتحساب مالک"_s, u"iPersonID"_s),
                                      {.id = u"pictures"_s, .text = u"تصویرها"_s, .icon = u":/icons/picture.svg"_s, .form = cars, .run = [](qint32 car, QWidget *parent) { CDlgPictureViewer::Show(carKind, car, parent); }}}});
}

// A record of the overdue desk is an instalment: it opens the desk with all that is open of its contract.
void openInstalment(qint32 key, bool, QWidget *)
{
    CTblAutomobilPayments payment;
    payment.SetColumns({u"iAutomobilContractID"_s});
    CTblAutomobilContracts contract;
    contract.SetColumns({u"iCode"_s, u"iNum"_s});
    if (payment.IsRecordExist(u"iID"_s, key) && contract.IsRecordExist(u"iID"_s, payment.m_iAutomobilContractID))
        CDlgOverdueInstalments::showContract(contract.number());
}

void enterInstalmentWindows()
{
    RecordWindows::enter({.table = instalments,
                          .form = instalments,
                          .icon = u":/icons/calendar.svg"_s,
                          .open = &openInstalment,
                          .list = &showList<CDlgOverdueInstalments>});
}

void enterDemandWindows()
{
    RecordWindows::enter({.table = demands,
                          .form = demands,
                          .icon = u":/icons/search.svg"_s,
                          .open = &openDemand,
                          .list = &showList<CDlgAutomobilDemands>,
                          .actions = {{.id = u"matchingCars"_s, .text = u"خودروهای مناسب"_s, .icon = u":/icons/car.svg"_s, .form = cars, .right = KSecurity::Access, .run = &CDlgMatchingCars::Show}}});
}

}

AutoWindows::AutoWindows()
{
    enterContractWindows();
    enterCarWindows();
    enterDemandWindows();
    enterInstalmentWindows();
    const std::pair<QString, int> told[] = {{contracts, CTblAutomobilContracts::recordKind}, {cars, CTblAutomobilInformations::recordKind}, {demands, CTblAutomobilDemands::recordKind}};
    for (const auto &[table, kind] : told) {
        CDlgStory::offer(table, table);
        CDlgNote::offer(table, kind, table);
    }
    Thumbnails::follow(CarThumbnails::source());
}

// The functions that they hold are the module's.
AutoWindows::~AutoWindows()
{
    Thumbnails::unfollow(CarThumbnails::source());
    for (const QString &table : {contracts, cars, demands, instalments}) {
        CDlgStory::withdraw(table);
        CDlgNote::withdraw(table);
        RecordWindows::remove(table);
    }
}

void AutoWindows::enter()
{
    static const AutoWindows entered;
}

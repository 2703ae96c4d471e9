// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/AutoFirstSteps.h"

#include "auto/catalog/CDlgCarsAll.h"
#include "auto/contracts/CDlgAutomobilContractSetting.h"
#include "auto/settings/MissingSettings.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/today/FirstStepList.h"

using namespace Qt::StringLiterals;

namespace {

const QString commissionStep = u"commission"_s;
const QString catalogStep = u"catalog"_s;
const QString carStep = u"car"_s;
const QString contractStep = u"contract"_s;

// Whether the table holds a record that is no longer being entered.
KSql hasRecord(const QString &table)
{
    return KSql::formatted("EXISTS (SELECT 1 FROM %1 WHERE %2)", KSql::name(table), Placeholders::none(table));
}

void openCommission(QWidget *parent)
{
    GetDBSetting()->RequireOpenDB();
    CDlgAutomobilContractSetting(parent).exec();
}

}

AutoFirstSteps::AutoFirstSteps()
{
    const QString contracts = u"AutomobilContracts"_s;
    const QString cars = u"AutomobilInformations"_s;
    FirstStepList::enter({.id = commissionStep,
                          .place = 20,
                          .title = u"مالیات، عوارض و کمیسیون"_s,
                          .line = u"درصدها و پله‌های کمیسیون قرارداد"_s,
                          .form = contracts,
                          .right = KSecurity::Modify,
                          .section = ContractSettings::section(),
                          .isSet = [](const OfficeSettings &settings) { return !MissingSettings::of(settings).isOfContracts(); },
                          .open = &openCommission});
    FirstStepList::enter({.id = catalogStep,
                          .place = 30,
                          .title = u"نام خودروها"_s,
                          .line = u"فهرست آماده برندها را وارد کنید یا خودتان بنویسید"_s,
                          .form = u"CarsAll"_s,
                          .rows = "EXISTS (SELECT 1 FROM CarBrands)",
                          .open = [](QWidget *parent) { CDlgCarsAll::Browse(parent); }});
    FirstStepList::enter({.id = carStep,
                          .place = 50,
                          .title = u"نخستین خودرو"_s,
                          .line = u"با تصویر، پلاک و قیمت"_s,
                          .form = cars,
                          .rows = hasRecord(cars),
                          .open = [cars](QWidget *) { RecordWindows::openList(cars, {}); }});
    FirstStepList::enter({.id = contractStep,
                          .place = 60,
                          .title = u"نخستین قرارداد"_s,
                          .line = u"از خودرو ساخته می‌شود؛ سند حسابداری خودکار است"_s,
                          .form = contracts,
                          .rows = hasRecord(contracts),
                          .open = [contracts](QWidget *) { RecordWindows::openList(contracts, {}); },
                          .begins = true});
}

// The functions that they hold are the module's.
AutoFirstSteps::~AutoFirstSteps()
{
    for (const QString &step : {commissionStep, catalogStep, carStep, contractStep})
        FirstStepList::remove(step);
}

void AutoFirstSteps::enter()
{
    static const AutoFirstSteps entered;
}

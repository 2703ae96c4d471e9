// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/CarActions.h"

#include "auto/cars/prices/CDlgPriceHistory.h"
#include "auto/cars/prices/CarPricePaper.h"
#include "auto/contracts/cars/CDlgCarContracts.h"
#include "auto/contracts/whatif/CDlgDealWhatIf.h"
#include "auto/db/CTblCarContracts.h"
#include "suite/accounting/records/RecordWindows.h"

using namespace Qt::StringLiterals;

namespace {

const QString carTable = u"AutomobilInformations"_s;
const QString contractTable = u"AutomobilContracts"_s;

struct Entered
{
    QString table;
    RecordAction action;
};

const QList<Entered> &enteredActions()
{
    static const QList<Entered> list{
        {carTable, {.id = u"contracts"_s, .text = u"قراردادهای خودرو"_s, .icon = u":/icons/contract.svg"_s, .form = contractTable, .run = &CDlgCarContracts::Show}},
        {carTable, {.id = u"prices"_s, .text = u"تاریخچه قیمت"_s, .icon = u":/icons/history.svg"_s, .form = carTable, .run = &CDlgPriceHistory::Show}},
        {carTable, {.id = u"priceSheet"_s, .text = u"برگه قیمت"_s, .icon = u":/icons/print.svg"_s, .form = carTable, .right = KSecurity::PrintList, .run = &CarPricePaper::show}},
        {carTable, {.id = u"whatIf"_s, .text = u"برآورد معامله"_s, .icon = u":/icons/money.svg"_s, .form = contractTable, .run = [](qint32 car, QWidget *parent) { CDlgDealWhatIf::ShowCar(car, 0, parent); }}},
        {contractTable, {.id = u"car"_s, .text = u"خودروی قرارداد"_s, .icon = u":/icons/car.svg"_s, .form = carTable, .run = [](qint32 contract, QWidget *parent) { RecordWindows::open(carTable, CTblCarContracts::carOf(contract), false, parent); }, .isOffered = [](qint32 contract) { return CTblCarContracts::carOf(contract) != 0; }}},
    };
    return list;
}

}

CarActions::CarActions()
{
    for (const Entered &one : enteredActions())
        RecordWindows::addAction(one.table, one.action);
}

// The functions that they hold are the module's.
CarActions::~CarActions()
{
    for (const Entered &one : enteredActions())
        RecordWindows::removeAction(one.table, one.action.id);
}

void CarActions::enter()
{
    static const CarActions entered;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CarOfContract.h"

#include "auto/contracts/cars/CarContracts.h"
#include "auto/contracts/cars/CDlgCarContracts.h"
#include "auto/contracts/cars/SaleFromContract.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KMessageDialog.h"

using namespace Qt::StringLiterals;

CarOfContract::CarOfContract(int contractID)
    : m_contract(contractID)
    , m_stored(contractID == 0 ? 0 : CTblCarContracts::carOf(contractID))
    , m_car(m_stored)
{
}

bool CarOfContract::mayTake(int carID, QWidget *parent)
{
    if (carID == m_car)
        return true;
    const auto open = CarContracts::openOf(carID, m_contract);
    if (open && !CDlgCarContracts::mayBeginAnother(carID, m_contract, parent))
        return false;
    m_knownContract = open ? open->contractID : 0;
    return true;
}

void CarOfContract::askAboutSale(int contractType, bool isActive, QWidget *parent)
{
    m_sale.reset();
    if (m_car == 0 || m_car == m_stored || !isActive || !SaleFromContract::isSale(contractType))
        return;
    std::optional<CarSale::Seen> unsold = CarSale::unsold(m_car);
    if (unsold && g_pDlgYesNo->Ask(u"صفحه فروش خودروی «%1» با خریدار، تاریخ، مبلغ و کمیسیون این قرارداد پر شود و خودرو «فروخته شده» باشد؟"_s.arg(unsold->name), parent) == KMessageDialog::Yes)
        m_sale = std::move(unsold);
}

void CarOfContract::write(CTblAutomobilContracts &contract) const
{
    if (m_car == m_stored)
        return;
    // Whoever makes a contract of the car or changes it waits.
    CTblAutomobilInformations car(contract.database());
    car.SetColumns({u"iCode"_s});
    if (!car.lockRecord(m_car))
        throw CarSale::Changed(CarSale::Changed::Reason::Gone, u"%1 خودروی این قرارداد را در این میان حذف کرده است."_s.arg(RowChanged::lastChange(car.GetTableName(), m_car, contract.database())));
    const auto open = CarContracts::openOf(m_car, contract.m_iID, contract.database());
    if (open && open->contractID != m_knownContract)
        throw CarSale::Changed(CarSale::Changed::Reason::Contract, u"از این خودرو در این میان قرارداد دیگری نوشته شده است: %1."_s.arg(CarContracts::words(*open)), open->contractID);
    CTblCarContracts::set(contract.m_iID, m_car, contract.database());
    if (m_sale)
        CarSale::fill(contract, *m_sale);
}

bool CarOfContract::goesOnAfter(const CarSale::Changed &changed, QWidget *parent)
{
    using Reason = CarSale::Changed::Reason;
    const bool keepsCar = changed.reason() != Reason::Gone;
    const QString question = keepsCar ? u"قرارداد بدون دست زدن به صفحه فروش خودرو ذخیره شود؟"_s : u"قرارداد بدون پیوند با خودرو ذخیره شود؟"_s;
    if (g_pDlgYesNo->Ask(changed.userMessage() + u'\n' + question, parent) == KMessageDialog::No)
        return false;
    m_sale.reset();
    if (!keepsCar)
        m_car = m_stored;
    if (changed.reason() == Reason::Contract)
        m_knownContract = changed.contractID();
    return true;
}

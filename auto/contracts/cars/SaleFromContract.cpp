// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/SaleFromContract.h"

#include "auto/contracts/figures/InstalmentSale.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int saleAgreement = 0;

}

bool SaleFromContract::isSale(int contractType)
{
    return contractType == saleAgreement || contractType == InstalmentSale::contractType;
}

bool SaleFromContract::isEmpty(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QDateTime:
        return !value.toDateTime().isValid();
    case QMetaType::QString:
        return value.toString().trimmed().isEmpty();
    default:
        return value.toDouble() == 0;
    }
}

QList<SaleValue> SaleFromContract::valuesOf(const SoldByContract &contract)
{
    const QList<SaleValue> all{
        {u"iPersonBuyerID"_s, contract.buyerID},
        {u"dateBuy"_s, contract.date},
        {u"sRegistryNum"_s, contract.registry},
        {u"dAmountContract"_s, contract.amount},
        {u"dAmountCommission"_s, contract.commission},
        {u"dSoldAmount"_s, contract.amount},
    };
    QList<SaleValue> stated;
    for (const SaleValue &one : all) {
        if (!isEmpty(one.value))
            stated.append(one);
    }
    return stated;
}

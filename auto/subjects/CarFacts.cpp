// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/CarFacts.h"

#include "auto/cars/matching/MatchingDemands.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/accounting/search/SearchValues.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

QString ownerOf(const CTblAutomobilInformations &car)
{
    CTblTemp person(car.database());
    person.Open(false, false, true);
    person.FormatAndExecuteQuery("SELECT sName2,sMobile,sTel FROM Persons WHERE iID=%d", car.m_iPersonID);
    const QString mobile = person.GetTextFieldValue(1);
    return SearchValues::joined({person.GetTextFieldValue(0), mobile.isEmpty() ? person.GetTextFieldValue(2) : mobile});
}

qint32 contractAbout(const CTblAutomobilInformations &car)
{
    CTblTemp link(car.database());
    link.Open(false, false, true);
    link.FormatAndExecuteQuery("SELECT iContractID FROM CarContracts WHERE iCarID=%d ORDER BY iID DESC LIMIT 1", car.m_iID);
    if (link.HasResultRow())
        return link.GetLongFieldValue(0);
    for (const QString &key : {SearchText::folded(car.m_sVIN), SearchText::wholePlate(car.m_sNumOfPlates)}) {
        if (const QList<qint32> contracts = SearchIndex::recordsWith(SearchKinds::Contracts, key, car.database()); !contracts.isEmpty())
            return contracts.constFirst();
    }
    return 0;
}

}

qint32 CarFacts::contractOf(qint32 key, int database)
{
    CTblAutomobilInformations car(database);
    car.SetColumns({u"sVIN"_s, u"sNumOfPlates"_s});
    return car.IsRecordExist(u"iID"_s, key) ? contractAbout(car) : 0;
}

QList<std::pair<QString, QString>> CarFacts::of(qint32 key, const QList<int> &readable, int database)
{
    QList<std::pair<QString, QString>> facts;
    CTblAutomobilInformations car(database);
    car.SetColumns({u"iPersonID"_s, u"sVIN"_s, u"sNumOfPlates"_s, u"dAmount"_s, u"bSold"_s});
    if (!car.IsRecordExist(u"iID"_s, key))
        return facts;
    const QString none = u"-"_s;
    const QString owner = ownerOf(car);
    facts.append({u"مالک"_s, owner.isEmpty() ? none : owner});
    if (car.m_dAmount > 0)
        facts.append({u"قیمت"_s, DToMoney(car.m_dAmount)});
    if (!car.m_bSold && readable.contains(SearchKinds::Demands)) {
        const auto matching = MatchingDemands::of(key, database);
        facts.append({u"متقاضیان"_s, QString::number(matching ? matching->demands.size() : 0)});
    }
    if (!readable.contains(SearchKinds::Contracts))
        return facts;
    CTblAutomobilContracts contract(database);
    const qint32 about = contractAbout(car);
    if (about == 0 || !contract.IsRecordExist(u"iID"_s, about)) {
        facts.append({u"قرارداد"_s, none});
        return facts;
    }
    facts.append({u"قرارداد"_s, QString::number(contract.number())});
    const double rest = ContractReceiptOwner::restOf(contract);
    facts.append({u"مانده قرارداد"_s, rest > 0 ? DToMoney(rest) : u"تسویه"_s});
    return facts;
}

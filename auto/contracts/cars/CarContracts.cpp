// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/CarContracts.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString formOfContracts = u"AutomobilContracts"_s;

[[noreturn]] void refuseUnlinking(const QString &what, const CTblAutomobilContracts &contract, int contractID)
{
    throw KAccountingError(what.arg(RowChanged::lastChange(contract.GetTableName(), contractID, contract.database())));
}

// In the histories of both; values are noted by their captions.
void notePartedOn(int carID, const CarContracts::Entry &asked, int database)
{
    const auto note = [&](int recordKind, int key, const QString &caption, const QString &before) {
        RecordSubjects::noteOn(recordKind, key, u"CarContracts"_s, {{caption, before, QString()}}, database);
    };
    note(CTblAutomobilContracts::recordKind, asked.contractID, u"خودروی قرارداد"_s, RecordSubjects::nameOf(u"AutomobilInformations"_s, carID, database));
    note(CTblAutomobilInformations::recordKind, carID, u"قرارداد خودرو"_s, CarContracts::words(asked));
}

// Of the contract, which is locked and whose link is not changed by anybody else until the unit ends.
void requireLinked(CTblAutomobilContracts &contract, int carID, const CarContracts::Entry &asked)
{
    if (contract.m_iArchiveUserID != 0 && !asked.isArchived)
        refuseUnlinking(u"%1 این قرارداد را در این میان بایگانی کرده است. چیزی تغییر نکرد."_s, contract, asked.contractID);
    if (CTblCarContracts::carOf(asked.contractID, contract.database()) != carID)
        refuseUnlinking(u"این قرارداد دیگر با این خودرو پیوندی ندارد: %1 آن را تغییر داده است."_s, contract, asked.contractID);
}

}

QList<CarContracts::Entry> CarContracts::ofCar(int carID, int database)
{
    QList<Entry> entries;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT c.iID,c.iCode,c.iContractType,c.dateContract,c.sName1,c.sName2,c.dAmount,c.iStatus,c.iArchiveUserID "
                                       "FROM CarContracts l JOIN AutomobilContracts c ON c.iID=l.iContractID WHERE l.iCarID=%1 AND %2 ORDER BY c.iID DESC",
                                       carID, Placeholders::none(u"AutomobilContracts"_s, u"c.iID"_s)));
    for (; query.HasResultRow(); query.MoveNextResult())
        entries.append({query.GetLongFieldValue(0), query.GetLongFieldValue(1), query.GetLongFieldValue(2), query.GetDateFieldValue(3),
                        query.GetTextFieldValue(4), query.GetTextFieldValue(5), query.GetDoubleFieldValue(6), query.GetLongFieldValue(7) == 0,
                        query.GetLongFieldValue(8) != 0});
    return entries;
}

std::optional<CarContracts::Entry> CarContracts::openOf(int carID, int exceptContract, int database)
{
    const QList<Entry> entries = ofCar(carID, database);
    const auto open = std::ranges::find_if(entries, [=](const Entry &entry) { return entry.isOpen() && entry.contractID != exceptContract; });
    return open == entries.end() ? std::nullopt : std::optional(*open);
}

void CarContracts::unlink(int carID, const Entry &asked, int database)
{
    KTransaction::runReplayable(
        [&] {
            // First, so that everything after it is read as it is now.
            CTblAutomobilContracts contract(database);
            const bool isThere = contract.lockRecord(asked.contractID);
            OfficeClosing::requireOpen(database);
            if (!isThere)
                refuseUnlinking(u"%1 این قرارداد را در این میان حذف کرده است."_s, contract, asked.contractID);
            KSecurity::forgetRights();
            if (!KSecurity::IsGranted(formOfContracts, KSecurity::Modify))
                throw KAccountingError(KSecurity::refusalText(formOfContracts, KSecurity::Modify));
            requireLinked(contract, carID, asked);
            CTblCarContracts::set(asked.contractID, 0, database);
            notePartedOn(carID, asked, database);
        },
        database);
}

QString CarContracts::words(const Entry &entry)
{
    return u"قرارداد %1 در %2، %3 با %4"_s.arg(QString::number(entry.code), shamsiText(entry.date.date()), entry.seller, entry.buyer);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/document/ContractSaving.h"
#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"

using namespace Qt::StringLiterals;

// An instalment sale between two persons: 2000, of which 500 in cash and 300 by cheque, and 1200 in twelve instalments of 112.
struct PlannedContract
{
    TestOffice &office;
    int seller = 0;
    int buyer = 0;
    int key = 0;

    explicit PlannedContract(TestOffice &database, bool posted = false, const std::function<void(CTblAutomobilContracts &)> &more = {})
        : office(database)
        , seller(office.addPerson(u"رضا"_s, u"احمدی"_s))
        , buyer(office.addPerson(u"مریم"_s, u"کریمی"_s))
        , key(office.addContract())
    {
        setPosted(posted);
        save([this, &more](CTblAutomobilContracts &contract) {
            contract.m_iContractType = 2;
            contract.m_iPersonFirstID = seller;
            contract.m_iPersonSecondID = buyer;
            contract.m_sName1 = u"رضا احمدی"_s;
            contract.m_sName2 = u"مریم کریمی"_s;
            contract.m_dAmount = 2000;
            contract.m_dFixAmount = 500;
            contract.m_dAgreeAmount = 300;
            contract.m_dCommission = 100;
            contract.m_dateContract = GetDBSetting()->GetDBServerDate();
            if (more)
                more(contract);
        });
        const InstalmentTerms terms{1200, 1, RateUnit::Monthly, InterestMethod::WholePrincipal, 12, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
        StoredInstalments::save({key, 1, buyer}, {}, terms, instalmentPlan(terms));
    }

    static void setPosted(bool posted)
    {
        ContractSettings settings = ContractSettings::load();
        settings.postPlan = posted;
        settings.save();
    }

    void save(const std::function<void(CTblAutomobilContracts &)> &write, const ContractSaving::PlanStep &plan = {}) const
    {
        if (ContractSaving::save({key, 0, write}, {}, plan).docNum == 0)
            qFatal("the contract was not saved");
    }

    StoredInstalments::Row row(int number) const { return StoredInstalments::load(key).at(static_cast<std::size_t>(number) - 1); }
    ReceiptPurpose purpose(int number) const
    {
        const StoredInstalments::Row found = row(number);
        return InstalmentReceiving::purpose(key, found.id, number, found.received);
    }
    // Into the cash; the key of the receipt.
    int receive(int number, double amount, const ReceiptPurpose &purpose) const
    {
        return ReceiptPosting::save({.personID = buyer,
                                     .date = GetDBSetting()->GetDBServerDate(),
                                     .account = 110101,
                                     .parts = {{amount, u"قسط %1"_s.arg(number), purpose}}})
            .constFirst()
            .receiptID;
    }
    int receive(int number, double amount) const { return receive(number, amount, purpose(number)); }

    QString value(const QString &statement) const { return office.database().value(statement); }
    // Of the plan: "amount/mark" of each instalment.
    QString plan() const
    {
        return value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',dAmount,iStatus) ORDER BY date,iID) FROM AutomobilPayments WHERE iAutomobilContractID=%1"_s.arg(key));
    }
    // What the books say a person owes.
    double owes(int person) const { return value(u"SELECT SUM(dBed)-SUM(dBes) FROM Docs WHERE iPersonID=%1"_s.arg(person)).toDouble(); }
    double balance(int account) const { return value(u"SELECT IFNULL(SUM(dBed)-SUM(dBes),0) FROM Docs WHERE iHesabMoeenCode=%1"_s.arg(account)).toDouble(); }
};

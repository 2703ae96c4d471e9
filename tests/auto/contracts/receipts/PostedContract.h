// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/document/ContractSaving.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/accounting/office/CDBSetting.h"
#include "tests/office/TestOffice.h"

using namespace Qt::StringLiterals;

// A contract between two persons that was saved with its document, and money received for it.
struct PostedContract
{
    int seller = 0;
    int buyer = 0;
    int key = 0;

    explicit PostedContract(TestOffice &office)
        : seller(office.addPerson(u"رضا"_s, u"احمدی"_s))
        , buyer(office.addPerson(u"مریم"_s, u"کریمی"_s))
        , key(office.addContract())
    {
        const auto write = [this](CTblAutomobilContracts &contract) {
            contract.m_iContractType = 2;
            contract.m_iPersonFirstID = seller;
            contract.m_iPersonSecondID = buyer;
            contract.m_sName1 = u"رضا احمدی"_s;
            contract.m_sName2 = u"مریم کریمی"_s;
            contract.m_dCommission = 1000;
            contract.m_dateContract = GetDBSetting()->GetDBServerDate();
        };
        if (ContractSaving::save({key, 0, write}).docNum == 0)
            qFatal("the contract was not saved");
    }

    CTblAutomobilContracts &load(CTblAutomobilContracts &contract) const
    {
        if (!contract.IsRecordExist(u"iID"_s, key))
            qFatal("the contract is gone");
        return contract;
    }

    // Into the cash; the number of its document.
    static int receive(int person, double amount, const QString &text, const ReceiptPurpose &purpose = {})
    {
        return ReceiptPosting::save({.personID = person,
                                     .date = GetDBSetting()->GetDBServerDate(),
                                     .account = 110101,
                                     .parts = {{amount, text, purpose}}})
            .constFirst()
            .docNum;
    }
};

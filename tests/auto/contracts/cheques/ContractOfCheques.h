// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/cheques/ContractCheques.h"
#include "auto/contracts/receipts/ContractReceiptOwner.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "tests/office/TestOffice.h"

using namespace Qt::StringLiterals;

// An instalment sale to somebody who pays by cheques.
struct ContractOfCheques
{
    TestOffice &office;
    int buyer;
    int key;

    explicit ContractOfCheques(TestOffice &inOffice)
        : office(inOffice)
        , buyer(office.addPerson(u"مریم"_s, u"کریمی"_s))
        , key(office.addContract([this](CTblAutomobilContracts &contract) {
            contract.m_iContractType = 2;
            contract.m_iPersonSecondID = buyer;
            contract.m_sName2 = u"مریم کریمی"_s;
            contract.m_dAmount = 10000;
            contract.m_dateContract = today();
        }))
    {
        ContractReceiptOwner::enter();
        for (const char *table : {"Receipts", "Cheques", "ChequeChanges"})
            office.database().run(u"DELETE FROM "_s + QLatin1String(table));
    }

    static QDateTime today() { return GetDBSetting()->GetDBServerDate(); }

    CTblAutomobilContracts &load(CTblAutomobilContracts &contract) const
    {
        if (!contract.IsRecordExist(u"iID"_s, key))
            qFatal("the contract is gone");
        return contract;
    }

    int addInstalment(double amount) const
    {
        office.database().run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,iNum,dAmount,iStatus,date) VALUES(%1,%2,1,%3,0,NOW())"_s
                                  .arg(key)
                                  .arg(buyer)
                                  .arg(amount));
        return office.database().value(u"SELECT MAX(iID) FROM AutomobilPayments"_s).toInt();
    }

    ReceiptPurpose price() const
    {
        CTblAutomobilContracts contract;
        return ContractCheques::purposes(load(contract)).constFirst().purpose;
    }
    ReceiptPurpose instalment(int payment) const
    {
        return {.recordKind = CTblAutomobilContracts::recordKind, .recordID = key, .paymentID = payment, .what = ReceiptPurpose::Instalment, .side = 2, .text = u"قسط 1"_s};
    }

    // Key of a new cheque with the next number; due a month from now.
    int receive(const QString &number, double amount, const ReceiptPurpose &purpose) const
    {
        return ReceiptPosting::save({.personID = buyer,
                                     .date = today(),
                                     .method = CTblReceipts::cheque,
                                     .cheque = Cheque{u"11111111111111"_s + number, number, u"ملت"_s, u"ونک"_s, u"6510"_s, today().addDays(30), {}},
                                     .parts = {{amount, u"چک"_s, purpose}}})
            .constFirst()
            .chequeID;
    }
    static void bring(int cheque, ChequeState state)
    {
        ChequeChanging::change({.seen = ChequeChanging::seen(cheque), .to = state, .date = today(), .account = Accounts::bank});
    }
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/settings/ContractSettings.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "host/demo/DemoPersons.h"
#include "host/demo/DemoRandom.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/crm/persons/CompanyDetails.h"

#include <QHash>

// The contracts of the demo office with their documents, by the rules of the contract editor: its commission, its
// document rows. They are spread evenly over a span of days, in the order of their codes.
class DemoContracts
{
public:
    struct Office
    {
        int userID = 0;
        CompanyDetails company;
        ContractSettings settings;
        QDate firstDay;
        QDate lastDay;
    };

    DemoContracts(const Office &office, const QList<DemoPersons::Person> &persons, DemoRandom &random, int database = 0);

    // Writes contracts with the codes 1 to count. Belongs inside a transaction.
    void write(int count);

private:
    struct Party
    {
        PartyKind kind = PartyKind::Ordinary;
        DemoPersons::Person person; // id 0 unless the kind is Ordinary
    };

    void makeContract(int code, const QDate &day);
    void chooseParties(Party &first, Party &second);
    Party showroom() const;
    void setParties(const Party &first, const Party &second);
    void setFigures(const Party &first, const Party &second, double amount);
    void setCar();
    void setRegistry(const QDate &day);
    void setPayment();
    void setTerms(const QDate &day);
    void setState(const QDate &day);
    void postDocument();

    const Office &m_office;
    const QList<DemoPersons::Person> &m_persons;
    DemoRandom &m_random;
    CTblAutomobilContracts m_contract;
    CTblDocuments m_document;
    CTblDocs m_row;
    RecordBulkInsert m_contracts;
    RecordBulkInsert m_documents;
    RecordBulkInsert m_rows;
    QHash<int, int> m_lastNumbers; // of documents, by fiscal year
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractFilling.h"

#include "auto/contracts/printing/ContractMergeFields.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/utility/documents/KMSWord.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

RecordValues valuesOf(KMySQL &record)
{
    return [&record](QStringView column) { return record.value(column); };
}

ContractMergeBatches mergeBatches(CTblAutomobilContracts &contract)
{
    CTblPersons first(contract.database());
    CTblPersons second(contract.database());
    const auto found = [](CTblPersons &person, int key) {
        return key > 0 && person.IsRecordExist(u"iID"_s, key) ? valuesOf(person) : RecordValues();
    };
    return contractMergeFields({valuesOf(contract), found(first, contract.m_iPersonFirstID),
                                found(second, contract.m_iPersonSecondID), defaultMoneyDecimals()});
}

void fillBatches(KMSWord &word, const ContractMergeBatches &batches)
{
    for (const MergeBatch &batch : batches) {
        QStringList names;
        QStringList values;
        for (const MergeField &field : batch) {
            names << field.name;
            values << field.value;
        }
        word.SetFieldsValue(names, values, static_cast<int>(names.size()));
    }
}

}

void ContractFilling::fill(KMSWord &word, CTblAutomobilContracts &contract)
{
    fillBatches(word, mergeBatches(contract));
    const MergeField letterhead = dealershipField(CompanyDetails::read(contract.database()).name());
    word.SetFieldsValue({letterhead.name}, {letterhead.value}, 1);
}

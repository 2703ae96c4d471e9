// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractSaving.h"

#include "auto/contracts/document/ContractPosting.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/frame/KAccountingError.h"

using namespace Qt::StringLiterals;

std::optional<ContractSaving::Posted> ContractSaving::save(const RecordSaving::Decision<CTblAutomobilContracts> &decision,
                                                           const CustomFields &customFields)
{
    Posted posted;
    const auto post = [&posted](CTblAutomobilContracts &contract) {
        if (!ContractPosting::post(contract))
            throw KAccountingError(u"سند حسابداری قرارداد ایجاد نشد؛ چیزی ذخیره نشد."_s);
        posted = {contract.m_iDocNum, contract.m_iFiscalYear};
    };
    const auto writeCustomFields = [&customFields](CTblAutomobilContracts &contract) {
        if (customFields)
            CTblCustomFieldRecords::setValues(CTblAutomobilContracts::recordKind, contract.m_iID, *customFields);
    };
    if (!RecordSaving::save<CTblAutomobilContracts>(decision, post, writeCustomFields))
        return std::nullopt;
    return posted;
}

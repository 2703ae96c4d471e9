// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractSaving.h"

#include "auto/contracts/document/ContractPosting.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KAccountingError.h"

using namespace Qt::StringLiterals;

namespace {

using Contract = CTblAutomobilContracts;

const QString customFieldPrefix = u"customField/"_s;

KRowValues namedValues(const QHash<int, QString> &values)
{
    KRowValues named;
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        named.insert(ContractSaving::customFieldName(value.key()), *value);
    return named;
}

QHash<int, QString> fieldValues(const KRowValues &named)
{
    QHash<int, QString> values;
    for (auto value = named.cbegin(); value != named.cend(); ++value)
        values.insert(ContractSaving::customFieldOf(value.key()), value->toString());
    return values;
}

RecordSaving::Parts<Contract> partsOf(const ContractSaving::CustomFields &customFields, ContractSaving::Posted &posted,
                                      const ContractSaving::PlanStep &plan, const ContractSaving::FurtherStep &also)
{
    RecordSaving::Parts<Contract> parts;
    parts.locks = [] { CTblDocuments::lockBooks(); };
    parts.expect = [plan](int key, const KRowValues &opened) {
        if (plan.expect)
            plan.expect(key);
        ContractPosting::expect(opened.value(u"iDocNum"_s).toInt(), opened.value(u"iFiscalYear"_s).toInt());
    };
    parts.beforeRow = [&posted, plan](Contract &contract) {
        if (plan.run)
            plan.run(contract);
        if (!ContractPosting::post(contract))
            throw KAccountingError(u"سند حسابداری قرارداد ایجاد نشد؛ چیزی ذخیره نشد."_s);
        posted = {contract.m_iDocNum, contract.m_iFiscalYear};
    };
    parts.further = [&customFields](Contract &contract) {
        OpenedRow::Further further{namedValues(customFields.opened), {}, namedValues(customFields.changed)};
        if (!customFields.changed.isEmpty())
            further.theirs = namedValues(CTblCustomFieldRecords::values(Contract::recordKind, contract.m_iID, contract.database()));
        return further;
    };
    parts.afterRow = [also](Contract &contract, const KRowValues &further) {
        CTblCustomFieldRecords::changeValues(Contract::recordKind, contract.m_iID, fieldValues(further), contract.database());
        if (also)
            also(contract);
    };
    return parts;
}

}

QString ContractSaving::customFieldName(int fieldID)
{
    return customFieldPrefix + QString::number(fieldID);
}

int ContractSaving::customFieldOf(const QString &name)
{
    return name.startsWith(customFieldPrefix) ? name.sliced(customFieldPrefix.size()).toInt() : 0;
}

ContractSaving::Posted ContractSaving::save(const Decision &decision, const CustomFields &customFields, const PlanStep &plan, const FurtherStep &further)
{
    Posted posted;
    RecordSaving::save<Contract>(decision, partsOf(customFields, posted, plan, further));
    return posted;
}

ContractSaving::Posted ContractSaving::saveAsNew(const Decision &decision, const CustomFields &customFields, int &key, const FurtherStep &further)
{
    Posted posted;
    key = RecordSaving::saveAsNew<Contract>(decision, partsOf(customFields, posted, {}, further));
    return posted;
}

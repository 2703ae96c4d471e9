// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractFilling.h"

#include "auto/contracts/cheques/ContractCheques.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/printing/ContractMergeFields.h"
#include "auto/contracts/printing/PlanMergeFields.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/CompanyLogo.h"
#include "suite/utility/documents/KMSWord.h"
#include "suite/utility/values/Money.h"

#include <QHash>
#include <QLoggingCategory>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcFilling, "tzauto.printing.filling")

RecordValues valuesOf(KMySQL &record)
{
    return [&record](QStringView column) { return record.value(column); };
}

RecordValues valuesOf(const CompanyDetails &office)
{
    return [parts = office.parts()](QStringView key) {
        const auto part = std::ranges::find(parts, key, &CompanyDetails::Part::key);
        return part == parts.end() ? QVariant() : QVariant(part->text);
    };
}

QList<InstalmentForPrinting> planOf(const CTblAutomobilContracts &contract)
{
    if (!MatterVisibility::hasInstalments(contract.m_iContractType))
        return {};
    QList<InstalmentForPrinting> plan;
    const QHash<int, QStringList> cheques = ContractCheques::ofInstalments(contract.m_iID, contract.database());
    for (const StoredInstalments::Row &row : StoredInstalments::load(contract.m_iID, StoredInstalments::Scope::AllDepartments))
        plan.append({row.number, row.date.date(), row.due, row.description, cheques.value(row.id).join(u"، "_s)});
    return plan;
}

// What a template's marks may ask for. A party whose person is gone keeps the template's own text, with the words around it.
class SaidFields
{
public:
    void add(const MergeBatch &batch)
    {
        for (const MergeField &field : batch)
            set(field.name, field.says);
    }
    void add(const QStringList &names, bool says)
    {
        for (const QString &name : names)
            set(name, says);
    }
    bool says(const QString &name) const
    {
        const int index = Fields::indexOfName(m_names, name);
        return index < 0 || m_says.value(m_names.at(index));
    }

private:
    void set(const QString &name, bool says)
    {
        if (!m_says.contains(name))
            m_names.append(name);
        m_says[name] = says || m_says.value(name);
    }

    QStringList m_names;
    QHash<QString, bool> m_says;
};

DocumentParts::Picture logoOf(int database)
{
    DocumentParts::Picture picture;
    picture.name = logoField();
    picture.bytes = CompanyLogo::read(database).bytes;
    picture.pixelsWide = CompanyLogo::widthOf(picture.bytes);
    picture.pixelsHigh = CompanyLogo::heightOf(picture.bytes);
    picture.description = u"نشان نمایشگاه"_s;
    return picture;
}

void fillBatch(KMSWord &word, const MergeBatch &batch)
{
    QStringList names;
    QStringList values;
    for (const MergeField &field : batch) {
        names << field.name;
        values << field.value;
    }
    word.SetFieldsValue(names, values, static_cast<int>(names.size()));
}

void setParts(KMSWord &word, const SaidFields &said, const DocumentParts::Table &plan, const DocumentParts::Picture &logo)
{
    DocumentParts parts;
    parts.says = [&said](const QString &name) { return said.says(name); };
    parts.tables = {plan};
    parts.pictures = {logo};
    if (!word.SetParts(parts))
        qCWarning(lcFilling) << word.Failure();
}

}

void ContractFilling::fill(KMSWord &word, CTblAutomobilContracts &contract)
{
    CTblPersons first(contract.database());
    CTblPersons second(contract.database());
    const auto found = [](CTblPersons &person, int key) {
        return key > 0 && person.IsRecordExist(u"iID"_s, key) ? valuesOf(person) : RecordValues();
    };
    const OfficeSettings settings = OfficeSettings::read({CompanyDetails::section()}, contract.database());
    const CompanyDetails office = CompanyDetails::of(settings);
    const ContractForPrinting source{valuesOf(contract), found(first, contract.m_iPersonFirstID), found(second, contract.m_iPersonSecondID),
                                     defaultMoneyDecimals(), settings.moneyUnitName(), office.name(), valuesOf(office)};
    const ContractMergeBatches batches = contractMergeFields(source);
    const QList<InstalmentForPrinting> plan = planOf(contract);
    const MergeBatch further = furtherMergeFields(source) + planMergeFields(plan, source.moneyDecimals, source.moneyUnit);
    const DocumentParts::Table table = planTable(plan, source.moneyDecimals, source.moneyUnit);
    const DocumentParts::Picture logo = logoOf(contract.database());

    SaidFields said;
    for (const MergeBatch &batch : batches)
        said.add(batch);
    said.add(further);
    for (qsizetype column = 0; column < table.columns.size(); ++column)
        said.add({table.columns.at(column)}, std::ranges::any_of(table.rows, [column](const QStringList &row) { return !row.at(column).isEmpty(); }));
    said.add({logo.name}, !logo.bytes.isEmpty());
    setParts(word, said, table, logo);
    for (const MergeBatch &batch : batches)
        fillBatch(word, batch);
    fillBatch(word, further);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogImporter.h"

#include "auto/catalog/CatalogEntries.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KTransaction.h"

using namespace Qt::StringLiterals;

namespace {

template <class Records>
QVector<CatalogImport::KnownEntry> knownOf(qint32 Records::*parent, const QString &parentColumn)
{
    QVector<CatalogImport::KnownEntry> entries;
    Records records;
    QStringList columns{u"sName"_s};
    if (!parentColumn.isEmpty())
        columns.append(parentColumn);
    records.SetColumns(columns);
    // When a name occurs twice, new entries belong to the older one.
    records.m_sort = "iID";
    for (records.Open(true, true, true); !records.IsEOF(); records.MoveNext())
        entries.append({records.m_iID, parent ? records.*parent : 0, records.m_sName});
    return entries;
}

// The keys of the entries, in their order.
QVector<int> addLevel(CatalogLevel level, const QVector<CatalogImport::NewEntry> &entries, const QVector<int> &newParents,
                      int userID, const QDateTime &created)
{
    QVector<int> keys;
    for (const CatalogImport::NewEntry &entry : entries) {
        const int parent = entry.newParent < 0 ? entry.parentKey : newParents[entry.newParent];
        keys.append(CatalogEntries::add(level, parent, entry.name, userID, created));
    }
    return keys;
}

}

CatalogImport::Known CatalogImporter::known()
{
    return {knownOf<CTblCarBrands>(nullptr, {}),
            knownOf(&CTblCarModels::m_iClassID, u"iClassID"_s),
            knownOf(&CTblCarClasses::m_iBrandID, u"iBrandID"_s)};
}

CatalogImport::Plan CatalogImporter::add(const QVector<CatalogImport::Entry> &entries, int userID)
{
    CatalogImport::Plan plan;
    KTransaction::runReplayable([&] {
        // What two desks import at once is there once.
        NamedLock::take(CatalogEntries::lockName());
        plan = CatalogImport::plan(entries, known());
        if (plan.isEmpty())
            return;
        const QDateTime created = GetDBSetting()->GetDBServerDate();
        const QVector<int> brands = addLevel(CatalogLevel::Brand, plan.brands, {}, userID, created);
        const QVector<int> models = addLevel(CatalogLevel::Model, plan.models, brands, userID, created);
        addLevel(CatalogLevel::Class, plan.classes, models, userID, created);
    });
    return plan;
}

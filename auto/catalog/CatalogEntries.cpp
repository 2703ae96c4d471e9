// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/CatalogEntries.h"

#include "auto/catalog/CatalogFilter.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/office/CDBSetting.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString keyColumn = u"iID"_s;

// The columns do not say so, but these are the parents of the tree.
QString parentColumn(CatalogLevel level)
{
    return level == CatalogLevel::Model ? u"iClassID"_s : level == CatalogLevel::Class ? u"iBrandID"_s
                                                                                       : QString();
}

std::unique_ptr<KMySQL> listed(CatalogLevel level, int parent, const QString &namePart)
{
    std::unique_ptr<KMySQL> set = CatalogEntries::records(level);
    set->m_filter = CatalogFilter::entries(level, parent, namePart);
    set->m_sort = "sName";
    set->SetColumns({u"sName"_s});
    return set;
}

KSql usesOf(CatalogLevel level, int key)
{
    switch (level) {
    case CatalogLevel::Brand:
        return KSql::formatted("SELECT cb.iID FROM AutomobilInformations ai, CarBrands cb WHERE cb.iID=ai.iAutomobilType AND ai.iAutomobilType=%1 LIMIT 1", key);
    case CatalogLevel::Model:
        return KSql::formatted("SELECT cm.iID FROM AutomobilInformations ai, CarModels cm WHERE cm.iID=ai.iModel AND ai.iModel=%1 LIMIT 1", key);
    case CatalogLevel::Class:
        return KSql::formatted("SELECT cc.iID FROM AutomobilInformations ai, CarClasses cc WHERE cc.iID=ai.iBrigade AND ai.iBrigade=%1 LIMIT 1", key);
    }
    Q_UNREACHABLE();
}

}

std::unique_ptr<KMySQL> CatalogEntries::records(CatalogLevel level)
{
    switch (level) {
    case CatalogLevel::Brand:
        return std::make_unique<CTblCarBrands>();
    case CatalogLevel::Model:
        return std::make_unique<CTblCarModels>();
    case CatalogLevel::Class:
        return std::make_unique<CTblCarClasses>();
    }
    Q_UNREACHABLE();
}

void CatalogEntries::expectList(CatalogLevel level, int parent)
{
    listed(level, parent, {})->expectOpen();
}

QVector<CatalogEntries::Entry> CatalogEntries::list(CatalogLevel level, int parent, const QString &namePart)
{
    const std::unique_ptr<KMySQL> set = listed(level, parent, namePart);
    QVector<Entry> entries;
    for (set->Open(true, true, true); !set->IsEOF(); set->MoveNext())
        entries.append({set->value(keyColumn).toInt(), set->value(u"sName").toString()});
    return entries;
}

QString CatalogEntries::lockName()
{
    return u"CarCatalog"_s;
}

void CatalogEntries::fillNew(KMySQL &entry, CatalogLevel level, int parent, int userID, const QDateTime &created)
{
    entry.setValue(u"iUserID", userID);
    entry.setValue(u"dateCreate", created);
    if (const QString column = parentColumn(level); !column.isEmpty())
        entry.setValue(column, parent);
}

KSql CatalogEntries::sameNameBelow(CatalogLevel level, int parent, const QString &name)
{
    const KSql same = "sName=" + KSql::quoted(name);
    const QString column = parentColumn(level);
    return column.isEmpty() ? same : same + KSql::formatted(" AND %1=%2", KSql::name(column), parent);
}

int CatalogEntries::add(CatalogLevel level, int parent, const QString &name, int userID, const QDateTime &created)
{
    const std::unique_ptr<KMySQL> record = records(level);
    record->AddNew();
    record->setValue(u"sName", name);
    fillNew(*record, level, parent, userID, created);
    record->Update(true);
    return static_cast<int>(record->GetLastInsertedID());
}

std::optional<QString> CatalogEntries::name(CatalogLevel level, int key)
{
    const std::unique_ptr<KMySQL> record = records(level);
    if (!record->IsRecordExist(keyColumn, key))
        return {};
    return record->value(u"sName").toString();
}

bool CatalogEntries::isUsed(CatalogLevel level, int key)
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.ExecuteQuery(usesOf(level, key));
    return statement.HasResultRow();
}

std::unique_ptr<KMySQL> CatalogEntries::record(CatalogLevel level, int key)
{
    std::unique_ptr<KMySQL> record = records(level);
    if (!record->IsRecordExist(keyColumn, key))
        return nullptr;
    return record;
}

// Until the end of the unit no car begins to use the entry.
bool CatalogEntries::remove(CatalogLevel level, KMySQL &asked)
{
    struct InUse
    {
    };
    const int key = asked.value(keyColumn).toInt();
    try {
        RowDeleting::run(asked, [&] {
            CTblTemp statement;
            statement.ExecuteQuery(usesOf(level, key) + " LOCK IN SHARE MODE");
            if (statement.HasResultRow())
                throw InUse();
        });
    } catch (const InUse &) {
        return false;
    }
    return true;
}

bool CatalogEntries::isNameTaken(int key, const QString &name, int parent)
{
    CTblCarModels models;
    models.m_filter = CatalogFilter::sameName(key, name, parent);
    models.Open(true, true, true);
    return !models.IsEOF();
}

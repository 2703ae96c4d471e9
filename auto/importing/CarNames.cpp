// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/importing/CarNames.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

struct NamedRow
{
    qint32 key = 0;
    qint32 parent = 0;
    QString name;
};

QList<NamedRow> namedRows(const KSql &statement, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(statement);
    QList<NamedRow> rows;
    for (; query.HasResultRow(); query.MoveNextResult())
        rows.append({query.GetLongFieldValue(0), query.GetLongFieldValue(1), searchKey(query.GetTextFieldValue(2))});
    return rows;
}

// Puts the key in place of the text. False for a name that is not there; the row is refused then.
bool settleIn(const QHash<QString, qint32> &names, ImportRow &row, const QString &key, const QString &title, const QString &where)
{
    const QString text = row.text(key);
    const auto found = names.constFind(searchKey(text));
    if (found == names.cend()) {
        row.refuse(title, u"«%1» در %2 نیست. نام آن را مانند برنامه بنویسید، یا نخست آن را به فهرست اضافه کنید."_s.arg(text, where));
        return false;
    }
    row.values.insert(key, *found);
    return true;
}

}

CarNames::CarNames(int database)
    : m_database(database)
{
}

CarNames::~CarNames() = default;

// Of several that have one name the oldest counts, as in the catalog's own import.
void CarNames::readCatalog()
{
    if (m_catalogRead)
        return;
    m_catalogRead = true;
    for (const NamedRow &row : namedRows("SELECT iID,0,sName FROM CarBrands ORDER BY iID DESC", m_database))
        m_brands.insert(row.name, row.key);
    for (const NamedRow &row : namedRows("SELECT iID,iClassID,sName FROM CarModels ORDER BY iID DESC", m_database))
        m_models[row.parent].insert(row.name, row.key);
    for (const NamedRow &row : namedRows("SELECT iID,iBrandID,sName FROM CarClasses ORDER BY iID DESC", m_database))
        m_classes[row.parent].insert(row.name, row.key);
}

void CarNames::settlePlace(ImportRow &row)
{
    struct Level
    {
        QString key;
        QString title;
        QString where;
    };
    static const Level levels[] = {{u"iAutomobilType"_s, u"نوع خودرو"_s, u"مجموعه خودروها"_s},
                                   {u"iModel"_s, u"مدل"_s, u"مدل‌های این نوع خودرو"_s},
                                   {u"iBrigade"_s, u"تیپ"_s, u"تیپ‌های این مدل"_s}};
    readCatalog();
    qint32 parent = 0;
    bool isFirst = true;
    for (const Level &level : levels) {
        if (!row.has(level.key)) {
            parent = 0;
        } else if (!isFirst && parent == 0) {
            row.refuse(level.title, u"«%1» بالای خود خالی است. نوع خودرو، و برای تیپ مدل را هم بنویسید."_s.arg(row.text(level.key)));
            return;
        } else {
            const Names &names = isFirst ? m_brands : level.key == "iModel"_L1 ? m_models[parent]
                                                                               : m_classes[parent];
            if (!settleIn(names, row, level.key, level.title, level.where))
                return;
            parent = row.values.value(level.key).toInt();
        }
        isFirst = false;
    }
}

const CarNames::Names &CarNames::items(int itemType)
{
    if (!m_items.contains(itemType)) {
        Names names;
        for (const NamedRow &row : namedRows(KSql::formatted("SELECT iID,0,sName FROM Items WHERE iType=%1 ORDER BY iID DESC", itemType), m_database))
            names.insert(row.name, row.key);
        m_items.insert(itemType, names);
    }
    return m_items[itemType];
}

void CarNames::settleItem(ImportRow &row, const QString &key, const QString &title, int itemType)
{
    if (row.has(key))
        settleIn(items(itemType), row, key, title, u"فهرست %1"_s.arg(title));
}

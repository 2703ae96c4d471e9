// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/importing/DemandImport.h"

#include "auto/cars/demands/editor/DemandYears.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/importing/CarNames.h"
#include "suite/accounting/importing/ImportParsers.h"
#include "suite/accounting/importing/ImportRecord.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/crm/importing/PersonFinder.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

const QString demandPerson = u"iPersonID"_s;

class DemandRun : public ImportRun
{
public:
    DemandRun(int database, const QList<ImportField> &fields);

    void check(ImportRow &row) override;
    qint32 write(const ImportRow &row) override;

private:
    void checkRanges(ImportRow &row) const;
    void findTwin(ImportRow &row);
    static QString wishOf(qint32 person, qint32 brand, int from, int upTo);

    CTblAutomobilDemands m_record;
    QList<ImportField> m_fields;
    CarNames m_names;
    PersonFinder m_persons;
    QHash<QString, std::pair<qint32, int>> m_wishes; // key and code of who wants the same; without a key: the row of the file
    QDateTime m_now;
};

// Who asks for the same brand of the same years again, while the first demand still stands, asks once.
QString DemandRun::wishOf(qint32 person, qint32 brand, int from, int upTo)
{
    return u"%1/%2/%3/%4"_s.arg(person).arg(brand).arg(from).arg(upTo);
}

DemandRun::DemandRun(int database, const QList<ImportField> &fields)
    : m_record(database)
    , m_fields(fields)
    , m_names(database)
    , m_persons(database)
    , m_now(GetDBSetting()->GetDBServerDate())
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery("SELECT iID,iCode,iPersonID,iAutomobilType,iModelFrom,iModelUpTo FROM AutomobilDemands WHERE iStatus=0 AND iArchiveUserID=0 AND iPersonID>0");
    for (; query.HasResultRow(); query.MoveNextResult())
        m_wishes.insert(wishOf(query.GetLongFieldValue(2), query.GetLongFieldValue(3), query.GetLongFieldValue(4), query.GetLongFieldValue(5)),
                        {query.GetLongFieldValue(0), query.GetLongFieldValue(1)});
    m_record.Open(true, false, true);
}

void DemandRun::check(ImportRow &row)
{
    m_persons.settle(row, demandPerson, u"نام متقاضی"_s);
    if (!row.has(demandPerson))
        row.refuse(u"نام متقاضی"_s, u"متقاضی خالی است. کد یا نام او را بنویسید."_s);
    m_names.settlePlace(row);
    m_names.settleItem(row, u"iColor"_s, u"رنگ"_s, CTblItems::typeColor);
    m_names.settleItem(row, u"iFacilities"_s, u"امکانات"_s, CTblItems::typeFeature);
    checkRanges(row);
    ImportRecord::requireFits(m_record, m_fields, row);
    if (row.problems.isEmpty())
        findTwin(row);
}

void DemandRun::checkRanges(ImportRow &row) const
{
    const auto number = [&](const QString &key) { return row.values.value(key).toDouble(); };
    if (!areDemandYears(row.values.value(u"iModelFrom"_s).toInt(), row.values.value(u"iModelUpTo"_s).toInt()))
        row.refuse(u"از مدل"_s, u"هر دو سال را بنویسید، از 1000 تا 3000، یا هیچ کدام را."_s);
    else if (number(u"iModelFrom"_s) > number(u"iModelUpTo"_s))
        row.refuse(u"از مدل"_s, u"سال نخست از سال دوم بزرگ‌تر است."_s);
    if (row.has(u"dAmountUpTo"_s) && number(u"dAmountFrom"_s) > number(u"dAmountUpTo"_s))
        row.refuse(u"از مبلغ"_s, u"مبلغ نخست از مبلغ دوم بزرگ‌تر است."_s);
}

void DemandRun::findTwin(ImportRow &row)
{
    const auto number = [&](const QString &key) { return row.values.value(key).toInt(); };
    const QString wish = wishOf(number(demandPerson), number(u"iAutomobilType"_s), number(u"iModelFrom"_s), number(u"iModelUpTo"_s));
    if (const auto found = m_wishes.constFind(wish); found != m_wishes.cend())
        row.twin = ImportTwin{(found->first > 0 ? u"تقاضای کد %1: همین متقاضی و همین خودرو"_s : u"سطر %1 همین فایل: همین متقاضی و همین خودرو"_s).arg(found->second), found->first, false};
    else
        m_wishes.insert(wish, {0, row.number});
}

qint32 DemandRun::write(const ImportRow &row)
{
    m_record.AddNew();
    ImportRecord::fill(m_record, row);
    m_record.m_iCode = drawCode();
    m_record.m_dateCreate = m_now;
    if (!m_record.m_dateReference.isValid())
        m_record.m_dateReference = QDateTime(m_now.date(), QTime(0, 0), Qt::UTC);
    m_record.m_iUserID = GetDBSetting()->GetUserID();
    m_record.Update(true);
    return m_record.m_iID;
}

}

QString DemandImport::kindId()
{
    return u"demands"_s;
}

QString DemandImport::title() const
{
    return u"تقاضاها"_s;
}

QString DemandImport::form() const
{
    return u"AutomobilDemands"_s;
}

QString DemandImport::table() const
{
    return u"AutomobilDemands"_s;
}

qint32 DemandImport::nextCode(int database) const
{
    return CTblAutomobilDemands::nextCode(database);
}

std::unique_ptr<ImportRun> DemandImport::begin(int database) const
{
    return std::make_unique<DemandRun>(database, fields());
}

QList<ImportField> DemandImport::fields() const
{
    using namespace ImportParsers;
    return {
        {.key = demandPerson, .title = u"نام متقاضی"_s, .words = {u"متقاضی"_s, u"مشتری"_s, u"شخص"_s, u"کد شخص"_s, u"کد ملی"_s, u"customer"_s}, .parse = text(), .isRequired = true, .example = u"1"_s},
        {.key = u"iAutomobilType"_s, .title = u"نوع خودرو"_s, .words = {u"خودرو درخواستی"_s, u"خودرو"_s, u"برند"_s, u"brand"_s}, .parse = text(), .example = u"پژو"_s},
        {.key = u"iModelFrom"_s, .title = u"از مدل"_s, .words = {u"مدل از"_s, u"سال تولید از"_s, u"از سال"_s, u"year from"_s}, .parse = whole(1000, 3000), .example = u"1398"_s},
        {.key = u"iModelUpTo"_s, .title = u"تا مدل"_s, .words = {u"سال تولید تا"_s, u"تا سال"_s, u"year to"_s}, .parse = whole(1000, 3000), .example = u"1402"_s},
        {.key = u"iColor"_s, .title = u"رنگ"_s, .words = {u"color"_s}, .parse = text()},
        {.key = u"dAmountFrom"_s, .title = u"از مبلغ"_s, .words = {u"مبلغ از"_s, u"amount from"_s}, .parse = money(), .example = u"5,000,000,000"_s},
        {.key = u"dAmountUpTo"_s, .title = u"تا مبلغ"_s, .words = {u"مبلغ تا"_s, u"amount to"_s}, .parse = money(), .example = u"7,000,000,000"_s},
        {.key = u"iFacilities"_s, .title = u"امکانات"_s, .parse = text()},
        {.key = u"dateReference"_s, .title = u"تاریخ مراجعه"_s, .words = {u"تاریخ"_s, u"date"_s}, .parse = date(), .example = u"1405/08/29"_s},
        {.key = u"dateMaxTimeNeed"_s, .title = u"تاریخ حداکثر زمان نیاز"_s, .words = {u"مهلت"_s}, .parse = date()},
        {.key = u"sAcquaintances"_s, .title = u"نحوه آشنایی"_s, .parse = text()},
        {.key = u"sDesc"_s, .title = u"توضیحات"_s, .words = {u"شرح"_s}, .parse = text()},
        {.key = u"sDescSpecial"_s, .title = u"توضیحات ویژه"_s, .parse = text()},
    };
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/importing/CarImport.h"

#include "auto/cars/register/editor/CarTwins.h"
#include "auto/cars/register/editor/VehicleIdentification.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/importing/CarNames.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/importing/ImportParsers.h"
#include "suite/accounting/importing/ImportRecord.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/twins/TwinTable.h"
#include "suite/crm/importing/PersonFinder.h"
#include "suite/utility/values/PlateText.h"

using namespace Qt::StringLiterals;

namespace {

struct ItemField
{
    QString key;
    QString title;
    QStringList words;
    int itemType;
};

const QList<ItemField> &itemFields()
{
    static const QList<ItemField> fields{
        {u"iColor"_s, u"رنگ"_s, {u"color"_s, u"colour"_s}, CTblItems::typeColor},
        {u"iSystem"_s, u"سیستم"_s, {u"system"_s}, CTblItems::typeSystem},
        {u"iVolumCylinders"_s, u"حجم سیلندر"_s, {u"حجم موتور"_s}, CTblItems::typeEngineVolume},
        {u"iBodyStatus"_s, u"وضعیت بدنه"_s, {u"بدنه"_s}, CTblItems::typeBodyStatus},
        {u"iCountry"_s, u"کشور"_s, {u"ساخت"_s, u"country"_s}, CTblItems::typeCountry},
        {u"iSource"_s, u"ماخذ"_s, {u"source"_s}, CTblItems::typeSource},
    };
    return fields;
}

// A list whose positions are what is stored; its first entry stands for nothing.
QList<ImportParsers::Word> wordsOf(WordLists::List list)
{
    QList<ImportParsers::Word> words;
    for (qsizetype i = 1; i < static_cast<qsizetype>(list.size()); ++i)
        words.append({list[static_cast<std::size_t>(i)].toString(), static_cast<int>(i)});
    return words;
}

QList<ImportParsers::Word> fuels()
{
    return wordsOf(WordLists::fuelTypes()) + QList<ImportParsers::Word>{{u"گازوئیل"_s, 3}, {u"دیزل"_s, 3}, {u"دوگانه‌سوز"_s, 2}, {u"petrol"_s, 1}, {u"diesel"_s, 3}};
}

QList<TwinTable::Column> twinColumns()
{
    QList<TwinTable::Column> columns{{u"iCode"_s, Twins::Sort::Number}};
    for (const CarTwins::Field &field : CarTwins::fields())
        columns.append({field.column, field.sort});
    return columns;
}

class CarRun : public ImportRun
{
public:
    CarRun(int database, const QList<ImportField> &fields)
        : m_record(database)
        , m_fields(fields)
        , m_names(database)
        , m_persons(database)
        , m_twins(u"AutomobilInformations"_s, twinColumns(), database)
        , m_now(GetDBSetting()->GetDBServerDate())
    {
        for (const CarTwins::Field &field : CarTwins::fields()) {
            if (TwinSettings::binds(field.refused, database))
                m_bound.insert(field.column);
        }
        m_record.Open(true, false, true);
    }

    void check(ImportRow &row) override;
    qint32 write(const ImportRow &row) override;

private:
    void checkNumbers(ImportRow &row) const;
    void findTwin(ImportRow &row);
    void takeTwin(ImportRow &row, const QString &column, const QString &same, bool isRefused);

    CTblAutomobilInformations m_record;
    QList<ImportField> m_fields;
    CarNames m_names;
    PersonFinder m_persons;
    TwinTable m_twins;
    QSet<QString> m_bound; // columns whose numbers the office takes only once
    QDateTime m_now;
};

void CarRun::check(ImportRow &row)
{
    m_persons.settle(row, u"iPersonID"_s, u"نام مالک"_s);
    m_persons.settle(row, u"iPersonBuyerID"_s, u"نام خریدار"_s);
    m_names.settlePlace(row);
    for (const ItemField &field : itemFields())
        m_names.settleItem(row, field.key, field.title, field.itemType);
    checkNumbers(row);
    ImportRecord::requireFits(m_record, m_fields, row);
    findTwin(row);
}

void CarRun::checkNumbers(ImportRow &row) const
{
    using State = VehicleIdentification::State;
    const State vin = VehicleIdentification::check(row.text(u"sVIN"_s));
    if (vin == State::WrongLength || vin == State::WrongCharacter)
        row.refuse(u"VIN"_s, u"«%1» VIN نیست: 17 حرف لاتین و رقم، بی I و O و Q. آن را اصلاح کنید یا در ستون شماره شاسی بنویسید."_s.arg(row.text(u"sVIN"_s)));
    if (row.has(u"sNumOfPlates"_s))
        row.values.insert(u"sNumOfPlates"_s, PlateText::oneSpelling(row.text(u"sNumOfPlates"_s)));
    const qint32 owner = row.values.value(u"iPersonID"_s).toInt();
    if (owner > 0 && owner == row.values.value(u"iPersonBuyerID"_s).toInt())
        row.refuse(u"نام خریدار"_s, u"مالک و خریدار یکی است. یکی را اصلاح کنید."_s);
}

void CarRun::takeTwin(ImportRow &row, const QString &column, const QString &same, bool isRefused)
{
    const std::optional<TwinTable::Found> found = m_twins.find(column, row.text(column));
    if (found && !row.twin)
        row.twin = ImportTwin{(found->key > 0 ? u"خودروی کد %1: همان %2"_s : u"سطر %1 همین فایل: همان %2"_s).arg(found->number).arg(same), found->key, isRefused};
    m_twins.add(column, row.text(column), {}, row.number);
}

void CarRun::findTwin(ImportRow &row)
{
    for (const CarTwins::Field &field : CarTwins::fields())
        takeTwin(row, field.column, field.name, m_bound.contains(field.column));
    takeTwin(row, u"iCode"_s, u"کد"_s, false);
}

qint32 CarRun::write(const ImportRow &row)
{
    m_record.AddNew();
    ImportRecord::fill(m_record, row);
    if (!keepsCode(row))
        m_record.m_iCode = drawCode();
    if (!m_record.m_dateCreate.isValid())
        m_record.m_dateCreate = m_now;
    m_record.m_iUserID = GetDBSetting()->GetUserID();
    m_record.Update(true);
    return m_record.m_iID;
}

QList<ImportField> placeFields()
{
    using namespace ImportParsers;
    return {
        {.key = u"iCode"_s, .title = u"کد"_s, .words = {u"کد خودرو"_s, u"code"_s}, .parse = whole(1, 2'147'483'647)},
        {.key = u"iAutomobilType"_s, .title = u"نوع خودرو"_s, .words = {u"برند"_s, u"سازنده"_s, u"خودرو"_s, u"نام خودرو"_s, u"brand"_s, u"make"_s}, .parse = text(), .isRequired = true, .example = u"پژو"_s},
        {.key = u"iModel"_s, .title = u"مدل"_s, .words = {u"نام مدل"_s, u"model"_s}, .parse = text(), .example = u"206"_s},
        {.key = u"iBrigade"_s, .title = u"تیپ"_s, .words = {u"trim"_s, u"class"_s}, .parse = text()},
        {.key = u"iYear"_s, .title = u"سال تولید"_s, .words = {u"سال ساخت"_s, u"سال"_s, u"year"_s}, .parse = whole(1000, 3000), .example = u"1400"_s},
        {.key = u"sNumOfPlates"_s, .title = u"پلاک"_s, .words = {u"شماره پلاک"_s, u"plate"_s}, .parse = text(), .example = u"12 ب 345 ایران 67"_s},
        {.key = u"sChassisNum"_s, .title = u"شماره شاسی"_s, .words = {u"شاسی"_s, u"chassis"_s}, .parse = text(), .example = u"NAAM01CA1KE123456"_s},
        {.key = u"sNumOfEngines"_s, .title = u"شماره موتور"_s, .words = {u"موتور"_s, u"engine"_s}, .parse = text()},
        {.key = u"sNumOfBodies"_s, .title = u"شماره اتاق"_s, .words = {u"شماره بدنه"_s}, .parse = text()},
        {.key = u"sVIN"_s, .title = u"VIN"_s, .words = {u"شناسه خودرو"_s}, .parse = text()},
        {.key = u"iFunction"_s, .title = u"کارکرد (کیلومتر)"_s, .words = {u"کارکرد"_s, u"کیلومتر"_s, u"mileage"_s, u"km"_s}, .parse = whole(0, 9'999'999), .example = u"45000"_s},
        {.key = u"dAmount"_s, .title = u"مبلغ"_s, .words = {u"قیمت"_s, u"price"_s, u"amount"_s}, .parse = money(), .example = u"8,500,000,000"_s},
    };
}

QList<ImportField> furtherFields()
{
    using namespace ImportParsers;
    const QList<Word> sold{{u"فروخته شده"_s, 1}, {u"موجود"_s, 0}, {u"فروخته"_s, 1}, {u"فروش رفته"_s, 1}, {u"فروخته نشده"_s, 0}, {u"بله"_s, 1}, {u"خیر"_s, 0}, {u"1"_s, 1}, {u"0"_s, 0}};
    return {
        {.key = u"iPersonID"_s, .title = u"نام مالک"_s, .words = {u"مالک"_s, u"کد مالک"_s, u"owner"_s}, .parse = text()},
        {.key = u"iPersonBuyerID"_s, .title = u"نام خریدار"_s, .words = {u"خریدار"_s, u"buyer"_s}, .parse = text()},
        {.key = u"bSold"_s, .title = u"وضعیت فروش"_s, .words = {u"فروخته شده"_s, u"sold"_s}, .parse = word(sold)},
        {.key = u"dateIntroduction"_s, .title = u"تاریخ معرفی"_s, .words = {u"تاریخ ورود"_s}, .parse = date(), .example = u"1405/08/29"_s},
        {.key = u"iFuel"_s, .title = u"سوخت"_s, .words = {u"نوع سوخت"_s, u"fuel"_s}, .parse = word(fuels()), .example = u"بنزین"_s},
        {.key = u"iUsageType"_s, .title = u"کاربری"_s, .words = {u"usage"_s}, .parse = word(wordsOf(WordLists::usageTypes())), .example = u"سواری"_s},
        {.key = u"iNumOfCylinders"_s, .title = u"تعداد سیلندر"_s, .words = {u"سیلندر"_s}, .parse = whole(0, 100)},
        {.key = u"iNumOfWheels"_s, .title = u"تعداد چرخ"_s, .parse = whole(0, 100)},
        {.key = u"iNumOFAxles"_s, .title = u"تعداد محور"_s, .parse = whole(0, 100)},
        {.key = u"iCapacity"_s, .title = u"ظرفیت"_s, .parse = whole(0, 1000)},
        {.key = u"dateInsurance"_s, .title = u"تاریخ بیمه"_s, .words = {u"بیمه"_s}, .parse = date()},
        {.key = u"sInsuranceStatus"_s, .title = u"وضعیت بیمه"_s, .parse = text()},
        {.key = u"sDocumentsDeficit"_s, .title = u"کسری مدارک"_s, .parse = text()},
        {.key = u"sFractionalParts"_s, .title = u"کسری لوازم"_s, .parse = text()},
        {.key = u"sAccessories"_s, .title = u"لوازم جانبی"_s, .parse = text()},
        {.key = u"sFacilities"_s, .title = u"امکانات"_s, .parse = text()},
        {.key = u"sDesc"_s, .title = u"توضیحات"_s, .words = {u"شرح"_s, u"description"_s}, .parse = text()},
        {.key = u"sDescSpecial"_s, .title = u"توضیحات ویژه"_s, .parse = text()},
    };
}

}

QString CarImport::kindId()
{
    return u"cars"_s;
}

QString CarImport::title() const
{
    return u"خودروها"_s;
}

QString CarImport::form() const
{
    return u"AutomobilInformations"_s;
}

QString CarImport::table() const
{
    return u"AutomobilInformations"_s;
}

qint32 CarImport::nextCode(int database) const
{
    return CTblAutomobilInformations::nextCode(database);
}

std::unique_ptr<ImportRun> CarImport::begin(int database) const
{
    return std::make_unique<CarRun>(database, fields());
}

QList<ImportField> CarImport::fields() const
{
    QList<ImportField> fields = placeFields();
    for (const ItemField &item : itemFields())
        fields.append({.key = item.key, .title = item.title, .words = item.words, .parse = ImportParsers::text()});
    return fields + furtherFields();
}

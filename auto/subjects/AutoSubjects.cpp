// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/AutoSubjects.h"

#include "auto/catalog/parameters/InputParameters.h"
#include "auto/subjects/AutoStory.h"
#include "auto/db/PlanTrace.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "auto/db/CTblCarContracts.h"
#include "auto/db/CTblCarBrands.h"
#include "auto/db/CTblCarClasses.h"
#include "auto/db/CTblCarModels.h"
#include "auto/db/CTblTemplates.h"
#include "auto/importing/AutoImports.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/SubjectWords.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"

using namespace Qt::StringLiterals;

namespace {

using SubjectWords::activity;
using SubjectWords::captions;
using SubjectWords::titleOf;
using SubjectWords::words;
using Lists = QHash<QString, QStringList>;

const QString statusCaption = u"وضعیت"_s;
const QString codeCaption = u"کد"_s;

QString contractTitle(KMySQL &record)
{
    const auto &contract = static_cast<const CTblAutomobilContracts &>(record);
    return titleOf(contract.m_iCode, contract.m_sAutomobilName.simplified());
}

// What two columns share as a caption says which side it is about.
QHash<QString, QString> contractCaptions()
{
    QHash<QString, QString> texts{
        {u"iPersonFirstID"_s, u"شخص طرف اول"_s},
        {u"iPersonSecondID"_s, u"شخص طرف دوم"_s},
        {u"dPercentCommission"_s, u"درصد کمیسیون"_s},
        {u"dateTradeUnit"_s, u"تاریخ تنظیم سند"_s},
        {u"sFromFirst"_s, u"از طرف، طرف اول"_s},
        {u"sFromSecond"_s, u"از طرف، طرف دوم"_s},
        {u"dPercentImpsition"_s, u"درصد عوارض طرف اول"_s},
        {u"dPercentImposition2"_s, u"درصد عوارض طرف دوم"_s},
        {u"dPercentDiscount"_s, u"درصد تخفیف طرف اول"_s},
        {u"dPercentDiscount2"_s, u"درصد تخفیف طرف دوم"_s},
        {u"sByVirtueFirst"_s, u"بموجب، طرف اول"_s},
        {u"sByVirtueSecond"_s, u"بموجب، طرف دوم"_s},
    };
    const std::pair<const char *, QString> sided[] = {{"sName", u"نام"_s}, {"sMobile", u"موبایل"_s}, {"sTel", u"تلفن"_s}, {"sAddress", u"آدرس"_s}, {"sNationalId", u"کد ملی"_s}, {"iPersonContract", u"شخص قرارداد،"_s}};
    for (const auto &[column, text] : sided) {
        texts.insert(QLatin1String(column) + u'1', text + u" طرف اول"_s);
        texts.insert(QLatin1String(column) + u'2', text + u" طرف دوم"_s);
    }
    texts.insert({{u"dTax"_s, u"مالیات طرف اول"_s}, {u"dTax2"_s, u"مالیات طرف دوم"_s}, {u"dPercentTax"_s, u"درصد مالیات طرف اول"_s}, {u"dPercentTax2"_s, u"درصد مالیات طرف دوم"_s}, {u"dImposition"_s, u"عوارض طرف اول"_s}, {u"dImposition2"_s, u"عوارض طرف دوم"_s}});
    return texts;
}

void appendKeys(QList<RecordSubject::Part> &parts, CTblTemp &query, const QString &table)
{
    for (; query.HasResultRow(); query.MoveNextResult())
        parts.append({table, query.GetLongFieldValue(0)});
}

// Also receipts that are void: they tell how the contract came to be as it is.
QList<RecordSubject::Part> partsOfContract(qint32 key, int database)
{
    QList<RecordSubject::Part> parts{{u"InstalmentPlan"_s, key}};
    CTblTemp query(database);
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT d.iID FROM AutomobilContracts AS c JOIN Documents AS d ON d.iNum=c.iDocNum AND d.iFiscalYear=c.iFiscalYear"
                                " WHERE c.iID=%d AND c.iDocNum>0",
                                key);
    appendKeys(parts, query, u"Documents"_s);
    constexpr int kind = CTblAutomobilContracts::recordKind;
    for (const char *table : {"Receipts", "Cheques", "FollowUps"}) {
        query.ExecuteQuery(KSql::formatted("SELECT iID FROM %1 WHERE iTable=%2 AND iRecordID=%3", KSql::name(QLatin1String(table)), kind, key));
        appendKeys(parts, query, QLatin1String(table));
    }
    query.FormatAndExecuteQuery("SELECT iID FROM CarContracts WHERE iContractID=%d", key);
    appendKeys(parts, query, u"CarContracts"_s);
    return parts;
}

void enterContracts()
{
    const QString form = u"AutomobilContracts"_s;
    const QStringList partyKinds{u"عادی"_s, u"نمایشگاه"_s, u"متفرقه"_s};
    RecordSubjects::enter({.table = u"AutomobilContracts"_s,
                           .kind = u"قرارداد"_s,
                           .form = form,
                           .make = RecordSubject::maker<CTblAutomobilContracts>(),
                           .title = &contractTitle,
                           .caption = captions(contractCaptions()),
                           .word = words(Lists{{u"iContractType"_s, WordLists::texts(WordLists::contractTypes())},
                                               {u"iStatus"_s, activity()},
                                               {u"iPersonContract1"_s, partyKinds},
                                               {u"iPersonContract2"_s, partyKinds}}),
                           .derived = {},
                           .parts = &partsOfContract,
                           .recordKinds = {CTblAutomobilContracts::recordKind}});
    RecordSubjects::enter({.table = PlanTrace::name(),
                           .kind = u"اقساط قرارداد"_s,
                           .form = form,
                           .make = RecordSubject::maker<CTblAutomobilContracts>(),
                           .title = &contractTitle,
                           .caption = &PlanTrace::captionOf,
                           .word = &PlanTrace::wordsOf});
    RecordSubjects::enter({.table = u"CarContracts"_s,
                           .kind = u"خودروی قرارداد"_s,
                           .form = form,
                           .make = RecordSubject::maker<CTblCarContracts>(),
                           .title = [](KMySQL &record) { return KLookup::name(record, u"iCarID"); }});
    RecordSubjects::enter({.table = u"Templates"_s,
                           .kind = u"قالب قرارداد"_s,
                           .form = form,
                           .make = RecordSubject::maker<CTblTemplates>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblTemplates &>(record).m_sName; },
                           .word = [](const QString &column, const QVariant &value) {
                               const QString kind = value.toString();
                               return column == "sKind"_L1 && kind.startsWith("contract."_L1) ? WordLists::texts(WordLists::contractTypes()).value(kind.mid(9).toInt()) : QString(); },
                           .derived = {u"sHash"_s}});
}

void enterCars()
{
    RecordSubjects::enter({.table = u"AutomobilInformations"_s,
                           .kind = u"خودرو"_s,
                           .form = u"AutomobilInformations"_s,
                           .make = RecordSubject::maker<CTblAutomobilInformations>(),
                           .title =
                               [](KMySQL &record) {
                                   const auto &car = static_cast<const CTblAutomobilInformations &>(record);
                                   return titleOf(car.m_iCode, car.m_sNumOfPlates.simplified());
                               },
                           .caption = captions({{u"iCode"_s, codeCaption},
                                                {u"iStatus"_s, statusCaption},
                                                {u"iPersonID"_s, u"مالک"_s},
                                                {u"iPersonBuyerID"_s, u"خریدار"_s},
                                                {u"iAutomobilType"_s, u"برند"_s},
                                                {u"sVIN"_s, u"VIN"_s},
                                                {u"bDocumentDeficit"_s, u"کسری مدارک دارد"_s},
                                                {u"bFractionalParts"_s, u"کسری لوازم دارد"_s},
                                                {u"dPaidComission"_s, u"پرداخت شده کمیسیون"_s},
                                                {u"dRemainingComission"_s, u"مانده کمیسیون"_s}}),
                           .word = words(Lists{{u"iStatus"_s, activity()},
                                               {u"iFuel"_s, WordLists::texts(WordLists::fuelTypes())},
                                               {u"iUsageType"_s, WordLists::texts(WordLists::usageTypes())},
                                               {u"iTypeDocument"_s, {u"قولنامه ای"_s, u"اجاره ای"_s}}}),
                           .recordKinds = {CTblAutomobilInformations::recordKind}});
    RecordSubjects::enter({.table = u"AutomobilDemands"_s,
                           .kind = u"تقاضا"_s,
                           .form = u"AutomobilDemands"_s,
                           .make = RecordSubject::maker<CTblAutomobilDemands>(),
                           .title = [](KMySQL &record) { return QString::number(static_cast<const CTblAutomobilDemands &>(record).m_iCode); },
                           .caption = captions({{u"iCode"_s, codeCaption}, {u"iStatus"_s, statusCaption}, {u"iPersonID"_s, u"شخص"_s}, {u"iAutomobilType"_s, u"برند"_s}}),
                           .word = [words = words(Lists{{u"iStatus"_s, activity()}})](const QString &column, const QVariant &value) { return column == "iAlarmID"_L1 ? (value.toInt() > 0 ? u"دارد"_s : u"ندارد"_s) : words(column, value); },
                           .recordKinds = {CTblAutomobilDemands::recordKind}});
}

// The three levels of the catalog have the same names for what they share.
template <class Entry>
void enterLevel(const QString &kind, const QHash<QString, QString> &texts)
{
    RecordSubjects::enter({.table = Entry().GetTableName(),
                           .kind = kind,
                           .form = u"CarsAll"_s,
                           .make = RecordSubject::maker<Entry>(),
                           .title = [](KMySQL &record) { return static_cast<const Entry &>(record).m_sName; },
                           .caption = captions(texts),
                           .word = words(Lists{{u"iStatus"_s, activity()}})});
}

void enterCatalog()
{
    enterLevel<CTblCarBrands>(u"برند خودرو"_s, {});
    // Columns are named after other levels than those that they hold.
    enterLevel<CTblCarModels>(u"مدل خودرو"_s, {{u"iClassID"_s, u"برند"_s}});
    enterLevel<CTblCarClasses>(u"تیپ خودرو"_s, {{u"iBrandID"_s, u"مدل"_s}});
    RecordSubjects::enter({.table = u"AutomobilTariffs"_s,
                           .kind = u"هزینه محضر"_s,
                           .form = u"AutomobilTariffs"_s,
                           .make = RecordSubject::maker<CTblAutomobilTariffs>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblAutomobilTariffs &>(record).m_sTitle; },
                           .caption = captions({{u"iStatus"_s, statusCaption}}),
                           .word = words(Lists{{u"iStatus"_s, activity()}})});
    RecordSubjects::enter({.table = u"Items"_s,
                           .kind = u"پارامتر ورودی"_s,
                           .form = u"InputParameters"_s,
                           .make = RecordSubject::maker<CTblItems>(),
                           .title = [](KMySQL &record) { return static_cast<const CTblItems &>(record).m_sName; },
                           .caption = captions({{u"iStatus"_s, statusCaption}}),
                           .word = [](const QString &column, const QVariant &value) {
                               if (column == "iStatus"_L1)
                                   return activity().value(value.toInt());
                               for (int option = 0; column == "iType"_L1 && option < InputParameters::optionCount; ++option) {
                                   if (InputParameters::itemType(option) == value.toInt())
                                       return InputParameters::caption(option);
                               }
                               return QString(); }});
}

const QStringList &tables()
{
    static const QStringList list{u"AutomobilContracts"_s, u"InstalmentPlan"_s, u"CarContracts"_s, u"Templates"_s, u"AutomobilInformations"_s, u"AutomobilDemands"_s, u"CarBrands"_s, u"CarModels"_s, u"CarClasses"_s, u"AutomobilTariffs"_s, u"Items"_s};
    return list;
}

}

AutoSubjects::AutoSubjects()
{
    enterContracts();
    enterCars();
    enterCatalog();
    AutoImports::enter();
}

// The functions that they hold are the module's.
AutoSubjects::~AutoSubjects()
{
    AutoImports::leave();
    for (const QString &table : tables())
        RecordSubjects::remove(table);
}

void AutoSubjects::enter()
{
    AutoStory::enter();
    static const AutoSubjects entered;
}

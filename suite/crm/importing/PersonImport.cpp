// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/importing/PersonImport.h"

#include "suite/accounting/importing/ImportParsers.h"
#include "suite/accounting/importing/ImportRecord.h"
#include "suite/accounting/twins/TwinSettings.h"
#include "suite/accounting/twins/TwinTable.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/MobileNumber.h"
#include "suite/crm/persons/NationalCode.h"
#include "suite/utility/values/Provinces.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 highestNumber = std::numeric_limits<qint32>::max();
// What the program's own list says instead of a name and a family name.
const QString wholeName = u"wholeName"_s;

ImportParser kinds()
{
    return ImportParsers::word({{u"حقیقی"_s, CTblPersons::kindNatural}, {u"حقیقی (اتباع خارجی)"_s, CTblPersons::kindForeigner}, {u"حقوقی"_s, CTblPersons::kindLegal}, {u"اتباع"_s, CTblPersons::kindForeigner}, {u"اتباع خارجی"_s, CTblPersons::kindForeigner}, {u"شخص"_s, CTblPersons::kindNatural}, {u"شرکت"_s, CTblPersons::kindLegal}, {u"natural"_s, CTblPersons::kindNatural}, {u"foreigner"_s, CTblPersons::kindForeigner}, {u"legal"_s, CTblPersons::kindLegal}, {u"company"_s, CTblPersons::kindLegal}});
}

ImportParser sexes()
{
    return ImportParsers::word({{u"مرد"_s, CTblPersons::sexMan}, {u"زن"_s, CTblPersons::sexWoman}, {u"آقا"_s, CTblPersons::sexMan}, {u"آقای"_s, CTblPersons::sexMan}, {u"مذکر"_s, CTblPersons::sexMan}, {u"خانم"_s, CTblPersons::sexWoman}, {u"مونث"_s, CTblPersons::sexWoman}, {u"male"_s, CTblPersons::sexMan}, {u"m"_s, CTblPersons::sexMan}, {u"female"_s, CTblPersons::sexWoman}, {u"f"_s, CTblPersons::sexWoman}});
}

ImportParser states()
{
    return ImportParsers::word({{u"فعال"_s, CTblPersons::statusActive}, {u"غیر فعال"_s, CTblPersons::statusInactive}, {u"active"_s, CTblPersons::statusActive}, {u"inactive"_s, CTblPersons::statusInactive}});
}

ImportParser provinces()
{
    QList<ImportParsers::Word> words;
    for (const QString &name : Provinces::names())
        words.append({name, Provinces::code(name)});
    return ImportParsers::word(words);
}

// The numbers of a person by which a twin is known, the surest first.
struct Number
{
    QString column;
    Twins::Sort sort;
    QString same; // "همان کد ملی"
    const OfficeSettings::Key *refused;
};

const QList<Number> &numbers()
{
    static const QList<Number> all{
        {u"sNationalCode"_s, Twins::Sort::Number, u"همان کد ملی"_s, &TwinSettings::nationalCode},
        {u"sMobile"_s, Twins::Sort::Telephone, u"همان موبایل"_s, &TwinSettings::mobile},
        {u"iCode"_s, Twins::Sort::Number, u"همان کد شخص"_s, nullptr},
        {u"sName2"_s, Twins::Sort::Number, u"همین نام و نام پدر"_s, nullptr},
    };
    return all;
}

class PersonRun : public ImportRun
{
public:
    explicit PersonRun(int database, const QList<ImportField> &fields)
        : m_record(database)
        , m_fields(fields)
        , m_twins(u"Persons"_s, {{u"sNationalCode"_s, Twins::Sort::Number}, {u"sMobile"_s, Twins::Sort::Telephone}, {u"iCode"_s, Twins::Sort::Number}, {u"sName2"_s, Twins::Sort::Number, u"sFatherName"_s}}, database)
    {
        for (const Number &number : numbers()) {
            if (number.refused && TwinSettings::binds(*number.refused, database))
                m_bound.insert(number.column);
        }
        m_record.Open(true, false, true);
    }

    void check(ImportRow &row) override;
    qint32 write(const ImportRow &row) override;

private:
    void checkName(ImportRow &row) const;
    void checkNumbers(ImportRow &row) const;
    void findTwin(ImportRow &row);
    static QString said(const Number &number, const ImportRow &row);
    static QString nameOf(const ImportRow &row) { return CTblPersons::displayName(row.text(u"sName"_s), row.text(u"sFamily"_s)); }

    CTblPersons m_record;
    QList<ImportField> m_fields;
    TwinTable m_twins;
    QSet<QString> m_bound; // columns whose numbers the office takes only once
};

void PersonRun::check(ImportRow &row)
{
    checkName(row);
    checkNumbers(row);
    ImportRecord::requireFits(m_record, m_fields, row);
    findTwin(row);
}

// A whole name is the first name up to the first blank; a company's is its name.
void PersonRun::checkName(ImportRow &row) const
{
    const QString whole = row.values.take(wholeName).toString();
    const bool isLegal = row.values.value(u"iKind"_s).toInt() == CTblPersons::kindLegal;
    if (!whole.isEmpty() && nameOf(row).isEmpty()) {
        row.values.insert(u"sName"_s, isLegal ? whole : whole.section(u' ', 0, 0));
        row.values.insert(u"sFamily"_s, isLegal ? QString() : whole.section(u' ', 1));
    }
    if (isLegal) {
        row.values.insert(u"sName"_s, nameOf(row));
        row.values.insert(u"sFamily"_s, QString());
    }
    if (nameOf(row).isEmpty())
        row.refuse(u"نام"_s, u"نام شخص خالی است. نام یا نام خانوادگی را بنویسید."_s);
}

void PersonRun::checkNumbers(ImportRow &row) const
{
    using State = NationalCode::State;
    const QString code = row.text(u"sNationalCode"_s);
    const int kind = row.values.value(u"iKind"_s).toInt();
    // A spreadsheet that takes the code for a number drops the noughts in front of it.
    const QString whole = code.rightJustified(kind == CTblPersons::kindLegal ? 11 : 10, u'0');
    if (kind != CTblPersons::kindForeigner && code.size() >= 8
        && (kind == CTblPersons::kindLegal ? NationalCode::checkCompany(whole) : NationalCode::checkPerson(whole)) == State::Good)
        row.values.insert(u"sNationalCode"_s, whole);
    const QString national = row.text(u"sNationalCode"_s);
    const State state = kind == CTblPersons::kindLegal ? NationalCode::checkCompany(national)
        : kind == CTblPersons::kindForeigner           ? NationalCode::checkForeigner(national)
                                                       : NationalCode::checkPerson(national);
    if (state != State::Empty && state != State::Good)
        row.refuse(u"کد ملی"_s, state == State::WrongCheckDigit ? u"«%1» رقم کنترل درستی ندارد. آن را از روی کارت بنویسید یا خالی بگذارید."_s.arg(national) : u"«%1» کد ملی (10 رقم) یا شناسه ملی شرکت (11 رقم) نیست."_s.arg(national));
    if (const QString mobile = row.text(u"sMobile"_s); !mobile.isEmpty() && !MobileNumber::isGood(mobile))
        row.refuse(u"موبایل"_s, u"«%1» شماره موبایل نیست. مانند 09121234567 بنویسید."_s.arg(mobile));
}

QString PersonRun::said(const Number &number, const ImportRow &row)
{
    return number.column == "sName2"_L1 ? nameOf(row) : row.text(number.column);
}

// People who share a name are twins only with the same father.
void PersonRun::findTwin(ImportRow &row)
{
    const QString father = row.text(u"sFatherName"_s);
    for (const Number &number : numbers()) {
        const std::optional<TwinTable::Found> found = m_twins.find(number.column, said(number, row), father);
        if (found && !row.twin) {
            const QString who = (found->key > 0 ? u"شخص کد %1: %2"_s : u"سطر %1 همین فایل: %2"_s).arg(found->number).arg(number.same);
            row.twin = ImportTwin{who, found->key, m_bound.contains(number.column)};
        }
        m_twins.add(number.column, said(number, row), father, row.number);
    }
}

qint32 PersonRun::write(const ImportRow &row)
{
    m_record.AddNew();
    ImportRecord::fill(m_record, row);
    m_record.m_bNatural = m_record.isNatural() ? 1 : 0;
    if (!keepsCode(row))
        m_record.m_iCode = drawCode();
    m_record.Update(true);
    return m_record.m_iID;
}

}

QString PersonImport::kindId()
{
    return u"persons"_s;
}

QString PersonImport::title() const
{
    return u"اشخاص"_s;
}

QString PersonImport::form() const
{
    return u"Persons"_s;
}

QString PersonImport::table() const
{
    return u"Persons"_s;
}

qint32 PersonImport::nextCode(int database) const
{
    return CTblPersons::nextCode(database);
}

std::unique_ptr<ImportRun> PersonImport::begin(int database) const
{
    return std::make_unique<PersonRun>(database, fields());
}

QList<ImportField> PersonImport::fields() const
{
    using namespace ImportParsers;
    return {
        {.key = u"iCode"_s, .title = u"کد شخص"_s, .words = {u"کد"_s, u"code"_s, u"person code"_s}, .parse = whole(1, highestNumber)},
        {.key = u"iKind"_s, .title = u"نوع شخص"_s, .words = {u"نوع"_s, u"حقیقی/حقوقی"_s, u"kind"_s, u"type"_s}, .parse = kinds(), .example = u"حقیقی"_s},
        {.key = u"sName"_s, .title = u"نام"_s, .words = {u"نام کوچک"_s, u"نام شرکت"_s, u"first name"_s, u"name"_s}, .parse = text(), .example = u"علی"_s},
        {.key = u"sFamily"_s, .title = u"نام خانوادگی"_s, .words = {u"فامیل"_s, u"فامیلی"_s, u"شهرت"_s, u"last name"_s, u"family"_s, u"surname"_s}, .parse = text(), .example = u"رضایی"_s},
        {.key = wholeName, .title = u"نام و نام خانوادگی"_s, .words = {u"نام کامل"_s, u"نام مشتری"_s, u"نام شخص"_s, u"full name"_s}, .parse = text()},
        {.key = u"sNationalCode"_s, .title = u"کد ملی"_s, .words = {u"کدملی"_s, u"شناسه ملی"_s, u"کد ملی/شناسه ملی"_s, u"شماره ملی"_s, u"national code"_s, u"national id"_s}, .parse = digits(0, 0), .example = u"0499370899"_s},
        {.key = u"iSex"_s, .title = u"جنسیت"_s, .words = {u"جنس"_s, u"sex"_s, u"gender"_s}, .parse = sexes(), .example = u"مرد"_s},
        {.key = u"sFatherName"_s, .title = u"نام پدر"_s, .words = {u"پدر"_s, u"father"_s, u"father name"_s}, .parse = text(), .example = u"حسن"_s},
        {.key = u"dateBirth"_s, .title = u"تاریخ تولد"_s, .words = {u"تولد"_s, u"تاریخ تاسیس"_s, u"birth date"_s, u"birthday"_s}, .parse = date(), .example = u"1360/01/15"_s},
        {.key = u"sBirthCity"_s, .title = u"محل تولد"_s, .words = {u"birth place"_s}, .parse = text(), .example = u"تهران"_s},
        {.key = u"sIdentityNum"_s, .title = u"شماره شناسنامه"_s, .words = {u"شناسنامه"_s, u"ش ش"_s, u"شماره ثبت"_s, u"identity number"_s}, .parse = text(), .example = u"1234"_s},
        {.key = u"sIdentityCity"_s, .title = u"محل صدور"_s, .words = {u"صادره از"_s, u"صادره"_s, u"محل ثبت"_s}, .parse = text(), .example = u"تهران"_s},
        {.key = u"sMobile"_s, .title = u"موبایل"_s, .words = {u"تلفن همراه"_s, u"همراه"_s, u"شماره موبایل"_s, u"mobile"_s, u"cell"_s, u"cell phone"_s}, .parse = digits(11, 1), .example = u"09121234567"_s},
        {.key = u"sAreaCode"_s, .title = u"پیش شماره"_s, .words = {u"کد شهر تلفن"_s, u"area code"_s}, .parse = text(), .example = u"021"_s},
        {.key = u"sTel"_s, .title = u"تلفن"_s, .words = {u"تلفن ثابت"_s, u"شماره تلفن"_s, u"tel"_s, u"telephone"_s, u"phone"_s}, .parse = text(), .example = u"88112233"_s},
        {.key = u"sPostalCode"_s, .title = u"کد پستی"_s, .words = {u"کدپستی"_s, u"postal code"_s, u"zip"_s}, .parse = digits(10, 2), .example = u"1234567890"_s},
        {.key = u"sAddress"_s, .title = u"آدرس"_s, .words = {u"نشانی"_s, u"address"_s}, .parse = text(), .example = u"تهران، خیابان آزادی"_s},
        {.key = u"sEconomicCode"_s, .title = u"کد اقتصادی"_s, .words = {u"شماره اقتصادی"_s, u"economic code"_s}, .parse = text()},
        {.key = u"iProvinceCode"_s, .title = u"استان"_s, .words = {u"province"_s}, .parse = provinces(), .example = u"تهران"_s},
        {.key = u"iTaxZone"_s, .title = u"حوزه مالیاتی"_s, .words = {u"tax zone"_s}, .parse = whole(0, highestNumber)},
        {.key = u"dPercentDiscount"_s, .title = u"درصد تخفیف"_s, .words = {u"تخفیف"_s, u"discount"_s}, .parse = percent()},
        {.key = u"iStatus"_s, .title = u"وضعیت"_s, .words = {u"status"_s}, .parse = states(), .example = u"فعال"_s},
    };
}

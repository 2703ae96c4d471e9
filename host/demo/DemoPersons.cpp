// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoPersons.h"

#include "host/demo/DemoNames.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

// Nine digits that no two persons share, and the check digit (see NationalCode.h).
QString nationalCode(int id, DemoRandom &random)
{
    const QString nine = u"%1%2"_s.arg(random.between(1, 4)).arg(10000000 + id * 7, 8, 10, QLatin1Char('0'));
    int sum = 0;
    for (int place = 0; place < 9; ++place)
        sum += nine.at(place).digitValue() * (10 - place);
    const int rest = sum % 11;
    return nine + QString::number(rest < 2 ? rest : 11 - rest);
}

// Eleven digits with the check digit of a company (see NationalCode.h).
QString companyCode(int id)
{
    const QString ten = u"10%1"_s.arg(10000000 + id * 3, 8, 10, QLatin1Char('0'));
    constexpr int weights[] = {29, 27, 23, 19, 17};
    const int raise = ten.at(9).digitValue() + 2;
    int sum = 0;
    for (int place = 0; place < 10; ++place)
        sum += (ten.at(place).digitValue() + raise) * weights[place % 5];
    return ten + QString::number(sum % 11 % 10);
}

void makeNatural(CTblPersons &person, int id, DemoRandom &random)
{
    const bool woman = random.chance(30);
    person.m_iKind = CTblPersons::kindNatural;
    person.m_bNatural = 1;
    person.m_iSex = woman ? CTblPersons::sexWoman : CTblPersons::sexMan;
    person.m_sName = random.oneOf(woman ? DemoNames::women() : DemoNames::men()).toString();
    person.m_sFamily = random.oneOf(DemoNames::families()).toString();
    person.m_sFatherName = random.oneOf(DemoNames::men()).toString();
    person.m_dateBirth = QDateTime(QDate(1955, 3, 21).addDays(random.below(17500)), QTime(0, 0), Qt::UTC);
    person.m_sIdentityNum = QString::number(random.between(1, 9999));
    person.m_sNationalCode = nationalCode(id, random);
    person.m_sEconomicCode.clear();
}

void makeLegal(CTblPersons &person, int id, DemoRandom &random)
{
    person.m_iKind = CTblPersons::kindLegal;
    person.m_bNatural = 0;
    person.m_iSex = CTblPersons::sexMan;
    person.m_sName = random.oneOf(DemoNames::companies()).toString() + u" %1"_s.arg(id);
    person.m_sFamily.clear();
    person.m_sFatherName.clear();
    person.m_dateBirth = QDateTime(QDate(1990, 3, 21).addDays(random.below(10000)), QTime(0, 0), Qt::UTC);
    person.m_sIdentityNum = QString::number(random.between(10000, 99999));
    person.m_sNationalCode = companyCode(id);
    person.m_sEconomicCode = u"411%1"_s.arg(100000000 + id, 9, 10, QLatin1Char('0'));
}

}

namespace DemoPersons {

void make(CTblPersons &person, int id, DemoRandom &random)
{
    person.m_iID = id;
    person.m_iCode = id;
    if (random.chance(93))
        makeNatural(person, id, random);
    else
        makeLegal(person, id, random);
    const DemoNames::City city = random.oneOf(DemoNames::cities());
    person.m_sBirthCity = city.name.toString();
    person.m_sIdentityCity = city.name.toString();
    person.m_sAreaCode = city.areaCode.toString();
    person.m_sTel = QString::number(random.between(22000000, 88999999));
    person.m_sMobile = u"0912%1"_s.arg(1000000 + (id * 37) % 9000000, 7, 10, QLatin1Char('0'));
    person.m_sPostalCode = QString::number(1000000000LL + random.below(899999999));
    person.m_sAddress = u"%1، %2، پلاک %3"_s
                            .arg(city.name, random.oneOf(DemoNames::streets()), QString::number(random.between(1, 320)));
    person.m_dPercentDiscount = random.chance(12) ? 5.0 * random.between(1, 4) : 0.0;
    person.m_iStatus = random.chance(2) ? CTblPersons::statusInactive : CTblPersons::statusActive;
    person.m_sName = ConvertToStandard(person.m_sName);
    person.m_sFamily = ConvertToStandard(person.m_sFamily);
    person.m_sName2 = CTblPersons::displayName(person.m_sName, person.m_sFamily);
    person.m_sAddress = ConvertToStandard(person.m_sAddress);
}

QList<Person> write(int count, DemoRandom &random, int database)
{
    CTblPersons record(database);
    QStringList columns;
    for (const KMySQL::Column &column : record.columns())
        columns.append(column.name);
    RecordBulkInsert rows(record, columns, RecordBulkInsert::IntoEmptyTable);
    QList<Person> persons;
    persons.reserve(count);
    for (int id = 1; id <= count; ++id) {
        make(record, id, random);
        rows.add();
        persons.append({id, record.m_sName2, record.m_sMobile, record.m_sAreaCode + record.m_sTel, record.m_sAddress,
                        record.m_sNationalCode, record.m_dPercentDiscount});
    }
    rows.flush();
    return persons;
}

}

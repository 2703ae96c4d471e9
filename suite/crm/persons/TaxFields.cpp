// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/TaxFields.h"

#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/values/Provinces.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct TaxKind
{
    int code;
    const char16_t *name;
};

constexpr TaxKind taxKinds[] = {
    {5, u"مودی مشمول ثبت نام در نظام مالیاتی"},
    {6, u"مشمول حقیقی ماده 81 قانون مالیات‌های مستقیم"},
    {7, u"شخصی که مشمول ثبت نام در نظام مالیاتی نیست"},
    {8, u"مصرف کننده نهایی"},
};

const QString nothing = u"-"_s;
constexpr int noProvince = -1;

QComboBox *makeChoice(QWidget *page)
{
    auto *choice = new KDropDown(page);
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setMinimumContentsLength(12);
    return choice;
}

void choose(QComboBox *choice, int code)
{
    if (choice->findData(code) < 0)
        choice->addItem(QString::number(code), code);
    choice->setCurrentIndex(choice->findData(code));
}

QString kindWord(int number)
{
    const auto found = std::ranges::find(taxKinds, number, &TaxKind::code);
    return found == std::end(taxKinds) ? QString::number(number) : QString::fromUtf16(found->name);
}

QString provinceWord(int number)
{
    for (const QString &name : Provinces::names()) {
        if (Provinces::code(name) == number)
            return name;
    }
    return QString::number(number);
}

QString cityWord(int number)
{
    for (const QString &province : Provinces::names()) {
        for (const Provinces::County &county : Provinces::counties(Provinces::code(province))) {
            if (county.code == number)
                return county.cities;
        }
    }
    return QString::number(number);
}

// As problem says: a city's number stands for مرکزی.
int provinceOf(const CTblPersons &person)
{
    const bool ofCity = person.m_iProvinceCode == 0 && person.m_iCityCode > 0 && person.m_iCityCode < Provinces::countiesOfAProvince;
    return person.m_iProvinceCode == 0 && !ofCity ? noProvince : person.m_iProvinceCode;
}

}

TaxFields::TaxFields(QWidget *page)
    : m_kind(makeChoice(page))
    , m_province(makeChoice(page))
    , m_city(makeChoice(page))
{
    m_kind->addItem(nothing, 0);
    for (const TaxKind &kind : taxKinds)
        m_kind->addItem(QString::fromUtf16(kind.name), kind.code);
    m_province->addItem(nothing, noProvince);
    for (const QString &name : Provinces::names())
        m_province->addItem(name, Provinces::code(name));
    fillCities();
    QObject::connect(m_province, &QComboBox::currentIndexChanged, page, [this] { fillCities(); });
}

void TaxFields::place(FormGrid *grid) const
{
    addLabelled(grid, u"نوع مودی :"_s, m_kind, 2);
    addLabelled(grid, u"استان :"_s, m_province);
    addLabelled(grid, u"شهر :"_s, m_city);
}

void TaxFields::setReadOnly(bool readOnly)
{
    for (QComboBox *choice : {m_kind, m_province, m_city})
        choice->setEnabled(!readOnly);
}

void TaxFields::fillCities()
{
    m_city->clear();
    m_city->addItem(nothing, 0);
    for (const Provinces::County &county : Provinces::counties(m_province->currentData().toInt()))
        m_city->addItem(county.cities, county.code);
}

void TaxFields::load(const CTblPersons &person)
{
    choose(m_kind, person.m_iTaxKind);
    choose(m_province, provinceOf(person));
    choose(m_city, person.m_iCityCode);
}

void TaxFields::store(CTblPersons &person) const
{
    const int province = m_province->currentData().toInt();
    person.m_iTaxKind = m_kind->currentData().toInt();
    person.m_iProvinceCode = province == noProvince ? 0 : province;
    person.m_iCityCode = m_city->currentData().toInt();
}

QString TaxFields::problem() const
{
    const bool lost = m_province->currentData().toInt() == 0 && m_city->currentData().toInt() == 0;
    return lost ? u"لطفا شهر را انتخاب نمایید: کد استان مرکزی صفر است و بدون شهر ثبت نمی شود."_s : QString();
}

std::optional<QString> TaxFields::word(const QString &column, int number)
{
    if (column == u"iTaxKind")
        return number == 0 ? nothing : kindWord(number);
    if (column == u"iProvinceCode")
        return provinceWord(number);
    if (column == u"iCityCode")
        return number == 0 ? nothing : cityWord(number);
    return std::nullopt;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/OfficeFields.h"

#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

const QList<MessageField> &OfficeFields::fields()
{
    static const QList<MessageField> list{
        {u"نمایشگاه"_s, u"نام نمایشگاه"_s},
        {u"تلفن نمایشگاه"_s, u"تلفن نمایشگاه، با کد شهر"_s},
        {u"موبایل نمایشگاه"_s, u"تلفن همراه نمایشگاه"_s},
        {u"نشانی نمایشگاه"_s, u"نشانی نمایشگاه"_s},
        {u"امروز"_s, u"تاریخ امروز"_s},
    };
    return list;
}

QHash<QString, QString> OfficeFields::read(int database)
{
    const OfficeSettings settings = OfficeSettings::read({CompanyDetails::section()}, database);
    const CompanyDetails office = CompanyDetails::of(settings);
    const bool hasAreaCode = !office.areaCode.isEmpty() && !office.telephone.isEmpty() && !office.telephone.startsWith(u'0');
    return {
        {u"نمایشگاه"_s, office.name()},
        {u"تلفن نمایشگاه"_s, hasAreaCode ? office.areaCode + office.telephone : office.telephone},
        {u"موبایل نمایشگاه"_s, office.mobile},
        {u"نشانی نمایشگاه"_s, office.address},
        {u"امروز"_s, shamsiText(settings.serverTime().date())},
    };
}

QString OfficeFields::addressed(const QString &name, bool isNatural, bool isWoman)
{
    if (name.isEmpty() || !isNatural)
        return name;
    return (isWoman ? u"خانم "_s : u"آقای "_s) + name;
}

QString OfficeFields::money(double amount, const OfficeSettings &office)
{
    return IsEquals(amount, 0) ? QString() : u"%1 %2"_s.arg(DToMoney(amount, office.moneyDecimals()), office.moneyUnitName());
}

QString OfficeFields::number(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

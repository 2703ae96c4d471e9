// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/twins/TwinSettings.h"

#include "suite/accounting/office/CDBSetting.h"

using namespace Qt::StringLiterals;

const QList<TwinSettings::Named> &TwinSettings::all()
{
    static const QList<Named> list{
        {plate, u"پلاک"_s},
        {chassis, u"شماره شاسی"_s},
        {engine, u"شماره موتور"_s},
        {vin, u"VIN"_s},
        {nationalCode, u"کد ملی"_s},
        {mobile, u"موبایل"_s},
    };
    return list;
}

bool TwinSettings::isRefused(const OfficeSettings &settings, const OfficeSettings::Key &key)
{
    return settings.integer(key.section.toString(), key.key.toString(), 0) != 0;
}

bool TwinSettings::binds(const OfficeSettings::Key &key, int database)
{
    return !GetDBSetting()->IsAdmin() && isRefused(OfficeSettings::read({section()}, database), key);
}

QString TwinSettings::refusal(const QString &what, const Twin &twin)
{
    return u"%1 در «%2» هم هست و این نمایشگاه آن را دو بار نمی‌پذیرد. Ctrl+T در همین خانه آن را نشان می‌دهد."_s.arg(what, twin.text);
}

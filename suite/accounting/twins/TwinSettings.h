// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/twins/Twins.h"

#include <QList>

// Which numbers the office takes only once. The others are warned of, and administrators may go on with these too.
namespace TwinSettings {

inline constexpr OfficeSettings::Key plate{u"Twins", u"bRefusePlate"};
inline constexpr OfficeSettings::Key chassis{u"Twins", u"bRefuseChassis"};
inline constexpr OfficeSettings::Key engine{u"Twins", u"bRefuseEngine"};
inline constexpr OfficeSettings::Key vin{u"Twins", u"bRefuseVin"};
inline constexpr OfficeSettings::Key nationalCode{u"Twins", u"bRefuseNationalCode"};
inline constexpr OfficeSettings::Key mobile{u"Twins", u"bRefuseMobile"};

inline QString section()
{
    return plate.section.toString();
}

struct Named
{
    OfficeSettings::Key key;
    QString caption; // "شماره شاسی"
};
TZACCOUNTINGDATA_EXPORT const QList<Named> &all();

// Of settings that were read along with the section.
TZACCOUNTINGDATA_EXPORT bool isRefused(const OfficeSettings &settings, const OfficeSettings::Key &key);
// Whether the current user has to give another number. Reads the settings. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT bool binds(const OfficeSettings::Key &key, int database = 0);
// what: "VIN این خودرو".
TZACCOUNTINGDATA_EXPORT QString refusal(const QString &what, const Twin &twin);

}

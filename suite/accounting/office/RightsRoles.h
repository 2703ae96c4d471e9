// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QHash>
#include <QString>
#include <QStringList>

// Roles of people in an office, as starting points for the rights of a user: what each of them may do with every form. A role is
// not stored; what it gives can be changed like any other right.
namespace RightsRoles {

// In the order in which they are offered.
TZACCOUNTINGDATA_EXPORT QStringList names();
// Bits of KSecurity::Right for each form of KSecurity::forms(); empty for a name that is no role.
TZACCOUNTINGDATA_EXPORT QHash<QString, int> rightsOf(const QString &role);

}

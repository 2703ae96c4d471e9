// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMExport.h"

#include <QString>

class QWidget;

// The sentences shown beside a number that looks wrong. They never refuse an entry.
namespace IdentityHints {

// Empty when there is nothing to say. The kind is that of CTblPersons::m_iKind.
TZCRM_EXPORT QString nationalCode(const QString &code, int personKind);
TZCRM_EXPORT QString mobile(const QString &number);

// Shows the hint beside the control's label, and sets it as the control's description for screen readers.
TZCRM_EXPORT void show(const QString &hint, QWidget *control);

}

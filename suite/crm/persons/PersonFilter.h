// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KFilterControl.h"
#include "suite/crm/TzCRMExport.h"

// Makes the KPersonField of a list's person filter, for KListTraits::makePerson; with another caption on its clear button than
// "حذف" when one is passed.
TZCRM_EXPORT KFilterControl::Maker personFilter(const QString &clearCaption = {});

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// What the list of users can be asked for: a part of the login name or of the person's, and whether those who may not log in
// are among them.
QList<KListFilter> userFilters();

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

// Filter of the list of users: a part of the login name or of the person's name, and whether users who may not log in
// are included.
QList<KListFilter> userFilters();

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/words/WordLists.h"
#include "suite/accounting/lists/KListFilter.h"

// For KListFilter::choices: the words of a list, valued by their positions.
KListFilter::Choices wordChoices(WordLists::List list);

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/contracts/editor/ContractEditorPage.h"

#include <QString>

// Title of the contract editor: "قرارداد ", the type's name and the mode's suffix. An unknown type has no name.
QString contractEditorTitle(int contractType, ContractEditorMode mode);

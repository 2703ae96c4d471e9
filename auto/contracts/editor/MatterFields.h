// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/forms/KForm.h"

// The form table of the matter page: the vehicle, payment, registry, rent and instalment columns of a contract.
QList<KFormField> matterFields();

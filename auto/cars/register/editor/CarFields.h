// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/forms/KForm.h"

// The form tables of the car editor's pages, over the columns of AutomobilInformations.
namespace CarFields {

QList<KFormField> base();
QList<KFormField> sale();

}

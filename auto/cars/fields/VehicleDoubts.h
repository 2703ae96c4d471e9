// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/forms/KForm.h"

class KEdit;

// What of a vehicle's year and number of wheels is hardly meant, each as a sentence. The lines may hold a text around the number.
QList<KForm::Problem> vehicleDoubts(KEdit *year, KEdit *wheels);

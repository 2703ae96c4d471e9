// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QStringView>

namespace MobileNumber {

// 09 and nine digits more, also written as +989..., 00989... or 989...; digits of any form, blanks and hyphens between
// them do not count.
TZCRMDATA_EXPORT bool isGood(QStringView number);

}

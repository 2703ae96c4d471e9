// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QString>
#include <QStringList>
#include <QStringView>

namespace MobileNumber {

// 09 and nine digits more, also written as +989..., 00989... or 989...; digits of any form, blanks and hyphens between
// them do not count.
TZCRMDATA_EXPORT bool isGood(QStringView number);
// The same number as 09 and nine digits; empty for one that is not good.
TZCRMDATA_EXPORT QString plain(QStringView number);
// As it is called from everywhere, "+989121234567"; empty for one that is not good.
TZCRMDATA_EXPORT QString international(QStringView number);
// The good ones of a text that may hold several, between commas, strokes or words; plain, each once.
TZCRMDATA_EXPORT QStringList allIn(QStringView text);
}

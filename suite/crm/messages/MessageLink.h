// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QUrl>

// A message as a link that the desktop passes to its messenger.
namespace MessageLink {

// "sms:+989121234567?body=...", all of the text percent-encoded. number: a good one (MobileNumber).
TZCRMDATA_EXPORT QUrl sms(const QString &number, const QString &text);

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageFilling.h"
#include "suite/crm/TzCRMDataExport.h"

// What both windows of messages say of a text.
namespace MessageWords {

// "132 حرف، 2 پیامک، جا برای 2 حرف دیگر"
TZCRMDATA_EXPORT QString size(const QString &text);
TZCRMDATA_EXPORT QString unknownField(const MessageFilling::Wrong &wrong);

}

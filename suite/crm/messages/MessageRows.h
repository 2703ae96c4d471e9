// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageKinds.h"
#include "suite/crm/TzCRMExport.h"

class KExtListCtrl;

// The records of a list that messages are written about.
namespace MessageRows {

// Those of the marked rows, from the first.
TZCRM_EXPORT QList<MessageAbout> marked(const KExtListCtrl &list);

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageRows.h"

#include "suite/utility/lists/KExtListCtrl.h"

QList<MessageAbout> MessageRows::marked(const KExtListCtrl &list)
{
    QList<MessageAbout> about;
    for (const int row : list.markedRows())
        about.append(MessageAbout{list.listModel()->keyAt(row)});
    return about;
}

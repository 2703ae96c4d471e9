// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/lists/ListClauses.h"

namespace {

// Positions of WordLists::archiveStates.
enum ArchiveState {
    NotArchived = 1,
    ArchivedBySelf = 2,
    ArchivedByOthers = 3
};

}

KListFilter::Clause ListClauses::archive(const char *notArchived, const char *column)
{
    return [notArchived, column](const QVariant &state, int userID) -> QString {
        switch (state.toInt()) {
        case NotArchived:
            return QString::asprintf(" AND %s=0", notArchived);
        case ArchivedBySelf:
            return QString::asprintf(" AND %s=%d", column, userID);
        case ArchivedByOthers:
            return QString::asprintf(" AND %s<>0 AND %s<>%d", column, column, userID);
        default:
            return {};
        }
    };
}

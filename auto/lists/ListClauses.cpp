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

KListFilter::Clause ListClauses::archive(KSql notArchived, KSql column)
{
    return [notArchived = std::move(notArchived), column = std::move(column)](const QVariant &state, int userID) -> KSql {
        switch (state.toInt()) {
        case NotArchived:
            return KSql::formatted(" AND %1=0", notArchived);
        case ArchivedBySelf:
            return KSql::formatted(" AND %1=%2", column, userID);
        case ArchivedByOthers:
            return KSql::formatted(" AND %1<>0 AND %1<>%2", column, userID);
        default:
            return {};
        }
    };
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/recovery/BackupListing.h"
#include "suite/utility/lists/KListModel.h"

// Backups as the rows of a list. A row's key is its position in the listing, from 1.
namespace BackupColumns {

QVector<KListModel::Column> columns();
QVector<KListModel::Row> rows(const QList<BackupListing::Entry> &entries);

}

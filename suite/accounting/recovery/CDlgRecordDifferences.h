// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/recovery/BackupRecords.h"
#include "suite/utility/frame/KDialog.h"

// What of a record is not as it was in a backup.
class TZACCOUNTING_EXPORT CDlgRecordDifferences : public KDialog
{
    Q_OBJECT

public:
    CDlgRecordDifferences(const QString &title, const QList<BackupRecords::Difference> &differences, QWidget *parent = nullptr);
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"

class CDlgFileDocs;

// The files of a record whose editor has no pages for them.
class TZACCOUNTING_EXPORT CDlgRecordFiles : public KDialog
{
    Q_OBJECT

public:
    // kind: RecordKinds.h.
    CDlgRecordFiles(int kind, qint32 recordID, bool readOnly, QWidget *parent = nullptr);
    ~CDlgRecordFiles() override;

    // To a user who may read the form; who may not change it opens and saves only.
    static void show(const QString &form, const QString &title, int kind, qint32 recordID, QWidget *parent);

    CDlgFileDocs *general() const { return m_general; }

private:
    CDlgFileDocs *m_general = nullptr;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialogTabPage.h"

class KExtListCtrl;
class QLabel;
class QPushButton;

// Editor page of the files attached to a record: "پرونده های عمومی" or "پرونده های شخصی". Files are kept and deleted at
// once, whether or not the editor is confirmed later.
class TZACCOUNTING_EXPORT CDlgFileDocs : public KDialogTabPage
{
    Q_OBJECT

public:
    explicit CDlgFileDocs(CTblFileDocs::Scope scope, QWidget *parent = nullptr);
    ~CDlgFileDocs() override;

    // The record kind (RecordKinds.h) and the record's key.
    void bind(int table, int recordID);
    // Files can still be opened and saved elsewhere.
    void setReadOnly(bool readOnly);

    // Reads the list again. The page does it by itself when it is shown.
    void fill();
    // The commands behind the buttons, with the path that the file dialogs return.
    bool addFile(const QString &path);
    bool saveFileAs(int id, const QString &path);
    // Opens a copy with the desktop's program for its kind. Returns the copy's path, empty when it was refused.
    QString openFile(int id);
    bool deleteFile(int id);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void build();
    void updateButtons();
    void chooseAndAdd();
    void chooseAndSave();

    CTblFileDocs::Scope m_scope;
    int m_table = 0;
    int m_recordID = 0;
    bool m_readOnly = false;
    KExtListCtrl *m_list = nullptr;
    QPushButton *m_addButton = nullptr;
    QPushButton *m_openButton = nullptr;
    QPushButton *m_saveButton = nullptr;
    QPushButton *m_deleteButton = nullptr;
    QLabel *m_count = nullptr;
};

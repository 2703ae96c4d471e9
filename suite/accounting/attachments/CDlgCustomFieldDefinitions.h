// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"

class KEdit;
class KExtListCtrl;
class QComboBox;
class QPushButton;

// Defines the custom fields of one record kind: add, rename, delete. A field's type stays as it was made, because the stored
// values are written in it.
class TZACCOUNTING_EXPORT CDlgCustomFieldDefinitions : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgCustomFieldDefinitions(int table, QWidget *parent = nullptr);
    ~CDlgCustomFieldDefinitions() override;

    // The commands behind the buttons; the name and type come from the entry fields.
    void addField();
    void renameField();
    // Asks first: the values that records hold for the field go with it.
    void deleteField();

private:
    void build();
    void fill(int selectedID);
    void showSelected(int fieldID);

    int m_table;
    KEdit *m_name;
    QComboBox *m_type;
    KExtListCtrl *m_list;
    QPushButton *m_renameButton;
    QPushButton *m_deleteButton;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentValues.h"
#include "suite/accounting/books/ManualDocument.h"
#include "suite/accounting/changes/OpenedRow.h"
#include "suite/utility/frame/KDialog.h"

class FormGrid;
class KDateEdit;
class KEdit;
class KLinesModel;
class KLinesView;
class QHBoxLayout;
class QLabel;

// Editor of a manual accounting document.
class CDlgAddDocument : public KDialog
{
    Q_OBJECT

public:
    // num 0: a new one.
    CDlgAddDocument(const ManualDocument &document, QWidget *parent = nullptr);
    ~CDlgAddDocument() override;

    // For a new document, after OK.
    int num() const { return m_num; }
    int fiscalYear() const { return m_fiscalYear; }
    // What the window shows, as it would be saved.
    ManualDocument document() const;
    KLinesView *rowsView() const { return m_rowsView; }
    QString totalsText() const;

    bool OnOK() override;

private:
    void build();
    void placeHead(FormGrid *grid);
    void fillRowCommands(QHBoxLayout *row);
    void load(const ManualDocument &document);
    void pickPerson(int row, int column);
    // Enters the amount that one side lacks into the current row.
    void balanceHere();
    void showTotals();
    bool refuseInvalidEntry();
    void goTo(const ManualDocument::Problem &problem);
    void remember(const ManualDocument &read);
    bool save(const ManualDocument &wanted);

    DocumentValues m_values;
    OpenedRow m_opened; // what the user began with
    int m_num;
    int m_fiscalYear;
    QSet<int> m_accounts;
    KLinesModel *m_rows = nullptr;
    KLinesView *m_rowsView = nullptr;
    KDateEdit *m_date = nullptr;
    KEdit *m_desc = nullptr;
    QLabel *m_totals = nullptr;
};

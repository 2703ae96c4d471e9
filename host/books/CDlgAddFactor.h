// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/OpenedRow.h"
#include "suite/accounting/invoices/InvoiceValues.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KDialog.h"

class AmountWords;
class FormGrid;
class KDateEdit;
class KLinesModel;
class KLinesView;
class KPersonField;
class QCheckBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

// Editor of an invoice of services: person, date, lines, their sums, and the accounting document.
class CDlgAddFactor : public KDialog
{
    Q_OBJECT

public:
    // The invoice to start from: a stored one, or a new one (num 0) of its type. showOnly: nothing can be changed.
    CDlgAddFactor(const Invoice &invoice, bool showOnly, QWidget *parent = nullptr);
    ~CDlgAddFactor() override;

    // Number of the invoice; for a new one, after OK.
    int num() const { return m_num; }
    // What the window shows, as it would be saved.
    Invoice invoice() const;
    KLinesView *linesView() const { return m_linesView; }

    bool OnOK() override;

private:
    void build();
    void placeHead(FormGrid *grid);
    void fillLineCommands(QHBoxLayout *row);
    void placeFigures(FormGrid *grid);
    void fillFooter();
    KEdit *addFigure(FormGrid *grid, const QString &caption, KEdit::Kind kind, bool readOnly);
    void load(const Invoice &invoice);
    void applyShowMode();
    void recompute();
    void showFigures();
    void showWords();
    bool refuse(const QString &message, QWidget *field);
    bool refuseInvalidEntry();
    bool refuseInvalidFigure();
    void goTo(const Invoice::Problem &problem);
    void remember(const Invoice &invoice);
    bool save();

    const OfficeSettings m_settings; // as read when the window was opened
    InvoiceValues m_values;
    OpenedRow m_opened; // what the user began with
    int m_num;
    int m_type;
    bool m_showOnly;
    int m_decimals;
    InvoiceFigures m_figures;
    KLinesModel *m_lines = nullptr;
    KLinesView *m_linesView = nullptr;
    KPersonField *m_person = nullptr;
    KDateEdit *m_date = nullptr;
    KEdit *m_desc = nullptr;
    QCheckBox *m_returned = nullptr;
    KEdit *m_sum = nullptr;
    KEdit *m_discount = nullptr;
    KEdit *m_taxPercent = nullptr;
    KEdit *m_tax = nullptr;
    KEdit *m_dutyPercent = nullptr;
    KEdit *m_duty = nullptr;
    KEdit *m_total = nullptr;
    AmountWords *m_words = nullptr;
    QLabel *m_document = nullptr;
    QPushButton *m_showDocument = nullptr;
    int m_docNum = 0;
    int m_fiscalYear = 0;
};

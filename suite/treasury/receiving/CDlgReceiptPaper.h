// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/receiving/ReceiptDetails.h"
#include "suite/treasury/receiving/ReceiptPaper.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class KWndReportGen;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

// Receipts as they will be printed, and from there the printer and a PDF file. The paper is remembered.
class TZTREASURY_EXPORT CDlgReceiptPaper : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgReceiptPaper(const QList<ReceiptDetails> &receipts, QWidget *parent = nullptr);
    ~CDlgReceiptPaper() override;

    // Shows the receipts to a user who may read them; says so when the user may not, or none of them is there.
    static void show(const QList<int> &receiptIDs, QWidget *parent);

    using KDialog::show;
    KWndReportGen *pages() const { return m_pages; }
    void savePdf(const QString &path) const;

private:
    void build();
    QWidget *buildBar();
    ReceiptPaper paper() const;
    ReceiptPaper::Size size() const;
    void showPaper();
    void showPosition();
    void choosePrinter();
    void askAndSavePdf();

    const QList<ReceiptDetails> m_receipts;
    const CompanyDetails m_office;
    const QString m_moneyUnit;
    KWndReportGen *m_pages = nullptr;
    QComboBox *m_size = nullptr;
    QPushButton *m_previous = nullptr;
    QPushButton *m_next = nullptr;
    QLabel *m_position = nullptr;
};

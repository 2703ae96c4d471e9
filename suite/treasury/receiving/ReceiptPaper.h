// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/PaperPages.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/treasury/receiving/ReceiptDetails.h"
#include "suite/treasury/TzTreasuryExport.h"

#include <QFont>

class QRectF;

// Receipts on paper ("رسید دریافت", "رسید پرداخت"), a page each. A5 holds one copy across; A4 two, one for each side, with a line to cut
// along.
class TZTREASURY_EXPORT ReceiptPaper : public PaperPages
{
public:
    enum class Size {
        A5,
        A4
    };

    // moneyUnit: as "ریال".
    ReceiptPaper(const QList<ReceiptDetails> &receipts, const CompanyDetails &office, const QString &moneyUnit, Size size);
    ~ReceiptPaper() override;

    static QString titleOf(const ReceiptDetails &receipt);

    int pageCount() const override;
    QPageLayout paper() const override;
    void paint(QPainter &painter, int page) const override;

private:
    struct Line
    {
        QString label;
        QString text;
        bool isStrong = false;
    };
    QList<Line> linesOf(const ReceiptDetails &receipt) const;
    void paintCopy(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area, const QString &copy) const;
    double paintHead(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area) const;
    void paintLines(QPainter &painter, const QList<Line> &lines, const QRectF &box) const;
    void paintSignatures(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area) const;
    void paintState(QPainter &painter, const ReceiptDetails &receipt, const QRectF &area) const;
    void paintCut(QPainter &painter, double y) const;

    QList<ReceiptDetails> m_receipts;
    CompanyDetails m_office;
    QString m_unit;
    Size m_size;
};

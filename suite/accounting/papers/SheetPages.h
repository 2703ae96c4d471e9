// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/papers/Letterhead.h"
#include "suite/accounting/papers/PaperSheet.h"
#include "suite/accounting/papers/SheetText.h"
#include "suite/accounting/reports/PaperPages.h"

#include <QRectF>

#include <vector>

// Papers of one kind, laid out one after the other. Each counts its own pages.
class TZACCOUNTING_EXPORT SheetPages : public PaperPages
{
public:
    enum class Size {
        A5,
        A4
    };

    SheetPages(const QList<PaperSheet> &sheets, const Letterhead &office, Size size);
    ~SheetPages() override;

    int pageCount() const override;
    QPageLayout paper() const override;
    void paint(QPainter &painter, int page) const override;

private:
    void lay(const PaperSheet &sheet, const Letterhead &office);
    void laySlip(const PaperSheet &sheet, const Letterhead &office);

    bool m_isSlip;
    Size m_size;
    std::vector<std::vector<SheetItem>> m_pages;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QPageLayout>

class QPainter;

// Pages that are laid out for paper and can be painted on anything.
//
// Lengths are dots of 1/600 inch whatever is painted on, so that screen, printer and PDF break lines and pages alike.
class TZACCOUNTING_EXPORT PaperPages
{
public:
    static constexpr int resolution = 600;

    virtual ~PaperPages();

    virtual int pageCount() const = 0;
    // The paper, without margins: the pages keep their own.
    virtual QPageLayout paper() const = 0;
    QSizeF paperSize() const;
    // Pages count from 0. The painter's unit must be a dot.
    virtual void paint(QPainter &painter, int page) const = 0;
};

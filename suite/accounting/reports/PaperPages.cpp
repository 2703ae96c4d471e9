// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/PaperPages.h"

PaperPages::~PaperPages() = default;

QSizeF PaperPages::paperSize() const
{
    return paper().fullRect(QPageLayout::Inch).size() * resolution;
}

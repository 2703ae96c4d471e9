// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QString>

#include <vector>

class QPainter;
class QRectF;

// A square that telephones read. Of a text that is empty, or longer than such a square holds, there is none.
class TZACCOUNTING_EXPORT QrCode
{
public:
    explicit QrCode(const QString &text);

    bool isEmpty() const { return m_size == 0; }
    // Fills the box from its top left, with the white border that readers need.
    void paint(QPainter &painter, const QRectF &box) const;

private:
    int m_size = 0; // modules of a side
    std::vector<bool> m_dark;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QLayout>

#include <vector>

// The cards of an editor's page, one below the other; two that belong together stand side by side where the page has room for
// eight columns. What is hidden takes no room. The cards have their own height; what is left stays empty below them, unless one
// is to grow.
class TZUTILITY_EXPORT CardStack : public QLayout
{
    Q_OBJECT

public:
    // With the margins of a window's page.
    explicit CardStack(QWidget *page);
    ~CardStack() override;

    void addCard(QWidget *card, bool grows = false);
    void addPair(QWidget *first, QWidget *second);

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    void setGeometry(const QRect &rect) override;

private:
    struct Row
    {
        QLayoutItem *first = nullptr;
        QLayoutItem *second = nullptr; // null: alone
        bool grows = false;
    };

    int lay(const QRect &rect, bool apply) const;
    int layRow(const Row &row, const QRect &rect, int top, int extra, bool apply) const;

    std::vector<Row> m_rows;
};

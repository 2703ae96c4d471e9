// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QLayout>

#include <vector>

// A line of words, fields and chips that goes on below where its width ends, as a text does.
class TZUTILITY_EXPORT WrapLine : public QLayout
{
    Q_OBJECT

public:
    explicit WrapLine(QWidget *parent = nullptr);
    ~WrapLine() override;

    // What belongs together stays on one line.
    void addTogether(std::initializer_list<QWidget *> widgets);

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
    int lay(const QRect &rect, bool apply) const;

    std::vector<QLayoutItem *> m_items;
};

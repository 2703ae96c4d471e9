// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"

#include <QAbstractButton>

// A line of a card of the day: a name, what it is about, an amount, and a chip that says how urgent it is. Pressed, it opens its record.
class TodayRow final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit TodayRow(QWidget *parent = nullptr);

    // unit: of the amount, for a screen reader.
    void setLine(const TodayLine &line, const QString &unit);
    const TodayLine &line() const { return m_line; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Places;
    Places places() const;

    TodayLine m_line;
};

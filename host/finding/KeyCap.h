// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

class QPainter;

// A key as it is called on the keyboard, in a frame.
class KeyCap final : public QLabel
{
    Q_OBJECT

public:
    explicit KeyCap(const QString &key, QWidget *parent = nullptr);

    // Paints one at the left end of the rectangle; where it ends at the right.
    static int paint(QPainter &painter, const QRect &rect, const QString &key);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

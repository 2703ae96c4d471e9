// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPushButton>

// The button of one page of a KTabPageButtons. Screen readers meet it as a tab, not as a box to check. Inside the
// library only.
class KTabButton : public QPushButton
{
    Q_OBJECT

public:
    KTabButton(const QString &title, QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

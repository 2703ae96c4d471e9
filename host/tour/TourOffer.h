// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QToolBar>

// The line that offers the tour to whoever is new in the demo office. It stands under the bar of the menus, takes no focus, and
// goes with the answer.
class TourOffer final : public QToolBar
{
    Q_OBJECT

public:
    explicit TourOffer(QWidget *window);

Q_SIGNALS:
    void accepted();

protected:
    void paintEvent(QPaintEvent *event) override;
};

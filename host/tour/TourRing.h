// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QRubberBand>

// The ring around what the tour speaks of. It lies over the main window and takes neither mouse nor focus.
class TourRing final : public QRubberBand
{
    Q_OBJECT

public:
    explicit TourRing(QWidget *window);

    // In the window's coordinates; an empty one hides the ring.
    void showAround(const QRect &control);

protected:
    void paintEvent(QPaintEvent *event) override;
};

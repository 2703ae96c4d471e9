// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/tour/TourSteps.h"
#include "suite/utility/frame/KDialog.h"

class KCommandButton;
class QLabel;
class QPushButton;

// The card of the tour: one step's words, and the ways on, back and out. It stands beside what it speaks of and leaves the window
// behind it to be used.
class CDlgTour : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgTour(QWidget *parent = nullptr);

    // number counts from 1.
    void showStep(const TourStep &step, int number, int count);
    // Moves the card beside that part of the screen; empty: into a lower corner of the window it belongs to.
    void standBeside(const QRect &part);

Q_SIGNALS:
    void next();
    void previous();
    void manualWanted();

protected:
    bool OnOK() override;

private:
    void build();
    void tellScreenReader();

    QLabel *m_number;
    QLabel *m_title;
    QLabel *m_text;
    KCommandButton *m_previous;
    KCommandButton *m_manual;
    QPushButton *m_next = nullptr;
    QPushButton *m_end = nullptr;
};

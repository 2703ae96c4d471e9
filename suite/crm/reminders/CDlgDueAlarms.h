// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

class KExtListCtrl;
class QPushButton;

// What a login shows: the reminders of the user that have fallen due. Each can be marked as done, put off
// or changed at once.
class TZCRM_EXPORT CDlgDueAlarms : public KDialog
{
    Q_OBJECT

public:
    // Shows the user's due reminders and records that they were shown. False, and no window, when there are none.
    static bool ShowAtLogin(QWidget *parent);

    CDlgDueAlarms(const QList<CTblAlarm::Due> &due, QWidget *parent);
    ~CDlgDueAlarms() override;

private:
    void build();
    void fill(const QList<CTblAlarm::Due> &due);
    void updateButtons();
    void finish();
    void postpone();
    void edit(int key);
    void takeOff(int key);

    const bool m_closed; // the database, when the window was opened
    QList<CTblAlarm::Due> m_due;
    KExtListCtrl *m_list;
    QPushButton *m_done = nullptr;
    QPushButton *m_postpone = nullptr;
};

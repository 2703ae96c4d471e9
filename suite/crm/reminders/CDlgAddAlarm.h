// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/RowEdit.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

class CTblAlarm;
class KDateEdit;
class KEdit;
class KTimeEdit;
class QCheckBox;
class QComboBox;

// Editor of one reminder ("یادآوری"): date, time of day, what to remember, whose it is, and whether it repeats until done.
class TZCRM_EXPORT CDlgAddAlarm : public KDialog
{
    Q_OBJECT

public:
    ~CDlgAddAlarm() override;

    // Lets the user add a reminder of the record (kind of RecordKinds.h, its key, and a second key that is only kept with
    // it; all 0: of no record); desc is what the description begins with. Returns the new key, 0 when cancelled or when
    // the database is closed, which is then reported.
    [[nodiscard]] static int Add(const QString &desc, int recordKind, int key1, int key2, QWidget *parent);
    // Lets the user change it, and end it. True when it was saved; a vanished reminder is reported, and false returned.
    static bool Edit(int id, QWidget *parent);

protected:
    bool OnOK() override;

private:
    // The alarm as it was read, or with what a new one begins with (id 0).
    CDlgAddAlarm(CTblAlarm &alarm, int id, QWidget *parent);
    void build();
    void load();
    QDateTime entered() const;
    void write();
    void settle();
    bool refuse(const QString &why, QWidget *field);

    CTblAlarm &m_alarm;
    RowEdit m_edit;
    KRowValues m_begun; // the alarm as the window was filled with it
    KDateEdit *m_date;
    KTimeEdit *m_time;
    KEdit *m_desc;
    QComboBox *m_user;
    QCheckBox *m_repeat;
    QCheckBox *m_done;
};

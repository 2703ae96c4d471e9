// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KEdit;
class KExtListCtrl;

// Notes what was said about something that is due ("پیگیری"), above the history of such notes.
class TZTREASURY_EXPORT CDlgFollowUp : public KDialog
{
    Q_OBJECT

public:
    // about: whom and what the call is about, in words.
    CDlgFollowUp(const CTblFollowUps::Subject &subject, const QString &about, QWidget *parent = nullptr);
    ~CDlgFollowUp() override;

    // Opens the window, to a user with the right and in an open database; says why otherwise. True when a note was added.
    static bool run(const CTblFollowUps::Subject &subject, const QString &about, QWidget *parent);

    KExtListCtrl *history() const { return m_history; }

protected:
    bool OnOK() override;

private:
    void build(const QString &about);
    void fillHistory();
    bool refuse(const QString &why, QWidget *field);

    const CTblFollowUps::Subject m_subject;
    KEdit *m_note;
    KDateEdit *m_promised;
    KExtListCtrl *m_history;
};

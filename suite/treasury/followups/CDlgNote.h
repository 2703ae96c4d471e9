// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KDropDown;
class KEdit;

// A call or a note about a record ("یادداشت و تماس"), with the day on which to ask again: a new one, or one of the user's own to be changed or
// taken away.
class TZTREASURY_EXPORT CDlgNote : public KDialog
{
    Q_OBJECT

public:
    // about: what it is about, in words.
    CDlgNote(const CTblFollowUps::Subject &subject, const QString &about, QWidget *parent = nullptr);
    explicit CDlgNote(const CTblFollowUps::Shown &shown, QWidget *parent = nullptr);
    ~CDlgNote() override;

    // Offers new notes among the actions of the records of the table: to who may add such records (form).
    static void offer(const QString &table, int recordKind, const QString &form);
    static void withdraw(const QString &table);
    // Opens a note of the user's own; says why otherwise.
    static void edit(qint32 key, QWidget *parent);

    KDropDown *kind() const { return m_kind; }
    KEdit *note() const { return m_note; }
    KDateEdit *next() const { return m_next; }

public Q_SLOTS:
    // After a question.
    void takeAway();

protected:
    bool OnOK() override;

private:
    void build(const QString &about);
    void save();
    bool refuse(const QString &why, QWidget *field);

    const CTblFollowUps::Subject m_subject;
    const CTblFollowUps::Shown m_shown; // id 0: a new one
    KDropDown *m_kind;
    KEdit *m_note;
    KDateEdit *m_next;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QHash>
#include <QList>
#include <QString>

// The rights of the current user, form by form. A window derives from it (non-publicly), names its form, and asks before
// each command. Without a login everything is refused; an administrator has every right on every form; a form without stored
// rights is refused to everybody else.
class TZACCOUNTINGDATA_EXPORT KSecurity
{
public:
    // Bits of UserRights.iRights.
    enum Right : int {
        Access = 1, // open the window
        Read = 2,   // show a record
        Write = 4,  // add a record
        Modify = 8,
        Delete = 16,
        PrintList = 32
    };
    static constexpr int allRights = Access | Read | Write | Modify | Delete | PrintList;

    struct Form
    {
        QString name;    // key in UserRights.sForm
        QString caption; // Persian, for the grid of rights and the refusal
        bool single;     // a permission rather than a window: its Access bit answers every question
    };

    void SetFormName(const QString &form) { m_form = form; }
    QString FormName() const { return m_form; }
    // Reads the user's rights anew, so that a window opened after a change of rights obeys it. Whether the form may be
    // opened; shows nothing.
    bool CheckSecurity();

    // Whether the right is granted. A refusal is shown to the user in one message when notice is 1; 0 checks quietly.
    bool CheckAccessSecurity(int notice = 1) const;
    bool CheckReadSecurity(int notice = 1) const;
    bool CheckWriteSecurity(int notice = 1) const;
    bool CheckModifySecurity(int notice = 1) const;
    bool CheckDeletionSecurity(int notice = 1) const;
    bool CheckPrintListSecurity(int notice = 1) const;

    // Quietly, for the current user.
    static bool IsGranted(const QString &form, Right right);
    // The sentence that a refusal shows: the missing right and the form's caption.
    static QString refusalText(const QString &form, Right right);

    // Every form of the suite and the module, in the order of the grid of rights.
    static const QList<Form> &forms();
    // The key itself for a form that is not in the list.
    static QString formCaption(const QString &form);
    static QString rightCaption(Right right);

    // Stored bits per form of any user.
    static QHash<QString, int> storedRights(int userID);
    // Replaces the user's bits on one form; 0 removes them.
    static void setRights(int userID, const QString &form, int rights);
    // Copies the first user's rights to the second, in one transaction.
    static void copyRights(int fromUserID, int toUserID);
    // Sets the current user; 0: nobody, and everything is refused. CDBSetting calls it at every login and logout.
    static void setUser(int userID, bool admin);
    // The rights of the current user are read again on the next check.
    static void forgetRights();

private:
    bool check(Right right, int notice) const;

    QString m_form;
};

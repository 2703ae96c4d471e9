// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

#include <QTimer>

class KEdit;
class QAbstractButton;
class QLabel;

// The login. The last user name and the office's name are remembered on this computer, the password never. Wrong attempts delay
// the next one, also after the program was started again (LoginAttempts).
//
// It can stand there before the database answers: what is waited for stands below the fields, and the press of its button is
// remembered until then.
class CDlgLogin : public KDialog
{
    Q_OBJECT

public:
    // officeName: shown above the fields; empty: the program's name. The database answers.
    explicit CDlgLogin(const QString &officeName, QWidget *parent = nullptr);
    struct BeforeDatabase
    {
    };
    // Headed as the last one on this computer was.
    explicit CDlgLogin(BeforeDatabase, QWidget *parent = nullptr);
    // Whether one has stood on this computer with the database behind it: somebody can log in to this office.
    static bool isOfficeKnown();

    // Before the database answers.
    void waitFor(const QString &waitingFor);
    bool isBeforeDatabase() const { return !m_databaseAnswers; }
    // From now on it is asked; also for what was pressed before.
    void databaseAnswers(const QString &officeName);

    // The user who logged in; 0 until then.
    int userID() const { return m_userID; }
    void setUserName(const QString &user);

Q_SIGNALS:
    // The window has painted itself for the first time; it is on the screen when the event loop goes on.
    void painted();

protected:
    bool OnOK() override;
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void build();
    void setOfficeName(const QString &name);
    void keepWhatIsPressed(bool pressed);
    void refuse();
    // Closes the way in for so many seconds; 0: it stays open.
    void wait(int seconds);
    void showWait();

    KEdit *m_user;
    KEdit *m_password;
    QLabel *m_title;
    QLabel *m_hint;
    QAbstractButton *m_ok = nullptr;
    QTimer m_wait;
    int m_secondsLeft = 0;
    int m_userID = 0;
    bool m_databaseAnswers = false;
    bool m_pressed = false; // before it answers
    bool m_painted = false;
};

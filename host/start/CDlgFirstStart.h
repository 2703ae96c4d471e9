// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

class FormGrid;
class KDateEdit;
class KEdit;
class QGroupBox;

// The first page that a new office sees: its administrator, its own details and its fiscal year, in one window.
class CDlgFirstStart : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgFirstStart(QWidget *parent = nullptr);

    // Login name of the new administrator; empty until there is one.
    QString userName() const { return m_created; }

    // The shortest password that is accepted, here and in the list of users.
    static constexpr int shortestPassword = 4;
    // The fault in a password and its repetition; empty when there is none.
    static QString passwordProblem(const QString &password, const QString &repeated);

Q_SIGNALS:
    // The window has painted itself for the first time; it is on the screen when the event loop goes on.
    void painted();

protected:
    bool OnOK() override;
    bool event(QEvent *event) override;

private:
    QGroupBox *buildAdministrator(QWidget *page);
    QGroupBox *buildCompany(QWidget *page);
    QGroupBox *buildFiscalYear(QWidget *page);
    static KEdit *addEdit(FormGrid *grid, const QString &caption, int maxLength, int span = 1);
    bool refuse(const QString &message, QWidget *field);
    bool validate();
    void save();

    KEdit *m_adminName = nullptr;
    KEdit *m_user = nullptr;
    KEdit *m_password = nullptr;
    KEdit *m_repeated = nullptr;
    KEdit *m_company1 = nullptr;
    KEdit *m_company2 = nullptr;
    KEdit *m_nationalCode = nullptr;
    KEdit *m_telephone = nullptr;
    KEdit *m_mobile = nullptr;
    KEdit *m_city = nullptr;
    KEdit *m_address = nullptr;
    KEdit *m_fiscalYear = nullptr;
    KDateEdit *m_opening = nullptr;
    QString m_created;
    bool m_painted = false;
};

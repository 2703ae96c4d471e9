// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStatusBar>

class BackupSign;
class ElidedLabel;

// The line at the foot of the main window: who works, in which database and year, on which day, how the
// backups stand; at its far end a note for a while.
class StatusLine final : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget *parent = nullptr);

    void setUser(const QString &name);
    void setDatabase(const QString &name);
    void setFiscalYear(int year);
    void setDate(const QString &date);
    // Whether the database is closed, which is marked.
    void setClosed(bool closed);
    BackupSign *backups() const { return m_backups; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ElidedLabel *m_user;
    ElidedLabel *m_database;
    ElidedLabel *m_fiscalYear;
    ElidedLabel *m_date;
    ElidedLabel *m_closedMark;
    BackupSign *m_backups;
    ElidedLabel *m_note;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"
#include "suite/accounting/changes/SettingsEdit.h"

#include <QObject>

class CardPage;
class FormGrid;
class KEdit;
class QCheckBox;
class QPushButton;

// The part of the settings window that is about backups and the bin: one card for what the office shares, one for this computer.
// Administrators alone can change it.
class BackupFields : public QObject
{
    Q_OBJECT

public:
    // Adds the cards. Of a closed database only this computer's can be changed.
    BackupFields(const DataFolder &folder, bool isAdmin, bool isClosed, CardPage *page);

    static QList<SettingsEdit::Setting> settings();
    static QStringList sections();

    void load(const OfficeSettings &read);
    // The first wrong entry, with the focus on it then; empty: none.
    QString problem();
    // What the office shares. Nothing where the user may not.
    void write(SettingsEdit &edit) const;
    // Throws unless the user is an administrator still, where write changed something. Within the unit that saves.
    void requireMayChange(SettingsEdit &edit) const;
    // What this computer keeps for itself.
    void storeHere() const;
    // Null for a setting of others.
    QWidget *fieldOf(const QString &setting) const;

private:
    KEdit *addNumber(FormGrid *grid, const QString &caption, int least, int most);
    void placeOffice(FormGrid *grid);
    void placeHere(FormGrid *grid);
    void placeSecondFolder(FormGrid *grid);
    void choosePassphrase();
    void showPassphrase();

    DataFolder m_folder;
    QWidget *m_window;
    bool m_isAdmin;
    bool m_isClosed;
    KEdit *m_hours = nullptr;
    QCheckBox *m_atClosing = nullptr;
    KEdit *m_daily = nullptr;
    KEdit *m_weekly = nullptr;
    KEdit *m_monthly = nullptr;
    KEdit *m_binDays = nullptr;
    QCheckBox *m_here = nullptr;
    QCheckBox *m_changeLog = nullptr;
    KEdit *m_second = nullptr;
    QPushButton *m_passphrase = nullptr;
};

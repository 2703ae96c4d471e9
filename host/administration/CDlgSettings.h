// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"
#include "suite/accounting/changes/SettingsEdit.h"
#include "suite/utility/frame/KDialog.h"

class BackupFields;
class FormGrid;
class KDateEdit;
class KEdit;
class OfficeSettings;
class QCheckBox;
class QComboBox;

// What all users of the database share: the dealership's details, the money unit, the fiscal year, whether the car catalog
// may be edited, when the first page tells of what waits, when backups are taken, and whether the database is closed. Of a closed database only that last one can be changed.
// Besides, what this computer does about backups, and the program's colours on it, which are the user's own.
class CDlgSettings : public KDialog
{
    Q_OBJECT

public:
    // The folder is where backups and their passphrase are.
    explicit CDlgSettings(const DataFolder &folder, QWidget *parent = nullptr);

protected:
    bool OnOK() override;

private:
    CDlgSettings(const DataFolder &folder, const OfficeSettings &settings, QWidget *parent);
    void build();
    void placeCompany(FormGrid *grid);
    void placeMoney(FormGrid *grid);
    void placeFiscalYear(FormGrid *grid);
    void placeCatalog(FormGrid *grid);
    void placeTwins(FormGrid *grid);
    void placeToday(FormGrid *grid);
    void placeDatabase(FormGrid *grid);
    void placeLook(FormGrid *grid);
    void load(const OfficeSettings &settings);
    bool validate();
    bool refuse(const QString &message, QWidget *field);
    void write();
    QWidget *fieldOf(const QString &setting) const;

    DataFolder m_folder;
    bool m_wasClosed;
    SettingsEdit m_edit;
    KEdit *m_unit = nullptr;
    QComboBox *m_decimals = nullptr;
    KEdit *m_fiscalYear = nullptr;
    KDateEdit *m_opening = nullptr;
    KDateEdit *m_closing = nullptr;
    QCheckBox *m_catalogLocked = nullptr;
    KEdit *m_unsettledDays = nullptr;  // after which the first page tells of a contract
    KEdit *m_standingDays = nullptr;   // and of a car
    QList<QCheckBox *> m_refusedTwins; // in the order of TwinSettings::all
    QCheckBox *m_closed = nullptr;
    QComboBox *m_look = nullptr;
    BackupFields *m_backups = nullptr;
};

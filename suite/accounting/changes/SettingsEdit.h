// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/CTblValues.h"
#include "suite/accounting/changes/RowEdit.h"

#include <memory>

class OfficeSettings;

// Settings of Properties that a window edits together. What others have changed meanwhile stays, and who saved a section
// last is noted under "Properties:" and its name with the values, and always
// under that of the first.
class TZACCOUNTINGDATA_EXPORT SettingsEdit final : public RowEdit
{
public:
    struct Setting
    {
        QString section;
        QString key;
        QString caption;        // as the user knows it, also in the history
        bool isSecret = false;  // a password, whose values are never noted
        QStringList words = {}; // what the history calls 0, 1 and so on; empty: as the key's first letter says
    };

    // read: as the window read them, with their sections. Settings of one group, by their names, count as one field.
    SettingsEdit(const OfficeSettings &read, const QList<Setting> &settings, QList<QStringList> groups = {}, int database = 0);
    ~SettingsEdit() override;

    // How a setting is called in values, groups and questions.
    static QString nameOf(QStringView section, QStringView key);
    // As it is kept in Properties; empty where there is none.
    QString text(QStringView section, QStringView key);
    // For write.
    void setText(QStringView section, QStringView key, const QString &text);

    // A window that opens and closes the database says so; any other is refused while it is closed.
    void setChangesClosedDatabase(bool on) { m_changesClosed = on; }

protected:
    void lockRow() override;
    void storeRow() override;
    bool isRefusedWhenClosed() const override;
    bool isAlwaysAlone() const override { return true; }

private:
    SettingsEdit(const OfficeSettings &read, const QList<Setting> &settings, QList<QStringList> groups,
                 std::unique_ptr<CTblValues> values);
    void take(const OfficeSettings &read);

    QList<Setting> m_settings;
    std::unique_ptr<CTblValues> m_values;
    KRowValues m_stored; // when the row was locked
    bool m_changesClosed = false;
};

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Where a list keeps what its user made of its columns: a section of the settings, of each user of the office for himself, who share one
// computer. What the user has not kept is as the section has it.
class ListSettings
{
public:
    // Without a section nothing is kept; without a user, what is kept is the section's.
    void setSection(const QString &section) { m_section = section; }
    void setUser(const QString &login) { m_user = login; }
    bool isKept() const { return !m_section.isEmpty(); }

    // Empty where nothing is kept.
    QString read(const QString &key) const;
    void write(const QString &key, const QString &value) const;

private:
    QString usersSection() const;

    QString m_section;
    QString m_user;
};

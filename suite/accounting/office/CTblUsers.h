// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <optional>

// The people who may log in. Passwords are kept as Argon2id hashes and never leave this class.
class TZACCOUNTINGDATA_EXPORT CTblUsers : public KMySQL, private KLiveCount<CTblUsers>
{
public:
    using KLiveCount<CTblUsers>::liveCount;

    // What one hash costs. An existing hash of another cost is renewed at the user's next login.
    struct HashCost
    {
        unsigned long long operations;
        std::size_t memoryBytes;
    };

    explicit CTblUsers(int database = 0);
    ~CTblUsers() override;
    QString GetTableName() const override;

    // Adds an active user and returns its key. Login names differ beyond case. Throws KAccountingError for an empty name
    // or password or a name that is taken.
    static int create(const QString &user, const QString &password, const QString &name, bool admin, int database = 0);
    // The user's key when the password is right and the user active. Takes the same time for a name that does not exist.
    static std::optional<int> verify(const QString &user, const QString &password, int database = 0);
    // By the user, in one unit of work. False, with nothing changed, when the current password is not right: it may have been
    // changed meanwhile. Throws KAccountingError when the user is gone.
    [[nodiscard]] static bool changePassword(int userID, const QString &current, const QString &password, int database = 0);
    // What is stored of a password. Throws KAccountingError for an empty one. Takes a while (officeCost).
    static QString hashOf(const QString &password);
    // Whether a user has that login name.
    static bool isKnown(const QString &user, int database = 0);
    // Whether anybody may log in yet; a fresh database has nobody.
    static bool anyUser(int database = 0);
    // Between the entries of a user and its row, inside the transaction and with nobody else writing a user (NamedLock of the
    // table). The first brings the names into standard form and throws KAccountingError for an empty login name or one that
    // another user than that of the key has; the second throws it when no active administrator would remain.
    void requireFreeName(qint32 key);
    void requireAdminLeft(qint32 key);
    // Lets the user log in or not, in one unit of work. Throws KAccountingError when the user is gone or the last administrator.
    static void setActive(int userID, bool active, int database = 0);
    // Throws KAccountingError unless whoever works with the program is an active administrator now, or the user is none. Within the
    // unit that changes the user.
    static void requireMayChange(int userID, int database = 0);
    // Throws KAccountingError unless whoever works with the program is an active administrator now.
    static void requireAdministrator(int database = 0);
    // Whether another active administrator would remain without this user; the last one must stay.
    static bool hasOtherAdmin(int userID, int database = 0);
    static QString GetName(int userID, int database = 0);

    // The cost of a login in an office; the least that the algorithm allows, for tests that make many users.
    static HashCost officeCost();
    static HashCost leastCost();
    static void setHashCost(HashCost cost);

    qint32 m_iID = 0;
    QString m_sUser;
    QString m_sPasswordHash;
    QString m_sName;
    qint32 m_iStatus = 0; // 0 active, 1 may not log in
    qint32 m_bAdmin = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
    bool isSecret(QStringView column) const override { return column == QLatin1String("sPasswordHash"); }

private:
    static void renewHash(const CTblUsers &verified, const QString &hash);
    static bool isAdministrator(int userID, bool alsoInactive, int database);
    void lockForChange(qint32 key);
};

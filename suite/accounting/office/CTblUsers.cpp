// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CTblUsers.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/utility/values/TextStandard.h"

#include <QLoggingCategory>
#include <QMutex>

#include <sodium.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcUsers, "tz.users")

QMutex costMutex;
CTblUsers::HashCost currentCost = CTblUsers::officeCost();

CTblUsers::HashCost hashCost()
{
    QMutexLocker lock(&costMutex);
    return currentCost;
}

void requireSodium()
{
    if (sodium_init() < 0)
        throw std::runtime_error("the cryptographic library did not start");
}

// The password as bytes that do not depend on the keyboard that it is typed on: a Persian keyboard types Persian digits.
// Wiped when it is destroyed.
class PasswordBytes
{
public:
    explicit PasswordBytes(const QString &password)
        : m_bytes(toAsciiDigits(password.normalized(QString::NormalizationForm_C)).toUtf8())
    {
    }
    ~PasswordBytes() { sodium_memzero(m_bytes.data(), static_cast<std::size_t>(m_bytes.size())); }
    PasswordBytes(const PasswordBytes &) = delete;
    PasswordBytes &operator=(const PasswordBytes &) = delete;

    const char *data() const { return m_bytes.constData(); }
    unsigned long long size() const { return static_cast<unsigned long long>(m_bytes.size()); }

private:
    QByteArray m_bytes;
};

QString hashed(const PasswordBytes &password)
{
    requireSodium();
    const CTblUsers::HashCost cost = hashCost();
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str_alg(hash, password.data(), password.size(), cost.operations, cost.memoryBytes,
                              crypto_pwhash_ALG_ARGON2ID13)
        != 0)
        throw std::bad_alloc();
    return QString::fromLatin1(hash);
}

// Stands in for the hash of a user that does not exist, so that the answer takes the same time.
QString nobodysHash()
{
    static QMutex mutex;
    static QString hash;
    static CTblUsers::HashCost madeAt{};
    QMutexLocker lock(&mutex);
    const CTblUsers::HashCost cost = hashCost();
    if (hash.isEmpty() || madeAt.operations != cost.operations || madeAt.memoryBytes != cost.memoryBytes) {
        hash = hashed(PasswordBytes(u"nobody"_s));
        madeAt = cost;
    }
    return hash;
}

bool matches(const QString &hash, const PasswordBytes &password)
{
    requireSodium();
    return crypto_pwhash_str_verify(hash.toLatin1().constData(), password.data(), password.size()) == 0;
}

KSql nameFilter(const QString &user)
{
    return "sUser=" + KSql::quoted(ConvertToStandard(user));
}

}

CTblUsers::CTblUsers(int database)
    : KMySQL(database)
{
}

CTblUsers::~CTblUsers() = default;

QString CTblUsers::GetTableName() const
{
    return u"Users"_s;
}

void CTblUsers::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Text(u"sUser", m_sUser, u"نام کاربری");
    RFX_Text(u"sPasswordHash", m_sPasswordHash, u"");
    RFX_Text(u"sName", m_sName, u"نام");
    RFX_Long(u"iStatus", m_iStatus, u"");
    RFX_Bool(u"bAdmin", m_bAdmin, u"مدیر");
}

int CTblUsers::create(const QString &user, const QString &password, const QString &name, bool admin, int database)
{
    if (ConvertToStandard(user).isEmpty())
        throw KAccountingError(u"لطفا نام کاربری را وارد نمایید."_s);
    CTblUsers set(database);
    const QString hash = hashOf(password);
    KTransaction::runReplayable(
        [&] {
            NamedLock::take(set.GetTableName(), database);
            set.AddNew();
            set.m_sUser = user;
            set.m_sPasswordHash = hash;
            set.m_sName = name;
            set.m_bAdmin = admin ? 1 : 0;
            set.requireFreeName(0);
            set.Update(true);
        },
        database);
    return static_cast<int>(set.GetLastInsertedID());
}

std::optional<int> CTblUsers::verify(const QString &user, const QString &password, int database)
{
    const PasswordBytes bytes(password);
    CTblUsers set(database);
    set.m_filter = nameFilter(user);
    set.Open(true, true, true);
    const bool known = !set.IsEOF();
    const bool right = matches(known ? set.m_sPasswordHash : nobodysHash(), bytes);
    if (!known || !right || set.m_iStatus != 0)
        return std::nullopt;
    const HashCost cost = hashCost();
    if (crypto_pwhash_str_needs_rehash(set.m_sPasswordHash.toLatin1().constData(), cost.operations, cost.memoryBytes) != 0) {
        // A login must not fail because the stronger hash could not be stored.
        try {
            renewHash(set, hashed(bytes));
        } catch (const CMySQLException &error) {
            qCWarning(lcUsers) << "a password hash was not renewed, error" << error.serverCode();
        }
    }
    return set.m_iID;
}

QString CTblUsers::hashOf(const QString &password)
{
    if (password.isEmpty())
        throw KAccountingError(u"لطفا کلمه عبور را وارد نمایید."_s);
    return hashed(PasswordBytes(password));
}

bool CTblUsers::changePassword(int userID, const QString &current, const QString &password, int database)
{
    const QString hash = hashOf(password);
    const PasswordBytes bytes(current);
    bool right = false;
    KTransaction::runReplayable(
        [&] {
            CTblUsers user(database);
            user.lockForChange(userID);
            right = user.m_iStatus == 0 && matches(user.m_sPasswordHash, bytes);
            if (!right)
                return;
            user.m_sPasswordHash = hash;
            user.Update(true);
        },
        database);
    return right;
}

void CTblUsers::setActive(int userID, bool active, int database)
{
    KTransaction::runReplayable(
        [&] {
            CTblUsers user(database);
            NamedLock::take(user.GetTableName(), database);
            user.lockForChange(userID);
            user.m_iStatus = active ? 0 : 1;
            user.requireAdminLeft(userID);
            requireMayChange(userID, database);
            user.Update(true);
        },
        database);
}

// A password that has been changed since it was verified stays.
void CTblUsers::renewHash(const CTblUsers &verified, const QString &hash)
{
    KTransaction::runReplayable(
        [&] {
            CTblUsers user(verified.database());
            if (!user.lockRecord(verified.m_iID) || user.m_sPasswordHash != verified.m_sPasswordHash)
                return;
            user.Edit();
            user.m_sPasswordHash = hash;
            user.Update(true);
        },
        verified.database());
}

void CTblUsers::lockForChange(qint32 key)
{
    if (!lockRecord(key))
        throw KAccountingError(u"این کاربر دیگر وجود ندارد."_s);
    Edit();
}

void CTblUsers::requireFreeName(qint32 key)
{
    m_sUser = ConvertToStandard(m_sUser);
    m_sName = ConvertToStandard(m_sName);
    if (m_sUser.isEmpty())
        throw KAccountingError(u"لطفا نام کاربری را وارد نمایید."_s);
    CTblUsers others(database());
    others.SetColumns({u"iID"_s});
    others.m_filter = nameFilter(m_sUser) + KSql::formatted(" AND iID<>%1", key);
    others.Open(false, true, true);
    if (!others.IsEOF())
        throw KAccountingError(u"این نام کاربری قبلا ثبت شده است."_s);
}

void CTblUsers::requireAdminLeft(qint32 key)
{
    const bool isActiveAdmin = m_bAdmin != 0 && m_iStatus == 0;
    if (!isActiveAdmin && key != 0 && !hasOtherAdmin(key, database()))
        throw KAccountingError(u"برنامه باید دست‌کم یک مدیر فعال داشته باشد."_s);
}

// Asked of the table: who may was decided when somebody logged in, and whom it is about when a window was opened.
void CTblUsers::requireMayChange(int userID, int database)
{
    if (KChangeLog::author() != 0 && isAdministrator(userID, true, database))
        requireAdministrator(database);
}

void CTblUsers::requireAdministrator(int database)
{
    if (!isAdministrator(KChangeLog::author(), false, database))
        throw KAccountingError(u"این کار فقط برای مدیر برنامه مجاز است."_s);
}

bool CTblUsers::isAdministrator(int userID, bool alsoInactive, int database)
{
    CTblUsers user(database);
    user.SetColumns({u"iStatus"_s, u"bAdmin"_s});
    return user.IsRecordExist(u"iID"_s, userID) && user.m_bAdmin != 0 && (alsoInactive || user.m_iStatus == 0);
}

bool CTblUsers::isKnown(const QString &user, int database)
{
    CTblUsers set(database);
    set.SetColumns({u"iID"_s});
    set.m_filter = nameFilter(user);
    set.Open(true, true, true);
    return !set.IsEOF();
}

bool CTblUsers::anyUser(int database)
{
    CTblUsers set(database);
    set.SetColumns({u"iID"_s});
    set.SetLimit(1);
    set.Open(true, true, true);
    return !set.IsEOF();
}

bool CTblUsers::hasOtherAdmin(int userID, int database)
{
    CTblUsers set(database);
    set.m_filter = KSql::formatted("bAdmin<>0 AND iStatus=0 AND iID<>%1", userID);
    set.SetColumns({u"iID"_s});
    set.SetLimit(1);
    set.Open(true, true, true);
    return !set.IsEOF();
}

QString CTblUsers::GetName(int userID, int database)
{
    CTblUsers set(database);
    return set.IsRecordExist(u"iID"_s, userID) ? set.m_sUser : QString();
}

CTblUsers::HashCost CTblUsers::officeCost()
{
    // About a tenth of a second on an office computer.
    return {3, 64 * 1024 * 1024};
}

CTblUsers::HashCost CTblUsers::leastCost()
{
    return {crypto_pwhash_argon2id_OPSLIMIT_MIN, crypto_pwhash_argon2id_MEMLIMIT_MIN};
}

void CTblUsers::setHashCost(HashCost cost)
{
    QMutexLocker lock(&costMutex);
    currentCost = cost;
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/LoginAttempts.h"

#include "suite/accounting/changes/OfficeEvents.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/db/records/CTblTemp.h"

#include <QCryptographicHash>
#include <QLoggingCategory>
#include <QSysInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcLogin, "tz.login")

constexpr qint64 forgottenAfterSeconds = 15 * 60;
const QString attemptsSection = u"LoginAttempts"_s;

struct Attempts
{
    QDateTime now; // by the server's clock
    int wrong = 0;
    QDateTime last; // of the wrong ones
    bool areStored = false;
};

QString thisComputer()
{
    const QByteArray identity = QSysInfo::machineUniqueId() + '\n' + QSysInfo::machineHostName().toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(identity, QCryptographicHash::Sha256).toHex().left(32));
}

KSql ofThisComputer()
{
    return KSql::formatted("sSection=%1 AND sKey=%2", KSql::quoted(attemptsSection), KSql::quoted(thisComputer()));
}

// Stored as "3 2026-11-22T09:15:00"; anything else counts as none.
Attempts readAttempts()
{
    CTblTemp temp;
    temp.Open(true, false, true);
    temp.ExecuteQuery(KSql::formatted("SELECT NOW(),(SELECT sValue FROM Properties WHERE %1)", ofThisComputer()));
    const QString stored = temp.GetTextFieldValue(1);
    Attempts attempts{temp.GetDateFieldValue(0), stored.section(u' ', 0, 0).toInt(),
                      QDateTime::fromString(stored.section(u' ', 1), Qt::ISODate), !stored.isEmpty()};
    attempts.last.setTimeSpec(Qt::UTC);
    if (!attempts.last.isValid() || attempts.last.secsTo(attempts.now) >= forgottenAfterSeconds)
        attempts.wrong = 0;
    return attempts;
}

void store(const Attempts &attempts)
{
    CTblProperties::DBWriteSetting(attemptsSection, thisComputer(),
                                   u"%1 %2"_s.arg(attempts.wrong).arg(attempts.last.toString(u"yyyy-MM-ddTHH:mm:ss"_s)));
}

}

int LoginAttempts::waitAfter(int wrongAttempts)
{
    constexpr int longest = 30;
    return wrongAttempts < 2 ? 0 : std::min(longest, 1 << std::min(wrongAttempts - 2, 5));
}

LoginAttempts::Standing LoginAttempts::standing()
{
    const Attempts attempts = readAttempts();
    const int wait = waitAfter(attempts.wrong);
    // A clock that was set back makes nobody wait longer than after the attempt itself.
    return {wait == 0 ? 0 : static_cast<int>(std::clamp<qint64>(wait - attempts.last.secsTo(attempts.now), 0, wait)), attempts.areStored};
}

int LoginAttempts::secondsLeft()
{
    return standing().secondsLeft;
}

int LoginAttempts::countWrong(const QString &user)
{
    Attempts attempts = readAttempts();
    ++attempts.wrong;
    attempts.last = attempts.now;
    store(attempts);
    const int wait = waitAfter(attempts.wrong);
    // A name that nobody has may be a password that was typed into the wrong field.
    const bool isKnown = CTblUsers::isKnown(user);
    OfficeEvents::noteFailedSignIn(isKnown ? user : QString());
    qCWarning(lcLogin).noquote() << "wrong password for" << (isKnown ? user : u"an unknown user"_s) << "- attempt"
                                 << attempts.wrong << "in a row on" << QSysInfo::machineHostName() << "- the next one in" << wait << "s";
    return wait;
}

void LoginAttempts::forget()
{
    CTblTemp temp;
    temp.Open(false, false, true);
    temp.ExecuteQuery("DELETE FROM Properties WHERE " + ofThisComputer());
}

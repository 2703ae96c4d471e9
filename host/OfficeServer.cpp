// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/OfficeServer.h"

#include "auto/db/KConnection.h"
#include "host/CDlgServerPassword.h"
#include "host/HostOptions.h"
#include "host/server/ServerError.h"
#include "suite/accounting/KErrorBoundary.h"
#include "suite/accounting/KMessageDialog.h"

#include <QFile>

namespace {

KConnectionSettings settingsOf(const HostOptions &options)
{
    KConnectionSettings settings;
    settings.host = options.host;
    settings.port = options.port;
    settings.user = options.user;
    settings.database = options.database;
    settings.useTls = options.tls;
    settings.caFile = options.caFile;
    return settings;
}

// Errors that another password can mend: access denied for the account, with or without the database.
bool isRefusedAccount(const CMySQLException &error)
{
    return error.serverCode() == 1045 || error.serverCode() == 1044 || error.serverCode() == 1698;
}

// False: the connection did not open, and the user was told why.
bool open(const KConnectionSettings &settings, QWidget *parent, bool *refusedAccount)
{
    KConnection::configure(0, settings);
    try {
        KConnection::forThread(0).run(QByteArrayLiteral("SELECT 1"));
        return true;
    } catch (const CMySQLException &error) {
        *refusedAccount = isRefusedAccount(error);
        if (*refusedAccount)
            g_pDlgWarning->Show(QStringLiteral("سرور «%1» حساب «%2» را با این کلمه عبور نپذیرفت.").arg(settings.host, settings.user),
                                parent);
        else
            KErrorBoundary::report(std::current_exception(), parent);
    }
    return false;
}

}

namespace OfficeServer {

std::optional<QString> readPassword(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("پرونده کلمه عبور خوانده نشد: %1").arg(ServerError::shownPath(path));
        return std::nullopt;
    }
    if (file.permissions() & (QFile::ReadGroup | QFile::ReadOther)) {
        *error = QStringLiteral("پرونده کلمه عبور را دیگران هم می‌توانند بخوانند: %1").arg(ServerError::shownPath(path));
        return std::nullopt;
    }
    QByteArray line = file.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

bool connect(const HostOptions &options, QWidget *parent)
{
    KConnectionSettings settings = settingsOf(options);
    bool refusedAccount = false;
    if (!options.passwordFile.isEmpty()) {
        QString problem;
        const std::optional<QString> password = readPassword(options.passwordFile, &problem);
        if (!password) {
            g_pDlgWarning->Show(problem, parent);
            return false;
        }
        settings.password = *password;
        return open(settings, parent, &refusedAccount);
    }
    do {
        CDlgServerPassword dialog(options, parent);
        if (dialog.exec() != QDialog::Accepted)
            return false;
        settings.password = dialog.password();
        if (open(settings, parent, &refusedAccount))
            return true;
    } while (refusedAccount);
    return false;
}

}

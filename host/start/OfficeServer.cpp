// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/OfficeServer.h"

#include "suite/db/connection/KConnection.h"
#include "host/start/CDlgServerPassword.h"
#include "host/start/OfficeAccount.h"
#include "host/frame/HostOptions.h"
#include "host/frame/StartupClock.h"
#include "host/server/ServerError.h"
#include "suite/accounting/frame/KMessageDialog.h"

using namespace Qt::StringLiterals;

namespace {

// Error numbers of the server and the client library for which the user can be told what to do.
enum ConnectError : unsigned int {
    NoAccessToDatabase = 1044,
    AccessDenied = 1045,
    UnknownDatabase = 1049,
    AccessDeniedWithoutPassword = 1698,
    TlsFailed = 2026
};

// Another password may help.
bool isWrongPassword(const CMySQLException &error)
{
    return error.serverCode() == AccessDenied || error.serverCode() == AccessDeniedWithoutPassword;
}

QString reason(const CMySQLException &error, const KConnectionSettings &settings)
{
    QStringList servers{settings.host};
    for (const KServerAddress &node : settings.furtherNodes)
        servers << node.host;
    const QString server = servers.join(u"، "_s);
    switch (error.serverCode()) {
    case AccessDenied:
    case AccessDeniedWithoutPassword:
        return u"سرور «%1» حساب «%2» را با این کلمه عبور نپذیرفت."_s.arg(server, settings.user);
    case NoAccessToDatabase:
        return u"حساب «%1» اجازه کار با پایگاه داده «%2» را ندارد."_s.arg(settings.user, settings.database);
    case UnknownDatabase:
        return u"پایگاه داده «%1» روی سرور «%2» نیست."_s.arg(settings.database, server);
    case TlsFailed:
        return u"سرور «%1» هویت خود را ثابت نکرد؛ اتصال امن برقرار نشد."_s.arg(server);
    default:
        return u"اتصال به سرور «%1» برقرار نشد. روشن بودن سرور و نشانی آن را بررسی نمایید."_s.arg(server);
    }
}

// False: the connection did not open, and the user was told why.
bool open(const KConnectionSettings &settings, QWidget *parent, bool *wrongPassword)
{
    KConnection::configure(0, settings);
    try {
        KConnection::forThread(0).run(QByteArrayLiteral("SELECT 1"));
        return true;
    } catch (const CMySQLException &error) {
        *wrongPassword = isWrongPassword(error);
        qCWarning(lcHost).noquote() << "office server:" << error.serverCode() << error.GetErrorMessage();
        g_pDlgWarning->Show(reason(error, settings), parent);
    }
    return false;
}

}

namespace OfficeServer {

bool connect(const HostOptions &options, QWidget *parent)
{
    KConnectionSettings settings = OfficeAccount::settingsOf(options);
    bool wrongPassword = false;
    if (!options.passwordFile.isEmpty()) {
        QString problem;
        const std::optional<QString> password = OfficeAccount::readPassword(options.passwordFile, &problem);
        if (!password) {
            g_pDlgWarning->Show(problem, parent);
            return false;
        }
        settings.password = *password;
        return open(settings, parent, &wrongPassword);
    }
    do {
        CDlgServerPassword dialog(options, parent);
        if (dialog.exec() != QDialog::Accepted)
            return false;
        settings.password = dialog.password();
        if (open(settings, parent, &wrongPassword))
            return true;
    } while (wrongPassword);
    return false;
}

}

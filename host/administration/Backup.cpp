// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/Backup.h"

#include "host/frame/StartupClock.h"
#include "host/backup/BackupTaking.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QProgressDialog>

using namespace Qt::StringLiterals;

namespace {

// The bar counts in thousandths, because a database may have more bytes than an int holds.
constexpr int wholeBar = 1000;

bool showProgress(QProgressDialog &window, qint64 done, qint64 expected)
{
    if (expected > 0)
        window.setValue(static_cast<int>(qMin<qint64>(wholeBar - 1, done * wholeBar / expected)));
    QCoreApplication::processEvents();
    return !window.wasCanceled();
}

}

namespace Backup {

QString takeNow(const QString &folder, QWidget *parent)
{
    QProgressDialog window(u"در حال پشتیبان‌گیری از پایگاه داده …"_s, u"انصراف"_s, 0, wholeBar, parent);
    window.setWindowTitle(u"پشتیبان‌گیری"_s);
    window.setWindowModality(Qt::ApplicationModal);
    window.setAutoClose(false);
    window.setAutoReset(false);
    window.show();
    try {
        const BackupTaking taking(KConnection::settings(0));
        QString path = taking.take({folder}, [&](qint64 done, qint64 expected) { return showProgress(window, done, expected); }).path();
        window.hide();
        g_pDlgMessage->Show(u"پشتیبان پایگاه داده ساخته شد:\n%1"_s.arg(ServerError::shownPath(path)), parent);
        return path;
    } catch (const ServerError &error) {
        window.hide();
        qCWarning(lcHost).noquote() << "backup:" << error.detail();
        if (error.kind() != ServerError::Kind::Cancelled)
            g_pDlgWarning->Show(error.userMessage(), parent);
    }
    return {};
}

void showFolder(const QString &folder, QWidget *parent)
{
    QDir().mkpath(folder);
    if (!KProcess::Execute(u"Explorer"_s, folder))
        g_pDlgMessage->Show(u"پشتیبان‌ها در این پوشه هستند:\n%1"_s.arg(ServerError::shownPath(folder)), parent);
}

}

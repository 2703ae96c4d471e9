// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KErrorBoundary.h"

#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/db/connection/KConnection.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QThread>

#include <atomic>

namespace {

Q_LOGGING_CATEGORY(lcErrors, "tz.errors")

std::atomic<bool> showing{false};

bool onUserInterfaceThread()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return application && QThread::currentThread() == application->thread();
}

}

bool KErrorBoundary::guarded(QWidget *parent, const std::function<void()> &work) noexcept
{
    try {
        work();
        return true;
    } catch (...) {
        report(std::current_exception(), parent);
        return false;
    }
}

void KErrorBoundary::report(std::exception_ptr error, QWidget *parent) noexcept
{
    if (!error)
        return;
    try {
        qCWarning(lcErrors).noquote() << KErrorText::logText(error);
        // What fails because the thread is waiting for the database is no news for whoever waits.
        if (!onUserInterfaceThread() || KConnection::isWaiting() || showing.exchange(true))
            return;
        try {
            g_pDlgWarning->Show(KErrorText::userMessage(error), parent);
        } catch (...) {
            qCWarning(lcErrors) << "the message about an error could not be shown";
        }
        showing = false;
    } catch (...) {
        // Not even the log takes a line any more; there is nowhere left to report to.
    }
}

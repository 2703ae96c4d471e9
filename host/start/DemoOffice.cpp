// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/DemoOffice.h"

#include "host/frame/StartupClock.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace DemoOffice {

QString userName()
{
    return u"demo"_s;
}

bool isFilled()
{
    return CTblProperties::DBReadSettingInt(u"Demo"_s, u"iContracts"_s, 0) > 0;
}

void fill(int contracts, const QDate &day, const QString &clientConfig, const std::function<void()> &waiting)
{
    QProcess filler;
    filler.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    QStringList arguments{u"--client-config"_s, clientConfig, u"--contracts"_s, QString::number(contracts)};
    if (day.isValid())
        arguments.append({u"--day"_s, day.toString(Qt::ISODate)});
    filler.start(QCoreApplication::applicationDirPath() + u"/tz-demo-data"_s, arguments);
    while (filler.state() != QProcess::NotRunning) {
        if (!filler.waitForFinished(100))
            waiting();
    }
    // A timed-out wait also counts as an error of the process, so only these two mean that it failed.
    const bool broke = filler.error() == QProcess::FailedToStart || filler.error() == QProcess::Crashed;
    if (broke || filler.exitCode() != 0) {
        qCWarning(lcHost).noquote() << "demo data:" << filler.error() << filler.exitCode() << filler.readAllStandardError();
        throw KAccountingError(u"ساختن دفتر نمونه انجام نشد. جزئیات در گزارش رویدادها ثبت شد."_s);
    }
}

}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/DemoOffice.h"

#include "host/frame/StartupClock.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <QCoreApplication>
#include <QProcess>

namespace DemoOffice {

QString userName()
{
    return QStringLiteral("demo");
}

bool isFilled()
{
    return CTblProperties::DBReadSettingInt(QStringLiteral("Demo"), QStringLiteral("iContracts"), 0) > 0;
}

void fill(int contracts, const QString &clientConfig, const std::function<void()> &waiting)
{
    QProcess filler;
    filler.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    filler.start(QCoreApplication::applicationDirPath() + QStringLiteral("/tz-demo-data"),
                 {QStringLiteral("--client-config"), clientConfig, QStringLiteral("--contracts"), QString::number(contracts)});
    while (filler.state() != QProcess::NotRunning) {
        if (!filler.waitForFinished(100))
            waiting();
    }
    // A wait that ran out counts as an error of the process too, so only these two tell that it failed to work.
    const bool broke = filler.error() == QProcess::FailedToStart || filler.error() == QProcess::Crashed;
    if (broke || filler.exitCode() != 0) {
        qCWarning(lcHost).noquote() << "demo data:" << filler.error() << filler.exitCode() << filler.readAllStandardError();
        throw KAccountingError(QStringLiteral("ساختن دفتر نمونه انجام نشد. جزئیات در گزارش رویدادها ثبت شد."));
    }
}

}

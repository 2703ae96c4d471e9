// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/BenchOffice.h"

#include "auto/CAutoDBSetting.h"
#include "host/demo/DemoData.h"
#include "suite/accounting/CDBSetting.h"
#include "suite/accounting/SuiteSchema.h"
#include "suite/utility/KSettings.h"

#include <QFile>

#ifdef __GLIBC__
#include <malloc.h>
#endif

BenchOffice::BenchOffice(int contracts)
{
    setSettingsFile(m_settings.filePath(QStringLiteral("user.ini")));
    SuiteSchema::upgrade();
    double reached = 0;
    if (GetAutoDBSetting()->UpdateDB(0, 0, reached, false) != 1)
        qFatal("the module's tables could not be created");
    SuiteSchema::afterModuleUpgrade();
    DemoData::fill(contracts);
    GetDBSetting()->Login(m_database.value(QStringLiteral("SELECT iID FROM Users")).toInt());
}

namespace {

long statusValue(const QByteArray &name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(name.size()).simplified().split(' ').first().toLong();
    }
    return 0;
}

}

long currentMemory()
{
    return statusValue("VmRSS:");
}

long peakMemory()
{
    return statusValue("VmHWM:");
}

void releaseFreeMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

void resetPeakMemory()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

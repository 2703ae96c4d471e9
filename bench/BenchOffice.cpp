// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/BenchOffice.h"

#include "auto/CAutoDBSetting.h"
#include "host/demo/DemoData.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/utility/values/KSettings.h"

#include <QDir>
#include <QFile>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace {

bool isFilled()
{
    CTblPersons persons;
    persons.SetLimit(1);
    persons.Open(true, true, true);
    return !persons.IsEOF();
}

}

BenchOffice::BenchOffice(int contracts)
    : m_database(std::make_unique<TestDatabase>())
{
    fill(contracts);
}

BenchOffice::BenchOffice(int contracts, const KConnectionSettings &server)
{
    KConnection::configure(0, server);
    fill(contracts);
}

void BenchOffice::fill(int contracts)
{
    setSettingsFile(m_settings.filePath(u"user.ini"_s));
    SuiteSchema::upgrade();
    // A server of its own may keep the office of an earlier run.
    const double stored = SuiteSchema::moduleVersion();
    double reached = stored;
    if (GetAutoDBSetting()->UpdateDB(0, stored, reached, SuiteSchema::isModuleVersionStored()) != 1)
        qFatal("the module's tables could not be created");
    SuiteSchema::raiseModuleVersion(reached);
    SuiteSchema::afterModuleUpgrade();
    TotalsFolding::fold();
    if (!isFilled())
        DemoData::fill(contracts);
    CTblUsers user;
    user.SetLimit(1);
    user.Open(true, true, true);
    GetDBSetting()->Login(user.m_iID);
}

namespace {

// The rest of the line of that name; empty when the process is gone.
QByteArray statusText(const QByteArray &name, const QString &process)
{
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(name.size()).simplified();
    }
    return {};
}

long statusValue(const QByteArray &name, const QString &process = u"self"_s)
{
    return statusText(name, process).split(' ').first().toLong();
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

long peakMemoryOf(qint64 process)
{
    return statusValue("VmHWM:", QString::number(process));
}

QString processName(qint64 process)
{
    return QString::fromUtf8(statusText("Name:", QString::number(process)));
}

QList<qint64> childProcesses()
{
    QList<qint64> children;
    const QDir threads(u"/proc/self/task"_s);
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile list(threads.filePath(thread + u"/children"_s));
        if (!list.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray &child : list.readAll().simplified().split(' '))
            children.append(child.toLongLong());
    }
    return children;
}

void releaseFreeMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

void resetPeakMemory()
{
    QFile file(u"/proc/self/clear_refs"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KExtensionModules.h"

#include <QMutex>
#include <QMutexLocker>

using namespace Qt::StringLiterals;

namespace {

struct Chain
{
    QMutex mutex;
    QStringList names;
    QString refusal;
};

// Made on first use: a module linked into a program enters itself before main.
Chain &chain()
{
    static Chain instance;
    return instance;
}

QString reasonAgainst(const QString &name, int builtForVersion, const QStringList &attached)
{
    if (name.isEmpty())
        return u"افزونه نامی ندارد."_s;
    if (builtForVersion != KExtensionModules::frameworkVersion) {
        return u"افزونه «%1» برای نسخه دیگری از برنامه ساخته شده است (نسخه %2 به جای %3)."_s
            .arg(name)
            .arg(builtForVersion)
            .arg(KExtensionModules::frameworkVersion);
    }
    if (attached.contains(name))
        return u"افزونه «%1» پیش از این بارگذاری شده است."_s.arg(name);
    return {};
}

}

bool KExtensionModules::attach(const QString &name, int builtForVersion)
{
    Chain &modules = chain();
    const QMutexLocker lock(&modules.mutex);
    const QString reason = reasonAgainst(name, builtForVersion, modules.names);
    if (!reason.isEmpty()) {
        modules.refusal = reason;
        return false;
    }
    modules.names.append(name);
    return true;
}

void KExtensionModules::detach(const QString &name)
{
    Chain &modules = chain();
    const QMutexLocker lock(&modules.mutex);
    modules.names.removeAll(name);
}

bool KExtensionModules::isAttached(const QString &name)
{
    Chain &modules = chain();
    const QMutexLocker lock(&modules.mutex);
    return modules.names.contains(name);
}

QStringList KExtensionModules::names()
{
    Chain &modules = chain();
    const QMutexLocker lock(&modules.mutex);
    return modules.names;
}

QString KExtensionModules::refusal()
{
    Chain &modules = chain();
    const QMutexLocker lock(&modules.mutex);
    return modules.refusal;
}

void KExtensionModules::forgetRefusal()
{
    Chain &modules = chain();
    const QMutexLocker lock(&modules.mutex);
    modules.refusal.clear();
}

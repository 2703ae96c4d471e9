// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/AutoModule.h"

#include "host/frame/StartupClock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

#if defined(Q_OS_WIN)
constexpr char16_t libraryName[] = u"TzAuto.dll";
#else
constexpr char16_t libraryName[] = u"libTzAuto.so";
#endif

QString libraryPath(const QString &folder)
{
    const QString name = QString::fromUtf16(libraryName);
    if (!folder.isEmpty())
        return QDir(folder).absoluteFilePath(name);
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString &place : {u"/../lib/tzauto/"_s, u"/../lib/"_s, u"/"_s})
        if (QFileInfo::exists(program + place + name))
            return QDir::cleanPath(program + place + name);
    return QDir::cleanPath(program + u"/../lib/tzauto/"_s + name);
}

}

AutoModule::AutoModule()
    : m_loader(u"TzAuto"_s)
{
}

bool AutoModule::load(const QString &folder)
{
    const QString path = libraryPath(folder);
    if (!m_loader.load(path)) {
        m_errorText = m_loader.errorText();
        return false;
    }
    using Entry = CAutoDBSetting *(*)();
    const auto entry = reinterpret_cast<Entry>(m_loader.resolve("GetAutoDBSetting"));
    m_entry = entry ? entry() : nullptr;
    if (!m_entry) {
        m_errorText = u"بارگذاری افزونه «TzAuto» انجام نشد: پرونده آن از این برنامه نیست."_s;
        qCWarning(lcHost) << "no entry in" << path;
        m_loader.unload();
        return false;
    }
    m_errorText.clear();
    return true;
}

void AutoModule::unload()
{
    m_entry = nullptr;
    if (m_loader.isLoaded())
        m_loader.unload();
}

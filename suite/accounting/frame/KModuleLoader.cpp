// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KModuleLoader.h"

#include "suite/accounting/frame/KExtensionModules.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcModules, "tz.modules")

}

KModuleLoader::KModuleLoader(const QString &moduleName)
    : m_name(moduleName)
{
}

bool KModuleLoader::load(const QString &libraryPath)
{
    if (m_loaded)
        return true;
    m_errorText.clear();
    m_technicalText.clear();
    KExtensionModules::forgetRefusal();
    m_library.setFileName(libraryPath);
    // All symbols at once: a module that lacks one must fail here, not at a click.
    m_library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    if (!m_library.load())
        return fail(u"پرونده افزونه باز نشد."_s, m_library.errorString());
    if (!KExtensionModules::isAttached(m_name)) {
        const QString refusal = KExtensionModules::refusal();
        m_library.unload();
        return fail(refusal.isEmpty() ? u"افزونه خود را معرفی نکرد."_s : refusal, QString());
    }
    m_loaded = true;
    return true;
}

bool KModuleLoader::unload()
{
    if (!m_loaded || !m_library.unload())
        return false;
    m_loaded = false;
    return true;
}

QFunctionPointer KModuleLoader::resolve(const char *symbol)
{
    return m_loaded ? m_library.resolve(symbol) : nullptr;
}

bool KModuleLoader::fail(const QString &reason, const QString &technical)
{
    m_errorText = u"بارگذاری افزونه «%1» انجام نشد: %2"_s.arg(m_name, reason);
    m_technicalText = technical;
    qCWarning(lcModules).noquote() << "module" << m_name << "not loaded from" << m_library.fileName() << technical;
    return false;
}

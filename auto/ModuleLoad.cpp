// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KExtensionModules.h"

using namespace Qt::StringLiterals;

namespace {

// Lives as long as the library is loaded: enters the module into the host's chain, and takes it off at unload. A refused
// module stays out of the chain, which shows the host's loader that the load has failed.
class ModuleRecord
{
public:
    ModuleRecord()
        : m_attached(KExtensionModules::attach(name(), KExtensionModules::frameworkVersion))
    {
    }

    ~ModuleRecord()
    {
        if (m_attached)
            KExtensionModules::detach(name());
    }

    ModuleRecord(const ModuleRecord &) = delete;
    ModuleRecord &operator=(const ModuleRecord &) = delete;

private:
    static QString name() { return u"TzAuto"_s; }

    bool m_attached;
};

const ModuleRecord moduleRecord;

}

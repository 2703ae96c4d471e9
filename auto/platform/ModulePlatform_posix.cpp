// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/platform/ModulePlatform.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace {

const char anchor = 0;

}

QString ModulePlatform::moduleFolder()
{
    Dl_info info{};
    if (dladdr(&anchor, &info) == 0 || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
}

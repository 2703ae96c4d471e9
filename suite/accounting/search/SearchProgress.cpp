// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchProgress.h"

#include "suite/accounting/office/CTblProperties.h"

using namespace Qt::StringLiterals;

namespace {

const QString section = u"Search"_s;
const QString builtKey = u"Built"_s;

}

SearchProgress SearchProgress::read(int database)
{
    const QStringList parts = CTblProperties::DBReadSetting(section, builtKey, QString(), database).split(u'/');
    if (parts.size() != 3 || parts.at(0).toInt() != rulesVersion)
        return {};
    return {rulesVersion, parts.at(1).toInt(), parts.at(2).toInt(), parts.at(1) == "all"_L1};
}

void SearchProgress::store(int database) const
{
    const QString where = complete ? u"all/0"_s : u"%1/%2"_s.arg(kind).arg(record);
    CTblProperties::DBWriteSetting(section, builtKey, u"%1/%2"_s.arg(rulesVersion).arg(where), database);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportKind.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

std::vector<std::unique_ptr<ImportKind>> &enteredKinds()
{
    static std::vector<std::unique_ptr<ImportKind>> kinds;
    return kinds;
}

}

ImportRun::~ImportRun() = default;
ImportKind::~ImportKind() = default;

QString ImportRun::fileProblem(const QList<ImportRow> &)
{
    return {};
}

QString ImportRun::question()
{
    return {};
}

bool ImportRun::keepsCode(const ImportRow &row)
{
    return row.values.value(u"iCode"_s).toInt() > 0 && !row.twin;
}

qint32 ImportKind::nextCode(int) const
{
    return 0;
}

void ImportKinds::enter(std::unique_ptr<ImportKind> kind)
{
    remove(kind->id());
    enteredKinds().push_back(std::move(kind));
}

void ImportKinds::remove(const QString &id)
{
    std::erase_if(enteredKinds(), [&](const auto &kind) { return kind->id() == id; });
}

const ImportKind *ImportKinds::of(const QString &id)
{
    const auto found = std::ranges::find_if(enteredKinds(), [&](const auto &kind) { return kind->id() == id; });
    return found == enteredKinds().cend() ? nullptr : found->get();
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/ContractTitle.h"

#include "auto/editor/EditorTitle.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString contractEditorTitle(int contractType, ContractEditorMode mode)
{
    static const QStringList typeNames = {u"مبایعه نامه"_s, u"اجاره"_s,
                                          u"فروش اقساطی"_s, u"نامه"_s};
    return editorTitle(u"قرارداد "_s + typeNames.value(contractType), mode);
}

// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/ContractTitle.h"

#include "auto/editor/EditorTitle.h"

#include <QStringList>

QString contractEditorTitle(int contractType, ContractEditorMode mode)
{
    static const QStringList typeNames = {QStringLiteral("مبایعه نامه"), QStringLiteral("اجاره"),
                                          QStringLiteral("فروش اقساطی"), QStringLiteral("نامه")};
    return editorTitle(QStringLiteral("قرارداد ") + typeNames.value(contractType), mode);
}

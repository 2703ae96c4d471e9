// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/ContractTitle.h"

#include <QStringList>

QString contractEditorTitle(int contractType, ContractEditorMode mode)
{
    static const QStringList typeNames = {QStringLiteral("مبایعه نامه"), QStringLiteral("اجاره"),
                                          QStringLiteral("فروش اقساطی"), QStringLiteral("نامه")};
    QString title = QStringLiteral("قرارداد ") + typeNames.value(contractType);
    switch (mode) {
    case ContractEditorMode::New:
        return title + QStringLiteral("- جدید");
    case ContractEditorMode::Edit:
        return title + QStringLiteral("- ویرایش");
    case ContractEditorMode::Show:
        return title + QStringLiteral(" - نمایش");
    }
    Q_UNREACHABLE();
}

bool hasMatterPage(int contractType)
{
    return contractType >= 0 && contractType <= 2;
}

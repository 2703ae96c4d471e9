// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractPrintingDesk.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KProcess.h"

#include <QFileDialog>
#include <QStandardPaths>

namespace {

QString warningText(ContractPrinting::Trouble trouble)
{
    switch (trouble) {
    case ContractPrinting::Trouble::TemplateMissing:
        return QStringLiteral("فایل نامه پیدا نشد.\nلطفا مسیر فایل را مشخص نمایید.");
    case ContractPrinting::Trouble::ProcessorMissing:
        return QStringLiteral("امکان مقدار دهی اولیه مایکروسافت ورد وجود ندارد!");
    case ContractPrinting::Trouble::TemplateUnreadable:
        return QStringLiteral("فایل ورد پیدا نشد.");
    case ContractPrinting::Trouble::NotSaved:
        return QStringLiteral("سند قرارداد در پوشه موقت ذخیره نشد.");
    case ContractPrinting::Trouble::NotOpened:
        return QStringLiteral("سند قرارداد ساخته شد، اما برنامه‌ای برای باز کردن آن پیدا نشد.");
    }
    return {};
}

QString askForTemplate(QWidget *parent)
{
    QFileDialog dialog(parent, QStringLiteral("فایل نامه را انتخاب کنید"));
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.setFileMode(QFileDialog::ExistingFile);
    // The pattern that is looked for is the one in the brackets of the text.
    dialog.setNameFilter(QStringLiteral("فایل میاکروسافت وورد(*.docx)"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}

ContractPrinting::Desk contractPrintingDesk(QWidget *parent)
{
    return {[parent](ContractPrinting::Trouble trouble) { g_pDlgWarning->Show(warningText(trouble), parent); },
            [parent] { return askForTemplate(parent); },
            [](const QString &path) { return KProcess::Execute(QStringLiteral("Explorer"), path); }};
}
